// An installation with a recording report control, and the main window's form without what its commands do.
#pragma once

#include "janela/Janela.h"
#include "testlib/Accoes.h"
#include "testlib/RelatorioFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

struct ComRelatorios {
    explicit ComRelatorios(const QString &idioma = QStringLiteral("PortuguesPT"))
        : s(Sistema::Estado::Semeado, idioma)
    {
    }

    // A contact on the card, chosen in the list.
    void Escolher_Contacto(qint16 id)
    {
        ListaNomes.AddItem(QStringLiteral("Abel"));
        ListaNomes.setListIndex(0);
        s.geral.IDContacto = id;
    }

    // A group that the session's user sees. Returns the ID.
    int Grupo(const QString &nome) { return s.Novo_Grupo(nome); }

    // "name;text;TRUE" of the labels that both layouts carry.
    QStringList Rotulos_Da_Lista()
    {
        return {QStringLiteral("0 telefone1;") + s.Texto(28) + QStringLiteral(";TRUE"),
                QStringLiteral("1 telefone2;") + s.Texto(29) + QStringLiteral(";TRUE"),
                QStringLiteral("2 fax;Fax;TRUE"),
                QStringLiteral("3 telemovel1;") + s.Texto(30) + QStringLiteral(";TRUE"),
                QStringLiteral("4 telemovel2;") + s.Texto(31) + QStringLiteral(";TRUE"),
                QStringLiteral("5 telemovel3;") + s.Texto(32) + QStringLiteral(";TRUE")};
    }

    QString Titulo_Da_Previsao() { return s.Texto(77).remove(u'&'); }

    bool Temporizadores_Ligados() const
    {
        const Temporizadores &t = s.geral.temporizadores;
        return t.timerTarefas.Enabled() && t.timerPonto.Enabled();
    }
    bool Temporizadores_Parados() const
    {
        const Temporizadores &t = s.geral.temporizadores;
        return !t.timerTarefas.Enabled() && !t.timerPonto.Enabled();
    }

    Sistema s;
    RelatorioFalso relatorio;
    Janela janela;
    ListBox &ListaNomes = *janela.ListaNomes;
};

// Each line with the member's name before it.
inline QStringList Ao_Membro(const QString &membro, const QStringList &valores)
{
    QStringList linhas;
    for (const QString &valor : valores)
        linhas << membro + u' ' + valor;
    return linhas;
}
