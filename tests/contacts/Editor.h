// The editor of contacts as a person reaches it: over the main window, by its commands.
#pragma once

#include "contacts/frmAddEdit.h"
#include "testlib/Accoes.h"
#include "testlib/ComJanela.h"

#include <QTest>

using namespace Qt::StringLiterals;

struct Editor : ComJanela {
    using Accao = std::function<void(frmAddEdit &)>;

    // Opens the editor for a new contact, or for the one on the card, and does that in it. A form that the
    // action leaves open is cancelled.
    void Novo(const Accao &accao)
    {
        Abrir([this] { janela.cmdNovo->click(); }, accao);
    }
    void Editar(const Accao &accao)
    {
        Abrir([this] { janela.cmdEditar->click(); }, accao);
    }

    // The same by another way to the command.
    static void Abrir(const std::function<void()> &comando, const Accao &accao)
    {
        bool abriu = false;
        accoes::Quando_Abrir<frmAddEdit>([&](frmAddEdit &form) {
            abriu = true;
            accao(form);
            if (form.isVisible()) form.reject();
        });
        comando();
        if (abriu) return;
        QTest::qFail("the editor did not open", __FILE__, __LINE__);
        QTest::qWait(6000); // until nobody waits for it any more: the next form to open is another test's
    }

    // Adds a contact of that name through the editor, in that group if one is named.
    void Adicionar(const QString &nome, const QString &grupo = {})
    {
        Novo([&](frmAddEdit &form) {
            form.txtNome->setText(nome);
            if (!grupo.isEmpty()) form.ComboGrupos->ChooseText(grupo);
            form.cmdOk->click();
        });
    }

    // Changes the filter of the main window to the group of that name.
    void Filtrar(const QString &grupo) { janela.ComboGrupos->ChooseText(grupo); }

    // A group of the test's own, in the filter at once. Returns the ID.
    int Grupo(const QString &nome)
    {
        const int id = s.Novo_Grupo(nome);
        lista.Carregar_Grupos();
        return id;
    }

    // The name on the selected row of the list.
    QString Escolhido() const
    {
        const int linha = janela.ListaNomes->ListIndex();
        return linha < 0 ? QString() : janela.ListaNomes->List(linha);
    }

    // A column of the contact that was written last.
    QString Coluna(const QString &coluna)
    {
        return s.Ler(u"SELECT %1 AS c FROM TblLista ORDER BY ID DESC LIMIT 1"_s.arg(coluna))
            .Fields("c")
            .text();
    }

    int Contactos() { return s.Ler(u"SELECT count(*) AS n FROM TblLista"_s).Fields("n").number(); }
};
