// Opens and closes the search window, from the menu, the toolbar and the tray.
#pragma once

#include <memory>
#include <QObject>

class frmProcurar;
class Geral;
class Janela;
struct Platform;

class Pesquisa final : public QObject
{
    Q_OBJECT
public:
    Pesquisa(Janela &janela, Geral &geral, Platform &platform);
    ~Pesquisa() override;

Q_SIGNALS:
    // A hit is on the card: the main window is to be seen.
    void Trazer_Main();

private:
    void procurar_Click();

    Geral &geral_;
    Platform &platform_;
    Janela &janela_;
    std::unique_ptr<frmProcurar> form_; // made at its first use
};
