// Every control of every form has a name for those who don't see it, in the active language.
#include "data/Idiomas.h"
#include "session/Formularios.h"
#include "session/Legendas.h"
#include "testlib/Nomes.h"
#include "testlib/Teste.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace
{
// As a person meets it: the main window with its captions and the date, a note with its title.
QWidget &Abrir(ComFormulario &c, const QString &nome)
{
    legendas::Atribuir(c.janela, c.s.geral);
    c.janela.cmdData->setText(u"1 de Janeiro de 2027"_s);
    QWidget &form = *(aberturas.contains(nome) ? aberturas[nome] : outras[nome])(c);
    if (auto *memo = qobject_cast<frmMemo *>(&form)) memo->Criar(u"Compras"_s, QPoint());
    form.show();
    QCoreApplication::processEvents();
    return form;
}

// Proper names, the same in every language, and the colon that the code adds to a text; a note that isn't
// safe says so in English rather than not at all.
bool E_De_Todas_As_Linguas(const nomes::Nome &um)
{
    return um.nome == um.escrito || um.controlo == "cmdPorGuardar"_L1 || um.controlo == "txtMemo"_L1 ||
           QStringList{u"Fax"_s, u"E-mail 1"_s, u"E-mail 2"_s, u":"_s}.contains(um.nome);
}
} // namespace

class TestNomesAcessiveis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_controlo_tem_um_nome_so_seu_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("nome");
        for (const QString &nome : aberturas.keys() + outras.keys())
            QTest::newRow(qPrintable(nome)) << nome;
    }
    void cada_controlo_tem_um_nome_so_seu_em_cada_lingua()
    {
        QFETCH(QString, nome);
        ComFormulario c(u"PortuguesPT"_s);
        for (const Idioma &idioma : idiomas::todos) {
            c.s.geral.IdiomaActual = QString::fromLatin1(idioma.coluna);
            const QStringList faltas = nomes::Faltas(nomes::De(Abrir(c, nome)));
            QVERIFY2(faltas.isEmpty(), qPrintable(c.s.geral.IdiomaActual + u'\n' + faltas.join(u'\n')));
            c.form.reset();
        }
    }

    void sem_lingua_os_nomes_ficam_em_branco_como_as_legendas_data()
    {
        cada_controlo_tem_um_nome_so_seu_em_cada_lingua_data();
    }
    void sem_lingua_os_nomes_ficam_em_branco_como_as_legendas()
    {
        QFETCH(QString, nome);
        ComFormulario c(u"PortuguesPT"_s);
        c.s.geral.IdiomaActual.clear();
        for (const nomes::Nome &um : nomes::De(Abrir(c, nome)))
            QVERIFY2(um.nome.isEmpty() || E_De_Todas_As_Linguas(um),
                     qPrintable(um.controlo + u": "_s + um.nome));
    }

    void a_caixa_de_uma_linha_do_cartao_separa_o_nome_do_valor()
    {
        ComFormulario c(u"PortuguesPT"_s);
        const auto &janela = static_cast<const Main &>(Abrir(c, u"Main"_s));
        const QAccessibleInterface &linha = *QAccessible::queryAccessibleInterface(janela.txtEmail1);
        QCOMPARE(linha.text(QAccessible::Name), u"E-mail 1"_s);
        QCOMPARE(linha.text(QAccessible::Value), u"a@x.example"_s);
    }
};

MORVEX_TESTE(TestNomesAcessiveis)
#include "test_NomesAcessiveis.moc"
