// The main window without contacts, as the tests of search and actions need it.
#pragma once

#include "controls/Controls.h"
#include "testlib/ComJanela.h"
#include "testlib/Teste.h"

struct Programa : ComJanela {
    Programa() { janela.setWindowTitle(QStringLiteral("Morvex 1.0")); }

    int Contacto(const QMap<QString, Value> &colunas) { return s.Novo_Contacto(colunas); }

    // A contact with an ID that no counter of a test would reach.
    void Contacto_Com_Id(int id, const QString &nome)
    {
        const int ultimo = Contacto({{QStringLiteral("Nome"), nome}});
        s.Escrever(QStringLiteral("UPDATE TblLista SET ID=%1 WHERE ID=%2").arg(id).arg(ultimo));
    }

    void Carregar() { lista.Carregar_Tabela(); }

    void Carregar(const QStringList &nomes)
    {
        for (const QString &nome : nomes)
            Contacto({{QStringLiteral("Nome"), nome}});
        Carregar();
    }

    // The name that the list has chosen; empty without one.
    QString Escolhido() const
    {
        const int linha = janela.ListaNomes->ListIndex();
        return linha < 0 ? QString() : janela.ListaNomes->List(linha);
    }

    QStringList Nomes_Guardados()
    {
        return s.Linhas(QStringLiteral("SELECT Nome FROM TblLista ORDER BY ID"));
    }

    void Mostrar_Janela()
    {
        janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&janela));
    }
};
