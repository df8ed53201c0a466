// The desktop's dialogs, as the toolkit shows them where the desktop has none of its own: with what they begin, and
// what comes back of what a person does there.
#include "platform/Dialogs.h"
#include "testlib/Accoes.h"
#include "testlib/Teste.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
void Carregar(QDialog &dialogo, QDialogButtonBox::StandardButton botao)
{
    dialogo.findChild<QDialogButtonBox *>()->button(botao)->click();
}

// Does that to the dialog that opens, and cancels what is still there then.
template<class Dialogo> void Ao_Abrir(const std::function<void(Dialogo &)> &accao)
{
    accoes::Quando_Abrir<Dialogo>([accao](Dialogo &dialogo) {
        accao(dialogo);
        if (dialogo.isVisible()) dialogo.reject();
    });
}

QLineEdit &Campo_Do_Ficheiro(QFileDialog &dialogo) { return *dialogo.findChild<QLineEdit *>(u"fileNameEdit"_s); }

// One and the same folder may have more than one path.
QString Verdadeira(const QString &pasta) { return QDir(pasta).canonicalPath(); }
} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

    // The dialog for a workbook, with that name typed into it and Save pressed; then Cancel, if it is still
    // there.
    static std::optional<QString> Gravar(const QTemporaryDir &pasta, const QString &nome,
                                         QMessageBox::StandardButton resposta = QMessageBox::No,
                                         int *perguntas = nullptr)
    {
        Ao_Abrir<QFileDialog>([&](QFileDialog &dialogo) {
            if (!nome.isEmpty()) Campo_Do_Ficheiro(dialogo).setText(nome);
            if (perguntas)
                accoes::Quando_Abrir<QMessageBox>([=](QMessageBox &caixa) {
                    ++*perguntas;
                    caixa.button(resposta)->click();
                });
            Carregar(dialogo, QDialogButtonBox::Save);
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

    void abrir_comeca_na_pasta_e_com_o_filtro_e_devolve_o_ficheiro_escolhido()
    {
        const QTemporaryDir pasta;
        QFile ficheiro(pasta.filePath(u"gente.txt"_s));
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        QWidget dono;
        const auto abrir = [&](QDialogButtonBox::StandardButton botao) {
            Ao_Abrir<QFileDialog>([&, botao](QFileDialog &dialogo) {
                QCOMPARE(dialogo.parentWidget(), &dono);
                QCOMPARE(Verdadeira(dialogo.directory().path()), Verdadeira(pasta.path()));
                QCOMPARE(dialogo.nameFilters(), (QStringList{u"Texto (*.txt *.dat)"_s, u"Tudo (*.*)"_s}));
                Campo_Do_Ficheiro(dialogo).setText(u"gente.txt"_s);
                Carregar(dialogo, botao);
            });
            return DesktopDialogs().openFile(u"Texto|*.txt;*.dat|Tudo|*.*"_s, pasta.path(), &dono);
        };
        QCOMPARE(abrir(QDialogButtonBox::Open), pasta.filePath(u"gente.txt"_s));
        QCOMPARE(abrir(QDialogButtonBox::Cancel), std::nullopt);
    }

    void um_ficheiro_que_nao_existe_nao_se_abre()
    {
        const QTemporaryDir pasta;
        bool avisado = false;
        Ao_Abrir<QFileDialog>([&](QFileDialog &dialogo) {
            Campo_Do_Ficheiro(dialogo).setText(u"ninguem.txt"_s);
            Ao_Abrir<QMessageBox>([&](QMessageBox &) { avisado = true; });
            QTest::keyClick(&Campo_Do_Ficheiro(dialogo), Qt::Key_Return);
            QVERIFY(dialogo.isVisible());
        });
        QCOMPARE(DesktopDialogs().openFile(u"Texto|*.txt"_s, pasta.path(), nullptr), std::nullopt);
        QVERIFY(avisado);
    }

    void uma_pasta_escolhe_se_a_partir_da_que_se_da()
    {
        const QTemporaryDir pasta;
        QVERIFY(QDir(pasta.path()).mkdir(u"dentro"_s));
        QWidget dono;
        const auto escolher = [&](const QString &nome, QDialogButtonBox::StandardButton botao) {
            Ao_Abrir<QFileDialog>([&, nome, botao](QFileDialog &dialogo) {
                QCOMPARE(dialogo.parentWidget(), &dono);
                QCOMPARE(dialogo.windowTitle(), u"Onde fica"_s);
                QCOMPARE(Verdadeira(dialogo.directory().path()), Verdadeira(pasta.path()));
                QCOMPARE(dialogo.fileMode(), QFileDialog::Directory);
                if (!nome.isEmpty()) Campo_Do_Ficheiro(dialogo).setText(nome);
                Carregar(dialogo, botao);
            });
            return DesktopDialogs().folder(u"Onde fica"_s, pasta.path(), &dono);
        };
        QCOMPARE(escolher(u"dentro"_s, QDialogButtonBox::Open), pasta.filePath(u"dentro"_s));
        QCOMPARE(escolher({}, QDialogButtonBox::Open), pasta.path());
        QCOMPARE(escolher(u"dentro"_s, QDialogButtonBox::Cancel), std::nullopt);
    }

    void um_tipo_de_letra_comeca_no_que_se_da_e_e_o_escolhido_ou_nenhum()
    {
        QFont de_inicio(QApplication::font().family(), 17);
        de_inicio.setUnderline(true);
        const QFont outro(QApplication::font().family(), 23);
        QWidget dono;
        const auto escolher = [&](QDialogButtonBox::StandardButton botao) {
            Ao_Abrir<QFontDialog>([&, botao](QFontDialog &dialogo) {
                QCOMPARE(dialogo.parentWidget(), &dono);
                QCOMPARE(dialogo.currentFont().pointSize(), 17);
                QVERIFY(dialogo.currentFont().underline());
                dialogo.setCurrentFont(outro);
                Carregar(dialogo, botao);
            });
            return DesktopDialogs().font(de_inicio, &dono);
        };
        const std::optional<QFont> escolhido = escolher(QDialogButtonBox::Ok);
        QVERIFY(escolhido.has_value());
        QCOMPARE(escolhido->pointSize(), 23);
        QVERIFY(!escolhido->underline());
        QVERIFY(!escolher(QDialogButtonBox::Cancel).has_value());
    }

    void uma_cor_comeca_na_que_se_da_e_e_a_escolhida_ou_nenhuma()
    {
        QWidget dono;
        const auto escolher = [&](QDialogButtonBox::StandardButton botao) {
            Ao_Abrir<QColorDialog>([&, botao](QColorDialog &dialogo) {
                QCOMPARE(dialogo.parentWidget(), &dono);
                QCOMPARE(dialogo.currentColor(), QColor(10, 20, 30));
                dialogo.setCurrentColor(QColor(200, 100, 50));
                Carregar(dialogo, botao);
            });
            return DesktopDialogs().colour(QColor(10, 20, 30), &dono);
        };
        QCOMPARE(escolher(QDialogButtonBox::Ok), QColor(200, 100, 50));
        QCOMPARE(escolher(QDialogButtonBox::Cancel), std::nullopt);
    }

    void uma_linha_de_texto_vem_como_foi_escrita_mesmo_vazia_e_cancelada_nao_vem()
    {
        QWidget dono;
        const auto perguntar = [&](const QString &texto, QDialogButtonBox::StandardButton botao) {
            Ao_Abrir<QInputDialog>([&, texto, botao](QInputDialog &dialogo) {
                QCOMPARE(dialogo.parentWidget(), &dono);
                QCOMPARE(dialogo.windowTitle(), u"Morvex"_s);
                QCOMPARE(dialogo.labelText(), u"Nome do grupo:"_s);
                QCOMPARE(dialogo.textValue(), QString());
                QCOMPARE(dialogo.textEchoMode(), QLineEdit::Normal);
                QTest::keyClicks(dialogo.findChild<QLineEdit *>(), texto);
                Carregar(dialogo, botao);
            });
            return DesktopDialogs().input(u"Nome do grupo:"_s, u"Morvex"_s, &dono);
        };
        QCOMPARE(perguntar(u"Amigos"_s, QDialogButtonBox::Ok), u"Amigos"_s);
        QCOMPARE(perguntar({}, QDialogButtonBox::Ok), QString());
        QCOMPARE(perguntar(u"Amigos"_s, QDialogButtonBox::Cancel), std::nullopt);
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
