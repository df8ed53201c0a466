// One text by its number, in the active language; and the seven languages.
#include "data/Idiomas.h"
#include "testlib/FalhaDita.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestLer_Idioma : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_lingua_le_a_sua_coluna_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("ajuda");
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<bool>("disponivel");
        QTest::newRow("PortuguesPT") << u"Português (Portugal)"_s << u"pt"_s << u"pt_BR"_s << true;
        QTest::newRow("PortuguesBR") << u"Português (Brasil)"_s << u"br"_s << u"pt_BR"_s << true;
        QTest::newRow("InglesUK") << u"English"_s << u"uk"_s << u"en"_s << true;
        QTest::newRow("EspanholES") << u"Español"_s << u"es"_s << u"es"_s << false;
        QTest::newRow("ItalianoIT") << u"Italiano"_s << u"it"_s << u"it"_s << false;
        QTest::newRow("FrancesFR") << u"Français"_s << u"fr"_s << u"fr"_s << true;
        QTest::newRow("AlemaoDE") << u"Deutsch"_s << u"de"_s << u"de"_s << false;
    }
    void cada_lingua_le_a_sua_coluna()
    {
        QFETCH(QString, nome);
        QFETCH(QString, ajuda);
        QFETCH(QString, codigo);
        QFETCH(bool, disponivel);
        const auto coluna = QString::fromLatin1(QTest::currentDataTag());
        Sistema s;
        s.Escrever(u"UPDATE TblIdiomas SET "_s + coluna + u"='this one' WHERE ID=43"_s);
        s.geral.IdiomaActual = coluna;
        QCOMPARE(s.geral.Ler_Idioma(43), u"this one"_s);
        const Idioma *idioma = idiomas::Procurar(coluna);
        QVERIFY(idioma != nullptr);
        QCOMPARE(QString::fromUtf16(idioma->nome), nome);
        QCOMPARE(QString::fromUtf16(idioma->ajuda), ajuda);
        QCOMPARE(QString::fromUtf16(idioma->codigo), codigo);
        QCOMPARE(idioma->disponivel, disponivel);
    }

    void um_processo_comeca_sem_contacto_sem_conta_e_sem_avisos()
    {
        const QTemporaryDir pasta;
        const Geral geral(pasta.path());
        QCOMPARE(geral.IDContacto, 0);
        QCOMPARE(geral.IndiceContacto, 0);
        QCOMPARE(geral.IDContaEmail, 0);
        QCOMPARE(geral.ErroMail, 0);
        QCOMPARE(geral.DiasAniversarios, 0);
        QCOMPARE(geral.EmailNotifyActivo, 0);
        QCOMPARE(geral.EmailNotifyMinutos, 0);
        QCOMPARE(geral.MessengerActivo, 0);
        QVERIFY(!geral.Comeca_Minimizado());
        QCOMPARE(geral.SessaoActual.IdUtilizador, u"0"_s);
        const Sessao &sessao = geral.SessaoActual;
        QVERIFY(!sessao.PedirPassSystemTray && !sessao.Adicionar && !sessao.Editar && !sessao.Eliminar);
        QVERIFY(!sessao.Grupos && !sessao.Utilizadores);
    }

    void comeca_se_minimizado_se_a_configuracao_ou_a_linha_de_comando_o_pede()
    {
        const QTemporaryDir pasta;
        Geral geral(pasta.path());
        geral.MinimizarArranque = u"nao"_s;
        QVERIFY(!geral.Comeca_Minimizado());
        geral.MinimizarArranque = u"sim"_s;
        QVERIFY(geral.Comeca_Minimizado());
        geral.MinimizarArranque = u"nao"_s;
        geral.MinimizarDestaVez = true;
        QVERIFY(geral.Comeca_Minimizado());
    }

    void sao_sete_linguas() { QCOMPARE(idiomas::todos.size(), 7U); }

    // Nothing is read then, so not even a missing database is noticed.
    void sem_lingua_activa_o_texto_e_vazio_e_nada_se_le()
    {
        SO_NUM_FICHEIRO("one that is not there");
        Sistema s(Sistema::Estado::Sem_Base);
        for (const QString &idioma : {u""_s, u"inglesuk"_s, u"InglesUK "_s, u"Uso"_s, u"ID"_s}) {
            s.geral.IdiomaActual = idioma;
            QCOMPARE(s.geral.Ler_Idioma(43), u""_s);
        }
        QCOMPARE(s.geral.CaminhoBD, u""_s);
    }

    void um_texto_sem_linha_falha_para_quem_chamou()
    {
        Sistema s;
        VERIFICAR_FALHA(s.geral.Ler_Idioma(30000), Failure::NoCurrentRecord);
        VERIFICAR_FALHA(s.geral.Ler_Idioma(-1), Failure::NoCurrentRecord);
    }

    void uma_celula_nula_falha_para_quem_chamou()
    {
        Sistema s;
        s.Escrever(u"UPDATE TblIdiomas SET PortuguesPT=NULL WHERE ID=43"_s);
        VERIFICAR_FALHA(s.geral.Ler_Idioma(43), Failure::InvalidUseOfNull);
        QVERIFY(!s.geral.Ler_Idioma(44).isEmpty());
    }

    void um_conjunto_deixado_aberto_fecha_se_primeiro_e_fica_fechado()
    {
        SO_NUM_FICHEIRO("a server is asked for all of them once");
        Sistema s;
        s.geral.de.Abrir("cmdLerIdioma", {u"44"});
        QCOMPARE(s.geral.Ler_Idioma(43), s.Texto(43));
        QCOMPARE(s.geral.de.Rs("cmdLerIdioma").State(), Recordset::Closed);
    }

    void cada_leitura_vai_a_base()
    {
        SO_NUM_FICHEIRO("a server is asked for all of them once");
        Sistema s;
        s.geral.Ler_Idioma(43);
        s.Escrever(u"UPDATE TblIdiomas SET PortuguesPT='mudado' WHERE ID=43"_s);
        QCOMPARE(s.geral.Ler_Idioma(43), u"mudado"_s);
    }

    void todos_de_uma_vez_sao_os_mesmos_que_um_a_um()
    {
        Sistema s;
        s.Escrever(u"UPDATE TblIdiomas SET InglesUK=NULL WHERE ID=43"_s);
        s.Escrever(
            u"INSERT INTO TblIdiomas (ID, InglesUK) VALUES (43, 'a later row'), (44, 'a later row')"_s);
        s.geral.IdiomaActual = u"InglesUK"_s;
        const auto todos = s.geral.Ler_Todo_O_Idioma();
        const QStringList numeros = s.Linhas(u"SELECT DISTINCT ID FROM TblIdiomas"_s);
        QVERIFY(numeros.size() > 200);
        for (const QString &numero : numeros)
            if (numero != u"43"_s)
                QCOMPARE(todos.value(numero.toInt()), s.geral.Ler_Idioma(numero.toShort()));
        QVERIFY(!todos.contains(43)); // the first of two rows counts, and it has nothing to say
        QCOMPARE(todos.size(), numeros.size() - 1);
        s.geral.IdiomaActual = u"none"_s;
        QVERIFY(s.geral.Ler_Todo_O_Idioma().isEmpty());
    }

    void sem_base_a_falha_vai_para_quem_chamou()
    {
        SO_NUM_FICHEIRO("the texts of a server that is away are the program's");
        Sistema s(Sistema::Estado::Sem_Base);
        s.geral.IdiomaActual = u"InglesUK"_s;
        VERIFICAR_FALHA(s.geral.Ler_Idioma(43), Failure::StoreError);
    }

    void um_servidor_e_perguntado_por_todos_uma_so_vez()
    {
        SO_NUM_FICHEIRO("what the server of this test stands on");
        Sistema s;
        s.Escrever(u"UPDATE TblIdiomas SET PortuguesPT='dele' WHERE ID=43"_s);
        ServidorFalso servidor(s.Base());
        servidor.Servir(s.geral);
        QCOMPARE(s.geral.Ler_Idioma(43), u"dele"_s);
        QCOMPARE(s.geral.Ler_Idioma(44), s.Texto(44));
        QCOMPARE(s.geral.Ler_Todo_O_Idioma().value(45), s.Texto(45));
        QCOMPARE(servidor.Comandos(), 1);
    }

    void um_texto_que_o_servidor_nao_tem_vem_do_programa()
    {
        SO_NUM_FICHEIRO("what the server of this test stands on");
        Sistema s;
        const QString texto = s.Texto(43);
        s.Escrever(u"DELETE FROM TblIdiomas WHERE ID=43"_s);
        ServidorFalso servidor(s.Base());
        servidor.Servir(s.geral);
        QCOMPARE(s.geral.Ler_Idioma(43), texto);
        VERIFICAR_FALHA(s.geral.Ler_Idioma(30000), Failure::NoCurrentRecord);
    }

    void de_um_servidor_conta_a_primeira_linha_e_uma_sem_numero_nenhuma()
    {
        SO_NUM_FICHEIRO("what the server of this test stands on");
        Sistema s;
        const QString texto = s.Texto(43);
        s.Escrever(u"INSERT INTO TblIdiomas (ID, PortuguesPT) VALUES (43, 'outra linha'), (NULL, 'sem numero')"_s);
        ServidorFalso servidor(s.Base());
        servidor.Servir(s.geral);
        QCOMPARE(s.geral.Ler_Todo_O_Idioma().value(43), texto); // nobody has asked for one before
        QCOMPARE(s.geral.Ler_Idioma(43), texto);
        QCOMPARE(teste::Falha_Dita([&] { s.geral.Ler_Idioma(30000); }),
                 QStringList({u"PortuguesPT"_s, u"There is no text 30000"_s}));
    }

    void noutra_lingua_que_o_servidor_nao_da_os_textos_sao_os_do_programa_e_nao_os_de_antes()
    {
        SO_NUM_FICHEIRO("what the server of this test stands on");
        Sistema s;
        ServidorFalso servidor(s.Base());
        servidor.Servir(s.geral);
        const QString em_portugues = s.geral.Ler_Idioma(43);
        s.geral.IdiomaActual = u"InglesUK"_s;
        const QString em_ingles = s.Texto(43);
        QVERIFY(em_ingles != em_portugues);
        servidor.Perder();
        QCOMPARE(s.geral.Ler_Idioma(43), em_ingles);
        servidor.Voltar();
        s.Escrever(u"UPDATE TblIdiomas SET InglesUK='his' WHERE ID=43"_s);
        QCOMPARE(s.geral.Ler_Idioma(43), u"his"_s);
    }

    void uma_celula_nula_do_servidor_falha_para_quem_chamou()
    {
        SO_NUM_FICHEIRO("what the server of this test stands on");
        Sistema s;
        s.Escrever(u"UPDATE TblIdiomas SET PortuguesPT=NULL WHERE ID=43"_s);
        ServidorFalso servidor(s.Base());
        servidor.Servir(s.geral);
        VERIFICAR_FALHA(s.geral.Ler_Idioma(43), Failure::InvalidUseOfNull);
    }

    void enquanto_o_servidor_esta_longe_os_textos_sao_os_do_programa_e_depois_os_dele()
    {
        SO_NUM_FICHEIRO("what the server of this test stands on");
        Sistema s;
        const QString texto = s.Texto(43);
        s.Escrever(u"UPDATE TblIdiomas SET PortuguesPT='dele' WHERE ID=43"_s);
        ServidorFalso servidor(s.Base());
        servidor.Servir(s.geral);
        servidor.recusa = Failure::Kind::ServerRefused;
        QCOMPARE(s.geral.Ler_Idioma(43), texto);
        servidor.recusa.reset();
        QCOMPARE(s.geral.Ler_Idioma(43), u"dele"_s);
    }
};

MORVEX_TESTE(TestLer_Idioma)
#include "test_Ler_Idioma.moc"
