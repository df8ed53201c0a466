// The editor of one contact: a new one, or the one on the card, as ModoContacto says. It writes TblLista and
// leaves the selection of the contact list on what it wrote. While it is open no alarm and no mail check
// comes between.
#pragma once

#include "contacts/LugarNaLista.h"
#include "platform/LongText.h"
#include "ui_frmAddEdit.h"

#include <array>
#include <functional>
#include <QDialog>
#include <vector>

class Geral;
struct Platform;

class frmAddEdit final : public QDialog, public Ui::frmAddEdit
{
    Q_OBJECT
public:
    // The main window, in front of which it stands, and the list in it.
    frmAddEdit(QWidget &janela, Geral &geral, Platform &platform, ListaContactos &lista);

    // Fills the form. False where the load has stopped for want of a group: then it isn't to be shown. Raises
    // Failure where the contact can't be read, with the timers running again.
    bool Carregar();

Q_SIGNALS:
    // There is no group that a contact could belong to.
    void Sem_Grupos();

protected:
    bool event(QEvent *evento) override;
    bool eventFilter(QObject *alvo, QEvent *evento) override;

private:
    // One of the three fields that share the calendar.
    struct CampoDeData {
        QLineEdit *caixa;
        int left;                             // of the calendar under it, in twips
        const char *CalendarioAno;            // whether a date click fills the year as well
        int limite;                           // a number above it is what the calendar opens on
        int (QDate::*parte)() const;          // the part of today on which it opens otherwise
        QDate (*com_parte)(QDate, int parte); // a date with that part of it replaced
    };

    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void ComboGrupos_Click();
    void cmd_foto_Click();
    void cmdOk_Click();
    void cmdCancelar_Click();
    void Calendario_DateClick(QDate dia);

    void Atribuir_Legendas();
    void Preencher_Campos();
    void Escolher_Grupo(const QString &Grupo);
    void Mostrar_Foto(const QString &ficheiro);
    void Mostrar_Foto_Do_Contacto();

    const CampoDeData *Campo_De_Data(const QObject *alvo) const;
    void Data_Click(const CampoDeData &campo);
    void Data_KeyDown(const CampoDeData &campo);
    void Mostrar_Calendario(bool visivel);

    void Recusar_Data();
    std::array<QString, 17> Valores() const;
    void Adicionar();
    void Actualizar();
    void Fechar_Depois_De(const std::function<void()> &mostrar);

    Geral &geral_;
    Platform &platform_;
    QWidget &janela_;
    LugarNaLista lugar_;
    LongText Morada_;
    LongText Obs_;
    std::vector<CampoDeData> datas_;
    QString CalendarioAno; // "sim" or "nao"
    int altura_ = 0;       // of the form without the calendar, in pixels
    bool activado_ = false;
};
