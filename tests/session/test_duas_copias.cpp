// Two copies of the program on one database: while others add contacts, this one reloads its list and makes
// and deletes groups and users. The others are real processes: this very program, started with other words.
#include "contacts/DesfazerEliminacao.h"
#include "contacts/frmDeleteGroup.h"
#include "contacts/frmNovoGrupo.h"
#include "session/frmDeleteUser.h"
#include "session/frmNovoUser.h"
#include "Vida.h"

#include <QProcess>
#include <QTextStream>
#include <QThread>

using namespace Qt::StringLiterals;

namespace
{
constexpr int voltas = 6;
constexpr int grupo_que_fica = 6;

QString Sinal_De_Paragem(const QString &pasta) { return pasta + u"/parar"_s; }

// What another copy does until it is told to stop: adds contacts, now to a group that stays, now to one that
// may just be going. Says at its end how many.
int Acrescentar_Contactos(const QString &pasta)
{
    Geral geral(pasta);
    geral.CaminhoBD = geral.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s);
    const QString vazio;
    int total = 0;
    for (; !QFile::exists(Sinal_De_Paragem(pasta)); ++total) {
        const int grupo = total % 2 == 0 ? grupo_que_fica : grupo_que_fica + 1 + total % voltas;
        geral.de.Executar("cmdAdicionarNome",
                          {u"Da outra %1"_s.arg(total), vazio, vazio, vazio, vazio, vazio, vazio, vazio,
                           vazio, vazio, vazio, vazio, vazio, vazio, vazio, vazio, grupo});
        QThread::msleep(1);
    }
    QTextStream(stdout) << total;
    return 0;
}

class Copia : public QProcess
{
public:
    explicit Copia(const QString &pasta)
    {
        setProcessChannelMode(ForwardedErrorChannel);
        start(QCoreApplication::applicationFilePath(), {u"--copia"_s, pasta});
    }

    // What it says that it added; -1 if it did not come to a good end.
    int Total()
    {
        const bool acabou = state() == NotRunning || waitForFinished();
        return acabou && exitStatus() == NormalExit && exitCode() == 0 ? readAllStandardOutput().toInt() : -1;
    }
};
} // namespace

class TestDuasCopias : public QObject
{
    Q_OBJECT

    static void Criar_Grupo(Vida &vida, ListaContactos &lista, const QString &nome)
    {
        frmNovoGrupo form(vida.geral, lista);
        form.show();
        form.txtGrupo->setText(nome);
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

    // Its contacts go to the group that stays, so none is deleted.
    static void Eliminar_Grupo(Vida &vida, Sistema &s, ListaContactos &lista, const QString &nome)
    {
        frmDeleteGroup form(vida.geral, s.plataforma, lista, *vida.janela.findChild<DesfazerEliminacao *>());
        form.ComboGrupos->ChooseText(nome);
        form.ComboGrupos2->ChooseText(u"Outros"_s);
        form.OptionMover->click();
        form.show();
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

    static void Criar_Utilizador(Vida &vida, Sistema &s, const QString &nome)
    {
        frmNovoUser form(vida.geral, s.plataforma);
        form.campos->txtUser->setText(nome);
        form.show();
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

    static void Eliminar_Utilizador(Vida &vida, Sistema &s, const QString &nome)
    {
        frmDeleteUser form(vida.geral, s.plataforma, vida.janela);
        form.ComboUsers->ChooseText(nome);
        form.show();
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

private Q_SLOTS:
    void nenhuma_escrita_se_perde_e_ninguem_ouve_um_erro()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"ana"_s);
        const qsizetype antes = s.Linhas(u"SELECT ID FROM TblLista"_s).size();
        Vida vida(s, u"Ana"_s, u"ana"_s);
        auto &lista = *vida.janela.findChild<ListaContactos *>();
        Copia primeira(s.Pasta());
        Copia segunda(s.Pasta());
        QTRY_VERIFY(s.Linhas(u"SELECT ID FROM TblLista WHERE Nome='Da outra 0'"_s).size() == 2);
        // The others may have less of the machine.
        const auto as_outras_escreveram = [&] {
            return s.Linhas(u"SELECT ID FROM TblLista WHERE Nome='Da outra %1'"_s.arg(voltas)).size() == 2;
        };
        for (int volta = 0; volta < voltas || !as_outras_escreveram(); ++volta) {
            Criar_Grupo(vida, lista, u"Grupo %1"_s.arg(volta));
            Criar_Utilizador(vida, s, u"Rui %1"_s.arg(volta));
            lista.Carregar_Tabela();
            Eliminar_Grupo(vida, s, lista, u"Grupo %1"_s.arg(volta));
            Eliminar_Utilizador(vida, s, u"Rui %1"_s.arg(volta));
            QCoreApplication::processEvents();
        }
        QVERIFY(primeira.state() == QProcess::Running && segunda.state() == QProcess::Running);
        QVERIFY(QFile(Sinal_De_Paragem(s.Pasta())).open(QIODevice::WriteOnly));
        const int das_outras[] = {primeira.Total(), segunda.Total()};
        QVERIFY(das_outras[0] > voltas && das_outras[1] > voltas);
        QCOMPARE(s.Linhas(u"SELECT ID FROM TblLista"_s).size(), antes + das_outras[0] + das_outras[1]);
        QCOMPARE(s.Linhas(u"SELECT Utilizador FROM TblUsers"_s), QStringList{u"Ana"_s});
        QCOMPARE(s.Linhas(u"SELECT ID FROM TblGrupos"_s).size(), 6);
        if (!Sistema::Num_Servidor()) QCOMPARE(s.Linhas(u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});

        // What the others wrote comes with the next reading.
        lista.Carregar_Grupos();
        QCOMPARE(vida.Contactos().count(u"Da outra 0"_s), 2);
    }
};

int main(int argc, char **argv)
{
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    const QStringList palavras = QCoreApplication::arguments();
    if (palavras.value(1) == u"--copia") return Acrescentar_Contactos(palavras.value(2));
    TestDuasCopias testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_duas_copias.moc"
