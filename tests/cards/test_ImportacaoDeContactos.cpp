// What a foreign file would bring to the book, before anything is written.
#include "cards/ImportacaoDeContactos.h"

#include "cards/EscolhasGuardadas.h"
#include "data/CartoesGuardados.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QBuffer>
#include <QImage>

using namespace Qt::StringLiterals;
using C = Coluna;
using V = Veredicto;
using E = Escolha;
using Que = FaltaDaFonte::Que;

namespace
{
QByteArray Cartao(const QByteArray &linhas)
{
    return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + linhas + "\r\nEND:VCARD\r\n";
}

// A book with Ana in a shared group, and a reading of a file against it.
struct ComAgenda {
    ComAgenda()
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        ana = s.Novo_Contacto({{u"Nome"_s, u"Ana Silva"_s},
                               {u"Telemovel1"_s, u"912 345 678"_s},
                               {u"Email1"_s, u"ana@exemplo.pt"_s},
                               {u"Grupo"_s, 1}});
    }

    ImportacaoDeContactos &Ler(const QByteArray &bytes, const GruposDaImportacao &grupos = {})
    {
        importacao.emplace(s.geral.de, s.geral.SessaoActual.IdUtilizador, u"PortuguesPT"_s);
        importacao->Abrir_Cartoes(bytes, codificacao, grupos);
        while (importacao->Avancar()) {
        }
        return *importacao;
    }

    // The only contact of that card.
    const ContactoAImportar &Um(const QByteArray &linhas)
    {
        Ler(Cartao(linhas));
        if (importacao->Contactos().size() != 1) qFatal("not one contact");
        return importacao->Contactos().front();
    }

    Sistema s;
    int ana = 0;
    QByteArray codificacao;
    std::optional<ImportacaoDeContactos> importacao;
};

CsvTable Tabela(const QByteArray &bytes) { return readCsv(bytes); }

ContactoAImportar Julgado(V veredicto, std::size_t quantos, E escolha, std::size_t com)
{
    ContactoAImportar contacto;
    contacto.veredicto = veredicto;
    contacto.quem.resize(quantos);
    contacto.escolha = escolha;
    contacto.com = com;
    return contacto;
}
} // namespace

