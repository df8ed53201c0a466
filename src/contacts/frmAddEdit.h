// The editor of one contact: a new one, or the one on the card, as ModoContacto says. It writes TblLista and
// leaves the selection of the contact list on what it wrote. While it is open no alarm and no mail check
// comes between. What another desk changes meanwhile is not lost: it joins, or the person is asked.
#pragma once

#include "contacts/DisputaDoContacto.h"
#include "contacts/LugarNaLista.h"
#include "controls/LongText.h"
#include "data/LinhaEditada.h"
#include "data/NovaPorSaber.h"
#include "ui_frmAddEdit.h"

#include <functional>
#include <QDialog>

class CamposDeData;
class FotografiaNoEditor;
class Geral;
class Janela;
struct Platform;

class frmAddEdit final : public QDialog, public Ui::frmAddEdit
{
    Q_OBJECT
public:
    // The main window, in front of which it stands, and the list in it.
    frmAddEdit(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista);

    // Fills the form. False where the load has stopped for want of a group: then it isn't to be shown. Raises
    // Failure where the contact can't be read, with the timers running again.
    bool Carregar();

    // A line in the form, also for a screen reader. What has been typed stays as it is.
    void Avisar(const QString &aviso);

    // What has become of the contact that is changed here. Raises Failure where it can't be asked.
    LinhaEditada::Estado La() { return linha_.La(); }

Q_SIGNALS:
    // There is no group that a contact could belong to.
    void Sem_Grupos();

protected:
    bool event(QEvent *evento) override;
    bool eventFilter(QObject *alvo, QEvent *evento) override;

private:
    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void ComboGrupos_Click();
    void Fotografia_Escolhida();
    void cmdOk_Click();
    void cmdCancelar_Click();

    void Atribuir_Legendas();
    void Dar_Nomes_Ao_Calendario();
    void Preencher_Campos();
    void Escolher_Grupo(const QString &Grupo);

    void Recusar_Data();
    disputa_do_contacto::Valores Valores() const;
    QString Registo() const;
    void Adicionar();
    void Actualizar();
    void Escrever_Novo();
    void Completar(const QString &ID);
    void Escrever(const QStringList &valores);
    std::optional<EncontroDeLinhas::Lugares> Perguntar(const LinhaEditada::Disputa &disputa);
    void Oferecer_Como_Novo();
    void Fechar_Depois_De(const std::function<void()> &mostrar);

    Geral &geral_;
    Platform &platform_;
    Janela &janela_;
    LugarNaLista lugar_;
    LongText Morada_;
    LongText Obs_;
    CamposDeData *datas_;      // a child of the form
    FotografiaNoEditor *foto_; // likewise
    NovaPorSaber nova_;
    LinhaEditada linha_; // of a contact that is changed
    bool activado_ = false;
};
