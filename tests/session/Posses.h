// What users own, for the tests of the forms that hand it over or away.
#pragma once

#include "testlib/Sistema.h"

namespace posses
{
inline QString Numero(int numero) { return QString::number(numero); }

inline void Nova_Tarefa(Sistema &s, int dono)
{
    s.geral.de.Executar("cmdAdicionarTarefa", {u"Regar", u"01-03-2027", u"10:00", Numero(dono), u"1"});
}

inline void Novo_Memo(Sistema &s, int dono)
{
    s.geral.de.Executar("cmdAdicionarMemo", {u"Nota", u"Texto", u"0", u"0", u"2775", u"1185", u"Tahoma",
                                             u"8,25", u"False", u"False", u"65535", Numero(dono)});
}

inline void Nova_Conta(Sistema &s, int dono)
{
    s.geral.de.Executar("cmdInserirEmail",
                        {u"a@exemplo.example", u"pop.exemplo.example", u"a", u"x", Numero(dono)});
}

// One of each for that owner; 0 is nobody.
inline void Dar_Um_De_Cada(Sistema &s, int dono)
{
    Nova_Tarefa(s, dono);
    Novo_Memo(s, dono);
    Nova_Conta(s, dono);
    s.Novo_Grupo(QStringLiteral("Grupo de %1").arg(dono), dono);
}

// The owners that occur in a table, in order, each once: "0,3".
inline QString Donos(Sistema &s, const QString &tabela)
{
    const QString coluna = tabela == u"TblMemos" || tabela == u"TblTarefas" ? QStringLiteral("Utilizador")
                                                                            : QStringLiteral("IdUtilizador");
    return s.Linhas(QStringLiteral("SELECT DISTINCT %1 FROM %2 ORDER BY 1").arg(coluna, tabela)).join(u',');
}

// The owners of memos, tasks, mail accounts and groups.
inline QStringList Donos_De_Tudo(Sistema &s)
{
    QStringList donos;
    for (const char16_t *tabela : {u"TblMemos", u"TblTarefas", u"TblEmails", u"TblGrupos"})
        donos << Donos(s, QString::fromUtf16(tabela));
    return donos;
}
} // namespace posses
