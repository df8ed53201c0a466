// The notes together: how new ones come into being, and which come back at a start.
#include "controls/Units.h"
#include "data/Idiomas.h"
#include "janela/Janela.h"
#include "memos/Arrastar.h"
#include "memos/frmMemo.h"
#include "memos/Memos.h"
#include "session/Main.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace arrastar;

namespace
{
QList<frmMemo *> Notas()
{
    QList<frmMemo *> notas;
    for (QWidget *janela : QApplication::topLevelWidgets())
        if (auto *nota = qobject_cast<frmMemo *>(janela); nota != nullptr && nota->isVisible()) notas << nota;
    return notas;
}

int Largura_Do_Texto(const QToolButton &botao) { return botao.fontMetrics().horizontalAdvance(botao.text()); }

void Activar(QWidget &janela)
{
    janela.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &janela);
}

// From here on the database takes no new note, as on a full disk.
void Travar(Sistema &s) { s.Recusar(u"INSERT"_s, u"TblMemos"_s); }

// A desktop without notes, and the main window's form with the three entries that make one.
struct Secretaria {
    Secretaria()
    {
        s.Escrever(u"DELETE FROM TblMemos"_s);
        s.geral.MemoFontName = u"Tahoma"_s;
        s.geral.MemoFontSize = u"8,25"_s;
        s.geral.MemoFontBold = u"False"_s;
        s.geral.MemoFontItalic = u"True"_s;
        s.geral.MemoCorFundo = u"65535"_s;
        Iniciar();
    }

    void Iniciar() { memos = std::make_unique<Memos>(janela, s.geral, s.plataforma); }
    void Reiniciar()
    {
        memos.reset();
        Iniciar();
        memos->Restaurar();
    }

    void Pedir(const std::optional<QString> &titulo, const QString &entrada = u"Memo"_s)
    {
        s.dialogos.textos << titulo;
        janela.findChild<QAction *>(entrada)->trigger();
    }
    // The one note of before the start.
    frmMemo &Voltar_Com_Uma()
    {
        Guardar_Linhas(1);
        Reiniciar();
        return *Nota(u"nota 1"_s);
    }
    frmMemo &Nova(const QString &titulo)
    {
        Pedir(titulo);
        return *Nota(titulo);
    }
    static frmMemo *Nota(const QString &titulo)
    {
        for (frmMemo *nota : Notas())
            if (nota->lblTitle->text() == titulo) return nota;
        qFatal("no note %s", qPrintable(titulo));
    }

    void Guardar_Linhas(int quantas, int utilizador = 0)
    {
        s.Escrever(
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) "
            "INSERT INTO TblMemos (Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, FontSize, "
            "FontBold, FontItalic, CorFundo, Utilizador) "
            "SELECT 'nota '||i, 'texto', 495, 645, 2775, 1185, 'Tahoma', 8.25, 0, 0, 65535, %2 FROM n"_s
                .arg(quantas)
                .arg(utilizador));
    }

    Sistema s;
    Janela janela;
    std::unique_ptr<Memos> memos;
};
} // namespace

