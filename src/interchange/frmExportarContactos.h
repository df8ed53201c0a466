// Takes contacts out of the book as cards or as a table. It goes on in small steps, during which a cancel is
// heard, and what was cancelled or failed has written nothing.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmExportarContactos.h"

#include <memory>
#include <QDialog>
#include <QTimer>

class ExportacaoDeContactos;
class Failure;
class Geral;
class Janela;
struct PedidoDeSaida;
struct Platform;

class frmExportarContactos final : public QDialog, public Ui::frmExportarContactos
{
    Q_OBJECT
public:
    // The window tells what is selected and which group is on view.
    frmExportarContactos(const Janela &janela, Geral &geral, Platform &platform, QWidget *dono = nullptr);
    ~frmExportarContactos() override;

    // Cancels what goes on, and only then the form.
    void reject() override;

private:
    void Form_Unload();
    void cmdExportar_Click();
    void ComboFormato_Click();
    void Passo();

    void Legendar();
    void Oferecer_Contactos(const Janela &janela);
    void Oferecer_Formatos();
    bool E_Cartao() const;
    QList<int> Contactos() const;
    std::optional<QString> Alvo(bool um_por_contacto);
    QString Nome_Proposto() const;
    void Comecar(PedidoDeSaida pedido);
    void Parar();
    void Tentar(const std::function<void()> &trabalho);
    QString Resultado() const;

    Geral &geral_;
    Platform &platform_;
    PausaDosTemporizadores pausa_;
    int grupo_ = 0; // on view; 0 stands for all
    QString nome_seleccionado_;
    QString nome_do_grupo_;
    QString alvo_;
    std::unique_ptr<ExportacaoDeContactos> exportacao_; // while one goes on
    QTimer passo_;
};
