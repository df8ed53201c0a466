// Which field each column of a foreign table is: a person sees the first rows and the contacts that they
// become, and sets right what was found out.
#pragma once

#include "cards/LeituraDaTabela.h"
#include "ui_frmCampos.h"

#include <optional>
#include <QDialog>

class Geral;
class ModeloDasLinhas;
class ModeloDosCampos;
struct Platform;

class frmCampos final : public QDialog, public Ui::frmCampos
{
    Q_OBJECT
public:
    // The bytes of the whole file, which is read before the form comes up.
    frmCampos(Geral &geral, Platform &platform, QByteArray ficheiro, QWidget *dono = nullptr);
    ~frmCampos() override;

    // What Ok has settled, and remembered for the next table of that kind; nothing after a cancel.
    std::optional<TabelaEscolhida> Escolhida() const;

private:
    void cmdOk_Click();
    void ComboCodificacao_Click();
    void ComboSeparador_Click();
    void ComboDatas_Click();
    void chkNomes_Click();

    void Ligar_Tabelas();
    void Escrever_Textos();
    void Preencher_Escolhas();
    void Preencher_Codificacoes();
    void Preencher_Separadores();
    void Reler(const CsvChoice &escolha);
    void Mostrar_Tudo();
    void Mostrar_Contacto();
    void Mostrar_Avisos();

    Geral &geral_;
    LeituraDaTabela leitura_; // which the two models show
    ModeloDosCampos *campos_;
    ModeloDasLinhas *linhas_;
};
