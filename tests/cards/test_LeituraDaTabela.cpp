// A foreign table while a person settles how it is to be read.
#include "cards/LeituraDaTabela.h"

#include "cards/CamposDaTabela.h"
#include "testlib/Sistema.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
const ContactosDaTabela::Opcoes opcoes{u"PortuguesPT"_s, DateOrder::DayFirst, 2027, {}};
constexpr CsvColumn nada{};

CsvColumn Campo(CsvField campo) { return {campo, CsvPlace::None, 0, false}; }

struct Mesa {
    LeituraDaTabela Ler(const QByteArray &ficheiro) { return {ficheiro, s.geral.ini, opcoes}; }
    Sistema s{Sistema::Estado::Vazio};
};
} // namespace

class TestLeituraDaTabela : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_primeira_leitura_traz_ja_os_campos_que_os_nomes_dizem()
    {
        Mesa m;
        const LeituraDaTabela leitura = m.Ler("Nome completo;E-mail;Signo\nAna Silva;ana@x.example;Peixes\n");
        QCOMPARE(leitura.Mapa().colunas,
                 (std::vector{Campo(CsvField::FullName), Campo(CsvField::Email), nada}));
        QCOMPARE(leitura.Quantos(), std::size_t{1});
        QCOMPARE(leitura.Nome(2), u"Signo"_s);
    }

    void outra_codificacao_le_de_novo_e_guarda_o_que_a_pessoa_disse()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Nome;Coment\xE1rio\nJos\xE9;alto\n");
        leitura.Por_Coluna(1, Campo(CsvField::Nickname));
        QCOMPARE(leitura.Celula(0, 0), u"José"_s);
        leitura.Ler({.encoding = "windows-1250", .delimiter = {}, .hasHeader = {}});
        QCOMPARE(leitura.Celula(0, 0), u"José"_s);
        QCOMPARE(leitura.Mapa().colunas[1], Campo(CsvField::Nickname));
        leitura.Ler({.encoding = "windows-1251", .delimiter = {}, .hasHeader = {}});
        QCOMPARE(leitura.Celula(0, 0), u"Josй"_s);
        QCOMPARE(leitura.Mapa().colunas[1], Campo(CsvField::Nickname));
    }

    void a_ordem_das_datas_que_a_pessoa_escolheu_fica_numa_nova_leitura()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Nome,Aniversário\nAna,3/4/1975\n");
        leitura.Por_Ordem(DateOrder::MonthFirst);
        leitura.Ler({.encoding = "utf-8", .delimiter = {}, .hasHeader = {}});
        QVERIFY(leitura.Mapa().ordem == DateOrder::MonthFirst);
        QCOMPARE(leitura.Contacto(0).lido.colunas[Coluna::Mes], u"3"_s);
    }

    void outro_separador_tem_outras_colunas_e_o_primeiro_traz_as_suas_de_volta()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Alfa;Beta,x;Gama\n1;2,a;3\n4;5,b;6\n");
        leitura.Por_Coluna(0, Campo(CsvField::Note));
        leitura.Por_Coluna(2, Campo(CsvField::Fax));
        leitura.Ler({.encoding = {}, .delimiter = u',', .hasHeader = {}});
        QCOMPARE(leitura.Mapa().colunas, (std::vector{nada, nada}));
        leitura.Por_Coluna(0, Campo(CsvField::Group));
        leitura.Ler({.encoding = {}, .delimiter = u';', .hasHeader = {}});
        QCOMPARE(leitura.Mapa().colunas, (std::vector{Campo(CsvField::Note), nada, Campo(CsvField::Fax)}));
    }

    void do_que_a_pessoa_disse_de_uma_coluna_vale_o_ultimo()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Alfa;Beta\n1;2\n");
        for (const CsvField campo : {CsvField::Note, CsvField::Fax, CsvField::Unknown})
            leitura.Por_Coluna(0, Campo(campo));
        leitura.Por_Coluna(1, Campo(CsvField::Fax));
        leitura.Ler({.encoding = "utf-8", .delimiter = {}, .hasHeader = {}});
        QCOMPARE(leitura.Mapa().colunas, (std::vector{nada, Campo(CsvField::Fax)}));
    }

    void o_segundo_ficheiro_da_mesma_origem_nao_precisa_de_nada()
    {
        Mesa m;
        LeituraDaTabela primeira = m.Ler("Quem;Para onde\nAna;912345678\n");
        primeira.Por_Coluna(0, Campo(CsvField::FullName));
        primeira.Por_Coluna(1, Campo(CsvField::Mobile));
        primeira.Por_Ordem(DateOrder::MonthFirst);
        primeira.Guardar();
        // Another row and another order of the columns.
        const LeituraDaTabela segunda = m.Ler("Para onde;Quem\n961234567;Rui\n");
        QCOMPARE(segunda.Mapa().colunas, (std::vector{Campo(CsvField::Mobile), Campo(CsvField::FullName)}));
        QVERIFY(segunda.Mapa().ordem == DateOrder::MonthFirst);
        QCOMPARE(segunda.Contacto(0).lido.colunas[Coluna::Telemovel1], u"961234567"_s);
    }

    void uma_tabela_sem_nomes_nao_se_lembra_de_outra()
    {
        Mesa m;
        LeituraDaTabela primeira = m.Ler("ana@x.example;912345678\n");
        QVERIFY(!primeira.Tabela().hasHeader);
        primeira.Por_Coluna(0, Campo(CsvField::Email));
        primeira.Guardar();
        const LeituraDaTabela segunda = m.Ler("rui@x.example;961234567\n");
        QCOMPARE(segunda.Mapa().colunas, (std::vector{nada, nada}));
        QCOMPARE(segunda.Nome(1), u"2"_s);
    }

    void sem_a_linha_dos_nomes_os_campos_ditos_ficam_no_seu_lugar()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Um;Dois\nAna;3\n");
        leitura.Por_Coluna(1, Campo(CsvField::Note));
        leitura.Ler({.encoding = {}, .delimiter = {}, .hasHeader = false});
        QCOMPARE(leitura.Quantos(), std::size_t{2});
        QCOMPARE(leitura.Mapa().colunas, (std::vector{nada, Campo(CsvField::Note)}));
    }

    void voltar_ao_campo_proposto_traz_o_seu_numero_de_volta()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Name;Phone 2 - Value\nAna;912345678\n");
        const CsvColumn proposta = leitura.Mapa().colunas[1];
        QCOMPARE(proposta.number, 2);
        leitura.Por_Coluna(1, Campo(CsvField::Fax));
        QCOMPARE(leitura.Mapa().colunas[1], Campo(CsvField::Fax));
        leitura.Por_Coluna(1, Campo(CsvField::Phone));
        QCOMPARE(leitura.Mapa().colunas[1], proposta);
    }

    void o_mesmo_campo_noutro_lugar_ja_nao_e_o_proposto()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Name;Home City\nAna;Porto\n");
        const CsvColumn do_trabalho{CsvField::City, CsvPlace::Work, 0, false};
        leitura.Por_Coluna(1, do_trabalho);
        QCOMPARE(leitura.Mapa().colunas[1], do_trabalho);
    }

    void o_que_se_disse_de_uma_coluna_segue_o_seu_nome_ate_ao_primeiro_lugar()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Signo,x;Signo\n1,2;3\n");
        QCOMPARE(leitura.Tabela().delimiter, QChar(u','));
        leitura.Ler({.encoding = {}, .delimiter = u';', .hasHeader = {}});
        leitura.Por_Coluna(1, Campo(CsvField::Fax)); // "Signo"
        leitura.Ler({.encoding = {}, .delimiter = u',', .hasHeader = {}});
        QCOMPARE(leitura.Mapa().colunas, (std::vector{Campo(CsvField::Fax), nada}));
    }

    void a_ordem_das_datas_e_a_da_tabela_como_agora_se_le()
    {
        Mesa m;
        LeituraDaTabela leitura = m.Ler("Rui;3/28/1980\nAna;3/4/1975\n");
        leitura.Por_Coluna(1, Campo(CsvField::Birthday));
        QCOMPARE(leitura.Contacto(1).lido.colunas[Coluna::Mes], u"3"_s);
        leitura.Ler({.encoding = {}, .delimiter = {}, .hasHeader = true}); // the date that told it is a name now
        QCOMPARE(leitura.Contacto(0).lido.colunas[Coluna::Mes], u"4"_s);
    }

    void os_nomes_de_mais_de_um_sentido_sao_ditos_uma_vez()
    {
        Mesa m;
        QCOMPARE(m.Ler("Apelido;E-mail;Apelido\nSilva;a@x.example;Zé\n").Nomes_Ambiguos(),
                 QStringList{u"Apelido"_s});
        QCOMPARE(m.Ler("E-mail;Signo\na@x.example;Peixes\n").Nomes_Ambiguos(), QStringList());
        QCOMPARE(m.Ler("Apelido;a@x.example\n").Nomes_Ambiguos(), QStringList()); // no row of names
    }

    void os_numeros_estragados_contam_so_nas_colunas_de_numeros()
    {
        Mesa m;
        LeituraDaTabela leitura =
            m.Ler("Nome;Telefone;Conta\nAna;3,51912E+11;4,1E+20\nRui;+351 212345678;1\nEva;3,51213E+11;2\n");
        const std::pair<std::size_t, QString> dois{2, u"3,51912E+11"_s};
        QCOMPARE(leitura.Numeros_Estragados(), dois);
        leitura.Por_Coluna(1, Campo(CsvField::Note));
        QCOMPARE(leitura.Numeros_Estragados().first, std::size_t{0});
        leitura.Por_Coluna(2, Campo(CsvField::Fax));
        const std::pair<std::size_t, QString> um{1, u"4,1E+20"_s};
        QCOMPARE(leitura.Numeros_Estragados(), um);
    }

    void a_segunda_linha_tambem_se_le_e_pode_ter_mais_colunas()
    {
        Mesa m;
        const LeituraDaTabela leitura = m.Ler("Nome;Fax\nAna;1\nRui;2;3\n");
        QCOMPARE(leitura.Colunas(), std::size_t{3});
        QCOMPARE(leitura.Celula(1, 0), u"Rui"_s);
        QCOMPARE(leitura.Celula(1, 2), u"3"_s);
    }

    void a_primeira_coluna_e_uma_como_as_outras()
    {
        Mesa m;
        const LeituraDaTabela datas = m.Ler("Aniversário;Nome\n3/4/1975;Ana\n3/28/1980;Rui\n");
        QCOMPARE(datas.Contacto(0).lido.colunas[Coluna::Mes], u"3"_s);
        const std::pair<std::size_t, QString> um{1, u"3,51912E+11"_s};
        QCOMPARE(m.Ler("Telefone;Nome\n3,51912E+11;Ana\n").Numeros_Estragados(), um);
    }

    void a_vista_tem_a_ordem_das_datas_de_toda_a_coluna()
    {
        Mesa m;
        QByteArray ficheiro = "Nome,Aniversário\n";
        for (int i = 0; i < 100; ++i)
            ficheiro += "Ana,3/4/1975\n";
        const LeituraDaTabela leitura = m.Ler(ficheiro + "Rui,3/28/1980\n");
        QCOMPARE(leitura.Mostradas(), LeituraDaTabela::linhas_mostradas);
        QCOMPARE(leitura.Contacto(0).lido.colunas[Coluna::Mes], u"3"_s);
        QCOMPARE(m.Ler(ficheiro).Contacto(0).lido.colunas[Coluna::Mes], u"4"_s);
    }

    void o_que_uma_linha_tem_a_mais_vai_para_as_observacoes()
    {
        Mesa m;
        QByteArray ficheiro = "Nome,Telefone\n";
        for (int i = 0; i < 25; ++i)
            ficheiro += "Ana,212345678\n";
        LeituraDaTabela leitura = m.Ler(ficheiro + "Rui,212345679,alto,loiro\n");
        QCOMPARE(leitura.Colunas(), std::size_t{2}); // of the rows in view
        TabelaEscolhida escolhida = leitura.Escolhida();
        const ContactosDaTabela contactos(escolhida.tabela, escolhida.mapa, escolhida.opcoes);
        QVERIFY(contactos.Ler(25).lido.colunas[Coluna::Obs].contains(u"loiro"_s));
    }

    void maus_ficheiros_leem_se_sem_cair_data()
    {
        QTest::addColumn<QByteArray>("ficheiro");
        QTest::addColumn<std::size_t>("linhas");
        QTest::addColumn<std::size_t>("colunas");
        using B = QByteArray;
        QTest::newRow("empty") << B() << std::size_t{0} << std::size_t{0};
        QTest::newRow("a mark alone") << B("\xEF\xBB\xBF") << std::size_t{0} << std::size_t{0};
        QTest::newRow("blank lines") << B("\r\n\n\r\n") << std::size_t{0} << std::size_t{0};
        QTest::newRow("names alone") << B("Nome;Telefone\n") << std::size_t{0} << std::size_t{2};
        QTest::newRow("one column") << B("Nome\nAna\nRui\n") << std::size_t{2} << std::size_t{1};
        QTest::newRow("no names") << B("Ana;912345678\n") << std::size_t{1} << std::size_t{2};
        QTest::newRow("a sign of zero") << B("Nome;Tel\nA\0na;9\n", 15) << std::size_t{1} << std::size_t{2};
        QTest::newRow("a quote never closed")
            << B("Nome;Tel\n\"Ana;912345678\n") << std::size_t{1} << std::size_t{2};
        QTest::newRow("many columns") << B("a") + B(";b").repeated(999) + "\n1" + B(";2").repeated(999)
                                      << std::size_t{1} << std::size_t{1000};
        QTest::newRow("too many columns") << B("a") + B(";b").repeated(9999) + "\n1;2\n"
                                          << std::size_t{1} << std::size_t{2000};
        QTest::newRow("a cell of a megabyte") << B("Nome;Notas\nAna;") + B(1 << 20, 'x') + "\n"
                                              << std::size_t{1} << std::size_t{2};
    }
    void maus_ficheiros_leem_se_sem_cair()
    {
        QFETCH(QByteArray, ficheiro);
        QFETCH(std::size_t, linhas);
        QFETCH(std::size_t, colunas);
        Mesa m;
        LeituraDaTabela leitura = m.Ler(ficheiro);
        QCOMPARE(leitura.Quantos(), linhas);
        QCOMPARE(leitura.Colunas(), colunas);
        for (std::size_t i = 0; i < leitura.Mostradas(); ++i) {
            const ColunasDoContacto contacto = leitura.Contacto(i).lido.colunas;
            QVERIFY(contacto != ColunasDoContacto());
        }
        for (const bool com_nomes : {true, false})
            for (const char separador : {',', ';', '\t', '|'})
                for (const char *codificacao : {"utf-16", "Shift_JIS", ""})
                    leitura.Ler({codificacao, QLatin1Char(separador), com_nomes});
        leitura.Guardar();
    }

    void cem_mil_linhas_abrem_em_pouco_mais_do_que_o_tempo_de_as_cortar()
    {
        QByteArray ficheiro = "Nome;Telefone;Telemóvel;E-mail;Aniversário;Morada\r\n";
        for (int i = 0; i < 100'000; ++i)
            ficheiro += "Ana Silva;212345678;912345678;ana@exemplo.example;4/3/1975;\"Rua A, 1\"\r\n";
        Mesa m;
        const double chao = Tempo_Gasto([&] { QCOMPARE(readCsv(ficheiro).rows.size(), 100'001u); });
        const double leitura = Tempo_Gasto([&] {
            const LeituraDaTabela lida = m.Ler(ficheiro);
            QCOMPARE(lida.Contacto(19).lido.colunas[Coluna::Dia], u"4"_s);
        });
        qInfo("%.0f ms to cut, %.0f ms to open", chao / 1000, leitura / 1000);
        QVERIFY2(leitura < 3 * chao, qPrintable(u"%1 of %2"_s.arg(leitura).arg(chao)));
    }

    void cada_campo_tem_palavra_sua_e_e_a_escolha_que_a_diz()
    {
        Sistema s;
        QSet<QString> palavras;
        const std::vector<CsvColumn> &todos = campos_da_tabela::Todos();
        for (std::size_t i = 0; i < todos.size(); ++i) {
            palavras.insert(campos_da_tabela::Palavra(todos[i], s.geral));
            QCOMPARE(campos_da_tabela::Escolha_De(todos[i]), static_cast<int>(i));
        }
        QCOMPARE(palavras.size(), static_cast<qsizetype>(todos.size()));
        QVERIFY(!palavras.contains(QString()));
        QCOMPARE(campos_da_tabela::Escolha_De({CsvField::Phone, CsvPlace::None, 2, true}), -1);
        QCOMPARE(campos_da_tabela::Palavra({CsvField::Phone, CsvPlace::None, 2, true}, s.geral),
                 u"Telefone 2 (espécie)"_s);
        QVERIFY(campos_da_tabela::Vai_Para_Obs({CsvField::Photo, CsvPlace::None, 0, false}));
    }
};

MORVEX_TESTE(TestLeituraDaTabela)
#include "test_LeituraDaTabela.moc"
