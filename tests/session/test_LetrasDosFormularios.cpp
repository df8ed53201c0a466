// Every form in letters twice as large: what was drawn for it grows with them.
#include "controls/Scale.h"
#include "session/Formularios.h"
#include "testlib/Teste.h"

#include <QLayout>

using namespace Qt::StringLiterals;

namespace
{
bool E_Do_Desenho(const QObject &objecto)
{
    return !objecto.objectName().isEmpty() && !objecto.objectName().startsWith("qt_"_L1);
}

// The margins of a form's layouts, or where its controls stand if it has none: each by its name, in pixels.
QMap<QString, int> Medidas(const QWidget &form)
{
    QMap<QString, int> medidas;
    const auto por = [&](const QString &nome, int medida) {
        if (medida != 0) medidas[nome] = medida;
    };
    for (const QLayout *disposicao : form.findChildren<QLayout *>()) {
        if (!E_Do_Desenho(*disposicao)) continue;
        por(disposicao->objectName() + u" left"_s, disposicao->contentsMargins().left());
        por(disposicao->objectName() + u" top"_s, disposicao->contentsMargins().top());
    }
    if (form.layout() != nullptr) return medidas;
    for (const QWidget *controlo : form.findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        if (E_Do_Desenho(*controlo) && !controlo->isWindow()) por(controlo->objectName() + u" x"_s, controlo->x());
    return medidas;
}
} // namespace

class TestLetrasDosFormularios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { scale::setLetters(scale::standardLetters); }

    void em_letras_duplas_o_que_se_desenhou_tem_o_dobro_data()
    {
        QTest::addColumn<Abertura>("abertura");
        for (const auto *formularios : {&aberturas, &outras})
            for (auto um = formularios->cbegin(); um != formularios->cend(); ++um)
                if (um.key() != "Main"_L1 && um.key() != "frmVerImagem"_L1) // nothing is drawn in the latter
                    QTest::newRow(qPrintable(um.key())) << um.value();
    }
    void em_letras_duplas_o_que_se_desenhou_tem_o_dobro()
    {
        QFETCH(Abertura, abertura);
        const auto medir = [&](int letras) {
            scale::setLetters(letras);
            ComFormulario c(u"PortuguesPT"_s);
            return Medidas(*abertura(c));
        };
        const QMap<QString, int> normais = medir(scale::standardLetters);
        const QMap<QString, int> dobradas = medir(2 * scale::standardLetters);
        QVERIFY(!normais.isEmpty());
        for (auto medida = normais.cbegin(); medida != normais.cend(); ++medida)
            QVERIFY2(dobradas.value(medida.key()) == 2 * medida.value(), qPrintable(medida.key()));
    }
};

MORVEX_TESTE(TestLetrasDosFormularios)
#include "test_LetrasDosFormularios.moc"
