// The report control: where a run goes, what it keeps, what it says when it can't.
#include "report/CrystalReport.h"
#include "report/ReportPages.h"
#include "report/ReportPreview.h"
#include "report/ReportPrinting.h"
#include "report/ReportView.h"
#include "report/ReportWords.h"
#include "store/NewDatabase.h"
#include "testlib/Nomes.h"
#include "testlib/Teste.h"

#include <memory>
#include <QAccessible>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace
{
// A printer that keeps the records that it was given.
class ImpressoraFalsa final : public ReportPrinter
{
public:
    PrintResult choose(QWidget *) override
    {
        historia << u"choose"_s;
        return escolha;
    }
    PrintResult print(ReportPages &pages, const QString &title, const PageWatch &watch) override
    {
        historia << u"print %1 %2"_s.arg(title).arg(pages.data().size());
        const bool segue = watch(0, pages.found());
        for (QWidget *widget : QApplication::allWidgets()) {
            if (auto *barra = qobject_cast<QProgressBar *>(widget))
                andamento = QAccessible::queryAccessibleInterface(barra)->text(QAccessible::Name);
            if (auto *dialogo = qobject_cast<QProgressDialog *>(widget)) dito = Dito(*dialogo);
        }
        return segue ? resultado : PrintResult::Cancelled;
    }

    // Title, text and button; when it comes, how wide it is, whom it holds up; where it stands and ends.
    static QStringList Dito(const QProgressDialog &dialogo)
    {
        return {dialogo.windowTitle(),
                dialogo.labelText(),
                dialogo.findChild<QPushButton *>()->text(),
                QString::number(dialogo.minimumDuration()),
                QString::number(dialogo.minimumWidth()),
                QString::number(dialogo.windowModality()),
                QString::number(dialogo.value()),
                QString::number(dialogo.minimum()),
                QString::number(dialogo.maximum())};
    }

    QStringList historia;
    QString andamento; // the name of the bar that stands meanwhile
    QStringList dito;  // what its dialog shows
    PrintResult escolha = PrintResult::Done;
    PrintResult resultado = PrintResult::Done;
};

template<class T> T *Parte(const QWidget &janela, const char *nome)
{
    T *parte = janela.findChild<T *>(QLatin1StringView(nome));
    if (!parte) qFatal("there is no %s", nome);
    return parte;
}
} // namespace

class TestCrystalReport : public QObject
{
    Q_OBJECT

    QTemporaryDir folder_;
    QString idioma_;
    std::unique_ptr<CaixasFalsas> caixas_;
    DialogosFalsos dialogos_;
    RelogioFalso relogio_{QDateTime({2027, 2, 1}, {9, 0})};
    ImpressoraFalsa *impressora_ = nullptr;
    std::unique_ptr<CrystalReport> controlo_;

    QString Caminho(const QString &nome) const { return folder_.filePath(nome); }

    void Correr(int destino)
    {
        controlo_->setDestination(destino);
        controlo_->setAction(1);
    }
    ReportPreview &Pre_Visualizar()
    {
        Correr(ReportControl::Screen);
        if (!controlo_->preview()) qFatal("no preview came");
        return *controlo_->preview();
    }
    // A definition of texts with room for two lines, and a database with so many records of which the last ones
    // have the given text; they come in their order.
    void Com_Pouco_Lugar(int registos, const QStringList &ultimos, const QString &detalhe = {})
    {
        const QString base = Caminho(u"curta.mdb"_s);
        QFile::remove(base);
        QStringList comandos{u"CREATE TABLE T (ID INTEGER PRIMARY KEY, Nome TEXT) STRICT"_s,
                             u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
                             "INSERT INTO T SELECT i, 'Nome ' || i FROM n"_s.arg(registos)};
        for (qsizetype i = 0; i < ultimos.size(); ++i)
            comandos << u"UPDATE T SET Nome = 'a' || char(10) || 'b' || char(10) || '%1' WHERE ID = %2"_s
                            .arg(ultimos[i])
                            .arg(registos - ultimos.size() + i + 1);
        createDatabase(base, comandos);
        QFile file(Caminho(u"curto.rpt"_s));
        if (file.open(QIODevice::WriteOnly))
            file.write((u"<report title='Lista' table='T'><detail %1><row height='800'><text width='5000' "
                        "height='480'>{T.Nome}</text></row></detail></report>"_s.arg(detalhe))
                           .toUtf8());
        file.close();
        controlo_->setReportFileName(file.fileName());
        controlo_->setDataFiles(0, base);
        controlo_->setSortFields(0, u"+{T.ID}"_s);
    }
    void Esperar_O_Que_Nao_Cabe(const QStringList &linhas)
    {
        caixas_->Espera(u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:"
                        "\r\n\r\n"_s +
                            linhas.join("\r\n"_L1),
                        box::exclamation, u"Imprimir"_s);
    }
    static void Accionar(const ReportPreview &janela, const char *nome)
    {
        Parte<QAction>(janela, nome)->trigger();
    }

private Q_SLOTS:
    void initTestCase()
    {
        createDatabase(
            Caminho(u"base.mdb"_s),
            {u"CREATE TABLE T (ID INTEGER PRIMARY KEY, Nome TEXT) STRICT"_s,
             u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500) "
             "INSERT INTO T SELECT i, 'Nome ' || i FROM n"_s,
             u"CREATE TABLE Textos (ID INTEGER PRIMARY KEY, AlemaoDE TEXT, \"In \"\"glês\" TEXT) STRICT"_s,
             u"INSERT INTO Textos VALUES (1, '&Liste:', 'List'), (2, 'Gruppe\u00A0:', 'Group'), "
             "(3, '', NULL), (4, 'A && B: C', '')"_s});
        QFile file(Caminho(u"r.rpt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<report title='Lista' table='T'><parameter name='p' default='d'/>"
                   "<detail><row height='800'><text width='5000' height='300' "
                   "head='{?p}'>{T.Nome}</text></row></detail>"
                   "</report>");
    }
    void init()
    {
        idioma_ = u"PortuguesPT"_s;
        caixas_ = std::make_unique<CaixasFalsas>();
        auto impressora = std::make_unique<ImpressoraFalsa>();
        impressora_ = impressora.get();
        controlo_ = std::make_unique<CrystalReport>(
            *caixas_, dialogos_, relogio_, [this] { return idioma_; }, nullptr, std::move(impressora));
        controlo_->setReportFileName(Caminho(u"r.rpt"_s));
        controlo_->setConnect(Caminho(u"base.mdb"_s));
        controlo_->setDataFiles(0, Caminho(u"base.mdb"_s));
        controlo_->setSortFields(0, u"+{T.Nome}"_s);
        controlo_->setWindowTitle(u"Pré-Visualizar"_s);
        dialogos_.perguntas.clear();
    }
    void cleanup() { controlo_.reset(); }

