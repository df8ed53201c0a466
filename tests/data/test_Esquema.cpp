// The fifteen tables: their columns, types and counters, and the database that is shipped.
#include "data/Esquema.h"
#include "data/PassosDoEsquema.h"
#include "platform/Failure.h"
#include "testlib/FalhaDita.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestEsquema : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Table, columns with their types: c counter, t text, n number, s single, y yes/no, d date, h time, b
    // bytes.
    void as_tabelas_e_as_suas_colunas_data()
    {
        QTest::addColumn<QString>("colunas");
        QTest::newRow("TblLista")
            << u"ID:c Nome:t Telefone1:t Telefone2:t Fax:t Telemovel1:t Telemovel2:t Telemovel3:t Dia:t "
               "Mes:t Ano:t Email1:t Email2:t Website:t Morada:t Obs:t Fotografia:t Grupo:n "
               "MSNMessenger:t"_s;
        QTest::newRow("TblGrupos") << u"ID:c NomeGrupo:t IdUtilizador:n"_s;
        QTest::newRow("TblUsers")
            << u"ID:c Utilizador:t Pass:t SystemTray:y Adicionar:y Editar:y Eliminar:y Grupos:y "
               "Utilizadores:y"_s;
        QTest::newRow("TblMemos")
            << u"ID:c Titulo:t Descricao:t LeftForm:s TopForm:s Width:s Height:s FontName:t FontSize:s "
               "FontBold:y FontItalic:y CorFundo:n Utilizador:n"_s;
        QTest::newRow("TblTarefas") << u"ID:c Tarefa:t Data:d Hora:h Utilizador:n IDRepeticao:n"_s;
        QTest::newRow("TblRepeticao") << u"ID:c Nome:t"_s;
        QTest::newRow("TblConfig") << u"ID:c Idioma:t Versao:t Remetente:t Destinatario:t"_s;
        QTest::newRow("TblIdiomas")
            << u"ID:n PortuguesPT:t PortuguesBR:t InglesUK:t EspanholES:t ItalianoIT:t FrancesFR:t "
               "AlemaoDE:t"_s;
        QTest::newRow("TblEmails") << u"ID:c Email:t ServerName:t Username:t PalavraPasse:t IdUtilizador:n"_s;
        QTest::newRow("TblFotografias") << u"Nome:t Imagem:b"_s;
        QTest::newRow("TblCartoes") << u"IDContacto:n UID:t conta:t href:t etag:t cartao:b resumo:t"_s;
        QTest::newRow("TblDiferentes") << u"IDContacto:n IDOutro:n"_s;
        QTest::newRow("TblSincronizacao")
            << u"IdUtilizador:n Endereco:t Nome:t PalavraPasse:t Livro:t NomeDoLivro:t IDGrupo:n Ligada:y "
               "AoArrancar:y Minutos:n Testemunho:t Corrida:n UltimaVez:t Resultado:t"_s;
        QTest::newRow("TblSincronizados")
            << u"Par:t IdUtilizador:n IDContacto:n href:t etag:t estado:n resumo:t acordo:t"_s;
        QTest::newRow("TblOcorrencias")
            << u"ID:c IdUtilizador:n Quando:t Que:n IDContacto:n Nome:t Campo:t Valor:t Outro:t"_s;
    }
    void as_tabelas_e_as_suas_colunas()
    {
        QFETCH(QString, colunas);
        const std::string_view nome = QTest::currentDataTag();
        const QStringList partes = colunas.split(u' ');
        const auto tabelas = esquema::Tabelas();
        const auto tabela =
            std::find_if(tabelas.begin(), tabelas.end(), [&](const Tabela &t) { return t.nome == nome; });
        QVERIFY(tabela != tabelas.end());
        QStringList achadas;
        for (const ColunaDaTabela &coluna : tabela->colunas) {
            const char letra = coluna.contador ? 'c' : "tnsydh~b"[static_cast<int>(coluna.tipo)];
            achadas << QString::fromUtf8(coluna.nome.data()) + u':' + QLatin1Char(letra);
        }
        QCOMPARE(achadas, partes);
    }

    void sao_quinze() { QCOMPARE(esquema::Tabelas().size(), 15U); }

    // A base that has had a step has its tables: in another one they would never come to it.
    void cada_tabela_que_veio_depois_diz_o_seu_passo()
    {
        QStringList passos;
        for (const Tabela &tabela : esquema::Tabelas())
            if (tabela.desde != 0) passos << u"%1 %2"_s.arg(tabela.desde).arg(esquema::Texto(tabela.nome));
        QCOMPARE(passos, (QStringList{u"1 TblFotografias"_s, u"1 TblCartoes"_s, u"2 TblDiferentes"_s,
                                      u"3 TblSincronizacao"_s, u"3 TblSincronizados"_s, u"3 TblOcorrencias"_s}));
    }

    void uma_base_de_outros_passos_diz_quantos_teve()
    {
        Sistema s(Sistema::Estado::Vazio);
        const auto dito = [&s] { return teste::Falha_Dita([&s] { s.geral.de.Abrir("cmdVerConfig"); }); };
        const auto passos = [](int teve, const QString &o_que) {
            return u"The database has had %1 steps, and this program %2 %3"_s.arg(teve).arg(o_que).arg(esquema::versao);
        };
        ServidorFalso servidor(s.Base());
        s.Escrever(u"PRAGMA user_version=99"_s);
        QCOMPARE(dito(), QStringList({s.Base(), passos(99, u"knows"_s)}));
        servidor.Servir(s.geral);
        servidor.passos = esquema::versao - 1;
        QCOMPARE(dito(), QStringList({ServidorFalso::Endereco(), passos(esquema::versao - 1, u"needs"_s)}));
        servidor.passos = esquema::versao;
        QCOMPARE(dito(), QStringList());
    }

    void as_chaves_que_a_base_nao_da_sao_quatro()
    {
        QStringList chaves;
        for (const Tabela &tabela : esquema::Tabelas())
            for (const ColunaDaTabela &coluna : tabela.colunas)
                if (coluna.chave)
                    chaves << QString::fromUtf8(tabela.nome) + u'.' + QString::fromUtf8(coluna.nome);
        QCOMPARE(chaves, (QStringList{u"TblFotografias.Nome"_s, u"TblCartoes.IDContacto"_s,
                                       u"TblSincronizacao.IdUtilizador"_s, u"TblSincronizados.Par"_s}));
    }

    void uma_coluna_que_nao_ha_e_um_erro()
    {
        QCOMPARE(esquema::Tipo("TblTarefas", "Data"), ColumnType::Date);
        VERIFICAR_FALHA(esquema::Tipo("TblTarefas", "Dia"), Failure::ItemNotFound);
        VERIFICAR_FALHA(esquema::Tipo("TblNada", "ID"), Failure::ItemNotFound);
        QCOMPARE(teste::Falha_Dita([] { esquema::Tipo("TblTarefas", "Dia"); }),
                 QStringList({u"TblTarefas"_s, u"No column named Dia"_s}));
    }

    void a_base_enviada_tem_estas_tabelas_e_mais_nada()
    {
        Sistema s(Sistema::Estado::Vazio);
        QStringList criadas;
        for (const Tabela &tabela : esquema::Tabelas())
            criadas << esquema::Sql_Criar(tabela);
        criadas.sort();
        QStringList enviadas = s.Linhas(u"SELECT sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_%'"_s);
        enviadas.sort();
        QCOMPARE(enviadas, criadas);
    }

    void a_base_enviada_tem_uma_linha_de_config_sem_lingua_e_o_resto_vazio()
    {
        Sistema s(Sistema::Estado::Vazio);
        QCOMPARE(s.Linhas(u"SELECT ID, Idioma, Versao<>'', Remetente, Destinatario FROM TblConfig"_s),
                 QStringList{u"1||1||"_s});
        for (const QString &tabela :
             {u"TblLista"_s, u"TblGrupos"_s, u"TblUsers"_s, u"TblMemos"_s, u"TblTarefas"_s, u"TblRepeticao"_s,
              u"TblEmails"_s, u"TblFotografias"_s, u"TblCartoes"_s, u"TblDiferentes"_s,
              u"TblSincronizacao"_s, u"TblSincronizados"_s, u"TblOcorrencias"_s})
            QCOMPARE(s.Linhas(u"SELECT count(*) FROM "_s + tabela), QStringList{u"0"_s});
    }

    void so_as_palavras_se_comparam_com_a_sua_colacao()
    {
        for (const Tabela &tabela : esquema::Tabelas()) {
            QString sql = esquema::Sql_Criar(tabela);
            sql = sql.sliced(sql.indexOf(u'(') + 1).chopped(QStringLiteral(") STRICT").size());
            const QStringList colunas = sql.split(u", "_s);
            for (std::size_t i = 0; i < tabela.colunas.size(); ++i) {
                const ColunaDaTabela &coluna = tabela.colunas[i];
                const bool palavras = coluna.tipo == ColumnType::Text && !coluna.chave;
                QCOMPARE(colunas.at(static_cast<qsizetype>(i)).contains(u"COLLATE"_s), palavras);
            }
        }
    }

    void um_contador_comeca_em_1_e_nao_repete()
    {
        Sistema s(Sistema::Estado::Vazio);
        s.Escrever(u"INSERT INTO TblGrupos (NomeGrupo) VALUES ('a'), ('b')"_s);
        s.Escrever(u"DELETE FROM TblGrupos"_s);
        s.Escrever(u"INSERT INTO TblGrupos (NomeGrupo) VALUES ('c')"_s);
        QCOMPARE(s.Linhas(u"SELECT * FROM TblGrupos"_s), QStringList{u"3|c|0"_s});
    }

    void um_valor_de_outro_tipo_falha_ao_escrever()
    {
        Sistema s(Sistema::Estado::Vazio);
        for (const QString &sql : {u"INSERT INTO TblLista (Grupo) VALUES ('seis')"_s,
                                   u"INSERT INTO TblMemos (FontSize) VALUES ('8,25')"_s,
                                   u"INSERT INTO TblUsers (Editar) VALUES ('True')"_s})
            VERIFICAR_FALHA(s.Escrever(sql), Failure::StoreError);
    }
};

MORVEX_TESTE(TestEsquema)
#include "test_Esquema.moc"
