// The quick search: which name is chosen as text is typed, and the keys of its box.
#include "contacts/Programa.h"
#include "controls/Units.h"
#include "data/Idiomas.h"

#include <QAccessible>
#include <QShortcut>

using namespace Qt::StringLiterals;

class TestProcuraRapida : public QObject
{
    Q_OBJECT

    static bool Teclas_Da_Janela_Ligadas(const Main &janela)
    {
        const auto teclas = janela.findChildren<QShortcut *>(Qt::FindDirectChildrenOnly);
        return std::all_of(teclas.begin(), teclas.end(), [](const QShortcut *t) { return t->isEnabled(); });
    }

    // "ber" stands in the box, the list has the keyboard, and the mouse brings it to the box.
    static void Clicar_Sobre_Ber(Programa &p)
    {
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.txtProcura->setText(u"ber"_s);
        p.Mostrar_Janela();
        p.janela.ListaNomes->setFocus();
        QTest::mouseClick(p.janela.txtProcura, Qt::LeftButton);
    }

    // Shown, with the list loaded and the keyboard in the box.
    static void Focar(Programa &p)
    {
        p.Mostrar_Janela();
        p.janela.txtProcura->setFocus();
        QVERIFY(p.janela.txtProcura->hasFocus());
    }

    // What the button does is told elsewhere; here it only counts.
    static QSignalSpy Contar_Cliques(QAbstractButton &botao)
    {
        QObject::disconnect(&botao, &QAbstractButton::clicked, nullptr, nullptr);
        return QSignalSpy(&botao, &QAbstractButton::clicked);
    }

private Q_SLOTS:
    void escolhe_o_primeiro_nome_que_comeca_pelo_texto_e_mostra_a_ficha()
    {
        Programa p;
        p.Contacto({{u"Nome"_s, u"Ana"_s}});
        p.Contacto({{u"Nome"_s, u"Beatriz"_s}, {u"Telefone1"_s, u"111"_s}});
        p.Contacto({{u"Nome"_s, u"Berta"_s}, {u"Telefone1"_s, u"222"_s}});
        p.Contacto({{u"Nome"_s, u"Carlos"_s}});
        p.Carregar();
        QTest::keyClicks(p.janela.txtProcura, u"b"_s);
        QCOMPARE(p.Escolhido(), u"Beatriz"_s);
        QCOMPARE(p.janela.txtTelefone1->text(), u"111"_s);
        QTest::keyClicks(p.janela.txtProcura, u"er"_s);
        QCOMPARE(p.Escolhido(), u"Berta"_s);
        QCOMPARE(p.janela.txtTelefone1->text(), u"222"_s);
    }

