// Every caption, menu text and tip of the main window, by the number of its text.
#pragma once

class Geral;
class QMainWindow;

namespace legendas
{
// Sets them one by one in their order; one that fails is skipped. With no active language they come out
// blank, and pictures stand for the menus and for the ways to Sair.
void Atribuir(QMainWindow &janela, Geral &geral);
} // namespace legendas
