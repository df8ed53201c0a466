// What frmImprimir and frmExportar let be chosen alike: which contacts go into the report, and in which of
// its layouts.
#pragma once

#include "ui_OpcoesRelatorio.h"

#include <QWidget>

class Geral;
class ListBox;

class OpcoesRelatorio final : public QWidget, public Ui::OpcoesRelatorio
{
    Q_OBJECT
public:
    explicit OpcoesRelatorio(QWidget *dono = nullptr);

    // Texts and groups, all contacts chosen. The list is the main window's: without a row chosen there, no
    // single contact can be.
    void Carregar(Geral &geral, const ListBox &ListaNomes);

    // The file of the chosen layout.
    QString Definicao() const;

    // What the contact list is called: by its group, or by what else was chosen.
    QString Titulo() const;

    // Which records, as the report control takes it; empty for all. Looks neither at users nor at the groups
    // that they may see.
    QString Seleccao() const;

private:
    void ComboGrupos_Click();
    void OptionTodos_Click();
    void OptionSelecionado_Click();

    void Legendar();
    QString ID_Do_Grupo() const;

    Geral *geral_ = nullptr; // from Carregar on
};
