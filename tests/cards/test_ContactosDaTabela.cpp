// The rows of a foreign table on their way into the columns of a contact.
#include "cards/ContactosDaTabela.h"
#include "data/ReadWriteINI.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using C = Coluna;
using F = CsvField;

namespace
{
constexpr int este_ano = 2026;

ContactoDaLinha Linha(const QByteArray &ficheiro, std::size_t qual = 0, const GruposDaImportacao &grupos = {},
                      DateOrder usual = DateOrder::DayFirst)
{
    const CsvTable tabela = readCsv(ficheiro);
    const QStringList nomes = tabela.hasHeader ? tabela.rows.front() : QStringList();
    return ContactosDaTabela(tabela, MapaDaTabela::Proposto(nomes, CsvHeaders()),
                             {u"InglesUK"_s, usual, este_ano, grupos})
        .Ler(qual);
}

ColunasDoContacto Colunas(const QByteArray &ficheiro) { return Linha(ficheiro).lido.colunas; }

QByteArray Bytes(const QString &caminho)
{
    QFile ficheiro(caminho);
    return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
}
} // namespace

class TestContactosDaTabela : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uma_linha_enche_as_mesmas_colunas_que_um_cartao()
    {
        const ContactoDaLinha linha = Linha(
            "Nome;Apelido;Telefone;Telemóvel;Fax;E-mail;Rua;Cidade;Código postal;Aniversário;Notas;Grupo\n"
            "Ana;Sá;211;911;213;a@b;Rua A;Porto;4000;4/3/1975;uma nota;Familia\n",
            0, {{u"Família"_s}, {}, false});
        const ColunasDoContacto &c = linha.lido.colunas;
        QCOMPARE(c[C::Nome], u"Ana Sá"_s);
        QCOMPARE(c[C::Telefone1], u"211"_s);
        QCOMPARE(c[C::Telemovel1], u"911"_s);
        QCOMPARE(c[C::Fax], u"213"_s);
        QCOMPARE(c[C::Email1], u"a@b"_s);
        QCOMPARE(c[C::Morada], u"Rua A\r\n4000 Porto"_s);
        QCOMPARE((QStringList{c[C::Dia], c[C::Mes], c[C::Ano]}), (QStringList{u"4"_s, u"3"_s, u"1975"_s}));
        QCOMPARE(c[C::Obs], u"uma nota"_s);
        QCOMPARE(linha.lido.Grupo, u"Família"_s);
    }

    void uma_coluna_desconhecida_vai_para_obs_com_o_seu_nome()
    {
        QCOMPARE(Linha("Nome;Signo;Company\nAna;Touro;Firma\n").lido.linhas,
                 (QStringList{u"Signo: Touro"_s, u"Company: Firma"_s}));
        QCOMPARE(Linha("Nome;Telefone\nAna;1;sobra\n").lido.linhas, QStringList{u"3: sobra"_s});
    }

    void sem_linha_de_nomes_cada_celula_vai_para_obs_com_o_seu_numero()
    {
        QCOMPARE(Linha("Ana,912345678\n").lido.linhas, (QStringList{u"1: Ana"_s, u"2: 912345678"_s}));
    }

    void o_rotulo_e_o_de_cada_linha()
    {
        const QByteArray ficheiro =
            "First Name,Phone 1 - Label,Phone 1 - Value,Phone 2 - Label,Phone 2 - Value\n"
            "Ana,Mobile,1,Work Fax,2\nRui,Work,3,Praia,4\n";
        const ColunasDoContacto ana = Linha(ficheiro).lido.colunas;
        QCOMPARE(ana[C::Telemovel1], u"1"_s);
        QCOMPARE(ana[C::Fax], u"2"_s);
        const ColunasDoContacto rui = Linha(ficheiro, 1).lido.colunas;
        QCOMPARE(rui[C::Telefone1], u"3"_s);
        QCOMPARE(rui[C::Telefone2], u"4"_s);
        QVERIFY(rui[C::Telemovel1].isEmpty());
    }

    void o_rotulo_diz_a_especie_em_muitas_palavras_data()
    {
        QTest::addColumn<QString>("rotulo");
        QTest::addColumn<int>("coluna");
        for (const char *rotulo : {"Mobile", "mobile", "Mobile Phone", "Telemóvel", "Celular"})
            QTest::newRow(rotulo) << QString::fromUtf8(rotulo) << static_cast<int>(C::Telemovel1);
        for (const char *rotulo : {"Fax", "Home Fax", "Work Fax", "Meu fax", "Télécopie (bureau)"})
            QTest::newRow(rotulo) << QString::fromUtf8(rotulo) << static_cast<int>(C::Fax);
        for (const char *rotulo : {"Home", "Work", "Casa", "Praia"})
            QTest::newRow(rotulo) << QString::fromUtf8(rotulo) << static_cast<int>(C::Telefone1);
    }
    void o_rotulo_diz_a_especie_em_muitas_palavras()
    {
        QFETCH(QString, rotulo);
        QFETCH(int, coluna);
        const QByteArray ficheiro =
            "First Name,Phone 1 - Label,Phone 1 - Value\nAna," + rotulo.toUtf8() + ",12\n";
        QCOMPARE(Colunas(ficheiro)[static_cast<C>(coluna)], u"12"_s);
    }

    void o_rotulo_e_so_do_valor_com_o_mesmo_numero_e_do_mesmo_campo()
    {
        const ContactoDaLinha linha =
            Linha("First Name,Address 1 - Label,Address 1 - Street,E-mail 1 - Label,E-mail 1 - Value,"
                  "Phone 1 - Label,Phone 1 - Value,Phone 2 - Label,Phone 2 - Value\n"
                  "Ana,Fax,Rua A,Mobile,a@b,Work,1,Mobile,2\n");
        QCOMPARE(linha.lido.colunas[C::Telefone1], u"1"_s);
        QCOMPARE(linha.lido.colunas[C::Telemovel1], u"2"_s);
        QCOMPARE(linha.lido.colunas[C::Email1], u"a@b"_s);
        QCOMPARE(linha.lido.colunas[C::Morada], u"Rua A"_s);
        QCOMPARE(linha.lido.colunas[C::Fax], QString());
        QCOMPARE(Colunas("Phone 1 - Label,Phone 1 - Value,First Name\nMobile,1,Ana\n")[C::Telemovel1],
                 u"1"_s);
    }

    void um_rotulo_numerado_nao_e_de_uma_coluna_sem_numero()
    {
        QCOMPARE(Colunas("First Name,Phone,Phone 0 - Label\nAna,12,Mobile\n")[C::Telefone1], u"12"_s);
    }

    void um_rotulo_que_diz_um_pager_manda_o_numero_para_obs()
    {
        QCOMPARE(Linha("First Name,Phone 1 - Label,Phone 1 - Value\nAna,Pager,12\n").lido.linhas,
                 QStringList{u"Pager: 12"_s});
    }

    void o_lugar_de_um_numero_que_nao_tem_coluna_fica_dito_em_obs()
    {
        for (const QByteArray lugar : {"Work", "Home"}) {
            const QStringList linhas =
                Linha("First Name,Phone 1 - Label,Phone 1 - Value\nAna," + lugar + ",1 ::: 2 ::: 3\n")
                    .lido.linhas;
            QCOMPARE(linhas.size(), 1);
            QVERIFY2(linhas.front().endsWith(u" (%1): 3"_s.arg(QString::fromLatin1(lugar.toLower()))),
                     qPrintable(linhas.front()));
        }
    }

    void um_telefone_so_e_telemovel_onde_os_telemoveis_nao_tem_coluna()
    {
        QCOMPARE(Colunas("Nome;Telefone\nAna;912345678\n")[C::Telemovel1], u"912345678"_s);
        const ColunasDoContacto c = Colunas("Nome;Telefone;Telemóvel\nAna;912345678;\n");
        QCOMPARE(c[C::Telefone1], u"912345678"_s);
        QVERIFY(c[C::Telemovel1].isEmpty());
    }

    void varios_valores_numa_celula_separam_se()
    {
        const ColunasDoContacto c =
            Colunas("First Name,E-mail 1 - Value,Phone 1 - Value\nAna,a@b ::: c@d,211 ::: 212\n");
        QCOMPARE(c[C::Email1], u"a@b"_s);
        QCOMPARE(c[C::Email2], u"c@d"_s);
        QCOMPARE(c[C::Telefone2], u"212"_s);
        const ContactoDaLinha linha =
            Linha("First Name,Web Page,Categories,Address,Mobile Phone,Home Fax,Notes\n"
                  "Ana,x.pt ::: y.pt,Um ::: Dois,Rua A ::: Rua B,911 ::: 912,"
                  "213 ::: 214,uma ::: nota\n");
        QCOMPARE(linha.lido.colunas[C::Website], u"x.pt"_s);
        QCOMPARE(linha.lido.colunas[C::Morada], u"Rua A"_s);
        QCOMPARE(linha.lido.colunas[C::Telemovel2], u"912"_s);
        QCOMPARE(linha.lido.colunas[C::Fax], u"213"_s);
        QVERIFY(linha.lido.colunas[C::Obs].startsWith(u"uma ::: nota\r\n"_s));
        QCOMPARE(linha.lido.linhas, (QStringList{u"Fax: 214"_s, u"Website: y.pt"_s, u"Address: Rua B"_s,
                                                 u"Categories: Um, Dois"_s}));
    }

    void um_numero_em_notacao_cientifica_recusa_se_e_avisa_se()
    {
        const ContactoDaLinha linha = Linha("Nome;Telefone\nAna;3,51912E+11\n");
        QCOMPARE(linha.estragados, QStringList{u"3,51912E+11"_s});
        QVERIFY(linha.lido.colunas[C::Telefone1].isEmpty());
        QVERIFY(linha.lido.colunas[C::Obs].isEmpty());
        for (const char *campo : {"Telemóvel", "Fax"})
            QCOMPARE(Linha("Nome;" + QByteArray(campo) + "\nAna;3,51912E+11\n").estragados,
                     QStringList{u"3,51912E+11"_s});
        const ContactoDaLinha nota = Linha("Nome;Notas\nAna;3,51912E+11\n");
        QVERIFY(nota.estragados.isEmpty());
        QCOMPARE(nota.lido.colunas[C::Obs], u"3,51912E+11"_s);
    }

    void as_datas_leem_se_na_ordem_da_sua_coluna_ou_na_escolhida()
    {
        const QByteArray ficheiro = "Nome;Aniversário\nAna;4/3/75\nRui;12/31/75\n";
        QCOMPARE(Linha(ficheiro).lido.colunas[C::Mes], u"4"_s);
        const CsvTable tabela = readCsv(ficheiro);
        MapaDaTabela mapa = MapaDaTabela::Proposto(tabela.rows.front(), CsvHeaders());
        mapa.ordem = DateOrder::DayFirst;
        const ContactosDaTabela contactos(tabela, mapa, {u"InglesUK"_s, DateOrder::MonthFirst, este_ano, {}});
        QCOMPARE(contactos.Quantos(), std::size_t{2});
        QCOMPARE(contactos.Ler(0).lido.colunas[C::Mes], u"3"_s);
        QCOMPARE(contactos.Ler(1).lido.linhas, QStringList{u"Birthday: 12/31/75"_s});
    }

    void uma_data_em_partes_junta_se_e_uma_de_zeros_nao_e_nenhuma()
    {
        const QByteArray nomes = "First Name,Birth Year,Birth Month,Birth Day\n";
        const ColunasDoContacto c = Colunas(nomes + "Ana,1975,03,04\n");
        QCOMPARE((QStringList{c[C::Dia], c[C::Mes], c[C::Ano]}), (QStringList{u"4"_s, u"3"_s, u"1975"_s}));
        QCOMPARE(Colunas(nomes + "Ana,,03,04\n")[C::Ano], QString());
        QCOMPARE(Colunas(nomes + "Ana,,03,04\n")[C::Dia], u"4"_s);
        QVERIFY(Linha("Nome;Aniversário\nAna;0/0/00\n").lido.linhas.isEmpty());
        const ColunasDoContacto dia_a_frente = Colunas("Birth Day,Birth Month,First Name\n04,03,Ana\n");
        QCOMPARE(dia_a_frente[C::Dia] + u'/' + dia_a_frente[C::Mes], u"4/3"_s);
    }

    void duas_moradas_nao_se_misturam()
    {
        const ContactoDaLinha linha = Linha("First Name,Home Street,Home City,Business Street,Business City\n"
                                            "Ana,Rua A,Porto,Rua B,Lisboa\n");
        QCOMPARE(linha.lido.colunas[C::Morada], u"Rua A\r\nPorto"_s);
        QCOMPARE(linha.lido.linhas, QStringList{u"Address (work): Rua B, Lisboa"_s});
        const ContactoDaLinha trabalho_a_frente =
            Linha("First Name,Business Street,Home Street\nAna,Rua B,Rua A\n");
        QCOMPARE(trabalho_a_frente.lido.colunas[C::Morada], u"Rua A"_s);
        QCOMPARE(trabalho_a_frente.lido.linhas, QStringList{u"Address (work): Rua B"_s});
    }

    void nenhuma_celula_se_perde()
    {
        const QStringList nomes{u"Title"_s,
                                u"First Name"_s,
                                u"Last Name"_s,
                                u"Nickname"_s,
                                u"Company"_s,
                                u"Home Phone"_s,
                                u"Home Phone 2"_s,
                                u"Business Phone"_s,
                                u"Mobile Phone"_s,
                                u"Home Fax"_s,
                                u"Business Fax"_s,
                                u"E-mail Address"_s,
                                u"E-mail 2 Address"_s,
                                u"E-mail 3 Address"_s,
                                u"Web Page"_s,
                                u"Personal Web Page"_s,
                                u"Home Street"_s,
                                u"Business Street"_s,
                                u"Notes"_s,
                                u"Categories"_s,
                                u"Photo"_s,
                                u"Sem nome"_s};
        QStringList valores;
        for (int i = 0; i < nomes.size(); ++i)
            valores << u"valor%1"_s.arg(i + 100);
        const auto &todos = Colunas((nomes.join(u',') + u'\n' + valores.join(u',') + u'\n').toUtf8()).valores;
        const QString tudo = QStringList(todos.begin(), todos.end()).join(u'\n');
        for (const QString &valor : valores)
            QVERIFY2(tudo.contains(valor), qPrintable(valor));
    }

    void o_mapa_guarda_se_pelo_conjunto_dos_nomes()
    {
        QTemporaryDir pasta;
        ReadWriteINI ini(pasta.path());
        MapasGuardados guardados(ini);
        const CsvHeaders conhecidos;
        const QStringList nomes{u"Nome"_s, u"Phone 1 - Value"_s, u"Coisa"_s};
        MapaDaTabela mapa = MapaDaTabela::Proposto(nomes, conhecidos);
        QCOMPARE(guardados.Ler(nomes, conhecidos), mapa);
        mapa.colunas[2].field = F::Street;
        mapa.colunas[2].place = CsvPlace::Work;
        mapa.ordem = DateOrder::MonthFirst;
        guardados.Guardar(nomes, mapa);
        QCOMPARE(MapasGuardados(ini).Ler(nomes, conhecidos), mapa);
        const MapaDaTabela outra_ordem =
            guardados.Ler({u"Coisa"_s, u"Nome"_s, u"Phone 1 - Value"_s}, conhecidos);
        QCOMPARE(outra_ordem.colunas, (std::vector{mapa.colunas[2], mapa.colunas[0], mapa.colunas[1]}));
        QCOMPARE(guardados.Ler({u"Nome"_s, u"Coisa"_s}, conhecidos).colunas[1].field, F::Unknown);
    }

    void a_ordem_das_datas_guarda_se_com_o_mapa()
    {
        QTemporaryDir pasta;
        ReadWriteINI ini(pasta.path());
        const CsvHeaders conhecidos;
        const QStringList nomes{u"Nome"_s, u"Aniversário"_s};
        MapaDaTabela mapa = MapaDaTabela::Proposto(nomes, conhecidos);
        for (const std::optional<DateOrder> ordem :
             {std::optional(DateOrder::DayFirst), std::optional(DateOrder::MonthFirst), std::optional<DateOrder>()}) {
            mapa.ordem = ordem;
            MapasGuardados(ini).Guardar(nomes, mapa);
            QVERIFY(MapasGuardados(ini).Ler(nomes, conhecidos).ordem == ordem);
        }
    }

    void o_mapa_de_cento_e_vinte_e_seis_colunas_ainda_se_guarda_e_um_maior_nao()
    {
        QTemporaryDir pasta;
        ReadWriteINI ini(pasta.path());
        const CsvHeaders conhecidos;
        for (const int quantas : {126, 127}) {
            QStringList nomes;
            for (int i = 0; i < quantas; ++i)
                nomes << u"coluna %1"_s.arg(i);
            MapaDaTabela mapa = MapaDaTabela::Proposto(nomes, conhecidos);
            mapa.colunas.front().field = F::Email;
            const QByteArray antes = Bytes(pasta.filePath(u"config.ini"_s));
            MapasGuardados(ini).Guardar(nomes, mapa);
            QCOMPARE(Bytes(pasta.filePath(u"config.ini"_s)) != antes, quantas == 126);
            QCOMPARE(MapasGuardados(ini).Ler(nomes, conhecidos) == mapa, quantas == 126);
        }
        MapasGuardados(ini).Guardar({u"a"_s}, {}); // which is another table's
        QCOMPARE(MapasGuardados(ini).Ler({u"a"_s}, conhecidos), MapaDaTabela::Proposto({u"a"_s}, conhecidos));
    }

    void de_um_mapa_de_que_uma_coluna_se_estragou_nao_vale_nenhuma()
    {
        QTemporaryDir pasta;
        ReadWriteINI ini(pasta.path());
        const CsvHeaders conhecidos;
        const QStringList nomes{u"Coisa"_s, u"Nome"_s};
        const CsvColumn email{F::Email, {}, 0, false};
        MapasGuardados(ini).Guardar(nomes, {{email, email}, {}});
        QFile ficheiro(pasta.filePath(u"config.ini"_s));
        QVERIFY(ficheiro.open(QIODevice::ReadWrite));
        const QByteArray antes = ficheiro.readAll();
        QVERIFY(antes.contains("?b0b0"));
        QVERIFY(ficheiro.seek(0) && ficheiro.write(QByteArray(antes).replace("?b0b0", "?z0b0")) > 0 &&
                ficheiro.flush());
        QCOMPARE(MapasGuardados(ini).Ler(nomes, conhecidos), MapaDaTabela::Proposto(nomes, conhecidos));
    }

    void um_mapa_estragado_no_ficheiro_nao_vale()
    {
        QTemporaryDir pasta;
        ReadWriteINI ini(pasta.path());
        const CsvHeaders conhecidos;
        const QStringList nomes{u"Nome"_s};
        MapasGuardados(ini).Guardar(nomes, {{CsvColumn{F::Email, {}, 0, false}}, {}});
        QCOMPARE(MapasGuardados(ini).Ler(nomes, conhecidos).colunas.front().field, F::Email);
        QFile ficheiro(pasta.filePath(u"config.ini"_s));
        QVERIFY(ficheiro.open(QIODevice::ReadWrite));
        const QByteArray antes = ficheiro.readAll();
        const QByteArray campo_a_mais = '?' + QByteArray::number(static_cast<int>(F::Photo) + 1, 36) + '0';
        const QByteArray lugar_a_mais = "?b" + QByteArray::number(static_cast<int>(CsvPlace::Other) + 1);
        for (const QByteArray &valor :
             {QByteArray("?z0"), campo_a_mais, QByteArray("?b9"), lugar_a_mais, QByteArray("?b-"),
              QByteArray("?b"), QByteArray("?b0b0"), QByteArray()}) {
            QVERIFY(ficheiro.seek(0) && ficheiro.resize(0));
            ficheiro.write(QByteArray(antes).replace("?b0", valor));
            ficheiro.flush();
            QCOMPARE(MapasGuardados(ini).Ler(nomes, conhecidos).colunas.front().field, F::FullName);
        }
    }
};

MORVEX_TESTE(TestContactosDaTabela)
#include "test_ContactosDaTabela.moc"
