// The data as a file: what belongs into it, and what a copy of an open file holds.
#include "data/CopiaParaFicheiro.h"

#include "data/BaseNova.h"
#include "data/CartoesGuardados.h"
#include "data/PassosDoEsquema.h"
#include "data/Textos.h"
#include "store/NewDatabase.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
void Abrir(Connection &ligacao, const QString &ficheiro)
{
    ligacao.setDataSource(ficheiro);
    ligacao.Open();
}

QStringList Lidas(Connection &ligacao, const QString &sql)
{
    QStringList linhas;
    for (Recordset rs = ligacao.query(sql, {}); !rs.Eof(); rs.MoveNext())
        linhas << rs.Row().join(u'|');
    return linhas;
}

// Something in every table, and a counter that is ahead of its rows.
void Encher(Sistema &s)
{
    for (const auto &nome : {u"Ângela"_s, u"Zé 𐐀 'x'"_s, u"que se vai"_s})
        s.Novo_Contacto({{u"Nome"_s, Value(nome)}, {u"Obs"_s, nullptr}});
    s.Escrever(u"DELETE FROM TblLista WHERE ID=(SELECT max(ID) FROM TblLista)"_s);
    s.Novo_Utilizador(u"Rui"_s, u"x"_s);
    s.Escrever(u"INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) VALUES "
               "('Ir', '2027-02-01', '09:30:00', 1, 2)"_s);
    s.Escrever(
        u"INSERT INTO TblMemos (Titulo, LeftForm, FontSize, FontBold) VALUES ('Memo', -15.5, 8.25, -1)"_s);
    s.Escrever(u"INSERT INTO TblEmails (Email) VALUES ('a@x.example')"_s);
    s.Escrever(u"INSERT INTO TblDiferentes VALUES (1, 2)"_s);
    s.Escrever(u"INSERT INTO TblSincronizacao (IdUtilizador, Endereco) VALUES (1, 'https://x.example')"_s);
    s.Escrever(u"INSERT INTO TblSincronizados (Par, IDContacto) VALUES ('1/a.vcf', 1)"_s);
    s.Escrever(u"INSERT INTO TblOcorrencias (IdUtilizador, Nome) VALUES (1, 'Ana')"_s);
    Por_Na_Base(s, {20, 20});
    CartoesGuardados(s.geral.de).Guardar({u"1"_s, u"u"_s, QByteArray("BEGIN\0END", 9)});
}
} // namespace

class TestCopiaParaFicheiro : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_ficheiro_tem_o_esquema_do_que_se_envia()
    {
        SO_NUM_FICHEIRO("its schema is that of the one that is shipped");
        Sistema s(Sistema::Estado::Vazio);
        const FileCopy copia = Copia_Para_Ficheiro(s.Ficheiro(u"copia.mdb"_s), {});
        createDatabase(copia.file, copia.create, copia.schemaNumber);
        Connection feita;
        Abrir(feita, copia.file);
        const QString esquema = u"SELECT name, sql FROM sqlite_master ORDER BY name"_s;
        QCOMPARE(Lidas(feita, esquema), s.Linhas(esquema));
        QCOMPARE(Lidas(feita, u"PRAGMA user_version"_s), s.Linhas(u"PRAGMA user_version"_s));
    }

    void um_ficheiro_novo_teve_todos_os_passos()
    {
        SO_NUM_FICHEIRO("a file made anew");
        Sistema s(Sistema::Estado::Vazio);
        const QString nova = s.Ficheiro(u"nova.mdb"_s);
        base_nova::Criar(nova, u"Morvex"_s, Textos_Do_Programa());
        Connection feita;
        Abrir(feita, nova);
        QCOMPARE(feita.schemaNumber(), esquema::versao);
    }

    void cada_tabela_vai_com_todas_as_colunas_e_diz_se_conta()
    {
        SO_NUM_FICHEIRO("its own list of its tables");
        Sistema s;
        Encher(s);
        Connection ligacao;
        Abrir(ligacao, s.Base());
        QStringList contadas;
        QStringList nomes;
        for (const FileCopy::Table &tabela : Copia_Para_Ficheiro({}, {}).tables) {
            QCOMPARE(tabela.columns, ligacao.columns(tabela.name));
            nomes << tabela.name;
            if (tabela.counted) contadas << tabela.name;
        }
        contadas.sort();
        nomes.sort();
        QCOMPARE(contadas, s.Linhas(u"SELECT name FROM sqlite_sequence ORDER BY name"_s));
        QCOMPARE(nomes, s.Linhas(u"SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE "
                                 "'sqlite%' ORDER BY name COLLATE BINARY"_s));
    }

    void a_copia_da_base_aberta_tem_linhas_contadores_fotografias_e_textos()
    {
        Sistema s;
        Encher(s);
        QList<int> feito;
        s.geral.de.Copiar_Para(s.Ficheiro(u"copia.mdb"_s), [&](int percentagem) { feito << percentagem; });
        QCOMPARE(feito.constLast(), 100);
        Connection copia;
        Abrir(copia, s.Ficheiro(u"copia.mdb"_s));
        for (const FileCopy::Table &tabela : Copia_Para_Ficheiro({}, {}).tables) {
            const QString todas = u"SELECT * FROM %1 ORDER BY 1"_s.arg(tabela.name);
            QVERIFY2(!s.Linhas(todas).isEmpty(), qPrintable(tabela.name));
            QCOMPARE(Lidas(copia, todas), s.Linhas(todas));
        }
        for (const FileCopy::Table &tabela : Copia_Para_Ficheiro({}, {}).tables)
            if (tabela.counted)
                QCOMPARE(copia.highestId(tabela.name), s.geral.de.Ultimo_ID(tabela.name.toStdString()));
        QCOMPARE(copia.highestId(u"TblLista"_s), 6); // the last of them is gone
        QCOMPARE(copia.schemaNumber(), esquema::versao);
        QCOMPARE(s.geral.de.Abrir("cmdVerConfig").RecordCount(), 1); // and the connection was open all along
    }

    void um_ficheiro_que_ja_existe_fica_como_esta()
    {
        Sistema s;
        QFile ficheiro(s.Ficheiro(u"copia.mdb"_s));
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.write("meu");
        ficheiro.close();
        VERIFICAR_FALHA(s.geral.de.Copiar_Para(ficheiro.fileName(), {}), Failure::StoreError);
        QCOMPARE(ficheiro.size(), 3);
    }

    void uma_copia_que_nao_cabe_em_lado_nenhum_nao_deixa_ficheiro()
    {
        Sistema s;
        VERIFICAR_FALHA(s.geral.de.Copiar_Para(s.Ficheiro(u"nao/ha/copia.mdb"_s), {}), Failure::StoreError);
        QVERIFY(!QFile::exists(s.Ficheiro(u"nao/ha/copia.mdb"_s)));
    }
};

MORVEX_TESTE(TestCopiaParaFicheiro)
#include "test_CopiaParaFicheiro.moc"
