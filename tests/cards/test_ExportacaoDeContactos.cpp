// Contacts that leave the book: what is in the files, and what becomes of files and book when it goes wrong.
#include "cards/ContactoDoCartao.h"
#include "cards/ContactosAoAcaso.h"
#include "cards/ContactosDaTabela.h"
#include "cards/ExportacaoDeContactos.h"
#include "cards/FotografiaDoCartao.h"
#include "cards/RotulosDoCartao.h"
#include "data/Fotografias.h"
#include "testlib/DiscoPequeno.h"
#include "testlib/FalhaDita.h"
#include "testlib/OutrosNomes.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"
#include "vcard/Cartoes.h"

#include <QBuffer>
#include <QImage>
#include <QScopeGuard>
#include <QUuid>

using namespace Qt::StringLiterals;
using C = Coluna;
using F = FormatoDeSaida;

Q_DECLARE_METATYPE(FormatoDeSaida)

namespace
{
QByteArray Bytes(const QString &caminho)
{
    QFile ficheiro(caminho);
    return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray("<none>");
}

void Por_Ficheiro(const QString &caminho, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(caminho).path());
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size())
        qFatal("no file %s", qPrintable(caminho));
}

QByteArray Imagem(QRgb cor, const char *formato = "PNG")
{
    QImage imagem(3, 2, QImage::Format_RGB32);
    imagem.fill(cor);
    QByteArray bytes;
    QBuffer ficheiro(&bytes);
    ficheiro.open(QIODevice::WriteOnly);
    imagem.save(&ficheiro, formato);
    return bytes;
}

const QByteArray cartao_guardado =
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:u-9\r\nFN:Ana\r\nTEL;TYPE=cell:911\r\nTEL;TYPE=cell:912\r\n"
    "TEL;TYPE=cell:913\r\nTEL;TYPE=cell:914\r\nX-COISA;Y=z:coi;sa\r\nEND:VCARD\r\n";

struct ComLivro {
    ComLivro() { s.Escrever(u"DELETE FROM TblLista"_s); }

    int Novo(const QString &nome, int grupo = 1, const QString &fotografia = {})
    {
        return s.Novo_Contacto({{u"Nome"_s, nome}, {u"Grupo"_s, grupo}, {u"Fotografia"_s, fotografia}});
    }

    QList<int> Todos() { return ContactosVisiveis(s.geral).Todos(); }

    QString Alvo(const QString &nome = u"saida"_s) const { return saida.filePath(nome); }

