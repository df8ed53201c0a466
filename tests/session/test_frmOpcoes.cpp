// The options: what they show, what acts at once, what confirming writes and in which order.
#include "controls/Controls.h"
#include "controls/Label.h"
#include "controls/Units.h"
#include "data/frmSeleccionarIdioma.h"
#include "online/frmAddEditEmail.h"
#include "session/frmLogin.h"
#include "session/frmOpcoes.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QScreen>

using namespace Qt::StringLiterals;

namespace
{
// An installation with the settings of the shipped config.ini in the process, and what the form needs of the
// main window.
struct Cenario {
    explicit Cenario(const QString &idioma = u"PortuguesPT"_s) : s(Sistema::Estado::Semeado, idioma)
    {
        Geral &g = s.geral;
        g.VersaoBD = u"4.2"_s;
        g.MemoFontName = u"Tahoma"_s;
        g.MemoFontSize = u"8,25"_s;
        g.MemoFontBold = g.MemoFontItalic = u"False"_s;
        g.MemoCorFundo = u"65535"_s;
        g.AvisoAniversarios = u"0"_s;
        g.DiasAniversarios = 7;
        g.AutorunArranque = g.MinimizarArranque = u"nao"_s;
        g.CaminhoBD = s.Base();
        g.EmailNotifyMinutos = 60;
    }

    // The form, new each time it is asked for.
    frmOpcoes &Abrir()
    {
        form_ = std::make_unique<frmOpcoes>(s.geral, s.plataforma, janela);
        return *form_;
    }

    // The form goes without having been closed.
    void Largar() { form_.reset(); }

    frmOpcoes &Mostrar()
    {
        frmOpcoes &form = Abrir();
        form.show();
        if (!QTest::qWaitForWindowActive(&form)) QTest::qFail("the form did not come", __FILE__, __LINE__);
        return form;
    }

    QString Ini(const QString &seccao, const QString &chave) { return s.geral.ini.Ler_Ini(seccao, chave); }

    QStringList Linhas_Do_Ini() const
    {
        QFile ficheiro(s.Ficheiro(u"config.ini"_s));
        if (!ficheiro.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
        return QString::fromLatin1(ficheiro.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }
    void Esvaziar_Ini() const { QFile::remove(s.Ficheiro(u"config.ini"_s)); }

    // From then on no write to that column succeeds.
    void Trancar(const QString &coluna) { s.Recusar(u"UPDATE OF "_s + coluna, u"TblConfig"_s); }

    int Nova_Conta(const QString &email, const QString &servidor = u"pop.example"_s)
    {
        s.geral.de.Executar("cmdInserirEmail", {email, servidor, u"ana"_s, u"senha"_s, u"0"_s});
        return s.Ultimo_Id(u"TblEmails"_s);
    }

    Sistema s;
    Janela janela;

private:
    std::unique_ptr<frmOpcoes> form_;
};

// The colour and the font of the sample box, as its user sees them.
unsigned Cor_Da_Amostra(const frmOpcoes &form)
{
    return colourNumber(form.txtMemo->palette().color(QPalette::Base));
}

QList<QWidget *> Quadros(const frmOpcoes &form)
{
    return {form.picOptions0, form.picOptions1, form.picOptions2, form.picOptions3,
            form.picOptions4, form.picOptions5, form.picOptions6, form.picOptions7};
}

QFont Fonte(const QString &familia, double tamanho, bool negrito, bool italico)
{
    QFont fonte(familia);
    fonte.setPointSizeF(tamanho);
    fonte.setBold(negrito);
    fonte.setItalic(italico);
    return fonte;
}

QStringList Itens(const QComboBox &combo)
{
    QStringList itens;
    for (int i = 0; i < combo.count(); ++i)
        itens << combo.itemText(i);
    return itens;
}

QString Legenda(const QWidget &controlo)
{
    const QVariant titulo = controlo.property("title");
    return titulo.isValid() ? titulo.toString() : controlo.property("text").toString();
}

// Calls back whenever a value is written or deleted.
class RegistoAtento final : public Registry
{
public:
    explicit RegistoAtento(std::function<void()> ver) : ver_(std::move(ver)) {}

    QString readString(Root, const QString &, const QString &) override { return {}; }
    bool writeString(Root, const QString &, const QString &, const QString &) override { return Ver(); }
    bool deleteValue(Root, const QString &, const QString &) override { return Ver(); }

private:
    bool Ver() const
    {
        ver_();
        return true;
    }
    std::function<void()> ver_;
};

void Clicar(QAbstractButton *botao) { QTest::mouseClick(botao, Qt::LeftButton); }
} // namespace

class TestFrmOpcoes : public QObject
{
    Q_OBJECT

    // Every setting different from what is shipped.
    static void Mudar_Tudo(Cenario &c, frmOpcoes &form)
    {
        form.cbActivarMailNotification->setChecked(true);
        form.ComboMailNotification->setCurrentText(u"15"_s);
        form.txtRemetente->setPlainText(u"Ana\nRua 1"_s);
        form.txtDestinatario->setPlainText(u"Caros"_s);
        form.Opcao2->setChecked(true);
        form.comboAniversario->setCurrentText(u"20"_s);
        c.s.dialogos.fontes << Fonte(u"Courier"_s, 9.75, true, true);
        form.cmdFonte->click();
        c.s.dialogos.cores << QColor(0x10, 0x20, 0x30);
        form.cmdCor->click();
        form.OpcaoSim->setChecked(true);
        form.cbMinimizar->setChecked(true);
        form.cbMessenger->setChecked(true);
        c.s.dialogos.textos << u"/sons/email.wav"_s;
        form.cmdProcurarSom->click();
        form.comboEventos->setListIndex(1);
        c.s.dialogos.textos << u"/sons/tarefa.wav"_s;
        form.cmdProcurarSom->click();
        c.s.caixas.Espera(c.s.Texto(238), 64, QApplication::applicationDisplayName());
        form.comboIdioma->setListIndex(2);
    }

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        const QList<std::pair<const char *, int>> controlos{{"frameRemetente", 193},
                                                            {"frameDestinatario", 194},
                                                            {"frameAniversarios", 190},
                                                            {"lblDias", 195},
                                                            {"Opcao0", 196},
                                                            {"Opcao1", 197},
                                                            {"Opcao2", 198},
                                                            {"frameMemos", 191},
                                                            {"cmdFonte", 200},
                                                            {"cmdCor", 201},
                                                            {"FrameBD", 220},
                                                            {"lblBD", 221},
                                                            {"cmdProcurar", 69},
                                                            {"frameArranque", 192},
                                                            {"OpcaoSim", 202},
                                                            {"OpcaoNao", 203},
                                                            {"cbMinimizar", 204},
                                                            {"cbMessenger", 265},
                                                            {"FrameIdiomas", 239},
                                                            {"lblIdioma", 240},
                                                            {"FrameMailNotification", 245},
                                                            {"lblMailNotification", 246},
                                                            {"cbActivarMailNotification", 247},
                                                            {"lblMinutos", 251},
                                                            {"cmdAdicionar", 228},
                                                            {"cmdEditar", 131},
                                                            {"cmdEliminar", 132},
                                                            {"FrameSons", 267},
                                                            {"lblSons", 268},
                                                            {"cmdPlay", 270},
                                                            {"cmdProcurarSom", 69},
                                                            {"cmdCancelar", 43}};
        Cenario c(u"AlemaoDE"_s); // the design has them in Portuguese
        const frmOpcoes &form = c.Abrir();
        for (const auto &[nome, texto] : controlos) {
            const auto *controlo = form.findChild<QWidget *>(QString::fromLatin1(nome));
            QVERIFY2(controlo != nullptr, nome);
            const bool quadro = qobject_cast<const QGroupBox *>(controlo) != nullptr;
            QCOMPARE(Legenda(*controlo), quadro ? withoutMnemonic(c.s.Texto(texto)) : c.s.Texto(texto));
        }
    }

