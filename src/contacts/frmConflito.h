// What two desks have made of the same fields of one row, side by side: a person says which stays. It writes
// nothing.
#pragma once

#include "data/EncontroDeLinhas.h"
#include "ui_frmConflito.h"

#include <functional>
#include <map>
#include <QDialog>

class ComboBox;
class Geral;
class Picture;

// A field that both have changed, as a person reads it.
struct CampoDisputado {
    QString rotulo; // as the editor has it
    QString la;
    QString aqui;
    // Where both name pictures, what they name; it may raise Failure. None: both are texts.
    std::function<Picture(const QString &)> imagem;
};
using CamposDisputados = std::map<std::size_t, CampoDisputado>; // by their places in the row

class frmConflito final : public QDialog, public Ui::frmConflito
{
    Q_OBJECT
public:
    // The first line says what was changed. Ours is chosen for each field.
    frmConflito(Geral &geral, const QString &facto, const CamposDisputados &campos, QWidget *dono);

    // The places of the fields that become theirs. Worth something once the form is accepted: rejected, it
    // sends the person back to the editor.
    EncontroDeLinhas::Lugares Deles() const;

private:
    void cmdMeus_Click();
    void cmdDeles_Click();

    void Escrever_Textos(const QString &facto);
    ComboBox *Mostrar(const CampoDisputado &campo);
    void Mostrar_Imagem(QTreeWidgetItem &item, int coluna, const QString &nome, const CampoDisputado &campo);
    ComboBox *Acrescentar_Escolha(QTreeWidgetItem &item);
    void Por_No_Alto(QTreeWidgetItem &item, ComboBox &caixa);
    void Escolher_Todos(int escolha);

    Geral &geral_;
    std::map<std::size_t, ComboBox *> escolhas_; // by the places of the fields
};