    QStringList Na_Pasta() const
    {
        return QDir(saida.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    // The whole of it, as the form does.
    void Exportar(PedidoDeSaida pedido)
    {
        ExportacaoDeContactos exportacao(s.geral, std::move(pedido));
        while (!exportacao.Acabou())
            exportacao.Avancar(5);
        exportacao.Concluir();
        escritos = exportacao.Escritos();
        de_fora = exportacao.Fotografias_De_Fora();
    }

    QByteArray Exportado(F formato = F::Cartao3, bool com_fotografias = true)
    {
        Exportar({Todos(), formato, com_fotografias, false, Alvo()});
        return Bytes(Alvo());
    }

    Card Um_Cartao(F formato = F::Cartao3, bool com_fotografias = true)
    {
        const CardFile ficheiro = CardReader().read(Exportado(formato, com_fotografias));
        if (ficheiro.cards.size() != 1) qFatal("%zu cards and not one", ficheiro.cards.size());
        return ficheiro.cards.front();
    }

    Sistema s;
    QTemporaryDir saida;
    int escritos = 0;
    int de_fora = 0;
};

// What is read fills the columns of its kind from the first on.
ColunasDoContacto Sem_Buracos(ColunasDoContacto colunas)
{
    const auto juntar = [&](const auto &especie) {
        QStringList valores;
        for (const C coluna : especie)
            if (!colunas[coluna].isEmpty()) valores << std::exchange(colunas[coluna], QString());
        for (std::size_t i = 0; i < static_cast<std::size_t>(valores.size()); ++i)
            colunas[especie[i]] = valores[static_cast<qsizetype>(i)];
    };
    juntar(ColunasDoContacto::telefones);
    juntar(ColunasDoContacto::telemoveis);
    juntar(ColunasDoContacto::emails);
    return colunas;
}

std::vector<ContactoLido> Lidos(const QByteArray &bytes, F formato, const QStringList &grupos,
                                const QString &idioma)
{
    std::vector<ContactoLido> lidos;
    const GruposDaImportacao da_importacao{grupos, {}, false};
    if (formato == F::Cartao3 || formato == F::Cartao4) {
        const CardFile ficheiro = CardReader().read(bytes);
        if (!ficheiro.faults.empty()) qFatal("faults in the file");
        for (const Card &cartao : ficheiro.cards)
            lidos.push_back(ContactoDoCartao(idioma, da_importacao).Ler(cartao));
        return lidos;
    }
    const CsvTable tabela = readCsv(bytes);
    if (!tabela.hasHeader) qFatal("no header");
    const MapaDaTabela mapa = MapaDaTabela::Proposto(tabela.rows.front(), CsvHeaders());
    const ContactosDaTabela contactos(tabela, mapa, {idioma, DateOrder::DayFirst, 2026, da_importacao});
    for (std::size_t i = 0; i < contactos.Quantos(); ++i)
        lidos.push_back(contactos.Ler(i).lido);
    return lidos;
}
} // namespace

class TestExportacaoDeContactos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mil_contactos_de_todas_as_letras_voltam_iguais_data()
    {
        QTest::addColumn<FormatoDeSaida>("formato");
        QTest::addColumn<QString>("idioma");
        QTest::newRow("vCard 3.0") << F::Cartao3 << u"PortuguesPT"_s;
        QTest::newRow("vCard 4.0") << F::Cartao4 << u"PortuguesPT"_s;
        QTest::newRow("outros") << F::TabelaOutros << u"PortuguesPT"_s;
        for (const QString &idioma : rotulos_do_cartao::Idiomas())
            QTest::newRow(qPrintable(u"Excel, "_s + idioma)) << F::TabelaExcel << idioma;
    }
    void mil_contactos_de_todas_as_letras_voltam_iguais()
    {
        QFETCH(FormatoDeSaida, formato);
        QFETCH(QString, idioma);
        const bool e_cartao = formato == F::Cartao3 || formato == F::Cartao4;
        ComLivro c;
        c.s.geral.IdiomaActual = idioma;
        const QStringList grupos{u"Amigos; bons"_s, u"Κέντρο"_s, u"=Família"_s};
        QList<int> ids;
        for (const QString &grupo : grupos)
            ids << c.s.Novo_Grupo(grupo);
        ContactosAoAcaso acaso(16);
        std::map<QString, std::pair<ColunasDoContacto, QByteArray>>
            livro; // by the UID of the test: the order
        QList<int> contactos;
        std::vector<ColunasDoContacto> originais;
        std::vector<QByteArray> imagens;
        QStringList grupo_de;
        c.s.geral.de.Juntar([&] {
            for (int i = 0; i < 1000; ++i) {
                ColunasDoContacto colunas = acaso.Um();
                QByteArray imagem;
                if (i % 4 == 0) {
                    imagem = Imagem(qRgb(i % 256, i / 256, 7), i % 8 == 0 ? "PNG" : "JPG");
                    colunas[C::Fotografia] = fotografia_do_cartao::Nome(imagem);
                    FotografiasDaBase(c.s.geral.de).Guardar(colunas[C::Fotografia], imagem);
                } else if (i % 4 == 1) {
                    imagem = Imagem(qRgb(i % 256, i / 256, 8));
                    colunas[C::Fotografia] = u"fotos\\%1.png"_s.arg(i); // as older data parts its folders
                    Por_Ficheiro(c.s.Ficheiro(u"fotos/%1.png"_s.arg(i)), imagem);
                }
                const qsizetype grupo = acaso.Ate(2);
                const auto &v = colunas.valores;
                c.s.geral.de.Executar("cmdAdicionarNome",
                                      {v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10],
                                       v[11], v[12], v[13], v[14], v[15], ids[grupo]});
                originais.push_back(colunas);
                imagens.push_back(imagem);
                grupo_de << grupos[grupo];
            }
        });
        const int ultimo = c.s.Ultimo_Id(u"TblLista"_s);
        for (int i = 0; i < 1000; ++i)
            contactos << ultimo - 999 + i;
        c.Exportar({contactos, formato, true, false, c.Alvo()});
        QCOMPARE(c.escritos, 1000);
        QCOMPARE(c.de_fora, 0);
        const std::vector<ContactoLido> lidos = Lidos(Bytes(c.Alvo()), formato, grupos, idioma);
        QCOMPARE(lidos.size(), originais.size());
        for (std::size_t i = 0; i < lidos.size(); ++i) {
            ColunasDoContacto esperadas = Sem_Buracos(originais[i]);
            esperadas[C::Fotografia] =
                e_cartao && !imagens[i].isEmpty() ? fotografia_do_cartao::Nome(imagens[i]) : QString();
            QCOMPARE(lidos[i].colunas.valores, esperadas.valores);
            QCOMPARE(lidos[i].Grupo, grupo_de[static_cast<qsizetype>(i)]);
            QCOMPARE(lidos[i].Fotografia, e_cartao ? imagens[i] : QByteArray());
        }
    }

    void uma_linha_para_outros_programas_diz_os_rotulos_e_a_data_como_eles()
    {
        ComLivro c;
        c.s.Novo_Contacto({{u"Nome"_s, u"Ana Maria Sá"_s},
                           {u"Telefone2"_s, u"211"_s},
                           {u"Dia"_s, u"4"_s},
                           {u"Mes"_s, u"3"_s},
                           {u"Grupo"_s, 1}});
        c.s.Novo_Contacto({{u"Nome"_s, u"Rui"_s},
                           {u"Fax"_s, u"213"_s},
                           {u"Dia"_s, u"14"_s},
                           {u"Mes"_s, u"12"_s},
                           {u"Ano"_s, u"1975"_s},
                           {u"Grupo"_s, 1}});
        const std::vector<QStringList> linhas = readCsv(c.Exportado(F::TabelaOutros)).rows;
        const auto celula = [&](std::size_t linha, const QString &nome) {
            return linhas[linha].value(linhas[0].indexOf(nome));
        };
        QCOMPARE(celula(1, u"First Name"_s), u"Ana Maria"_s);
        QCOMPARE(celula(1, u"Last Name"_s), u"Sá"_s);
        QCOMPARE(celula(1, u"Phone 1 - Label"_s), QString()); // no number, no label
        QCOMPARE(celula(1, u"Phone 2 - Label"_s), u"Work"_s);
        QCOMPARE(celula(1, u"Birthday"_s), u"--03-04"_s);
        QCOMPARE(celula(2, u"First Name"_s), u"Rui"_s);
        QCOMPARE(celula(2, u"Last Name"_s), QString());
        QCOMPARE(celula(2, u"Phone 3 - Label"_s), u"Home Fax"_s);
        QCOMPARE(celula(2, u"Birthday"_s), u"1975-12-14"_s);
    }

    void um_cartao_guardado_sai_com_o_que_nao_tem_coluna_na_versao_pedida()
    {
        ComLivro c;
        const int id = c.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s},
                                          {u"Telemovel1"_s, u"999"_s},
                                          {u"Telemovel2"_s, u"912"_s},
                                          {u"Telemovel3"_s, u"913"_s},
                                          {u"Grupo"_s, 1}});
        CartoesGuardados(c.s.geral.de).Guardar({QString::number(id), u"u-9"_s, cartao_guardado});
        for (const auto &[formato, versao] :
             {std::pair(F::Cartao3, CardVersion::V30), std::pair(F::Cartao4, CardVersion::V40)}) {
            const Card cartao = c.Um_Cartao(formato);
            QCOMPARE(cartao.version(), versao);
            QStringList telefones = Valores(contentOf(cartao).phones);
            telefones.sort();
            QCOMPARE(telefones, (QStringList{u"912"_s, u"913"_s, u"914"_s, u"999"_s}));
            QCOMPARE(cartao.first("X-COISA")->rawValue(), QByteArray("coi;sa"));
            QCOMPARE(contentOf(cartao).uid, u"u-9"_s);
        }
        QCOMPARE(CartoesGuardados(c.s.geral.de).Ler(QString::number(id))->cartao, cartao_guardado);
    }

    void um_contacto_sem_uid_recebe_um_que_fica_lembrado()
    {
        ComLivro c;
        const int ana = c.Novo(u"Ana"_s);
        const QString uid = contentOf(c.Um_Cartao()).uid.value_or(QString());
        QVERIFY(!QUuid::fromString(uid).isNull());
        QCOMPARE(CartoesGuardados(c.s.geral.de).Ler(QString::number(ana))->UID, uid);
        QCOMPARE(contentOf(c.Um_Cartao(F::Cartao4)).uid, uid);
        c.Novo(u"Rui"_s);
        const CardFile dois = CardReader().read(c.Exportado());
        QCOMPARE(contentOf(dois.cards[0]).uid, uid);
        QVERIFY(contentOf(dois.cards[1]).uid != uid);
    }

    void um_cartao_guardado_sem_uid_recebe_um_e_fica_como_estava()
    {
        ComLivro c;
        const QString ana = QString::number(c.Novo(u"Ana"_s));
        const QByteArray sem = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ana\r\nX-COISA:1\r\nEND:VCARD\r\n";
        CartoesGuardados(c.s.geral.de).Guardar({ana, {}, sem});
        const Card cartao = c.Um_Cartao();
        const auto guardado = CartoesGuardados(c.s.geral.de).Ler(ana);
        QVERIFY(!guardado->UID.isEmpty());
        QCOMPARE(contentOf(cartao).uid, guardado->UID);
        QCOMPARE(guardado->cartao, sem);
        QVERIFY(cartao.first("X-COISA") != nullptr);
    }

    void uma_base_que_nao_se_escreve_exporta_sem_uid_novo()
    {
        ComLivro c;
        const QString ana = QString::number(c.Novo(u"Ana"_s));
        CartoesGuardados(c.s.geral.de).Guardar({ana, u"u-1"_s, {}});
        c.Novo(u"Rui"_s);
        c.s.geral.de.Fechar_Ligacao();
        QVERIFY(QFile::setPermissions(c.s.Base(), QFile::Permissions(0x4444)));
        QVERIFY(QFile::setPermissions(c.s.Pasta(), QFile::Permissions(0x5555)));
        QVERIFY(QFile::setPermissions(c.saida.path(), QFile::Permissions(0x7777)));
        const auto arrumar =
            qScopeGuard([&] { QFile::setPermissions(c.s.Pasta(), QFile::Permissions(0x7755)); });
        const SemPrivilegios ninguem;
        if (!ninguem.Possivel()) QSKIP("this machine keeps its rights");
        c.s.geral.de.Reabrir_Ligacao();
        const CardFile dois = CardReader().read(c.Exportado());
        QCOMPARE(dois.cards.size(), std::size_t{2});
        QCOMPARE(contentOf(dois.cards[0]).uid, u"u-1"_s);
        QVERIFY(!contentOf(dois.cards[1]).uid);
    }

    void o_proprio_livro_nunca_e_o_alvo()
    {
        SO_NUM_FICHEIRO("a server's book is no file");
        ComLivro c;
        c.Novo(u"Ana"_s);
        const auto exportar = [&] { c.Exportar({c.Todos(), F::Cartao3, true, false, c.s.Base()}); };
        VERIFICAR_FALHA(exportar(), Failure::PathFileAccess);
        QCOMPARE(teste::Falha_Dita(exportar), (QStringList{c.s.Base(), u"The book itself can't be replaced"_s}));
        QCOMPARE(c.Todos().size(), qsizetype{1});
    }

    void sem_fotografias_nenhum_cartao_leva_uma()
    {
        ComLivro c;
        Por_Ficheiro(c.s.Ficheiro(u"fotos/a.png"_s), Imagem(1));
        c.Novo(u"Ana"_s, 1, u"fotos/a.png"_s);
        QVERIFY(c.Um_Cartao().first("PHOTO") != nullptr);
        QVERIFY(c.Um_Cartao(F::Cartao3, false).first("PHOTO") == nullptr);
        QCOMPARE(c.de_fora, 0);

        const QByteArray com = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:u\r\nFN:Ana\r\nPHOTO;ENCODING=b;TYPE=PNG:" +
                               Imagem(1).toBase64() + "\r\nX-COISA:1\r\nEND:VCARD\r\n";
        CartoesGuardados(c.s.geral.de).Guardar({QString::number(c.Todos()[0]), u"u"_s, com});
        const Card cartao = c.Um_Cartao(F::Cartao3, false);
        QVERIFY(cartao.first("PHOTO") == nullptr);
        QVERIFY(cartao.first("X-COISA") != nullptr);
    }

    // What follows the end of a picture is nothing to it.
    void uma_fotografia_de_onze_megabytes_ainda_vai_e_de_um_byte_a_mais_nao()
    {
        constexpr qint64 maior = 11 * 1024 * 1024;
        for (const qint64 bytes : {maior, maior + 1}) {
            ComLivro c;
            Por_Ficheiro(c.s.Ficheiro(u"fotos/a.png"_s), Imagem(1));
            QVERIFY(QFile::resize(c.s.Ficheiro(u"fotos/a.png"_s), bytes));
            c.Novo(u"Ana"_s, 1, u"fotos/a.png"_s);
            QCOMPARE(c.Um_Cartao().first("PHOTO") != nullptr, bytes == maior);
            QCOMPARE(c.de_fora, bytes == maior ? 0 : 1);
        }
    }

    void uma_fotografia_que_nao_se_le_conta_se_e_o_cartao_sai_sem_ela()
    {
        ComLivro c;
        Por_Ficheiro(c.s.Ficheiro(u"fotos/a.png"_s), "root:x:0:0");
        QCOMPARE(outros_nomes::Fazer_Tubo(c.s.Ficheiro(u"fotos/cano.png"_s)), outros_nomes::ha_tubos);
        for (const QString &fotografia :
             {u"fotos/a.png"_s, u"fotos/nada.png"_s, u"fotos/cano.png"_s, u"fotos"_s, u"bd:0000.png"_s})
            c.Novo(u"Ana"_s, 1, fotografia);
        const QByteArray bytes = c.Exportado();
        QCOMPARE(c.de_fora, 5);
        QCOMPARE(c.escritos, 5);
        QVERIFY(!bytes.contains("PHOTO"));
        QVERIFY(!bytes.contains("root") && !bytes.contains("cm9vd")); // in base64
    }

    void so_saem_os_contactos_dos_grupos_que_o_utilizador_ve()
    {
        ComLivro c;
        c.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        const int rui = c.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        c.s.Entrar(u"Ana"_s);
        const int dele = c.s.Novo_Grupo(u"Do Rui"_s, rui);
        const int visto = c.Novo(u"Visto"_s);
        const int escondido = c.Novo(u"Escondido"_s, dele);
        QCOMPARE(c.Todos(), QList<int>{visto});
        QVERIFY(ContactosVisiveis(c.s.geral).Do_Grupo(dele).isEmpty());
        QCOMPARE(ContactosVisiveis(c.s.geral).Do_Grupo(1), QList<int>{visto});
        // Asked for all the same, and one that is gone.
        c.Exportar({{escondido, 9999, visto}, F::Cartao3, true, false, c.Alvo()});
        QCOMPARE(c.escritos, 1);
        QCOMPARE(Nomes(CardReader().read(Bytes(c.Alvo()))), QStringList{u"Visto"_s});
    }

    void avanca_um_contacto_pelo_menos_e_todos_se_ha_tempo()
    {
        ComLivro c;
        for (const auto &nome : {u"Ana"_s, u"Rui"_s, u"Eva"_s})
            c.Novo(nome);
        ExportacaoDeContactos exportacao(c.s.geral, {c.Todos(), F::Cartao3, true, false, c.Alvo()});
        QCOMPARE(exportacao.Quantos(), 3);
        exportacao.Avancar(0);
        QCOMPARE(exportacao.Feitos(), 1);
        exportacao.Avancar(60'000);
        QVERIFY(exportacao.Acabou());
        QCOMPARE(exportacao.Escritos(), 3);
    }

    void um_ficheiro_que_la_estava_e_substituido_inteiro_e_so_no_fim()
    {
        ComLivro c;
        c.Novo(u"Ana"_s);
        Por_Ficheiro(c.Alvo(), "velho");
        {
            ExportacaoDeContactos exportacao(c.s.geral, {c.Todos(), F::Cartao3, true, false, c.Alvo()});
            exportacao.Avancar(1000);
            QVERIFY(exportacao.Acabou());
            QCOMPARE(Bytes(c.Alvo()), QByteArray("velho"));
        }
        QCOMPARE(Bytes(c.Alvo()), QByteArray("velho")); // given up
        QCOMPARE(c.Na_Pasta(), QStringList{u"saida"_s});
        QVERIFY(c.Exportado().startsWith("BEGIN:VCARD"));
        QCOMPARE(c.Na_Pasta(), QStringList{u"saida"_s});
    }

    void um_disco_cheio_deixa_o_ficheiro_velho_e_nada_mais()
    {
        for (const F formato : {F::Cartao3, F::TabelaExcel}) {
            ComLivro c;
            for (int i = 0; i < 500; ++i)
                c.Novo(u"Contacto %1"_s.arg(i));
            DiscoPequeno disco(16);
            if (!disco.Montado()) QSKIP("No disk can be mounted here");
            const QString alvo = disco.Ficheiro(u"saida"_s);
            Por_Ficheiro(alvo, "velho");
            VERIFICAR_FALHA(c.Exportar({c.Todos(), formato, true, false, alvo}), Failure::PathFileAccess);
            QCOMPARE(Bytes(alvo), QByteArray("velho"));
            QCOMPARE(QDir(disco.Pasta()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                     QStringList{u"saida"_s});
            QCOMPARE(c.Todos().size(), qsizetype{500});
        }
    }
};

int main(int argc, char **argv)
{
    DiscoPequeno::Preparar();
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    TestExportacaoDeContactos testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_ExportacaoDeContactos.moc"
