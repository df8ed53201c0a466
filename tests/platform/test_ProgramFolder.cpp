// Where the program's own files live, and how a new place is filled.
#include "platform/ProgramFolder.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestProgramFolder : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> root_;

    QString Em(const QString &name) const { return root_->filePath(name); }
    static void Escrever(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("no file to test with");
    }
    static QByteArray Ler(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<absent>");
    }
    ProgramFolder::Surroundings A_Volta(const QString &executable) const
    {
        return {.override = {},
                .executableFolder = Em(executable),
                .userData = Em(u"user/morvex"_s),
                .installedData = Em(u"share"_s)};
    }

private Q_SLOTS:
    void init()
    {
        root_ = std::make_unique<QTemporaryDir>();
        QFile::setPermissions(root_->path(), QFile::Permissions(0x7755));
        for (const QString &name : {u"opt"_s, u"bin"_s, u"share"_s, u"user"_s})
            QDir(root_->path()).mkdir(name);
        Escrever(Em(u"share/config.ini"_s), "[shipped]\r\n");
        Escrever(Em(u"share/morvex.mdb"_s), "shipped base");
    }

    void uma_pasta_onde_se_pode_escrever_e_a_do_programa()
    {
        const ProgramFolder folder(A_Volta(u"opt"_s));
        QCOMPARE(folder.path(), Em(u"opt"_s));
        QCOMPARE(Ler(Em(u"opt/config.ini"_s)), "[shipped]\r\n");
        QCOMPARE(Ler(Em(u"opt/morvex.mdb"_s)), "shipped base");
    }

    void a_volta_do_programa_le_se_do_ambiente_e_do_lugar_onde_corre()
    {
        qputenv("MORVEX_HOME", "/outro/lugar");
        const ProgramFolder::Surroundings surroundings = ProgramFolder::current(u"../share/morvex"_s);
        qunsetenv("MORVEX_HOME");
        const QString own = QCoreApplication::applicationDirPath();
        QCOMPARE(surroundings.override, u"/outro/lugar"_s);
        QCOMPARE(surroundings.executableFolder, own);
        QCOMPARE(surroundings.userData,
                 QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/morvex"_s);
        QCOMPARE(surroundings.installedData, QFileInfo(own).path() + u"/share/morvex"_s);
    }

    void uma_pasta_com_config_ini_e_a_do_programa_mesmo_so_de_leitura()
    {
        Escrever(Em(u"opt/config.ini"_s), "[mine]\r\n");
        QFile::setPermissions(Em(u"opt"_s), QFile::Permissions(0x5555));
        const SemPrivilegios nobody;
        if (!nobody.Possivel()) QSKIP("the rights of an administrator cannot be put off here");
        const ProgramFolder folder(A_Volta(u"opt"_s));
        QCOMPARE(folder.path(), Em(u"opt"_s));
        QCOMPARE(Ler(Em(u"opt/config.ini"_s)), "[mine]\r\n");
        QVERIFY(!QFile::exists(Em(u"opt/morvex.mdb"_s)));
    }

    void uma_pasta_so_de_leitura_manda_para_a_do_utilizador()
    {
        QFile::setPermissions(Em(u"opt"_s), QFile::Permissions(0x5555));
        QFile::setPermissions(Em(u"user"_s), QFile::Permissions(0x7777));
        const SemPrivilegios nobody;
        if (!nobody.Possivel()) QSKIP("the rights of an administrator cannot be put off here");
        const ProgramFolder folder(A_Volta(u"opt"_s));
        QCOMPARE(folder.path(), Em(u"user/morvex"_s));
        QCOMPARE(Ler(Em(u"user/morvex/config.ini"_s)), "[shipped]\r\n");
        QCOMPARE(Ler(Em(u"user/morvex/morvex.mdb"_s)), "shipped base");
    }

    void uma_pasta_bin_do_sistema_nao_guarda_dados()
    {
        const ProgramFolder folder(A_Volta(u"bin"_s));
        QCOMPARE(folder.path(), Em(u"user/morvex"_s));
        QVERIFY(QDir(Em(u"bin"_s)).isEmpty());
    }

    void a_variavel_do_ambiente_vence_as_duas()
    {
        ProgramFolder::Surroundings surroundings = A_Volta(u"opt"_s);
        surroundings.override = Em(u"elsewhere//home/"_s);
        const ProgramFolder folder(surroundings);
        QCOMPARE(folder.path(), Em(u"elsewhere/home"_s));
        QCOMPARE(Ler(Em(u"elsewhere/home/morvex.mdb"_s)), "shipped base");
        QVERIFY(QDir(Em(u"opt"_s)).isEmpty());
    }

    void o_que_la_esta_nunca_e_substituido()
    {
        Escrever(Em(u"opt/morvex.mdb"_s), "my base");
        const ProgramFolder folder(A_Volta(u"opt"_s));
        QCOMPARE(Ler(Em(u"opt/morvex.mdb"_s)), "my base");
        QCOMPARE(Ler(Em(u"opt/config.ini"_s)), "[shipped]\r\n");
    }

    // Where a filling is cut short, the settings are what it lacks.
    void o_config_ini_vem_depois_de_todos_os_outros()
    {
        Escrever(Em(u"share/zona.dat"_s), QByteArray(30'000'000, 'x'));
        Escrever(Em(u"share/config.ini"_s), "[shipped]\r\n"); // some systems give a copy the time of its original
        const ProgramFolder folder(A_Volta(u"opt"_s));
        const auto quando = [this](const QString &name) { return QFileInfo(Em(name)).lastModified(); };
        QVERIFY(quando(u"opt/config.ini"_s) >= quando(u"opt/zona.dat"_s));
        QCOMPARE(QFileInfo(Em(u"opt/zona.dat"_s)).size(), 30'000'000);
    }

    void uma_pasta_com_config_ini_nao_se_volta_a_encher()
    {
        Escrever(Em(u"opt/config.ini"_s), "[mine]\r\n");
        const ProgramFolder folder(A_Volta(u"opt"_s));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"config.ini"_s});
    }

    void as_copias_de_ficheiros_so_de_leitura_podem_se_escrever()
    {
        QFile::setPermissions(Em(u"share/morvex.mdb"_s), QFile::ReadOwner | QFile::ReadOther);
        const ProgramFolder folder(A_Volta(u"opt"_s));
        QVERIFY(QFile::permissions(Em(u"opt/morvex.mdb"_s)) & QFile::WriteOwner);
    }

    void sem_ficheiros_instalados_a_pasta_fica_vazia()
    {
        QDir(Em(u"share"_s)).removeRecursively();
        const ProgramFolder folder(A_Volta(u"opt"_s));
        QCOMPARE(folder.path(), Em(u"opt"_s));
        QVERIFY(QDir(Em(u"opt"_s)).isEmpty());
    }

    void os_ficheiros_instalados_procuram_se_a_partir_do_programa()
    {
        const ProgramFolder::Surroundings surroundings = ProgramFolder::current(u"../share/morvex"_s);
        QCOMPARE(surroundings.installedData,
                 QFileInfo(QCoreApplication::applicationDirPath()).path() + u"/share/morvex"_s);
    }

    void o_nome_de_um_ficheiro_da_pasta()
    {
        QCOMPARE(fileIn(u"/opt/com branco"_s, u"morvex.mdb"_s), u"/opt/com branco/morvex.mdb"_s);
    }

    void o_que_fica_onde_foi_instalado_e_a_primeira_pasta_que_o_tem()
    {
        const ProgramFolder folder({.override = Em(u"user"_s),
                                    .executableFolder = Em(u"bin"_s),
                                    .userData = {},
                                    .installedData = Em(u"share"_s)});
        QCOMPARE(folder.shipped(u"manual"_s), QString());
        for (const QString &place : {u"share"_s, u"bin"_s, u"user"_s}) {
            QVERIFY(QDir(Em(place)).mkdir(u"manual"_s));
            QCOMPARE(folder.shipped(u"manual"_s), Em(place + u"/manual"_s));
        }
    }

    void uma_pasta_enviada_nao_e_copiada_para_o_utilizador()
    {
        QVERIFY(QDir(Em(u"share"_s)).mkdir(u"manual"_s));
        const ProgramFolder folder(A_Volta(u"opt"_s));
        QVERIFY(!QFile::exists(Em(u"opt/manual"_s)));
        QCOMPARE(folder.shipped(u"manual"_s), Em(u"share/manual"_s));
    }
};

MORVEX_TESTE(TestProgramFolder)
#include "test_ProgramFolder.moc"
