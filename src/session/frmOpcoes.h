// The one form for all settings, in eight panes. It shows the process-wide values and writes them all back
// when it is confirmed: to config.ini, to TblConfig and to the list of programs that start with the desktop.
// The database may be a file or the address of a server, which is tried before it is written.
// The font and colour of memos, the sounds and the mail accounts take effect as soon as they are chosen.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmOpcoes.h"

#include <array>
#include <QDialog>

class ContasEmail;
class Geral;
class Janela;
class PaineArranque;
class PaineMemos;
class PaineSons;
struct Platform;

class frmOpcoes final : public QDialog, public Ui::frmOpcoes
{
    Q_OBJECT
public:
    // The main window lends lblTemporizador, the countdown to the next mail check. With cmdCancelar disabled
    // the form can only be left by confirming it. A setting that doesn't convert ends the process.
    frmOpcoes(Geral &geral, Platform &platform, Janela &janela);

protected:
    bool eventFilter(QObject *alvo, QEvent *event) override;

private:
    void Form_Load();
    void Form_Unload();
    void tbsOptions_Click();
    void comboIdioma_Click();
    void cbActivarMailNotification_Click();
    void cmdProcurar_Click();
    void cmdOk_Click();
    void reject() override; // cmdCancelar, Escape and the close box

    void Ligar_Controlos();
    void Atribuir_Legendas();
    void Atribuir_Legendas_Dos_Quadros();
    void Dar_Nomes_Acessiveis();
    void Arrumar();
    void Preencher_Controlos();
    void Escolher_Idioma_Actual();
    void Separador_Seguinte();
    bool Tudo_Cabe_No_Ini();
    void Mostrar_Pane(const QWidget &pane);
    bool Serve_O_Caminho();
    bool Responde(const QString &endereco);

    void Escrever_Aviso_De_Email();
    void Escrever_Envelopes();
    void Escrever_Aniversarios();
    void Escrever_Pasta_Das_Fotos();
    void Escrever_Caminho();
    void Escrever_Idioma();

    Geral &geral_;
    Platform &platform_;
    Janela &janela_;
    PausaDosTemporizadores pausa_;
    ContasEmail *contas_; // the panes with work of their own, children of the form
    PaineMemos *memos_;
    PaineArranque *arranque_;
    PaineSons *sons_;
    std::array<QWidget *, 8> picOptions{};
};