class TestMemos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cancelar_o_titulo_nao_faz_nota_nem_som_data()
    {
        QTest::addColumn<bool>("cancelar");
        QTest::newRow("cancel") << true;
        QTest::newRow("empty") << false;
    }
    void cancelar_o_titulo_nao_faz_nota_nem_som()
    {
        QFETCH(bool, cancelar);
        Secretaria d;
        d.Pedir(cancelar ? std::nullopt : std::optional(QString()));
        QCOMPARE(d.s.dialogos.perguntas, QStringList{u"input Memo: "_s + d.s.Texto(88)});
        QVERIFY(Notas().isEmpty());
        QVERIFY(d.s.som.tocados.isEmpty());
        QCOMPARE(d.s.Linhas(u"SELECT * FROM TblMemos"_s), QStringList());
    }

    void os_tres_caminhos_fazem_uma_nota_data()
    {
        QTest::addColumn<QString>("entrada");
        for (const QString &entrada : {u"Memo"_s, u"memo"_s, u"SystemTrayMemo"_s})
            QTest::newRow(qPrintable(entrada)) << entrada;
    }
    void os_tres_caminhos_fazem_uma_nota()
    {
        QFETCH(QString, entrada);
        Secretaria d;
        d.Pedir(u"Compras"_s, entrada);
        QCOMPARE(Notas().size(), 1);
        QCOMPARE(d.s.som.tocados, QStringList{d.s.Ficheiro(u"memo.wav"_s)});
    }

    void uma_nota_nova_ganha_a_linha_logo_com_o_texto_vazio()
    {
        Secretaria d;
        const frmMemo &nota = d.Nova(u"Compras"_s);
        QCOMPARE(
            d.s.Linhas(u"SELECT Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, FontSize, "
                       "FontBold, FontItalic, CorFundo, Utilizador FROM TblMemos"_s),
            QStringList{u"Compras||%1|%2|2775|1395|Tahoma|8.25|0|1|65535|0"_s.arg(twips(nota.x()))
                            .arg(twips(nota.y()))});
        QCOMPARE(nota.txtId->text(), QString::number(d.s.Ultimo_Id(u"TblMemos"_s)));
        QCOMPARE(nota.txtLeft->text(), QString::number(twips(nota.x())));
        QCOMPARE(nota.txtTop->text(), QString::number(twips(nota.y())));
        QVERIFY(!nota.cmdGuardar->isVisible());
    }

    void uma_nota_nova_mostra_os_valores_das_opcoes()
    {
        Secretaria d;
        const frmMemo &nota = d.Nova(u"Compras"_s);
        QCOMPARE(nota.txtFontSize->text(), u"8,25"_s);
        QCOMPARE(nota.txtMemo->font().pointSizeF(), 8.25);
        QVERIFY(nota.txtMemo->font().italic() && !nota.txtMemo->font().bold());
        for (const QWidget *controlo :
             {static_cast<const QWidget *>(&nota), static_cast<const QWidget *>(nota.lblTitle)})
            QCOMPARE(controlo->palette().color(QPalette::Window), colour(65535));
        QCOMPARE(nota.txtMemo->palette().color(QPalette::Base), colour(65535));
    }

    void numa_nota_nova_escreve_se_logo()
    {
        Secretaria d;
        d.janela.show();
        frmMemo &nota = d.Nova(u"Compras"_s);
        QVERIFY(QTest::qWaitForWindowActive(&nota));
        QTest::keyClicks(QApplication::focusWidget(), u"pao"_s);
        QCOMPARE(nota.txtMemo->toPlainText(), u"pao"_s);
        QVERIFY(nota.cmdGuardar->isVisible());
    }

    void mudar_os_valores_das_opcoes_nao_muda_as_notas_que_ha()
    {
        Secretaria d;
        frmMemo &velha = d.Nova(u"velha"_s);
        d.s.geral.MemoFontName = u"Courier"_s;
        d.s.geral.MemoFontSize = u"20"_s;
        d.s.geral.MemoCorFundo = u"255"_s;
        const frmMemo &nova = d.Nova(u"nova"_s);
        QCOMPARE(nova.txtMemo->font().family(), u"Courier"_s);
        velha.txtMemo->setPlainText(u"x"_s);
        velha.cmdGuardar->click();
        QCOMPARE(velha.txtMemo->font().family(), u"Tahoma"_s);
        QCOMPARE(d.s.Linhas(u"SELECT Titulo, FontName, FontSize, CorFundo FROM TblMemos ORDER BY ID"_s),
                 (QStringList{u"velha|Tahoma|8.25|65535"_s, u"nova|Courier|20|255"_s}));
        d.Reiniciar();
        QCOMPARE(d.Nota(u"velha"_s)->palette().color(QPalette::Window), colour(65535));
    }

    void um_valor_das_opcoes_que_nao_e_numero_diz_se_e_nao_faz_nota()
    {
        Secretaria d;
        d.s.geral.MemoFontSize = QString();
        VERIFICAR_FALHA(d.Pedir(u"Compras"_s), Failure::TypeMismatch);
        QVERIFY(Notas().isEmpty());
        QCOMPARE(d.s.Linhas(u"SELECT * FROM TblMemos"_s), QStringList());
    }

    void cada_nota_guarda_a_sua_linha()
    {
        Secretaria d;
        frmMemo &uma = d.Nova(u"uma"_s);
        frmMemo &outra = d.Nova(u"outra"_s);
        QVERIFY(uma.pos() != outra.pos());
        uma.txtMemo->setPlainText(u"texto da uma"_s);
        uma.cmdGuardar->click();
        outra.txtMemo->setPlainText(u"texto da outra"_s);
        outra.cmdGuardar->click();
        QCOMPARE(d.s.Linhas(u"SELECT Titulo, Descricao FROM TblMemos"_s),
                 (QStringList{u"uma|texto da uma"_s, u"outra|texto da outra"_s}));
    }

    void a_linha_nova_e_do_utilizador_da_sessao()
    {
        Secretaria d;
        const int id = d.s.Novo_Utilizador(u"Maria"_s, u"x"_s);
        d.s.Entrar(u"Maria"_s);
        d.Nova(u"Compras"_s);
        QCOMPARE(d.s.Linhas(u"SELECT Utilizador FROM TblMemos"_s), QStringList{QString::number(id)});
    }

    void ao_reiniciar_as_notas_estao_onde_ficaram()
    {
        Secretaria d;
        frmMemo &uma = d.Nova(u"uma"_s);
        Arrastar(*uma.lblTitle, {-37, 41});
        Arrastar(*uma.LabelHV, {55, 23});
        frmMemo &outra = d.Nova(u"outra"_s);
        outra.txtMemo->setPlainText(u"duas\nlinhas"_s);
        outra.cmdGuardar->click();
        const QRect lugar_de_uma = uma.geometry();
        const QRect lugar_da_outra = outra.geometry();
        const QStringList linhas = d.s.Linhas(u"SELECT * FROM TblMemos"_s);
        d.Reiniciar();
        QCOMPARE(Notas().size(), 2);
        QCOMPARE(d.Nota(u"uma"_s)->geometry(), lugar_de_uma);
        QCOMPARE(d.Nota(u"outra"_s)->geometry(), lugar_da_outra);
        QCOMPARE(d.Nota(u"outra"_s)->txtMemo->toPlainText(), u"duas\nlinhas"_s);
        QCOMPARE(d.s.Linhas(u"SELECT * FROM TblMemos"_s), linhas);
    }

    void so_voltam_as_notas_do_utilizador_da_sessao()
    {
        Secretaria d;
        d.Guardar_Linhas(2, d.s.Novo_Utilizador(u"Maria"_s, u"x"_s));
        d.Guardar_Linhas(3, 0);
        d.Reiniciar();
        QCOMPARE(Notas().size(), 3);
        d.s.Entrar(u"Maria"_s);
        d.Reiniciar();
        QCOMPARE(Notas().size(), 2);
    }

    void cento_e_uma_linhas_abrem_cem_notas()
    {
        Secretaria d;
        d.Guardar_Linhas(101);
        d.memos->Restaurar();
        QCOMPARE(Notas().size(), 100);
        for (const frmMemo *nota : Notas())
            QVERIFY(nota->lblTitle->text() != u"nota 101"_s);
        QCOMPARE(d.s.geral.de.Rs("cmdListarMemos").State(), Recordset::Closed);
        QCOMPARE(d.s.Linhas(u"SELECT count(*) FROM TblMemos"_s), QStringList{u"101"_s});
        d.Nova(u"mais uma"_s); // by the menu there is no limit
        QCOMPARE(Notas().size(), 101);
    }

    void de_cento_e_uma_linhas_seguem_se_cem()
    {
        Secretaria d;
        d.Guardar_Linhas(101);
        d.memos->Seguir();
        QCOMPARE(Notas().size(), 100);
        d.s.Escrever(u"DELETE FROM TblMemos WHERE Titulo='nota 1'"_s);
        d.memos->Seguir(); // the last one is among the hundred now
        QCOMPARE(Notas().size(), 100);
        QCOMPARE(d.Nota(u"nota 101"_s)->txtMemo->toPlainText(), u"texto"_s);
    }

    void as_notas_novas_descem_em_degraus_e_recomecam_a_undecima()
    {
        Secretaria d;
        const QRect ecra = d.janela.screen()->availableGeometry();
        for (int i = 0; i < 12; ++i) {
            const int passo = i % 10 * 24;
            QCOMPARE(d.Nova(u"nota %1"_s.arg(i)).pos(),
                     ecra.topLeft() + QPoint(ecra.width() / 3 + passo, ecra.height() / 3 + passo));
        }
    }

    void com_cento_e_uma_linhas_o_arranque_segue()
    {
        Secretaria d;
        d.Guardar_Linhas(101);
        d.s.geral.ini.Escrever_Ini(u"aniversarios"_s, u"aviso"_s, u"2"_s);
        Main janela(d.s.geral, d.s.plataforma);
        janela.Carregar();
        QCOMPARE(Notas().size(), 100);
        QVERIFY(janela.isVisible());
        QCOMPARE(d.s.tabuleiro.historia.size(), 1); // the next step of the start has been
    }

    void uma_nota_fora_dos_ecras_vem_ao_alcance_e_a_linha_espera_pela_mao()
    {
        Secretaria d;
        d.Guardar_Linhas(1);
        d.s.Escrever(u"UPDATE TblMemos SET LeftForm=-150000, TopForm=90000"_s);
        const auto lugar = [&] { return d.s.Linhas(u"SELECT LeftForm, TopForm FROM TblMemos"_s).join(u'/'); };
        d.Reiniciar();
        frmMemo &nota = *d.Nota(u"nota 1"_s);
        const QRect ecra = nota.screen()->availableGeometry();
        const QRect titulo(nota.lblTitle->mapToGlobal(QPoint()), nota.lblTitle->size());
        QVERIFY(titulo.intersected(ecra).width() >= 40);
        QCOMPARE(lugar(), u"-150000|90000"_s);
        nota.txtMemo->setPlainText(u"x"_s);
        nota.cmdGuardar->click();
        Arrastar(*nota.LabelV, {10, 0});
        QCOMPARE(lugar(), u"-150000|90000"_s);
        Arrastar(*nota.lblTitle, {30, -30});
        QCOMPARE(lugar(), u"%1|%2"_s.arg(twips(nota.x())).arg(twips(nota.y())));
    }

    void uma_nota_que_a_base_recusa_diz_que_nao_esta_guardada_e_guarda_se_depois()
    {
        Secretaria d;
        Travar(d.s);
        frmMemo &nota = d.Nova(u"Compras"_s); // no box comes
        QVERIFY(nota.txtId->text().isEmpty());
        QVERIFY(nota.cmdPorGuardar->isVisible());
        QVERIFY(nota.cmdGuardar->isVisible());
        QCOMPARE(nota.cmdPorGuardar->text(), u"Não guardado"_s);
        QVERIFY(!nota.cmdPorGuardar->toolTip().isEmpty());
        QVERIFY(nota.cmdPorGuardar->width() > Largura_Do_Texto(*nota.cmdPorGuardar));
        QVERIFY(!nota.cmdPorGuardar->geometry().intersects(nota.cmdFonte->geometry()));
        QTest::keyClicks(nota.txtMemo, u"leite"_s); // nor at a key

        d.s.Deixar_De_Recusar();
        nota.cmdPorGuardar->click();
        QVERIFY(!nota.cmdPorGuardar->isVisible());
        QVERIFY(!nota.cmdGuardar->isVisible());
        QCOMPARE(d.s.Linhas(u"SELECT Titulo, Descricao FROM TblMemos"_s), QStringList{u"Compras|leite"_s});
    }

    void uma_nota_sem_linha_fecha_se_como_as_outras()
    {
        Secretaria d;
        Travar(d.s);
        frmMemo &nota = d.Nova(u"Compras"_s);
        d.s.caixas.Espera(d.s.Texto(111), 36, u"Morvex - Memo"_s, answer::no);
        QTest::mouseClick(nota.cmdFechar, Qt::LeftButton);
        QVERIFY(nota.isVisible());
        d.s.caixas.Espera(d.s.Texto(111), 36, u"Morvex - Memo"_s, answer::yes);
        QTest::mouseClick(nota.cmdFechar, Qt::LeftButton);
        QVERIFY(d.s.caixas.Todas_Vistas());
        QVERIFY(Notas().isEmpty());
    }

    void a_marca_de_nao_guardada_cabe_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("idioma");
        for (const Idioma &idioma : idiomas::todos)
            QTest::newRow(idioma.coluna) << QString::fromLatin1(idioma.coluna);
    }
    void a_marca_de_nao_guardada_cabe_em_cada_lingua()
    {
        QFETCH(QString, idioma);
        Secretaria d;
        d.s.geral.IdiomaActual = idioma;
        Travar(d.s);
        const frmMemo &nota = d.Nova(u"Compras"_s);
        QVERIFY(nota.cmdPorGuardar->isVisible());
        QVERIFY(nota.cmdPorGuardar->width() > Largura_Do_Texto(*nota.cmdPorGuardar));
        QVERIFY(nota.rect().contains(nota.cmdPorGuardar->geometry()));
    }

    void a_marca_de_nao_guardada_esta_escrita_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("dica");
        QTest::newRow("PortuguesPT")
            << u"Não guardado"_s << u"A base de dados não aceitou este memo. Clique para tentar de novo."_s;
        QTest::newRow("PortuguesBR")
            << u"Não salvo"_s << u"O banco de dados não aceitou este memo. Clique para tentar de novo."_s;
        QTest::newRow("InglesUK") << u"Not saved"_s
                                  << u"The database did not accept this memo. Click to try again."_s;
        QTest::newRow("EspanholES")
            << u"Sin guardar"_s
            << u"La base de datos no ha aceptado esta nota. Haga clic para intentarlo de nuevo."_s;
        QTest::newRow("ItalianoIT")
            << u"Non salvato"_s << u"Il database non ha accettato questo memo. Fare clic per riprovare."_s;
        QTest::newRow("FrancesFR")
            << u"Non enregistré"_s
            << u"La base de données n’a pas accepté ce mémo. Cliquez pour réessayer."_s;
        QTest::newRow("AlemaoDE")
            << u"Nicht gespeichert"_s
            << u"Die Datenbank hat dieses Memo nicht angenommen. Klicken Sie, um es erneut zu versuchen."_s;
    }
    void a_marca_de_nao_guardada_esta_escrita_em_cada_lingua()
    {
        Secretaria d;
        d.s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        const frmMemo &nota = d.Nova(u"Compras"_s);
        QTEST(nota.cmdPorGuardar->accessibleName(), "nome");
        QTEST(nota.cmdPorGuardar->toolTip(), "dica");
    }

    void uma_nota_apagada_nao_volta()
    {
        Secretaria d;
        d.Nova(u"uma"_s);
        frmMemo &outra = d.Nova(u"outra"_s);
        d.s.caixas.Espera(d.s.Texto(111), 36, u"Morvex - Memo"_s, answer::yes);
        outra.cmdFechar->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        d.Reiniciar();
        QCOMPARE(Notas().size(), 1);
        QCOMPARE(Notas().constFirst()->lblTitle->text(), u"uma"_s);
    }

    // What another desk has done

    void uma_nota_em_uso_segue_a_sua_linha_quando_se_larga_e_uma_so_vez()
    {
        Secretaria d;
        QWidget outra;
        outra.show();
        frmMemo &nota = d.Voltar_Com_Uma();
        const auto por = [&](const QString &texto) {
            d.s.Escrever(u"UPDATE TblMemos SET Descricao='%1'"_s.arg(texto));
        };
        const auto pegar_e_largar = [&](const std::function<void()> &entretanto) {
            Activar(nota);
            entretanto();
            Activar(outra);
            QCoreApplication::processEvents();
        };
        const QSignalSpy largadas(&nota, &frmMemo::Largada_Do_Teclado);
        pegar_e_largar([&] {
            por(u"leite"_s);
            d.memos->Seguir();
            QCOMPARE(nota.txtMemo->toPlainText(), u"texto"_s);
            QCOMPARE(largadas.size(), 0);
        });
        QCOMPARE(largadas.size(), 1);
        QCOMPARE(nota.txtMemo->toPlainText(), u"leite"_s);
        pegar_e_largar([&] { por(u"queijo"_s); }); // of which nobody has told this desk
        QCOMPARE(nota.txtMemo->toPlainText(), u"leite"_s);
    }

    void uma_nota_que_ninguem_usa_segue_a_linha_toda_e_nao_lhe_toca()
    {
        Secretaria d;
        QWidget outra;
        outra.show();
        const frmMemo &nota = d.Voltar_Com_Uma();
        Activar(outra);
        d.s.Escrever(
            u"UPDATE TblMemos SET Titulo='novo', Descricao='leite', LeftForm=600, TopForm=750, Width=3000, "
            "Height=1500, FontName='Courier', FontSize=12, FontBold=1, FontItalic=1, CorFundo=255"_s);
        const QStringList antes = d.s.Linhas(u"SELECT * FROM TblMemos"_s);
        d.memos->Seguir();
        QCOMPARE(nota.geometry(), pixelRect(600, 750, 3000, 1500));
        QCOMPARE(nota.lblTitle->text(), u"novo"_s);
        QCOMPARE(nota.windowTitle(), u"novo"_s);
        QCOMPARE(nota.txtMemo->toPlainText(), u"leite"_s);
        const QFont letras = nota.txtMemo->font();
        QCOMPARE(letras.family(), u"Courier"_s);
        QCOMPARE(letras.pointSizeF(), 12.0);
        QVERIFY(letras.bold() && letras.italic());
        QCOMPARE(nota.palette().color(QPalette::Window), colour(255));
        QVERIFY(nota.cmdGuardar->isHidden());
        QCOMPARE(d.s.Linhas(u"SELECT * FROM TblMemos"_s), antes);
    }

    void com_texto_por_guardar_a_nota_fica_como_esta()
    {
        Secretaria d;
        QWidget outra;
        outra.show();
        frmMemo &nota = d.Voltar_Com_Uma();
        nota.txtMemo->setPlainText(u"queijo"_s);
        Activar(outra);
        d.s.Escrever(u"UPDATE TblMemos SET Descricao='leite'"_s);
        d.memos->Seguir();
        QCOMPARE(nota.txtMemo->toPlainText(), u"queijo"_s);
        QVERIFY(nota.cmdGuardar->isVisible());
        nota.cmdGuardar->click();
        QCOMPARE(d.s.Linhas(u"SELECT Descricao FROM TblMemos ORDER BY ID"_s), (QStringList{u"leite"_s, u"queijo"_s}));
    }

    void uma_nota_em_uso_que_la_se_eliminou_guarda_se_de_novo()
    {
        Secretaria d;
        frmMemo &nota = d.Voltar_Com_Uma();
        Activar(nota);
        d.s.Escrever(u"DELETE FROM TblMemos"_s);
        d.memos->Seguir();
        QVERIFY(nota.isVisible());
        QVERIFY(nota.cmdGuardar->isVisible());
        nota.cmdGuardar->click();
        QCOMPARE(d.s.Linhas(u"SELECT Titulo, Descricao FROM TblMemos"_s), QStringList{u"nota 1|texto"_s});
    }

    void uma_nota_que_la_se_eliminou_desaparece_de_todo()
    {
        Secretaria d;
        QWidget outra;
        outra.show();
        const QPointer<frmMemo> nota = &d.Voltar_Com_Uma();
        Activar(outra);
        d.s.Escrever(u"DELETE FROM TblMemos"_s);
        d.memos->Seguir();
        QVERIFY(!nota->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(nota.isNull());
        d.Guardar_Linhas(2);
        d.memos->Seguir();
        QCOMPARE(Notas().size(), 2);
    }

    void so_a_nota_que_se_fez_aqui_pede_o_teclado()
    {
        Secretaria d;
        QVERIFY(!d.Nova(u"daqui"_s).testAttribute(Qt::WA_ShowWithoutActivating));
        d.Guardar_Linhas(1);
        d.memos->Seguir();
        QVERIFY(d.Nota(u"nota 1"_s)->testAttribute(Qt::WA_ShowWithoutActivating));
    }

    void com_o_dono_vao_as_notas()
    {
        Secretaria d;
        d.Nova(u"uma"_s);
        d.memos.reset();
        QVERIFY(Notas().isEmpty());
    }
};

MORVEX_TESTE(TestMemos)
#include "test_Memos.moc"
