// The entries of the help menu and the help key: what each hands to the desktop.
#include "session/Ajuda.h"
#include "session/frmSobre.h"
#include "session/Main.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto de_ninguem = u"www.morvex.invalid";
constexpr auto proprio = u"ajuda.exemplo.example";

struct ComManual : Sistema {
    ComManual() { geral.PastaDoManual = qEnvironmentVariable("MORVEX_ENVIADOS") + u"/manual"_s; }

    // The one page that was opened: language and name. Empty where it is no page of the manual that exists.
    QString Pagina()
    {
        const QString aberta = shell.abertos.size() == 1 ? shell.abertos.takeFirst() : QString();
        const bool existe = aberta.startsWith(geral.PastaDoManual) && QFile::exists(aberta);
        return existe ? aberta.mid(geral.PastaDoManual.size()) : QString();
    }
};

struct ComAjuda : ComManual {
    Main janela{geral, plataforma};
};

void F1(QWidget &controlo) { QTest::keyClick(&controlo, Qt::Key_F1); }
} // namespace

class TestAjuda : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sem_servidor_proprio_os_topicos_abrem_o_manual_na_lingua_activa()
    {
        ComManual s;
        const QMap<QString, QString> paginas{
            {u"PortuguesPT"_s, u"/pt/index.html"_s}, {u"PortuguesBR"_s, u"/br/index.html"_s},
            {u"InglesUK"_s, u"/uk/index.html"_s},    {u"EspanholES"_s, u"/es/index.html"_s},
            {u"ItalianoIT"_s, u"/it/index.html"_s},  {u"FrancesFR"_s, u"/fr/index.html"_s},
            {u"AlemaoDE"_s, u"/de/index.html"_s}};
        for (const auto &[lingua, pagina] : paginas.asKeyValueRange()) {
            s.geral.IdiomaActual = lingua;
            ajuda::TopicosAjuda(s.geral, s.plataforma, de_ninguem);
            QCOMPARE(s.Pagina(), pagina);
        }
    }

    // The desktop of a test prefers no language of the seven.
    void sem_lingua_activa_abrem_na_do_ambiente_de_trabalho()
    {
        ComManual s;
        s.geral.IdiomaActual.clear();
        ajuda::TopicosAjuda(s.geral, s.plataforma, de_ninguem);
        QCOMPARE(s.Pagina(), u"/uk/index.html"_s);
    }

    void sem_servidor_proprio_sugerir_diz_a_quem_escrever()
    {
        ComManual s;
        ajuda::Sugerir(s.geral, s.plataforma, de_ninguem);
        QCOMPARE(s.Pagina(), u"/pt/sugerir.html"_s);
    }

    void sem_manual_instalado_uma_caixa_di_lo()
    {
        Sistema s;
        for (const QString &pasta : {u""_s, s.Ficheiro(u"manual"_s)}) {
            s.geral.PastaDoManual = pasta;
            s.caixas.Espera(u"O manual não foi encontrado. Volte a instalar o Morvex para o repor."_s,
                            box::exclamation, u"Morvex"_s);
            ajuda::TopicosAjuda(s.geral, s.plataforma, de_ninguem);
            QVERIFY(s.caixas.Todas_Vistas());
        }
        QVERIFY(s.shell.abertos.isEmpty());
    }

    // A row a page of the manual, with the forms in which the help key opens it.
    void cada_formulario_tem_a_sua_pagina_data()
    {
        QTest::addColumn<QStringList>("formularios");
        QTest::newRow("primeiros-passos")
            << QStringList{u"frmLoading"_s, u"frmOpcoes"_s, u"frmSeleccionarIdioma"_s, u"frmSobre"_s};
        QTest::newRow("contactos") << QStringList{u"Main"_s, u"frmAddEdit"_s, u"frmEmail"_s, u"frmProcurar"_s,
                                                  u"frmVerImagem"_s};
        QTest::newRow("grupos-e-utilizadores")
            << QStringList{u"frmLogin"_s,     u"frmNovoUser"_s,  u"frmEditUser"_s,   u"frmDeleteUser"_s,
                           u"frmNovoGrupo"_s, u"frmEditGroup"_s, u"frmDeleteGroup"_s};
        QTest::newRow("lembretes") << QStringList{u"frmAddEditTarefa"_s, u"frmListaTarefas"_s,
                                                  u"frmTarefas"_s, u"frmPopup"_s, u"frmAniversarios"_s};
        QTest::newRow("memos") << QStringList{u"frmMemo"_s};
        QTest::newRow("correio-e-messenger") << QStringList{u"frmAddEditEmail"_s, u"frmPopupEmail"_s};
        QTest::newRow("impressao") << QStringList{u"frmImprimir"_s, u"frmEnvelope"_s, u"frmEtiquetas"_s,
                                                  u"ReportPreview"_s};
        QTest::newRow("importar-e-exportar")
            << QStringList{u"frmImportar"_s,   u"frmImportar2"_s,         u"frmCampos"_s,
                           u"frmDuplicados"_s, u"frmImportarContactos"_s, u"frmImportarMDB"_s,
                           u"frmExportar"_s,   u"frmExportarContactos"_s, u"frmQR"_s,
                           u"frmSincronizar"_s, u"frmPopupSincronizacao"_s};
        QTest::newRow("copia-de-seguranca") << QStringList{u"frmBackup"_s};
        QTest::newRow("varios-postos") << QStringList{u"frmConflito"_s};
    }
    void cada_formulario_tem_a_sua_pagina()
    {
        QFETCH(QStringList, formularios);
        const QString pagina = QString::fromLatin1(QTest::currentDataTag());
        ComManual s;
        for (const QString &formulario : formularios) {
            QCOMPARE(ajuda::PaginaDoFormulario(formulario), pagina);
            ajuda::Formulario(s.geral, s.plataforma, formulario);
            QCOMPARE(s.Pagina(), u"/pt/"_s + pagina + u".html"_s);
        }
    }
    void um_formulario_sem_pagina_abre_a_primeira()
    {
        ComManual s;
        QCOMPARE(ajuda::PaginaDoFormulario(u"frmNenhum"_s), QString());
        ajuda::Formulario(s.geral, s.plataforma, u"frmNenhum"_s);
        QCOMPARE(s.Pagina(), u"/pt/index.html"_s);
    }

    void sem_manual_instalado_cada_lingua_di_lo_data()
    {
        QTest::addColumn<QString>("aviso");
        QTest::newRow("PortuguesPT")
            << u"O manual não foi encontrado. Volte a instalar o Morvex para o repor."_s;
        QTest::newRow("PortuguesBR")
            << u"O manual não foi encontrado. Instale o Morvex novamente para recuperá-lo."_s;
        QTest::newRow("InglesUK") << u"The manual was not found. Install Morvex again to restore it."_s;
        QTest::newRow("EspanholES")
            << u"No se encontró el manual. Vuelva a instalar Morvex para recuperarlo."_s;
        QTest::newRow("ItalianoIT")
            << u"Il manuale non è stato trovato. Installare di nuovo Morvex per ripristinarlo."_s;
        QTest::newRow("FrancesFR") << u"Le manuel est introuvable. Réinstallez Morvex pour le rétablir."_s;
        QTest::newRow("AlemaoDE")
            << u"Das Handbuch wurde nicht gefunden. Installieren Sie Morvex neu, um es wiederherzustellen."_s;
    }
    void sem_manual_instalado_cada_lingua_di_lo()
    {
        QFETCH(QString, aviso);
        Sistema s;
        s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        s.geral.PastaDoManual.clear();
        s.caixas.Espera(aviso, box::exclamation, u"Morvex"_s);
        ajuda::TopicosAjuda(s.geral, s.plataforma, de_ninguem);
        QVERIFY(s.caixas.Todas_Vistas());
    }

    void com_servidor_proprio_os_topicos_abrem_a_mesma_pagina_em_qualquer_lingua()
    {
        ComManual s;
        for (const QString &lingua : {u"PortuguesPT"_s, u"FrancesFR"_s, u""_s}) {
            s.geral.IdiomaActual = lingua;
            ajuda::TopicosAjuda(s.geral, s.plataforma, proprio);
            QCOMPARE(s.shell.abertos.takeFirst(), u"http://ajuda.exemplo.example/morvex/ajuda.php"_s);
        }
    }

    void com_servidor_proprio_sugerir_abre_a_pagina_das_sugestoes()
    {
        ComManual s;
        ajuda::Sugerir(s.geral, s.plataforma, proprio);
        QCOMPARE(s.shell.abertos, QStringList{u"http://ajuda.exemplo.example/sugerir.htm"_s});
    }

    void leiame_abre_o_ficheiro_da_pasta_do_programa()
    {
        Sistema s;
        ajuda::Leiame(s.geral, s.plataforma);
        QCOMPARE(s.shell.abertos, QStringList{s.Ficheiro(u"leiame.txt"_s)});
        QVERIFY(QFile::exists(s.shell.abertos.constFirst()));
    }

    // What they open is told by the build's own setting.
    void as_entradas_do_menu_e_o_botao_chamam_as_suas()
    {
        ComAjuda m;
        for (QAction *entrada : {m.janela.TopicosAjuda, m.janela.ajuda, m.janela.Sugerir, m.janela.Leiame})
            entrada->trigger();
        const QStringList abertos = std::exchange(m.shell.abertos, {});
        ajuda::TopicosAjuda(m.geral, m.plataforma, u"" MORVEX_WEB_HOST);
        ajuda::Sugerir(m.geral, m.plataforma, u"" MORVEX_WEB_HOST);
        QCOMPARE(abertos.size(), 4);
        QCOMPARE(abertos[0], m.shell.abertos[0]);
        QCOMPARE(abertos[1], m.shell.abertos[0]);
        QCOMPARE(abertos[2], m.shell.abertos[1]);
        QVERIFY(abertos[3].endsWith(u"leiame.txt"_s));
    }

    void f1_na_janela_abre_a_pagina_dos_contactos()
    {
        ComAjuda m;
        F1(*m.janela.ListaNomes);
        QCOMPARE(m.Pagina(), u"/pt/contactos.html"_s);
    }

    void f1_num_formulario_abre_a_sua_pagina()
    {
        ComAjuda m;
        frmSobre sobre(m.geral, &m.janela);
        F1(*sobre.findChildren<QWidget *>().constFirst());
        QCOMPARE(m.Pagina(), u"/pt/primeiros-passos.html"_s);
    }

    void f1_numa_pergunta_abre_a_pagina_de_quem_pergunta()
    {
        ComAjuda m;
        QWidget formulario(&m.janela);
        formulario.setObjectName(u"frmBackup"_s);
        QMessageBox pergunta(&formulario);
        F1(pergunta);
        QCOMPARE(m.Pagina(), u"/pt/copia-de-seguranca.html"_s);
    }

    void f1_numa_janela_de_ninguem_abre_o_indice()
    {
        ComAjuda m;
        QWidget estranha;
        F1(estranha);
        QCOMPARE(m.Pagina(), u"/pt/index.html"_s);
    }

    void so_f1_sozinha_e_a_tecla_da_ajuda()
    {
        ComAjuda m;
        QTest::keyClick(m.janela.ListaNomes, Qt::Key_F1, Qt::ControlModifier);
        QTest::keyClick(m.janela.ListaNomes, Qt::Key_F3);
        QKeyEvent repetida(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, true);
        QCoreApplication::sendEvent(m.janela.ListaNomes, &repetida); // held down, it opens one page
        QVERIFY(m.shell.abertos.isEmpty());
    }
};

MORVEX_TESTE(TestAjuda)
#include "test_Ajuda.moc"
