// The captions of the main window: every one of its texts, in every language.
#include "controls/Controls.h"
#include "data/Idiomas.h"
#include "session/Legendas.h"
#include "session/Main.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace
{
struct Legenda {
    const char *controlo;
    int texto;
};

// Labels and buttons, menus and their entries: the caption itself.
constexpr auto legendas_escritas = std::to_array<Legenda>({
    {"lblPesquisa", 3},
    {"lblGrupo", 184},
    {"cmdNovo", 45},
    {"cmdEditar", 46},
    {"cmdEliminar", 47},
    {"Ficheiro", 125},
    {"Imprimir", 126},
    {"ImprimirLista", 127},
    {"ImprimirEnvelope", 128},
    {"Utilizadores", 129},
    {"CriarUtilizadores", 130},
    {"EditarUtilizadores", 131},
    {"EliminarUtilizadores", 132},
    {"Importar", 133},
    {"Exportar", 257},
    {"Grupos", 134},
    {"CriarGrupos", 130},
    {"EditarGrupos", 131},
    {"EliminarGrupos", 132},
    {"Fechar", 135},
    {"Sair", 136},
    {"Contactos", 137},
    {"NovoContacto", 138},
    {"EditarContacto", 139},
    {"EliminarContacto", 140},
    {"procurar", 141},
    {"Email", 142},
    {"Website", 143},
    {"Anterior", 144},
    {"Seguinte", 145},
    {"Ferramentas", 146},
    {"mnuMailNotification", 252},
    {"mnuMessenger", 241},
    {"Aniversarios", 147},
    {"Memo", 148},
    {"NovaTarefa", 149},
    {"ListaTarefas", 150},
    {"mnuBackup", 254},
    {"Opcoes", 151},
    {"Ajuda", 152},
    {"TopicosAjuda", 153},
    {"Sugerir", 154},
    {"Leiame", 155},
    {"Sobre", 156},
    {"RightClickEditar", 131},
    {"RightClickEliminar", 132},
    {"RightClickEmail", 142},
    {"RightClickMessenger", 241},
    {"RightClickWebsite", 143},
    {"RightClickPrintContacto", 158},
    {"RightClickEnvelope", 159},
    {"SystemTrayAbrirMorvex", 157},
    {"SystemTrayProcurar", 141},
    {"SystemTrayNovaTarefa", 149},
    {"SystemTrayListaTarefas", 150},
    {"SystemTrayMemo", 148},
    {"SystemTraySobre", 156},
    {"SystemTraySair", 136},
    {"ImportarContactos", 274},
    {"ExportarContactos", 275},
    {"Duplicados", 276},
    {"Sincronizar", 500},
    {"RightClickCopiarCartao", 277},
    {"RightClickQR", 278},
});

// Pictures and toolbar buttons: the tip.
constexpr auto dicas = std::to_array<Legenda>({
    {"Thumb", 264},
    {"imgTelefone1", 28},
    {"imgTelefone2", 29},
    {"imgTelemovel1", 30},
    {"imgTelemovel2", 31},
    {"imgTelemovel3", 32},
    {"imgAniversario", 38},
    {"imgWebsite", 34},
    {"imgMorada", 36},
    {"imgObservacoes", 37},
    {"imgGrupo", 42},
    {"novo_contacto", 138},
    {"editar_contacto", 139},
    {"eliminar_contacto", 140},
    {"procurar", 141},
    {"imprimir", 73},
    {"imprimir_envelope", 159},
    {"enviar_email", 142},
    {"messenger", 241},
    {"visitar_website", 143},
    {"keyCheckMail", 252},
    {"aniversarios", 147},
    {"memo", 148},
    {"nova_tarefa", 149},
    {"cima", 144},
    {"baixo", 145},
    {"opcoes", 151},
    {"ajuda", 266},
});

QString Escrita(const Main &janela, const QString &controlo)
{
    if (const auto *menu = janela.findChild<QMenu *>(controlo)) return menu->title();
    return control<QObject>(janela, controlo).property("text").toString();
}

QString Dica(const Main &janela, const QString &controlo)
{
    return control<QObject>(janela, controlo).property("toolTip").toString();
}
// What a screen reader calls a picture, or the button of a toolbar's entry.
QString Nome_Para_O_Leitor(const Main &janela, const QString &controlo)
{
    QWidget *widget = janela.findChild<QWidget *>(controlo);
    if (widget == nullptr) widget = janela.Toolbar1->widgetForAction(&control<QAction>(janela, controlo));
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

// A main window without a language, as a first run leaves it whose form was closed without a choice.
struct SemLingua {
    SemLingua()
    {
        s.geral.IdiomaActual.clear();
        legendas::Atribuir(janela, s.geral);
    }
    Sistema s;
    Main janela{s.geral, s.plataforma};
};

void Carregar(QWidget &widget, const QRect &onde)
{
    QTest::mouseClick(&widget, Qt::LeftButton, {}, onde.center());
}
} // namespace

class TestLegendas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_controlo_tem_o_seu_texto_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("idioma");
        for (const Idioma &idioma : idiomas::todos)
            QTest::newRow(idioma.coluna) << QString::fromLatin1(idioma.coluna);
    }
    void cada_controlo_tem_o_seu_texto_em_cada_lingua()
    {
        QFETCH(QString, idioma);
        Sistema s(Sistema::Estado::Semeado, idioma);
        Main janela(s.geral, s.plataforma);
        legendas::Atribuir(janela, s.geral);
        for (const Legenda &legenda : legendas_escritas) {
            QVERIFY2(!s.Texto(legenda.texto).isEmpty(), legenda.controlo);
            QVERIFY2(Escrita(janela, QLatin1StringView(legenda.controlo)) == s.Texto(legenda.texto),
                     legenda.controlo);
        }
        for (const Legenda &dica : dicas) {
            const QString esperada = withoutMnemonic(s.Texto(dica.texto));
            QVERIFY2(Dica(janela, QLatin1StringView(dica.controlo)) == esperada, dica.controlo);
            QVERIFY2(Nome_Para_O_Leitor(janela, QLatin1StringView(dica.controlo)) == esperada, dica.controlo);
        }
    }

    void o_que_se_diz_no_codigo_vem_na_sua_lingua_data()
    {
        QTest::addColumn<QString>("desfazer");
        QTest::addColumn<QString>("etiquetas");
        QTest::addColumn<QString>("idade");
        QTest::newRow("PortuguesPT") << u"Desfa&zer eliminação"_s << u"&Etiquetas"_s << u"Idade"_s;
        QTest::newRow("PortuguesBR") << u"Desfa&zer exclusão"_s << u"&Etiquetas"_s << u"Idade"_s;
        QTest::newRow("InglesUK") << u"&Undo Deletion"_s << u"L&abels"_s << u"Age"_s;
        QTest::newRow("EspanholES") << u"Des&hacer eliminación"_s << u"&Etiquetas"_s << u"Edad"_s;
        QTest::newRow("ItalianoIT") << u"Ann&ulla eliminazione"_s << u"E&tichette"_s << u"Età"_s;
        QTest::newRow("FrancesFR") << u"Ann&uler la suppression"_s << u"É&tiquettes"_s << u"Âge"_s;
        QTest::newRow("AlemaoDE") << u"Löschen &rückgängig machen"_s << u"&Etiketten"_s << u"Alter"_s;
    }
    void o_que_se_diz_no_codigo_vem_na_sua_lingua()
    {
        Sistema s;
        const Main janela(s.geral, s.plataforma);
        s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        legendas::Atribuir(const_cast<Main &>(janela), s.geral);
        QTEST(Escrita(janela, u"DesfazerEliminar"_s), "desfazer");
        QTEST(Escrita(janela, u"ImprimirEtiquetas"_s), "etiquetas");
        QTEST(control<QWidget>(janela, u"txtIdade"_s).accessibleName(), "idade");
    }

    void fax_e_mails_tem_dicas_fixas_em_qualquer_lingua()
    {
        for (const QString &idioma : {u"PortuguesPT"_s, u"AlemaoDE"_s}) {
            Sistema s(Sistema::Estado::Semeado, idioma);
            Main janela(s.geral, s.plataforma);
            legendas::Atribuir(janela, s.geral);
            QCOMPARE(janela.imgFax->toolTip(), u"Fax"_s);
            QCOMPARE(janela.imgEmail1->toolTip(), u"E-mail 1"_s);
            QCOMPARE(janela.imgEmail2->toolTip(), u"E-mail 2"_s);
        }
    }

    void imagem_e_caixa_de_uma_linha_tem_nome_para_o_leitor_de_ecra()
    {
        Sistema s;
        Main janela(s.geral, s.plataforma);
        legendas::Atribuir(janela, s.geral);
        QCOMPARE(janela.imgTelefone1->accessibleName(), s.Texto(28));
        QCOMPARE(janela.txtTelefone1->accessibleName(), s.Texto(28));
        QCOMPARE(janela.txtObs->accessibleName(), s.Texto(37));
        QCOMPARE(janela.txtFax->accessibleName(), u"Fax"_s);
    }

    void a_lista_sem_nomes_di_lo_e_tem_nome_para_o_leitor_de_ecra()
    {
        Sistema s(Sistema::Estado::Semeado, u"AlemaoDE"_s);
        Main janela(s.geral, s.plataforma);
        legendas::Atribuir(janela, s.geral);
        QCOMPARE(janela.ListaNomes->ListCount(), 0);
        QCOMPARE(janela.ListaNomes->accessibleDescription(), s.Texto(2));
        QCOMPARE(janela.ListaNomes->accessibleName(), withoutMnemonic(s.Texto(137)));
        QCOMPARE(janela.txtIdade->accessibleName(), u"Alter"_s);
    }

    void sem_lingua_activa_ficam_todas_em_branco()
    {
        Sistema s;
        s.geral.IdiomaActual.clear();
        Main janela(s.geral, s.plataforma);
        legendas::Atribuir(janela, s.geral);
        for (const Legenda &legenda : legendas_escritas)
            QVERIFY2(Escrita(janela, QLatin1StringView(legenda.controlo)).isEmpty(), legenda.controlo);
        for (const Legenda &dica : dicas)
            QVERIFY2(Dica(janela, QLatin1StringView(dica.controlo)).isEmpty(), dica.controlo);
        QCOMPARE(janela.imgFax->toolTip(), u"Fax"_s);
    }

    void sem_lingua_o_rato_ainda_chega_a_Sair()
    {
        SemLingua m;
        m.janela.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m.janela));
        QTimer::singleShot(0, &m.janela, [&] {
            QVERIFY(m.janela.Ficheiro->isVisible());
            QVERIFY(m.janela.Ficheiro->actionGeometry(m.janela.Sair).width() >= 16);
            QVERIFY(m.janela.Ficheiro->actionGeometry(m.janela.Sair).height() >= 16);
            Carregar(*m.janela.Ficheiro, m.janela.Ficheiro->actionGeometry(m.janela.Sair));
        });
        Carregar(*m.janela.menubar, m.janela.menubar->actionGeometry(m.janela.Ficheiro->menuAction()));
        QTRY_VERIFY(m.s.processo.Terminou());
    }

    void sem_lingua_a_barra_de_menus_tem_a_altura_de_sempre_e_lugar_para_um_dedo()
    {
        Sistema s;
        Main janela(s.geral, s.plataforma);
        legendas::Atribuir(janela, s.geral);
        SemLingua m;
        janela.show();
        m.janela.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m.janela));
        QVERIFY(m.janela.menubar->height() >= janela.menubar->height());
        for (const QMenu *menu :
             {m.janela.Ficheiro, m.janela.Contactos, m.janela.Ferramentas, m.janela.Ajuda})
            QVERIFY2(m.janela.menubar->actionGeometry(menu->menuAction()).width() >= 16,
                     qPrintable(menu->objectName()));
    }

    void as_imagens_dos_menus_so_estao_la_sem_lingua()
    {
        SemLingua m;
        const auto mostra = [](const QAction *entrada, const QString &imagem) {
            const QImage esperada = QIcon(imagem).pixmap(16).toImage();
            return !esperada.isNull() && entrada->icon().pixmap(16).toImage() == esperada;
        };
        QVERIFY(mostra(m.janela.Ficheiro->menuAction(), u":/imagens/menu/ficheiro.svg"_s));
        QVERIFY(mostra(m.janela.Contactos->menuAction(), u":/imagens/card/grupo.svg"_s));
        QVERIFY(mostra(m.janela.Ferramentas->menuAction(), u":/imagens/toolbar/opcoes.svg"_s));
        QVERIFY(mostra(m.janela.Ajuda->menuAction(), u":/imagens/toolbar/ajuda.svg"_s));
        QVERIFY(mostra(m.janela.Sair, u":/imagens/menu/sair.svg"_s));
        QVERIFY(mostra(m.janela.SystemTraySair, u":/imagens/menu/sair.svg"_s));
        Sistema s;
        Main janela(s.geral, s.plataforma);
        legendas::Atribuir(janela, s.geral);
        QVERIFY(janela.Ficheiro->icon().isNull()); // it would stand in the place of the title
        QVERIFY(janela.Sair->icon().isNull());
        QVERIFY(janela.SystemTraySair->icon().isNull());
    }

    void um_texto_que_falta_deixa_a_legenda_do_desenho_e_as_outras_seguem()
    {
        SO_NUM_FICHEIRO("a text that a server lacks comes from the program");
        Sistema s;
        s.Escrever(u"DELETE FROM TblIdiomas WHERE ID=184"_s);
        s.Escrever(u"UPDATE TblIdiomas SET PortuguesPT=NULL WHERE ID=45"_s);
        Main janela(s.geral, s.plataforma);
        const QString grupo = janela.lblGrupo->text();
        const QString novo = janela.cmdNovo->text();
        legendas::Atribuir(janela, s.geral);
        QCOMPARE(janela.lblGrupo->text(), grupo);
        QCOMPARE(janela.cmdNovo->text(), novo);
        QCOMPARE(janela.imgTelefone1->toolTip(), s.Texto(28));
        QCOMPARE(janela.ajuda->toolTip(), withoutMnemonic(s.Texto(266)));
    }
};

MORVEX_TESTE(TestLegendas)
#include "test_Legendas.moc"
