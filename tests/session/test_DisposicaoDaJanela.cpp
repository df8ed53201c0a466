// The room of the main window: what it does with more than its design, and what of it comes back.
#include "contacts/frmProcurar.h"
#include "controls/Units.h"
#include "session/LugarDaJanela.h"
#include "testlib/ComJanela.h"
#include "testlib/Teste.h"

#include <QHelpEvent>
#include <QLayout>
#include <QScreen>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace
{
// Larger than the design by so many pixels.
void Alargar(Main &janela, QSize folga)
{
    janela.show();
    const QSize menor = janela.layout()->totalMinimumSize();
    janela.resize(menor + folga);
    QCoreApplication::processEvents();
}

QMap<QString, QRect> Lugares(const Main &janela)
{
    QMap<QString, QRect> lugares;
    for (const QWidget *controlo : janela.centralwidget->findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        lugares[controlo->objectName()] = controlo->geometry();
    return lugares;
}

QMap<QString, Value> Contacto()
{
    return {{u"Nome"_s, u"Rui"_s}, {u"Telefone1"_s, u"1"_s}, {u"Obs"_s, u"o"_s}};
}

QString Dica(ListBox &lista, const QPoint &lugar)
{
    QToolTip::hideText();
    if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); })) qFatal("the tip stays");
    QHelpEvent pergunta(QEvent::ToolTip, lugar, lista.viewport()->mapToGlobal(lugar));
    QApplication::sendEvent(lista.viewport(), &pergunta);
    return QToolTip::text();
}
} // namespace

