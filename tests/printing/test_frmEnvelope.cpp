// The envelope dialog: the feed that it keeps at once, and what it says to the report control.
#include "ComRelatorios.h"
#include "controls/Units.h"
#include "printing/frmEnvelope.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr unsigned escolhida = 15838582;
constexpr unsigned nao_escolhida = 14215660;

unsigned Cor(const QPushButton *botao) { return colourNumber(botao->palette().color(QPalette::Button)); }

struct ComEnvelope : ComRelatorios {
    using ComRelatorios::ComRelatorios;

    frmEnvelope &Abrir(const QString &alimentacao = u"envelope_left"_s)
    {
        s.geral.AlimentacaoEnvelopes = alimentacao;
        form = std::make_unique<frmEnvelope>(s.geral, relatorio);
        form->show();
        return *form;
    }
    QList<unsigned> Cores() const { return {Cor(form->cmdLeft), Cor(form->cmdCenter), Cor(form->cmdRight)}; }
    QString Alimentacao_Guardada() { return s.geral.ini.Ler_Ini(u"envelopes"_s, u"alimentacao"_s); }

    std::unique_ptr<frmEnvelope> form;
};
} // namespace

class TestFrmEnvelope : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComEnvelope c;
        const frmEnvelope &form = c.Abrir();
        QCOMPARE(form.windowTitle(), c.s.Texto(159).remove(u'&'));
        QCOMPARE(form.lblNome->text(), c.s.Texto(161));
        QCOMPARE(form.lblLeft->text(), c.s.Texto(162));
        QCOMPARE(form.lblCenter->text(), c.s.Texto(163));
        QCOMPARE(form.lblRight->text(), c.s.Texto(164));
        QCOMPARE(form.cmdImprimir->text(), c.s.Texto(80));
        QCOMPARE(form.cmdCancelar->text(), c.s.Texto(43));
        QCOMPARE(form.cmdLeft->accessibleName(), c.s.Texto(162).remove(u'&'));
    }

    void um_remetente_ainda_de_amostra_e_dito_data()
    {
        QTest::addColumn<QString>("remetente");
        QTest::addColumn<bool>("dito");
        QTest::newRow("a de Portugal") << u"Escreva aqui o seu endereço (remetente)"_s << true;
        QTest::newRow("a inglesa") << u"Write your address here (sender)"_s << true;
        QTest::newRow("a francesa") << u"Écrivez votre adresse ici (expéditeur)"_s << true;
        QTest::newRow("com uma linha a mais") << u"Write your address here (sender)\r\n"_s << true;
        QTest::newRow("o seu") << u"Ana\r\nPorto"_s << false;
        QTest::newRow("nenhum") << QString() << false;
    }
    void um_remetente_ainda_de_amostra_e_dito()
    {
        QFETCH(QString, remetente);
        ComEnvelope c;
        c.s.geral.RemetenteBD = remetente;
        const frmEnvelope &form = c.Abrir();
        const auto *aviso = form.findChild<QLabel *>(u"lblRemetente"_s);
        QVERIFY(aviso);
        QTEST(aviso->isVisible(), "dito");
    }
    void o_aviso_da_amostra_fala_a_lingua_tambem_numa_base_antiga_data()
    {
        QTest::addColumn<QString>("aviso");
        QTest::newRow("PortuguesPT") << u"O remetente ainda é o do exemplo. Escreva o seu nas opções."_s;
        QTest::newRow("AlemaoDE")
            << u"Als Absender steht noch das Beispiel da. Tragen Sie Ihren eigenen in den Optionen ein."_s;
    }
    void o_aviso_da_amostra_fala_a_lingua_tambem_numa_base_antiga()
    {
        QFETCH(QString, aviso);
        ComEnvelope c(QString::fromLatin1(QTest::currentDataTag()));
        c.s.Escrever(u"DELETE FROM TblIdiomas WHERE ID>255"_s);
        c.s.geral.RemetenteBD = u"Write your address here (sender)"_s;
        QCOMPARE(c.Abrir().lblRemetente->text(), aviso);
        QVERIFY(c.form->lblRemetente->isVisible());
    }

    void a_alimentacao_actual_tem_a_cor_de_escolhida_data()
    {
        QTest::addColumn<int>("botao");
        QTest::newRow("envelope_left") << 0;
        QTest::newRow("envelope_center") << 1;
        QTest::newRow("envelope_right") << 2;
    }
    void a_alimentacao_actual_tem_a_cor_de_escolhida()
    {
        QFETCH(int, botao);
        ComEnvelope c;
        c.Abrir(QString::fromLatin1(QTest::currentDataTag()));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(c.Cores()[i] == escolhida, i == botao);
    }

    void uma_alimentacao_desconhecida_deixa_os_tres_botoes_como_foram_desenhados()
    {
        ComEnvelope c;
        const unsigned desenhada = Cor(std::make_unique<QPushButton>().get());
        c.Abrir(u"envelope_top"_s);
        QCOMPARE(c.Cores(), (QList<unsigned>{desenhada, desenhada, desenhada}));
    }

    void um_clique_muda_as_tres_cores_e_guarda_logo()
    {
        ComEnvelope c;
        frmEnvelope &form = c.Abrir();
        form.cmdRight->click();
        QCOMPARE(c.Cores(), (QList<unsigned>{nao_escolhida, nao_escolhida, escolhida}));
        QCOMPARE(c.s.geral.AlimentacaoEnvelopes, u"envelope_right"_s);
        QCOMPARE(c.Alimentacao_Guardada(), u"envelope_right"_s);
        form.cmdCenter->click();
        QCOMPARE(c.Cores(), (QList<unsigned>{nao_escolhida, escolhida, nao_escolhida}));
        QCOMPARE(c.Alimentacao_Guardada(), u"envelope_center"_s);
        form.cmdLeft->click();
        QCOMPARE(c.Cores(), (QList<unsigned>{escolhida, nao_escolhida, nao_escolhida}));
        QCOMPARE(c.Alimentacao_Guardada(), u"envelope_left"_s);
    }

    void o_clique_e_depois_cancelar_mantem_a_nova_alimentacao()
    {
        ComEnvelope c;
        c.Abrir().cmdRight->click();
        c.form->cmdCancelar->click();
        QVERIFY(!c.form->isVisible());
        QCOMPARE(c.s.geral.AlimentacaoEnvelopes, u"envelope_right"_s);
        QCOMPARE(c.Alimentacao_Guardada(), u"envelope_right"_s);
        QVERIFY(c.relatorio.historia.isEmpty());
    }

    void a_letra_da_legenda_clica_no_botao()
    {
        ComEnvelope c;
        frmEnvelope &form = c.Abrir();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QTest::keyClick(&form, Qt::Key_D, Qt::AltModifier); // "&Direita"
        QTRY_COMPARE(c.s.geral.AlimentacaoEnvelopes, u"envelope_right"_s);
    }

    void imprimir_diz_tudo_na_sua_ordem_e_deixa_o_dialogo_aberto()
    {
        ComEnvelope c;
        c.Escolher_Contacto(123);
        c.Abrir(u"envelope_center"_s).cmdImprimir->click();
        QCOMPARE(c.relatorio.historia,
                 (QStringList{u"ReportFileName envelope_center.rpt"_s, u"Connect morvex.mdb"_s,
                              u"DataFiles 0 morvex.mdb"_s, u"ReplaceSelectionFormula"_s,
                              u"ReplaceSelectionFormula {TblLista.ID} =123"_s, u"Destination 0"_s,
                              u"WindowTitle "_s + c.Titulo_Da_Previsao(), u"WindowState 2"_s,
                              u"WindowShowPrintBtn 1"_s, u"Action 1"_s}));
        QVERIFY(c.form->isVisible());
    }

    void uma_alimentacao_vazia_da_o_ficheiro_sem_nome_da_pasta_do_programa()
    {
        ComEnvelope c;
        c.Abrir({}).cmdImprimir->click();
        QCOMPARE(c.relatorio.historia.first(), u"ReportFileName .rpt"_s);
    }

    void sem_caminho_na_sessao_este_continua_vazio()
    {
        ComEnvelope c;
        frmEnvelope &form = c.Abrir();
        c.s.geral.CaminhoBD.clear();
        form.cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"Connect"_s), QStringList{u"morvex.mdb"_s});
        QCOMPARE(c.relatorio.Ditos(u"DataFiles"_s), QStringList{u"0 morvex.mdb"_s});
        QCOMPARE(c.s.geral.CaminhoBD, QString());
    }

    void o_caminho_da_sessao_e_o_da_base()
    {
        ComEnvelope c;
        frmEnvelope &form = c.Abrir();
        c.s.geral.CaminhoBD = c.s.Ficheiro(u"outra.mdb"_s);
        form.cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"Connect"_s), QStringList{u"outra.mdb"_s});
    }

    void para_os_temporizadores_ao_carregar_e_outra_vez_ao_fechar()
    {
        ComEnvelope c;
        frmEnvelope &form = c.Abrir();
        QVERIFY(c.Temporizadores_Parados());
        c.s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        form.cmdCancelar->click();
        QVERIFY(c.Temporizadores_Parados());
    }

    void uma_falha_do_relatorio_chega_a_caixa_de_erros()
    {
        ComEnvelope c;
        c.relatorio.falha = true;
        frmEnvelope &form = c.Abrir({});
        c.s.caixas.Espera_Erro(Failure::FileNotFound);
        QTest::mouseClick(form.cmdImprimir, Qt::LeftButton);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
    }

    void o_aviso_da_amostra_esta_escrito_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("aviso");
        QTest::newRow("PortuguesPT") << u"O remetente ainda é o do exemplo. Escreva o seu nas opções."_s;
        QTest::newRow("PortuguesBR") << u"O remetente ainda é o do exemplo. Escreva o seu nas opções."_s;
        QTest::newRow("InglesUK") << u"The sender is still the sample. Write your own in the options."_s;
        QTest::newRow("EspanholES")
            << u"El remitente sigue siendo el del ejemplo. Escriba el suyo en las opciones."_s;
        QTest::newRow("ItalianoIT")
            << u"Il mittente è ancora quello di esempio. Scrivere il proprio nelle opzioni."_s;
        QTest::newRow("FrancesFR")
            << u"L’expéditeur est encore celui de l’exemple. Saisissez le vôtre dans les options."_s;
        QTest::newRow("AlemaoDE")
            << u"Als Absender steht noch das Beispiel da. Tragen Sie Ihren eigenen in den Optionen ein."_s;
    }
    void o_aviso_da_amostra_esta_escrito_em_cada_lingua()
    {
        ComEnvelope c(QString::fromLatin1(QTest::currentDataTag()));
        c.s.geral.RemetenteBD = u"Write your address here (sender)"_s;
        QTEST(c.Abrir().lblRemetente->text(), "aviso");
    }
};

MORVEX_TESTE(TestFrmEnvelope)
#include "test_frmEnvelope.moc"
