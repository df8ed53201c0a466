// Opens and closes the search window, from the menu, the toolbar and the tray.
#pragma once

#include <memory>
#include <QObject>

class frmProcurar;
class Geral;
class QWidget;
struct Platform;

class Pesquisa final : public QObject
{
    Q_OBJECT
public:
    // The window must hold ListaNomes and the entries procurar and SystemTrayProcurar; it owns them.
    Pesquisa(QWidget &janela, Geral &geral, Platform &platform);
    ~Pesquisa() override;

Q_SIGNALS:
    // A hit is on the card: the main window is to be seen.
    void Trazer_Main();

private:
    void procurar_Click();

    Geral &geral_;
    Platform &platform_;
    QWidget &janela_;
    std::unique_ptr<frmProcurar> form_; // made at its first use
};
