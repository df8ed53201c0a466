// The initialisation file: how it is read, what a write leaves as it was, and what a failed write leaves
// behind.
#include "platform/IniFile.h"
#include "testlib/DiscoCheio.h"
#include "testlib/FicheiroAberto.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestIniFile : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder_;

    QString Caminho() const { return folder_->filePath(u"config.ini"_s); }
    IniFile Ficheiro() const { return IniFile(Caminho()); }
    IniFile Ficheiro_Com(const QByteArray &bytes) const
    {
        QFile file(Caminho());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("no file to test with");
        return Ficheiro();
    }
    QByteArray Bytes() const
    {
        QFile file(Caminho());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<absent>");
    }

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void leitura_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("value");
        QTest::newRow("plain") << QByteArray("[s]\r\nk=v\r\n") << u"v"_s;
        QTest::newRow("line ends of this system") << QByteArray("[s]\nk=v\n") << u"v"_s;
        QTest::newRow("no end of the last line") << QByteArray("[s]\r\nk=v") << u"v"_s;
        QTest::newRow("names in another case") << QByteArray("[S]\r\nK=V\r\n") << u"V"_s;
        QTest::newRow("blanks all round") << QByteArray(" [ s ] \r\n  k =  a b  \r\n") << u"a b"_s;
        QTest::newRow("double quotes") << QByteArray("[s]\r\nk=\" v \"\r\n") << u" v "_s;
        QTest::newRow("single quotes") << QByteArray("[s]\r\nk='v'\r\n") << u"v"_s;
        QTest::newRow("one pair of quotes only") << QByteArray("[s]\r\nk=\"\"v\"\"\r\n") << u"\"v\""_s;
        QTest::newRow("nothing in quotes") << QByteArray("[s]\r\nk=\"\"\r\n") << u""_s;
        QTest::newRow("quotes that do not match") << QByteArray("[s]\r\nk=\"v'\r\n") << u"\"v'"_s;
        QTest::newRow("one quote alone") << QByteArray("[s]\r\nk=\"\r\n") << u"\""_s;
        QTest::newRow("equals sign in the value") << QByteArray("[s]\r\nk=a=b\r\n") << u"a=b"_s;
        QTest::newRow("semicolon in the value") << QByteArray("[s]\r\nk=a;b\r\n") << u"a;b"_s;
        QTest::newRow("the first of two keys") << QByteArray("[s]\r\nk=1\r\nk=2\r\n") << u"1"_s;
        QTest::newRow("key of another section") << QByteArray("[t]\r\nk=v\r\n[s]\r\n[u]\r\nk=w\r\n") << u""_s;
        QTest::newRow("section with the same beginning")
            << QByteArray("[s1]\r\nk=1\r\n[s11]\r\nk=11\r\n[s]\r\nk=0\r\n") << u"0"_s;
        QTest::newRow("commented out") << QByteArray("[s]\r\n;k=v\r\n") << u""_s;
        QTest::newRow("empty value") << QByteArray("[s]\r\nk=\r\n") << u""_s;
        QTest::newRow("line without a sign") << QByteArray("[s]\r\nrubbish\r\nk=v\r\n") << u"v"_s;
        QTest::newRow("a key without a sign") << QByteArray("[s]\r\nk\r\n") << u""_s;
        QTest::newRow("code page 1252")
            << QByteArray("[s]\r\nk=C:\\Fran\xe7ois \x80\x8a\r\n") << u"C:\\François €Š"_s;
        QTest::newRow("UTF-8 by its mark")
            << QByteArray("\xef\xbb\xbf[s]\r\nk=/casa/Łódź\r\n") << u"/casa/Łódź"_s;
        QTest::newRow("a mark and nothing else") << QByteArray("\xef\xbb\xbf") << u""_s;
        QTest::newRow("empty file") << QByteArray() << u""_s;
    }
    void leitura()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, value);
        QCOMPARE(Ficheiro_Com(bytes).read(u"s"_s, u"k"_s), value);
        QCOMPARE(Bytes(), bytes);
    }

    void ficheiro_em_falta_le_se_como_vazio_e_nao_nasce_da_leitura()
    {
        QVERIFY(!Ficheiro().exists());
        QCOMPARE(Ficheiro().read(u"s"_s, u"k"_s), u""_s);
        QCOMPARE(Bytes(), "<absent>");
    }

    void um_valor_longo_le_se_ate_254_caracteres()
    {
        IniFile file = Ficheiro();
        for (const int length : {253, 254, 255, 4000}) {
            QVERIFY(file.write(u"s"_s, u"k"_s, QString(length, u'ç')));
            QCOMPARE(file.read(u"s"_s, u"k"_s), QString(qMin(length, 254), u'ç'));
        }
        QVERIFY(Bytes().contains(QByteArray(4000, '\xe7')));
    }

    void escrita_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("no file") << QByteArray() << u"v"_s << QByteArray("[s]\r\nk=v\r\n");
        QTest::newRow("a new section, a blank line before it")
            << QByteArray("[t]\r\na=1\r\n") << u"v"_s << QByteArray("[t]\r\na=1\r\n\r\n[s]\r\nk=v\r\n");
        QTest::newRow("a new key, at the end of its section")
            << QByteArray("[s]\r\na=1\r\n\r\n[t]\r\nb=2\r\n") << u"v"_s
            << QByteArray("[s]\r\na=1\r\nk=v\r\n\r\n[t]\r\nb=2\r\n");
        QTest::newRow("a value replaced, the comments kept")
            << QByteArray("; head \xe7\r\n\r\n[s] ; note\r\n; about k\r\nk=old\r\nrubbish\r\n") << u"new"_s
            << QByteArray("; head \xe7\r\n\r\n[s] ; note\r\n; about k\r\nk=new\r\nrubbish\r\n");
        QTest::newRow("an empty value keeps the key")
            << QByteArray("[s]\r\nk=v\r\n") << u""_s << QByteArray("[s]\r\nk=\r\n");
        QTest::newRow("the first of two keys")
            << QByteArray("[s]\r\nk=1\r\nk=2\r\n") << u"v"_s << QByteArray("[s]\r\nk=v\r\nk=2\r\n");
        QTest::newRow("bytes without a character, in another line")
            << QByteArray("[s]\r\na=\x81\x8d\x8f\x90\x9d\r\n") << u"v"_s
            << QByteArray("[s]\r\na=\x81\x8d\x8f\x90\x9d\r\nk=v\r\n");
        QTest::newRow("characters of the code page")
            << QByteArray("[s]\r\n") << u"ação €Š"_s << QByteArray("[s]\r\nk=a\xe7\xe3o \x80\x8a\r\n");
        QTest::newRow("characters beyond the code page: the whole file as UTF-8")
            << QByteArray("; cabe\xe7"
                          "alho\r\n[s]\r\na=\x81\x80\r\n")
            << u"Łódź Αθήνα 😀"_s
            << QByteArray("\xef\xbb\xbf; cabeçalho\r\n[s]\r\na=\xc2\x81€\r\nk=Łódź Αθήνα 😀\r\n");
        QTest::newRow("back in the code page once all fits again")
            << QByteArray("\xef\xbb\xbf[s]\r\na=ç\xc2\x81€\r\nk=Łódź\r\n") << u"Lodz"_s
            << QByteArray("[s]\r\na=\xe7\x81\x80\r\nk=Lodz\r\n");
        QTest::newRow("UTF-8 as long as another value needs it")
            << QByteArray("\xef\xbb\xbf[s]\r\na=Łódź\r\n") << u"ç"_s
            << QByteArray("\xef\xbb\xbf[s]\r\na=Łódź\r\nk=ç\r\n");
        QTest::newRow("line breaks within the value")
            << QByteArray("[s]\r\n") << u"a\r\n[t]\nk=b"_s << QByteArray("[s]\r\nk=a  [t] k=b\r\n");
    }
    void escrita()
    {
        QFETCH(QByteArray, before);
        QFETCH(QString, value);
        QFETCH(QByteArray, after);
        QVERIFY(Ficheiro_Com(before).write(u"s"_s, u"k"_s, value));
        QCOMPARE(Bytes(), after);
    }

    void o_que_se_escreve_volta_a_ler_se()
    {
        IniFile file = Ficheiro();
        QVERIFY(file.write(u"som11"_s, u"email"_s, u"C:\\Sons\\novo correio.wav"_s));
        QVERIFY(file.write(u"som1"_s, u"email"_s, u"C:\\Sons\\ação.wav"_s));
        QCOMPARE(Ficheiro().read(u"som11"_s, u"email"_s), u"C:\\Sons\\novo correio.wav"_s);
        QCOMPARE(Ficheiro().read(u"som1"_s, u"email"_s), u"C:\\Sons\\ação.wav"_s);
        QVERIFY(file.write(u"basedados"_s, u"caminhobd"_s, u"/home/Łukasz/morvex.mdb"_s));
        QCOMPARE(Ficheiro().read(u"basedados"_s, u"caminhobd"_s), u"/home/Łukasz/morvex.mdb"_s);
        QCOMPARE(Ficheiro().read(u"som1"_s, u"email"_s), u"C:\\Sons\\ação.wav"_s);
    }

    void disco_cheio_deixa_o_ficheiro_antigo_inteiro()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        const QByteArray before = "[s]\r\nk=old\r\n" + QByteArray("; comment\r\n").repeated(1000);
        IniFile file = Ficheiro_Com(before);
        bool written = true;
        {
            const DiscoCheio full(4096);
            written = file.write(u"s"_s, u"k"_s, u"new"_s);
        }
        QVERIFY(!written);
        QCOMPARE(Bytes(), before);
        QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), QStringList{u"config.ini"_s});
    }

    // Whoever has the old file open reads it to its end: the new one takes its place in one step.
    void a_troca_pelo_ficheiro_novo_e_de_um_so_passo()
    {
        if (!um_aberto_troca_se) QSKIP("nobody replaces a file here that is open");
        const QByteArray before = "[s]\r\nk=old\r\n";
        IniFile ini = Ficheiro_Com(before);
        QFile open(Caminho());
        QVERIFY(open.open(QIODevice::ReadOnly));
        QVERIFY(ini.write(u"s"_s, u"k"_s, u"new"_s));
        QCOMPARE(open.readAll(), before);
        QCOMPARE(Bytes(), "[s]\r\nk=new\r\n");
        QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), QStringList{u"config.ini"_s});
    }

    void sem_licenca_a_escrita_cala_se_e_nada_muda_data()
    {
        QTest::addColumn<int>("folderMode");
        QTest::addColumn<int>("fileMode");
        QTest::newRow("read-only folder") << 0x5555 << 0x4444;
        QTest::newRow("read-only file") << 0x7777 << 0x4444;
        QTest::newRow("file that cannot be read") << 0x7777 << 0x2222;
    }
    void sem_licenca_a_escrita_cala_se_e_nada_muda()
    {
        QFETCH(int, folderMode);
        QFETCH(int, fileMode);
        const QByteArray before = "[s]\r\na=1\r\n";
        IniFile file = Ficheiro_Com(before);
        QFile::setPermissions(Caminho(), QFile::Permissions(fileMode));
        QFile::setPermissions(folder_->path(), QFile::Permissions(folderMode));
        bool possible = false;
        bool written = true;
        {
            const SemPrivilegios nobody;
            possible = nobody.Possivel();
            if (possible) written = file.write(u"s"_s, u"k"_s, u"v"_s);
        }
        QFile::setPermissions(folder_->path(), QFile::Permissions(0x7777));
        QFile::setPermissions(Caminho(), QFile::Permissions(0x6666));
        if (!possible) QSKIP("the rights of an administrator cannot be put off here");
        QVERIFY(!written);
        QCOMPARE(Bytes(), before);
    }
};

MORVEX_TESTE(TestIniFile)
#include "test_IniFile.moc"
