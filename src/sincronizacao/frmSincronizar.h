// Which book on which server goes with which group, when, and what came of it. What is chosen here is kept by
// Ok and by the button that begins a run; the run goes on when the form is closed.
#pragma once

#include "sincronizacao/Sincronizador.h"
#include "ui_frmSincronizar.h"

#include <QDialog>

class frmSincronizar final : public QDialog, public Ui::frmSincronizar
{
    Q_OBJECT
public:
    frmSincronizar(Geral &geral, Platform &platform, Sincronizador &sincronizador, QWidget *dono = nullptr);

    // Cancels a run or a search that goes on, and only then the form.
    void reject() override;

private:
    void cmdEncontrar_Click();
    void cmdSincronizar_Click();
    void cmdLimpar_Click();
    void cmdOk_Click();

    void Legendar();
    void Mostrar_Conta();
    void Mostrar_Grupos(int escolhido);
    void Mostrar_Estado();
    void Mostrar_Ocorrencias();
    void Mostrar_Progresso(int feitos, int de_quantos);
    void Permitir();
    void Endereco_Mudou();
    void Encontrados(const RemoteError &erro, const QList<FoundBook> &livros);
    void Acabou(const ResultadoDaSincronizacao &resultado);
    void Perguntar(const ResultadoDaSincronizacao &resultado);
    void Dizer(const QString &texto);
    bool Guardar();
    int Grupo_Escolhido();

    Geral &geral_;
    Platform &platform_;
    Sincronizador &sincronizador_;
    MemoriaDaSincronizacao memoria_;
    QList<FoundBook> livros_; // in the order of the combo
    QString nome_do_grupo_;   // that is made if it is chosen
    std::shared_ptr<void> procura_;
    bool pediu_ = false; // this form began the run
};
