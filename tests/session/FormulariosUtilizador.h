// What the tests of the two forms with a user's fields have in common.
#pragma once

#include "testlib/Sistema.h"

#include <QTest>

namespace formularios_utilizador
{
// Rows of a test: one check box each, and the row of TblUsers in which it alone is ticked.
inline void Dados_De_Cada_Caixa()
{
    QTest::addColumn<QString>("caixa");
    QTest::addColumn<QString>("linha");
    const QStringList colunas{QStringLiteral("SystemTray"), QStringLiteral("Adicionar"),
                              QStringLiteral("Editar"),     QStringLiteral("Eliminar"),
                              QStringLiteral("Grupos"),     QStringLiteral("Utilizadores")};
    for (qsizetype i = 0; i < colunas.size(); ++i) {
        QStringList linha(colunas.size(), QStringLiteral("0"));
        linha[i] = QStringLiteral("1");
        QTest::newRow(qPrintable(colunas[i])) << QStringLiteral("cb") + colunas[i] << linha.join(u'|');
    }
}

// The six check boxes of a user as they were stored, in the order of the rows above.
inline QString Caixas_Gravadas(Sistema &s, int id)
{
    return s
        .Linhas(QStringLiteral("SELECT SystemTray, Adicionar, Editar, Eliminar, Grupos, Utilizadores "
                               "FROM TblUsers WHERE ID=%1")
                    .arg(id))
        .join(u'\n');
}

// Ok is answered with that text; the form stays and nothing is written.
template<class Formulario> void Recusar(Sistema &s, Formulario &form, int texto)
{
    const QString linhas = QStringLiteral("SELECT * FROM TblUsers");
    const QStringList antes = s.Linhas(linhas);
    s.caixas.Espera(s.Texto(texto), 16, QStringLiteral("Morvex"));
    form.show();
    form.cmdOk->click();
    QVERIFY(s.caixas.Todas_Vistas());
    QVERIFY(form.isVisible());
    QCOMPARE(s.Linhas(linhas), antes);
    QCOMPARE(s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
}
} // namespace formularios_utilizador