class TestDisposicaoDaJanela : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { scale::setLetters(scale::standardLetters); }

    void o_tamanho_desenhado_e_o_menor_e_nele_nada_muda_de_lugar()
    {
        ComJanela c;
        c.Mostrar(Contacto());
        const auto antes = Lugares(c.janela);
        Alargar(c.janela, {150, 90});
        QVERIFY(Lugares(c.janela) != antes);
        c.janela.resize(10, 10);
        QCoreApplication::processEvents();
        QCOMPARE(c.janela.centralwidget->size(), QSize(pixels(9600), pixels(6750)));
        QCOMPARE(Lugares(c.janela), antes);
    }

    void a_lista_as_colunas_e_as_observacoes_tomam_o_espaco()
    {
        ComJanela c;
        c.Mostrar(Contacto());
        const auto antes = Lugares(c.janela);
        Alargar(c.janela, {100, 80});
        const auto depois = Lugares(c.janela);
        QCOMPARE(depois[u"ListaNomes"_s], antes[u"ListaNomes"_s].adjusted(0, 0, 50, 40));
        QCOMPARE(depois[u"txtTelefone1"_s], antes[u"txtTelefone1"_s].adjusted(0, 40, 50, 40));
        QCOMPARE(depois[u"imgTelefone1"_s], antes[u"imgTelefone1"_s].translated(0, 40));
        QCOMPARE(depois[u"txtObs"_s], antes[u"txtObs"_s].adjusted(50, 40, 100, 80));
        QCOMPARE(depois[u"imgObservacoes"_s], antes[u"imgObservacoes"_s].translated(50, 40));
        QCOMPARE(depois[u"cmdNovo"_s], antes[u"cmdNovo"_s].translated(100, 0));
        QCOMPARE(depois[u"cmdData"_s], antes[u"cmdData"_s].translated(0, 80));
        QCOMPARE(depois[u"Toolbar1"_s], antes[u"Toolbar1"_s].adjusted(0, 0, 100, 0));
    }

    // A hundredth of this room is more than a pixel either way.
    void cada_parte_anda_e_cresce_pela_sua_quota()
    {
        ComJanela c;
        const auto antes = Lugares(c.janela);
        QWidget &centro = *c.janela.centralwidget;
        centro.setParent(nullptr); // no screen of a test is large enough for the whole window
        centro.resize(640 + 400, 450 + 200);
        centro.show();
        const auto depois = Lugares(c.janela);
        const QMap<QString, QRect> como{
            {u"Toolbar1"_s, {0, 0, 400, 0}},       {u"txtProcura"_s, {0, 0, 100, 0}},
            {u"lblGrupo"_s, {100, 0, 0, 0}},       {u"ComboGrupos"_s, {100, 0, 100, 0}},
            {u"ListaNomes"_s, {0, 0, 200, 100}},   {u"lblContador"_s, {400, 0, 0, 0}},
            {u"cmdNovo"_s, {400, 0, 0, 0}},        {u"cmdEditar"_s, {400, 0, 0, 0}},
            {u"cmdEliminar"_s, {400, 0, 0, 0}},    {u"cmdData"_s, {0, 200, 0, 0}},
            {u"PontoTarefas"_s, {400, 200, 0, 0}}, {u"lblServidor"_s, {0, 200, 400, 0}},
            {u"lblTemporizador"_s, {400, 200, 0, 0}}};
        for (const auto &[nome, quota] : como.asKeyValueRange()) {
            const QRect esperado(antes[nome].topLeft() + quota.topLeft(), antes[nome].size() + quota.size());
            QVERIFY2(depois[nome] == esperado, qPrintable(nome));
        }
        delete &centro;
    }

    // What follows a window's events takes none of them from it.
    void a_janela_e_o_seu_centro_ouvem_tudo_o_que_lhes_e_dito()
    {
        ComJanela c;
        (new LugarDaJanela(c.janela, c.s.geral.ini))->Repor();
        for (QWidget *ouvinte : {static_cast<QWidget *>(&c.janela), c.janela.centralwidget}) {
            QEvent do_programa(QEvent::None); // which nobody answers
            QVERIFY(!QCoreApplication::sendEvent(ouvinte, &do_programa));
            QEvent de_fora(QEvent::None);
            QSpontaneKeyEvent::setSpontaneous(&de_fora);
            QVERIFY(!qApp->notify(ouvinte, &de_fora));
        }
    }

    void um_contacto_escolhido_depois_fica_no_mesmo_espaco()
    {
        ComJanela antes;
        antes.Mostrar(Contacto());
        Alargar(antes.janela, {100, 80});
        ComJanela depois;
        Alargar(depois.janela, {100, 80});
        depois.Mostrar(Contacto());
        QCOMPARE(depois.janela.txtObs->geometry(), antes.janela.txtObs->geometry());
        QCOMPARE(depois.janela.txtTelefone1->geometry(), antes.janela.txtTelefone1->geometry());
        QCOMPARE(depois.janela.Thumb->geometry(), antes.janela.Thumb->geometry());
    }

    void a_fotografia_cresce_pelo_mesmo_divisor()
    {
        ComJanela c;
        QImage foto(200, 180, QImage::Format_RGB32);
        foto.fill(Qt::red);
        QVERIFY(foto.save(c.s.Ficheiro(u"foto.bmp"_s)));
        QMap<QString, Value> contacto = Contacto();
        contacto.insert(u"Fotografia"_s, c.s.Ficheiro(u"foto.bmp"_s));
        c.Mostrar(contacto);
        QCOMPARE(c.janela.Thumb->size(), QSize(100, 90));
        Alargar(c.janela, {60, 60}); // the box is 191 pixels wide then
        QCOMPARE(c.janela.Thumb->size(), QSize(100, 90));
        Alargar(c.janela, {78, 60}); // and 200 now
        QCOMPARE(c.janela.Thumb->size(), QSize(200, 180));
        QCOMPARE(c.janela.Thumb->x(), 352 + 39);
    }

    void em_letras_duplas_o_espaco_reparte_se_da_mesma_maneira()
    {
        scale::setLetters(2 * scale::standardLetters);
        ComJanela c;
        c.Mostrar(Contacto());
        c.janela.centralWidget()->setParent(
            nullptr); // no screen of a test is large enough for the whole window
        c.janela.centralwidget->show();
        c.janela.centralwidget->resize(1280 + 100, 900 + 80);
        QCOMPARE(c.janela.ListaNomes->geometry(), QRect(16, 100, 642 + 50, 264 + 40));
        QCOMPARE(c.janela.txtTelefone1->pos(), QPoint(56, 376 + 40));
        delete c.janela.centralwidget;
    }

    void o_tamanho_e_o_lugar_voltam_no_arranque_seguinte()
    {
        ComJanela c;
        auto *lugar = new LugarDaJanela(c.janela, c.s.geral.ini); // the window owns it
        lugar->Repor();
        QCOMPARE(c.janela.centralwidget->size(), QSize(640, 450));
        Alargar(c.janela, {60, 30});
        c.janela.move(33, 44);
        QTRY_COMPARE(c.s.geral.ini.Ler_Ini(u"janela"_s, u"largura"_s), QString::number(twips(700)));
        QTRY_COMPARE(c.s.geral.ini.Ler_Ini(u"janela"_s, u"altura"_s), QString::number(twips(480)));
        const QPoint canto = c.janela.geometry().topLeft();
        QTRY_COMPARE(c.s.geral.ini.Ler_Ini(u"janela"_s, u"left"_s),
                     QString::number(canto.x() * twipsPerPixel));
        QTRY_COMPARE(c.s.geral.ini.Ler_Ini(u"janela"_s, u"top"_s),
                     QString::number(canto.y() * twipsPerPixel));

        Main depois(c.s.geral, c.s.plataforma);
        (new LugarDaJanela(depois, c.s.geral.ini))->Repor();
        depois.show();
        QCOMPARE(depois.centralwidget->size(), QSize(700, 480));
    }

    void maximizada_volta_maximizada_e_o_ecra_inteiro_nao_e_medida_de_ninguem()
    {
        ComJanela c;
        ReadWriteINI &ini = c.s.geral.ini;
        (new LugarDaJanela(c.janela, ini))->Repor();
        c.janela.show();
        QVERIFY(!c.janela.isMaximized());
        c.janela.showMaximized();
        QTRY_COMPARE(ini.Ler_Ini(u"janela"_s, u"maximizada"_s), u"sim"_s);
        QTest::qWait(600);
        QCOMPARE(ini.Ler_Ini(u"janela"_s, u"largura"_s), QString());

        Main depois(c.s.geral, c.s.plataforma);
        (new LugarDaJanela(depois, ini))->Repor();
        depois.show();
        QVERIFY(depois.isMaximized());
        depois.hide();
        depois.show();
        QVERIFY(depois.isMaximized());
        depois.showMinimized();
        QCOMPARE(ini.Ler_Ini(u"janela"_s, u"maximizada"_s), u"sim"_s);
        depois.showNormal();
        QTRY_COMPARE(ini.Ler_Ini(u"janela"_s, u"maximizada"_s), u"nao"_s);
    }

    void sem_nada_mudado_nada_se_guarda()
    {
        ComJanela c;
        auto *lugar = new LugarDaJanela(c.janela, c.s.geral.ini);
        lugar->Repor();
        c.janela.show();
        QTest::qWait(600);
        for (const QString &chave : {u"largura"_s, u"left"_s, u"top"_s})
            QCOMPARE(c.s.geral.ini.Ler_Ini(u"janela"_s, chave), QString());
    }

    void para_onde_a_mao_a_leva_e_o_seu_lugar()
    {
        ComJanela c;
        (new LugarDaJanela(c.janela, c.s.geral.ini))->Repor();
        c.janela.show();
        QTest::qWait(600);
        QMoveEvent de_fora(c.janela.pos(), {90, 90}); // told by the window system
        QSpontaneKeyEvent::setSpontaneous(&de_fora);
        qApp->notify(&c.janela, &de_fora);
        QTRY_COMPARE(c.s.geral.ini.Ler_Ini(u"janela"_s, u"left"_s),
                     QString::number(c.janela.geometry().left() * twipsPerPixel));
    }

    void escondida_e_mostrada_fica_no_seu_lugar_e_ao_alcance()
    {
        ComJanela c;
        c.s.geral.ini.Escrever_Ini(u"janela"_s, u"left"_s, QString::number(30 * twipsPerPixel));
        c.s.geral.ini.Escrever_Ini(u"janela"_s, u"top"_s, QString::number(50 * twipsPerPixel));
        auto *lugar = new LugarDaJanela(c.janela, c.s.geral.ini);
        lugar->Repor();
        c.janela.show();
        QCOMPARE(c.janela.geometry().topLeft(), QPoint(30, 50));
        c.janela.hide();
        c.janela.setGeometry({{90, 90}, c.janela.size()}); // as a window system that has lost it does
        QTest::qWait(600);
        c.janela.show();
        QCOMPARE(c.janela.geometry().topLeft(), QPoint(30, 50));
        QCOMPARE(c.s.geral.ini.Ler_Ini(u"janela"_s, u"left"_s), QString::number(30 * twipsPerPixel));
    }

    void so_com_os_dois_numeros_ha_um_lugar()
    {
        for (const QString &so : {u"left"_s, u"top"_s}) {
            ComJanela c;
            c.s.geral.ini.Escrever_Ini(u"janela"_s, so, QString::number(77 * twipsPerPixel));
            (new LugarDaJanela(c.janela, c.s.geral.ini))->Repor();
            c.janela.show();
            const QPoint canto = c.janela.geometry().topLeft();
            QVERIFY2((so == "left"_L1 ? canto.x() : canto.y()) != 77, qPrintable(so));
        }
    }

    void enquanto_se_arrasta_nada_se_escreve()
    {
        ComJanela c;
        ReadWriteINI &ini = c.s.geral.ini;
        (new LugarDaJanela(c.janela, ini))->Repor();
        c.janela.show();
        for (int x = 31; x < 34; ++x) {
            c.janela.move(x, 44);
            QTest::qWait(20);
        }
        QCOMPARE(ini.Ler_Ini(u"janela"_s, u"left"_s), QString());
        QTRY_VERIFY(!ini.Ler_Ini(u"janela"_s, u"left"_s).isEmpty());
    }

    void uma_janela_que_nunca_encheu_o_ecra_nada_escreve_sobre_isso()
    {
        ComJanela c;
        (new LugarDaJanela(c.janela, c.s.geral.ini))->Repor();
        c.janela.show();
        c.janela.showMinimized();
        c.janela.showNormal();
        QCoreApplication::processEvents();
        QCOMPARE(c.s.geral.ini.Ler_Ini(u"janela"_s, u"maximizada"_s), QString());
    }

    void de_um_ecra_que_ja_nao_ha_vem_para_um_que_ha_sem_esquecer_o_outro()
    {
        ComJanela c;
        c.s.geral.ini.Escrever_Ini(u"janela"_s, u"left"_s, QString::number(5000 * twipsPerPixel));
        c.s.geral.ini.Escrever_Ini(u"janela"_s, u"top"_s, QString::number(50 * twipsPerPixel));
        auto *lugar = new LugarDaJanela(c.janela, c.s.geral.ini);
        lugar->Repor();
        c.janela.show();
        QVERIFY(c.janela.screen()->availableGeometry().right() - c.janela.geometry().left() >= 59);
        const QPoint trazida = c.janela.geometry().topLeft();
        const auto left = [&] { return c.s.geral.ini.Ler_Ini(u"janela"_s, u"left"_s); };
        c.janela.hide();
        QTest::qWait(600);
        QCOMPARE(left(), QString::number(5000 * twipsPerPixel));
        c.janela.show();
        for (const QPoint &canto : {QPoint(33, 50), trazida}) { // somebody moves it, and puts it back there
            c.janela.setGeometry({canto, c.janela.size()});
            QTRY_COMPARE(left(), QString::number(canto.x() * twipsPerPixel));
        }
    }

    void a_janela_de_procura_da_o_espaco_a_lista_e_volta_com_o_seu_tamanho()
    {
        ComJanela c;
        frmProcurar form(c.janela, c.s.geral, c.s.plataforma);
        form.Abrir();
        const QSize desenhado = form.size();
        QCOMPARE(form.ListaNomes->size(), QSize(124, 96).expandedTo(form.ListaNomes->size()));
        form.resize(desenhado + QSize(80, 40));
        QCoreApplication::processEvents();
        QCOMPARE(form.ListaNomes->height(), 96 + 40);
        QTRY_COMPARE(c.s.geral.ini.Ler_Ini(u"procurar"_s, u"altura"_s), QString::number(twips(136)));

        frmProcurar depois(c.janela, c.s.geral, c.s.plataforma);
        depois.Abrir();
        QCOMPARE(depois.size(), desenhado + QSize(80, 40));
        depois.resize(10, 10);
        QCOMPARE(depois.size(), desenhado);
    }

    void uma_linha_mais_comprida_do_que_a_lista_diz_se_numa_dica()
    {
        ComJanela c;
        const QString comprido = u"Maria <b> "_s + QString(80, u'x');
        c.s.Novo_Contacto({{u"Nome"_s, comprido}});
        c.s.Novo_Contacto({{u"Nome"_s, u"Rui"_s}});
        c.lista.Carregar_Tabela();
        c.janela.show();
        ListBox &nomes = *c.janela.ListaNomes;
        const auto meio = [&](int linha) {
            return nomes.visualRect(nomes.model()->index(linha, 0)).center();
        };
        QVERIFY(Dica(nomes, meio(0)).contains(QString(80, u'x')));
        QVERIFY(Dica(nomes, meio(0)).contains(u"&lt;b&gt;"_s));
        QCOMPARE(Dica(nomes, meio(1)), QString());
    }
};

MORVEX_TESTE(TestDisposicaoDaJanela)
#include "test_DisposicaoDaJanela.moc"