    void so_a_accao_um_corre()
    {
        controlo_->setDestination(ReportControl::Printer);
        controlo_->setAction(0);
        QVERIFY(impressora_->historia.isEmpty());
        controlo_->setAction(1);
        QCOMPARE(impressora_->historia, QStringList{u"print Lista 500"_s});
    }
    void a_barra_da_impressao_tem_o_nome_da_sua_janela()
    {
        idioma_ = u"AlemaoDE"_s;
        Correr(ReportControl::Printer);
        QCOMPARE(impressora_->andamento, reportWord(ReportWord::Print, idioma_));
    }
    void o_dialogo_da_impressao_conta_as_paginas_e_pode_parar_se()
    {
        Correr(ReportControl::Printer);
        QCOMPARE(impressora_->dito,
                 (QStringList{u"Imprimir"_s, u"A escrever a página 1 de 1"_s, u"Cancelar"_s, u"600"_s,
                              u"360"_s, QString::number(Qt::ApplicationModal), u"0"_s, u"0"_s, u"1"_s}));
        Accionar(Pre_Visualizar(), "print");
        QCOMPARE(impressora_->dito.value(5), QString::number(Qt::WindowModal));
    }
    void a_seleccao_vale_ate_a_proxima()
    {
        controlo_->ReplaceSelectionFormula(u"{T.ID} =7"_s);
        Correr(ReportControl::Printer);
        Correr(ReportControl::Printer);
        controlo_->ReplaceSelectionFormula({});
        Correr(ReportControl::Printer);
        QCOMPARE(impressora_->historia,
                 (QStringList{u"print Lista 1"_s, u"print Lista 1"_s, u"print Lista 500"_s}));
    }
    void os_registos_vao_pela_ordem_dos_campos_que_a_tem()
    {
        const auto primeiro = [this] { return Pre_Visualizar().pages()->rows().records.front().front(); };
        controlo_->setSortFields(0, u"-{T.ID}"_s);
        QCOMPARE(primeiro(), u"Nome 500"_s);
        controlo_->setSortFields(0, {});
        controlo_->setSortFields(1, u"-{T.Nome}"_s);
        QCOMPARE(primeiro(), u"Nome 99"_s);
    }
    void desistir_da_impressora_nao_trava_a_corrida()
    {
        impressora_->escolha = PrintResult::Cancelled;
        controlo_->PrinterSelect();
        Correr(ReportControl::Printer);
        QCOMPARE(impressora_->historia, (QStringList{u"choose"_s, u"print Lista 500"_s}));
    }
    void o_que_a_impressora_nao_fez_e_dito_data()
    {
        QTest::addColumn<PrintResult>("result");
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("title");
        QTest::newRow("no printer") << PrintResult::NoPrinter << u"PortuguesPT"_s
                                    << u"Não há nenhuma impressora instalada."_s << u"Imprimir"_s;
        QTest::newRow("rejected") << PrintResult::Rejected << u"AlemaoDE"_s
                                  << u"Der Drucker hat den Druckauftrag abgelehnt."_s << u"Drucken"_s;
    }
    void o_que_a_impressora_nao_fez_e_dito()
    {
        QFETCH(PrintResult, result);
        QFETCH(QString, language);
        QFETCH(QString, text);
        QFETCH(QString, title);
        idioma_ = language;
        impressora_->resultado = result;
        caixas_->Espera(text, box::exclamation, title);
        Correr(ReportControl::Printer);
        QVERIFY(caixas_->Todas_Vistas());
    }
    void uma_impressao_cancelada_nao_diz_nada()
    {
        impressora_->resultado = PrintResult::Cancelled;
        Correr(ReportControl::Printer);
        QCOMPARE(impressora_->historia.size(), 1);
    }

