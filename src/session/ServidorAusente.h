// A start whose book lies on a server that can't be reached, or doesn't let this desk in: says why, and waits.
// Never the login, which nobody could pass.
#pragma once

#include <functional>

class Failure;
class Geral;
class QString;
struct Platform;

namespace servidor_ausente
{
// Runs that until the server has answered it: between two tries a box says what is wrong and offers to try again,
// with the address that config.ini has by then, or to leave, which ends the process and raises the failure. On a
// file it runs once, and a failure that is none of the server's is raised at once.
void Insistir(Geral &geral, Platform &platform, const std::function<void()> &pedido);

// What to say of a server that could not be opened, in the active language.
QString Palavras(const Failure &falha, const Geral &geral);
} // namespace servidor_ausente
