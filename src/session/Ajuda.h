// The entries of the help menu that lead out of the program.
#pragma once

class Geral;
class Shell;

namespace ajuda
{
void TopicosAjuda(const Geral &geral, Shell &shell);
void Sugerir(Shell &shell);
void Leiame(const Geral &geral, Shell &shell);
} // namespace ajuda
