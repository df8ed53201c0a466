// The programs that start with the desktop: the file in the autostart folder, as the desktop itself reads it.
#include "platform/DesktopRegistry.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestDesktopRegistry : public QObject
{
    Q_OBJECT

    static constexpr auto user = Registry::Root::CurrentUser;
    const QString run_ = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
    std::unique_ptr<QTemporaryDir> folder_;

    QString Pasta() const { return folder_->filePath(u"autostart"_s); }
    DesktopRegistry Registo() const { return DesktopRegistry(Pasta()); }
    QString Entrada() const { return Pasta() + u"/Morvex 1.0.desktop"_s; }

    QString Linha(const QString &key) const
    {
        QFile file(Entrada());
        if (!file.open(QIODevice::ReadOnly)) return u"<absent>"_s;
        for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n'))
            if (line.startsWith(key + u'=')) return line.mid(key.size() + 1);
        return u"<no line>"_s;
    }

    static void Nomes_Dificeis()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name :
             {u"morvex"_s, u"com brancos"_s, u"com \"aspas\""_s, u"com 'plicas'"_s, u"100% $HOME `x`"_s,
              u"barra\\invertida"_s, u"\\$ \\\" \\\\"_s, u"%f %% %U"_s, u"ação & ~#;=|<>*?()"_s})
            QTest::newRow(qUtf8Printable(name)) << name;
    }

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void a_entrada_tem_o_que_o_ambiente_pede()
    {
        QVERIFY(Registo().writeString(user, run_, u"Morvex 1.0"_s, u"/opt/o meu morvex/morvex"_s));
        QFile file(Entrada());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readLine(), "[Desktop Entry]\n");
        QCOMPARE(Linha(u"Type"_s), u"Application"_s);
        QCOMPARE(Linha(u"Name"_s), u"Morvex 1.0"_s);
        QCOMPARE(Linha(u"Exec"_s), u"\"/opt/o meu morvex/morvex\""_s);
        QCOMPARE(QDir(Pasta()).entryList(QDir::Files | QDir::Hidden), QStringList{u"Morvex 1.0.desktop"_s});
    }

    // By the rules for desktop entries: within quotes " ` $ \ are escaped, the file escapes each backslash
    // once more, and % is doubled.
    void os_sinais_especiais_ficam_protegidos()
    {
        QVERIFY(Registo().writeString(user, run_, u"Morvex 1.0"_s, u"/a \"b\" $c %d `e` \\f"_s));
        QCOMPARE(Linha(u"Exec"_s), uR"(env "/a \\"b\\" \\$c %%d \\`e\\` \\\\f")"_s);
    }

    void o_caminho_volta_a_ler_se_como_foi_escrito_data() { Nomes_Dificeis(); }
    void o_caminho_volta_a_ler_se_como_foi_escrito()
    {
        QFETCH(QString, name);
        DesktopRegistry registry = Registo();
        QVERIFY(registry.writeString(user, run_, u"Morvex 1.0"_s, u"/opt/"_s + name));
        QCOMPARE(registry.readString(user, run_, u"Morvex 1.0"_s), u"/opt/"_s + name);
    }

    // Starts a program of that name from the entry, as the desktop does at its own start.
    void o_ambiente_arranca_o_programa_certo_data() { Nomes_Dificeis(); }
    void o_ambiente_arranca_o_programa_certo()
    {
        QFETCH(QString, name);
        const QString launcher = QStandardPaths::findExecutable(u"gio"_s);
        if (launcher.isEmpty()) QSKIP("nothing here starts desktop entries");
        const QString program = folder_->filePath(name);
        QFile script(program);
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\necho $# > \"$(dirname \"$0\")/started.txt\"\n");
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        QVERIFY(Registo().writeString(user, run_, u"Morvex 1.0"_s, program));
        QCOMPARE(QProcess::execute(launcher, {u"launch"_s, Entrada()}), 0);
        QFile mark(folder_->filePath(u"started.txt"_s));
        QTRY_VERIFY(QFileInfo(mark).size() > 0);
        QVERIFY(mark.open(QIODevice::ReadOnly));
        QCOMPARE(mark.readAll(), "0\n"); // without arguments of its own
    }

    void a_entrada_e_valida_para_o_verificador_data() { Nomes_Dificeis(); }
    void a_entrada_e_valida_para_o_verificador()
    {
        QFETCH(QString, name);
        const QString validator = QStandardPaths::findExecutable(u"desktop-file-validate"_s);
        if (validator.isEmpty()) QSKIP("no validator of desktop entries here");
        QVERIFY(Registo().writeString(user, run_, u"Morvex 1.0"_s, u"/opt/"_s + name));
        QCOMPARE(QProcess::execute(validator, {Entrada()}), 0);
    }

    void apagar_tira_a_entrada()
    {
        DesktopRegistry registry = Registo();
        QVERIFY(!registry.deleteValue(user, run_, u"Morvex 1.0"_s));
        QVERIFY(registry.writeString(user, run_, u"Morvex 1.0"_s, u"/opt/morvex"_s));
        QVERIFY(registry.deleteValue(user, run_, u"Morvex 1.0"_s));
        QVERIFY(!QFile::exists(Entrada()));
        QCOMPARE(registry.readString(user, run_, u"Morvex 1.0"_s), u""_s);
    }

    void escrever_outra_vez_substitui()
    {
        DesktopRegistry registry = Registo();
        QVERIFY(registry.writeString(user, run_, u"Morvex 1.0"_s, u"/old/and/longer"_s));
        QVERIFY(registry.writeString(user, run_, u"Morvex 1.0"_s, u"/new"_s));
        QCOMPARE(registry.readString(user, run_, u"Morvex 1.0"_s), u"/new"_s);
        QCOMPARE(QDir(Pasta()).entryList(QDir::Files).size(), 1);
    }

    void qualquer_outra_chave_esta_vazia_e_recusa()
    {
        DesktopRegistry registry = Registo();
        for (const auto &[root, key] :
             {std::pair{user, u"Software\\Outra"_s}, {Registry::Root::LocalMachine, run_}}) {
            QVERIFY(!registry.writeString(root, key, u"Morvex 1.0"_s, u"/opt/morvex"_s));
            QVERIFY(!registry.deleteValue(root, key, u"Morvex 1.0"_s));
            QCOMPARE(registry.readString(root, key, u"Morvex 1.0"_s), u""_s);
        }
        QVERIFY(!QFile::exists(Entrada()));
    }

    void uma_barra_no_nome_nao_sai_da_pasta()
    {
        DesktopRegistry registry = Registo();
        QVERIFY(registry.writeString(user, run_, u"../../Morvex"_s, u"/opt/morvex"_s));
        QCOMPARE(QDir(Pasta()).entryList(QDir::Files | QDir::Hidden).size(), 1);
        QCOMPARE(registry.readString(user, run_, u"../../Morvex"_s), u"/opt/morvex"_s);
    }

    void onde_nao_se_pode_escrever_responde_que_nao()
    {
        QFile blocked(Pasta());
        QVERIFY(blocked.open(QIODevice::WriteOnly)); // a file where the folder should be
        QVERIFY(!Registo().writeString(user, run_, u"Morvex 1.0"_s, u"/opt/morvex"_s));
    }

    void sem_mais_nada_dito_e_a_pasta_do_utilizador()
    {
        DesktopRegistry registry;
        QVERIFY(registry.writeString(user, run_, u"Morvex de teste"_s, u"/opt/morvex"_s));
        const QString entry =
            qEnvironmentVariable("XDG_CONFIG_HOME") + u"/autostart/Morvex de teste.desktop"_s;
        QVERIFY(QFile::exists(entry));
        QVERIFY(registry.deleteValue(user, run_, u"Morvex de teste"_s));
        QVERIFY(!QFile::exists(entry));
    }
};

MORVEX_TESTE(TestDesktopRegistry)
#include "test_DesktopRegistry.moc"