    void os_separadores_o_titulo_e_a_amostra_tem_os_seus_textos()
    {
        Cenario c(u"AlemaoDE"_s);
        const frmOpcoes &form = c.Abrir();
        const QList<int> textos{128, 190, 191, 217, 192, 239, 245, 267};
        QCOMPARE(form.tbsOptions->count(), textos.size());
        for (int i = 0; i < textos.size(); ++i)
            QCOMPARE(form.tbsOptions->tabText(i), c.s.Texto(textos[i]));
        QCOMPARE(form.windowTitle(), withoutMnemonic(c.s.Texto(151)));
        QCOMPARE(form.txtMemo->toPlainText(), c.s.Texto(199));
        QCOMPARE(form.cmdOk->text(), u"&Ok"_s);
    }

    void as_listas_tem_os_seus_itens()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        QCOMPARE(Itens(*form.comboAniversario),
                 QStringList({u"1"_s, u"3"_s, u"5"_s, u"10"_s, u"20"_s, u"30"_s}));
        QCOMPARE(Itens(*form.ComboMailNotification),
                 QStringList({u"5"_s, u"10"_s, u"15"_s, u"30"_s, u"60"_s, u"120"_s}));
        QCOMPARE(Itens(*form.comboIdioma), QStringList({u"Português (Portugal)"_s, u"Português (Brasil)"_s,
                                                        u"English"_s, u"Français"_s}));
        QCOMPARE(Itens(*form.comboEventos), QStringList({withoutMnemonic(c.s.Texto(245)), c.s.Texto(269)}));
    }

    void ao_abrir_para_os_temporizadores_e_esquece_o_erro_do_mail()
    {
        Cenario c;
        Temporizadores &t = c.s.geral.temporizadores;
        for (Timer *timer : {&t.TimerMailNotification, &t.TimerMailNotification3})
            timer->setEnabled(true);
        c.s.geral.ErroMail = 1;
        const QSignalSpy recolher(&t, &Temporizadores::RecolherPopupEmail);
        c.Abrir();
        for (const Timer *timer :
             {&t.timerTarefas, &t.timerPonto, &t.TimerMailNotification, &t.TimerMailNotification3})
            QVERIFY(!timer->Enabled());
        QCOMPARE(c.s.geral.ErroMail, qint16{0});
        QCOMPARE(recolher.count(), 1);
    }

    void ao_fechar_repoe_dois_temporizadores_e_reinicia_o_mail_data()
    {
        QTest::addColumn<QString>("botao");
        QTest::newRow("confirmar") << u"cmdOk"_s;
        QTest::newRow("cancelar") << u"cmdCancelar"_s;
    }
    void ao_fechar_repoe_dois_temporizadores_e_reinicia_o_mail()
    {
        QFETCH(QString, botao);
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        Temporizadores &t = c.s.geral.temporizadores;
        const QSignalSpy reiniciar(&t, &Temporizadores::ReiniciarMail);
        const QSignalSpy iniciar(&t, &Temporizadores::IniciarMail);
        form.findChild<QPushButton *>(botao)->click();
        QVERIFY(!form.isVisible());
        QVERIFY(t.timerTarefas.Enabled() && t.timerPonto.Enabled());
        QVERIFY(!t.TimerMailNotification.Enabled());
        QCOMPARE(reiniciar.count(), 1);
        c.Largar();
        QCOMPARE(iniciar.count(), 0); // not even once it is gone
    }

    void mostra_os_valores_do_processo()
    {
        Cenario c;
        Geral &g = c.s.geral;
        g.EmailNotifyActivo = g.MessengerActivo = 1;
        g.EmailNotifyMinutos = 45;
        g.RemetenteBD = u"Ana\r\nRua 1"_s;
        g.DestinatarioBD = u"Caros"_s;
        g.DiasAniversarios = 12;
        g.AvisoAniversarios = u"1"_s;
        g.MemoFontName = u"Courier"_s;
        g.MemoFontSize = u"9.75"_s;
        g.MemoFontBold = g.MemoFontItalic = u"True"_s;
        g.MemoCorFundo = QString::number(0x302010);
        g.AutorunArranque = g.MinimizarArranque = u"sim"_s;
        const frmOpcoes &form = c.Abrir();
        QVERIFY(form.cbActivarMailNotification->isChecked() && form.cbMessenger->isChecked());
        QCOMPARE(form.ComboMailNotification->currentText(), u"45"_s);
        QCOMPARE(form.txtRemetente->toPlainText(), u"Ana\nRua 1"_s);
        QCOMPARE(form.txtDestinatario->toPlainText(), u"Caros"_s);
        QCOMPARE(form.comboAniversario->currentText(), u"12"_s);
        QVERIFY(!form.Opcao0->isChecked() && form.Opcao1->isChecked() && !form.Opcao2->isChecked());
        const QFont amostra = form.txtMemo->font();
        QCOMPARE(amostra.family(), u"Courier"_s);
        QCOMPARE(amostra.pointSizeF(), 9.75);
        QVERIFY(amostra.bold() && amostra.italic());
        QCOMPARE(Cor_Da_Amostra(form), 0x302010U);
        QVERIFY(form.OpcaoSim->isChecked() && form.cbMinimizar->isChecked() && form.cbMinimizar->isEnabled());
        QCOMPARE(form.txtCaminho->text(), c.s.Base());
        QCOMPARE(form.comboEventos->ListIndex(), 0);
        QCOMPARE(form.comboIdioma->currentText(), u"Português (Portugal)"_s);
    }