    void uma_seleccao_vazia_nao_vai_para_a_impressora()
    {
        idioma_ = u"AlemaoDE"_s;
        controlo_->ReplaceSelectionFormula(u"{T.ID} =9999"_s);
        caixas_->Espera(u"Die Auswahl ist leer: Es gibt nichts zu drucken."_s, box::information,
                        u"Drucken"_s);
        Correr(ReportControl::Printer);
        QVERIFY(caixas_->Todas_Vistas());
        QVERIFY(impressora_->historia.isEmpty());
    }
    void a_previsualizacao_de_uma_seleccao_vazia_di_lo_na_folha()
    {
        controlo_->ReplaceSelectionFormula(u"{T.ID} =9999"_s);
        QCOMPARE(Pre_Visualizar().pages()->page(0).lines(),
                 QStringList{u"A selecção está vazia: não há nada para imprimir."_s});
        caixas_->Espera(u"A selecção está vazia: não há nada para imprimir."_s, box::information,
                        u"Imprimir"_s);
        Accionar(*controlo_->preview(), "print");
        QVERIFY(caixas_->Todas_Vistas());
        QVERIFY(impressora_->historia.isEmpty());
    }
    void actualizar_diz_outra_vez_o_que_nao_cabe()
    {
        QFile file(Caminho(u"curto.rpt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(
            "<report title='Lista' table='T'><detail><row height='800'><text width='5000' height='480'>"
            "{T.Nome}&#10;b&#10;c</text></row></detail></report>");
        file.close();
        controlo_->setReportFileName(file.fileName());
        controlo_->ReplaceSelectionFormula(u"{T.ID} =7"_s);
        const auto esperar = [this] {
            caixas_->Espera(
                u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:"
                "\r\n\r\nc"_s,
                box::exclamation, u"Imprimir"_s);
        };
        esperar();
        const ReportPreview &janela = Pre_Visualizar();
        QVERIFY(caixas_->Todas_Vistas());
        esperar();
        Parte<QAction>(janela, "refresh")->setEnabled(true);
        Accionar(janela, "refresh");
        QVERIFY(caixas_->Todas_Vistas());
    }
    void as_linhas_que_nao_cabem_sao_ditas_data()
    {
        QTest::addColumn<int>("destination");
        QTest::newRow("preview") << int(ReportControl::Screen);
        QTest::newRow("printer") << int(ReportControl::Printer);
    }
    void as_linhas_que_nao_cabem_sao_ditas()
    {
        QFETCH(int, destination);
        QFile file(Caminho(u"curto.rpt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(
            "<report title='Lista' table='T'><detail><row height='800'><text width='5000' height='480' "
            "least='10'>{T.Nome}&#10;b&#10;c&#10;d</text></row></detail></report>");
        file.close();
        controlo_->setReportFileName(file.fileName());
        controlo_->ReplaceSelectionFormula(u"{T.ID} =7"_s);
        caixas_->Espera(u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:"
                        "\r\n\r\nc\r\nd"_s,
                        box::exclamation, u"Imprimir"_s);
        Correr(destination);
        QVERIFY(caixas_->Todas_Vistas());
    }
    void de_muitas_linhas_que_nao_cabem_dizem_se_as_primeiras()
    {
        QFile file(Caminho(u"curto.rpt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(
            "<report title='Lista' table='T'><detail><row height='800'><text width='5000' height='480' "
            ">{T.Nome}&#10;b&#10;{T.Nome}</text></row></detail></report>");
        file.close();
        controlo_->setReportFileName(file.fileName());
        QStringList primeiras;
        for (int i = 1; i <= 10; ++i)
            primeiras << u"Nome %1"_s.arg(i);
        controlo_->setSortFields(0, u"+{T.ID}"_s);
        caixas_->Espera(u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:"
                        "\r\n\r\n"_s +
                            primeiras.join("\r\n"_L1) + u"\r\n…"_s,
                        box::exclamation, u"Imprimir"_s);
        Correr(ReportControl::Printer);
        QVERIFY(caixas_->Todas_Vistas());
    }

    void de_dez_linhas_que_nao_cabem_dizem_se_todas()
    {
        QStringList dez;
        for (int i = 1; i <= 10; ++i)
            dez << u"perdida %1"_s.arg(i);
        Com_Pouco_Lugar(12, dez);
        Esperar_O_Que_Nao_Cabe(dez);
        Correr(ReportControl::Printer);
        QVERIFY(caixas_->Todas_Vistas());
    }
    void a_mesma_linha_em_dois_registos_diz_se_uma_vez()
    {
        Com_Pouco_Lugar(4, {u"perdida"_s, u"outra"_s, u"perdida"_s});
        Esperar_O_Que_Nao_Cabe({u"perdida"_s, u"outra"_s});
        Correr(ReportControl::Printer);
        QVERIFY(caixas_->Todas_Vistas());
    }
    void de_quinhentos_registos_diz_se_logo_o_que_nao_cabe()
    {
        Com_Pouco_Lugar(500, {u"perdida"_s}, u"newpage='yes'"_s);
        Esperar_O_Que_Nao_Cabe({u"perdida"_s});
        Pre_Visualizar();
        QVERIFY(caixas_->Todas_Vistas());
    }
    void o_que_nao_cabe_diz_se_uma_vez_por_cada_vez_que_se_actualiza()
    {
        Com_Pouco_Lugar(501, {u"perdida"_s}, u"newpage='yes'"_s);
        controlo_->setWindowShowRefreshBtn(true);
        Esperar_O_Que_Nao_Cabe({u"perdida"_s});
        const ReportPreview &janela = Pre_Visualizar();
        Accionar(janela, "refresh"); // before the last page is found
        QVERIFY(!janela.pages()->complete());
        QTRY_VERIFY(janela.pages()->complete());
        QTRY_VERIFY(caixas_->Todas_Vistas());
        QCOMPARE(caixas_->vistas.size(), 1);
        Esperar_O_Que_Nao_Cabe({u"perdida"_s});
        Accionar(janela, "refresh");
        QTRY_VERIFY(janela.pages()->complete());
        QTRY_VERIFY(caixas_->Todas_Vistas());
        QCOMPARE(caixas_->vistas.size(), 2);
    }

    // Nobody waits for it: the preview is there before its last page is found.
    void de_muitos_registos_diz_se_o_que_nao_cabe_quando_todas_as_paginas_estao_achadas()
    {
        const QString base = Caminho(u"muitos.mdb"_s);
        createDatabase(
            base, {u"CREATE TABLE T (ID INTEGER PRIMARY KEY, Nome TEXT) STRICT"_s,
                   u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 501) "
                   "INSERT INTO T SELECT i, 'Nome ' || i FROM n"_s,
                   u"UPDATE T SET Nome = 'a' || char(10) || 'b' || char(10) || 'perdida' WHERE ID = 501"_s});
        QFile file(Caminho(u"curto.rpt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<report title='Lista' table='T'><detail newpage='yes'><row height='800'>"
                   "<text width='5000' height='480'>{T.Nome}</text></row></detail></report>");
        file.close();
        controlo_->setReportFileName(file.fileName());
        controlo_->setDataFiles(0, base);
        controlo_->setSortFields(0, u"+{T.ID}"_s);
        caixas_->Espera(u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:"
                        "\r\n\r\nperdida"_s,
                        box::exclamation, u"Imprimir"_s);
        const ReportPreview &janela = Pre_Visualizar();
        QVERIFY(!caixas_->Todas_Vistas());
        QTRY_VERIFY(janela.pages()->complete());
        QTRY_VERIFY(caixas_->Todas_Vistas());
    }

    void um_relatorio_que_falta_e_uma_falha()
    {
        controlo_->setReportFileName(Caminho(u".rpt"_s));
        VERIFICAR_FALHA(Correr(ReportControl::Screen), Failure::FileNotFound);
        QVERIFY(!controlo_->preview());
    }
    void uma_base_que_falta_e_uma_falha()
    {
        controlo_->setDataFiles(0, Caminho(u"nada.mdb"_s));
        VERIFICAR_FALHA(Correr(ReportControl::Screen), Failure::StoreError);
    }
    void um_parametro_mal_escrito_e_uma_falha()
    {
        controlo_->setParameterFields(0, u"p"_s);
        VERIFICAR_FALHA(Correr(ReportControl::Screen), Failure::InvalidPropertyValue);
    }
    void um_destino_desconhecido_e_uma_falha() { VERIFICAR_FALHA(Correr(9), Failure::InvalidPropertyValue); }
    void sem_ficheiro_de_dados_vale_a_ligacao()
    {
        controlo_->setDataFiles(0, {});
        Correr(ReportControl::Printer);
        QCOMPARE(impressora_->historia, QStringList{u"print Lista 500"_s});
    }
    void um_parametro_pode_ter_ponto_e_virgula()
    {
        controlo_->setParameterFields(0, u"p;a;b;TRUE"_s);
        QCOMPARE(Pre_Visualizar().pages()->rows().heads, QStringList{u"a;b"_s});
    }

    void os_textos_por_numero_vem_na_lingua_do_programa_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QStringList>("heads");
        const QStringList seus{u"dois:"_s, u"três"_s, u"quatro"_s, u"cinco"_s};
        QTest::newRow("sem os sinais de uma legenda; o que falta fica")
            << u"AlemaoDE"_s << u"Textos"_s << u"Liste"_s
            << QStringList{u"Gruppe"_s, u"três"_s, u"A & B: C"_s, u"cinco"_s};
        QTest::newRow("nome com aspas") << u"in \"glês"_s << u"Textos"_s << u"List"_s
                                        << QStringList{u"Group"_s, u"três"_s, u"quatro"_s, u"cinco"_s};
        QTest::newRow("lingua que falta") << u"ItalianoIT"_s << u"Textos"_s << u"Lista"_s << seus;
        QTest::newRow("sem lingua") << QString() << u"Textos"_s << u"Lista"_s << seus;
        QTest::newRow("tabela que falta") << u"AlemaoDE"_s << u"Palavras"_s << u"Lista"_s << seus;
    }
    void os_textos_por_numero_vem_na_lingua_do_programa()
    {
        QFETCH(QString, language);
        QFETCH(QString, table);
        QFile file(Caminho(u"textos.rpt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(
            u"<report title='Lista' text='1' table='T'><texts table='%1' key='id'/>"
            "<parameter name='b' default='dois:' text='2'/><parameter name='c' default='três' text='3'/>"
            "<parameter name='d' default='quatro' text='4'/><parameter name='e' default='cinco' text='5'/>"
            "<detail><row height='800'><text head='{?b}'>{T.Nome}</text><text head='{?c}'>{T.Nome}</text>"
            "<text head='{?d}'>{T.Nome}</text><text head='{?e}'>{T.Nome}</text></row></detail>"
            "</report>"_s.arg(table)
                .toUtf8());
        file.close();
        controlo_->setReportFileName(file.fileName());
        idioma_ = language;
        const ReportRows rows = Pre_Visualizar().pages()->rows();
        QTEST(rows.title, "title");
        QTEST(rows.heads, "heads");
        controlo_->setParameterFields(0, u"b;do controlo:;TRUE"_s);
        QCOMPARE(Pre_Visualizar().pages()->rows().heads.first(), u"do controlo:"_s);
    }

    void os_controlos_da_previsualizacao_tem_nome_em_cada_lingua()
    {
        for (const char *idioma : {"PortuguesPT", "PortuguesBR", "InglesUK", "EspanholES", "ItalianoIT",
                                   "FrancesFR", "AlemaoDE"}) {
            idioma_ = QString::fromLatin1(idioma);
            ReportPreview &janela = Pre_Visualizar();
            const QList<nomes::Nome> todos = nomes::De(janela);
            QVERIFY(todos.size() >= 12);
            const QStringList faltas = nomes::Faltas(todos);
            QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
            for (const nomes::Nome &um : todos)
                QVERIFY2(um.nome.size() > 1, qPrintable(um.nome)); // and no sign of an operation
            auto *folhas = janela.findChild<ReportView *>();
            QCOMPARE(QAccessible::queryAccessibleInterface(folhas)->text(QAccessible::Name),
                     reportWord(ReportWord::Page, idioma_));
        }
    }

    void a_previsualizacao_tem_o_seu_titulo_e_abre_no_estado_dado()
    {
        QVERIFY(!Pre_Visualizar().isMaximized());
        controlo_->setWindowState(ReportControl::maximised);
        const ReportPreview &janela = Pre_Visualizar();
        QVERIFY(janela.isVisible() && janela.isMaximized());
        QCOMPARE(janela.windowTitle(), u"Pré-Visualizar"_s);
    }
    void os_comandos_estao_em_grupos_em_barras_que_nao_saem_do_seu_lugar()
    {
        QStringList grupos;
        for (const QToolBar *barra : Pre_Visualizar().findChildren<QToolBar *>()) {
            QVERIFY(!barra->isMovable());
            grupos << QString();
            for (const QAction *comando : barra->actions())
                if (comando->isSeparator())
                    grupos << QString();
                else if (!comando->objectName().isEmpty())
                    grupos.last() += comando->objectName() + u' ';
        }
        QCOMPARE(grupos, (QStringList{u"first previous next last "_s, u"zoomOut zoomIn fitWidth wholePage "_s,
                                      u"print pdf refresh "_s, u"close "_s}));
    }
    void conta_as_paginas_enquanto_se_olha()
    {
        const ReportPreview &janela = Pre_Visualizar();
        QCOMPARE(janela.pages()->found(), 1);
        QTRY_VERIFY(janela.pages()->complete());
        QCOMPARE(Parte<QLabel>(janela, "count")->text().trimmed(), u"/ %1"_s.arg(janela.pages()->found()));
        QCOMPARE(Parte<QSpinBox>(janela, "page")->maximum(), janela.pages()->found());
    }
    void anda_se_de_pagina_em_pagina()
    {
        const ReportPreview &janela = Pre_Visualizar();
        QTRY_VERIFY(janela.pages()->complete());
        const int ultima = janela.pages()->found();
        QSpinBox *pagina = Parte<QSpinBox>(janela, "page");
        QVERIFY(ultima > 3);
        QVERIFY(!Parte<QAction>(janela, "first")->isEnabled());
        Accionar(janela, "next");
        QCOMPARE(pagina->value(), 2);
        Accionar(janela, "previous");
        QCOMPARE(pagina->value(), 1);
        Accionar(janela, "last");
        QCOMPARE(pagina->value(), ultima);
        QVERIFY(!Parte<QAction>(janela, "next")->isEnabled());
        Accionar(janela, "previous");
        QCOMPARE(pagina->value(), ultima - 1);
        pagina->setValue(3);
        QCOMPARE(janela.findChild<ReportView *>()->page(), 2);
        Accionar(janela, "first");
        QCOMPARE(pagina->value(), 1);
    }
    // From the bottom up: as much ground below the last sheet as between two of them.
    void as_folhas_estao_umas_debaixo_das_outras_e_a_ultima_nao_toca_no_fundo()
    {
        const ReportPreview &janela = Pre_Visualizar();
        QTRY_VERIFY(janela.pages()->complete());
        auto *vista = janela.findChild<ReportView *>();
        vista->zoomBy(0.4);
        vista->verticalScrollBar()->setValue(vista->verticalScrollBar()->maximum());
        const QImage visto = vista->viewport()->grab().toImage();
        const QRgb fundo = visto.pixel(1, visto.height() - 1);
        QList<int> faixas{0};
        for (int y = visto.height() - 1; y >= 0; --y) {
            if (visto.pixel(visto.width() / 2, y) == fundo)
                ++faixas.last();
            else if (faixas.last() != 0 || faixas.size() == 1)
                faixas << 0;
        }
        QVERIFY(faixas.size() > 2); // so two sheets at least are in view
        QVERIFY(faixas[0] > 10);
        QCOMPARE(faixas[1], faixas[0]);
    }
    void o_zoom_fica_na_mesma_pagina()
    {
        const ReportPreview &janela = Pre_Visualizar();
        QTRY_VERIFY(janela.pages()->complete());
        auto *vista = janela.findChild<ReportView *>();
        vista->goTo(5);
        const double inteira = vista->zoom();
        Accionar(janela, "zoomIn");
        QVERIFY(vista->zoom() > inteira);
        QCOMPARE(vista->page(), 5);
        Accionar(janela, "zoomOut");
        QCOMPARE(vista->zoom(), inteira);
        Accionar(janela, "fitWidth");
        QVERIFY(vista->zoom() > inteira);
        QCOMPARE(vista->page(), 5);
        Accionar(janela, "wholePage");
        QCOMPARE(vista->zoom(), inteira);
    }
    void a_roda_com_ctrl_muda_o_zoom()
    {
        const ReportPreview &janela = Pre_Visualizar();
        auto *vista = janela.findChild<ReportView *>();
        const double antes = vista->zoom();
        const auto rodar = [&](int quanto) {
            QWheelEvent roda({10, 10}, vista->mapToGlobal(QPointF(10, 10)), {}, {0, quanto}, Qt::NoButton,
                             Qt::ControlModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(vista->viewport(), &roda);
        };
        rodar(120);
        QVERIFY(vista->zoom() > antes);
        rodar(-120);
        QCOMPARE(vista->zoom(), antes);
    }
    void onde_as_palavras_nao_cabem_numa_barra_sao_duas_e_nenhum_botao_se_esconde()
    {
        const QFont antes = QApplication::font();
        const auto repor = qScopeGuard([&] { QApplication::setFont(antes); });
        QFont grande = antes;
        grande.setPixelSize(22);
        QApplication::setFont(grande);
        ReportPreview &janela = Pre_Visualizar();
        janela.showNormal();
        const QList<QToolBar *> barras = janela.findChildren<QToolBar *>();
        QCOMPARE(barras.size(), 2);
        const int palavras = barras[0]->sizeHint().width() + barras[1]->sizeHint().width();
        for (const bool cabem : {false, true, false}) {
            janela.resize(cabem ? palavras + 40 : palavras - 40, 600);
            QCoreApplication::processEvents();
            QCOMPARE(barras[0]->y() == barras[1]->y(), cabem);
            for (const QToolBar *barra : barras)
                for (QAction *accao : barra->actions())
                    if (QWidget *botao = barra->widgetForAction(accao); botao && accao->isVisible())
                        QVERIFY2(botao->isVisible(), qPrintable(accao->text()));
        }
    }
    void esc_fecha()
    {
        ReportPreview &janela = Pre_Visualizar();
        QTest::keyClick(&janela, Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!controlo_->preview());
    }
    void so_ha_uma_janela_de_cada_vez()
    {
        const QPointer<ReportPreview> primeira = &Pre_Visualizar();
        Pre_Visualizar();
        QVERIFY(!primeira);
    }
    void imprime_se_da_previsualizacao_depois_de_escolher_a_impressora()
    {
        Accionar(Pre_Visualizar(), "print");
        QCOMPARE(impressora_->historia, (QStringList{u"choose"_s, u"print Lista 500"_s}));
    }
    void desistir_na_previsualizacao_nao_imprime()
    {
        impressora_->escolha = PrintResult::Cancelled;
        Accionar(Pre_Visualizar(), "print");
        QCOMPARE(impressora_->historia, QStringList{u"choose"_s});
    }
    void sem_impressora_a_previsualizacao_di_lo()
    {
        impressora_->escolha = PrintResult::NoPrinter;
        caixas_->Espera(u"Não há nenhuma impressora instalada."_s, box::exclamation, u"Imprimir"_s);
        Accionar(Pre_Visualizar(), "print");
        QVERIFY(caixas_->Todas_Vistas());
    }
    void guarda_se_como_pdf()
    {
        dialogos_.textos = {Caminho(u"saida.pdf"_s)};
        Accionar(Pre_Visualizar(), "pdf");
        QVERIFY(dialogos_.perguntas.value(0).contains(u"/Lista.pdf"_s));
        QVERIFY(dialogos_.perguntas.value(0).contains(u"PDF|*.pdf"_s));
        QFile pdf(Caminho(u"saida.pdf"_s));
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.readAll().startsWith("%PDF"));
    }
    void um_pdf_que_nao_se_grava_e_dito()
    {
        dialogos_.textos = {Caminho(u"nada/saida.pdf"_s)};
        caixas_->Espera(u"Não foi possível gravar o ficheiro."_s, box::exclamation, u"Guardar como PDF"_s);
        Accionar(Pre_Visualizar(), "pdf");
        QVERIFY(caixas_->Todas_Vistas());
    }
    void sem_mais_nada_pedido_so_se_pode_imprimir()
    {
        const ReportPreview &janela = Pre_Visualizar();
        QVERIFY(Parte<QAction>(janela, "print")->isVisible());
        QVERIFY(!Parte<QAction>(janela, "refresh")->isVisible());
        QVERIFY(!janela.findChild<QLineEdit *>(u"search"_s));
    }
    void a_previsualizacao_esta_a_frente_da_janela_que_a_pede()
    {
        QVERIFY(!Pre_Visualizar().parentWidget());
        QVERIFY(!controlo_->preview()->isModal());
        QWidget dona;
        controlo_ = std::make_unique<CrystalReport>(
            *caixas_, dialogos_, relogio_, [this] { return idioma_; }, &dona, std::make_unique<ImpressoraFalsa>());
        controlo_->setReportFileName(Caminho(u"r.rpt"_s));
        controlo_->setConnect(Caminho(u"base.mdb"_s));
        QCOMPARE(Pre_Visualizar().parentWidget(), &dona);
        QCOMPARE(controlo_->preview()->windowModality(), Qt::WindowModal);
        controlo_->preview()->close();
        QDialog a_frente(&dona);
        a_frente.setModal(true);
        a_frente.show();
        QCOMPARE(Pre_Visualizar().parentWidget(), &a_frente);
        controlo_.reset();
    }
    void os_botoes_da_janela_sao_os_pedidos()
    {
        controlo_->setWindowShowPrintBtn(false);
        controlo_->setWindowShowRefreshBtn(true);
        controlo_->setWindowShowSearchBtn(true);
        const ReportPreview &janela = Pre_Visualizar();
        QVERIFY(!Parte<QAction>(janela, "print")->isVisible());
        QVERIFY(Parte<QAction>(janela, "refresh")->isVisible());
        QVERIFY(Parte<QLineEdit>(janela, "search")->isVisible());
    }
    void actualizar_le_os_dados_de_novo()
    {
        controlo_->setWindowShowRefreshBtn(true);
        const ReportPreview &janela = Pre_Visualizar();
        const auto antes = janela.pages();
        Accionar(janela, "refresh");
        QVERIFY(janela.pages() != antes);
        QCOMPARE(janela.pages()->data().size(), 500U);
    }
    void procurar_vai_a_pagina_do_registo()
    {
        controlo_->setSortFields(0, u"+{T.ID}"_s);
        controlo_->setWindowShowSearchBtn(true);
        const ReportPreview &janela = Pre_Visualizar();
        auto *texto = Parte<QLineEdit>(janela, "search");
        texto->setText(u"nome 499"_s);
        QTest::keyClick(texto, Qt::Key_Return);
        QTRY_COMPARE(janela.findChild<ReportView *>()->page(), janela.pages()->pageOf(498));
    }
    void procurar_outra_vez_vai_ao_registo_seguinte_e_depois_do_ultimo_ao_primeiro()
    {
        controlo_->setSortFields(0, u"+{T.ID}"_s);
        controlo_->setWindowShowSearchBtn(true);
        const ReportPreview &janela = Pre_Visualizar();
        auto *texto = Parte<QLineEdit>(janela, "search");
        texto->setText(u"00"_s);
        for (const std::size_t registo : {99U, 199U, 299U, 399U, 499U, 99U}) {
            QTest::keyClick(texto, Qt::Key_Return);
            QTRY_COMPARE(janela.findChild<ReportView *>()->page(), janela.pages()->pageOf(registo));
        }
    }
    void fala_a_lingua_escolhida()
    {
        idioma_ = u"AlemaoDE"_s;
        const ReportPreview &janela = Pre_Visualizar();
        QCOMPARE(Parte<QAction>(janela, "wholePage")->text(), u"Ganze Seite"_s);
    }

    void cada_palavra_existe_em_todas_as_linguas()
    {
        for (const QString &lingua : {u"PortuguesPT"_s, u"PortuguesBR"_s, u"InglesUK"_s, u"EspanholES"_s,
                                      u"ItalianoIT"_s, u"FrancesFR"_s, u"AlemaoDE"_s})
            for (int palavra = int(ReportWord::First); palavra <= int(ReportWord::DoesNotFit); ++palavra) {
                const QString texto = reportWord(ReportWord(palavra), lingua);
                QVERIFY(!texto.isEmpty());
                const bool conta = ReportWord(palavra) == ReportWord::Printing;
                QCOMPARE(texto.contains(u"%1"_s) && texto.contains(u"%2"_s), conta);
            }
        QCOMPARE(reportWord(ReportWord::Close, u"?"_s), u"Close"_s);
    }

    void uma_exportacao_pergunta_pelo_ficheiro_e_escreve_o()
    {
        controlo_->ReplaceSelectionFormula(u"{T.ID}=7"_s);
        controlo_->setPrintFileType(ReportControl::Text);
        dialogos_.textos = {Caminho(u"saida.txt"_s)};
        Correr(ReportControl::File);
        QVERIFY(dialogos_.perguntas.value(0).contains(u"Lista.txt"_s));
        QVERIFY(dialogos_.perguntas.value(0).contains(u"TXT|*.txt"_s)); // the same in all languages
        QVERIFY(dialogos_.perguntas.value(0).contains(
            QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)));
        QFile saida(Caminho(u"saida.txt"_s));
        QVERIFY(saida.open(QIODevice::ReadOnly));
        QVERIFY(saida.readAll().contains("Nome 7"));
    }
    void cada_formato_tem_o_seu_filtro_e_o_seu_nome_data()
    {
        QTest::addColumn<int>("formato");
        QTest::addColumn<QString>("filtro");
        QTest::addColumn<QString>("nome");
        QTest::newRow("text") << int(ReportControl::Text) << u"TXT|*.txt"_s << u"Lista.txt"_s;
        QTest::newRow("document") << int(ReportControl::Document) << u"Word|*.doc"_s << u"Lista.doc"_s;
        QTest::newRow("spreadsheet") << int(ReportControl::Spreadsheet) << u"Excel|*.xls"_s << u"Lista.xls"_s;
    }
    void cada_formato_tem_o_seu_filtro_e_o_seu_nome()
    {
        QFETCH(int, formato);
        QFETCH(QString, filtro);
        QFETCH(QString, nome);
        controlo_->setPrintFileType(formato);
        dialogos_.textos = {std::nullopt};
        Correr(ReportControl::File);
        const QString pergunta = dialogos_.perguntas.value(0);
        QVERIFY2(pergunta.contains(filtro) && pergunta.contains(u'/' + nome), qPrintable(pergunta));
    }
    void o_que_esta_mal_pedido_diz_o_que_e()
    {
        const auto dito = [&](const std::function<void()> &accao) {
            try {
                accao();
            } catch (const Failure &failure) {
                return failure.source() + u": "_s + failure.description();
            }
            return QString();
        };
        QCOMPARE(dito([&] { Correr(9); }), u"CrystalReport: There is no destination 9"_s);
        for (const QString &mau : {u"p"_s, u"p;x"_s, u";x;TRUE"_s}) {
            controlo_->setParameterFields(0, mau);
            QCOMPARE(dito([&] { Correr(ReportControl::Screen); }), u"CrystalReport: No parameter: "_s + mau);
        }
        controlo_->setParameterFields(0, u"p;;TRUE"_s);
        QCOMPARE(Pre_Visualizar().pages()->rows().heads.first(), u"Nome"_s); // an empty one is no head
    }
    void desistir_da_exportacao_nao_escreve_nada()
    {
        dialogos_.textos = {std::nullopt};
        Correr(ReportControl::File);
        QCOMPARE(dialogos_.perguntas.size(), 1);
    }
};

MORVEX_TESTE(TestCrystalReport)
#include "test_CrystalReport.moc"
