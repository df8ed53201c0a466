// The user's list of tasks, from which they are created, changed and deleted.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmListaTarefas.h"

#include <QDialog>

class Geral;
class Recordset;
struct Platform;

class frmListaTarefas final : public QDialog, public Ui::frmListaTarefas
{
    Q_OBJECT
public:
    // The main window is enabled when the form closes.
    frmListaTarefas(Geral &geral, Platform &platform, QWidget &janela);

    // Another desk has changed tasks: the list anew, on the same task and at the same place.
    void Refrescar();

Q_SIGNALS:
    // A task was changed: an alert card that is open somewhere shows it no longer as it is.
    void TarefaEditada();

protected:
    void showEvent(QShowEvent *evento) override;

private:
    void Form_Unload();
    void cmdCriar_Click();
    void cmdEditar_Click();
    void cmdEliminar_Click();

    enum class Sem_Linhas { Mantem_A_Lista, Esvazia_A_Lista };
    void Ler_Tarefas(Sem_Linhas sem_linhas);
    void Preencher_Lista(Recordset &rs);
    void Dar_Lugar_Ao_Ultimo_Titulo();
    QTreeWidgetItem *Seleccionada() const; // null without a selection

    Geral &geral_;
    Platform &platform_;
    QWidget &janela_;
    PausaDosTemporizadores pausa_;
};
