// Every form in every palette can be read, with the keyboard on a control and without, opened in that palette
// or before it came.
#include "controls/Contrast.h"
#include "controls/Palettes.h"
#include "controls/Units.h"
#include "platform/MessageBoxes.h"
#include "report/CrystalReport.h"
#include "report/ReportPages.h"
#include "report/ReportPreview.h"
#include "report/ReportView.h"
#include "session/Formularios.h"
#include "testlib/Accoes.h"
#include "testlib/Legibilidade.h"
#include "testlib/Teste.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QMenu>
#include <QMessageBox>
#include <QTextCharFormat>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace
{
// A desktop of two colours, as people with weak eyes choose it.
QPalette De_Duas_Cores(const QColor &fundo, const QColor &letras)
{
    QPalette palette(letras, fundo, fundo, fundo, letras, letras, letras, fundo, fundo);
    palette.setColor(QPalette::Highlight, letras);
    palette.setColor(QPalette::HighlightedText, fundo);
    palette.setColor(QPalette::ToolTipBase, fundo);
    palette.setColor(QPalette::ToolTipText, letras);
    palette.setColor(QPalette::Shadow, fundo);
    return palette;
}

const QMap<QString, QPalette (*)()> paletas{
    {u"clara"_s, [] { return lightPalette(qApp->style()->standardPalette()); }},
    {u"escura"_s, [] { return darkPalette(); }},
    {u"preto sobre branco"_s, [] { return De_Duas_Cores(Qt::white, Qt::black); }},
    {u"branco sobre preto"_s, [] { return De_Duas_Cores(Qt::black, Qt::white); }}};

QWidget &Abrir(ComFormulario &c, const QString &nome)
{
    const Abertura abertura = aberturas.contains(nome) ? aberturas[nome] : outras[nome];
    QWidget &form = *abertura(c);
    form.show();
    form.activateWindow();
    QCoreApplication::processEvents();
    return form;
}
} // namespace