    void que_nome_bate_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("nome");
        QTest::newRow("maiusculas nao contam") << u"éRI"_s << u"Érica"_s;
        QTest::newRow("acentos contam") << u"Erica"_s << u"Erica"_s;
        QTest::newRow("acento que ninguem tem") << u"Anà"_s << QString();
        QTest::newRow("so o comeco conta") << u"rica"_s << QString();
        QTest::newRow("nome inteiro") << u"ana maria"_s << u"Ana Maria"_s;
        QTest::newRow("texto mais longo do que o nome") << u"Zita e mais"_s << QString();
        QTest::newRow("a ultima linha tambem e comparada") << u"zi"_s << u"Zita"_s;
        QTest::newRow("percentagem e um sinal como os outros") << u"%"_s << QString();
        QTest::newRow("um nome que tem so o comeco da barra") << u"Ana¦"_s << QString();
        QTest::newRow("barra que o nome tem") << u"Q¦"_s << QString();
        QTest::newRow("barra sozinha") << u"¦"_s << QString();
        QTest::newRow("o s alemao fica uma letra") << u"STRASSE"_s << QString();
        QTest::newRow("letras de dois bytes") << u"жА"_s << u"Жан"_s;
        QTest::newRow("letra de tres bytes") << u"ấn đ"_s << u"Ấn Độ"_s;
        QTest::newRow("outra letra de tres bytes") << u"ẩn"_s << QString();
        QTest::newRow("sinal de quatro bytes") << u"漢😀"_s << u"漢😀"_s;
        QTest::newRow("mais longo do que um nome de tres bytes") << u"漢😀x"_s << QString();
        QTest::newRow("o i sem ponto tem a maiuscula do i") << u"zı"_s << u"Zita"_s;
        QTest::newRow("o s alemao bate consigo") << u"STRAß"_s << u"Straße"_s;
    }
    void que_nome_bate()
    {
        QFETCH(QString, texto);
        QFETCH(QString, nome);
        Programa p;
        p.Carregar({u"Ana Maria"_s, u"Erica"_s, u"Érica"_s, u"Q¦Z"_s, u"Straße"_s, u"Zita"_s, u"Жан"_s,
                    u"Ấn Độ"_s, u"漢😀"_s});
        p.janela.txtProcura->setText(texto);
        QCOMPARE(p.Escolhido(), nome);
    }

    void um_texto_sem_nome_deixa_a_escolha_como_estava()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.ListaNomes->setListIndex(1);
        p.janela.txtProcura->setText(u"x"_s);
        QCOMPARE(p.Escolhido(), u"Berta"_s);
    }

    void um_texto_sem_nome_e_dito_no_lugar_do_contador_ate_se_escolher_um_nome()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        const QString contador = p.s.Texto(49) + u" 2"_s;
        QAccessibleInterface &caixa = *QAccessible::queryAccessibleInterface(p.janela.txtProcura);
        for (const bool pela_lista : {false, true}) {
            QCOMPARE(p.janela.lblContador->text(), contador);
            p.janela.txtProcura->setText(u"x"_s);
            QCOMPARE(p.janela.lblContador->text(), u"Sem resultados"_s);
            QCOMPARE(caixa.text(QAccessible::Description), p.s.Texto(72));
            QCOMPARE(p.janela.txtProcura->toolTip(), p.s.Texto(72));
            if (pela_lista)
                p.janela.ListaNomes->setListIndex(1);
            else
                p.janela.txtProcura->setText(u"b"_s);
            QCOMPARE(p.janela.lblContador->text(), contador);
            QCOMPARE(p.janela.txtProcura->accessibleDescription(), QString());
            QCOMPARE(p.janela.txtProcura->toolTip(), QString());
        }
    }

    void uma_lista_lida_de_novo_ja_nao_diz_que_nao_ha_resultados()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.txtProcura->setText(u"x"_s);
        p.lista.Carregar_Tabela();
        QCOMPARE(p.janela.lblContador->text(), p.s.Texto(49) + u" 2"_s);
        QCOMPARE(p.janela.txtProcura->accessibleDescription(), QString());
    }

    void as_palavras_sem_resultados_cabem_no_lugar_do_contador_em_cada_lingua()
    {
        for (const Idioma &idioma : idiomas::todos) {
            Programa p;
            p.s.geral.IdiomaActual = QString::fromLatin1(idioma.coluna);
            p.Carregar({u"Ana"_s, u"Berta"_s});
            p.janela.txtProcura->setText(u"x"_s);
            QVERIFY(!p.janela.lblContador->text().isEmpty());
            QVERIFY2(p.janela.lblContador->sizeHint().width() <= p.janela.lblContador->width(),
                     idioma.coluna);
        }
    }

    void sem_resultados_esta_escrito_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("frase");
        QTest::newRow("PortuguesPT") << u"Sem resultados"_s;
        QTest::newRow("PortuguesBR") << u"Sem resultados"_s;
        QTest::newRow("InglesUK") << u"No matches"_s;
        QTest::newRow("EspanholES") << u"Sin resultados"_s;
        QTest::newRow("ItalianoIT") << u"Nessun risultato"_s;
        QTest::newRow("FrancesFR") << u"Aucun résultat"_s;
        QTest::newRow("AlemaoDE") << u"Keine Treffer"_s;
    }
    void sem_resultados_esta_escrito_em_cada_lingua()
    {
        Programa p;
        p.s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        p.Carregar({u"Ana"_s});
        p.janela.txtProcura->setText(u"x"_s);
        QTEST(p.janela.lblContador->text(), "frase");
    }

    void a_barra_escrita_encurta_o_comprimento_e_nao_o_texto()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.txtProcura->setText(u"b"_s);
        QCOMPARE(p.Escolhido(), u"Berta"_s);
        p.janela.ListaNomes->setListIndex(0);
        p.janela.txtProcura->setText(u"b¦"_s);
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void o_texto_vazio_bate_com_a_primeira_linha()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.txtProcura->setText(u"b"_s);
        p.janela.txtProcura->clear();
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void um_so_contacto_e_comparado_como_os_outros()
    {
        Programa p;
        p.Carregar({u"Ana"_s});
        p.janela.ListaNomes->setListIndex(-1);
        p.janela.txtProcura->setText(u"b"_s);
        QCOMPARE(p.Escolhido(), QString());
        p.janela.txtProcura->setText(u"a"_s);
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void lista_vazia_diz_o_em_caixa_simples()
    {
        Programa p;
        p.Carregar();
        p.s.caixas.Espera(p.s.Texto(2), 0, u"Morvex 1.0"_s);
        p.janela.txtProcura->setText(u"a"_s);
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    void o_foco_seleciona_o_texto_pinta_a_caixa_e_desliga_as_teclas_da_janela()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.txtProcura->setText(u"ber"_s);
        p.Mostrar_Janela();
        p.janela.ListaNomes->setFocus();
        QVERIFY(Teclas_Da_Janela_Ligadas(p.janela));
        p.janela.txtProcura->setFocus();
        QCOMPARE(p.janela.txtProcura->selectedText(), u"ber"_s);
        QCOMPARE(p.janela.txtProcura->palette().color(QPalette::Base), colour(0xC0FFFF));
        QVERIFY(!Teclas_Da_Janela_Ligadas(p.janela));
        p.janela.ListaNomes->setFocus();
        QCOMPARE(p.janela.txtProcura->palette().color(QPalette::Base), colour(0xFFFFFF));
        QVERIFY(Teclas_Da_Janela_Ligadas(p.janela));
    }

    void o_rato_que_traz_o_foco_tambem_seleciona_tudo()
    {
        Programa p;
        Clicar_Sobre_Ber(p);
        QTRY_COMPARE(p.janela.txtProcura->selectedText(), u"ber"_s);
    }

    void o_que_se_escreve_logo_atras_do_clique_fica_todo()
    {
        Programa p;
        Clicar_Sobre_Ber(p);
        QTest::keyClick(p.janela.txtProcura, Qt::Key_A); // before anything else is done
        QCOMPARE(p.janela.txtProcura->text(), u"a"_s);
        QCoreApplication::processEvents();
        QTest::keyClick(p.janela.txtProcura, Qt::Key_N);
        QCOMPARE(p.janela.txtProcura->text(), u"an"_s);
    }

    void o_cursor_que_anda_logo_atras_do_clique_fica_onde_o_puseram()
    {
        Programa p;
        Clicar_Sobre_Ber(p);
        QTest::keyClick(p.janela.txtProcura, Qt::Key_Home);
        QCoreApplication::processEvents();
        QCOMPARE(p.janela.txtProcura->selectedText(), QString());
        QCOMPARE(p.janela.txtProcura->cursorPosition(), 0);
    }

    void voltar_a_janela_nao_seleciona_o_que_se_escrevia()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        Focar(p);
        QTest::keyClicks(p.janela.txtProcura, u"be"_s);
        QFocusEvent sair(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QFocusEvent voltar(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(p.janela.txtProcura, &sair);
        QApplication::sendEvent(p.janela.txtProcura, &voltar);
        QVERIFY(!p.janela.txtProcura->hasSelectedText());
        QVERIFY(!Teclas_Da_Janela_Ligadas(p.janela));
    }

    void f2_edita_so_com_um_contacto_na_ficha()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        Focar(p);
        const QSignalSpy cliques = Contar_Cliques(*p.janela.cmdEditar);
        QTest::keyClick(p.janela.txtProcura, Qt::Key_F2);
        QCOMPARE(cliques.count(), 0);
        p.janela.ListaNomes->setListIndex(1);
        QTest::keyClick(p.janela.txtProcura, Qt::Key_F2);
        QCOMPARE(cliques.count(), 1);
    }

    void delete_pergunta_uma_vez_e_nao_apaga_texto()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        Focar(p);
        QTest::keyClicks(p.janela.txtProcura, u"be"_s);
        p.janela.txtProcura->selectAll();
        p.s.caixas.Espera(p.s.Texto(54) + u" Berta?"_s, 36, u"Morvex 1.0"_s, answer::no);
        QTest::keyClick(p.janela.txtProcura, Qt::Key_Delete);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.janela.txtProcura->text(), u"be"_s);
    }

    void delete_sem_contacto_na_ficha_apaga_texto()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        Focar(p);
        QTest::keyClicks(p.janela.txtProcura, u"xy"_s);
        QTest::keyClick(p.janela.txtProcura, Qt::Key_Home);
        QTest::keyClick(p.janela.txtProcura, Qt::Key_Delete);
        QCOMPARE(p.janela.txtProcura->text(), u"y"_s);
    }

    void shift_com_delete_e_assunto_da_caixa()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.ListaNomes->setListIndex(0);
        Focar(p);
        QTest::keyClicks(p.janela.txtProcura, u"be"_s);
        p.janela.txtProcura->selectAll();
        QTest::keyClick(p.janela.txtProcura, Qt::Key_Delete, Qt::ShiftModifier);
        QVERIFY(p.janela.txtProcura->text().isEmpty());
    }

    void escape_esconde_a_janela()
    {
        Programa p;
        p.Carregar({u"Ana"_s});
        Focar(p);
        QTest::keyClick(p.janela.txtProcura, Qt::Key_Escape);
        QVERIFY(!p.janela.isVisible());
    }

    void as_setas_passam_o_foco_a_lista_e_andam_nela_data()
    {
        QTest::addColumn<int>("tecla");
        QTest::addColumn<int>("de");
        QTest::addColumn<QString>("nome");
        QTest::newRow("cima") << int(Qt::Key_Up) << 1 << u"Ana"_s;
        QTest::newRow("cima na primeira") << int(Qt::Key_Up) << 0 << u"Carlos"_s;
        QTest::newRow("baixo") << int(Qt::Key_Down) << 1 << u"Carlos"_s;
        QTest::newRow("baixo na ultima") << int(Qt::Key_Down) << 2 << u"Ana"_s;
        QTest::newRow("baixo sem escolha") << int(Qt::Key_Down) << -1 << u"Ana"_s;
    }
    void as_setas_passam_o_foco_a_lista_e_andam_nela()
    {
        QFETCH(int, tecla);
        QFETCH(int, de);
        QFETCH(QString, nome);
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s, u"Carlos"_s});
        p.janela.ListaNomes->setListIndex(de);
        Focar(p);
        QTest::keyClick(p.janela.txtProcura, static_cast<Qt::Key>(tecla));
        QCOMPARE(p.Escolhido(), nome);
        QVERIFY(p.janela.ListaNomes->hasFocus());
    }

    void as_teclas_da_janela_trabalham_fora_da_caixa()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        Focar(p);
        p.janela.ListaNomes->setFocus();
        p.janela.ListaNomes->setListIndex(0);
        p.s.caixas.Espera(p.s.Texto(54) + u" Ana?"_s, 36, u"Morvex 1.0"_s, answer::no);
        QTest::keyClick(&p.janela, Qt::Key_Delete);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QTest::keyClick(&p.janela, Qt::Key_Escape);
        QVERIFY(!p.janela.isVisible());
    }
};

MORVEX_TESTE(TestProcuraRapida)
#include "test_ProcuraRapida.moc"
