// Starting with the desktop: one named value among the programs that do.
#pragma once

class QString;
class Registry;

namespace autorun
{
// The value's name holds the version, so one that an older version wrote stays behind.
void Ligar(Registry &registry, const QString &VersaoBD);
void Desligar(Registry &registry, const QString &VersaoBD);
} // namespace autorun
