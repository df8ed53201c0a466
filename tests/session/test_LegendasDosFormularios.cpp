// The captions of every form but the main window, each by the number of its text, in three languages.
#include "session/TodosOsFormularios.h"
#include "testlib/Teste.h"

#include <QGroupBox>
#include <QTabBar>

using namespace Qt::StringLiterals;
using namespace formularios_de_teste;

namespace
{
QString No_Ecra(QWidget &form, const QString &onde)
{
    if (onde == "title"_L1) return form.windowTitle();
    if (onde.startsWith("tab"_L1)) return form.findChild<QTabBar *>()->tabText(onde.mid(3).toInt());
    if (onde.startsWith("tip:"_L1)) return form.findChild<QWidget *>(onde.mid(4))->toolTip();
    auto *controlo = form.findChild<QWidget *>(onde);
    if (controlo == nullptr) return u"no control of that name"_s;
    if (auto *moldura = qobject_cast<QGroupBox *>(controlo)) return moldura->title();
    if (const QVariant texto = controlo->property("plainText"); texto.isValid()) return texto.toString();
    return controlo->property("text").toString();
}
} // namespace

class TestLegendasDosFormularios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_legenda_e_o_texto_do_seu_numero_data()
    {
        QTest::addColumn<int>("qual");
        QTest::addColumn<QString>("idioma");
        for (int i = 0; i < formularios.size(); ++i)
            for (const char *idioma : {"PortuguesPT", "InglesUK", "AlemaoDE"})
                QTest::addRow("%s, %s", formularios[i].nome, idioma) << i << QString::fromLatin1(idioma);
    }
    void cada_legenda_e_o_texto_do_seu_numero()
    {
        QFETCH(int, qual);
        QFETCH(QString, idioma);
        ComFormulario c(idioma);
        QWidget &form = *formularios[qual].abrir(c);
        for (const QString &legenda : formularios[qual].legendas) {
            const QStringList partes = legenda.split(u' ');
            const QString esperado = c.s.Texto(partes[1].toInt()) + partes.value(2);
            QVERIFY2(esperado.size() > partes.value(2).size(), qPrintable(legenda));
            const QString visto = No_Ecra(form, partes[0]);
            QVERIFY2(QString(visto).remove(u'&') == QString(esperado).remove(u'&'),
                     qPrintable(legenda + u": "_s + visto));
        }
    }
};

MORVEX_TESTE(TestLegendasDosFormularios)
#include "test_LegendasDosFormularios.moc"
