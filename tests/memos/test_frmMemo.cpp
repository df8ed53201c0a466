// One note: its layout, its drags, its looks, and what of it stands in its row.
#include "controls/Units.h"
#include "memos/Arrastar.h"
#include "memos/frmMemo.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <algorithm>
#include <cstdlib>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace arrastar;

namespace
{
// An installation with one note on its desktop.
struct UmaNota {
    explicit UmaNota(
        const QString &linha = u"'Compras','pão','495','645','2775','1395','Tahoma',8.25,0,0,65535"_s)
    {
        s.Escrever(u"DELETE FROM TblMemos"_s);
        s.Escrever(
            u"INSERT INTO TblMemos (Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, FontSize, "
            "FontBold, FontItalic, CorFundo, Utilizador) VALUES (%1, 0)"_s.arg(linha));
        Reabrir();
    }

    // The note goes and comes back, as over a restart.
    void Reabrir()
    {
        nota = std::make_unique<frmMemo>(s.geral, s.plataforma);
        Recordset &rs = s.geral.de.Abrir("cmdListarMemos", {u"0"});
        nota->Restaurar(rs);
        rs.Close();
    }

    QString Linha(const QString &colunas)
    {
        return s.Linhas(u"SELECT %1 FROM TblMemos"_s.arg(colunas)).join(u'/');
    }
    QString Lugar() { return Linha(u"LeftForm, TopForm, Width, Height"_s); }
    QString Tudo() { return Linha(u"*"_s); }

    void Escrever_Texto(const QString &texto)
    {
        nota->txtMemo->setFocus();
        nota->txtMemo->selectAll();
        QTest::keyClicks(nota->txtMemo, texto);
    }

    Sistema s;
    std::unique_ptr<frmMemo> nota;
};

// A database that takes notes but lists none, until it is mended.
void Deixar_De_Listar(Sistema &s)
{
    s.Escrever(u"ALTER TABLE TblMemos RENAME TO Guardados"_s);
    s.Escrever(
        u"CREATE VIEW TblMemos AS SELECT * FROM Guardados WHERE abs(ID * 0 - 9223372036854775807 - 1) > 0"_s);
    s.Escrever(
        u"CREATE TRIGGER Aceitar INSTEAD OF INSERT ON TblMemos BEGIN INSERT INTO Guardados (Titulo, "
        "Descricao, LeftForm, TopForm, Width, Height, FontName, FontSize, FontBold, FontItalic, "
        "CorFundo, Utilizador) VALUES (NEW.Titulo, NEW.Descricao, NEW.LeftForm, NEW.TopForm, NEW.Width, "
        "NEW.Height, NEW.FontName, NEW.FontSize, NEW.FontBold, NEW.FontItalic, NEW.CorFundo, "
        "NEW.Utilizador); END"_s);
}
void Voltar_A_Listar(Sistema &s)
{
    s.Escrever(u"DROP VIEW TblMemos"_s);
    s.Escrever(u"ALTER TABLE Guardados RENAME TO TblMemos"_s);
}

// A new note that is in the file, but could not learn as which row.
struct UmaNotaSemNumero {
    UmaNotaSemNumero()
    {
        s.Escrever(u"DELETE FROM TblMemos"_s);
        Deixar_De_Listar(s);
        nota = std::make_unique<frmMemo>(s.geral, s.plataforma);
        s.geral.MemoFontName = u"Tahoma"_s;
        s.geral.MemoFontSize = u"8,25"_s;
        s.geral.MemoFontBold = s.geral.MemoFontItalic = u"False"_s;
        s.geral.MemoCorFundo = u"65535"_s;
        skipFailure([&] { nota->Criar(u"Compras"_s, {33, 43}); });
        if (s.Linhas(u"SELECT Titulo FROM Guardados"_s) != QStringList{u"Compras"_s}) qFatal("no row");
    }
    QStringList Titulos() { return s.Linhas(u"SELECT Titulo, LeftForm FROM TblMemos ORDER BY ID"_s); }

    Sistema s;
    std::unique_ptr<frmMemo> nota;
};
} // namespace