    void so_o_aviso_de_aniversarios_que_vale_esta_escolhido()
    {
        Cenario c;
        for (int aviso = 0; aviso < 3; ++aviso) {
            c.s.geral.AvisoAniversarios = QString::number(aviso);
            const frmOpcoes &form = c.Abrir();
            QCOMPARE(form.Opcao0->isChecked(), aviso == 0);
            QCOMPARE(form.Opcao1->isChecked(), aviso == 1);
            QCOMPARE(form.Opcao2->isChecked(), aviso == 2);
        }
    }

    void sem_caminho_mostra_o_ficheiro_ao_lado_do_programa()
    {
        SO_NUM_FICHEIRO("a path");
        Cenario c;
        c.s.geral.CaminhoBD.clear();
        QCOMPARE(c.Abrir().txtCaminho->text(), c.s.Base());
    }

    void abrir_nao_anuncia_uma_mudanca_de_idioma()
    {
        Cenario c;
        c.Abrir(); // a box would be unexpected, and fail the test
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    void uma_definicao_do_memo_vazia_termina_o_processo_data()
    {
        QTest::addColumn<int>("qual");
        const char *nomes[]{"fontsize", "fontbold", "fontitalic", "corfundo"};
        for (int i = 0; i < 4; ++i)
            QTest::newRow(nomes[i]) << i;
    }
    void uma_definicao_do_memo_vazia_termina_o_processo()
    {
        QFETCH(int, qual);
        Cenario c;
        Geral &g = c.s.geral;
        QString *const definicoes[]{&g.MemoFontSize, &g.MemoFontBold, &g.MemoFontItalic, &g.MemoCorFundo};
        definicoes[qual]->clear();
        c.s.caixas.Espera_Erro(Failure::TypeMismatch);
        c.Abrir();
        QVERIFY(c.s.processo.Terminou());
        c.Largar();
        QVERIFY(c.s.geral.temporizadores.timerTarefas.Enabled()); // the alarm goes on
    }

    void um_clique_num_separador_mostra_so_o_seu_quadro()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        const QList<QWidget *> quadros = Quadros(form);
        for (int escolhido = 0; escolhido < quadros.size(); ++escolhido) {
            QTest::mouseClick(form.tbsOptions, Qt::LeftButton, {},
                              form.tbsOptions->tabRect(escolhido).center());
            for (int i = 0; i < quadros.size(); ++i) {
                QCOMPARE(quadros[i]->isVisible(), i == escolhido);
                QCOMPARE(quadros[i]->x(), i == escolhido ? 0 : pixels(-20000));
            }
        }
    }

