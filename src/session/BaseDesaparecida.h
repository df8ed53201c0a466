// A start whose database is not where config.ini says: asks where it is now, before a login that nobody could
// pass.
#pragma once

class Geral;
struct Platform;

namespace base_desaparecida
{
// Does nothing while the file is there, and nothing where the book lies on a server. Otherwise asks until a database was chosen, which the process then
// uses and config.ini names, or until the offer is declined.
void Procurar(Geral &geral, Platform &platform);
} // namespace base_desaparecida
