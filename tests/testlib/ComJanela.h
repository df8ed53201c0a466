// The main window over an installation of its own, as a test of its list and card needs it: no contacts but
// the test's own, and every group in the filter.
#pragma once

#include "contacts/DesfazerEliminacao.h"
#include "contacts/ListaContactos.h"
#include "session/Main.h"
#include "testlib/Sistema.h"

#include <QTest>

struct ComJanela {
    ComJanela()
    {
        s.Escrever(QStringLiteral("DELETE FROM TblLista"));
        lista.Carregar_Grupos();
    }

    // Adds a contact, loads the list anew and shows the card. Returns the ID.
    int Mostrar(const QMap<QString, Value> &colunas)
    {
        const int id = s.Novo_Contacto(colunas);
        lista.Carregar_Tabela(); // a single contact is shown by that alone
        if (janela.ListaNomes->ListCount() > 1) Escolher(id);
        return id;
    }

    // A click on the contact with that ID.
    void Escolher(int id)
    {
        for (int i = 0; i < janela.ListaNomes->ListCount(); ++i)
            if (janela.ListaNomes->ItemData(i) == id) return janela.ListaNomes->setListIndex(i);
        QTest::qFail("no such contact in the list", __FILE__, __LINE__);
    }

    // A click of the mouse on a row, past the list's own assignment.
    void Carregar_Na_Linha(int linha, Qt::MouseButton botao = Qt::LeftButton)
    {
        ListBox &nomes = *janela.ListaNomes;
        QTest::mouseClick(nomes.viewport(), botao, {},
                          nomes.visualRect(nomes.model()->index(linha, 0)).center());
    }

    Sistema s;
    Main janela{s.geral, s.plataforma};
    ListaContactos &lista = *janela.findChild<ListaContactos *>();
    DesfazerEliminacao &desfazer = *janela.findChild<DesfazerEliminacao *>();
};
