// What the shipped definitions put on their pages when the dialogs run them over a real database: the text is
// read back from a PDF of each page.
#include "ComRelatorios.h"
#include "printing/frmEnvelope.h"
#include "printing/frmEtiquetas.h"
#include "printing/frmImprimir.h"
#include "reminders/frmTarefas.h"
#include "report/CrystalReport.h"
#include "report/ReportPages.h"
#include "report/ReportPreview.h"
#include "report/ReportPrinting.h"

#include <QFontDatabase>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
// The real report control in the place of the recording one.
struct ComPaginas : ComRelatorios {
    explicit ComPaginas(const QString &idioma = u"PortuguesPT"_s) : ComRelatorios(idioma)
    {
        const QDir enviados(qEnvironmentVariable("MORVEX_ENVIADOS"));
        for (const QString &definicao : enviados.entryList({u"*.rpt"_s}))
            QFile::copy(enviados.filePath(definicao), s.Ficheiro(definicao));
        s.Escrever(u"DELETE FROM TblLista"_s);
    }

    // Each page as lines of words, as the preview would print it.
    QList<QStringList> Paginas()
    {
        const QString pdf = s.Ficheiro(u"paginas.pdf"_s);
        writePdf(*controlo.preview()->pages(), u"x"_s, pdf, [](int, int) { return true; });
        QProcess leitor;
        leitor.start(u"pdftotext"_s, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, pdf, u"-"_s});
        leitor.waitForFinished();
        QList<QStringList> paginas;
        for (const QString &pagina : QString::fromUtf8(leitor.readAllStandardOutput()).split(u'\f')) {
            QStringList linhas;
            for (const QString &linha : pagina.split(u'\n', Qt::SkipEmptyParts))
                if (!linha.trimmed().isEmpty()) linhas << linha.simplified();
            paginas << linhas;
        }
        paginas.removeLast(); // behind the last page's end
        return paginas;
    }

    QList<QStringList> Imprimir(bool lista)
    {
        frmImprimir form(s.geral, controlo, ListaNomes);
        (lista ? form.opcoes->OptionLista : form.opcoes->OptionMemo)->click();
        form.CheckBoxPrevisualizar->setChecked(true);
        form.cmdImprimir->click();
        return Paginas();
    }
    QList<QStringList> Imprimir_Envelope(qint16 id, const QString &alimentacao = u"envelope_left"_s)
    {
        s.geral.IDContacto = id;
        s.geral.AlimentacaoEnvelopes = alimentacao;
        frmEnvelope form(s.geral, controlo);
        form.cmdImprimir->click();
        return Paginas();
    }
    // The pages of the preview that is open, as they can be asked.
    ReportPages &Previstas() const { return *controlo.preview()->pages(); }

    qint16 Contacto(const QMap<QString, Value> &colunas)
    {
        return static_cast<qint16>(s.Novo_Contacto(colunas));
    }

    CrystalReport controlo{s.caixas, s.dialogos, s.relogio, [this] { return s.geral.IdiomaActual; }};
};

// As the box names lines that are lost.
QString Ditas(const QStringList &linhas)
{
    constexpr qsizetype mais = 10;
    QStringList ditas = linhas.first(std::min(mais, linhas.size()));
    if (linhas.size() > mais) ditas << u"…"_s;
    return ditas.join("\r\n"_L1);
}

bool Ha_Leitor() { return !QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty(); }
} // namespace