class TestImportacaoDeContactos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_contacto_tem_o_seu_veredicto_data()
    {
        QTest::addColumn<QByteArray>("linhas");
        QTest::addColumn<V>("veredicto");
        QTest::addColumn<E>("escolha");
        QTest::newRow("the same") << QByteArray("FN:Ana Silva\r\nTEL;TYPE=CELL:+351912345678") << V::Igual
                                  << E::Saltar;
        QTest::newRow("completes") << QByteArray("FN:Ana Silva\r\nTEL;TYPE=CELL:+351912345678\r\nURL:ana.pt")
                                   << V::Completa << E::Juntar;
        QTest::newRow("perhaps") << QByteArray("FN:Outra Gente\r\nTEL;TYPE=CELL:+351912345678") << V::Talvez
                                 << E::Novo;
        QTest::newRow("new") << QByteArray("FN:Rui Costa\r\nTEL;TYPE=CELL:+351966666666") << V::Novo
                             << E::Novo;
    }
    void cada_contacto_tem_o_seu_veredicto()
    {
        QFETCH(QByteArray, linhas);
        ComAgenda c;
        const ContactoAImportar &contacto = c.Um(linhas);
        QTEST(contacto.veredicto, "veredicto");
        QTEST(contacto.escolha, "escolha");
        if (contacto.veredicto != V::Novo)
            QCOMPARE(c.importacao->Quem(contacto.quem.at(0)).ID, QString::number(c.ana));
        else
            QVERIFY(contacto.quem.empty());
    }

    void ler_nao_escreve_nada()
    {
        ComAgenda c;
        const QStringList antes = c.s.Linhas(u"SELECT * FROM TblLista"_s);
        const auto marca = c.s.geral.de.Marca();
        c.Ler(Cartao("FN:Rui\r\nCATEGORIES:Novidade") + Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt"),
              {{}, {}, true});
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblLista"_s), antes);
        QVERIFY(c.s.geral.de.Marca() == marca);
    }

    void so_se_compara_com_quem_o_utilizador_ve()
    {
        ComAgenda c;
        c.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const int eva = c.s.Novo_Utilizador(u"Eva"_s, u"x"_s);
        const int da_eva = c.s.Novo_Grupo(u"Da Eva"_s, eva);
        const int rita = c.s.Novo_Contacto(
            {{u"Nome"_s, u"Rita Sol"_s}, {u"Email1"_s, u"rita@sol.pt"_s}, {u"Grupo"_s, da_eva}});
        const QByteArray cartao("FN:Rita Sol\r\nEMAIL:rita@sol.pt");
        c.s.Entrar(u"Rui"_s);
        QCOMPARE(c.Um(cartao).veredicto, V::Novo);
        c.s.Entrar(u"Eva"_s);
        QCOMPARE(c.Um(cartao).veredicto, V::Igual);
        QCOMPARE(c.importacao->Quem(c.Um(cartao).quem.at(0)).ID, QString::number(rita));
    }

    void o_UID_de_um_cartao_guardado_reconhece_se_sob_outro_nome()
    {
        ComAgenda c;
        CartoesGuardados(c.s.geral.de).Guardar({QString::number(c.ana), u"abc-1"_s, "BEGIN:VCARD"});
        QCOMPARE(c.Um("UID:abc-1\r\nFN:Ana Casada\r\nTEL;TYPE=HOME:213333333").veredicto, V::Completa);
        QCOMPARE(c.Um("UID:abc-2\r\nFN:Ana Casada\r\nTEL;TYPE=HOME:213333333").veredicto, V::Novo);
    }

    // A telephone exports its own copy and that of its card.
    void a_mesma_pessoa_duas_vezes_no_ficheiro_e_uma()
    {
        ComAgenda c;
        const QByteArray rui = Cartao("FN:Rui Costa\r\nTEL;TYPE=CELL:966666666");
        const auto &contactos =
            c.Ler(rui + rui + Cartao("FN:Rui Costa\r\nTEL;TYPE=CELL:966666666\r\nURL:rui.pt")).Contactos();
        QCOMPARE(contactos.size(), 3u);
        QCOMPARE(contactos[0].veredicto, V::Novo);
        QCOMPARE(contactos[1].veredicto, V::Igual);
        QCOMPARE(contactos[2].veredicto, V::Completa);
        const auto quem = c.importacao->Quem(contactos[2].quem.at(0));
        QVERIFY(quem.ID.isEmpty());
        QCOMPARE(quem.contacto, 0u);
    }

    void quem_ja_foi_completado_nao_se_completa_outra_vez()
    {
        ComAgenda c;
        const QByteArray ana = Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt");
        const auto &contactos = c.Ler(ana + ana).Contactos();
        QCOMPARE(contactos[0].veredicto, V::Completa);
        QCOMPARE(contactos[1].veredicto, V::Igual);
        // What is shown is still what changes in the book.
        const Decisao fica = c.importacao->Como_Fica(contactos[0]);
        QCOMPARE(fica.preenchidas, std::vector{C::Website});
        QCOMPARE(fica.completado[C::Telemovel1], u"912 345 678"_s);
    }

    void como_fica_segue_a_escolha()
    {
        ComAgenda c;
        c.Um("FN:Outra Gente\r\nTEL;TYPE=CELL:912345678\r\nURL:outra.pt");
        ContactoAImportar &contacto = c.importacao->Contactos().front();
        QCOMPARE(c.importacao->Como_Fica(contacto).completado[C::Nome], u"Outra Gente"_s);
        contacto.escolha = E::Juntar;
        const Decisao fica = c.importacao->Como_Fica(contacto);
        QCOMPARE(fica.completado[C::Nome], u"Ana Silva"_s);
        QCOMPARE(fica.completado[C::Website], u"outra.pt"_s);
        QCOMPARE(fica.preenchidas, std::vector{C::Website});
    }

    // Faults

    void as_faltas_dizem_a_sua_linha()
    {
        ComAgenda c;
        c.Ler("lixo\r\n" + Cartao("FN:Rui") + "BEGIN:VCARD\r\nEND:VCARD\r\nBEGIN:VCARD\r\nFN:Sem Fim\r\n");
        const std::vector<FaltaDaFonte> esperadas{
            {1, Que::ForaDeCartao, {}}, {6, Que::Vazio, {}}, {8, Que::SemFim, {}}};
        QVERIFY(c.importacao->Faltas() == esperadas);
        QCOMPARE(c.importacao->Contactos().size(), 2u);
    }

    void um_cartao_sem_nome_toma_o_que_se_sabe()
    {
        ComAgenda c;
        QCOMPARE(c.Um("FN:\r\nURL:sem-nome.pt").fonte.lido.colunas[C::Nome], u"sem-nome.pt"_s);
        c.Ler(Cartao("FN:\r\nX-NADA:"));
        QVERIFY(c.importacao->Contactos().empty());
        QCOMPARE(c.importacao->Faltas().size(), 1u);
    }

    void quem_nao_tem_nome_chama_se_pelo_primeiro_que_se_sabe_data()
    {
        QTest::addColumn<QByteArray>("linhas");
        QTest::addColumn<QString>("nome");
        // Each line is only looked at where those above are not there.
        const QByteArrayList linhas{"NOTE:nota\\nda segunda linha", "ADR:;;Rua A\\nCasa 2;;;;", "URL:a.pt",
                                    "TEL;TYPE=FAX:213333333"};
        const QStringList nomes{u"nota"_s, u"Rua A"_s, u"a.pt"_s, u"213333333"_s};
        QByteArray todas;
        for (qsizetype i = 0; i < linhas.size(); ++i) {
            todas += "\r\n" + linhas[i];
            QTest::newRow(qPrintable(nomes[i])) << QByteArray("FN:") + todas << nomes[i];
        }
    }
    void quem_nao_tem_nome_chama_se_pelo_primeiro_que_se_sabe()
    {
        QFETCH(QByteArray, linhas);
        ComAgenda c;
        QTEST(c.Um(linhas).fonte.lido.colunas[C::Nome], "nome");
    }

    void os_bytes_da_fotografia_ficam_so_no_cartao()
    {
        QImage imagem(2, 2, QImage::Format_RGB32);
        imagem.fill(Qt::red);
        QBuffer pontos;
        QVERIFY(pontos.open(QIODevice::WriteOnly) && imagem.save(&pontos, "PNG"));
        const QByteArray pessoa = Cartao("FN:Rui\r\nUID:u1\r\nPHOTO;ENCODING=b:" + pontos.data().toBase64());
        for (const QByteArray &grupo : {QByteArray(), Cartao("KIND:group\r\nFN:Colegas\r\nMEMBER:urn:uuid:u1")}) {
            ComAgenda c;
            const ContactoDaFonte fonte = c.Ler(pessoa + grupo, {{u"Colegas"_s}, {}, false}).Contactos().front().fonte;
            QCOMPARE(fonte.lido.Grupo, grupo.isEmpty() ? QString() : u"Colegas"_s);
            QVERIFY(fonte.lido.colunas[C::Fotografia].startsWith(u"bd:"_s));
            QVERIFY(fonte.lido.Fotografia.isEmpty());
            QCOMPARE(Fotografia_Do_Cartao(fonte.cartao, fonte.lido.colunas[C::Fotografia]), pontos.data());
        }
    }

    void o_primeiro_contacto_do_livro_tambem_se_compara()
    {
        ComAgenda c;
        c.s.Escrever(u"UPDATE TblLista SET ID = 1"_s);
        QCOMPARE(c.Um("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt").veredicto, V::Igual);
    }

    void as_escolhas_repoem_se_uma_vez_onde_ainda_servem()
    {
        EscolhasGuardadas escolhas;
        std::vector<ContactoAImportar> antes{Julgado(V::Talvez, 3, E::Juntar, 2), Julgado(V::Talvez, 3, E::Juntar, 2),
                                             Julgado(V::Novo, 0, E::Saltar, 0), Julgado(V::Novo, 0, E::Saltar, 0)};
        escolhas.Guardar({antes.front()});
        escolhas.Guardar(antes); // what was kept before is of no account
        std::vector<ContactoAImportar> lidos{Julgado(V::Talvez, 3, E::Novo, 0), Julgado(V::Talvez, 2, E::Novo, 0),
                                             Julgado(V::Novo, 0, E::Novo, 0), Julgado(V::Talvez, 1, E::Novo, 0)};
        const auto repostos = [&] {
            std::vector<std::pair<E, std::size_t>> ditos;
            for (const ContactoAImportar &contacto : lidos)
                ditos.emplace_back(contacto.escolha, contacto.com);
            return ditos;
        };
        escolhas.Repor(lidos);
        const std::vector<std::pair<E, std::size_t>> servem{{E::Juntar, 2}, {E::Novo, 0}, {E::Saltar, 0}, {E::Novo, 0}};
        QVERIFY(repostos() == servem);
        lidos.front().escolha = E::Novo;
        escolhas.Repor(lidos); // only once
        QVERIFY(repostos().front().first == E::Novo);
        escolhas.Guardar(antes);
        escolhas.Esquecer();
        escolhas.Repor(lidos);
        QVERIFY(repostos().front().first == E::Novo);
        escolhas.Guardar(antes);
        lidos.pop_back(); // another file, or another reading of it
        escolhas.Repor(lidos);
        QVERIFY(repostos().front().first == E::Novo);
    }

    void um_zero_no_meio_nao_corta_o_texto()
    {
        {
            ComAgenda c;
            c.Ler(Cartao(QByteArray("FN:Rui\r\nCATEGORIES:Xad\0rez", 26)), {{}, {}, true});
            QCOMPARE(c.importacao->Contactos().front().fonte.lido.Grupo, u"Xadrez"_s);
        }
        ComAgenda c;
        const ContactoAImportar &contacto = c.Um(QByteArray("FN:Ru\0i\r\nNOTE:antes\0depois", 26));
        QCOMPARE(contacto.fonte.lido.colunas[C::Nome], u"Rui"_s);
        QCOMPARE(contacto.fonte.lido.colunas[C::Obs], u"antesdepois"_s);
    }

    void um_nome_de_dez_mil_letras_corta_se_e_fica_inteiro_em_observacoes()
    {
        ComAgenda c;
        const QByteArray nome(10'000, 'a');
        const ContactoAImportar &contacto = c.Um("FN:" + nome);
        QCOMPARE(contacto.fonte.lido.colunas[C::Nome].size(), 55);
        QVERIFY(contacto.fonte.lido.colunas[C::Obs].contains(QString::fromLatin1(nome)));
    }

    void um_endereco_de_fotografia_nunca_se_segue_data()
    {
        QTest::addColumn<QByteArray>("endereco");
        QTest::newRow("file") << QByteArray("file:///etc/passwd");
        QTest::newRow("http") << QByteArray("http://127.0.0.1:9/eu.jpg");
        QTest::newRow("path") << QByteArray("/etc/passwd");
    }
    void um_endereco_de_fotografia_nunca_se_segue()
    {
        QFETCH(QByteArray, endereco);
        ComAgenda c;
        const ContactoLido &lido = c.Um("FN:Rui\r\nPHOTO;VALUE=uri:" + endereco).fonte.lido;
        QVERIFY(lido.colunas[C::Fotografia].isEmpty());
        QVERIFY(lido.colunas[C::Obs].contains(QString::fromLatin1(endereco)));
    }

    // A picture of 60,000 by 60,000 points in a few bytes.
    void uma_fotografia_que_rebenta_a_memoria_e_um_problema()
    {
        QByteArray bomba = QByteArray::fromBase64(
            "iVBORw0KGgoAAAANSUhEUgAA6mAAAOpgCAAAAACluSqeAAAADElEQVR4nGNgoD0AAABkAAGGZDw1AAAAAElFTkSuQmCC");
        ComAgenda c;
        const ContactoAImportar &contacto = c.Um("FN:Rui\r\nPHOTO;ENCODING=b:" + bomba.toBase64());
        QVERIFY(contacto.fonte.lido.colunas[C::Fotografia].isEmpty());
        const std::vector<FaltaDaFonte> esperadas{{1, Que::Fotografia, {}}};
        QVERIFY(c.importacao->Faltas() == esperadas);
    }

    void um_grupo_do_ficheiro_nao_e_uma_pessoa()
    {
        ComAgenda c;
        c.Ler(Cartao("KIND:group\r\nFN:Família\r\nMEMBER:urn:uuid:u1") + Cartao("FN:Rui\r\nUID:u1"),
              {{u"Familia"_s}, {}, false});
        QCOMPARE(c.importacao->Contactos().size(), 1u);
        QCOMPARE(c.importacao->Contactos()[0].fonte.lido.Grupo, u"Familia"_s);
        QVERIFY(c.importacao->Faltas().empty());
    }

    // Who is in one may stand before it, and is read as he would be without it.
    void quem_esta_num_grupo_do_ficheiro_le_se_na_codificacao_escolhida()
    {
        ComAgenda c;
        c.codificacao = "windows-1250";
        c.Ler(Cartao("FN:\x8Ei\xF8ka\r\nUID:u1\r\nNOTE:nota") +
                  Cartao("KIND:group\r\nFN:Colegas\r\nMEMBER:urn:uuid:u1") + Cartao("FN:Rui\r\nUID:u2"),
              {{u"Colegas"_s}, {}, false});
        QCOMPARE(c.importacao->Contactos().size(), 2u);
        const ContactoDaFonte &fonte = c.importacao->Contactos()[0].fonte;
        QCOMPARE(fonte.lido.Grupo, u"Colegas"_s);
        QCOMPARE(fonte.lido.colunas[C::Nome], u"Žiřka"_s);
        QCOMPARE(fonte.lido.colunas[C::Obs], u"nota"_s);
        QVERIFY(fonte.cartao.contains(u"Žiřka"_s.toUtf8()));
        QVERIFY(c.importacao->Contactos()[1].fonte.lido.Grupo.isEmpty());
    }

    // Encoding

    void a_codificacao_escolhida_vale_para_o_cartao_guardado()
    {
        ComAgenda c;
        c.codificacao = "windows-1250";
        const ContactoDaFonte &fonte = c.Um("FN:\x8Ei\x9Eka").fonte;
        QCOMPARE(fonte.lido.colunas[C::Nome], u"Žižka"_s);
        QVERIFY(fonte.cartao.contains(u"Žižka"_s.toUtf8()));
    }

    void um_cartao_guarda_se_como_estava_onde_a_codificacao_nada_lhe_muda()
    {
        ComAgenda c;
        QVERIFY(c.Um("FN:Jos\xE9").fonte.cartao.contains("Jos\xE9")); // none was chosen
        c.codificacao = "windows-1250";
        const QByteArray utf8 = u"FN:José"_s.toUtf8();
        QCOMPARE(c.Um(utf8).fonte.cartao, Cartao(utf8));
        c.codificacao = "Shift_JIS";
        const QByteArray de_nenhuma = "FN:Ana\r\nNOTE:\xFF\xFE\x80";
        QCOMPARE(c.Um(de_nenhuma).fonte.cartao, Cartao(de_nenhuma));
    }

    // Tables

    void as_faltas_de_uma_tabela_dizem_a_linha_dela_e_vem_pela_sua_ordem()
    {
        for (const bool com_nomes : {true, false}) {
            ComAgenda c;
            const QByteArray nomes = com_nomes ? "Name,Mobile Phone,Home Fax\r\n" : "";
            TabelaEscolhida tabela{Tabela(nomes + "Rui,\"1,5E+11\",\"2,5E+11\"\r\n,,\"3,5E+11\"\r\n"),
                                   {},
                                   {u"PortuguesPT"_s, DateOrder::DayFirst, 2027, {}}};
            tabela.tabela.hasHeader = com_nomes;
            tabela.mapa = MapaDaTabela::Proposto({u"Name"_s, u"Mobile Phone"_s, u"Home Fax"_s}, CsvHeaders());
            c.importacao.emplace(c.s.geral.de, u"0"_s, u"PortuguesPT"_s);
            c.importacao->Abrir_Tabela(tabela, {});
            QCOMPARE(c.importacao->Percentagem(), 0);
            while (c.importacao->Avancar()) {
            }
            const qsizetype primeira = com_nomes ? 2 : 1;
            const std::vector<FaltaDaFonte> esperadas{{primeira, Que::NumeroEstragado, u"1,5E+11"_s},
                                                      {primeira, Que::NumeroEstragado, u"2,5E+11"_s},
                                                      {primeira + 1, Que::NumeroEstragado, u"3,5E+11"_s},
                                                      {primeira + 1, Que::Vazio, {}}};
            QVERIFY(c.importacao->Faltas() == esperadas);
        }
    }

    void uma_tabela_passa_pelas_mesmas_regras()
    {
        ComAgenda c;
        TabelaEscolhida tabela{Tabela("Name,Mobile Phone,E-mail Address\r\nAna Silva,+351 912345678,\r\n"
                                      "Rui,\"3,51912E+11\",rui@x.pt\r\n,,\r\n"),
                               {},
                               {u"PortuguesPT"_s, DateOrder::DayFirst, 2027, {}}};
        tabela.mapa = MapaDaTabela::Proposto(tabela.tabela.rows.front(), CsvHeaders());
        c.importacao.emplace(c.s.geral.de, u"0"_s, u"PortuguesPT"_s);
        c.importacao->Abrir_Tabela(tabela, {});
        while (c.importacao->Avancar()) {
        }
        const auto &contactos = c.importacao->Contactos();
        QCOMPARE(contactos.size(), 2u);
        QCOMPARE(contactos[0].veredicto, V::Igual);
        QCOMPARE(contactos[1].veredicto, V::Novo);
        QVERIFY(contactos[1].fonte.cartao.isEmpty());
        QCOMPARE(c.importacao->Faltas().front().linha, 3);
        QVERIFY(c.importacao->Faltas().front().que == Que::NumeroEstragado);
        QCOMPARE(c.importacao->Faltas().front().valor, u"3,51912E+11"_s);
    }

    // Slices

    void trabalha_em_fatias_curtas()
    {
        ComAgenda c;
        QByteArray livro;
        constexpr int cartoes = 15'000; // more than a quick machine does in a few slices
        for (int i = 0; i < cartoes; ++i)
            livro +=
                Cartao("FN:Pessoa " + QByteArray::number(i) + "\r\nTEL:21" + QByteArray::number(1000000 + i));
        c.importacao.emplace(c.s.geral.de, u"0"_s, u"PortuguesPT"_s);
        c.importacao->Abrir_Cartoes(livro, {}, {});
        int fatias = 0;
        int antes = 0;
        for (bool ha_mais = true; ha_mais; ++fatias) {
            ha_mais = c.importacao->Avancar();
            QVERIFY(c.importacao->Percentagem() >= antes);
            antes = c.importacao->Percentagem();
        }
        QVERIFY(fatias > 3);
        QCOMPARE(c.importacao->Percentagem(), 100);
        QCOMPARE(c.importacao->Contactos().size(), std::size_t{cartoes});
    }

    void de_um_ficheiro_de_cartoes_toma_se_um_de_cada_vez()
    {
        QByteArray livro;
        constexpr std::size_t cartoes = 10'000;
        for (std::size_t i = 0; i < cartoes; ++i)
            livro += Cartao("FN:Pessoa " + QByteArray::number(i) + (i % 3 == 0 ? "\r\nKIND:individual" : ""));
        std::vector<FaltaDaFonte> faltas;
        FonteDeCartoes fonte(livro, {}, u"PortuguesPT"_s, {});
        QCOMPARE(fonte.Quantos(), 0u);
        std::size_t antes = 0;
        std::size_t sem_nenhum = 0; // turns that only read on
        while (fonte.Preparar(faltas)) {
            QVERIFY(fonte.Quantos() - antes <= 1);
            if (fonte.Quantos() == antes) ++sem_nenhum;
            antes = fonte.Quantos();
        }
        QCOMPARE(fonte.Quantos(), cartoes);
        constexpr std::size_t mais_de_uma_vez = 1000; // of these short ones read in a turn
        QVERIFY(sem_nenhum >= cartoes / mais_de_uma_vez);
        QCOMPARE(fonte.Ler(cartoes - 1, faltas)->lido.colunas[C::Nome], u"Pessoa 9999"_s);
    }

    // Cards that stand in one another are known only at the end of the file.
    void cartoes_sem_fim_tambem_se_tomam_um_de_cada_vez()
    {
        std::vector<FaltaDaFonte> faltas;
        FonteDeCartoes fonte(QByteArray("BEGIN:VCARD\r\nFN:Rui\r\n").repeated(50), {}, u"PortuguesPT"_s, {});
        for (std::size_t antes = 0; fonte.Preparar(faltas); antes = fonte.Quantos())
            QVERIFY(fonte.Quantos() - antes <= 1);
        QCOMPARE(fonte.Quantos(), 50u);
        QCOMPARE(faltas.size(), 50u);
    }

    void a_percentagem_anda_enquanto_o_ficheiro_se_le()
    {
        ComAgenda c;
        c.importacao.emplace(c.s.geral.de, u"0"_s, u"PortuguesPT"_s);
        c.importacao->Abrir_Cartoes(Cartao("FN:Rui\r\nNOTE:" + QByteArray(200, 'x')).repeated(20'000), {},
                                    {});
        QCOMPARE(c.importacao->Percentagem(), 0);
        bool viu_se_a_meio = false;
        while (c.importacao->Avancar())
            viu_se_a_meio =
                viu_se_a_meio || (c.importacao->Percentagem() > 0 && c.importacao->Percentagem() < 50);
        QVERIFY(viu_se_a_meio);
    }

    void um_ficheiro_vazio_nao_traz_ninguem()
    {
        ComAgenda c;
        QVERIFY(c.Ler("").Contactos().empty());
        QVERIFY(c.importacao->Faltas().empty());
        QCOMPARE(c.importacao->Percentagem(), 100);
    }
};

MORVEX_TESTE(TestImportacaoDeContactos)
#include "test_ImportacaoDeContactos.moc"