class TestContraste : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { qApp->setPalette(lightPalette(qApp->style()->standardPalette())); }

    void todos_os_formularios_se_leem_em_todas_as_paletas_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("paleta");
        for (const QString &nome : aberturas.keys() + outras.keys())
            for (const QString &paleta : paletas.keys())
                QTest::addRow("%s, %s", qPrintable(nome), qPrintable(paleta)) << nome << paleta;
    }
    void todos_os_formularios_se_leem_em_todas_as_paletas()
    {
        QFETCH(QString, nome);
        QFETCH(QString, paleta);
        qApp->setPalette(paletas[paleta]());
        ComFormulario c(u"PortuguesPT"_s);
        const QStringList faltas = legibilidade::Ilegiveis(Abrir(c, nome));
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
    }

    void um_formulario_aberto_segue_a_paleta_que_muda_data()
    {
        QTest::addColumn<QString>("nome");
        for (const QString &nome : aberturas.keys() + outras.keys())
            QTest::newRow(qPrintable(nome)) << nome;
    }
    void um_formulario_aberto_segue_a_paleta_que_muda()
    {
        QFETCH(QString, nome);
        ComFormulario c(u"PortuguesPT"_s);
        QWidget &form = Abrir(c, nome);
        for (const char *paleta : {"escura", "branco sobre preto", "clara"}) {
            qApp->setPalette(paletas[QString::fromLatin1(paleta)]());
            QCoreApplication::processEvents(); // it reaches the controls as an event
            const QStringList faltas = legibilidade::Ilegiveis(form);
            QVERIFY2(faltas.isEmpty(),
                     qPrintable(QString::fromLatin1(paleta) + u": "_s + faltas.join(u'\n')));
        }
    }

    void os_links_do_cartao_leem_se_sob_o_rato_e_depois_dele_data()
    {
        os_menus_leem_se_com_a_entrada_marcada_e_sem_ela_data();
    }
    void os_links_do_cartao_leem_se_sob_o_rato_e_depois_dele()
    {
        QFETCH(QString, paleta);
        ComFormulario c(u"PortuguesPT"_s);
        Abrir(c, u"Main"_s);
        QLineEdit &linha = *c.janela.txtEmail1;
        const auto lida = [&] {
            return contrast(linha.palette().color(QPalette::Text), linha.palette().color(QPalette::Base));
        };
        QTest::mouseMove(&linha, QPoint(5, 5));
        QVERIFY(linha.font().underline());
        QVERIFY(lida() >= readableContrast);
        qApp->setPalette(paletas[paleta]());
        QCoreApplication::processEvents();
        QVERIFY2(lida() >= readableContrast, qPrintable(QString::number(lida())));
        QTest::mouseMove(c.janela.centralwidget, QPoint(1, 1));
        QVERIFY(!linha.font().underline());
        QVERIFY2(lida() >= readableContrast, qPrintable(QString::number(lida())));
    }

    void o_calendario_le_se_tambem_ao_fim_de_semana_data()
    {
        os_menus_leem_se_com_a_entrada_marcada_e_sem_ela_data();
    }
    void o_calendario_le_se_tambem_ao_fim_de_semana()
    {
        QFETCH(QString, paleta);
        ComFormulario c(u"PortuguesPT"_s);
        const auto &form = static_cast<frmAddEdit &>(Abrir(c, u"frmAddEdit"_s));
        qApp->setPalette(paletas[paleta]());
        QCoreApplication::processEvents();
        for (const Qt::DayOfWeek dia : {Qt::Saturday, Qt::Sunday}) {
            const QColor letras = form.Calendario->weekdayTextFormat(dia).foreground().color();
            for (const auto fundo : {QPalette::Base, QPalette::AlternateBase})
                QVERIFY(contrast(letras, form.Calendario->palette().color(fundo)) >= readableContrast);
        }
    }

    void as_notas_leem_se_na_cor_que_a_pessoa_escolheu_data()
    {
        QTest::addColumn<QString>("cor");
        for (const char *cor : {"#ffff00", "#ff0000", "#808080", "#000080", "#008080", "#ffffff", "#000000"})
            QTest::newRow(cor) << QString::fromLatin1(cor);
    }
    void as_notas_leem_se_na_cor_que_a_pessoa_escolheu()
    {
        QFETCH(QString, cor);
        qApp->setPalette(darkPalette());
        ComFormulario c(u"PortuguesPT"_s);
        c.s.geral.MemoCorFundo = QString::number(colourNumber(QColor(cor)));
        auto &nota = static_cast<frmMemo &>(*c.Novo<frmMemo>(c.s.geral, c.s.plataforma));
        nota.Criar(u"Compras"_s, QPoint());
        nota.txtMemo->setPlainText(u"Leite e pão"_s);
        QCOMPARE(nota.txtMemo->palette().color(QPalette::Base), QColor(cor));
        const QStringList faltas = legibilidade::Ilegiveis(nota);
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
    }

    void os_menus_leem_se_com_a_entrada_marcada_e_sem_ela_data()
    {
        QTest::addColumn<QString>("paleta");
        for (const QString &paleta : paletas.keys())
            QTest::newRow(qPrintable(paleta)) << paleta;
    }
    void os_menus_leem_se_com_a_entrada_marcada_e_sem_ela()
    {
        QFETCH(QString, paleta);
        qApp->setPalette(paletas[paleta]());
        ComFormulario c(u"PortuguesPT"_s);
        c.janela.show();
        int medidos = 0;
        QStringList faltas;
        for (QMenu *menu : c.janela.findChildren<QMenu *>()) {
            menu->popup(QPoint());
            for (QAction *entrada : QList<QAction *>{nullptr} + menu->actions()) {
                menu->setActiveAction(entrada);
                faltas += legibilidade::Ilegiveis_De(*menu, &medidos);
            }
            menu->close();
        }
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
        QVERIFY(medidos > 100);
    }

    void as_caixas_leem_se_data()
    {
        QTest::addColumn<QString>("paleta");
        QTest::addColumn<int>("figura");
        for (const QString &paleta : paletas.keys())
            for (const int figura : {box::stop, box::question, box::exclamation, box::information})
                QTest::addRow("%s, %d", qPrintable(paleta), figura) << paleta << figura;
    }
    void as_caixas_leem_se()
    {
        QFETCH(QString, paleta);
        QFETCH(int, figura);
        qApp->setPalette(paletas[paleta]());
        bool vista = false;
        accoes::Quando_Abrir<QMessageBox>([&](QMessageBox &caixa) {
            vista = true;
            const QStringList faltas = legibilidade::Ilegiveis(caixa);
            QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
            int medidos = 0;
            for (QWidget *parte : caixa.findChildren<QWidget *>())
                legibilidade::Ilegiveis_De(*parte, &medidos);
            QCOMPARE(medidos, 3); // the text and two buttons
            caixa.reject();
        });
        DesktopMessageBoxes().show(u"Eliminar o contacto?"_s, figura | box::yesNo, u"Morvex"_s, nullptr);
        QVERIFY(vista);
    }

    void a_caixa_dos_erros_le_se_com_os_pormenores_data() { as_dicas_leem_se_data(); }
    void a_caixa_dos_erros_le_se_com_os_pormenores()
    {
        QFETCH(QString, paleta);
        qApp->setPalette(paletas[paleta]());
        bool vista = false;
        accoes::Quando_Abrir<QMessageBox>([&](QMessageBox &caixa) {
            vista = true;
            const QStringList faltas = legibilidade::Ilegiveis(caixa);
            QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
            caixa.reject();
        });
        DesktopMessageBoxes().showError(Failure(Failure::FileNotFound, u"report"_s, u"no such file"_s));
        QVERIFY(vista);
    }

    void a_lista_aberta_de_uma_caixa_de_escolha_le_se_com_qualquer_linha_marcada_data()
    {
        as_dicas_leem_se_data();
    }
    void a_lista_aberta_de_uma_caixa_de_escolha_le_se_com_qualquer_linha_marcada()
    {
        QFETCH(QString, paleta);
        qApp->setPalette(paletas[paleta]());
        ComFormulario c(u"PortuguesPT"_s);
        c.s.Novo_Grupo(u"Vizinhos"_s);
        const auto &form = static_cast<frmAddEdit &>(Abrir(c, u"frmAddEdit"_s));
        form.ComboGrupos->showPopup();
        QAbstractItemView &lista = *form.ComboGrupos->view();
        QVERIFY(lista.isVisible() && lista.model()->rowCount() > 1);
        int medidos = 0;
        QStringList faltas;
        for (int linha = 0; linha < std::min(3, lista.model()->rowCount()); ++linha) {
            lista.setCurrentIndex(lista.model()->index(linha, 0));
            faltas += legibilidade::Ilegiveis_De(lista, &medidos);
        }
        form.ComboGrupos->hidePopup();
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
        QVERIFY2(medidos >= 3 * (2 + 2), qPrintable(QString::number(medidos)));
    }

    void a_previsao_le_se_e_o_papel_e_sempre_branco_data() { as_dicas_leem_se_data(); }
    void a_previsao_le_se_e_o_papel_e_sempre_branco()
    {
        QFETCH(QString, paleta);
        qApp->setPalette(paletas[paleta]());
        ComFormulario c(u"PortuguesPT"_s);
        for (int i = 0; i < 200; ++i) // of several pages, so that the moves between them can be used
            c.s.Novo_Contacto({{u"Nome"_s, Value(u"Rui %1"_s.arg(i))}, {u"Telefone1"_s, Value(u"21 555"_s)}});
        QVERIFY(QFile::copy(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/lista.rpt"_s,
                            c.s.Ficheiro(u"lista.rpt"_s)));
        CrystalReport controlo{c.s.caixas, c.s.dialogos, c.s.relogio, [] { return u"PortuguesPT"_s; }};
        frmImprimir form(c.s.geral, controlo, *c.janela.ListaNomes);
        form.opcoes->OptionLista->click();
        form.CheckBoxPrevisualizar->setChecked(true);
        form.cmdImprimir->click();
        ReportPreview &previsao = *controlo.preview();
        previsao.resize(1300, 800);
        QTRY_VERIFY(previsao.pages()->complete());
        const QStringList faltas = legibilidade::Ilegiveis(previsao);
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
        int medidos = 0;
        for (QWidget *parte : previsao.findChildren<QWidget *>())
            if (parte->isVisible()) legibilidade::Ilegiveis_De(*parte, &medidos);
        QVERIFY2(medidos >= 10, qPrintable(QString::number(medidos)));

        const QImage folha = previsao.findChild<ReportView *>()->viewport()->grab().toImage();
        const QPoint meio(folha.width() / 2, folha.height() / 2);
        double melhor = 1;
        int brancos = 0;
        for (int y = meio.y() - 50; y < meio.y() + 50; ++y)
            for (int x = meio.x() - 200; x < meio.x() + 200; ++x) {
                melhor = std::max(melhor, contrast(folha.pixelColor(x, y), Qt::white));
                brancos += folha.pixelColor(x, y) == QColor(Qt::white);
            }
        QVERIFY2(melhor >= readableContrast, qPrintable(QString::number(melhor)));
        QVERIFY2(brancos > 100 * 400 / 2, qPrintable(QString::number(brancos)));
        delete controlo.preview();
    }

    void as_dicas_leem_se_data() { os_menus_leem_se_com_a_entrada_marcada_e_sem_ela_data(); }
    void as_dicas_leem_se()
    {
        QFETCH(QString, paleta);
        qApp->setPalette(paletas[paleta]());
        QWidget janela;
        janela.show();
        QToolTip::showText(QPoint(10, 10), u"Eliminar contacto"_s, &janela);
        QWidget *dica = nullptr;
        for (QWidget *aberta : QApplication::topLevelWidgets())
            if (aberta->inherits("QTipLabel") && aberta->isVisible()) dica = aberta;
        QVERIFY(dica != nullptr);
        int medidos = 0;
        const QStringList faltas = legibilidade::Ilegiveis_De(*dica, &medidos);
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
        QCOMPARE(medidos, 1);
        QToolTip::hideText();
        delete dica;
    }
};

MORVEX_TESTE(TestContraste)
#include "test_Contraste.moc"