class TestFrmMemo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_ponto_agarrado_fica_debaixo_do_ponteiro()
    {
        DragLabel titulo;
        titulo.resize(100, 20);
        const QSignalSpy pedidos(&titulo, &DragLabel::Dragged);
        const QPoint ecra = titulo.mapToGlobal(QPoint(90, 5));
        Enviar(titulo, QEvent::MouseButtonPress, ecra, Qt::LeftButton, Qt::LeftButton);
        Enviar(titulo, QEvent::MouseMove, ecra + QPoint(7, 3), Qt::NoButton, Qt::LeftButton);
        QCOMPARE(pedidos.value(0).value(0).toPoint(), titulo.mapToGlobal(QPoint(7, 3)));
    }

    void cleanup() { scale::setLetters(scale::standardLetters); }

    void em_letras_duplas_a_nota_fica_onde_estava_e_duas_vezes_maior()
    {
        scale::setLetters(2 * scale::standardLetters);
        UmaNota u;
        QCOMPARE(u.nota->geometry(), QRect(33, 43, 370, 186));
        QCOMPARE(u.nota->cmdFechar->size(), QSize(28, 28));
        QVERIFY(u.nota->rect().contains(u.nota->cmdFechar->geometry()));
        u.nota->cmdGuardar->click();
        QCOMPARE(u.Lugar(), u"495|645|2775|1395"_s);
    }

    void em_letras_duplas_a_nota_tem_a_sua_cor()
    {
        scale::setLetters(2 * scale::standardLetters);
        UmaNota u;
        const QImage retrato = u.nota->grab().toImage();
        QCOMPARE(retrato.pixelColor(u.nota->txtMemo->geometry().center()), colour(65535));
    }

    void o_que_se_guarda_em_letras_grandes_vale_em_letras_normais()
    {
        scale::setLetters(2 * scale::standardLetters);
        UmaNota u;
        u.nota->move(60, 70);
        u.nota->resize(400, 200);
        QCOMPARE(u.Lugar(), u"900|1050|3000|1500"_s);
        scale::setLetters(scale::standardLetters);
        u.Reabrir();
        QCOMPARE(u.nota->geometry(), QRect(60, 70, 200, 100));
        scale::setLetters(2 * scale::standardLetters);
        u.Reabrir();
        QCOMPARE(u.nota->geometry(), QRect(60, 70, 400, 200));
    }

    void a_nota_nao_tem_moldura_nem_dono_nem_lugar_na_barra()
    {
        UmaNota u;
        QCOMPARE(u.nota->windowFlags() & Qt::WindowType_Mask, Qt::Tool);
        QVERIFY(u.nota->windowFlags().testFlag(Qt::FramelessWindowHint));
        QCOMPARE(u.nota->parentWidget(), nullptr);
    }

    void as_dicas_vem_dos_textos_data()
    {
        QTest::addColumn<QString>("idioma");
        for (const QString &idioma : {u"PortuguesPT"_s, u"AlemaoDE"_s})
            QTest::newRow(qPrintable(idioma)) << idioma;
    }
    void as_dicas_vem_dos_textos()
    {
        QFETCH(QString, idioma);
        Sistema s(Sistema::Estado::Semeado, idioma);
        frmMemo nota(s.geral, s.plataforma);
        const QList<std::pair<QToolButton *, int>> botoes{
            {nota.cmdGuardar, 186}, {nota.cmdFonte, 187}, {nota.cmdCor, 188}, {nota.cmdFechar, 189}};
        for (const auto &[botao, texto] : botoes) {
            QVERIFY(!s.Texto(texto).isEmpty());
            QCOMPARE(botao->toolTip(), s.Texto(texto));
            QCOMPARE(botao->accessibleName(), s.Texto(texto));
        }
    }

    void o_tamanho_e_a_cor_de_desenho()
    {
        Sistema s;
        const frmMemo nota(s.geral, s.plataforma);
        QCOMPARE(QSize(twips(nota.width()), twips(nota.height())), QSize(2775, 1395));
        QCOMPARE(nota.txtCorFundo->text().toInt(), 255 + 192 * 256 + 128 * 65536);
    }

    void a_linha_enche_a_nota()
    {
        UmaNota u(u"'Compras','pão','495','645','3000','1500','Tahoma',12.5,1,1,8438015"_s);
        const frmMemo &nota = *u.nota;
        QCOMPARE(nota.geometry(), pixelRect(495, 645, 3000, 1500));
        QCOMPARE(nota.lblTitle->text(), u"Compras"_s);
        QCOMPARE(nota.windowTitle(), u"Compras"_s);
        QCOMPARE(nota.txtMemo->toPlainText(), u"pão"_s);
        QCOMPARE(nota.txtMemo->font().family(), u"Tahoma"_s);
        QCOMPARE(nota.txtMemo->font().pointSizeF(), 12.5);
        QVERIFY(nota.txtMemo->font().bold() && nota.txtMemo->font().italic());
        const QColor cor(255, 192, 128);
        QCOMPARE(nota.palette().color(QPalette::Window), cor);
        QCOMPARE(nota.lblTitle->palette().color(QPalette::Window), cor);
        QCOMPARE(nota.txtMemo->palette().color(QPalette::Base), cor);
        QVERIFY(nota.isVisible());
        QVERIFY(!nota.cmdGuardar->isVisible());
    }

    void restaurar_nao_toca_na_linha()
    {
        UmaNota u(u"'Compras','pão','500','650','2780','1400','Tahoma',8.25,0,0,65535"_s);
        QCOMPARE(u.Tudo().section(u'|', 1), u"Compras|pão|500|650|2780|1400|Tahoma|8.25|0|0|65535|0"_s);
    }

    void as_celulas_nulas_deixam_o_que_o_desenho_tem()
    {
        UmaNota u(u"NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL"_s);
        QVERIFY(u.nota->isVisible());
        QCOMPARE(u.nota->size(), QSize(185, 93));
        QCOMPARE(u.nota->palette().color(QPalette::Window), QColor(255, 192, 128));
        u.nota->cmdGuardar->click(); // hidden, and yet: the note can be saved as it stands
        QCOMPARE(u.Linha(u"Width, Height, FontSize, CorFundo"_s), u"2775|1395|8.25|8438015"_s);
    }

    void cada_celula_nula_deixa_as_outras_aplicarem_se_data()
    {
        QTest::addColumn<QString>("nula");
        for (const char *coluna : {"FontName", "FontSize", "FontBold", "FontItalic", "CorFundo"})
            QTest::newRow(coluna) << QString::fromLatin1(coluna);
    }
    void cada_celula_nula_deixa_as_outras_aplicarem_se()
    {
        QFETCH(QString, nula);
        UmaNota u(u"'t','d','495','645','2775','1395','DejaVu Serif',20,1,1,255"_s);
        u.s.Escrever(u"UPDATE TblMemos SET %1=NULL"_s.arg(nula));
        u.Reabrir();
        const QFont letras = u.nota->txtMemo->font();
        QCOMPARE(letras.family() == u"DejaVu Serif"_s, nula != u"FontName"_s);
        QCOMPARE(letras.pointSizeF() == 20, nula != u"FontSize"_s);
        QCOMPARE(letras.bold(), nula != u"FontBold"_s);
        QCOMPARE(letras.italic(), nula != u"FontItalic"_s);
        for (const QWidget *controlo :
             {static_cast<QWidget *>(u.nota.get()), static_cast<QWidget *>(u.nota->lblTitle),
              static_cast<QWidget *>(u.nota->txtMemo)})
            QCOMPARE(controlo->palette().color(QPalette::Window) == QColor(255, 0, 0), nula != u"CorFundo"_s);
        QCOMPARE(u.nota->windowTitle(), u"t"_s);
    }

    void as_letras_mais_pequenas_tambem_valem()
    {
        const UmaNota u(u"'t','','495','645','2775','1395','Tahoma',1,0,0,65535"_s);
        QCOMPARE(u.nota->txtMemo->font().pointSizeF(), 1.0);
    }

    void um_tamanho_sem_sentido_nao_impede_a_nota_data()
    {
        QTest::addColumn<QString>("medida");
        for (const auto *medida : {"-3000", "0", "1e30"})
            QTest::newRow(medida) << QString::fromLatin1(medida);
    }
    void um_tamanho_sem_sentido_nao_impede_a_nota()
    {
        QFETCH(QString, medida);
        UmaNota u(u"'t','','495','645',%1,%1,'Tahoma',8.25,0,0,65535"_s.arg(medida));
        QVERIFY(u.nota->isVisible());
        QVERIFY(u.nota->width() <= 32767);
    }

    void o_arranjo_conta_em_twips_da_direita_e_de_baixo()
    {
        UmaNota u;
        u.nota->resize(300, 200); // 4500 by 3000 twips
        const frmMemo &n = *u.nota;
        QCOMPARE(n.txtMemo->size(), QSize(pixels(4500 - 150), pixels(3000 - 400)));
        const int topo = pixels(3000 - 350);
        QCOMPARE(n.cmdGuardar->pos(), QPoint(pixels(4500 - 420), topo));
        QCOMPARE(n.cmdFechar->pos(), QPoint(pixels(4500 - 350), topo));
        QCOMPARE(n.cmdCor->pos(), QPoint(pixels(4500 - 680), topo));
        QCOMPARE(n.cmdFonte->pos(), QPoint(pixels(4500 - 990), topo));
        QCOMPARE(n.LabelV->geometry(), QRect(300 - 5, 0, 5, 200));
        QCOMPARE(n.LabelH->geometry(), QRect(0, 200 - 5, 300, 5));
        QCOMPARE(n.LabelHV->geometry(), QRect(300 - 17, 200 - 13, 17, 13));
        QCOMPARE(n.lblTitle->width(), 300 - 2);
        QCOMPARE(n.Line3->geometry(), QRect(299, 0, 1, 199)); // the right-hand line and the one below
        QCOMPARE(n.Line4->geometry(), QRect(0, 199, 299, 1));
    }

    void o_arranjo_segue_as_letras_ao_twip_data()
    {
        QTest::addColumn<int>("letras");
        for (const int letras : {12, 24, 33})
            QTest::addRow("%d", letras) << letras;
    }
    void o_arranjo_segue_as_letras_ao_twip()
    {
        QFETCH(int, letras);
        scale::setLetters(letras);
        Sistema s;
        s.Escrever(u"DROP TABLE TblMemos"_s); // or each size would be written
        frmMemo n(s.geral, s.plataforma);
        n.show();
        for (int pontos = 250; pontos < 253; ++pontos) {
            n.resize(pontos, pontos);
            const int largura = twips(pontos);
            const int topo = pixels(largura - 350);
            QCOMPARE(n.txtMemo->width() + n.txtMemo->x(), pixels(largura - 75));
            QCOMPARE(n.txtMemo->height(), pixels(largura - 400));
            QCOMPARE(n.cmdGuardar->pos(), QPoint(pixels(largura - 420), topo));
            QCOMPARE(n.cmdFechar->pos(), QPoint(pixels(largura - 350), topo));
            QCOMPARE(n.cmdCor->pos(), QPoint(pixels(largura - 680), topo));
            QCOMPARE(n.cmdFonte->pos(), QPoint(pixels(largura - 990), topo));
            QCOMPARE(n.LabelV->pos(), QPoint(pixels(largura - 75), 0));
            QCOMPARE(n.LabelH->pos(), QPoint(0, pixels(largura - 75)));
            QCOMPARE(n.lblTitle->width(), pixels(largura - 30));
            const int rebordo = pixels(largura - 10);
            QCOMPARE(n.Line1->size(), QSize(rebordo, 1));
            QCOMPARE(n.Line2->size(), QSize(1, rebordo));
            QCOMPARE(n.Line3->geometry(), QRect(rebordo, 0, 1, rebordo));
            QCOMPARE(n.Line4->geometry(), QRect(0, rebordo, rebordo, 1));
            QCOMPARE(n.Line5->size(), QSize(rebordo, 1));
        }
    }

    void as_pegas_estao_a_frente_de_tudo()
    {
        UmaNota u;
        const frmMemo &n = *u.nota;
        QCOMPARE(n.childAt(n.width() - 2, n.height() - 2), n.LabelHV);
        QCOMPARE(n.childAt(n.width() - 2, 40), n.LabelV);
        QCOMPARE(n.childAt(40, n.height() - 2), n.LabelH);
        QCOMPARE(n.childAt(n.cmdFechar->geometry().center()), n.cmdFechar);
    }

    void uma_nota_minuscula_nao_da_erro()
    {
        UmaNota u;
        u.nota->resize(1, 1);
        QCOMPARE(u.nota->size(), QSize(1, 1));
        QCOMPARE(u.Lugar(), u"495|645|15|15"_s);
    }

    void redimensionar_grava_a_nota_toda()
    {
        UmaNota u;
        u.Escrever_Texto(u"leite"_s);
        u.nota->resize(300, 200);
        QCOMPARE(u.Lugar(), u"495|645|4500|3000"_s);
        QCOMPARE(u.Linha(u"Descricao"_s), u"leite"_s);
        QVERIFY(!u.nota->cmdGuardar->isVisible());
    }

    void arrastar_o_titulo_move_a_nota_e_so_o_fim_e_gravado()
    {
        UmaNota u;
        const QPoint fim = Puxar(*u.nota->lblTitle, {40, 60});
        QCOMPARE(u.nota->pos(), QPoint(33 + 40, 43 + 60));
        QCOMPARE(u.Lugar(), u"495|645|2775|1395"_s);
        Largar(*u.nota->lblTitle, fim);
        QCOMPARE(u.Lugar(), u"1095|1545|2775|1395"_s);
        QCOMPARE(u.nota->txtLeft->text(), u"1095"_s);
        QCOMPARE(u.nota->txtTop->text(), u"1545"_s);
        u.Reabrir();
        QCOMPARE(u.nota->pos(), QPoint(73, 103));
    }

    void o_ponto_em_que_o_botao_sobe_e_o_fim()
    {
        UmaNota u;
        const QPoint fim = Puxar(*u.nota->lblTitle, {40, 60});
        Largar(*u.nota->lblTitle, fim + QPoint(1, 2));
        QCOMPARE(u.Lugar(), u"1110|1575|2775|1395"_s);
    }

    void um_arrasto_grava_tambem_o_texto_por_guardar()
    {
        UmaNota u;
        u.Escrever_Texto(u"leite"_s);
        QCOMPARE(u.Linha(u"Descricao"_s), u"pão"_s);
        Arrastar(*u.nota->lblTitle, {40, 60});
        QCOMPARE(u.Linha(u"Descricao"_s), u"leite"_s);
        QVERIFY(!u.nota->cmdGuardar->isVisible());
    }

    void um_clique_no_titulo_nao_grava()
    {
        UmaNota u;
        u.Escrever_Texto(u"leite"_s);
        const QPoint ecra = u.nota->lblTitle->mapToGlobal(QPoint(5, 5));
        Enviar(*u.nota->lblTitle, QEvent::MouseButtonPress, ecra, Qt::LeftButton, Qt::LeftButton);
        Largar(*u.nota->lblTitle, ecra);
        QVERIFY(u.nota->cmdGuardar->isVisible());
        QCOMPARE(u.Linha(u"Descricao"_s), u"pão"_s);
    }

    void o_botao_direito_nao_arrasta()
    {
        UmaNota u;
        Arrastar(*u.nota->lblTitle, {40, 60}, Qt::RightButton);
        QCOMPARE(u.nota->pos(), QPoint(33, 43));
        QCOMPARE(u.Lugar(), u"495|645|2775|1395"_s);
    }

    void cada_pega_muda_as_suas_medidas_data()
    {
        QTest::addColumn<QString>("pega");
        QTest::addColumn<QSize>("tamanho");
        QTest::newRow("bottom") << u"LabelH"_s << QSize(185, 93 + 30);
        QTest::newRow("right") << u"LabelV"_s << QSize(185 + 20, 93);
        QTest::newRow("corner") << u"LabelHV"_s << QSize(185 + 20, 93 + 30);
    }
    void cada_pega_muda_as_suas_medidas()
    {
        QFETCH(QString, pega);
        QFETCH(QSize, tamanho);
        UmaNota u;
        auto &etiqueta = *u.nota->findChild<DragLabel *>(pega);
        const QPoint fim = Puxar(etiqueta, {20, 30});
        QCOMPARE(u.nota->size(), tamanho);
        QCOMPARE(u.Lugar(), u"495|645|2775|1395"_s);
        Largar(etiqueta, fim);
        QCOMPARE(u.Lugar(), u"495|645|%1|%2"_s.arg(twips(tamanho.width())).arg(twips(tamanho.height())));
        u.Reabrir();
        QCOMPARE(u.nota->geometry(), QRect(QPoint(33, 43), tamanho));
    }

    void uma_medida_impossivel_fica_como_estava()
    {
        UmaNota u;
        Puxar(*u.nota->LabelHV, {-1000, 30});
        QCOMPARE(u.nota->height(), 93 + 30);
        QVERIFY(u.nota->width() > 0);
    }

    void escrever_mostra_a_marca_e_nao_grava()
    {
        UmaNota u;
        QVERIFY(!u.nota->cmdGuardar->isVisible());
        u.Escrever_Texto(u"leite"_s);
        QVERIFY(u.nota->cmdGuardar->isVisible());
        QCOMPARE(u.Linha(u"Descricao"_s), u"pão"_s);
        u.Reabrir();
        QCOMPARE(u.nota->txtMemo->toPlainText(), u"pão"_s);
    }

    void guardar_grava_o_texto_e_esconde_a_marca_data()
    {
        QTest::addColumn<bool>("pelo_teclado");
        QTest::newRow("click") << false;
        QTest::newRow("keyboard") << true;
    }
    void guardar_grava_o_texto_e_esconde_a_marca()
    {
        QFETCH(bool, pelo_teclado);
        UmaNota u;
        u.nota->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(u.nota.get()));
        u.Escrever_Texto(u"leite"_s);
        if (pelo_teclado)
            QTest::keyClick(u.nota->txtMemo, Qt::Key_S, Qt::ControlModifier);
        else
            QTest::mouseClick(u.nota->cmdGuardar, Qt::LeftButton);
        QTRY_COMPARE(u.Linha(u"Descricao"_s), u"leite"_s); // a shortcut presses the button for a moment
        QVERIFY(!u.nota->cmdGuardar->isVisible());
    }

    void as_linhas_do_texto_separam_se_por_cr_e_lf()
    {
        UmaNota u;
        u.nota->txtMemo->setPlainText(u"um\ndois"_s);
        u.nota->cmdGuardar->click();
        QCOMPARE(u.Linha(u"Descricao"_s), u"um\r\ndois"_s);
        u.Reabrir();
        QCOMPARE(u.nota->txtMemo->toPlainText(), u"um\ndois"_s);
    }

    void o_titulo_mostra_se_a_letra()
    {
        UmaNota u(u"'<b>a</b> & b','','495','645','2775','1395','Tahoma',8.25,0,0,65535"_s);
        QCOMPARE(u.nota->lblTitle->text(), u"<b>a</b> & b"_s);
        QCOMPARE(u.nota->lblTitle->textFormat(), Qt::PlainText);
    }

    void um_titulo_comprido_acaba_em_reticencias_e_guarda_se_inteiro()
    {
        const QString titulo = u"Lista de compras para a festa"_s;
        UmaNota u(u"'%1','','495','645','1500','1395','Tahoma',8.25,0,0,65535"_s.arg(titulo));
        QVERIFY(u.nota->lblTitle->shownText().endsWith(u'\u2026'));
        u.nota->cmdGuardar->click();
        QCOMPARE(u.Linha(u"Titulo"_s), titulo);
    }

    void com_o_teclado_o_fundo_continua_o_da_nota()
    {
        UmaNota u;
        u.nota->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(u.nota.get()));
        u.nota->txtMemo->setFocus();
        QVERIFY(u.nota->txtMemo->hasFocus());
        QCOMPARE(u.nota->txtMemo->palette().color(QPalette::Base), colour(65535));
        u.nota->cmdCor->setFocus();
        QCOMPARE(u.nota->txtMemo->palette().color(QPalette::Base), colour(65535));
    }

    void o_texto_e_a_sua_barra_acabam_acima_dos_botoes_data()
    {
        QTest::addColumn<int>("letras");
        QTest::newRow("normais") << int{scale::standardLetters};
        QTest::newRow("duplas") << 2 * scale::standardLetters;
    }
    void o_texto_e_a_sua_barra_acabam_acima_dos_botoes()
    {
        QFETCH(int, letras);
        scale::setLetters(letras);
        UmaNota u;
        QPlainTextEdit &texto = *u.nota->txtMemo;
        texto.setPlainText(u"pão\n"_s.repeated(50));
        const QScrollBar &barra = *texto.verticalScrollBar();
        QTRY_VERIFY(barra.isVisible());
        const int fim = texto.height() - 15 * letras / scale::standardLetters;
        QCOMPARE(texto.viewport()->geometry().bottom() + 1, fim);
        QCOMPARE(barra.mapTo(&texto, QPoint(0, barra.height())).y(), fim);
        QVERIFY(texto.viewport()->geometry().right() < barra.mapTo(&texto, QPoint()).x());
        QCOMPARE(texto.viewport()->geometry().topLeft(), QPoint());
    }

    void o_texto_a_sua_faixa_e_a_barra_tem_a_cor_da_nota()
    {
        UmaNota u;
        const QColor amarelo = colour(65535);
        const QImage imagem = u.nota->grab().toImage();
        const QRect texto = u.nota->txtMemo->geometry();
        QCOMPARE(imagem.pixelColor(texto.center()), amarelo);
        QCOMPARE(imagem.pixelColor(texto.bottomLeft()), amarelo);
        QCOMPARE(u.nota->txtMemo->verticalScrollBar()->palette().color(QPalette::Window), amarelo);
    }

    void as_linhas_escurecem_a_cor_da_nota()
    {
        UmaNota u;
        const QImage imagem = u.nota->grab().toImage();
        constexpr int escura = 255 * (255 - 90) / 255;
        for (const QFrame *linha : {u.nota->Line1, u.nota->Line2, u.nota->Line3, u.nota->Line4, u.nota->Line5}) {
            const QColor cor = imagem.pixelColor(linha->geometry().center());
            QVERIFY(std::abs(cor.red() - escura) <= 1 && std::abs(cor.green() - escura) <= 1);
            QCOMPARE(cor.blue(), 0);
        }
    }

    void as_marcas_tem_moldura_so_com_o_ponteiro_ou_o_teclado()
    {
        UmaNota u;
        const QColor vermelho(0xC0, 0x48, 0x3E);
        const QColor moldura(0x2B, 0x36, 0x40);
        for (MarcaPorGuardar *marca : {u.nota->cmdGuardar, u.nota->cmdPorGuardar}) {
            marca->show();
            const auto cor = [&](const QPoint &lugar) { return marca->grab().toImage().pixelColor(lugar); };
            const QPoint canto = marca->rect().bottomRight();
            QVERIFY(marca->testAttribute(Qt::WA_Hover)); // painted anew as the pointer comes and goes
            QCOMPARE(cor(QPoint()), vermelho);
            QCOMPARE(cor(canto), vermelho);
            marca->setAttribute(Qt::WA_UnderMouse);
            QCOMPARE(cor(QPoint()), moldura);
            QCOMPARE(cor(canto), moldura);
            QCOMPARE(cor({2, 2}), vermelho);
            marca->setAttribute(Qt::WA_UnderMouse, false);
            u.nota->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(u.nota.get()));
            marca->setFocus();
            QCOMPARE(cor(QPoint()), moldura);
            u.nota->txtMemo->setFocus();
            QCOMPARE(cor(QPoint()), vermelho);
        }
    }

    void as_palavras_da_marca_sao_brancas_e_tem_margens_data()
    {
        o_texto_e_a_sua_barra_acabam_acima_dos_botoes_data();
    }
    void as_palavras_da_marca_sao_brancas_e_tem_margens()
    {
        QFETCH(int, letras);
        scale::setLetters(letras);
        UmaNota u;
        MarcaPorGuardar &marca = *u.nota->cmdPorGuardar;
        const int margem = 7 * letras / scale::standardLetters;
        QCOMPARE(marca.sizeHint().width(), marca.fontMetrics().horizontalAdvance(marca.text()) + 2 * margem);
        QCOMPARE(marca.sizeHint().height(), marca.fontMetrics().height());
        marca.show();
        const QImage imagem = marca.grab().toImage();
        int primeira = imagem.width();
        for (int x = 0; x < imagem.width(); ++x)
            for (int y = 0; y < imagem.height(); ++y)
                if (imagem.pixelColor(x, y).lightness() > 200) primeira = std::min(primeira, x);
        QVERIFY(primeira >= margem && primeira < margem + marca.fontMetrics().averageCharWidth());
    }

    void o_teclado_chega_a_cada_botao()
    {
        UmaNota u;
        u.nota->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(u.nota.get()));
        u.Escrever_Texto(u"x"_s);
        for (const QToolButton *botao : std::initializer_list<QToolButton *>{
                 u.nota->cmdGuardar, u.nota->cmdFonte, u.nota->cmdCor, u.nota->cmdFechar}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), botao);
        }
    }

    void sobre_um_fundo_escuro_as_letras_sao_claras()
    {
        UmaNota u(u"'t','','495','645','2775','1395','Tahoma',8.25,0,0,8388608"_s); // dark blue
        QCOMPARE(u.nota->txtMemo->palette().color(QPalette::Text), QColor(Qt::white));
        QCOMPARE(u.nota->txtMemo->viewport()->palette().color(QPalette::Text), QColor(Qt::white));
        u.s.dialogos.cores << QColor(Qt::yellow);
        u.nota->cmdCor->click();
        QCOMPARE(u.nota->txtMemo->palette().color(QPalette::Text), QColor(Qt::black));
        QCOMPARE(u.nota->txtMemo->viewport()->palette().color(QPalette::Text), QColor(Qt::black));
    }

    void a_fonte_escolhida_mostra_se_e_fica_na_linha()
    {
        UmaNota u(u"'t','','495','645','2775','1395','Tahoma',8.25,1,0,65535"_s);
        QFont inicial(u"Tahoma"_s);
        inicial.setPointSizeF(8.25);
        inicial.setBold(true);
        QFont nova(u"Courier"_s);
        nova.setPointSizeF(10.5);
        nova.setItalic(true);
        u.s.dialogos.fontes << nova;
        u.nota->cmdFonte->click();
        QFont pedida;
        QVERIFY(pedida.fromString(u.s.dialogos.perguntas.value(0).mid(5)));
        QCOMPARE(pedida.family(), inicial.family());
        QCOMPARE(pedida.pointSizeF(), 8.25);
        QVERIFY(pedida.bold() && !pedida.italic());
        QCOMPARE(u.nota->txtMemo->font().family(), u"Courier"_s);
        QCOMPARE(u.nota->txtFontSize->text(), u"10.5"_s);
        QCOMPARE(u.nota->txtFontBold->text(), u"False"_s);
        QCOMPARE(u.nota->txtFontItalic->text(), u"True"_s);
        QCOMPARE(u.Linha(u"FontName, FontSize, FontBold, FontItalic"_s), u"Courier|10.5|0|1"_s);
        QVERIFY(!u.nota->cmdGuardar->isVisible());
    }

    void a_cor_escolhida_mostra_se_nos_tres_e_fica_na_linha()
    {
        UmaNota u;
        u.s.dialogos.cores << QColor(0x10, 0x20, 0xF0);
        u.nota->cmdCor->click();
        QCOMPARE(u.s.dialogos.perguntas, QStringList{u"colour #ffff00"_s});
        for (const QWidget *controlo :
             {static_cast<QWidget *>(u.nota.get()), static_cast<QWidget *>(u.nota->lblTitle)})
            QCOMPARE(controlo->palette().color(QPalette::Window), QColor(0x10, 0x20, 0xF0));
        QCOMPARE(u.nota->txtMemo->palette().color(QPalette::Base), QColor(0x10, 0x20, 0xF0));
        const QImage imagem = u.nota->grab().toImage();
        for (const QPoint &ponto : {u.nota->lblTitle->geometry().center() + QPoint(60, 0),
                                    u.nota->txtMemo->geometry().center(), QPoint(3, 50)})
            QCOMPARE(imagem.pixelColor(ponto), QColor(0x10, 0x20, 0xF0));
        QCOMPARE(u.Linha(u"CorFundo"_s), QString::number(0xF02010));
    }

    void cancelar_um_dialogo_nao_muda_nem_grava()
    {
        UmaNota u;
        const QString antes = u.Tudo();
        u.Escrever_Texto(u"leite"_s);
        u.s.dialogos.fontes << std::nullopt;
        u.nota->cmdFonte->click();
        u.s.dialogos.cores << std::nullopt;
        u.nota->cmdCor->click();
        QCOMPARE(u.s.dialogos.perguntas.size(), 2);
        QCOMPARE(u.Tudo(), antes);
        QVERIFY(u.nota->cmdGuardar->isVisible());
        QCOMPARE(u.nota->txtMemo->font().pointSizeF(), 8.25);
    }

    void nao_em_cmdFechar_deixa_a_nota_como_estava()
    {
        UmaNota u;
        u.Escrever_Texto(u"leite"_s);
        const QString antes = u.Tudo();
        u.s.caixas.Espera(u.s.Texto(111), 36, u"Morvex - Memo"_s, answer::no);
        u.nota->cmdFechar->click();
        QVERIFY(u.nota->isVisible());
        QVERIFY(u.nota->cmdGuardar->isVisible());
        QCOMPARE(u.nota->txtMemo->toPlainText(), u"leite"_s);
        QCOMPARE(u.Tudo(), antes);
    }

    void sim_em_cmdFechar_apaga_a_linha_e_a_janela()
    {
        UmaNota u;
        u.s.caixas.Espera(u.s.Texto(111), 36, u"Morvex - Memo"_s, answer::yes);
        const QPointer<frmMemo> janela = u.nota.release();
        janela->cmdFechar->click();
        QVERIFY(!janela->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(janela.isNull());
        QCOMPARE(u.Tudo(), QString());
    }

    void fechar_a_janela_pergunta_como_o_botao()
    {
        UmaNota u;
        u.s.caixas.Espera(u.s.Texto(111), 36, u"Morvex - Memo"_s, answer::no);
        QVERIFY(!u.nota->close());
        QVERIFY(u.nota->isVisible());
        QVERIFY(u.s.caixas.Todas_Vistas());
    }

    void uma_gravacao_falhada_diz_se_e_a_nota_fica_por_guardar()
    {
        UmaNota u;
        u.Escrever_Texto(u"leite"_s);
        u.s.Escrever(u"DROP TABLE TblMemos"_s);
        u.s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(u.nota->cmdGuardar, Qt::LeftButton);
        QVERIFY(u.s.caixas.Todas_Vistas());
        QVERIFY(u.nota->cmdGuardar->isVisible());
        QCOMPARE(u.nota->txtMemo->toPlainText(), u"leite"_s);
    }

    void mover_e_medir_seguem_por_cima_de_uma_gravacao_falhada()
    {
        UmaNota u;
        u.s.Escrever(u"DROP TABLE TblMemos"_s);
        Arrastar(*u.nota->lblTitle, {40, 60});
        QCOMPARE(u.nota->pos(), QPoint(73, 103));
        Arrastar(*u.nota->LabelHV, {10, 10});
        QCOMPARE(u.nota->size(), QSize(195, 103));
    }

    void uma_gravacao_falhada_ve_se_ate_uma_passar()
    {
        UmaNota u;
        QVERIFY(!u.nota->cmdPorGuardar->isVisible());
        u.s.Recusar(u"UPDATE"_s, u"TblMemos"_s);
        Arrastar(*u.nota->lblTitle, {40, 60});
        QVERIFY(u.nota->cmdPorGuardar->isVisible());
        QVERIFY(u.nota->cmdGuardar->isVisible());
        u.s.Deixar_De_Recusar();
        Arrastar(*u.nota->LabelHV, {10, 10});
        QVERIFY(!u.nota->cmdPorGuardar->isVisible());
        QVERIFY(!u.nota->cmdGuardar->isVisible());
    }

    void uma_nota_que_nao_soube_o_seu_numero_nao_se_grava_outra_vez()
    {
        SO_NUM_FICHEIRO("a view in the place of its table");
        UmaNotaSemNumero u;
        QVERIFY(u.nota->cmdPorGuardar->isVisible());
        Arrastar(*u.nota->lblTitle, {40, 60});
        Voltar_A_Listar(u.s);
        QCOMPARE(u.Titulos(), QStringList{u"Compras|495"_s});
        u.nota->cmdPorGuardar->click();
        QCOMPARE(u.Titulos(), QStringList{u"Compras|1095"_s});
        QVERIFY(!u.nota->cmdPorGuardar->isVisible());
    }
    void fechar_uma_nota_que_nao_soube_o_seu_numero_apaga_a_sua_linha()
    {
        SO_NUM_FICHEIRO("a view in the place of its table");
        UmaNotaSemNumero u;
        Voltar_A_Listar(u.s);
        u.s.caixas.Espera(u.s.Texto(111), 36, u"Morvex - Memo"_s, answer::yes);
        u.nota.release()->cmdFechar->click();
        QCOMPARE(u.Titulos(), QStringList());
        QCOMPARE(u.s.geral.de.Rs("cmdListarMemos").State(), Recordset::Closed);
    }
    void o_numero_que_se_pergunta_mais_tarde_nao_e_o_de_outra_nota()
    {
        SO_NUM_FICHEIRO("a view in the place of its table");
        UmaNotaSemNumero u;
        Voltar_A_Listar(u.s);
        frmMemo outra(u.s.geral, u.s.plataforma);
        outra.Criar(u"Outra"_s, {333, 43});
        Arrastar(*u.nota->lblTitle, {40, 60});
        QCOMPARE(u.Titulos(), (QStringList{u"Compras|1095"_s, u"Outra|4995"_s}));
    }
    void uma_linha_que_ja_nao_ha_grava_se_de_novo()
    {
        SO_NUM_FICHEIRO("a view in the place of its table");
        UmaNotaSemNumero u;
        Voltar_A_Listar(u.s);
        u.s.Escrever(u"DELETE FROM TblMemos"_s);
        u.nota->cmdPorGuardar->click();
        QCOMPARE(u.Titulos(), QStringList{u"Compras|495"_s});
    }

    void a_marca_por_guardar_le_se_em_cada_largura_data()
    {
        QTest::addColumn<QString>("idioma");
        QTest::addColumn<int>("largura");
        for (const QString &idioma : {u"PortuguesPT"_s, u"AlemaoDE"_s})
            for (const int largura : {10, 30, 60, 90, 120, 150, 185, 400})
                QTest::addRow("%s %d", qPrintable(idioma), largura) << idioma << largura;
    }
    void a_marca_por_guardar_le_se_em_cada_largura()
    {
        QFETCH(QString, idioma);
        QFETCH(int, largura);
        Sistema s(Sistema::Estado::Semeado, idioma);
        s.Escrever(u"DROP TABLE TblMemos"_s);
        frmMemo nota(s.geral, s.plataforma);
        nota.show();
        nota.resize(largura, 93);
        const QToolButton &marca = *nota.cmdPorGuardar;
        QVERIFY(marca.isVisible());
        QVERIFY(nota.rect().contains(marca.geometry()));
        QVERIFY(!marca.text().isEmpty());
        QVERIFY(marca.width() >= (largura >= 60 ? marca.sizeHint().width() : 1));
        const bool inteira = marca.text() == marca.accessibleName();
        QVERIFY(inteira || (largura < 150 && marca.text().endsWith(u'\u2026')) ||
                (largura < 60 && marca.text() == u"!"_s));
        QVERIFY(!marca.toolTip().isEmpty());
        for (const QWidget *botao : {nota.cmdFonte, nota.cmdCor, nota.cmdFechar})
            QVERIFY(!marca.geometry().intersects(botao->geometry()));
    }

    void a_marca_por_guardar_deixa_margens_iguais_data()
    {
        QTest::addColumn<int>("largura");
        QTest::addColumn<int>("margem");
        for (const auto &[largura, margem] : {std::pair{1, 0}, {2, 0}, {3, 1}, {9, 4}, {10, 4}, {11, 5}, {60, 5}})
            QTest::addRow("%d", largura) << largura << margem;
    }
    void a_marca_por_guardar_deixa_margens_iguais()
    {
        QFETCH(int, largura);
        QFETCH(int, margem);
        Sistema s;
        s.Escrever(u"DROP TABLE TblMemos"_s);
        frmMemo nota(s.geral, s.plataforma);
        nota.show();
        nota.resize(largura, 93);
        const QRect marca = nota.cmdPorGuardar->geometry();
        QCOMPARE(marca.x(), margem);
        QCOMPARE(marca.width(), largura - 2 * margem);
        QCOMPARE(marca.bottom() + 1, nota.cmdFechar->y()); // right above the buttons
        nota.resize(largura, 20);
        QCOMPARE(nota.cmdPorGuardar->y(), 0);
    }

    void a_marca_por_guardar_esta_ao_lado_dos_botoes_se_couber()
    {
        Sistema s;
        s.Escrever(u"DROP TABLE TblMemos"_s);
        frmMemo nota(s.geral, s.plataforma);
        nota.show();
        const QToolButton &marca = *nota.cmdPorGuardar;
        nota.resize(400, 93);
        const int cabe = marca.width() + nota.LabelV->width() + 400 - nota.cmdFonte->x();
        for (const int falta : {0, 1}) {
            nota.resize(cabe - falta, 93);
            QCOMPARE(marca.y() == nota.cmdFechar->y(), falta == 0);
            QCOMPARE(marca.x(), 5);
            QCOMPARE(marca.text(), u"Não guardado"_s);
        }
    }

    // Two desks

    void um_memo_eliminado_la_com_texto_escrito_aqui_volta_a_ser_guardado()
    {
        UmaNota n;
        n.s.Escrever(u"DELETE FROM TblMemos"_s);
        n.Escrever_Texto(u"leite"_s);
        n.nota->cmdGuardar->click();
        QCOMPARE(n.Linha(u"Titulo, Descricao"_s), u"Compras|leite"_s);
        n.Escrever_Texto(u"queijo"_s);
        n.nota->cmdGuardar->click();
        QCOMPARE(n.Linha(u"Titulo, Descricao"_s), u"Compras|queijo"_s); // it is one note
    }

    void um_memo_eliminado_la_que_aqui_so_se_moveu_nao_volta()
    {
        UmaNota n;
        n.s.Escrever(u"DELETE FROM TblMemos"_s);
        n.nota->resize(300, 200);
        QCOMPARE(n.Linha(u"Titulo"_s), QString());
    }

    void um_memo_que_aqui_so_se_moveu_toma_o_texto_de_la()
    {
        UmaNota n;
        n.s.Escrever(u"UPDATE TblMemos SET Descricao='leite'"_s);
        n.nota->resize(300, 200);
        QCOMPARE(n.Linha(u"Descricao, Width"_s), u"leite|4500"_s);
        QCOMPARE(n.nota->txtMemo->toPlainText(), u"leite"_s);
    }

    void dois_textos_do_mesmo_memo_ficam_os_dois()
    {
        UmaNota n;
        n.s.Escrever(u"UPDATE TblMemos SET Descricao='leite'"_s);
        n.Escrever_Texto(u"queijo"_s);
        n.nota->cmdGuardar->click();
        QCOMPARE(n.Linha(u"Descricao"_s), u"leite/queijo"_s);
        n.Escrever_Texto(u"vinho"_s);
        n.nota->cmdGuardar->click();
        QCOMPARE(n.Linha(u"Descricao"_s), u"leite/vinho"_s);
    }
};

MORVEX_TESTE(TestFrmMemo)
#include "test_frmMemo.moc"
