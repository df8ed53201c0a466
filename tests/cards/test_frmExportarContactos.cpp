// The form by which contacts leave the book: what it offers, asks and says, and that a cancel is heard.
#include "cards/frmExportarContactos.h"
#include "controls/Controls.h"
#include "testlib/Accoes.h"
#include "testlib/ComJanela.h"
#include "testlib/Teste.h"
#include "vcard/Cartoes.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
struct ComExportar : ComJanela {
    ComExportar()
    {
        grupo = s.Novo_Grupo(u"Vizinhos & amigos"_s);
        s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Grupo"_s, grupo}});
        s.Novo_Contacto({{u"Nome"_s, u"Rui"_s}, {u"Grupo"_s, 1}});
        s.Novo_Contacto({{u"Nome"_s, u"Zita"_s}, {u"Grupo"_s, grupo}});
        lista.Carregar_Grupos();
    }

    frmExportarContactos &Abrir()
    {
        form = std::make_unique<frmExportarContactos>(janela, s.geral, s.plataforma);
        form->show();
        return *form;
    }

    QString Alvo(const QString &nome = u"saida.vcf"_s) const { return saida.filePath(nome); }

    QByteArray Bytes(const QString &nome = u"saida.vcf"_s) const
    {
        QFile ficheiro(Alvo(nome));
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray("<none>");
    }

    void Por_Velho()
    {
        QFile velho(Alvo());
        QVERIFY(velho.open(QIODevice::WriteOnly) && velho.write("velho") == 5);
    }

    QStringList Na_Pasta() const
    {
        return QDir(saida.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    // What comes once the files are in their place.
    void Espera_Resultado(int quantos, const QString &alvo)
    {
        const QString texto =
            quantos == 1 ? s.Texto(407).arg(alvo) : s.Texto(408).arg(alvo, QString::number(quantos));
        s.caixas.Espera(texto, box::information, form->windowTitle());
    }

    void Exportar()
    {
        form->cmdExportar->click();
        QTRY_VERIFY(s.caixas.Todas_Vistas());
    }

    int grupo = 0;
    QTemporaryDir saida;
    std::unique_ptr<frmExportarContactos> form;
};

QString Documentos() { return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation); }
} // namespace

