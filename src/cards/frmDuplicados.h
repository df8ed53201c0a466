// Pairs of contacts that may be one person, one after the other: a person makes one of them, says that they
// are different people, or leaves it for another time.
#pragma once

#include "cards/DuplicadosDoLivro.h"
#include "data/Temporizadores.h"
#include "ui_frmDuplicados.h"

#include <QDialog>

class ComboBox;
class Geral;
struct Platform;

class frmDuplicados final : public QDialog, public Ui::frmDuplicados
{
    Q_OBJECT
public:
    // Reads the book. Raises Failure where it can't be read.
    frmDuplicados(Geral &geral, Platform &platform, DesfazerEliminacao &desfazer, QWidget *dono = nullptr);

    bool Juntou() const { return juntou_; } // at least one pair

private:
    void Form_Unload();
    void cmdJuntar_Click();
    void cmdDiferentes_Click();
    void cmdSaltar_Click();

    void Escrever_Textos();
    void Mostrar();
    void Mostrar_Fim();
    void Mostrar_Linha(Linha linha, const JuncaoDeContactos &juncao);
    void Acrescentar_Escolha(QTreeWidgetItem &item, Linha linha);
    JuncaoDeContactos Juncao() const;

    Geral &geral_;
    Platform &platform_;
    PausaDosTemporizadores pausa_;
    DuplicadosDoLivro livro_;
    std::optional<DuplicadosDoLivro::Aberto> par_;
    std::map<Linha, ComboBox *> escolhas_; // of what both say, and not alike
    bool juntou_ = false;
};
