// Creates or changes one task, by ModoTarefa, which its opener sets before. A task is never set for the
// present minute or for the past. What another desk makes of the task meanwhile is not lost: it joins, or the
// person is asked.
#pragma once

#include "controls/LongText.h"
#include "data/LinhaEditada.h"
#include "data/NovaPorSaber.h"
#include "data/Temporizadores.h"
#include "ui_frmAddEditTarefa.h"

#include <QDialog>

class Geral;
struct Platform;

class frmAddEditTarefa final : public QDialog, public Ui::frmAddEditTarefa
{
    Q_OBJECT
public:
    // The main window is enabled when the form closes. The form is accepted when it has written.
    frmAddEditTarefa(Geral &geral, Platform &platform, QWidget &janela, QWidget *dono);

    // A task as its opener shows it, date and time as text.
    struct Campos {
        QString ID;
        QString Tarefa;
        QString Data;
        QString Hora;
        QString NomeRepeticao;
    };
    // Fills the fields of a form in the mode "Edit". Raises Failure where date or time are missing.
    void Preencher(const Campos &campos);

private:
    void Form_Unload();
    void txtTarefa_Change();
    void cmdOk_Click();

    bool eventFilter(QObject *observado, QEvent *evento) override;
    void Atribuir_Legendas();
    void Preencher_Repeticoes();
    void Preparar_Nova();
    bool Ja_Passou() const;
    QStringList Valores() const;
    bool Gravar();
    void Escrever(const QStringList &valores, const QString &ID);
    void Escrever_Nova();
    std::optional<EncontroDeLinhas::Lugares> Perguntar(const LinhaEditada::Disputa &disputa);
    bool Oferecer_Como_Nova();

    Geral &geral_;
    Platform &platform_;
    QWidget &janela_;
    LongText Tarefa_;
    LinhaEditada linha_; // in the mode "Edit"
    NovaPorSaber nova_;
    PausaDosTemporizadores pausa_;
};
