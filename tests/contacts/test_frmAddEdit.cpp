// The editor of contacts: its form, its checks, what it writes, and where it leaves the selection of the
// list.
#include "contacts/Editor.h"
#include "controls/Units.h"
#include "platform/Picture.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/Teste.h"

#include <QAccessible>

namespace
{
const QStringList colunas{u"Nome"_s,       u"Telefone1"_s,  u"Telefone2"_s, u"Fax"_s,    u"Telemovel1"_s,
                          u"Telemovel2"_s, u"Telemovel3"_s, u"Dia"_s,       u"Mes"_s,    u"Ano"_s,
                          u"Email1"_s,     u"Email2"_s,     u"Website"_s,   u"Morada"_s, u"Obs"_s,
                          u"Fotografia"_s, u"Grupo"_s};

struct Campo {
    const char *nome;
    int left, top, width;
    int limite; // 0: none
};

constexpr std::array campos{
    Campo{"txtNome", 120, 360, 8655, 55},         Campo{"txtTelefone1", 120, 960, 2175, 25},
    Campo{"txtTelefone2", 2400, 960, 2175, 25},   Campo{"txtFax", 4680, 960, 2175, 25},
    Campo{"txtTelemovel1", 120, 1560, 2175, 25},  Campo{"txtTelemovel2", 2400, 1560, 2175, 25},
    Campo{"txtTelemovel3", 4680, 1560, 2175, 25}, Campo{"txtFotografia", 120, 2160, 6735, 0},
    Campo{"txtWebsite", 120, 2760, 6735, 0},      Campo{"txtEmail1", 120, 3360, 4335, 60},
    Campo{"txtEmail2", 4560, 3360, 4215, 0},      Campo{"txtMorada", 120, 3960, 4335, 0},
    Campo{"txtObs", 4560, 3960, 4215, 0},         Campo{"txtDia", 480, 5520, 735, 0},
    Campo{"txtMes", 1800, 5520, 735, 0},          Campo{"txtAno", 3120, 5520, 1215, 0},
};

QWidget &Controlo(const frmAddEdit &form, const char *nome)
{
    return *form.findChild<QWidget *>(QLatin1StringView(nome));
}

void Escrever_Data(frmAddEdit &form, const QString &Dia, const QString &Mes, const QString &Ano)
{
    form.txtDia->setText(Dia);
    form.txtMes->setText(Mes);
    form.txtAno->setText(Ano);
}

QStringList Data(const frmAddEdit &form)
{
    return {form.txtDia->text(), form.txtMes->text(), form.txtAno->text()};
}

void Clicar(QWidget *campo) { QTest::mouseClick(campo, Qt::LeftButton); }

QString Guardar(const QString &ficheiro, const QByteArray &bytes)
{
    QFile f(ficheiro);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size()) qFatal("no file to test with");
    return ficheiro;
}

QByteArray Ler(const QString &ficheiro)
{
    QFile f(ficheiro);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A picture of one colour, whose format follows the name.
QString Pintar(const QString &ficheiro, QSize tamanho, const QColor &cor = Qt::red)
{
    QImage imagem(tamanho, QImage::Format_RGB888);
    imagem.fill(cor);
    if (!imagem.save(ficheiro)) qFatal("no picture to test with");
    return ficheiro;
}

// Two frames of one point each.
QByteArray Gif_Animado()
{
    const QByteArray quadro =
        QByteArray::fromHex("21f904000a0000002c000000000100010000020244010000").chopped(1);
    return QByteArray::fromHex("47494638396101000100800000000000ffffff") + quadro + quadro + ';';
}

// Which of the program's own pictures Thumb shows; empty if it is another.
QString Foto_A_Vista(const Sistema &s, const frmAddEdit &form)
{
    const QImage vista = form.Thumb->pixmap().toImage().convertToFormat(QImage::Format_RGB32);
    for (const auto &nome : {u"semfoto_small.jpg"_s, u"fotoerro_small.jpg"_s})
        if (Picture(s.Ficheiro(nome)).image({75, 72}).convertToFormat(QImage::Format_RGB32) == vista)
            return nome;
    return {};
}

// What happens to the lists of the main window, each entry with the number of contacts in the database then.
class Historia : public QObject
{
public:
    explicit Historia(Editor &editor) : e_(editor)
    {
        connect(e_.janela.ComboGrupos, &ComboBox::Click, this, [this] { Anotar(u"filtro"_s); });
        connect(e_.janela.ListaNomes->model(), &QAbstractItemModel::modelReset, this,
                [this] { Anotar(u"lista"_s); });
        connect(e_.janela.ListaNomes2, &ListBox::Click, this,
                [this] { Anotar(u"gemea "_s + QString::number(e_.janela.ListaNomes2->ListIndex())); });
        connect(e_.janela.ListaNomes, &ListBox::Click, this,
                [this] { Anotar(u"escolha "_s + QString::number(e_.janela.ListaNomes->ListIndex())); });
    }

    QStringList entradas;

private:
    // A reload resets the list twice, once empty and once full.
    void Anotar(const QString &facto)
    {
        const QString entrada = u"%1 (%2)"_s.arg(facto).arg(e_.Contactos());
        if (entradas.isEmpty() || entradas.constLast() != entrada) entradas << entrada;
    }
    Editor &e_;
};

// What the lists do when a second of three contacts is new. A file's twin finds its row before the insert; the order of
// a server is its own, so there it is found after the reload.
QStringList Passos_Do_Novo()
{
    if (Sistema::Num_Servidor()) return {u"lista (3)"_s, u"gemea 1 (3)"_s, u"escolha 1 (3)"_s};
    return {u"gemea 1 (2)"_s, u"lista (3)"_s, u"escolha 1 (3)"_s};
}
} // namespace

class TestFrmAddEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The form

    void cada_campo_tem_o_seu_lugar_e_limite()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            for (const Campo &campo : campos) {
                const QWidget &caixa = Controlo(form, campo.nome);
                QVERIFY2(caixa.pos() == QPoint(pixels(campo.left), pixels(campo.top)), campo.nome);
                QVERIFY2(caixa.width() == pixels(campo.width), campo.nome);
                const auto *linha = qobject_cast<const QLineEdit *>(&caixa);
                if (linha != nullptr)
                    QVERIFY2(linha->maxLength() == (campo.limite > 0 ? campo.limite : 32767), campo.nome);
            }
            for (const QPlainTextEdit *caixa : {form.txtMorada, form.txtObs})
                QCOMPARE(caixa->height(), pixels(1215));
            for (const QLineEdit *caixa : {form.txtDia, form.txtMes, form.txtAno})
                QCOMPARE(caixa->alignment(), Qt::AlignCenter);
            QCOMPARE(form.ComboGrupos->pos(), QPoint(pixels(4560), pixels(5520)));
            QVERIFY(form.txtIDGrupo->isHidden());
            QVERIFY(form.Calendario->isHidden());
        });
    }

    void as_legendas_vem_dos_textos()
    {
        Editor e;
        e.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form is drawn in Portuguese
        e.Novo([&](frmAddEdit &form) {
            const std::initializer_list<std::pair<QLabel *, int>> legendas{
                {form.lblNome, 27},       {form.lblTelefone1, 28},  {form.lblTelefone2, 29},
                {form.lblTelemovel1, 30}, {form.lblTelemovel2, 31}, {form.lblTelemovel3, 32},
                {form.lblFotografia, 35}, {form.lblWebsite, 34},    {form.lblMorada, 36},
                {form.lblObs, 37},        {form.lblDia, 39},        {form.lblMes, 40},
                {form.lblAno, 41},        {form.lblGrupo, 42},      {form.lblAniversario, 38}};
            for (const auto &[legenda, texto] : legendas)
                QCOMPARE(legenda->text(), e.s.Texto(texto));
            QCOMPARE(form.cmd_foto->text(), e.s.Texto(44));
            QCOMPARE(form.cmdCancelar->text(), e.s.Texto(43));
            QCOMPARE(form.lblFax->text(), u"Fax"_s);
            QCOMPARE(form.lblEmail1->text(), u"E-mail 1"_s);
            QCOMPARE(form.lblEmail2->text(), u"E-mail 2"_s);
        });
    }

    void o_tabulador_segue_a_ordem_dos_campos()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            const std::initializer_list<QWidget *> ordem{
                form.txtNome,       form.txtTelefone1,  form.txtTelefone2,  form.txtFax,   form.txtTelemovel1,
                form.txtTelemovel2, form.txtTelemovel3, form.txtFotografia, form.cmd_foto, form.txtWebsite,
                form.txtEmail1,     form.txtEmail2,     form.txtMorada,     form.txtObs,   form.txtDia,
                form.txtMes,        form.txtAno,        form.ComboGrupos,   form.cmdOk,    form.cmdCancelar};
            for (QWidget *controlo : ordem) {
                QVERIFY2(controlo->hasFocus(), qPrintable(controlo->objectName()));
                QTest::keyClick(controlo, Qt::Key_Tab);
            }
        });
    }

    void todos_os_controlos_tem_nome_para_quem_nao_ve()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            for (const Campo &campo : campos) {
                QAccessibleInterface *visto =
                    QAccessible::queryAccessibleInterface(&Controlo(form, campo.nome));
                QVERIFY2(!visto->text(QAccessible::Name).isEmpty(), campo.nome);
            }
            QVERIFY(!form.Thumb->accessibleName().isEmpty());
            QVERIFY(!form.Calendario->accessibleName().isEmpty());
        });
    }

    void abre_com_o_cursor_no_fim_do_nome()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana Sousa"_s}});
        e.Editar([](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QVERIFY(form.txtNome->hasFocus());
            QCOMPARE(form.txtNome->cursorPosition(), 9);
            QVERIFY(!form.txtNome->hasSelectedText());
        });
    }

    void quem_volta_ao_formulario_encontra_o_cursor_onde_estava()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            form.txtObs->setFocus();
            QEvent volta(QEvent::WindowActivate);
            QApplication::sendEvent(&form, &volta);
            QCOMPARE(form.focusWidget(), form.txtObs);
        });
    }

    void o_formulario_nao_se_deixa_esticar()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            QCOMPARE(form.minimumSize(), form.size());
            QCOMPARE(form.maximumSize(), form.size());
        });
    }

    // As they were named in the file that an earlier program left.
    void um_rascunho_tem_o_nome_do_contacto_em_que_foi_escrito()
    {
        Editor e;
        const int id = e.Mostrar({{u"Nome"_s, u"Ana"_s}});
        const auto registos = [&](frmAddEdit &form) {
            form.txtNome->setText(u"Por confirmar"_s);
            return e.s.geral.rascunhos.Guardar() ? Ler(e.s.Ficheiro(u"rascunho.json"_s)) : QByteArray();
        };
        e.Novo([&](frmAddEdit &form) { QVERIFY(registos(form).contains("\"contacto novo\"")); });
        e.Editar([&](frmAddEdit &form) {
            QVERIFY(registos(form).contains("\"contacto " + QByteArray::number(id) + '"'));
        });
    }

    void enter_carrega_em_ok_menos_na_morada_e_nas_notas()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            for (const Campo &campo : campos) {
                QWidget &caixa = Controlo(form, campo.nome);
                caixa.setFocus();
                const bool varias_linhas = qobject_cast<QPlainTextEdit *>(&caixa) != nullptr;
                QVERIFY2(form.cmdOk->isDefault() != varias_linhas, campo.nome);
            }
            form.txtObs->setFocus();
            form.ComboGrupos->setFocus();
            QVERIFY(form.cmdOk->isDefault());
            form.txtObs->setFocus();
            QTest::keyClicks(form.txtObs, u"a"_s);
            QTest::keyClick(form.txtObs, Qt::Key_Return);
            QVERIFY(form.isVisible());
            QCOMPARE(form.txtObs->toPlainText(), u"a\n"_s);
        });
    }

    void o_campo_com_o_foco_e_amarelo_e_os_outros_brancos()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QStringList nomes{u"ComboGrupos"_s};
            for (const Campo &campo : campos)
                nomes << QLatin1StringView(campo.nome);
            for (const QString &nome : nomes) {
                auto &caixa = *form.findChild<QWidget *>(nome);
                caixa.setFocus();
                QVERIFY2(caixa.palette().color(QPalette::Base) == colour(0xC0FFFF), qPrintable(nome));
                form.cmdCancelar->setFocus();
                QVERIFY2(caixa.palette().color(QPalette::Base) == colour(0xFFFFFF), qPrintable(nome));
            }
        });
    }

    void enter_num_campo_de_uma_linha_grava()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QTest::keyClicks(form.txtNome, u"Rita"_s);
            QTest::keyClick(form.txtNome, Qt::Key_Return);
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(e.Coluna(u"Nome"_s), u"Rita"_s);
    }

    // Timers and the main window

    void os_temporizadores_param_e_a_janela_fica_desactivada_enquanto_esta_aberto()
    {
        Editor e;
        Temporizadores &t = e.s.geral.temporizadores;
        QSignalSpy correio(&t, &Temporizadores::IniciarMail);
        e.Novo([&](frmAddEdit &) {
            QVERIFY(!t.timerTarefas.Enabled());
            QVERIFY(!t.timerPonto.Enabled());
            QVERIFY(!e.janela.isEnabled());
            QCOMPARE(correio.size(), 0);
        });
        QVERIFY(t.timerTarefas.Enabled());
        QVERIFY(t.timerPonto.Enabled());
        QVERIFY(e.janela.isEnabled());
        QCOMPARE(correio.size(), 1);
    }

    void cada_saida_repoe_os_temporizadores_data()
    {
        QTest::addColumn<int>("saida");
        QTest::newRow("cancelar") << 0;
        QTest::newRow("escape") << 1;
        QTest::newRow("fechar a janela") << 2;
        QTest::newRow("ok") << 3;
    }
    void cada_saida_repoe_os_temporizadores()
    {
        QFETCH(int, saida);
        Editor e;
        QSignalSpy correio(&e.s.geral.temporizadores, &Temporizadores::IniciarMail);
        e.Novo([&](frmAddEdit &form) {
            form.txtNome->setText(u"Rita"_s);
            if (saida == 0) form.cmdCancelar->click();
            if (saida == 1) QTest::keyClick(&form, Qt::Key_Escape);
            if (saida == 2) form.close();
            if (saida == 3) form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QVERIFY(e.s.geral.temporizadores.timerTarefas.Enabled());
        QVERIFY(e.janela.isEnabled());
        QCOMPARE(correio.size(), 1);
        QCOMPARE(e.Contactos(), saida == 3 ? 1 : 0); // only Ok writes
    }

    // Loading

    void novo_abre_vazio_com_o_primeiro_grupo()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Telefone1"_s, u"21"_s}});
        e.Novo([&](frmAddEdit &form) {
            QCOMPARE(form.windowTitle(), e.s.Texto(26));
            QCOMPARE(e.s.geral.ModoContacto, u"Add"_s);
            for (const QLineEdit *campo :
                 form.findChildren<QLineEdit *>(QRegularExpression(u"^txt(?!IDGrupo)"_s)))
                QVERIFY2(campo->text().isEmpty(), qPrintable(campo->objectName()));
            QVERIFY(form.txtMorada->toPlainText().isEmpty() && form.txtObs->toPlainText().isEmpty());
            QCOMPARE(form.ComboGrupos->ListIndex(), 0);
            QCOMPARE(form.txtIDGrupo->text(), QString::number(form.ComboGrupos->ItemData(0)));
            QCOMPARE(Foto_A_Vista(e.s, form), u"semfoto_small.jpg"_s);
        });
    }

    void editar_abre_com_todos_os_campos_do_contacto()
    {
        Editor e;
        QMap<QString, Value> contacto;
        for (const QString &coluna : colunas)
            contacto.insert(coluna, u"de "_s + coluna);
        contacto.insert(u"Dia"_s, u"07"_s);
        contacto.insert(u"Mes"_s, u"05"_s);
        contacto.insert(u"Ano"_s, u"1975"_s);
        contacto.insert(u"Morada"_s, u"Rua 1\r\nLisboa"_s);
        contacto.insert(u"Grupo"_s, e.Grupo(u"Coral"_s));
        e.Mostrar(contacto);
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(form.windowTitle(), e.s.Texto(53));
            QCOMPARE(e.s.geral.ModoContacto, u"Edit"_s);
            for (const QString &coluna : colunas) {
                const auto *campo = form.findChild<QLineEdit *>(u"txt"_s + coluna);
                if (campo != nullptr && !QStringList{u"Dia"_s, u"Mes"_s, u"Ano"_s}.contains(coluna))
                    QCOMPARE(campo->text(), u"de "_s + coluna);
            }
            QCOMPARE(Data(form), QStringList({u"07"_s, u"05"_s, u"1975"_s}));
            QCOMPARE(form.txtMorada->toPlainText(), u"Rua 1\nLisboa"_s);
            QCOMPARE(form.txtObs->toPlainText(), u"de Obs"_s);
            QCOMPARE(form.ComboGrupos->currentText(), u"Coral"_s);
            QCOMPARE(form.txtIDGrupo->text(), e.Coluna(u"Grupo"_s));
            QCOMPARE(e.s.geral.de.Rs("cmdEditarNome").State(), Recordset::Closed);
            QCOMPARE(e.s.geral.de.Rs("cmdVerGrupo").State(), Recordset::Closed);
        });
    }

    void colunas_nulas_abrem_vazias()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s},
                   {u"Telefone1"_s, nullptr},
                   {u"Obs"_s, nullptr},
                   {u"Fotografia"_s, nullptr}});
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(form.txtTelefone1->text(), QString());
            QCOMPARE(form.txtObs->toPlainText(), QString());
            QCOMPARE(Foto_A_Vista(e.s, form), u"semfoto_small.jpg"_s);
        });
    }

    void um_aniversario_que_nao_deixa_mostrar_o_cartao_corrige_se_no_editor()
    {
        Editor e;
        e.s.caixas.Espera(e.s.Texto(256), box::stop, u"Morvex"_s);
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Dia"_s, u"31"_s}, {u"Mes"_s, u"4"_s}, {u"Ano"_s, u"1980"_s}});
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(form.txtDia->text(), u"31"_s);
            form.txtDia->setText(u"30"_s);
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Dia"_s), u"30"_s);
        QCOMPARE(e.janela.txtAniversario->text(), u"30 Abril 1980"_s);
    }

    void o_grupo_escolhe_se_pelo_nome_e_de_dois_iguais_o_primeiro()
    {
        Editor e;
        const int primeiro = e.Grupo(u"Coral"_s);
        const int segundo = e.Grupo(u"Coral"_s);
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Grupo"_s, segundo}});
        e.Editar([&](frmAddEdit &form) { QCOMPARE(form.txtIDGrupo->text(), QString::number(primeiro)); });
    }

    void contacto_que_outro_eliminou_mostra_o_erro_e_nao_cala_os_alarmes()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}});
        e.s.Escrever(u"DELETE FROM TblLista"_s);
        e.s.caixas.Espera_Erro(Failure::NoCurrentRecord);
        QTest::keyClick(e.janela.cmdEditar, Qt::Key_Space);
        QVERIFY(e.s.geral.temporizadores.timerTarefas.Enabled());
        QVERIFY(e.janela.isEnabled());
    }

    void sem_linhas_no_filtro_o_carregamento_para()
    {
        Editor e;
        e.janela.ComboGrupos->Clear();
        QStringList pedidos;
        frmAddEdit form(e.janela, e.s.geral, e.s.plataforma, e.lista);
        form.setWindowTitle(u"Novo"_s);
        connect(&form, &frmAddEdit::Sem_Grupos, this, [&] {
            pedidos << u"frmNovoGrupo"_s;
            QVERIFY(e.s.caixas.Todas_Vistas());
        });
        e.s.caixas.Espera(u"Nehum grupo criado"_s, 48, u"Novo"_s);
        QVERIFY(!form.Carregar());
        QCOMPARE(pedidos, QStringList{u"frmNovoGrupo"_s});
        QVERIFY(e.s.geral.temporizadores.timerTarefas.Enabled());
        QCOMPARE(form.ComboGrupos->ListCount(), 0);
    }

    void sem_grupos_no_ok_avisa_fecha_e_pede_um_grupo()
    {
        Editor e;
        frmAddEdit form(e.janela, e.s.geral, e.s.plataforma, e.lista);
        form.setWindowTitle(u"Novo"_s);
        QVERIFY(form.Carregar());
        form.show();
        QStringList pedidos;
        connect(&form, &frmAddEdit::Sem_Grupos, this, [&] {
            QVERIFY(!form.isVisible());
            pedidos << u"frmNovoGrupo"_s;
        });
        form.ComboGrupos->Clear();
        e.s.caixas.Espera(u"nenhum grupo criado."_s, 48, u"Novo"_s);
        form.cmdOk->click();
        QCOMPARE(pedidos, QStringList{u"frmNovoGrupo"_s});
        QVERIFY(e.s.geral.temporizadores.timerTarefas.Enabled());
        QCOMPARE(e.Contactos(), 0);
    }

    void quem_nao_ve_grupo_nenhum_abre_na_mesma()
    {
        Editor e;
        e.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=99"_s);
        e.Novo([](frmAddEdit &form) { QCOMPARE(form.ComboGrupos->ListCount(), 0); });
    }

    void quem_ve_um_so_grupo_tem_no_escolhido()
    {
        Editor e;
        const int id = e.Grupo(u"Coral"_s);
        e.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=99 WHERE ID<>%1"_s.arg(id));
        e.Novo([&](frmAddEdit &form) {
            QCOMPARE(form.ComboGrupos->ListCount(), 1);
            QCOMPARE(form.ComboGrupos->ListIndex(), 0);
            QCOMPARE(form.txtIDGrupo->text(), QString::number(id));
        });
    }

    // The group

    void escolher_um_grupo_guarda_o_seu_id()
    {
        Editor e;
        const int id = e.Grupo(u"Zoologia"_s);
        e.Novo([&](frmAddEdit &form) {
            form.ComboGrupos->setFocus();
            QTest::keyClick(form.ComboGrupos, Qt::Key_End);
            QCOMPARE(form.txtIDGrupo->text(), QString::number(id));
            QTest::keyClicks(form.ComboGrupos, u"a"_s);
            QCOMPARE(form.txtIDGrupo->text(), QString::number(id));
        });
    }

    // The picture

    void a_foto_escolhida_fica_com_o_caminho_todo_e_a_sua_pasta_lembrada()
    {
        SO_NUM_FICHEIRO("a picture that stays a file");
        Editor e;
        const QString foto = Pintar(e.s.Ficheiro(u"férias.png"_s), {75, 72});
        e.s.geral.UltimaPastaFotos = u"/onde/estava/"_s;
        e.s.dialogos.textos = {foto};
        e.Novo([&](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            form.cmd_foto->setFocus();
            form.cmd_foto->click();
            QCOMPARE(form.txtFotografia->text(), foto);
            QCOMPARE(form.Thumb->pixmap().toImage().pixelColor(10, 10), QColor(Qt::red));
            QVERIFY(form.cmd_foto->hasFocus()); // in this mode it stays
        });
        QCOMPARE(
            e.s.dialogos.perguntas,
            QStringList(
                u"openFile Todas as imagens|*.bmp;*.dib;*.gif;*.jpg;*.png;*.wmf;*.emf;*ico;*.cur|Bitmaps "
                "(*.bmp;*.dib)|*.bmp;*.dib|GIF (*.gif)|*.gif|JPEG (*.jpg)|*.jpg|PNG (*.png)|*.png|"
                "Metafiles (*.wmf;*.emf)|*.wmf;*.emf|Icons (*.ico;*.cur)|*.ico;*.cur @ /onde/estava/"_s));
        const QString pasta = e.s.Pasta() + u'/';
        QCOMPARE(e.s.geral.UltimaPastaFotos, pasta);
        QCOMPARE(e.s.geral.ini.Ler_Ini(u"fotografias"_s, u"lastpathpic"_s), pasta);
    }

    void a_edicao_da_o_foco_a_ok_depois_da_foto()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}});
        e.s.dialogos.textos = {Pintar(e.s.Ficheiro(u"a.png"_s), {75, 72})};
        e.Editar([&](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            form.cmd_foto->click();
            QVERIFY(form.cmdOk->hasFocus());
            QVERIFY(form.cmdOk->isDefault());
        });
    }

    void cancelar_a_escolha_da_foto_nao_muda_nada()
    {
        Editor e;
        e.s.geral.UltimaPastaFotos = u"/onde/estava/"_s;
        e.s.dialogos.textos = {std::nullopt};
        e.Novo([&](frmAddEdit &form) {
            form.txtFotografia->setText(u"antes.jpg"_s);
            form.cmd_foto->click();
            QCOMPARE(form.txtFotografia->text(), u"antes.jpg"_s);
            QCOMPARE(Foto_A_Vista(e.s, form), u"semfoto_small.jpg"_s);
        });
        QCOMPARE(e.s.geral.UltimaPastaFotos, u"/onde/estava/"_s);
        QCOMPARE(e.s.geral.ini.Ler_Ini(u"fotografias"_s, u"lastpathpic"_s), QString());
    }

    void uma_foto_numa_pasta_que_o_ficheiro_nao_guarda_inteira_recusa_se()
    {
        Editor e;
        e.s.geral.UltimaPastaFotos = u"/onde/estava/"_s;
        e.s.dialogos.textos = {u'/' + QString(200, u'a') + u'/' + QString(52, u'b') + u"/a.png"_s};
        e.Novo([&](frmAddEdit &form) {
            form.txtFotografia->setText(u"antes.jpg"_s);
            e.s.caixas.Espera_Qualquer(16, u"Morvex"_s);
            form.cmd_foto->click();
            QVERIFY(e.s.caixas.Todas_Vistas());
            QCOMPARE(form.txtFotografia->text(), u"antes.jpg"_s);
        });
        QCOMPARE(e.s.geral.UltimaPastaFotos, u"/onde/estava/"_s);
        QCOMPARE(e.s.geral.ini.Ler_Ini(u"fotografias"_s, u"lastpathpic"_s), QString());
    }

    void o_caminho_da_foto_grava_se_como_foi_escolhido()
    {
        SO_NUM_FICHEIRO("a picture that stays a file");
        Editor e;
        e.lista.Carregar_Tabela();
        const auto foto_no_cartao = [&] { return e.janela.Thumb->pixmap().toImage(); };
        const QImage por_omissao = foto_no_cartao(); // without a contact
        const QString foto = Pintar(e.s.Ficheiro(u"a.png"_s), {20, 20});
        e.s.dialogos.textos = {foto};
        e.Novo([&](frmAddEdit &form) {
            form.txtNome->setText(u"Ana"_s);
            form.cmd_foto->click();
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), foto);
        QCOMPARE(foto_no_cartao().pixelColor(10, 10), QColor(Qt::red));
        QVERIFY(QFile::rename(foto, e.s.Ficheiro(u"b.png"_s)));
        e.lista.Carregar_Tabela();
        QCOMPARE(e.Escolhido(), u"Ana"_s);
        QCOMPARE(foto_no_cartao(), por_omissao);
        e.Editar([&](frmAddEdit &form) { QCOMPARE(Foto_A_Vista(e.s, form), u"fotoerro_small.jpg"_s); });
    }

    void o_editor_nao_procura_a_foto_na_pasta_do_programa()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, u"praca_sample.jpg"_s}});
        e.Editar([&](frmAddEdit &form) { QCOMPARE(Foto_A_Vista(e.s, form), u"fotoerro_small.jpg"_s); });
    }

    void um_caminho_antigo_com_barras_invertidas_ve_se_no_editor_e_fica_como_esta()
    {
        Editor e;
        const QString caminho = u"fotos\\ana.png"_s;
        QVERIFY(QDir(e.s.Pasta()).mkdir(u"fotos"_s));
        Pintar(e.s.Ficheiro(u"fotos/ana.png"_s), {20, 20});
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, caminho}});
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(form.Thumb->pixmap().toImage().pixelColor(10, 10), QColor(Qt::red));
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), caminho);
    }

    void uma_foto_da_base_ve_se_no_editor_e_fica_ate_se_escolher_outra()
    {
        SO_NUM_FICHEIRO("a picture that stays a file");
        Editor e;
        const QString nome = Por_Na_Base(e.s, {20, 20}, qRgb(255, 0, 0));
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, nome}});
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(form.Thumb->pixmap().toImage().pixelColor(10, 10), QColor(Qt::red));
            form.txtNome->setText(u"Ana Maria"_s);
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Nome"_s), u"Ana Maria"_s);
        QCOMPARE(e.Coluna(u"Fotografia"_s), nome);
        const QString outra = Pintar(e.s.Ficheiro(u"outra.png"_s), {20, 20}, Qt::blue);
        e.s.dialogos.textos = {outra};
        e.Editar([&](frmAddEdit &form) {
            form.cmd_foto->click();
            QCOMPARE(form.Thumb->pixmap().toImage().pixelColor(10, 10), QColor(Qt::blue));
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), outra);
    }

    void uma_foto_que_a_base_nao_tem_mostra_a_do_erro_e_o_nome_fica()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, u"bd:nenhuma.png"_s}});
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(Foto_A_Vista(e.s, form), u"fotoerro_small.jpg"_s);
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), u"bd:nenhuma.png"_s);
    }

    void fotos_que_nao_se_deixam_ler_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("vazia") << QByteArray();
        QTest::newRow("texto") << QByteArray("nao sou uma imagem");
        QTest::newRow("jpeg estragado")
            << QByteArray("\xff\xd8\xff\xe0\x00\x10JFIF\x00\xff\xff\xff\xff\xff", 16);
        QTest::newRow("svg com nome de jpg")
            << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='40' height='40'><rect width='40' "
                          "height='40'/></svg>");
        QTest::newRow("bmp sem fim") << QByteArray("BM\x36\x00\x00\x00", 6);
    }
    void fotos_que_nao_se_deixam_ler()
    {
        SO_NUM_FICHEIRO("a picture that stays a file");
        QFETCH(QByteArray, bytes);
        Editor e;
        const QString foto = Guardar(e.s.Ficheiro(u"foto.jpg"_s), bytes);
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, foto}});
        e.s.dialogos.textos = {foto};
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(Foto_A_Vista(e.s, form), u"fotoerro_small.jpg"_s);
            form.cmd_foto->click(); // the dialog has its own fallback
            QCOMPARE(Foto_A_Vista(e.s, form), u"semfoto_small.jpg"_s);
            QCOMPARE(form.txtFotografia->text(), foto);
        });
    }

    void um_jpeg_cortado_a_meio_nao_faz_mal()
    {
        Editor e;
        const QByteArray inteiro = Ler(Pintar(e.s.Ficheiro(u"inteiro.jpg"_s), {600, 600}));
        const QString foto = Guardar(e.s.Ficheiro(u"cortado.jpg"_s), inteiro.left(inteiro.size() / 2));
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, foto}});
        e.Editar([&](frmAddEdit &form) { QVERIFY(!form.Thumb->pixmap().isNull()); });
    }

    void um_gif_animado_mostra_o_primeiro_quadro()
    {
        Editor e;
        const QString foto = Guardar(e.s.Ficheiro(u"foto.gif"_s), Gif_Animado());
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, foto}});
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(Foto_A_Vista(e.s, form), QString());
            QCOMPARE(form.Thumb->pixmap().size(), QSize(1, 1));
        });
    }

    void uma_foto_de_8000_por_6000_cabe_no_seu_lugar()
    {
        Editor e;
        QImage grande(8000, 6000, QImage::Format_Grayscale8);
        grande.fill(Qt::white);
        const QString foto = e.s.Ficheiro(u"grande.jpg"_s);
        QVERIFY(grande.save(foto));
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, foto}});
        e.Editar([&](frmAddEdit &form) {
            QCOMPARE(form.Thumb->size(), QSize(75, 56));
            QCOMPARE(form.Thumb->pixmap().toImage().pixelColor(37, 28), QColor(Qt::white));
        });
    }

    // The place is 75 by 72 pixels as the form is drawn, and grows with the letters to the nearest pixel.
    void em_letras_maiores_a_foto_fica_a_meio_do_seu_lugar_data()
    {
        QTest::addColumn<int>("letras");
        QTest::addColumn<QSize>("foto");
        QTest::addColumn<QRect>("lugar");
        QTest::newRow("pequena, letras de 11") << 11 << QSize(75, 72) << QRect(487, 58, 75, 72);
        QTest::newRow("pequena, letras de 13") << 13 << QSize(21, 18) << QRect(607, 100, 25, 21);
        QTest::newRow("larga, letras de 14") << 14 << QSize(800, 100) << QRect(620, 114, 95, 12);
        QTest::newRow("alta, letras de 21") << 21 << QSize(100, 800) << QRect(993, 111, 17, 137);
    }
    void em_letras_maiores_a_foto_fica_a_meio_do_seu_lugar()
    {
        QFETCH(int, letras);
        QFETCH(QSize, foto);
        QFETCH(QRect, lugar);
        scale::setLetters(letras);
        const auto repor = qScopeGuard([] { scale::setLetters(scale::standardLetters); });
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, Pintar(e.s.Ficheiro(u"foto.png"_s), foto)}});
        e.Editar([&](frmAddEdit &form) { QCOMPARE(form.Thumb->geometry(), lugar); });
    }

    // The calendar

    void o_calendario_aparece_sob_o_campo_clicado_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<int>("left");
        QTest::newRow("dia") << u"txtDia"_s << 400;
        QTest::newRow("mes") << u"txtMes"_s << 1440;
        QTest::newRow("ano") << u"txtAno"_s << 2400;
    }
    void o_calendario_aparece_sob_o_campo_clicado()
    {
        QFETCH(QString, campo);
        QFETCH(int, left);
        Editor e;
        e.Novo([&](frmAddEdit &form) {
            auto *caixa = form.findChild<QLineEdit *>(campo);
            const int altura = form.height();
            Clicar(caixa);
            QVERIFY(form.Calendario->isVisible());
            QCOMPARE(form.Calendario->x(), pixels(left));
            QVERIFY(form.Calendario->y() >= caixa->geometry().bottom());
            QVERIFY(form.rect().contains(form.Calendario->geometry()));
            QCOMPARE(form.height(), form.Calendario->geometry().bottom() + 8);
            QVERIFY(!form.Calendario->geometry().intersects(form.cmdOk->geometry()));
            Clicar(caixa);
            QVERIFY(form.Calendario->isHidden());
            QCOMPARE(form.height(), altura);
        });
    }

    void em_letras_maiores_o_calendario_segue_o_seu_campo_data()
    {
        QTest::addColumn<int>("letras");
        QTest::addColumn<int>("left");
        QTest::newRow("txtDia") << 20 << 400;
        QTest::newRow("txtMes") << 13 << 1440;
        QTest::newRow("txtAno") << 21 << 2400;
    }
    void em_letras_maiores_o_calendario_segue_o_seu_campo()
    {
        QFETCH(int, letras);
        QFETCH(int, left);
        scale::setLetters(letras);
        const auto repor = qScopeGuard([] { scale::setLetters(scale::standardLetters); });
        Editor e;
        e.Novo([&](frmAddEdit &form) {
            Clicar(&Controlo(form, QTest::currentDataTag()));
            QVERIFY(form.Calendario->isVisible());
            QCOMPARE(form.Calendario->x(), pixels(left));
        });
    }

    void um_clique_noutro_campo_com_o_calendario_a_vista_esconde_o()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            Clicar(form.txtDia);
            Clicar(form.txtMes);
            QVERIFY(form.Calendario->isHidden());
        });
    }

    void Escape_fecha_primeiro_o_calendario_e_so_depois_o_formulario_data()
    {
        QTest::addColumn<bool>("no_calendario");
        QTest::newRow("o teclado no campo") << false;
        QTest::newRow("o teclado no calendario") << true;
    }
    void Escape_fecha_primeiro_o_calendario_e_so_depois_o_formulario()
    {
        QFETCH(bool, no_calendario);
        Editor e;
        e.Novo([&](frmAddEdit &form) {
            form.activateWindow();
            Clicar(form.txtMes);
            if (no_calendario) form.Calendario->setFocus();
            QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
            QVERIFY(form.Calendario->isHidden());
            QVERIFY(form.isVisible());
            QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
            QVERIFY(!form.isVisible());
        });
    }

    void uma_tecla_no_campo_mostra_o_calendario_sob_ele()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            QTest::keyClick(form.txtMes, Qt::Key_5);
            QVERIFY(form.Calendario->isVisible());
            QCOMPARE(form.Calendario->x(), pixels(1440));
            QCOMPARE(form.txtMes->text(), u"5"_s);
            QTest::keyClick(form.txtAno, Qt::Key_1);
            QCOMPARE(form.Calendario->x(), pixels(2400));
        });
    }

    void o_calendario_abre_na_parte_escrita_ou_na_de_hoje_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QDate>("aberto_em");
        const QDate hoje(2027, 2, 9);
        QTest::newRow("dia vazio") << u"txtDia"_s << u""_s << hoje;
        QTest::newRow("dia 0") << u"txtDia"_s << u"0"_s << hoje;
        QTest::newRow("dia 1") << u"txtDia"_s << u"1"_s << QDate(2027, 2, 1);
        QTest::newRow("dia 17") << u"txtDia"_s << u"17"_s << QDate(2027, 2, 17);
        QTest::newRow("dia que o mes nao tem") << u"txtDia"_s << u"99"_s << QDate(2027, 2, 28);
        QTest::newRow("dia em letras") << u"txtDia"_s << u"dez"_s << hoje;
        QTest::newRow("mes vazio") << u"txtMes"_s << u""_s << hoje;
        QTest::newRow("mes 1") << u"txtMes"_s << u"1"_s << QDate(2027, 1, 9);
        QTest::newRow("mes 5") << u"txtMes"_s << u"5"_s << QDate(2027, 5, 9);
        QTest::newRow("mes 13") << u"txtMes"_s << u"13"_s << QDate(2027, 12, 9);
        QTest::newRow("ano vazio") << u"txtAno"_s << u""_s << hoje;
        QTest::newRow("ano 1768") << u"txtAno"_s << u"1768"_s << hoje;
        QTest::newRow("ano 1769") << u"txtAno"_s << u"1769"_s << QDate(1769, 2, 9);
        QTest::newRow("ano sem fim") << u"txtAno"_s << u"123456"_s << QDate(9999, 2, 9);
    }
    void o_calendario_abre_na_parte_escrita_ou_na_de_hoje()
    {
        QFETCH(QString, campo);
        QFETCH(QString, texto);
        QFETCH(QDate, aberto_em);
        Editor e;
        e.s.relogio.Acertar({{2027, 2, 9}, {9, 0}});
        e.Novo([&](frmAddEdit &form) {
            auto *caixa = form.findChild<QLineEdit *>(campo);
            caixa->setText(texto);
            Clicar(caixa);
            QCOMPARE(form.Calendario->selectedDate(), aberto_em);
        });
    }

    void as_partes_do_calendario_tem_nome_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("anterior");
        QTest::addColumn<QString>("seguinte");
        QTest::newRow("PortuguesPT") << u"Mês anterior"_s << u"Mês seguinte"_s;
        QTest::newRow("PortuguesBR") << u"Mês anterior"_s << u"Próximo mês"_s;
        QTest::newRow("InglesUK") << u"Previous month"_s << u"Next month"_s;
        QTest::newRow("EspanholES") << u"Mes anterior"_s << u"Mes siguiente"_s;
        QTest::newRow("ItalianoIT") << u"Mese precedente"_s << u"Mese successivo"_s;
        QTest::newRow("FrancesFR") << u"Mois précédent"_s << u"Mois suivant"_s;
        QTest::newRow("AlemaoDE") << u"Vorheriger Monat"_s << u"Nächster Monat"_s;
    }
    void as_partes_do_calendario_tem_nome_em_cada_lingua()
    {
        Editor e;
        e.s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        e.Novo([&](frmAddEdit &form) {
            const auto nome = [&](const char *parte) {
                const auto *widget = form.Calendario->findChild<QWidget *>(QLatin1StringView(parte));
                return widget == nullptr ? u"none"_s : widget->accessibleName();
            };
            QTEST(nome("qt_calendar_prevmonth"), "anterior");
            QTEST(nome("qt_calendar_nextmonth"), "seguinte");
            QCOMPARE(nome("qt_calendar_calendarview"), form.lblAniversario->text());
            QCOMPARE(nome("qt_calendar_yearedit"), form.lblAno->text());
            QCOMPARE(form.Calendario->accessibleName(), form.lblAniversario->text());
        });
    }

    void o_calendario_comeca_em_hoje_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("lingua"); // some begin the week on Sunday
        for (const auto &lingua : {u"PortuguesPT"_s, u"PortuguesBR"_s, u"InglesUK"_s, u"AlemaoDE"_s})
            QTest::newRow(qPrintable(lingua)) << lingua;
    }
    void o_calendario_comeca_em_hoje_em_cada_lingua()
    {
        QFETCH(QString, lingua);
        Editor e;
        e.s.geral.IdiomaActual = lingua;
        e.s.relogio.Acertar({{2026, 11, 21}, {9, 0}});
        e.Novo([](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QTest::keyClick(form.txtAno, Qt::Key_Home);
            QCOMPARE(form.Calendario->selectedDate(), QDate(2026, 11, 21));
        });
    }

    void o_dia_escolhido_enche_dia_e_mes_e_o_ano_so_a_partir_dele_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<bool>("por_tecla");
        QTest::addColumn<QStringList>("data");
        const QStringList sem_ano{u"7"_s, u"3"_s, u"antes"_s};
        const QStringList com_ano{u"7"_s, u"3"_s, u"1980"_s};
        QTest::newRow("dia, clique") << u"txtDia"_s << false << sem_ano;
        QTest::newRow("mes, clique") << u"txtMes"_s << false << sem_ano;
        QTest::newRow("ano, clique") << u"txtAno"_s << false << com_ano;
        QTest::newRow("dia, tecla") << u"txtDia"_s << true << sem_ano;
        QTest::newRow("ano, tecla") << u"txtAno"_s << true << com_ano;
    }
    void o_dia_escolhido_enche_dia_e_mes_e_o_ano_so_a_partir_dele()
    {
        QFETCH(QString, campo);
        QFETCH(bool, por_tecla);
        Editor e;
        e.Novo([&](frmAddEdit &form) {
            auto *caixa = form.findChild<QLineEdit *>(campo);
            if (por_tecla)
                QTest::keyClick(caixa, Qt::Key_Home);
            else
                Clicar(caixa);
            form.txtAno->setText(u"antes"_s);
            Q_EMIT form.Calendario->clicked(QDate(1980, 3, 7));
            QTEST(Data(form), "data");
            QVERIFY(form.Calendario->isHidden());
        });
    }

    void esconder_o_calendario_pelo_ano_esquece_o_ano()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            Clicar(form.txtAno);
            Clicar(form.txtAno);
            Q_EMIT form.Calendario->clicked(QDate(1980, 3, 7));
            QCOMPARE(Data(form), QStringList({u"7"_s, u"3"_s, u""_s}));
        });
    }

    void enter_no_calendario_escolhe_o_dia_e_nao_grava()
    {
        Editor e;
        e.Novo([](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            Clicar(form.txtDia);
            form.txtAno->setFocus();
            QTest::keyClick(form.txtAno, Qt::Key_Tab);
            for (int i = 0; i < 6 && !form.Calendario->findChild<QAbstractItemView *>()->hasFocus(); ++i)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QVERIFY(form.isVisible());
            QCOMPARE(form.txtDia->text(), u"2"_s);
            QVERIFY(form.Calendario->isHidden());
        });
        QCOMPARE(e.Contactos(), 0);
    }

    // The date

    void uma_data_falsa_esvazia_os_tres_campos_e_nada_grava_data()
    {
        QTest::addColumn<QStringList>("escrita");
        QTest::newRow("ano de dois algarismos") << QStringList{u"17"_s, u"5"_s, u"75"_s};
        QTest::newRow("31 de fevereiro sem ano") << QStringList{u"31"_s, u"2"_s, u""_s};
        QTest::newRow("mes e ano sem dia") << QStringList{u""_s, u"5"_s, u"1975"_s};
        QTest::newRow("so o ano esta errado") << QStringList{u"17"_s, u"5"_s, u"19"_s};
    }
    void uma_data_falsa_esvazia_os_tres_campos_e_nada_grava()
    {
        QFETCH(QStringList, escrita);
        Editor e;
        e.Novo([&](frmAddEdit &form) {
            form.txtNome->setText(u"Ana"_s);
            Escrever_Data(form, escrita[0], escrita[1], escrita[2]);
            e.s.caixas.Espera(e.s.Texto(232), 16, e.s.Texto(26));
            form.cmdOk->click();
            QVERIFY(form.isVisible());
            QCOMPARE(Data(form), QStringList({u""_s, u""_s, u""_s}));
            QCOMPARE(form.txtNome->text(), u"Ana"_s);
        });
        QVERIFY(e.s.caixas.Todas_Vistas());
        QCOMPARE(e.Contactos(), 0);
    }

    void uma_data_verdadeira_grava_se_como_foi_escrita_data()
    {
        QTest::addColumn<QStringList>("escrita");
        QTest::newRow("completa") << QStringList{u"17"_s, u"5"_s, u"1975"_s};
        QTest::newRow("29 de fevereiro sem ano") << QStringList{u"29"_s, u"2"_s, u""_s};
        QTest::newRow("nenhuma") << QStringList{u""_s, u""_s, u""_s};
    }
    void uma_data_verdadeira_grava_se_como_foi_escrita()
    {
        QFETCH(QStringList, escrita);
        Editor e;
        e.Novo([&](frmAddEdit &form) {
            Escrever_Data(form, escrita[0], escrita[1], escrita[2]);
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(e.Coluna(u"Dia || '|' || Mes || '|' || Ano"_s), escrita.join(u'|'));
    }

    // Adding

    void novo_grava_as_dezassete_colunas()
    {
        Editor e;
        QStringList escrito;
        e.Novo([&](frmAddEdit &form) {
            for (const QString &coluna : colunas)
                if (auto *campo = form.findChild<QLineEdit *>(u"txt"_s + coluna))
                    campo->setText(u"x "_s + coluna);
            Escrever_Data(form, u"7"_s, u"5"_s, u"1975"_s);
            form.txtMorada->setPlainText(u"Rua 1\nLisboa"_s);
            form.txtObs->setPlainText(u"notas"_s);
            for (const QString &coluna : colunas)
                if (auto *campo = form.findChild<QLineEdit *>(u"txt"_s + coluna)) escrito << campo->text();
            escrito.insert(13, u"notas"_s);
            escrito.insert(13, u"Rua 1\r\nLisboa"_s);
            escrito << form.txtIDGrupo->text();
            form.cmdOk->click();
        });
        QCOMPARE(e.s.Linhas(u"SELECT %1 FROM TblLista"_s.arg(colunas.join(u',')))[0], escrito.join(u'|'));
        QCOMPARE(e.Coluna(u"MSNMessenger IS NULL"_s), u"1"_s);
    }

    void um_nome_vazio_tambem_se_grava()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}});
        e.Adicionar(QString());
        QCOMPARE(e.Contactos(), 2);
        QCOMPARE(e.janela.ListaNomes->ListIndex(), 0);
        QCOMPARE(e.Escolhido(), QString());
    }

    void o_novo_fica_escolhido_no_seu_lugar_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<int>("linha");
        QTest::newRow("antes de todos") << u"Abel"_s << 0;
        QTest::newRow("no meio") << u"Carlos"_s << 1;
        QTest::newRow("com acento") << u"Élio"_s << 2;
        QTest::newRow("depois de todos") << u"Zulmira"_s << 3;
        QTest::newRow("igual a outro: depois dele") << u"Duarte"_s << 2;
        QTest::newRow("igual sem maiusculas") << u"DUARTE"_s << 2;
        QTest::newRow("cirilico") << u"Яна"_s << 3;
        QTest::newRow("grego") << u"Ωμέγα"_s << 3;
        QTest::newRow("chines") << u"王小明"_s << 3;
        QTest::newRow("arabe") << u"محمد"_s << 3;
        QTest::newRow("algarismos") << u"112"_s << 0;
    }
    void o_novo_fica_escolhido_no_seu_lugar()
    {
        QFETCH(QString, nome);
        Editor e;
        for (const auto &outro : {u"Bruno"_s, u"Duarte"_s, u"Marta"_s})
            e.s.Novo_Contacto({{u"Nome"_s, outro}});
        e.lista.Carregar_Tabela();
        e.Adicionar(nome);
        QTEST(e.janela.ListaNomes->ListIndex(), "linha");
        QCOMPARE(e.Escolhido(), nome);
        QCOMPARE(QString::number(e.s.geral.IDContacto), e.Coluna(u"ID"_s)); // the card is that of the new row
        QCOMPARE(e.Coluna(u"Nome"_s), nome);
    }

    void as_escritas_misturadas_ficam_na_mesma_ordem_nas_duas_listas()
    {
        Editor e;
        for (const auto &nome :
             {u"Яна"_s, u"anabela"_s, u"Ωμέγα"_s, u"ÁLVARO"_s, u"王小明"_s, u"alvaro"_s, u"محمد"_s, u"Ana"_s,
              u"ana"_s, u"😀"_s, u" espaço"_s, u"-traço"_s, u"日本"_s}) {
            e.Adicionar(nome);
            QCOMPARE(e.Escolhido(), nome);
        }
    }

    void um_nome_de_55_letras_cabe_e_a_56a_nao()
    {
        Editor e;
        const QString nome(55, u'ж');
        e.Novo([&](frmAddEdit &form) {
            QTest::keyClicks(form.txtNome, QString(56, u'a'));
            QCOMPARE(form.txtNome->text(), QString(55, u'a'));
            form.txtNome->setText(nome);
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Nome"_s), nome);
    }

    void no_limite_nao_fica_meia_letra_data()
    {
        QTest::addColumn<int>("cabem"); // places before the limit where a letter of two places comes in
        QTest::addColumn<QString>("fica");
        QTest::newRow("um so lugar") << 1 << QString(54, u'a');
        QTest::newRow("dois lugares") << 2 << QString(53, u'a') + u"\U0001F600"_s;
    }
    void no_limite_nao_fica_meia_letra()
    {
        QFETCH(int, cabem);
        QFETCH(QString, fica);
        Editor e;
        const QString inicio(55 - cabem, u'a');
        e.Novo([&](frmAddEdit &form) {
            form.txtNome->setText(inicio);
            form.txtNome->insert(u"\U0001F600"_s);
            QCOMPARE(form.txtNome->text(), fica);
            form.txtNome->setText(inicio + u"\U0001F600"_s);
            QCOMPARE(form.txtNome->text(), fica);
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Nome"_s), fica);
        QCOMPARE(e.Escolhido(), fica);
    }

    void passos_de_novo_sob_todos_os_grupos()
    {
        Editor e;
        for (const auto &nome : {u"Ana"_s, u"Rui"_s})
            e.s.Novo_Contacto({{u"Nome"_s, nome}});
        e.lista.Carregar_Tabela();
        Historia h(e);
        e.Adicionar(u"Luis"_s);
        QCOMPARE(h.entradas, Passos_Do_Novo());
        QCOMPARE(e.s.geral.GrupoActual, u"0"_s);
    }

    void o_lugar_conta_com_o_que_outra_copia_gravou_entretanto()
    {
        Editor e;
        for (const auto &nome : {u"Ana"_s, u"Rui"_s})
            e.s.Novo_Contacto({{u"Nome"_s, nome}});
        e.lista.Carregar_Tabela();
        e.s.Novo_Contacto({{u"Nome"_s, u"Berta"_s}});
        e.Adicionar(u"Luis"_s);
        QCOMPARE(e.janela.ListaNomes->ListIndex(), 2);
        QCOMPARE(e.Escolhido(), u"Luis"_s);
    }

    void o_lugar_nao_conta_com_um_nome_que_nao_chegou_a_gravar_se()
    {
        Editor e;
        for (const auto &nome : {u"Ana"_s, u"Rui"_s})
            e.s.Novo_Contacto({{u"Nome"_s, nome}});
        e.lista.Carregar_Tabela();
        LugarNaLista lugar(e.janela, e.s.geral, e.lista);
        QCOMPARE(lugar.Lugar_Do_Novo(u"Luis"_s, u"1"_s), 1);
        QCOMPARE(lugar.Lugar_Do_Novo(u"Luis"_s, u"1"_s), 1); // behind an equal name it would be 2
    }

    void novo_no_grupo_a_vista_deixa_o_filtro()
    {
        Editor e;
        const int coral = e.Grupo(u"Coral"_s);
        e.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Grupo"_s, coral}});
        e.s.Novo_Contacto({{u"Nome"_s, u"Bela"_s}});
        e.Filtrar(u"Coral"_s);
        Historia h(e);
        e.Adicionar(u"Carla"_s, u"Coral"_s);
        QCOMPARE(h.entradas, Passos_Do_Novo());
        QCOMPARE(e.s.geral.GrupoActual, QString::number(coral));
        QCOMPARE(e.Escolhido(), u"Carla"_s);
    }

    void novo_noutro_grupo_muda_o_filtro_para_todos()
    {
        Editor e;
        e.Grupo(u"Coral"_s);
        for (const auto &nome : {u"Ana"_s, u"Rui"_s})
            e.s.Novo_Contacto({{u"Nome"_s, nome}});
        e.Grupo(u"Teatro"_s);
        e.Filtrar(u"Coral"_s);
        Historia h(e);
        e.Adicionar(u"Carla"_s, u"Teatro"_s);
        QCOMPARE(h.entradas, Sistema::Num_Servidor()
                                 ? QStringList({u"lista (3)"_s, u"filtro (3)"_s, u"lista (3)"_s, u"gemea 1 (3)"_s,
                                                u"escolha 1 (3)"_s})
                                 : QStringList({u"lista (2)"_s, u"filtro (2)"_s, u"gemea 1 (2)"_s, u"lista (3)"_s,
                                                u"escolha 1 (3)"_s}));
        QCOMPARE(e.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(e.s.geral.GrupoActual, u"0"_s);
        QCOMPARE(e.janela.ListaNomes->ListCount(), 3);
        QCOMPARE(e.Escolhido(), u"Carla"_s);
    }

    void o_que_a_base_recusa_mostra_o_erro_e_deixa_o_formulario()
    {
        Editor e;
        e.Novo([&](frmAddEdit &form) {
            form.txtNome->setText(u"Ana"_s);
            form.txtIDGrupo->setText(u"sem grupo"_s);
            e.s.caixas.Espera_Erro(Failure::TypeMismatch);
            QTest::keyClick(form.cmdOk, Qt::Key_Space);
            QVERIFY(form.isVisible());
            QCOMPARE(form.txtNome->text(), u"Ana"_s);
        });
        QVERIFY(e.s.caixas.Todas_Vistas());
        QCOMPARE(e.Contactos(), 0);
    }

    void o_que_falha_depois_de_gravar_fecha_o_formulario()
    {
        Editor e;
        QVERIFY(QFile::remove(e.s.Ficheiro(u"semfoto_big.jpg"_s)));
        e.s.geral.GrupoActual = u"6"_s; // so that nothing is loaded before the insert
        e.Novo([&](frmAddEdit &form) {
            form.ComboGrupos->setListIndex(form.ComboGrupos->findData(6));
            e.s.caixas.Espera_Erro(Failure::InvalidPicture);
            QTest::keyClick(form.cmdOk, Qt::Key_Space);
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(e.Contactos(), 1);
        QVERIFY(e.s.geral.temporizadores.timerTarefas.Enabled());
    }

    // Changing

    void editar_grava_e_volta_a_escolher_o_contacto()
    {
        Editor e;
        for (const auto &nome : {u"Ana"_s, u"Rui"_s})
            e.s.Novo_Contacto({{u"Nome"_s, nome}});
        const int id = e.Mostrar({{u"Nome"_s, u"Bela"_s}, {u"Telefone1"_s, u"21"_s}});
        e.Editar([](frmAddEdit &form) {
            form.txtNome->setText(u"Zita"_s);
            form.txtTelefone1->clear();
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(e.s.Linhas(u"SELECT Nome, Telefone1 FROM TblLista WHERE ID=%1"_s.arg(id)),
                 QStringList{u"Zita|"_s});
        QCOMPARE(e.Contactos(), 3);
        QCOMPARE(e.Escolhido(), u"Zita"_s);
        QCOMPARE(int{e.s.geral.IDContacto}, id);
        QCOMPARE(e.janela.ListaNomes2->ListIndex(), 2);
    }

    void de_dois_do_mesmo_nome_fica_escolhido_o_que_se_editou()
    {
        Editor e;
        const int primeiro = e.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}});
        const int segundo = e.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}});
        e.lista.Carregar_Tabela();
        for (const int id : {primeiro, segundo}) {
            e.Escolher(id);
            e.Editar([](frmAddEdit &form) { form.cmdOk->click(); });
            QCOMPARE(int{e.s.geral.IDContacto}, id);
        }
    }

    void editar_sem_mudar_nada_deixa_a_linha_igual_data()
    {
        QTest::addColumn<QString>("Obs");
        QString longas;
        while (longas.size() < 100 * 1024)
            longas += u"uma\r\nduas\ntrês\rquatro 王\u00a0\r\n"_s;
        QTest::newRow("fins de linha misturados") << longas;
        QTest::newRow("so fins de linha") << u"\r\n\n\r"_s;
        QTest::newRow("uma linha") << u"uma"_s;
    }
    void editar_sem_mudar_nada_deixa_a_linha_igual()
    {
        QFETCH(QString, Obs);
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Obs"_s, Obs}, {u"Morada"_s, Obs}});
        const QStringList antes = e.s.Linhas(u"SELECT * FROM TblLista"_s);
        e.Editar([](frmAddEdit &form) { form.cmdOk->click(); });
        QVERIFY(e.s.Linhas(u"SELECT * FROM TblLista"_s) == antes);
    }

    void a_presenca_no_messenger_nao_se_toca()
    {
        Editor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}});
        e.s.Escrever(u"UPDATE TblLista SET MSNMessenger='18'"_s);
        e.Editar([](frmAddEdit &form) { form.cmdOk->click(); });
        QCOMPARE(e.Coluna(u"MSNMessenger"_s), u"18"_s);
    }

    void passos_de_editar_quando_sai_do_grupo_a_vista()
    {
        Editor e;
        const int coral = e.Grupo(u"Coral"_s);
        e.Grupo(u"Teatro"_s);
        for (const auto &nome : {u"Ana"_s, u"Rui"_s})
            e.s.Novo_Contacto({{u"Nome"_s, nome}, {u"Grupo"_s, coral}});
        e.Filtrar(u"Coral"_s);
        e.janela.ListaNomes->setListIndex(1);
        Historia h(e);
        e.Editar([](frmAddEdit &form) {
            form.ComboGrupos->ChooseText(u"Teatro"_s);
            form.cmdOk->click();
        });
        QCOMPARE(h.entradas, QStringList({u"lista (2)"_s, u"filtro (2)"_s, u"lista (2)"_s, u"gemea 1 (2)"_s,
                                          u"escolha 1 (2)"_s}));
        QCOMPARE(e.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(e.Escolhido(), u"Rui"_s);
    }

    void mudar_de_grupo_sob_todos_deixa_o_filtro()
    {
        Editor e;
        e.Grupo(u"Teatro"_s);
        e.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}});
        e.Mostrar({{u"Nome"_s, u"Rui"_s}});
        Historia h(e);
        e.Editar([](frmAddEdit &form) {
            form.ComboGrupos->ChooseText(u"Teatro"_s);
            form.cmdOk->click();
        });
        QCOMPARE(h.entradas, QStringList({u"lista (2)"_s, u"gemea 1 (2)"_s, u"escolha 1 (2)"_s}));
        QCOMPARE(e.janela.txtGrupo->text(), u"Teatro"_s);
    }

    void ficar_no_grupo_a_vista_deixa_o_filtro()
    {
        Editor e;
        const int coral = e.Grupo(u"Coral"_s);
        for (const auto &nome : {u"Ana"_s, u"Rui"_s})
            e.s.Novo_Contacto({{u"Nome"_s, nome}, {u"Grupo"_s, coral}});
        e.Filtrar(u"Coral"_s);
        e.janela.ListaNomes->setListIndex(0);
        e.Editar([](frmAddEdit &form) { form.cmdOk->click(); });
        QCOMPARE(e.s.geral.GrupoActual, QString::number(coral));
        QCOMPARE(e.Escolhido(), u"Ana"_s);
    }

    void contacto_eliminado_por_outro_durante_a_edicao_nao_escolhe_nada()
    {
        Editor e;
        for (const auto &nome : {u"Ana"_s, u"Rui"_s})
            e.s.Novo_Contacto({{u"Nome"_s, nome}});
        const int id = e.Mostrar({{u"Nome"_s, u"Bela"_s}});
        e.Editar([&](frmAddEdit &form) {
            e.s.Escrever(u"DELETE FROM TblLista WHERE ID=%1"_s.arg(id));
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(e.Escolhido(), QString());
        QCOMPARE(e.Contactos(), 2);
    }
};

MORVEX_TESTE(TestFrmAddEdit)
#include "test_frmAddEdit.moc"
