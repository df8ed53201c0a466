// The list of the coming birthdays, and the photograph of the contact that is selected in it. A picture that
// is missing or broken is replaced, never reported.
#pragma once

#include "data/Temporizadores.h"
#include "platform/Picture.h"
#include "ui_frmAniversarios.h"

#include <QDialog>
#include <vector>

class Geral;
struct Aniversariante;

class frmAniversarios final : public QDialog, public Ui::frmAniversarios
{
    Q_OBJECT
public:
    // The main window is enabled when the form closes.
    frmAniversarios(Geral &geral, QWidget &janela);

    // Fills the list anew. Nothing is selected then.
    void PreencherAniversarios(const std::vector<Aniversariante> &pessoas);

    // Shows the selected contact's photograph; without a selection the first contact becomes selected.
    void Mostrar_Foto();

    // The picture that is shown, at its natural size.
    const Picture &Image1() const { return image1_; }

private:
    void Form_Unload();
    void ListViewAniversarios_ItemClick();

    void Mostrar_Fotografia_Do_Contacto(const QString &ID);
    void Mostrar_Na_Caixa(const QString &ficheiro);
    QString Nome_Do_Mes(const QString &Mes);

    Geral &geral_;
    QWidget &janela_;
    Picture image1_;
    PausaDosTemporizadores pausa_;
};
