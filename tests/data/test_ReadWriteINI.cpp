// The two operations over config.ini.
#include "data/ReadWriteINI.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QFile>

using namespace Qt::StringLiterals;

class TestReadWriteINI : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> pasta_;

    ReadWriteINI Ini() const { return ReadWriteINI(pasta_->path()); }
    QByteArray Bytes() const
    {
        QFile ficheiro(pasta_->filePath(u"config.ini"_s));
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray("<absent>");
    }

private Q_SLOTS:
    void init() { pasta_ = std::make_unique<QTemporaryDir>(); }

    void ler_sem_ficheiro_cria_o_com_essa_so_chave()
    {
        QCOMPARE(Ini().Ler_Ini(u"memos"_s, u"fontname"_s), u""_s);
        QCOMPARE(Bytes(), "[memos]\r\nfontname=\r\n");
        QCOMPARE(Ini().Ler_Ini(u"memos"_s, u"fontsize"_s), u""_s);
        QCOMPARE(Bytes(), "[memos]\r\nfontname=\r\n");
    }

    void uma_leitura_de_muitas_chaves_e_de_um_so_momento()
    {
        ReadWriteINI ini = Ini();
        ReadWriteINI::Leitura nova(ini);
        QCOMPARE(nova.Ler_Ini(u"memos"_s, u"fontname"_s), u""_s);
        QCOMPARE(nova.Ler_Ini(u"memos"_s, u"fontsize"_s), u""_s);
        QCOMPARE(Bytes(), "[memos]\r\nfontname=\r\n"); // as a single key does where there is no file
        ini.Escrever_Ini(u"memos"_s, u"fontname"_s, u"Tahoma"_s);
        ini.Escrever_Ini(u"memos"_s, u"fontsize"_s, u"8"_s);
        ReadWriteINI::Leitura leitura(ini);
        QCOMPARE(leitura.Ler_Ini(u"memos"_s, u"fontname"_s), u"Tahoma"_s);
        ini.Escrever_Ini(u"memos"_s, u"fontsize"_s, u"9"_s);
        QCOMPARE(leitura.Ler_Ini(u"memos"_s, u"fontsize"_s), u"8"_s);
        QCOMPARE(nova.Ler_Ini(u"memos"_s, u"fontname"_s), u""_s);
    }

    void o_que_se_escreve_le_se_e_nao_muda_os_argumentos()
    {
        const QString seccao = u"basedados"_s;
        const QString chave = u"caminhobd"_s;
        Ini().Escrever_Ini(seccao, chave, u"/home/ana/os meus dados/ação.mdb"_s);
        QCOMPARE(Ini().Ler_Ini(seccao, chave), u"/home/ana/os meus dados/ação.mdb"_s);
        QCOMPARE(seccao + chave, u"basedadoscaminhobd"_s);
    }

    void um_valor_vazio_guarda_a_chave()
    {
        Ini().Escrever_Ini(u"som7"_s, u"email"_s, u"x"_s);
        Ini().Escrever_Ini(u"som7"_s, u"email"_s, u""_s);
        QCOMPARE(Bytes(), "[som7]\r\nemail=\r\n");
    }

    void um_valor_longo_le_se_ate_254_caracteres()
    {
        Ini().Escrever_Ini(u"basedados"_s, u"caminhobd"_s, QString(300, u'é'));
        QCOMPARE(Ini().Ler_Ini(u"basedados"_s, u"caminhobd"_s), QString(254, u'é'));
    }

    void os_utilizadores_1_e_11_e_a_seccao_sem_numero_sao_tres()
    {
        Sistema s;
        for (const QString &id : {u""_s, u"1"_s, u"11"_s}) {
            s.geral.SessaoActual.IdUtilizador = id;
            s.geral.ini.Escrever_Ini(s.geral.Seccao_Do_Utilizador(u"emailnotify"_s), u"minutos"_s,
                                     u"9"_s + id);
        }
        QCOMPARE(s.geral.ini.Ler_Ini(u"emailnotify"_s, u"minutos"_s), u"9"_s);
        QCOMPARE(s.geral.ini.Ler_Ini(u"emailnotify1"_s, u"minutos"_s), u"91"_s);
        QCOMPARE(s.geral.ini.Ler_Ini(u"emailnotify11"_s, u"minutos"_s), u"911"_s);
    }

    void sem_utilizadores_a_seccao_e_a_do_0()
    {
        Sistema s;
        QCOMPARE(s.geral.Seccao_Do_Utilizador(u"som"_s), u"som0"_s);
    }

    void as_seccoes_de_um_utilizador_eliminado_ficam()
    {
        Sistema s;
        const QString id = QString::number(s.Novo_Utilizador(u"Ana"_s, u"x"_s));
        s.geral.ini.Escrever_Ini(u"som"_s + id, u"email"_s, u"a.wav"_s);
        s.geral.de.Executar("cmdDeleteUser", {id});
        QCOMPARE(s.geral.ini.Ler_Ini(u"som"_s + id, u"email"_s), u"a.wav"_s);
        QVERIFY(s.Novo_Utilizador(u"Ana"_s, u"x"_s) != id.toInt()); // so nobody ever reads it again
    }

    void numa_pasta_so_de_leitura_ler_e_escrever_calam_se()
    {
        QFile::setPermissions(pasta_->path(), QFile::Permissions(0x5555));
        const SemPrivilegios ninguem;
        if (!ninguem.Possivel()) QSKIP("the rights of an administrator cannot be put off here");
        QCOMPARE(Ini().Ler_Ini(u"memos"_s, u"fontname"_s), u""_s);
        Ini().Escrever_Ini(u"memos"_s, u"fontname"_s, u"Arial"_s);
        QCOMPARE(Bytes(), "<absent>");
    }
};

MORVEX_TESTE(TestReadWriteINI)
#include "test_ReadWriteINI.moc"
