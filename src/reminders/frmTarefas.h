// The alert card of one due task, which the click on the popup fills and shows. Its "&Ok" alone acknowledges
// the ring; left in any other way the task stays as it was and rings again.
#pragma once

#include "controls/LongText.h"
#include "ui_frmTarefas.h"

#include <QDialog>

class Geral;
class ReportControl;
struct Platform;

class frmTarefas final : public QDialog, public Ui::frmTarefas
{
    Q_OBJECT
public:
    frmTarefas(Geral &geral, Platform &platform, QWidget &janela, ReportControl &CrystalReport1);

    // Puts the description into txtTarefa; the other controls take their texts as they are.
    void Mostrar_Tarefa(const QString &Tarefa) { Tarefa_.load(*txtTarefa, Tarefa); }

Q_SIGNALS:
    // The user wants to be reminded again after so many minutes. The task stays as it was, and the card goes.
    void Adiada(int minutos);

private:
    void cmdImprimir_Click(); // in spite of its name the acknowledgement
    void cmdImprimirTarefa_Click();
    void cmdEditar_Click();
    void Oferecer_Adiamentos();
    void cmdEliminar_Click();

    void Eliminar();
    void Passar_A(QDate dia);

    Geral &geral_;
    Platform &platform_;
    QWidget &janela_;
    ReportControl &CrystalReport1;
    LongText Tarefa_;
};