class TestPaginas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
    }

    void a_lista_tem_cabecas_data_e_numero_em_cada_pagina()
    {
        ComPaginas c(u"AlemaoDE"_s);
        for (int i = 100; i < 200; ++i)
            c.Contacto({{u"Nome"_s, u"Nome %1"_s.arg(i)}, {u"Telefone1"_s, u"00%1"_s.arg(i)}});
        const QList<QStringList> paginas = c.Imprimir(true);
        QVERIFY(paginas.size() > 2);
        QString cabecas = c.s.Texto(27);
        for (const int texto : {28, 29, 0, 30, 31, 32})
            cabecas += u' ' + (texto == 0 ? u"Fax"_s : c.s.Texto(texto));
        QStringList registos;
        for (qsizetype i = 0; i < paginas.size(); ++i) {
            QCOMPARE(paginas[i].first(), cabecas);
            QCOMPARE(paginas[i].last(), u"01-02-2027 %1/%2"_s.arg(i + 1).arg(paginas.size()));
            registos << paginas[i].sliced(1, paginas[i].size() - 2);
        }
        QCOMPARE(registos.size(), 100);
        for (int i = 0; i < 100; ++i)
            QCOMPARE(registos[i], u"Nome %1 00%1"_s.arg(100 + i));
    }

    void a_lista_sem_registos_e_uma_pagina_com_as_suas_cabecas()
    {
        ComPaginas c;
        const QList<QStringList> paginas = c.Imprimir(true);
        QCOMPARE(paginas.size(), 1);
        QVERIFY(paginas[0].first().startsWith(c.s.Texto(27) + u' ' + c.s.Texto(28)));
        QCOMPARE(paginas[0].sliced(1),
                 (QStringList{u"A selecção está vazia: não há nada para imprimir."_s, u"01-02-2027 1/1"_s}));
    }

    void na_lista_os_vizinhos_nunca_se_tocam()
    {
        constexpr double folga = 150; // twips: more than a blank, less than a letter and a blank
        ComPaginas c(u"FrancesFR"_s);
        for (const auto &numero : {u"+351 21 123 45 67"_s, u"00351211234567890123456789"_s,
                                   u"MMMMMMMMMMMMMMMM"_s, u"21 000 00 00 (portaria, depois das 9)"_s})
            c.Contacto({{u"Nome"_s, u"Maria da Conceição Albuquerque e Vasconcelos de Almeida"_s},
                        {u"Telefone1"_s, numero},
                        {u"Telefone2"_s, numero},
                        {u"Fax"_s, numero},
                        {u"Telemovel1"_s, numero},
                        {u"Telemovel2"_s, numero},
                        {u"Telemovel3"_s, numero}});
        c.Imprimir(true);
        ReportPages &paginas = *c.controlo.preview()->pages();
        const double fim = paginas.paper().width() - paginas.definition().margins.right();
        const auto textos = paginas.page(0).texts();
        QVERIFY(textos.size() > 40);
        for (const auto &este : textos) {
            QVERIFY2(este.area.right() <= fim, qPrintable(este.line));
            for (const auto &outro : textos) {
                const bool ao_lado = outro.area.left() > este.area.left() &&
                                     outro.area.bottom() > este.area.top() &&
                                     outro.area.top() < este.area.bottom();
                if (ao_lado)
                    QVERIFY2(outro.area.left() - este.area.right() >= folga,
                             qPrintable(este.line + u" | "_s + outro.line));
            }
        }
    }

    void a_ficha_tem_os_rotulos_da_lingua_e_fecha_o_que_esta_vazio()
    {
        ComPaginas c(u"AlemaoDE"_s);
        const int grupo = c.s.Novo_Grupo(u"Nachbarn"_s);
        c.Contacto({{u"Nome"_s, u"Ana"_s},
                    {u"Telefone2"_s, u"219"_s},
                    {u"Email1"_s, u"ana@example.org"_s},
                    {u"Dia"_s, u"5"_s},
                    {u"Mes"_s, u"3"_s},
                    {u"Morada"_s, u"Rua A\r\n\r\nLisboa"_s},
                    {u"Fotografia"_s, u"nada.jpg"_s}, // gone since
                    {u"Obs"_s, u"uma\r\nduas"_s},
                    {u"Grupo"_s, grupo}});
        QCOMPARE(
            c.Imprimir(false),
            (QList<QStringList>{{u"Ana"_s, u"Nachbarn"_s, u"Rua A"_s, u"Lisboa"_s, c.s.Texto(29) + u" 219"_s,
                                 u"E-mail 1 ana@example.org"_s, c.s.Texto(38) + u" 5 "_s + c.s.Texto(16),
                                 u"uma"_s, u"duas"_s, u"01-02-2027 1/1"_s}}));
    }

    void uma_nota_de_100_KB_corre_por_muitas_paginas_e_nada_se_perde()
    {
        ComPaginas c;
        QStringList palavras;
        for (qsizetype i = 0; i < 13'000; ++i)
            palavras << u"p%1"_s.arg(i);
        c.Contacto({{u"Nome"_s, u"Ana"_s}, {u"Obs"_s, palavras.join(u' ')}});
        c.Contacto({{u"Nome"_s, u"Rui"_s}});
        const QList<QStringList> paginas = c.Imprimir(false);
        QVERIFY(paginas.size() > 10);
        QCOMPARE(paginas.last().first(), u"Rui"_s); // begins a page of its own
        QStringList lidas;
        for (const QStringList &pagina : paginas.first(paginas.size() - 1))
            for (const QString &linha : pagina.first(pagina.size() - 1))
                lidas << linha.split(u' ');
        QCOMPARE(lidas.count(u"Ana"_s),
                 paginas.size() - 1); // on the first page, and again on each of the others
        QCOMPARE(lidas.filter(u"p"_s), palavras);
    }

    void nomes_em_grego_cirilico_e_chines_leem_se_de_volta()
    {
        ComPaginas c;
        if (QFontDatabase::families(QFontDatabase::SimplifiedChinese).isEmpty())
            QSKIP("there is no Chinese font");
        for (const auto &nome : {u"Άννα Παπαδοπούλου"_s, u"Дмитрий Ёлкин"_s, u"王小明"_s})
            c.Contacto({{u"Nome"_s, nome}});
        const QList<QStringList> paginas = c.Imprimir(true);
        QCOMPARE(paginas.size(), 1);
        QCOMPARE(paginas[0].sliced(1, 3),
                 (QStringList{u"Άννα Παπαδοπούλου"_s, u"Дмитрий Ёлкин"_s, u"王小明"_s}));
    }

    void vao_todos_os_contactos_tambem_os_dos_grupos_de_outros()
    {
        ComPaginas c;
        const int ana = c.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        c.Contacto({{u"Nome"_s, u"De todos"_s}, {u"Grupo"_s, 1}});
        c.Contacto({{u"Nome"_s, u"Do Rui"_s}, {u"Grupo"_s, c.s.Novo_Grupo(u"Do Rui"_s, ana + 1)}});
        c.s.Entrar(u"Ana"_s);
        QCOMPARE(c.Imprimir(true)[0].sliced(1, 2), (QStringList{u"De todos"_s, u"Do Rui"_s}));
    }

    void o_envelope_tem_remetente_e_destinatario_e_fecha_linhas_vazias_data()
    {
        QTest::addColumn<QString>("alimentacao");
        for (const char *alimentacao : {"envelope_left", "envelope_center", "envelope_right"})
            QTest::newRow(alimentacao) << QString::fromLatin1(alimentacao);
    }
    // Run behind a list, whose labels and order are still in the control.
    void o_envelope_tem_remetente_e_destinatario_e_fecha_linhas_vazias()
    {
        QFETCH(QString, alimentacao);
        ComPaginas c;
        c.s.Escrever(
            u"UPDATE TblConfig SET Remetente='Zé' || char(13, 10, 13, 10) || 'Porto', Destinatario=''"_s);
        c.Contacto({{u"Nome"_s, u"Outra"_s}});
        const qint16 ana = c.Contacto({{u"Nome"_s, u"Ana"_s}, {u"Morada"_s, u"Rua A\r\n\r\nLisboa\r\n"_s}});
        c.Imprimir(true);
        QCOMPARE(c.Imprimir_Envelope(ana, alimentacao),
                 (QList<QStringList>{{u"Zé"_s, u"Porto"_s, u"Ana"_s, u"Rua A"_s, u"Lisboa"_s}}));
        c.s.Escrever(u"UPDATE TblConfig SET Destinatario='Exma. Sra.'"_s);
        QCOMPARE(c.Imprimir_Envelope(ana, alimentacao)[0].sliced(2, 2),
                 (QStringList{u"Exma. Sra."_s, u"Ana"_s}));
    }

    void um_envelope_de_dez_linhas_leva_as_todas_dentro_do_seu_lugar_data()
    {
        o_envelope_tem_remetente_e_destinatario_e_fecha_linhas_vazias_data();
    }
    void um_envelope_de_dez_linhas_leva_as_todas_dentro_do_seu_lugar()
    {
        QFETCH(QString, alimentacao);
        ComPaginas c;
        const QStringList linhas{u"Exmos. Senhores"_s,      u"Ana & Irmãos, Lda."_s,
                                 u"A/c da Contabilidade"_s, u"Edifício Atlântico"_s,
                                 u"Bloco C, 4.º Dto."_s,    u"Rua da Boavista, 1200"_s,
                                 u"Zona Industrial"_s,      u"Apartado 4011"_s,
                                 u"4100-123 PORTO"_s,       u"PORTUGAL"_s};
        c.s.Escrever(u"UPDATE TblConfig SET Remetente='"_s + linhas.join(u'\n') +
                     u"', Destinatario='%1'"_s.arg(linhas[0]));
        const qint16 ana =
            c.Contacto({{u"Nome"_s, linhas[1]}, {u"Morada"_s, linhas.sliced(2).join("\r\n"_L1)}});
        c.Imprimir_Envelope(ana, alimentacao);
        ReportPages &paginas = *c.controlo.preview()->pages();
        const ReportPage pagina = paginas.page(0);
        QCOMPARE(pagina.lines(), linhas + linhas);
        const auto envelope = std::get<ReportPage::Frame>(pagina.items[0].what).area;
        constexpr double livre_em_baixo = 850; // 15 mm
        for (const auto &texto : pagina.texts()) {
            QVERIFY(envelope.adjusted(0, 0, 0, -livre_em_baixo).contains(texto.area));
            QVERIFY(texto.font.pixelSize() >= 140); // seven points can still be read
        }
    }

    void o_que_nao_cabe_no_envelope_e_dito()
    {
        ComPaginas c;
        c.s.Escrever(u"UPDATE TblConfig SET Remetente='Zé', Destinatario=''"_s);
        QStringList linhas;
        for (int i = 10; i < 30; ++i)
            linhas << u"linha %1"_s.arg(i);
        const qint16 ana = c.Contacto({{u"Nome"_s, u"Ana"_s}, {u"Morada"_s, linhas.join("\r\n"_L1)}});
        c.s.caixas.Espera(u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:"
                          "\r\n\r\n"_s +
                              linhas.sliced(12).join("\r\n"_L1),
                          box::exclamation, u"Imprimir"_s);
        QCOMPARE(c.Imprimir_Envelope(ana)[0], QStringList({u"Zé"_s, u"Ana"_s}) + linhas.first(12));
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    void varias_fichas_por_pagina_nunca_se_partem()
    {
        ComPaginas c;
        for (int i = 10; i < 22; ++i)
            c.Contacto({{u"Nome"_s, u"Nome %1"_s.arg(i)},
                        {u"Telefone1"_s, u"21"_s},
                        {u"Obs"_s, u"nota\r\n"_s.repeated(12) + u"fim"_s}});
        frmImprimir form(c.s.geral, c.controlo, c.ListaNomes);
        form.CheckBoxPrevisualizar->setChecked(true);
        form.cbVariasPorPagina->setChecked(true);
        form.cmdImprimir->click();
        const int paginas = c.Previstas().count();
        QVERIFY(paginas > 1 && paginas <= 6);
        int fichas = 0;
        for (int i = 0; i < paginas; ++i) {
            QStringList linhas = c.Previstas().page(i).lines();
            QCOMPARE(linhas.sliced(linhas.size() - 2),
                     (QStringList{u"01-02-2027"_s, u"Página %1 de %2"_s.arg(i + 1).arg(paginas)}));
            QVERIFY(linhas.first().startsWith(u"Nome"_s));
            QVERIFY(linhas[linhas.size() - 3].startsWith(u"fim"_s));
            fichas += static_cast<int>(linhas.filter(u"Nome"_s).size());
        }
        QCOMPARE(fichas, 12);
    }

    void a_lista_com_grupos_tem_titulo_grupo_e_o_primeiro_telefone_que_ha()
    {
        ComPaginas c(u"AlemaoDE"_s);
        const int grupo = c.s.Novo_Grupo(u"Nachbarn"_s);
        c.Contacto({{u"Nome"_s, u"Ana"_s},
                    {u"Telemovel1"_s, u"91"_s},
                    {u"Email2"_s, u"a@b.pt"_s},
                    {u"Grupo"_s, grupo}});
        c.Contacto({{u"Nome"_s, u"Rui"_s}, {u"Telefone1"_s, u"21"_s}, {u"Telemovel1"_s, u"92"_s}});
        frmImprimir form(c.s.geral, c.controlo, c.ListaNomes);
        form.CheckBoxPrevisualizar->setChecked(true);
        form.opcoes->OptionContactos->click();
        form.cmdImprimir->click();
        const QStringList todos = c.Paginas()[0];
        QCOMPARE(todos[0], u"Alle Gruppen"_s);
        QCOMPARE(todos[2], u"Ana Nachbarn 91 a@b.pt"_s);
        QVERIFY(todos[3].endsWith(u" 21"_s));
        QCOMPARE(todos.last(), u"01.02.2027 Seite 1 von 1"_s);
        form.opcoes->ComboGrupos->ChooseText(u"Nachbarn"_s);
        form.cmdImprimir->click();
        const QStringList do_grupo = c.Paginas()[0];
        QCOMPARE(do_grupo[0], u"Nachbarn"_s);
        QCOMPARE(do_grupo.size(), 4);
    }

    void cada_etiqueta_tem_o_seu_lugar_na_folha_data()
    {
        QTest::addColumn<int>("colunas");
        QTest::addColumn<int>("linhas");
        QTest::addColumn<QPointF>("canto"); // of the first label, in mm
        QTest::addColumn<QSizeF>("passo");  // from one to the next
        QTest::newRow("70 x 37") << 3 << 8 << QPointF(0, 0.5) << QSizeF(70, 37);
        QTest::newRow("63,5 x 38,1") << 3 << 7 << QPointF(7.25, 15.15) << QSizeF(66, 38.1);
        QTest::newRow("99,1 x 38,1") << 2 << 7 << QPointF(4.65, 15.15) << QSizeF(101.6, 38.1);
    }
    void cada_etiqueta_tem_o_seu_lugar_na_folha()
    {
        QFETCH(int, colunas);
        QFETCH(int, linhas);
        QFETCH(QPointF, canto);
        QFETCH(QSizeF, passo);
        constexpr double mm = 1440 / 25.4;
        constexpr double folga = 0.1; // mm
        ComPaginas c;
        c.s.Escrever(u"UPDATE TblConfig SET Destinatario=''"_s);
        const int por_folha = colunas * linhas;
        for (int i = 0; i < por_folha + 1; ++i)
            c.Contacto({{u"Nome"_s, u"Nome %1"_s.arg(100 + i)}, {u"Morada"_s, u"Rua A\r\nLisboa"_s}});
        c.s.geral.RemetenteBD.clear();
        frmEtiquetas form(c.s.geral, c.controlo, c.ListaNomes);
        form.ComboFormato->setListIndex(colunas == 2 ? 2 : linhas == 7 ? 1 : 0);
        form.CheckBoxPrevisualizar->setChecked(true);
        form.cmdImprimir->click();
        QCOMPARE(c.Previstas().count(), 2);
        int qual = 0;
        for (const auto &texto : c.Previstas().page(0).texts()) {
            if (!texto.line.startsWith(u"Nome"_s)) continue;
            const QPointF meio = texto.area.center() / mm - canto;
            QCOMPARE(static_cast<int>(meio.x() / passo.width()), qual % colunas);
            QCOMPARE(static_cast<int>(meio.y() / passo.height()), qual / colunas);
            const double dentro = texto.area.left() / mm - canto.x() - passo.width() * (qual % colunas);
            QVERIFY(std::abs(dentro - 200 / mm) < folga);
            ++qual;
        }
        QCOMPARE(qual, por_folha);
        const QStringList margem =
            linhas == 7 ? QStringList{u"01-02-2027"_s, u"Página 2 de 2"_s} : QStringList();
        QCOMPARE(c.Previstas().page(1).lines(),
                 margem + (QStringList{u"Nome %1"_s.arg(100 + por_folha), u"Rua A"_s, u"Lisboa"_s}));
    }

    void o_que_esta_na_margem_da_folha_nao_toca_em_nenhuma_etiqueta_data()
    {
        QTest::addColumn<int>("formato");
        QTest::newRow("63,5 x 38,1") << 1;
        QTest::newRow("99,1 x 38,1") << 2;
    }
    void o_que_esta_na_margem_da_folha_nao_toca_em_nenhuma_etiqueta()
    {
        QFETCH(int, formato);
        constexpr double mm = 1440 / 25.4;
        constexpr double margem = 15.15;    // mm above the labels
        constexpr double da_impressora = 5; // which most cannot print
        ComPaginas c;
        c.Contacto({{u"Nome"_s, u"Ana"_s}, {u"Morada"_s, u"Rua A"_s}});
        frmEtiquetas form(c.s.geral, c.controlo, c.ListaNomes);
        form.ComboFormato->setListIndex(formato);
        form.CheckBoxPrevisualizar->setChecked(true);
        form.cmdImprimir->click();
        const auto textos = c.Previstas().page(0).texts();
        QVERIFY(textos[0].line.contains(u"2027"_s) && textos[1].line.startsWith(u"Página 1"_s));
        for (const auto &texto : {textos[0], textos[1]}) {
            QVERIFY(texto.area.bottom() / mm < margem);
            QVERIFY(texto.area.top() / mm > da_impressora);
            QVERIFY(texto.area.left() / mm > da_impressora && texto.area.right() / mm < 210 - da_impressora);
        }
    }

    void a_etiqueta_tem_remetente_e_destinatario_e_sem_morada_nao_ha_etiqueta()
    {
        ComPaginas c;
        c.s.geral.RemetenteBD = u"Zé\r\n\r\nPorto"_s;
        c.s.Escrever(u"UPDATE TblConfig SET Destinatario='Exma. Sra.'"_s);
        c.Contacto({{u"Nome"_s, u"Ana"_s}, {u"Morada"_s, u"Rua A\r\n\r\nLisboa"_s}});
        c.Contacto({{u"Nome"_s, u"Rui"_s}});
        c.Contacto({{u"Nome"_s, u"Eva"_s}, {u"Morada"_s, u""_s}});
        frmEtiquetas form(c.s.geral, c.controlo, c.ListaNomes);
        QCOMPARE(form.lblDeFora->text(), u"2 contactos sem morada ficam de fora."_s);
        form.txtPrimeira->setValue(5);
        form.CheckBoxPrevisualizar->setChecked(true);
        form.cmdImprimir->click();
        QCOMPARE(c.Previstas().page(0).lines(),
                 (QStringList{u"Zé · Porto"_s, u"Exma. Sra."_s, u"Ana"_s, u"Rua A"_s, u"Lisboa"_s}));
        const QPointF lugar = c.Previstas().page(0).texts().front().area.topLeft();
        QVERIFY(lugar.x() > 3966 && lugar.x() < 7932 && lugar.y() > 2098 && lugar.y() < 4196);
        form.cbRemetente->setChecked(false);
        form.cmdImprimir->click();
        QCOMPARE(c.Previstas().page(0).lines().first(), u"Exma. Sra."_s);
    }

    void muitas_etiquetas_abrem_antes_de_se_saber_o_que_nelas_nao_cabe()
    {
        ComPaginas c;
        c.s.geral.RemetenteBD.clear();
        c.s.Escrever(u"UPDATE TblConfig SET Destinatario=''"_s);
        c.s.Escrever(
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) INSERT INTO "
            "TblLista (Nome, Morada, Grupo) SELECT 'Ana', 'Rua ' || i, 1 FROM n"_s);
        QStringList linhas;
        for (int i = 10; i < 30; ++i)
            linhas << u"linha %1"_s.arg(i);
        c.Contacto({{u"Nome"_s, u"Zita"_s}, {u"Morada"_s, linhas.join("\r\n"_L1)}});
        frmEtiquetas form(c.s.geral, c.controlo, c.ListaNomes);
        form.CheckBoxPrevisualizar->setChecked(true);
        form.cmdImprimir->click();
        QVERIFY(!c.Previstas().complete());
        const QStringList cabem = c.Previstas().page(834 - 1).lines().filter(u"linha"_s);
        QVERIFY(!cabem.isEmpty() && cabem.size() < linhas.size());
        c.s.caixas.Espera(u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:"
                          "\r\n\r\n"_s +
                              Ditas(linhas.sliced(cabem.size())),
                          box::exclamation, u"Imprimir"_s);
        QTRY_VERIFY_WITH_TIMEOUT(c.s.caixas.Todas_Vistas(), 30'000);
        QVERIFY(c.Previstas().complete());
    }

    void a_tarefa_diz_quando_o_que_e_quantas_vezes()
    {
        ComPaginas c(u"AlemaoDE"_s);
        for (const auto &tarefa : {u"Gießen"_s, u"Schneiden"_s})
            c.s.geral.de.Executar("cmdAdicionarTarefa",
                                  {tarefa, u"31-12-2027"_s, u"09:05"_s, u"0"_s, u"2"_s});
        frmTarefas cartao(c.s.geral, c.s.plataforma, c.janela, c.controlo);
        cartao.txtIDTarefa->setText(QString::number(c.s.Ultimo_Id(u"TblTarefas"_s) - 1));
        cartao.cmdImprimirTarefa->click();
        QCOMPARE(c.Paginas(),
                 (QList<QStringList>{
                     {u"31-12-2027 09:05"_s, c.s.Texto(182), u"Gießen"_s,
                      c.s.Texto(181) + u' ' + c.s.Linhas(u"SELECT Nome FROM TblRepeticao WHERE ID=2"_s)[0],
                      u"01-02-2027 1/1"_s}}));
        const ReportRows linhas = c.controlo.preview()->pages()->rows();
        QCOMPARE(linhas.title, c.s.Texto(182));
        QCOMPARE(linhas.heads.mid(0, 3), (QStringList{u"Datum"_s, u"Uhrzeit"_s, c.s.Texto(182)}));
    }
};

MORVEX_TESTE(TestPaginas)
#include "test_Paginas.moc"