    void control_e_tab_vao_ao_separador_seguinte_e_dao_a_volta()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        form.txtRemetente->setFocus();
        for (int i = 1; i <= 8; ++i) {
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
            QCOMPARE(form.tbsOptions->currentIndex(), i % 8);
            QVERIFY(form.tbsOptions->hasFocus());
        }
        QCOMPARE(form.txtRemetente->toPlainText(), c.s.geral.RemetenteBD);
    }

    void os_quadros_tem_todos_o_tamanho_do_maior_e_o_formulario_fica_ao_meio()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        QSize maior;
        for (const QWidget *quadro : Quadros(form))
            maior = maior.expandedTo(quadro->sizeHint());
        const QSize todos = form.areaCliente->minimumSize();
        QCOMPARE(todos.height(), maior.height());
        QVERIFY(todos.width() >= maior.width() && todos.width() >= form.tbsOptions->sizeHint().width());
        QCOMPARE(form.areaCliente->maximumSize(), todos);
        for (const QWidget *quadro : Quadros(form))
            QCOMPARE(quadro->size(), todos);
        QCOMPARE(form.size(), form.sizeHint());
        QCOMPARE(form.pos() + form.rect().center(), form.screen()->availableGeometry().center());
    }

    void o_leitor_de_ecra_diz_de_que_quadro_e_o_que_nao_tem_etiqueta()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        const auto sem_letra = [&](int texto) { return withoutMnemonic(c.s.Texto(texto)); };
        QCOMPARE(form.tbsOptions->accessibleName(), sem_letra(151));
        QCOMPARE(form.txtRemetente->accessibleName(), sem_letra(193));
        QCOMPARE(form.txtDestinatario->accessibleName(), sem_letra(194));
        QCOMPARE(form.lvEmails->accessibleName(), sem_letra(245));
        QCOMPARE(form.txtCaminhoSom->accessibleName(), sem_letra(267));
        QCOMPARE(form.cmdProcurar->accessibleName(), sem_letra(69) + u", "_s + sem_letra(220));
        QCOMPARE(form.cmdProcurarSom->accessibleName(), sem_letra(69) + u", "_s + sem_letra(267));
    }

    void enter_confirma_enquanto_ninguem_esteve_numa_morada()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        QVERIFY(form.cmdOk->isDefault());
        QTest::keyClick(form.tbsOptions, Qt::Key_Return);
        QVERIFY(!form.isVisible());
        QCOMPARE(form.result(), static_cast<int>(QDialog::Accepted));
    }

    void enter_nas_duas_moradas_faz_uma_linha_e_ja_nao_confirma_data()
    {
        QTest::addColumn<QString>("caixa");
        QTest::newRow("remetente") << u"txtRemetente"_s;
        QTest::newRow("destinatario") << u"txtDestinatario"_s;
    }
    void enter_nas_duas_moradas_faz_uma_linha_e_ja_nao_confirma()
    {
        QFETCH(QString, caixa);
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        auto *morada = form.findChild<QPlainTextEdit *>(caixa);
        morada->setPlainText(u"Ana"_s);
        morada->setFocus();
        QVERIFY(!form.cmdOk->isDefault());
        morada->moveCursor(QTextCursor::End);
        QTest::keyClick(morada, Qt::Key_Return);
        QCOMPARE(morada->toPlainText(), u"Ana\n"_s);
        form.cmdCancelar->setFocus(); // a button that is left again gives its role back to nobody
        form.tbsOptions->setFocus();
        QTest::keyClick(form.tbsOptions, Qt::Key_Return);
        QVERIFY(form.isVisible());
        QVERIFY(!form.cmdOk->isDefault());
    }

    void o_aviso_de_mail_desligado_desactiva_o_periodo_e_a_lista()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        QVERIFY(!form.ComboMailNotification->isEnabled() && !form.lvEmails->isEnabled());
        form.cbActivarMailNotification->click();
        QVERIFY(form.ComboMailNotification->isEnabled() && form.lvEmails->isEnabled());
        form.cbActivarMailNotification->click();
        QVERIFY(!form.ComboMailNotification->isEnabled() && !form.lvEmails->isEnabled());
    }

    void minimizar_so_se_escolhe_com_o_arranque_automatico()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        QVERIFY(!form.cbMinimizar->isEnabled());
        form.OpcaoSim->click();
        QVERIFY(form.cbMinimizar->isEnabled());
        form.OpcaoNao->click();
        QVERIFY(!form.cbMinimizar->isEnabled());
    }

    void uma_marca_numa_caixa_desactivada_conta()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        form.OpcaoSim->click();
        form.cbMinimizar->click();
        form.OpcaoNao->click();
        form.cmdOk->click();
        QCOMPARE(c.Ini(u"arranque"_s, u"minimizar"_s), u"sim"_s);
        QCOMPARE(c.s.geral.MinimizarArranque, u"sim"_s);
    }

    void escolher_um_idioma_avisa_e_so_muda_na_base_ao_confirmar()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        c.s.caixas.Espera(c.s.Texto(238), 64, QApplication::applicationDisplayName());
        form.comboIdioma->setListIndex(3);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QCOMPARE(c.s.Linhas(u"SELECT Idioma FROM TblConfig"_s), QStringList{u"PortuguesPT"_s});
        form.cmdOk->click();
        QCOMPARE(c.s.Linhas(u"SELECT Idioma FROM TblConfig"_s), QStringList{u"FrancesFR"_s});
        QCOMPARE(c.s.geral.IdiomaActual, u"PortuguesPT"_s);
    }

    void cada_nome_da_o_seu_idioma_data()
    {
        QTest::addColumn<int>("linha");
        QTest::addColumn<QString>("idioma");
        QTest::newRow("pt") << 0 << u"PortuguesPT"_s;
        QTest::newRow("br") << 1 << u"PortuguesBR"_s;
        QTest::newRow("uk") << 2 << u"InglesUK"_s;
        QTest::newRow("fr") << 3 << u"FrancesFR"_s;
    }
    void cada_nome_da_o_seu_idioma()
    {
        QFETCH(int, linha);
        QFETCH(QString, idioma);
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        c.s.Escrever(u"UPDATE TblConfig SET Idioma=''"_s);
        c.s.caixas.Espera(c.s.Texto(238), 64, QApplication::applicationDisplayName());
        form.comboIdioma->setListIndex(linha);
        form.cmdOk->click();
        QCOMPARE(c.s.Linhas(u"SELECT Idioma FROM TblConfig"_s), QStringList{idioma});
    }

    void sem_idioma_escolhido_a_base_fica_com_o_seu()
    {
        Cenario c(u"AlemaoDE"_s);
        c.Trancar(u"Idioma"_s); // the command isn't even called
        const frmOpcoes &form = c.Abrir();
        QCOMPARE(form.comboIdioma->ListIndex(), -1);
        QCOMPARE(form.comboIdioma->currentText(), QString());
        QCOMPARE(form.comboIdioma->placeholderText(), u"Deutsch"_s);
        form.cmdOk->click();
        QCOMPARE(c.s.Linhas(u"SELECT Idioma FROM TblConfig"_s), QStringList{u"AlemaoDE"_s});
    }

    void cada_evento_mostra_o_seu_som_ou_o_do_programa()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        QCOMPARE(form.txtCaminhoSom->text(), c.s.Ficheiro(u"newemail.wav"_s));
        form.comboEventos->setListIndex(1);
        QCOMPARE(form.txtCaminhoSom->text(), c.s.Ficheiro(u"tarefa.wav"_s));
        c.s.geral.SomEmail = u"/e.wav"_s;
        c.s.geral.SomTarefa = u"/t.wav"_s;
        form.comboEventos->setListIndex(0);
        QCOMPARE(form.txtCaminhoSom->text(), u"/e.wav"_s);
        form.comboEventos->setListIndex(1);
        QCOMPARE(form.txtCaminhoSom->text(), u"/t.wav"_s);
    }

    void os_sons_que_o_programa_mostra_estao_na_pasta()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        for (int evento = 0; evento < 2; ++evento) {
            form.comboEventos->setListIndex(evento);
            QVERIFY2(QFile::exists(form.txtCaminhoSom->text()), qPrintable(form.txtCaminhoSom->text()));
        }
    }

    void procurar_um_som_pergunta_por_ondas_e_guarda_o_do_evento()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        form.comboEventos->setListIndex(1);
        c.s.dialogos.textos << u"/sons/sino.wav"_s;
        form.cmdProcurarSom->click();
        QCOMPARE(c.s.dialogos.perguntas,
                 QStringList{u"openFile "_s + withoutMnemonic(c.s.Texto(267)) + u" (*.wav)|*.wav @ "_s});
        QCOMPARE(form.txtCaminhoSom->text(), u"/sons/sino.wav"_s);
        QCOMPARE(c.s.geral.SomTarefa, u"/sons/sino.wav"_s);
        QVERIFY(c.s.geral.SomEmail.isEmpty());
    }

    void um_dialogo_cancelado_nao_faz_nada_data()
    {
        QTest::addColumn<QString>("botao");
        for (const char *botao : {"cmdProcurarSom", "cmdProcurar", "cmdFonte", "cmdCor"})
            QTest::newRow(botao) << QString::fromLatin1(botao);
    }
    void um_dialogo_cancelado_nao_faz_nada()
    {
        QFETCH(QString, botao);
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        c.s.dialogos.textos << std::nullopt;
        c.s.dialogos.fontes << std::nullopt;
        c.s.dialogos.cores << std::nullopt;
        form.findChild<QPushButton *>(botao)->click();
        QCOMPARE(c.s.dialogos.perguntas.size(), 1);
        const Geral &g = c.s.geral;
        QVERIFY(g.SomEmail.isEmpty());
        QCOMPARE(form.txtCaminho->text(), c.s.Base());
        QCOMPARE(form.txtBD->text(), QString());
        QCOMPARE(
            QStringList({g.MemoFontName, g.MemoFontSize, g.MemoFontBold, g.MemoFontItalic, g.MemoCorFundo}),
            QStringList({u"Tahoma"_s, u"8,25"_s, u"False"_s, u"False"_s, u"65535"_s}));
    }

    void ouvir_toca_o_ficheiro_mostrado()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        c.s.geral.SomTarefa = u"/t.wav"_s;
        form.comboEventos->setListIndex(1);
        form.cmdPlay->click();
        QCOMPARE(c.s.som.tocados, QStringList{u"/t.wav"_s});
    }

    void a_fonte_e_a_cor_valem_logo_mesmo_que_se_cancele()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        c.s.dialogos.fontes << Fonte(u"Courier"_s, 12, true, false);
        form.cmdFonte->click();
        c.s.dialogos.cores << QColor(0x11, 0x22, 0x33);
        form.cmdCor->click();
        QCOMPARE(c.s.dialogos.perguntas,
                 QStringList(
                     {u"font "_s + Fonte(u"Tahoma"_s, 8.25, false, false).toString(), u"colour #ffff00"_s}));
        QCOMPARE(form.txtMemo->font().family(), u"Courier"_s);
        QCOMPARE(Cor_Da_Amostra(form), 0x332211U);
        form.cmdCancelar->click();
        const Geral &g = c.s.geral;
        QCOMPARE(
            QStringList({g.MemoFontName, g.MemoFontSize, g.MemoFontBold, g.MemoFontItalic, g.MemoCorFundo}),
            QStringList({u"Courier"_s, u"12"_s, u"True"_s, u"False"_s, QString::number(0x332211)}));
        QCOMPARE(c.Ini(u"memos"_s, u"fontname"_s), u"Tahoma"_s);
        QCOMPARE(c.Ini(u"memos"_s, u"corfundo"_s), u"65535"_s);
    }

    void um_som_novo_vale_na_sessao_mesmo_que_se_cancele()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        c.s.dialogos.textos << u"/novo.wav"_s;
        form.cmdProcurarSom->click();
        form.cmdCancelar->click();
        QCOMPARE(c.s.geral.SomEmail, u"/novo.wav"_s);
        QCOMPARE(c.Ini(u"som0"_s, u"email"_s), QString());
    }

    void procurar_a_base_avisa_e_mostra_o_caminho()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        c.s.dialogos.textos << u"/outra/base.mdb"_s;
        c.s.caixas.Espera(c.s.Texto(219), 64, form.windowTitle());
        form.cmdProcurar->click();
        QCOMPARE(c.s.dialogos.perguntas, QStringList{u"openFile "_s + c.s.Texto(218) + u"|*.mdb @ "_s});
        QCOMPARE(form.txtBD->text(), u"1"_s);
        QVERIFY(form.txtBD->isHidden());
        QCOMPARE(form.txtCaminho->text(), u"/outra/base.mdb"_s);
    }

    void cancelar_nao_escreve_nada()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        const QStringList antes = c.Linhas_Do_Ini();
        const QStringList config = c.s.Linhas(u"SELECT * FROM TblConfig"_s);
        Mudar_Tudo(c, form);
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
        QCOMPARE(c.Linhas_Do_Ini(), antes);
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblConfig"_s), config);
        QVERIFY(c.s.registo.valores.isEmpty());
        QCOMPARE(c.s.geral.DiasAniversarios, qint16{7});
    }

    void confirmar_escreve_o_ficheiro_pela_ordem()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        c.Esvaziar_Ini(); // so the sections come into the file in the order in which they are written
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
        QCOMPARE(c.Linhas_Do_Ini(), QStringList({u"[emailnotify0]"_s,
                                                 u"activo=1"_s,
                                                 u"minutos=15"_s,
                                                 u"[aniversarios]"_s,
                                                 u"aviso=2"_s,
                                                 u"dias=20"_s,
                                                 u"[memos]"_s,
                                                 u"fontname=Courier"_s,
                                                 u"fontsize=9,75"_s,
                                                 u"fontbold=True"_s,
                                                 u"fontitalic=True"_s,
                                                 u"corfundo=%1"_s.arg(0x302010),
                                                 u"[arranque]"_s,
                                                 u"autorun=sim"_s,
                                                 u"minimizar=sim"_s,
                                                 u"[messenger0]"_s,
                                                 u"activo=1"_s,
                                                 u"[som0]"_s,
                                                 u"email=/sons/email.wav"_s,
                                                 u"tarefa=/sons/tarefa.wav"_s,
                                                 u"[fotografias]"_s,
                                                 u"lastpathpic=c:\\"_s,
                                                 u"[basedados]"_s,
                                                 u"caminhobd="_s + c.s.Base()}));
    }

    // Nothing of the automatic start is written then, so the section shows when the next one comes.
    void minimizar_escreve_se_antes_do_messenger()
    {
        Cenario c;
        c.s.geral.AutorunArranque.clear();
        const frmOpcoes &form = c.Abrir();
        c.Esvaziar_Ini();
        form.cmdOk->click();
        const QStringList seccoes = c.Linhas_Do_Ini().filter(u"["_s);
        QCOMPARE(seccoes,
                 QStringList({u"[emailnotify0]"_s, u"[aniversarios]"_s, u"[memos]"_s, u"[arranque]"_s,
                              u"[messenger0]"_s, u"[fotografias]"_s, u"[basedados]"_s}));
    }

    void o_registo_muda_logo_depois_do_arranque_no_ficheiro_data()
    {
        QTest::addColumn<bool>("sim");
        QTest::addColumn<QString>("linha");
        QTest::newRow("sim") << true << u"autorun=sim"_s;
        QTest::newRow("nao") << false << u"autorun=nao"_s;
    }
    void o_registo_muda_logo_depois_do_arranque_no_ficheiro()
    {
        QFETCH(bool, sim);
        QFETCH(QString, linha);
        Cenario c;
        QStringList ultimas;
        RegistoAtento registo([&] { ultimas << c.Linhas_Do_Ini().constLast(); });
        Sistema &s = c.s;
        Platform plataforma{s.relogio, s.caixas,  s.dialogos,   s.shell,    s.som,
                            registo,   s.correio, s.mensageiro, s.processo, s.tabuleiro, s.segredos};
        const frmOpcoes form(s.geral, plataforma, c.janela);
        (sim ? form.OpcaoSim : form.OpcaoNao)->setChecked(true);
        c.Esvaziar_Ini();
        form.cmdOk->click();
        QCOMPARE(ultimas, QStringList{linha});
    }

    void confirmar_escreve_a_base_e_o_registo()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        form.cmdOk->click();
        QCOMPARE(c.s.Linhas(u"SELECT Idioma || '/' || Remetente || '/' || Destinatario FROM TblConfig"_s),
                 QStringList{u"InglesUK/Ana\r\nRua 1/Caros"_s});
        const QString valor = u"HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\Morvex 4.2"_s;
        QCOMPARE(c.s.registo.valores.keys(), QStringList{valor});
        QCOMPARE(c.s.registo.valores[valor],
                 QDir::toNativeSeparators(QCoreApplication::applicationFilePath()));
    }

    void confirmar_muda_os_valores_do_processo()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        form.cmdOk->click();
        const Geral &g = c.s.geral;
        QCOMPARE(g.EmailNotifyActivo, qint16{1});
        QCOMPARE(g.EmailNotifyMinutos, qint16{15});
        QCOMPARE(c.janela.lblTemporizador->text(), u"15"_s);
        QCOMPARE(g.RemetenteBD, u"Ana\r\nRua 1"_s);
        QCOMPARE(g.DestinatarioBD, u"Caros"_s);
        QCOMPARE(g.AvisoAniversarios, u"2"_s);
        QCOMPARE(g.DiasAniversarios, qint16{20});
        QCOMPARE(
            QStringList({g.MemoFontName, g.MemoFontSize, g.MemoFontBold, g.MemoFontItalic, g.MemoCorFundo}),
            QStringList({u"Courier"_s, u"9,75"_s, u"True"_s, u"True"_s, QString::number(0x302010)}));
        QCOMPARE(g.AutorunArranque, u"sim"_s);
        QCOMPARE(g.MinimizarArranque, u"sim"_s);
        QCOMPARE(g.MessengerActivo, qint16{1});
        QCOMPARE(g.SomEmail, u"/sons/email.wav"_s);
        QCOMPARE(g.SomTarefa, u"/sons/tarefa.wav"_s);
        QCOMPARE(g.UltimaPastaFotos, u"c:\\"_s);
        QCOMPARE(g.CaminhoBD, c.s.Base());
        QCOMPARE(g.IdiomaActual, u"PortuguesPT"_s);
    }

    void o_mail_escreve_se_antes_dos_envelopes_e_nada_depois_de_uma_falha()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        c.Esvaziar_Ini();
        c.Trancar(u"Remetente"_s);
        c.s.caixas.Espera_Erro(Failure::StoreError);
        Clicar(form.cmdOk);
        QVERIFY(form.isVisible());
        QCOMPARE(c.Linhas_Do_Ini(), QStringList({u"[emailnotify0]"_s, u"activo=1"_s, u"minutos=15"_s}));
        QVERIFY(c.s.registo.valores.isEmpty());
    }

    void o_idioma_escreve_se_no_fim()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        c.Esvaziar_Ini();
        c.Trancar(u"Idioma"_s);
        c.s.caixas.Espera_Erro(Failure::StoreError);
        Clicar(form.cmdOk);
        QVERIFY(form.isVisible());
        QCOMPARE(c.Linhas_Do_Ini().constLast(), u"caminhobd="_s + c.s.Base());
    }

    void minutos_que_nao_sao_numero_param_a_confirmacao()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        form.ComboMailNotification->setCurrentText(u"muitos"_s);
        form.txtRemetente->setPlainText(u"Ana"_s);
        c.s.caixas.Espera_Erro(Failure::TypeMismatch);
        Clicar(form.cmdOk);
        QVERIFY(form.isVisible());
        QCOMPARE(c.Ini(u"emailnotify0"_s, u"minutos"_s), u"muitos"_s);
        QCOMPARE(c.s.geral.EmailNotifyMinutos, qint16{60});
        QVERIFY(c.s.Linhas(u"SELECT Remetente FROM TblConfig"_s) != QStringList{u"Ana"_s});
    }

    void um_aviso_fora_da_lista_fica_como_esta_data()
    {
        QTest::addColumn<QString>("aviso");
        for (const char *aviso : {"3", "-1", "", "nunca"})
            QTest::newRow(aviso) << QString::fromLatin1(aviso);
    }
    void um_aviso_fora_da_lista_fica_como_esta()
    {
        QFETCH(QString, aviso);
        Cenario c;
        c.s.geral.AvisoAniversarios = aviso;
        c.s.geral.ini.Escrever_Ini(u"aniversarios"_s, u"aviso"_s, aviso);
        const frmOpcoes &form = c.Abrir();
        QVERIFY(!form.Opcao0->isChecked() && !form.Opcao1->isChecked() && !form.Opcao2->isChecked());
        form.cmdOk->click();
        QCOMPARE(c.Ini(u"aniversarios"_s, u"aviso"_s), aviso);
        QCOMPARE(c.s.geral.AvisoAniversarios, aviso);
    }

    void sem_sim_nem_nao_o_arranque_fica_como_esta()
    {
        Cenario c;
        c.s.geral.AutorunArranque.clear();
        c.s.geral.ini.Escrever_Ini(u"arranque"_s, u"autorun"_s, u"talvez"_s);
        c.s.registo.valores[u"HKCU\\outro"_s] = u"x"_s;
        const frmOpcoes &form = c.Abrir();
        QVERIFY(!form.OpcaoSim->isChecked() && !form.OpcaoNao->isChecked());
        form.cmdOk->click();
        QCOMPARE(c.Ini(u"arranque"_s, u"autorun"_s), u"talvez"_s);
        QCOMPARE(c.s.geral.AutorunArranque, QString());
        QCOMPARE(c.s.registo.valores.keys(), QStringList{u"HKCU\\outro"_s});
    }

    void um_som_vazio_nao_apaga_o_que_esta_escrito()
    {
        Cenario c;
        c.s.geral.ini.Escrever_Ini(u"som0"_s, u"tarefa"_s, u"/antigo.wav"_s);
        c.Abrir().cmdOk->click();
        QCOMPARE(c.Ini(u"som0"_s, u"tarefa"_s), u"/antigo.wav"_s);
    }

    void uma_pasta_de_fotografias_ja_escolhida_fica()
    {
        Cenario c;
        c.s.geral.UltimaPastaFotos = u"/fotos"_s;
        c.Abrir().cmdOk->click();
        QCOMPARE(c.s.geral.UltimaPastaFotos, u"/fotos"_s);
        QCOMPARE(c.Ini(u"fotografias"_s, u"lastpathpic"_s), QString());
    }

    void outra_base_so_vale_no_proximo_arranque()
    {
        Cenario c;
        const frmOpcoes &form = c.Abrir();
        form.txtCaminho->setText(u"/outra/base.mdb"_s);
        form.cmdOk->click();
        QCOMPARE(c.Ini(u"basedados"_s, u"caminhobd"_s), u"/outra/base.mdb"_s);
        QCOMPARE(c.s.geral.CaminhoBD, c.s.Base());
        QCOMPARE(c.s.geral.Ler_Idioma(43), c.s.Texto(43));
    }

    void cada_utilizador_tem_as_suas_seccoes()
    {
        Cenario c;
        const QString id = QString::number(c.s.Novo_Utilizador(u"Ana"_s, u"x"_s));
        c.s.Entrar(u"Ana"_s);
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        form.cmdOk->click();
        QCOMPARE(c.Ini(u"emailnotify"_s + id, u"minutos"_s), u"15"_s);
        QCOMPARE(c.Ini(u"messenger"_s + id, u"activo"_s), u"1"_s);
        QCOMPARE(c.Ini(u"som"_s + id, u"email"_s), u"/sons/email.wav"_s);
        QCOMPARE(c.Ini(u"emailnotify0"_s, u"minutos"_s), QString());
    }

    // The list of mail accounts.

    void a_lista_mostra_as_contas_do_utilizador_por_ordem()
    {
        Cenario c;
        c.Nova_Conta(u"b@x.example"_s);
        c.Nova_Conta(u"a@x.example"_s, u"pop.a.example"_s);
        c.s.Escrever(u"INSERT INTO TblEmails (Email, ServerName, IdUtilizador) VALUES ('z', 'z', 9)"_s);
        const frmOpcoes &form = c.Abrir();
        QCOMPARE(form.lvEmails->headerItem()->text(1), c.s.Texto(243));
        QCOMPARE(form.lvEmails->headerItem()->text(2), c.s.Texto(244));
        QCOMPARE(form.lvEmails->topLevelItemCount(), 2);
        QCOMPARE(form.lvEmails->topLevelItem(0)->text(1), u"b@x.example"_s);
        QCOMPARE(form.lvEmails->topLevelItem(1)->text(2), u"pop.a.example"_s);
    }

    void um_endereco_nulo_mostra_se_vazio()
    {
        Cenario c;
        c.s.Escrever(u"INSERT INTO TblEmails (Email, ServerName, IdUtilizador) VALUES (NULL, 's', 0)"_s);
        QCOMPARE(c.Abrir().lvEmails->topLevelItem(0)->text(1), QString());
    }

    void um_clique_numa_conta_permite_edita_la_e_elimina_la()
    {
        Cenario c;
        c.Nova_Conta(u"a@x.example"_s);
        const int segunda = c.Nova_Conta(u"b@x.example"_s);
        c.s.geral.EmailNotifyActivo = 1;
        frmOpcoes &form = c.Mostrar();
        QVERIFY(!form.cmdEditar->isEnabled() && !form.cmdEliminar->isEnabled());
        form.tbsOptions->setCurrentIndex(6);
        const QRect linha = form.lvEmails->visualItemRect(form.lvEmails->topLevelItem(1));
        QTest::mouseClick(form.lvEmails->viewport(), Qt::LeftButton, {}, linha.center());
        QCOMPARE(c.s.geral.IDContaEmail, static_cast<qint16>(segunda));
        QVERIFY(form.cmdEditar->isEnabled() && form.cmdEliminar->isEnabled());
    }

    void adicionar_e_editar_abrem_o_formulario_no_seu_modo()
    {
        Cenario c;
        const int id = c.Nova_Conta(u"a@x.example"_s);
        frmOpcoes &form = c.Mostrar();
        QString modo;
        const auto ver_modo = [&](frmAddEditEmail &conta) {
            modo = c.s.geral.ModoEmail;
            conta.reject();
        };
        accoes::Quando_Abrir<frmAddEditEmail>(ver_modo);
        form.cmdAdicionar->click();
        QCOMPARE(modo, u"Add"_s);
        form.lvEmails->topLevelItem(0)->setSelected(true);
        accoes::Quando_Abrir<frmAddEditEmail>(ver_modo);
        form.cmdEditar->click();
        QCOMPARE(modo, u"Edit"_s);
        QCOMPARE(c.s.geral.IDContaEmail, static_cast<qint16>(id));
    }

    void o_duplo_clique_edita()
    {
        Cenario c;
        c.Nova_Conta(u"a@x.example"_s);
        c.s.geral.EmailNotifyActivo = 1;
        frmOpcoes &form = c.Mostrar();
        form.tbsOptions->setCurrentIndex(6);
        QString endereco;
        accoes::Quando_Abrir<frmAddEditEmail>([&](frmAddEditEmail &conta) {
            endereco = conta.txtEmail->text();
            conta.reject();
        });
        const QPoint linha = form.lvEmails->visualItemRect(form.lvEmails->topLevelItem(0)).center();
        QTest::mouseClick(form.lvEmails->viewport(), Qt::LeftButton, {}, linha);
        QTest::mouseDClick(form.lvEmails->viewport(), Qt::LeftButton, {}, linha);
        QCOMPARE(endereco, u"a@x.example"_s);
        QCOMPARE(c.s.geral.ModoEmail, u"Edit"_s);
    }

    void uma_conta_adicionada_aparece_logo_na_lista()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        accoes::Quando_Abrir<frmAddEditEmail>([](frmAddEditEmail &conta) {
            for (QLineEdit *caixa :
                 {conta.txtEmail, conta.txtServerName, conta.txtUsername, conta.txtPalavraPasse})
                caixa->setText(u"abc"_s);
            QTRY_VERIFY(conta.cmdOk->isEnabled());
            conta.cmdOk->click();
        });
        form.cmdAdicionar->click();
        QCOMPARE(form.lvEmails->topLevelItemCount(), 1);
        form.cmdCancelar->click(); // too late: the account stays
        QCOMPARE(c.s.Linhas(u"SELECT Email FROM TblEmails"_s), QStringList{u"abc"_s});
    }

    void eliminar_uma_conta_nao_pergunta_e_pede_nova_escolha()
    {
        Cenario c;
        c.Nova_Conta(u"a@x.example"_s);
        c.Nova_Conta(u"b@x.example"_s);
        const frmOpcoes &form = c.Abrir();
        form.lvEmails->topLevelItem(0)->setSelected(true);
        form.cmdEliminar->click(); // a question would be an unexpected box
        QCOMPARE(c.s.Linhas(u"SELECT Email FROM TblEmails"_s), QStringList{u"b@x.example"_s});
        QCOMPARE(form.lvEmails->topLevelItemCount(), 1);
        QVERIFY(!form.cmdEditar->isEnabled() && !form.cmdEliminar->isEnabled());
        form.cmdEliminar->click();
        QCOMPARE(form.lvEmails->topLevelItemCount(), 1);
        form.lvEmails->topLevelItem(0)->setSelected(true);
        QVERIFY(form.cmdEliminar->isEnabled());
    }

    // The first run and the restart.

    void na_primeira_vez_o_cancelar_esta_desactivado_e_nada_o_contorna()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        form.cmdCancelar->setEnabled(false);
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(form.isVisible());
        form.close();
        QVERIFY(form.isVisible());
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

    void a_primeira_corrida_passa_pelo_idioma_pelas_opcoes_e_chega_a_janela()
    {
        SO_NUM_FICHEIRO("a first run");
        Sistema s(Sistema::Estado::Vazio);
        Main janela(s.geral, s.plataforma);
        bool cancelar_activo = true;
        QString caminho;
        accoes::Quando_Abrir<frmSeleccionarIdioma>([&](frmSeleccionarIdioma &idioma) {
            idioma.cmdPT->click();
            accoes::Quando_Abrir<frmOpcoes>([&](frmOpcoes &opcoes) {
                cancelar_activo = opcoes.cmdCancelar->isEnabled();
                caminho = opcoes.txtCaminho->text();
                opcoes.cmdOk->click();
            });
        });
        janela.Carregar();
        QVERIFY(!cancelar_activo);
        QCOMPARE(caminho, s.Base());
        QVERIFY(janela.isVisible());
        QVERIFY(janela.isEnabled());
        QCOMPARE(s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s), s.Base());

        // The next start is no first run any more: no form comes.
        Geral geral(s.Pasta());
        Main segunda(geral, s.plataforma);
        segunda.Carregar();
        QVERIFY(segunda.isVisible());
        QCOMPARE(geral.CaminhoBD, s.Base());
    }

    void o_menu_e_o_botao_abrem_as_opcoes_data()
    {
        QTest::addColumn<QString>("entrada");
        QTest::newRow("menu") << u"Opcoes"_s;
        QTest::newRow("botao") << u"opcoes"_s;
    }
    void o_menu_e_o_botao_abrem_as_opcoes()
    {
        QFETCH(QString, entrada);
        Sistema s;
        Main janela(s.geral, s.plataforma);
        janela.Carregar();
        bool janela_activa = true;
        bool cancelar_activo = false;
        accoes::Quando_Abrir<frmOpcoes>([&](frmOpcoes &opcoes) {
            janela_activa = janela.isEnabled();
            cancelar_activo = opcoes.cmdCancelar->isEnabled();
            opcoes.cmdCancelar->click();
        });
        janela.findChild<QAction *>(entrada)->trigger();
        QVERIFY(!janela_activa && cancelar_activo);
        QVERIFY(janela.isEnabled());
    }

    void com_login_tudo_volta_no_proximo_arranque()
    {
        Cenario c;
        c.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        c.s.Entrar(u"Ana"_s);
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        form.cmdOk->click();

        Geral g(c.s.Pasta());
        Main janela(g, c.s.plataforma);
        accoes::Quando_Abrir<frmLogin>([](frmLogin &login) {
            login.txtUser->setText(u"Ana"_s);
            login.txtPass->setText(u"x"_s);
            login.cmdOk->click();
        });
        janela.Carregar();
        Comparar_Partilhados(g, c.s.geral);
        Comparar_Os_Do_Utilizador(g);
    }

    void um_valor_que_o_ficheiro_nao_guarda_inteiro_recusa_se_e_nada_se_escreve_data()
    {
        QTest::addColumn<QString>("controlo");
        QTest::addColumn<int>("separador");
        QTest::newRow("caminho") << u"txtCaminho"_s << 3;
        QTest::newRow("dias") << u"comboAniversario"_s << 1;
        QTest::newRow("minutos") << u"ComboMailNotification"_s << 6;
        QTest::newRow("fonte") << u"txtMemo"_s << 2;
        QTest::newRow("som do correio") << u"SomEmail"_s << 7;
        QTest::newRow("som da tarefa") << u"SomTarefa"_s << 7;
    }
    void um_valor_que_o_ficheiro_nao_guarda_inteiro_recusa_se_e_nada_se_escreve()
    {
        QFETCH(QString, controlo);
        QFETCH(int, separador);
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        const QString valor(255, u'ł');
        if (controlo == "SomEmail"_L1)
            c.s.geral.SomEmail = valor;
        else if (controlo == "SomTarefa"_L1)
            c.s.geral.SomTarefa = valor;
        else if (controlo == "txtMemo"_L1)
            form.txtMemo->setFont(QFont(valor));
        else if (auto *combo = form.findChild<QComboBox *>(controlo))
            combo->setCurrentText(valor);
        else
            form.findChild<QLineEdit *>(controlo)->setText(valor);
        const QStringList ini = c.Linhas_Do_Ini();
        const QStringList config = c.s.Linhas(u"SELECT * FROM TblConfig"_s);
        c.s.caixas.Espera(u"Este valor tem 255 caracteres, e o programa só guarda até 254. Escolha um mais "
                          "curto. Nada foi gravado.\r\n\r\n"_s +
                              valor,
                          16, u"Morvex"_s);
        form.cmdOk->click();
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
        QCOMPARE(form.tbsOptions->currentIndex(), separador);
        QCOMPARE(c.Linhas_Do_Ini(), ini);
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblConfig"_s), config);
    }

    void um_caminho_de_254_letras_guarda_se_inteiro()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        form.txtCaminho->setText(QString(254, u'ł'));
        form.cmdOk->click();
        QCOMPARE(c.Ini(u"basedados"_s, u"caminhobd"_s), QString(254, u'ł'));
    }

    void sem_login_tudo_volta_no_proximo_arranque()
    {
        Cenario c;
        frmOpcoes &form = c.Mostrar();
        Mudar_Tudo(c, form);
        form.cmdOk->click();

        Geral g(c.s.Pasta());
        Main janela(g, c.s.plataforma);
        janela.Carregar();
        Comparar_Partilhados(g, c.s.geral);
        Comparar_Os_Do_Utilizador(g);
        QCOMPARE(c.Ini(u"som0"_s, u"email"_s), u"/sons/email.wav"_s);
        QCOMPARE(c.Ini(u"som"_s, u"email"_s), QString());
    }