class TestFrmExportarContactos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComExportar c;
        c.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form's file has the Portuguese ones
        const frmExportarContactos &form = c.Abrir();
        QCOMPARE(form.windowTitle(), c.s.Texto(275).remove(u'&'));
        const std::pair<QString, int> legendas[]{
            {form.FrameContactos->title(), 390}, {form.OptionSelecionado->text(), 391},
            {form.OptionGrupo->text(), 392},     {form.OptionTodos->text(), 393},
            {form.FrameFormato->title(), 394},   {form.ComboFormato->List(0), 395},
            {form.ComboFormato->List(1), 396},   {form.ComboFormato->List(2), 397},
            {form.ComboFormato->List(3), 398},   {form.cbFotografias->text(), 399},
            {form.cbUmPorContacto->text(), 400}, {form.cmdExportar->text(), 401},
            {form.cmdCancelar->text(), 43}};
        for (const auto &[legenda, texto] : legendas)
            QCOMPARE(legenda, c.s.Texto(texto));
        QCOMPARE(form.ComboFormato->accessibleName(), c.s.Texto(394));
        QCOMPARE(form.ProgressBar1->accessibleName(), form.windowTitle());
        QCOMPARE(form.ComboFormato->ListIndex(), 0);
        QVERIFY(form.cbFotografias->isChecked() && !form.cbUmPorContacto->isChecked());
    }

    void o_que_esta_a_vista_e_o_que_se_oferece_primeiro()
    {
        ComExportar c;
        const frmExportarContactos &todos = c.Abrir();
        QVERIFY(todos.OptionTodos->isChecked());
        QVERIFY(!todos.OptionGrupo->isEnabled() && !todos.OptionSelecionado->isEnabled());
        c.janela.ComboGrupos->ChooseText(u"Vizinhos & amigos"_s);
        c.janela.ListaNomes->setListIndex(1);
        const frmExportarContactos &grupo = c.Abrir();
        QVERIFY(grupo.OptionGrupo->isChecked());
        QCOMPARE(grupo.OptionGrupo->text(), c.s.Texto(392) + u" (Vizinhos && amigos)"_s);
        QCOMPARE(grupo.OptionSelecionado->text(), c.s.Texto(391) + u" (Zita)"_s);
        QVERIFY(grupo.OptionSelecionado->isEnabled());
    }

    void oferece_se_o_grupo_que_a_lista_mostra_qualquer_que_seja()
    {
        ComExportar c;
        const ComboBox &grupos = *c.janela.ComboGrupos;
        bool viu_se_o_primeiro = false;
        for (int i = -1; i < grupos.ListCount(); ++i) {
            c.janela.ComboGrupos->setCurrentIndex(i);
            const int id = i < 0 ? 0 : grupos.ItemData(i);
            const QString nome = id == 0 ? QString() : u" (%1)"_s.arg(QString(grupos.List(i)).replace(u'&', u"&&"_s));
            const frmExportarContactos &form = c.Abrir();
            QCOMPARE(form.OptionGrupo->text(), c.s.Texto(392) + nome);
            QCOMPARE(form.OptionGrupo->isEnabled(), id != 0);
            QCOMPARE(form.OptionGrupo->isChecked(), id != 0);
            viu_se_o_primeiro = viu_se_o_primeiro || id == 1;
        }
        QVERIFY(viu_se_o_primeiro && grupos.ListCount() > 2);
    }

    void a_barra_tem_o_seu_lugar_antes_de_se_ver()
    {
        ComExportar c;
        const frmExportarContactos &form = c.Abrir();
        QVERIFY(!form.ProgressBar1->isVisible());
        QVERIFY(form.ProgressBar1->sizePolicy().retainSizeWhenHidden());
    }

    void um_nome_comprido_nao_alarga_a_janela()
    {
        ComExportar c;
        c.s.Novo_Contacto({{u"Nome"_s, QString(5000, u'A')}, {u"Grupo"_s, 1}});
        c.lista.Carregar_Tabela();
        c.janela.ListaNomes->setListIndex(0);
        QCOMPARE(c.Abrir().OptionSelecionado->text(), c.s.Texto(391) + u" ("_s + QString(40, u'A') + u"…)"_s);
    }

    void sai_o_que_esta_escolhido_data()
    {
        QTest::addColumn<QString>("opcao");
        QTest::addColumn<QStringList>("nomes");
        QTest::addColumn<QString>("proposto");
        QTest::newRow("seleccionado") << u"OptionSelecionado"_s << QStringList{u"Zita"_s} << u"Zita.vcf"_s;
        QTest::newRow("grupo") << u"OptionGrupo"_s << QStringList{u"Ana"_s, u"Zita"_s}
                               << u"Vizinhos & amigos.vcf"_s;
        QTest::newRow("todos") << u"OptionTodos"_s << QStringList{u"Ana"_s, u"Rui"_s, u"Zita"_s}
                               << u"Contactos.vcf"_s;
    }
    void sai_o_que_esta_escolhido()
    {
        QFETCH(QString, opcao);
        QFETCH(QStringList, nomes);
        QFETCH(QString, proposto);
        ComExportar c;
        c.janela.ComboGrupos->ChooseText(u"Vizinhos & amigos"_s);
        c.janela.ListaNomes->setListIndex(1);
        c.Abrir();
        control<QRadioButton>(*c.form, opcao).click();
        c.s.dialogos.textos << c.Alvo();
        c.Espera_Resultado(static_cast<int>(nomes.size()), c.Alvo());
        c.Exportar();
        QCOMPARE(c.s.dialogos.perguntas[0],
                 u"saveFile "_s + c.s.Texto(402) + u"|*.vcf @ "_s + QDir(Documentos()).filePath(proposto));
        QCOMPARE(Nomes(CardReader().read(c.Bytes())), nomes);
        QVERIFY(!c.form->isVisible());
    }

    void cada_formato_sai_como_se_chama()
    {
        ComExportar c;
        const QByteArray inicios[]{"BEGIN:VCARD\r\nVERSION:3.0\r\n", "BEGIN:VCARD\r\nVERSION:4.0\r\n",
                                   "\xEF\xBB\xBF\"Nome\";\"Telefone 1\";", "\"First Name\",\"Last Name\","};
        for (int formato = 0; formato < 4; ++formato) {
            c.Abrir().ComboFormato->setListIndex(formato);
            QCOMPARE(c.form->cbFotografias->isEnabled(), formato < 2);
            QCOMPARE(c.form->cbUmPorContacto->isEnabled(), formato < 2);
            c.form->cbUmPorContacto->setChecked(formato >= 2); // of no account there
            c.s.dialogos.textos << c.Alvo();
            c.Espera_Resultado(3, c.Alvo());
            c.Exportar();
            QVERIFY2(c.Bytes().startsWith(inicios[formato]), c.Bytes().first(60));
        }
        QCOMPARE(c.s.dialogos.perguntas.last(), u"saveFile "_s + c.s.Texto(403) + u"|*.csv @ "_s +
                                                    QDir(Documentos()).filePath(u"Contactos.csv"_s));
    }

    void um_nome_com_uma_barra_nao_propoe_outra_pasta()
    {
        ComExportar c;
        const int grupo = c.s.Novo_Grupo(u"a/b"_s);
        c.s.Novo_Contacto({{u"Nome"_s, u"../c"_s}, {u"Grupo"_s, grupo}});
        c.lista.Carregar_Grupos();
        c.janela.ComboGrupos->ChooseText(u"a/b"_s);
        c.janela.ListaNomes->setListIndex(0);
        for (const auto &[opcao, proposto] :
             {std::pair(u"OptionGrupo"_s, u"a_b.vcf"_s), std::pair(u"OptionSelecionado"_s, u"_c.vcf"_s)}) {
            control<QRadioButton>(c.Abrir(), opcao).click();
            c.s.dialogos.textos << std::nullopt;
            c.form->cmdExportar->click();
            QVERIFY2(c.s.dialogos.perguntas.last().endsWith(u" @ "_s + QDir(Documentos()).filePath(proposto)),
                     qPrintable(c.s.dialogos.perguntas.last()));
        }
    }

    void um_por_contacto_pede_uma_pasta()
    {
        ComExportar c;
        c.Abrir().cbUmPorContacto->click();
        c.s.dialogos.textos << c.saida.path();
        c.Espera_Resultado(3, c.saida.path());
        c.Exportar();
        QCOMPARE(c.s.dialogos.perguntas[0], u"folder "_s + c.s.Texto(404) + u" @ "_s + Documentos());
        QCOMPARE(c.Na_Pasta(), (QStringList{u"Ana.vcf"_s, u"Rui.vcf"_s, u"Zita.vcf"_s}));
    }

    void sem_ficheiro_escolhido_nada_acontece()
    {
        ComExportar c;
        c.Abrir();
        c.s.dialogos.textos << std::nullopt;
        c.form->cmdExportar->click();
        QVERIFY(c.form->isVisible() && c.form->cmdExportar->isEnabled());
        QVERIFY(c.Na_Pasta().isEmpty());
    }

    void sem_contactos_di_lo_e_nao_pergunta_por_um_ficheiro()
    {
        ComExportar c;
        c.s.Escrever(u"DELETE FROM TblLista"_s);
        c.Abrir();
        c.s.caixas.Espera(c.s.Texto(406), box::stop, c.form->windowTitle());
        c.form->cmdExportar->click(); // a dialog would fail the test
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    void um_contacto_que_entretanto_desapareceu_nao_deixa_um_ficheiro_vazio()
    {
        ComExportar c;
        c.Escolher(c.janela.ListaNomes->ItemData(0));
        c.Abrir().OptionSelecionado->click();
        c.s.Escrever(u"DELETE FROM TblLista"_s);
        c.Por_Velho();
        c.s.dialogos.textos << c.Alvo();
        c.s.caixas.Espera(c.s.Texto(406), box::stop, c.form->windowTitle());
        c.Exportar();
        QCOMPARE(c.Bytes(), QByteArray("velho"));
        QVERIFY(c.form->isVisible());
    }

    void as_fotografias_que_ficam_de_fora_sao_ditas()
    {
        ComExportar c;
        for (int quantas = 1; quantas <= 2; ++quantas) {
            c.s.Novo_Contacto({{u"Nome"_s, u"Foto"_s}, {u"Grupo"_s, 1}, {u"Fotografia"_s, u"nada.png"_s}});
            c.Abrir();
            c.s.dialogos.textos << c.Alvo();
            c.s.caixas.Espera(c.s.Texto(408).arg(c.Alvo(), QString::number(3 + quantas)) + u"\r\n\r\n"_s +
                                  (quantas == 1 ? c.s.Texto(409) : c.s.Texto(410).arg(2)),
                              box::information, c.form->windowTitle());
            c.Exportar();
        }
    }

    void um_ficheiro_que_nao_se_escreve_e_dito_e_o_dialogo_fica()
    {
        ComExportar c;
        c.Abrir();
        const QString alvo = c.Alvo(u"nao/ha/saida.vcf"_s);
        c.s.dialogos.textos << alvo;
        c.s.caixas.Espera(c.s.Texto(411).arg(alvo) + u"\r\n\r\n"_s + c.s.Texto(412), box::stop,
                          c.form->windowTitle());
        c.Exportar();
        QVERIFY(c.form->isVisible() && c.form->cmdExportar->isEnabled() && c.form->FrameFormato->isEnabled());
        QVERIFY(!c.form->ProgressBar1->isVisible());
        c.s.dialogos.textos << c.Alvo();
        c.Espera_Resultado(3, c.Alvo());
        c.Exportar();
        QVERIFY(c.Bytes().startsWith("BEGIN:VCARD"));
    }

    void cancelar_a_meio_para_e_nao_deixa_nada_data()
    {
        QTest::addColumn<bool>("tecla");
        QTest::newRow("botão") << false;
        QTest::newRow("Esc") << true;
    }
    void cancelar_a_meio_para_e_nao_deixa_nada()
    {
        QFETCH(bool, tecla);
        ComExportar c;
        c.s.geral.de.Juntar([&] {
            const Value nada{QString()};
            for (int i = 0; i < 3000; ++i)
                c.s.geral.de.Executar("cmdAdicionarNome",
                                      {u"Contacto"_s, u"1"_s, nada, nada, nada, nada, nada, nada, nada, nada,
                                       nada, nada, nada, nada, nada, nada, 1});
        });
        c.Por_Velho();
        c.Abrir();
        c.s.dialogos.textos << c.Alvo();
        c.form->cmdExportar->click();
        QTRY_VERIFY(c.form->ProgressBar1->value() > 0);
        QVERIFY(c.form->ProgressBar1->isVisible() && !c.form->cmdExportar->isEnabled());
        QVERIFY(c.form->ProgressBar1->value() < c.form->ProgressBar1->maximum());
        if (tecla)
            QTest::keyClick(c.form.get(), Qt::Key_Escape);
        else
            c.form->cmdCancelar->click();
        QVERIFY(c.form->isVisible() && !c.form->ProgressBar1->isVisible());
        QCOMPARE(c.form->lblCancelada->text(), c.s.Texto(413));
        QTest::qWait(50); // nothing goes on
        QCOMPARE(c.Na_Pasta(), QStringList{u"saida.vcf"_s});
        QCOMPARE(c.Bytes(), QByteArray("velho"));
        QCOMPARE(c.form->focusWidget(), c.form->cmdExportar);
        c.s.dialogos.textos << c.Alvo(); // and from the beginning, by its letter
        c.form->ComboFormato->setFocus();
        c.form->cmdExportar->click();
        QCOMPARE(c.form->ProgressBar1->value(), 0);
        QCOMPARE(c.form->lblCancelada->text(), QString());
        QCOMPARE(c.form->focusWidget(), c.form->cmdCancelar);
        c.form->cmdCancelar->click();
        QVERIFY(c.form->isVisible());
        c.form->cmdCancelar->click();
        QVERIFY(!c.form->isVisible());
    }

    void uma_falha_do_livro_a_meio_nao_deixa_o_dialogo_preso()
    {
        ComExportar c;
        c.Por_Velho();
        c.Abrir();
        c.s.dialogos.textos << c.Alvo();
        c.form->cmdExportar->click();
        c.s.Escrever(u"DROP TABLE TblCartoes"_s);
        c.s.caixas.Espera_Erro(Failure::StoreError);
        QTRY_VERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(c.form->cmdExportar->isEnabled());
        QCOMPARE(c.Bytes(), QByteArray("velho"));
    }

    void o_teclado_chega_para_tudo()
    {
        ComExportar c;
        c.Abrir();
        QVERIFY(QTest::qWaitForWindowActive(c.form.get()));
        QTest::keyClick(c.form.get(), Qt::Key_U, Qt::AltModifier);
        QTRY_VERIFY(c.form->cbUmPorContacto->isChecked());
        c.s.dialogos.textos << c.saida.path();
        c.Espera_Resultado(3, c.saida.path());
        QTest::keyClick(c.form.get(), Qt::Key_E, Qt::AltModifier);
        QTRY_VERIFY(c.s.caixas.Todas_Vistas());
        QCOMPARE(c.Na_Pasta().size(), qsizetype{3});
    }

    void para_os_temporizadores_e_liga_os_ao_fechar()
    {
        ComExportar c;
        const auto parado = [&] { return !c.s.geral.temporizadores.timerTarefas.Enabled(); };
        c.s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        QVERIFY(!parado());
        c.Abrir();
        QVERIFY(parado());
        c.form->cmdCancelar->click();
        QVERIFY(!parado());
    }

    void a_entrada_abre_o_dialogo_diante_da_janela_desligada()
    {
        ComExportar c;
        bool veio = false;
        accoes::Quando_Abrir<frmExportarContactos>([&](frmExportarContactos &form) {
            veio = true;
            QVERIFY(!c.janela.isEnabled() && form.isEnabled());
            form.cmdCancelar->click();
        });
        c.janela.ExportarContactos->trigger();
        QVERIFY(veio && c.janela.isEnabled());
    }
};

MORVEX_TESTE(TestFrmExportarContactos)
#include "test_frmExportarContactos.moc"
