// The dialogs for files: the filter from the program's form to the toolkit's, and what a saved file is
// called.
#include "platform/Dialogs.h"
#include "testlib/Accoes.h"
#include "testlib/Teste.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestDialogs : public QObject
{
    Q_OBJECT

    // The dialog for a workbook, with that name typed into it and Save pressed; then Cancel, if it is still
    // there.
    static std::optional<QString> Gravar(const QTemporaryDir &pasta, const QString &nome,
                                         QMessageBox::StandardButton resposta = QMessageBox::No,
                                         int *perguntas = nullptr)
    {
        accoes::Quando_Abrir<QFileDialog>([&](QFileDialog &dialogo) {
            if (!nome.isEmpty()) dialogo.findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(nome);
            if (perguntas)
                accoes::Quando_Abrir<QMessageBox>([=](QMessageBox &caixa) {
                    ++*perguntas;
                    caixa.button(resposta)->click();
                });
            dialogo.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
            if (dialogo.isVisible()) dialogo.reject();
        });
        return DesktopDialogs().saveFile(u"Excel|*.xls"_s, pasta.filePath(u"Lista telefónica.xls"_s),
                                         nullptr);
    }

private Q_SLOTS:
    void um_nome_sem_terminacao_recebe_a_do_ficheiro_proposto()
    {
        const QTemporaryDir pasta;
        QCOMPARE(Gravar(pasta, u"nova"_s), pasta.filePath(u"nova.xls"_s));
        QCOMPARE(Gravar(pasta, u"outra.doc"_s), pasta.filePath(u"outra.doc"_s));
    }
    void o_ficheiro_proposto_esta_escrito_no_dialogo()
    {
        const QTemporaryDir pasta;
        QCOMPARE(Gravar(pasta, {}), pasta.filePath(u"Lista telefónica.xls"_s));
    }
    void um_ficheiro_que_ja_existe_so_se_devolve_depois_da_pergunta()
    {
        const QTemporaryDir pasta;
        QFile ficheiro(pasta.filePath(u"nova.xls"_s));
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        int perguntas = 0;
        QCOMPARE(Gravar(pasta, u"nova"_s, QMessageBox::No, &perguntas), std::nullopt);
        QCOMPARE(perguntas, 1);
        QCOMPARE(Gravar(pasta, u"nova"_s, QMessageBox::Yes, &perguntas), pasta.filePath(u"nova.xls"_s));
        QCOMPARE(perguntas, 2);
    }

    void o_filtro_passa_a_forma_da_biblioteca_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("result");
        QTest::newRow("one") << u"Texto|*.txt"_s << u"Texto (*.txt)"_s;
        QTest::newRow("two patterns") << u"Imagens|*.bmp;*.gif"_s << u"Imagens (*.bmp *.gif)"_s;
        QTest::newRow("two entries") << u"Texto|*.txt|Dados|*.dat"_s << u"Texto (*.txt);;Dados (*.dat)"_s;
        QTest::newRow("patterns in the description") << u"Sons (*.wav)|*.wav"_s << u"Sons (*.wav)"_s;
        QTest::newRow("description without a pattern") << u"Texto"_s << u""_s;
        QTest::newRow("nothing") << u""_s << u""_s;
    }
    void o_filtro_passa_a_forma_da_biblioteca()
    {
        QFETCH(QString, filter);
        QFETCH(QString, result);
        QCOMPARE(toolkitFilter(filter), result);
    }
};

MORVEX_TESTE(TestDialogs)
#include "test_Dialogs.moc"