private:
    // What Mudar_Tudo chose for the user, after a restart.
    static void Comparar_Os_Do_Utilizador(const Geral &g)
    {
        QCOMPARE(g.EmailNotifyActivo, qint16{1});
        QCOMPARE(g.EmailNotifyMinutos, qint16{15});
        QCOMPARE(g.MessengerActivo, qint16{1});
        QCOMPARE(g.SomEmail, u"/sons/email.wav"_s);
        QCOMPARE(g.SomTarefa, u"/sons/tarefa.wav"_s);
    }

    // What belongs to the installation, after a restart: the language alone is a new one.
    static void Comparar_Partilhados(const Geral &nova, const Geral &velha)
    {
        const auto valores = [](const Geral &g) {
            return QStringList{
                g.RemetenteBD,  g.DestinatarioBD,  g.AvisoAniversarios, QString::number(g.DiasAniversarios),
                g.MemoFontName, g.MemoFontSize,    g.MemoFontBold,      g.MemoFontItalic,
                g.MemoCorFundo, g.AutorunArranque, g.MinimizarArranque, g.UltimaPastaFotos,
                g.CaminhoBD};
        };
        QCOMPARE(valores(nova), valores(velha));
        QCOMPARE(nova.IdiomaActual, u"InglesUK"_s);
    }
};

MORVEX_TESTE(TestFrmOpcoes)
#include "test_frmOpcoes.moc"
