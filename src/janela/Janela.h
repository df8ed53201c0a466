// The main window's form: every control, menu and command of it as a member, and nothing that they do. It stands
// below the classes that own a share of the window, so that each reaches its controls by name and a slip does not
// compile. The window itself, which joins these classes, is made from it.
#pragma once

#include "ui_Main.h"

class Janela : public QMainWindow, public Ui::Main
{
    Q_OBJECT
public:
    Janela();
    ~Janela() override;
};
