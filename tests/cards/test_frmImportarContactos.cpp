// The import of foreign contacts, from the choice of the file to the report, as a person meets it.
#include "cards/frmImportarContactos.h"

#include "cards/ContactosAImportar.h"
#include "cards/ContactosLargados.h"
#include "cards/EntradaDeContactos.h"
#include "cards/frmCampos.h"
#include "platform/Failure.h"
#include "session/frmLogin.h"
#include "session/SystemTray.h"
#include "testlib/Accoes.h"
#include "testlib/ComJanela.h"
#include "testlib/DiscoCheio.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Teste.h"

#include <QBuffer>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QShortcut>

using namespace Qt::StringLiterals;
using accoes::Quando_Abrir;
using E = Escolha;

namespace
{
QByteArray Cartao(const QByteArray &linhas)
{
    return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + linhas + "\r\nEND:VCARD\r\n";
}

// Somebody of each kind: new, completes Ana, is Ana, may be Ana, and a fault.
const QByteArray de_tudo = Cartao("FN:Rui Costa\r\nTEL;TYPE=CELL:966666666\r\nCATEGORIES:Xadrez") +
                           Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt") +
                           Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt") +
                           Cartao("FN:Outra Gente\r\nEMAIL:ana@exemplo.pt") + "lixo\r\n";

struct Programa : ComJanela {
    Programa()
    {
        ana = s.Novo_Contacto(
            {{u"Nome"_s, u"Ana Silva"_s}, {u"Email1"_s, u"ana@exemplo.pt"_s}, {u"Grupo"_s, 1}});
        janela.Carregar();
    }

    QString Ficheiro(const QString &nome, const QByteArray &bytes)
    {
        QFile ficheiro(s.Ficheiro(nome));
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size())
            QTest::qFail("the file was not written", __FILE__, __LINE__);
        return ficheiro.fileName();
    }

    QStringList Contactos() { return s.Linhas(u"SELECT Nome, Website FROM TblLista ORDER BY ID"_s); }

    int ana = 0;
};

// A form that stands there with that file, read.
struct Formulario {
    explicit Formulario(Programa &p, const QByteArray &bytes = de_tudo, const QString &nome = u"gente.vcf"_s)
        : form(p.s.geral, p.s.plataforma, &p.janela)
    {
        form.show();
        form.Abrir(p.Ficheiro(nome, bytes));
        Esperar();
    }

    void Esperar()
    {
        for (int i = 0; i < 2000 && form.ProgressBar1->isVisible(); ++i)
            QTest::qWait(5);
    }
    QString Celula(int linha, int coluna)
    {
        return form.Lista->model()->index(linha, coluna).data().toString();
    }
    bool Marcado(int linha)
    {
        return form.Lista->model()->index(linha, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    void Ir_Para(int linha) { form.Lista->setCurrentIndex(form.Lista->model()->index(linha, 0)); }
    void Escolher(int qual)
    {
        form.ComboEscolha->setCurrentIndex(qual);
        Q_EMIT form.ComboEscolha->activated(qual);
    }
    int Linhas() { return form.Lista->model()->rowCount(); }

    frmImportarContactos form;
};

// The toolkit hands a drop only to what took the drag before. True where both were taken, as a copy.
bool Largar(QWidget &janela, const QMimeData &dados)
{
    QDragEnterEvent entrada({10, 10}, Qt::CopyAction | Qt::MoveAction, &dados, Qt::LeftButton, {});
    entrada.ignore();
    QCoreApplication::sendEvent(&janela, &entrada);
    QDropEvent largada({10, 10}, Qt::CopyAction | Qt::MoveAction, &dados, Qt::LeftButton, {});
    largada.ignore();
    QCoreApplication::sendEvent(&janela, &largada);
    return entrada.isAccepted() && largada.isAccepted() && largada.dropAction() == Qt::CopyAction;
}

// Whether the word stands there in bold.
bool Carregado(QTextEdit &campo, const QString &palavra)
{
    const QTextCursor achada = campo.document()->find(palavra);
    return !achada.isNull() && achada.charFormat().fontWeight() == QFont::Bold;
}
} // namespace

class TestFrmImportarContactos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What is shown

    void as_colunas_comecam_com_a_largura_do_que_tem_e_a_ultima_toma_o_resto()
    {
        Programa p;
        const Formulario f(p);
        const QHeaderView &colunas = *f.form.Lista->header();
        const std::pair<int, int> larguras[]{{ContactosAImportar::Nome, 124},
                                             {ContactosAImportar::Numero, 110},
                                             {ContactosAImportar::Email, 130},
                                             {ContactosAImportar::Estado, 92}};
        for (const auto &[coluna, largura] : larguras)
            QCOMPARE(colunas.sectionSize(coluna), largura);
        QCOMPARE(colunas.length(), f.form.Lista->viewport()->width());
    }

    void as_legendas_e_os_nomes_falados_vem_dos_textos()
    {
        Programa p;
        p.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form's file has the Portuguese ones
        const Formulario f(p);
        QCOMPARE(f.form.windowTitle(), p.s.Texto(285));
        const std::pair<QString, int> legendas[]{{f.form.Label1->text(), 286},
                                                 {f.form.cmdProcurar->text(), 69},
                                                 {f.form.lblGrupos->text(), 289},
                                                 {f.form.chkCriar->text(), 290},
                                                 {f.form.chkJuntar->text(), 291},
                                                 {f.form.lblCodificacao->text(), 292},
                                                 {f.form.lblEscolha->text(), 293},
                                                 {f.form.cmdImportar->text(), 287},
                                                 {f.form.cmdAnular->text(), 288},
                                                 {f.form.cmdCancelar->text(), 43},
                                                 {f.form.txtContacto->accessibleName(), 334}};
        for (const auto &[legenda, texto] : legendas)
            QCOMPARE(legenda, p.s.Texto(texto));
        QCOMPARE(f.form.Lista->accessibleName(), f.form.windowTitle());
        QCOMPARE(f.form.ProgressBar1->accessibleName(), f.form.windowTitle());
        f.form.cmdImportar->click();
        QCOMPARE(f.form.cmdCancelar->text(), p.s.Texto(135));
    }

    void a_lista_as_escolhas_e_o_ficheiro_pedem_se_com_os_seus_textos()
    {
        Programa p;
        Formulario f(p);
        QStringList titulos;
        for (int i = 0; i < ContactosAImportar::quantas_colunas; ++i)
            titulos << f.form.Lista->model()->headerData(i, Qt::Horizontal).toString();
        QCOMPARE(titulos,
                 (QStringList{p.s.Texto(27), p.s.Texto(303), p.s.Texto(304), p.s.Texto(305), p.s.Texto(306)}));
        f.Ir_Para(3);
        QStringList escolhas;
        for (int i = 0; i < f.form.ComboEscolha->count(); ++i)
            escolhas << f.form.ComboEscolha->itemText(i);
        QCOMPARE(escolhas, (QStringList{p.s.Texto(307), p.s.Texto(308) + u" Ana Silva"_s, p.s.Texto(309)}));
        p.s.dialogos.textos << std::nullopt;
        f.form.cmdProcurar->click();
        QCOMPARE(p.s.dialogos.perguntas.last(),
                 u"openFile "_s + p.s.Texto(329) + u"|*.vcf;*.vcard;*.vct;*.csv;*.txt @ "_s);
        const frmImportarContactos vazio(p.s.geral, p.s.plataforma, &p.janela);
        QCOMPARE(vazio.Lista->accessibleDescription(), p.s.Texto(330));
    }

    void quem_tambem_esta_no_ficheiro_diz_se_assim()
    {
        Programa p;
        Formulario f(p, Cartao("FN:Rui\r\nEMAIL:rui@exemplo.pt") + Cartao("FN:Eva\r\nEMAIL:rui@exemplo.pt"));
        f.Ir_Para(1);
        QVERIFY(f.form.txtContacto->toPlainText().contains(p.s.Texto(314)));
        QVERIFY(!f.form.txtContacto->toPlainText().contains(p.s.Texto(313)));
    }

    void a_lista_diz_o_que_cada_um_e()
    {
        Programa p;
        Formulario f(p);
        QCOMPARE(f.Linhas(), 4);
        QStringList estados;
        for (int i = 0; i < 4; ++i)
            estados << f.Celula(i, ContactosAImportar::Estado);
        QCOMPARE(estados, (QStringList{u"novo"_s, u"completa"_s, u"igual"_s, u"a decidir"_s}));
        QCOMPARE(f.Celula(0, ContactosAImportar::Numero), u"966666666"_s);
        QCOMPARE(f.Celula(0, ContactosAImportar::IgualA), QString());
        QCOMPARE(f.Celula(3, ContactosAImportar::IgualA), u"Ana Silva"_s);
        QVERIFY(f.Marcado(0) && f.Marcado(1) && !f.Marcado(2) && f.Marcado(3));
        QCOMPARE(f.form.lblContagem->text(), u"Contactos: 4    Novos: 1    Completam: 1    Iguais: 1    "
                                             "A decidir: 1    Com problemas: 1"_s);
    }

    void o_que_muda_esta_carregado()
    {
        Programa p;
        Formulario f(p);
        f.Ir_Para(1);
        QVERIFY(Carregado(*f.form.txtContacto, u"ana.pt"_s));
        QVERIFY(!Carregado(*f.form.txtContacto, u"ana@exemplo.pt"_s));
        f.Ir_Para(3); // beside the one who is there
        QVERIFY(f.form.txtContacto->toPlainText().contains(u"Outra Gente"_s));
        QVERIFY(f.form.txtContacto->toPlainText().contains(u"Já na agenda:"_s));
        QVERIFY(f.form.txtContacto->toPlainText().contains(u"Ana Silva"_s));
    }

    void a_fotografia_do_cartao_esta_por_cima_dos_seus_dados_e_vai_com_ele()
    {
        QImage imagem(30, 20, QImage::Format_RGB32);
        imagem.fill(Qt::blue);
        QByteArray bytes;
        QBuffer ficheiro(&bytes);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly) && imagem.save(&ficheiro, "PNG"));
        Programa p;
        Formulario f(p, Cartao("FN:Rui\r\nPHOTO;ENCODING=b;TYPE=PNG:" + bytes.toBase64()) + Cartao("FN:Eva"));
        const QTextEdit &campo = *f.form.txtContacto;
        const auto fotografia = [&] {
            QTextCursor primeiro(campo.document());
            primeiro.movePosition(QTextCursor::NextCharacter);
            const QString nome = primeiro.charFormat().toImageFormat().name();
            return campo.document()->resource(QTextDocument::ImageResource, nome).value<QImage>();
        };
        QCOMPARE(fotografia().size(), QSize(30, 20));
        QCOMPARE(fotografia().pixelColor(5, 5), QColor(Qt::blue));
        f.Ir_Para(1);
        QVERIFY(!campo.toPlainText().contains(QChar::ObjectReplacementCharacter));
    }

    // A card is foreign text: what looks like a page is shown as it is written.
    void um_nome_com_sinais_de_uma_pagina_fica_texto()
    {
        Programa p;
        Formulario f(p, Cartao("FN:<img src=\"file:///etc/passwd\"><b>x</b>"));
        QVERIFY(f.form.txtContacto->toPlainText().contains(u"<b>x</b>"_s));
    }

    void nada_se_escreve_antes_de_importar()
    {
        Programa p;
        const QStringList antes = p.s.Linhas(u"SELECT * FROM TblLista"_s);
        Formulario f(p);
        f.form.chkCriar->click();
        f.Esperar();
        f.Ir_Para(3);
        f.Escolher(1);
        f.form.cmdCancelar->click();
        QVERIFY(!f.form.isVisible());
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblLista"_s), antes);
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblGrupos WHERE NomeGrupo = 'Xadrez'"_s).size(), 0);
    }

    void o_primeiro_contacto_de_um_ficheiro_lido_esta_escolhido()
    {
        Programa p;
        const Formulario f(p, Cartao("FN:Rui"));
        QCOMPARE(f.form.Lista->currentIndex().row(), 0);
        QCOMPARE(f.form.focusWidget(), f.form.Lista);
        QCOMPARE(f.form.txtContacto->textCursor().position(), 0);
        QCOMPARE(f.form.ProgressBar1->value(), 100);
    }

    void o_primeiro_contacto_esta_escolhido_tambem_atras_de_outra_janela()
    {
        Programa p;
        frmImportarContactos form(p.s.geral, p.s.plataforma, &p.janela);
        form.show();
        QWidget outra;
        outra.show();
        QApplication::setActiveWindow(&outra);
        form.Abrir(p.Ficheiro(u"gente.vcf"_s, de_tudo));
        QTRY_VERIFY(!form.ProgressBar1->isVisible());
        QCOMPARE(form.Lista->currentIndex().row(), 0);
    }

    void so_se_pode_o_que_serve_em_cada_momento()
    {
        Programa p;
        frmImportarContactos form(p.s.geral, p.s.plataforma, &p.janela);
        form.show();
        const auto serve = [&] {
            QStringList nomes;
            for (const QWidget *controlo : std::initializer_list<QWidget *>{
                     form.cmdProcurar, form.Lista, form.ComboEscolha, form.ComboGrupos, form.chkCriar,
                     form.ComboCodificacao, form.chkJuntar, form.ProgressBar1, form.cmdImportar, form.cmdAnular})
                if (controlo->isVisible() && controlo->isEnabled()) nomes << controlo->objectName();
            return nomes.join(u' ');
        };
        QCOMPARE(serve(), u"cmdProcurar Lista"_s);
        form.Abrir(p.Ficheiro(u"gente.vcf"_s, de_tudo));
        QCOMPARE(serve(), u"ProgressBar1"_s);
        QCOMPARE(form.Lista->accessibleDescription(), QString());
        QTRY_VERIFY(!form.ProgressBar1->isVisible());
        const QString lido =
            u"cmdProcurar Lista ComboEscolha ComboGrupos chkCriar ComboCodificacao chkJuntar cmdImportar"_s;
        QCOMPARE(serve(), lido);
        QString enquanto;
        QTimer::singleShot(0, &form, [&] { enquanto = serve(); });
        form.cmdImportar->click();
        QCOMPARE(enquanto, u"ProgressBar1"_s);
        QCOMPARE(serve(), u"cmdAnular"_s);
        form.cmdAnular->click();
        QCOMPARE(serve(), lido);
        QVERIFY(form.ProgressBar1->sizePolicy().retainSizeWhenHidden());
    }

    void outro_ficheiro_comeca_do_principio()
    {
        Programa p;
        Formulario f(p);
        f.form.ComboCodificacao->setCurrentIndex(3);
        f.form.Abrir(p.Ficheiro(u"outra.vcf"_s, Cartao("FN:Rui")));
        QCOMPARE(f.Linhas(), 0); // until it is read
        QVERIFY(!f.form.Lista->currentIndex().isValid());
        QCOMPARE(f.form.txtContacto->toPlainText(), QString());
        QCOMPARE(f.form.ProgressBar1->value(), 0);
        QCOMPARE(f.form.ComboCodificacao->currentIndex(), 0);
        f.Esperar();
        QCOMPARE(f.Linhas(), 1);
    }

    // A tree asks each row whether there are others under it.
    void a_lista_tem_vistos_so_na_primeira_coluna_e_nada_por_baixo_das_linhas()
    {
        Programa p;
        const Formulario f(p);
        const QAbstractItemModel &linhas = *f.form.Lista->model();
        const QModelIndex primeira = linhas.index(0, ContactosAImportar::Nome);
        QCOMPARE(linhas.rowCount(primeira), 0);
        QCOMPARE(linhas.columnCount(primeira), 0);
        for (int i = 0; i < linhas.columnCount(); ++i) {
            const QModelIndex celula = linhas.index(1, i);
            QCOMPARE(celula.data(Qt::CheckStateRole).isValid(), i == ContactosAImportar::Nome);
            QCOMPARE(celula.flags().testFlag(Qt::ItemIsUserCheckable), i == ContactosAImportar::Nome);
            QCOMPARE(celula.data(Qt::ToolTipRole), celula.data(Qt::DisplayRole));
            for (const int papel : {Qt::DecorationRole, Qt::FontRole})
                QVERIFY(!celula.data(papel).isValid());
            QVERIFY(!linhas.headerData(i, Qt::Horizontal, Qt::DecorationRole).isValid());
        }
        QVERIFY(!linhas.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
    }

    void outro_grupo_diz_se_logo_no_contacto_que_nao_tem_nenhum()
    {
        Programa p;
        Formulario f(p, Cartao("FN:Rui"));
        for (const int qual : {1, 0}) {
            f.form.ComboGrupos->setCurrentIndex(qual);
            Q_EMIT f.form.ComboGrupos->activated(qual);
            QVERIFY(f.form.txtContacto->toPlainText().contains(p.s.Texto(42) + u' ' + f.form.ComboGrupos->List(qual)));
        }
    }

    // What is done

    void quem_diz_um_grupo_da_lista_vai_para_ele_qualquer_que_seja()
    {
        Programa p;
        QStringList grupos;
        QByteArray cartoes;
        {
            const frmImportarContactos form(p.s.geral, p.s.plataforma, &p.janela);
            for (int i = 0; i < form.ComboGrupos->ListCount(); ++i) {
                grupos << QString::number(form.ComboGrupos->ItemData(i));
                cartoes += Cartao("FN:Pessoa " + QByteArray::number(i) +
                                  "\r\nCATEGORIES:" + form.ComboGrupos->List(i).toUtf8());
            }
        }
        QVERIFY(grupos.size() > 1);
        p.s.geral.GrupoActual = grupos.constLast();
        Formulario f(p, cartoes);
        f.form.cmdImportar->click();
        QCOMPARE(p.s.Linhas(u"SELECT Grupo FROM TblLista WHERE Nome LIKE 'Pessoa%' ORDER BY ID"_s), grupos);
    }

    void quem_pode_ser_um_de_varios_junta_se_a_quem_se_escolhe()
    {
        Programa p;
        p.s.Novo_Contacto({{u"Nome"_s, u"Eva Costa"_s}, {u"Email1"_s, u"ana@exemplo.pt"_s}, {u"Grupo"_s, 1}});
        Formulario f(p, Cartao("FN:Outra Gente\r\nEMAIL:ana@exemplo.pt\r\nURL:outra.pt"));
        QCOMPARE(f.form.ComboEscolha->count(), 4);
        QCOMPARE(f.form.ComboEscolha->itemText(2), p.s.Texto(308) + u" Eva Costa"_s);
        for (const int qual : {3, 1, 0, 2}) {
            f.Escolher(qual);
            QCOMPARE(f.form.ComboEscolha->currentIndex(), qual);
            QCOMPARE(f.Celula(0, ContactosAImportar::IgualA), qual == 2 ? u"Eva Costa"_s : u"Ana Silva"_s);
        }
        f.form.cmdImportar->click();
        QCOMPARE(p.Contactos(), (QStringList{u"Ana Silva|"_s, u"Eva Costa|outra.pt"_s}));
    }

    void de_muitos_com_quem_se_podia_juntar_oferecem_se_vinte()
    {
        Programa p;
        for (int i = 0; i < 21; ++i)
            p.s.Novo_Contacto(
                {{u"Nome"_s, u"Rui Costa"_s}, {u"Telefone1"_s, QString::number(1000000 + i)}, {u"Grupo"_s, 1}});
        Formulario f(p, Cartao("FN:Rui Costa\r\nTEL;TYPE=HOME:213333333"));
        QCOMPARE(f.form.ComboEscolha->count(), 2 + 20);
        QCOMPARE(f.form.txtContacto->toPlainText().count(p.s.Texto(313)), 20);
        f.Escolher(21);
        QCOMPARE(f.form.ComboEscolha->currentIndex(), 21); // the last is to skip it
        QVERIFY(!f.Marcado(0));
    }

    void o_relatorio_conta_todas_as_faltas_e_mostra_as_primeiras_mil()
    {
        Programa p;
        Formulario f(p, Cartao("FN:Rui") + QByteArray("BEGIN:VCARD\r\nVERSION:3.0\r\nEND:VCARD\r\n").repeated(1001));
        f.form.cmdImportar->click();
        const QString relatorio = f.form.txtContacto->toPlainText();
        QVERIFY(relatorio.contains(p.s.Texto(298) + u" 1001"_s));
        QCOMPARE(relatorio.count(p.s.Texto(318)), 1000);
    }

    void um_cancelamento_ouve_se_ao_primeiro_passo_e_nao_vale_da_proxima_vez()
    {
        Programa p;
        Formulario f(p);
        QTimer::singleShot(0, &f.form, [&] { f.form.cmdCancelar->click(); });
        f.form.cmdImportar->click();
        QCOMPARE(f.form.lblContagem->text(), p.s.Texto(333));
        QCOMPARE(p.Contactos().size(), 1);
        f.form.cmdImportar->click();
        QCOMPARE(p.Contactos().size(), 3);
    }

    void importar_da_o_relatorio_e_a_lista_le_se_de_novo()
    {
        Programa p;
        Formulario f(p);
        QSignalSpy mudados(&f.form, &frmImportarContactos::ContactosMudados);
        f.form.cmdImportar->click();
        QCOMPARE(p.Contactos(), (QStringList{u"Ana Silva|ana.pt"_s, u"Rui Costa|"_s, u"Outra Gente|"_s}));
        QCOMPARE(mudados.size(), 1);
        QCOMPARE(f.form.lblContagem->text(), u"Adicionados: 2    Completados: 1    Saltados: 1"_s);
        const QString relatorio = f.form.txtContacto->toPlainText();
        QVERIFY(relatorio.contains(u"Com problemas: 1"_s));
        QVERIFY(relatorio.contains(u"Linha 23 – está fora de qualquer cartão"_s));
        QVERIFY(f.form.isVisible());
        QVERIFY(!f.form.cmdImportar->isVisible() && f.form.cmdAnular->isVisible());
        QCOMPARE(f.form.cmdCancelar->text(), p.s.Texto(135));
        QCOMPARE(f.form.focusWidget(), f.form.cmdCancelar);
        QCOMPARE(f.form.ComboEscolha->count(), 0);
        QCOMPARE(f.form.txtContacto->textCursor().position(), 0); // it is read from its beginning
    }

    void o_relatorio_diz_tudo_o_que_foi_feito_e_o_que_faltou()
    {
        Programa p;
        Formulario f(p);
        f.form.chkCriar->click();
        f.Esperar();
        QString enquanto;
        QTimer::singleShot(0, &f.form, [&] { enquanto = f.form.lblContagem->text(); });
        f.form.cmdImportar->click();
        QCOMPARE(enquanto, p.s.Texto(312));
        const QStringList linhas = f.form.txtContacto->toPlainText().split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(linhas, (QStringList{p.s.Texto(231), p.s.Texto(315) + u" 2"_s, p.s.Texto(316) + u" 1"_s,
                                      p.s.Texto(317) + u" 1"_s, p.s.Texto(236) + u": Xadrez"_s,
                                      p.s.Texto(298) + u" 1"_s,
                                      p.s.Texto(318) + u" 23 \u2013 "_s + p.s.Texto(323)}));
        QVERIFY(!Carregado(*f.form.txtContacto, u"Xadrez"_s));
    }

    void sem_grupo_ou_com_um_que_ja_nao_existe_nao_se_importa()
    {
        Programa p;
        Formulario f(p);
        const QStringList antes = p.Contactos();
        p.s.caixas.Espera(p.s.Texto(328), box::stop, f.form.windowTitle());
        f.form.ComboGrupos->setCurrentIndex(-1);
        f.form.cmdImportar->click();
        QVERIFY(p.s.caixas.Todas_Vistas());
        f.form.ComboGrupos->setCurrentIndex(0);
        p.s.Escrever(u"DELETE FROM TblGrupos"_s); // another desk
        p.s.caixas.Espera(p.s.Texto(328), box::stop, f.form.windowTitle());
        f.form.cmdImportar->click();
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.Contactos(), antes);
    }

    void anular_importacao_serve_ate_o_formulario_fechar()
    {
        Programa p;
        const QStringList antes = p.s.Linhas(u"SELECT * FROM TblLista"_s);
        Formulario f(p);
        f.form.chkCriar->click();
        f.Esperar();
        f.form.cmdImportar->click();
        QVERIFY(p.s.Linhas(u"SELECT * FROM TblLista"_s) != antes);
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblGrupos WHERE NomeGrupo = 'Xadrez'"_s).size(), 1);
        f.form.cmdAnular->click();
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblLista"_s), antes);
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblGrupos WHERE NomeGrupo = 'Xadrez'"_s).size(), 0);
        QCOMPARE(f.form.lblContagem->text(), p.s.Texto(332));
        QVERIFY(f.form.txtContacto->toPlainText().contains(u"Rui Costa"_s)); // in the place of the report
        f.form.cmdImportar->click(); // and once more
        QCOMPARE(p.Contactos().size(), 3);
    }

    void a_escolha_de_cada_um_vale()
    {
        Programa p;
        Formulario f(p);
        f.Ir_Para(0);
        f.Escolher(1); // skip
        QVERIFY(!f.Marcado(0));
        f.Ir_Para(1);
        f.Escolher(0); // as new
        f.Ir_Para(3);
        f.Escolher(1); // into Ana
        QCOMPARE(f.form.ComboEscolha->currentText(), u"Juntar a: Ana Silva"_s);
        f.form.cmdImportar->click();
        QCOMPARE(p.Contactos(), (QStringList{u"Ana Silva|"_s, u"Ana Silva|ana.pt"_s}));
    }

    void espaco_liga_e_desliga_a_linha()
    {
        Programa p;
        Formulario f(p);
        f.form.Lista->setFocus();
        f.form.Lista->setCurrentIndex(f.form.Lista->model()->index(1, 3));
        QTest::keyClick(f.form.Lista, Qt::Key_Space);
        QVERIFY(!f.Marcado(1));
        QTest::keyClick(f.form.Lista, Qt::Key_Space);
        QVERIFY(f.Marcado(1));
        QTest::keyClick(f.form.Lista, Qt::Key_Down);
        QTest::keyClick(f.form.Lista, Qt::Key_Space); // the one who is there already, all the same
        QVERIFY(f.Marcado(2));
        f.form.cmdImportar->click();
        QCOMPARE(p.Contactos(),
                 (QStringList{u"Ana Silva|ana.pt"_s, u"Rui Costa|"_s, u"Ana Silva|"_s, u"Outra Gente|"_s}));
    }

    void espaco_muda_o_visto_da_primeira_linha_uma_so_vez_em_qualquer_coluna()
    {
        Programa p;
        Formulario f(p);
        f.form.Lista->setFocus();
        for (int coluna = 0; coluna < ContactosAImportar::quantas_colunas; ++coluna) {
            f.form.Lista->setCurrentIndex(f.form.Lista->model()->index(0, coluna));
            for (const bool marcado : {false, true}) {
                QTest::keyClick(f.form.Lista, Qt::Key_Space);
                QCOMPARE(f.Marcado(0), marcado);
            }
        }
        QVERIFY(f.form.Lista->model()->setData(f.form.Lista->model()->index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY(!f.Marcado(0));
    }

    void sem_juntar_quem_se_liga_vem_como_novo_tambem_sozinho()
    {
        Programa p;
        Formulario f(p, Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
        f.form.chkJuntar->click();
        QVERIFY(!f.Marcado(0));
        QTest::keyClick(f.form.Lista, Qt::Key_Space);
        QVERIFY(f.Marcado(0));
        QCOMPARE(f.form.ComboEscolha->currentText(), p.s.Texto(307));
    }

    void um_clique_no_visto_liga_e_desliga_a_linha_e_mais_nada_se_escreve_nela()
    {
        Programa p;
        Formulario f(p);
        QTreeView &lista = *f.form.Lista;
        const QModelIndex linha = lista.model()->index(1, 0);
        QStyleOptionViewItem opcao;
        opcao.initFrom(&lista);
        opcao.rect = lista.visualRect(linha);
        opcao.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
        const QRect visto = lista.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &opcao, &lista);
        QTest::mouseClick(lista.viewport(), Qt::LeftButton, {}, visto.center());
        QVERIFY(!f.Marcado(1));
        f.Ir_Para(1);
        QCOMPARE(f.form.ComboEscolha->currentText(), p.s.Texto(309));
        QTest::mouseClick(lista.viewport(), Qt::LeftButton, {}, visto.center());
        QVERIFY(f.Marcado(1));
        QCOMPARE(f.form.ComboEscolha->currentText(), p.s.Texto(308) + u" Ana Silva"_s);
        QVERIFY(!lista.model()->setData(linha, u"Outra"_s, Qt::EditRole));
        QVERIFY(f.Marcado(1));
    }

    // What is not told of is drawn as it was.
    void o_que_muda_diz_se_de_um_lado_ao_outro()
    {
        Programa p;
        Formulario f(p);
        const QAbstractItemModel &linhas = *f.form.Lista->model();
        const QSignalSpy mudadas(&linhas, &QAbstractItemModel::dataChanged);
        const auto ultima = [&] {
            const auto de = mudadas.constLast().at(0).toModelIndex();
            const auto ate = mudadas.constLast().at(1).toModelIndex();
            return QRect(QPoint(de.column(), de.row()), QPoint(ate.column(), ate.row()));
        };
        constexpr int direita = ContactosAImportar::quantas_colunas - 1;
        f.form.Lista->setCurrentIndex(linhas.index(1, 3));
        QTest::keyClick(f.form.Lista, Qt::Key_Space);
        QCOMPARE(ultima(), QRect(QPoint(0, 1), QPoint(direita, 1)));
        f.form.chkJuntar->click();
        QCOMPARE(ultima(), QRect(QPoint(0, 0), QPoint(direita, linhas.rowCount() - 1)));
    }

    void sem_juntar_os_existentes_ficam_como_estao()
    {
        Programa p;
        Formulario f(p);
        f.form.chkJuntar->click();
        QVERIFY(!f.Marcado(1));
        f.form.cmdImportar->click();
        QCOMPARE(p.Contactos(), (QStringList{u"Ana Silva|"_s, u"Rui Costa|"_s, u"Outra Gente|"_s}));
    }

    void o_grupo_e_o_que_esta_a_vista_na_lista()
    {
        Programa p;
        p.s.geral.GrupoActual = u"3"_s;
        Formulario f(p, Cartao("FN:Rui"));
        QCOMPARE(f.form.ComboGrupos->ChosenItemData(), u"3"_s);
        f.form.cmdImportar->click();
        QCOMPARE(p.s.Linhas(u"SELECT Grupo FROM TblLista WHERE Nome = 'Rui'"_s), QStringList{u"3"_s});
    }

    void sem_ficheiro_a_codificacao_e_a_automatica()
    {
        Programa p;
        const frmImportarContactos form(p.s.geral, p.s.plataforma);
        QCOMPARE(form.ComboCodificacao->currentText(), p.s.Texto(310));
        QVERIFY(!form.ComboCodificacao->isEnabled());
    }

    void outra_codificacao_le_o_ficheiro_de_novo_e_guarda_o_decidido()
    {
        Programa p;
        Formulario f(p, Cartao("FN:\x8Ei\x9Eka\r\nTEL:213333333") + Cartao("FN:Rui"));
        QCOMPARE(f.Celula(0, 0), u"Ži\u017eka"_s); // windows-1252 has these two as well
        f.Ir_Para(1);
        f.Escolher(1);
        f.form.ComboCodificacao->setCurrentText(u"Cirílico (windows-1251)"_s);
        Q_EMIT f.form.ComboCodificacao->activated(f.form.ComboCodificacao->currentIndex());
        f.Esperar();
        QCOMPARE(f.Celula(0, 0), u"ЋiћkA"_s.replace(u'A', u'a'));
        QVERIFY(f.Marcado(0) && !f.Marcado(1));
    }

    // Rights

    void criar_grupos_e_juntar_pedem_os_seus_direitos()
    {
        Programa p;
        p.s.Novo_Utilizador(u"Eva"_s, u"x"_s, u"10000"_s); // may add, and nothing else
        p.s.Entrar(u"Eva"_s);
        Formulario f(p);
        QVERIFY(!f.form.chkJuntar->isChecked());
        QVERIFY(!f.Marcado(1));
        const QString recusa = p.s.Texto(102);
        p.s.caixas.Espera(recusa, box::stop, u"Morvex"_s);
        f.form.chkCriar->click();
        QVERIFY(!f.form.chkCriar->isChecked());
        p.s.caixas.Espera(recusa, box::stop, u"Morvex"_s);
        f.form.chkJuntar->click();
        QVERIFY(!f.form.chkJuntar->isChecked());
        f.Ir_Para(3);
        p.s.caixas.Espera(recusa, box::stop, u"Morvex"_s);
        f.Escolher(1);
        QCOMPARE(f.form.ComboEscolha->currentIndex(), 0);
        QVERIFY(p.s.caixas.Todas_Vistas());
        f.form.cmdImportar->click();
        QCOMPARE(p.Contactos(), (QStringList{u"Ana Silva|"_s, u"Rui Costa|"_s, u"Outra Gente|"_s}));
    }

    void um_so_contacto_que_vem_ou_se_completa_ja_precisa_do_seu_direito()
    {
        for (const bool e_novo : {true, false}) {
            Programa p;
            Formulario f(p, e_novo ? Cartao("FN:Rui") : Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
            const QStringList antes = p.Contactos();
            Sessao &sessao = p.s.geral.SessaoActual;
            (e_novo ? sessao.Adicionar : sessao.Editar) = false; // since the file was read
            p.s.caixas.Espera(p.s.Texto(102), box::stop, u"Morvex"_s);
            f.form.cmdImportar->click();
            QVERIFY(p.s.caixas.Todas_Vistas());
            QCOMPARE(p.Contactos(), antes);
            sessao.Adicionar = e_novo; // the other right is not asked for
            sessao.Editar = !e_novo;
            f.form.cmdImportar->click();
            QVERIFY(p.Contactos() != antes);
        }
    }

    void sem_o_direito_de_criar_grupos_nao_se_cria_o_que_antes_se_pediu()
    {
        Programa p;
        Formulario f(p);
        f.form.chkCriar->click();
        f.Esperar();
        p.s.geral.SessaoActual.Grupos = false;
        f.form.cmdImportar->click();
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblGrupos WHERE NomeGrupo = 'Xadrez'"_s).size(), 0);
    }

    // Files that are none

    void um_ficheiro_que_se_nao_le_diz_se()
    {
        Programa p;
        frmImportarContactos form(p.s.geral, p.s.plataforma, &p.janela);
        form.show();
        const QString caminho = p.s.Ficheiro(u"nao-ha.vcf"_s);
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + QDir::toNativeSeparators(caminho), box::stop, p.s.Texto(285));
        form.Abrir(caminho);
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + QDir::toNativeSeparators(p.s.Pasta()), box::stop, p.s.Texto(285));
        form.Abrir(p.s.Pasta());
        QVERIFY(!form.cmdImportar->isEnabled());
    }

    // A hole in a file takes no room on the disk.
    void um_gigabyte_numa_linha_recusa_se_com_o_limite()
    {
        Programa p;
        const QString caminho = p.Ficheiro(u"enorme.vcf"_s, "BEGIN:VCARD\r\nFN:");
        QVERIFY(QFile::resize(caminho, qint64{1} << 30));
        frmImportarContactos form(p.s.geral, p.s.plataforma, &p.janela);
        form.show();
        p.s.caixas.Espera(p.s.Texto(326) + u" 192"_s, box::stop, p.s.Texto(285));
        form.Abrir(caminho);
        QVERIFY(!form.cmdImportar->isEnabled());
    }

    void um_ficheiro_que_cresce_le_se_ate_onde_ia()
    {
        Programa p;
        const QString caminho = p.Ficheiro(u"cresce.vcf"_s, Cartao("FN:Rui"));
        frmImportarContactos form(p.s.geral, p.s.plataforma, &p.janela);
        form.show();
        form.Abrir(caminho);
        QFile ficheiro(caminho);
        QVERIFY(ficheiro.open(QIODevice::Append));
        ficheiro.write(Cartao("FN:Eva"));
        ficheiro.close();
        QTRY_VERIFY(!form.ProgressBar1->isVisible());
        QCOMPARE(form.Lista->model()->rowCount(), 1);
        form.cmdImportar->click();
        QVERIFY(p.Contactos().contains(u"Rui|"_s) && !p.Contactos().contains(u"Eva|"_s));
    }

    void um_ficheiro_sem_contactos_diz_o_na_lista()
    {
        Programa p;
        Formulario f(p, "nada\r\n");
        QCOMPARE(f.Linhas(), 0);
        QVERIFY(f.form.focusWidget() != f.form.Lista);
        QVERIFY(!f.form.cmdImportar->isEnabled());
        QCOMPARE(f.form.Lista->accessibleDescription(), p.s.Texto(331));
    }

    void uma_leitura_que_falha_deixa_o_formulario_sem_ficheiro_e_pode_repetir_se()
    {
        Programa p;
        ServidorFalso servidor(p.s.Base());
        servidor.Servir(p.s.geral);
        Formulario f(p);
        f.form.hide();
        f.form.setModal(true); // as the menu opens it
        f.form.show();
        const QString caminho = p.Ficheiro(u"outra.vcf"_s, Cartao("FN:Rui"));
        f.form.Abrir(caminho);
        QCOMPARE(f.form.txtCaminho->text(), QDir::toNativeSeparators(caminho));
        servidor.Perder();
        p.s.caixas.Espera_Erro(Failure::StoreError);
        QTRY_VERIFY(p.s.caixas.Todas_Vistas());
        servidor.Voltar();
        QVERIFY(!f.form.ProgressBar1->isVisible() && f.form.txtCaminho->text().isEmpty());
        QVERIFY(f.form.lblContagem->text().isEmpty());
        QCOMPARE(f.Linhas(), 0);
        QVERIFY(!f.form.cmdImportar->isEnabled() && f.form.cmdProcurar->isEnabled());
        QCOMPARE(f.form.Lista->accessibleDescription(), p.s.Texto(330));
        f.form.Abrir(caminho);
        f.Esperar();
        QCOMPARE(f.Linhas(), 1);
        QVERIFY(f.form.cmdImportar->isEnabled());
    }

    void o_que_se_decidiu_de_um_ficheiro_que_falhou_nao_vale_no_seguinte()
    {
        Programa p;
        ServidorFalso servidor(p.s.Base());
        servidor.Servir(p.s.geral);
        Formulario f(p, Cartao("FN:Rui") + Cartao("FN:Eva"));
        f.form.hide();
        f.form.setModal(true); // as the menu opens it
        f.form.show();
        f.Ir_Para(0);
        f.Escolher(1); // skip
        f.form.ComboCodificacao->setCurrentIndex(1);
        Q_EMIT f.form.ComboCodificacao->activated(1);
        servidor.Perder();
        p.s.caixas.Espera_Erro(Failure::StoreError);
        QTRY_VERIFY(p.s.caixas.Todas_Vistas());
        servidor.Voltar();
        f.form.Abrir(p.Ficheiro(u"outra.vcf"_s, Cartao("FN:Ivo") + Cartao("FN:Luz")));
        f.Esperar();
        QCOMPARE(f.Linhas(), 2);
        QVERIFY(f.Marcado(0));
    }

    void o_que_ficou_em_duvida_nao_toma_o_lugar_de_outro_ficheiro()
    {
        Programa p;
        ServidorFalso servidor(p.s.Base());
        servidor.Servir(p.s.geral);
        Formulario f(p);
        servidor.Perder_A_Proxima_Resposta();
        QTest::mouseClick(f.form.cmdImportar, Qt::LeftButton);
        servidor.Voltar();
        f.form.Abrir(p.Ficheiro(u"outra.vcf"_s, Cartao("FN:Ivo")));
        f.Esperar();
        QTest::mouseClick(f.form.cmdImportar, Qt::LeftButton);
        QVERIFY(p.Contactos().contains(u"Ivo|"_s));
    }

    // Broken off

    void fechar_a_meio_da_leitura_acaba_com_ela()
    {
        Programa p;
        QByteArray muitos;
        for (int i = 0; i < 3000; ++i)
            muitos += Cartao("FN:Pessoa " + QByteArray::number(i));
        frmImportarContactos form(p.s.geral, p.s.plataforma, &p.janela);
        form.show();
        form.Abrir(p.Ficheiro(u"muitos.vcf"_s, muitos));
        QCoreApplication::processEvents();
        QVERIFY(form.ProgressBar1->isVisible());
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
        const int lido = form.ProgressBar1->value();
        QVERIFY(lido < form.ProgressBar1->maximum());
        QTest::qWait(50);
        QCOMPARE(form.ProgressBar1->value(), lido);
        QCOMPARE(form.lblContagem->text(), p.s.Texto(311)); // it was not read to its end
        QCOMPARE(p.Contactos().size(), 1);
    }

    void cancelar_a_meio_da_escrita_deixa_a_agenda_como_estava()
    {
        Programa p;
        QByteArray muitos;
        for (int i = 0; i < 4000; ++i)
            muitos += Cartao("FN:Pessoa " + QByteArray::number(i) + "\r\nNOTE:" + QByteArray(300, 'x'));
        Formulario f(p, muitos);
        QTimer::singleShot(0, &f.form, [&] { f.form.cmdCancelar->click(); });
        f.form.cmdImportar->click();
        QVERIFY(f.form.isVisible());
        QCOMPARE(f.form.lblContagem->text(), p.s.Texto(333));
        QCOMPARE(p.Contactos().size(), 1);
        QVERIFY(f.form.cmdImportar->isEnabled());
    }

    void o_que_chegou_sem_resposta_da_o_relatorio_e_nao_vem_duas_vezes()
    {
        Programa p;
        ServidorFalso servidor(p.s.Base());
        servidor.Servir(p.s.geral);
        Formulario f(p);
        QVERIFY(f.form.cmdImportar->isEnabled());
        servidor.Perder_A_Proxima_Resposta();
        QTest::mouseClick(f.form.cmdImportar, Qt::LeftButton);
        QVERIFY(f.form.cmdImportar->isVisible() && f.form.cmdImportar->isEnabled());
        servidor.Voltar();
        f.Ir_Para(0);
        f.Escolher(f.form.ComboEscolha->count() - 1); // too late to be skipped
        QSignalSpy mudados(&f.form, &frmImportarContactos::ContactosMudados);
        QTest::mouseClick(f.form.cmdImportar, Qt::LeftButton);
        QCOMPARE(mudados.count(), 1);
        QVERIFY(f.form.cmdAnular->isVisible());
        QCOMPARE(p.Contactos(), (QStringList{u"Ana Silva|ana.pt"_s, u"Rui Costa|"_s, u"Outra Gente|"_s}));
    }

    void a_barra_da_escrita_parte_do_zero()
    {
        Programa p;
        Formulario f(p, Cartao("FN:Rui"));
        f.form.ProgressBar1->setValue(40); // as far as a first try came
        const QSignalSpy andamento(f.form.ProgressBar1, &QProgressBar::valueChanged);
        f.form.cmdImportar->click();
        QVERIFY(!andamento.isEmpty());
        QCOMPARE(andamento.first().first().toInt(), 0);
        QVERIFY(p.Contactos().contains(u"Rui|"_s));
    }

    void um_disco_cheio_deixa_o_formulario_como_estava()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        Programa p;
        QByteArray muitos;
        for (int i = 0; i < 500; ++i)
            muitos += Cartao("FN:Pessoa " + QByteArray::number(i) + "\r\nNOTE:" + QByteArray(3000, 'x'));
        Formulario f(p, muitos);
        {
            const DiscoCheio cheio(static_cast<rlim_t>(QFileInfo(p.s.Base()).size()));
            p.s.caixas.Espera_Erro(Failure::StoreError);
            QTest::mouseClick(f.form.cmdImportar, Qt::LeftButton);
        }
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.Contactos().size(), 1);
        QVERIFY(f.form.cmdImportar->isVisible() && f.form.cmdImportar->isEnabled());
        f.form.cmdImportar->click();
        QCOMPARE(p.Contactos().size(), 501);
    }

    void uma_agenda_cheia_diz_quantos_ainda_cabem()
    {
        Programa p;
        p.s.Escrever(u"UPDATE sqlite_sequence SET seq = 32766 WHERE name = 'TblLista'"_s);
        Formulario f(p);
        p.s.caixas.Espera(p.s.Texto(327) + u" 1"_s, box::stop, p.s.Texto(285));
        const QString lidos = f.form.lblContagem->text();
        f.form.cmdImportar->click();
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(f.form.lblContagem->text(), lidos);
        QCOMPARE(p.Contactos(), QStringList{u"Ana Silva|"_s});
        QVERIFY(f.form.cmdImportar->isEnabled());
    }

    void os_temporizadores_param_enquanto_o_formulario_esta_aberto()
    {
        Programa p;
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
        {
            Formulario f(p);
            QVERIFY(!p.s.geral.temporizadores.timerTarefas.Enabled());
            f.form.cmdCancelar->click();
            QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
        }
    }

    // Ways in

    void o_menu_abre_o_formulario_e_procurar_pede_o_ficheiro()
    {
        Programa p;
        const QString caminho = p.Ficheiro(u"gente.vcf"_s, de_tudo);
        p.s.dialogos.textos << std::nullopt << caminho;
        Quando_Abrir<frmImportarContactos>([&](frmImportarContactos &form) {
            QVERIFY(!p.janela.isEnabled());
            form.cmdProcurar->click();
            QVERIFY(form.txtCaminho->text().isEmpty()); // a cancel is nothing
            form.cmdProcurar->click();
            QCOMPARE(form.txtCaminho->text(), QDir::toNativeSeparators(caminho));
            QTRY_VERIFY(!form.ProgressBar1->isVisible());
            form.cmdImportar->click();
            form.cmdCancelar->click();
        });
        p.janela.ImportarContactos->trigger();
        QVERIFY(p.janela.isEnabled());
        QCOMPARE(p.Contactos().size(), 3);
        QCOMPARE(p.janela.ListaNomes->ListCount(), 3);
        QVERIFY(p.s.dialogos.perguntas.first().contains(u"*.vcf"_s));
    }

    void uma_tabela_passa_primeiro_pelos_campos()
    {
        Programa p;
        const QString caminho = p.Ficheiro(u"gente.csv"_s, "Name,E-mail\r\nRui,rui@x.pt\r\n");
        frmImportarContactos form(p.s.geral, p.s.plataforma, &p.janela);
        form.show();
        Quando_Abrir<frmCampos>([](frmCampos &campos) { campos.reject(); });
        form.Abrir(caminho);
        QVERIFY(form.txtCaminho->text().isEmpty());
        Quando_Abrir<frmCampos>([](frmCampos &campos) { campos.cmdOk->click(); });
        form.Abrir(caminho);
        QTRY_COMPARE(form.Lista->model()->rowCount(), 1);
        QVERIFY(!form.ComboCodificacao->isEnabled()); // it was settled there
        form.cmdImportar->click();
        QVERIFY(p.Contactos().contains(u"Rui|"_s));
    }

    void um_cartao_largado_na_janela_abre_o_formulario_data()
    {
        QTest::addColumn<QString>("tipo");
        for (const char *tipo : {"text/vcard", "text/x-vcard", "text/directory", "text/plain"})
            QTest::newRow(tipo) << QString::fromLatin1(tipo);
    }
    void um_cartao_largado_na_janela_abre_o_formulario()
    {
        QFETCH(QString, tipo);
        Programa p;
        QMimeData dados;
        dados.setData(tipo, Cartao("FN:Rui"));
        bool veio = false;
        Quando_Abrir<frmImportarContactos>([&](frmImportarContactos &form) {
            veio = true;
            QCOMPARE(form.txtCaminho->text(), p.s.Texto(335));
            QTRY_COMPARE(form.Lista->model()->rowCount(), 1);
            form.cmdCancelar->click();
        });
        QVERIFY(Largar(p.janela, dados));
        QVERIFY(!veio); // the other program must not wait for it
        QTRY_VERIFY(veio);
        QCOMPARE(p.Contactos().size(), 1);
    }

    void ficheiros_largados_abrem_um_depois_do_outro()
    {
        Programa p;
        QMimeData dados;
        dados.setUrls({QUrl::fromLocalFile(p.Ficheiro(u"um.vcf"_s, Cartao("FN:Um"))),
                       QUrl(u"http://exemplo.pt/dois.vcf"_s),
                       QUrl::fromLocalFile(p.Ficheiro(u"tres.txt"_s, "x")),
                       QUrl::fromLocalFile(p.Ficheiro(u"quatro.VCF"_s, Cartao("FN:Quatro")))});
        QStringList vistos;
        const std::function<void(frmImportarContactos &)> ver = [&](frmImportarContactos &form) {
            vistos << QFileInfo(form.txtCaminho->text()).fileName();
            if (vistos.size() < 2) Quando_Abrir<frmImportarContactos>(ver);
            form.cmdCancelar->click();
        };
        Quando_Abrir<frmImportarContactos>(ver);
        QVERIFY(Largar(p.janela, dados));
        QTRY_COMPARE_WITH_TIMEOUT(vistos, (QStringList{u"um.vcf"_s, u"quatro.VCF"_s}), 5000);
    }

    void larga_se_um_ficheiro_deste_computador_que_pode_ter_contactos_data()
    {
        QTest::addColumn<QUrl>("endereco");
        QTest::addColumn<bool>("serve");
        QTest::newRow("cartões") << QUrl::fromLocalFile(u"/tmp/a.vcf"_s) << true;
        QTest::newRow("tabela") << QUrl::fromLocalFile(u"/tmp/a.CSV"_s) << true;
        QTest::newRow("texto") << QUrl::fromLocalFile(u"/tmp/a.txt"_s) << false;
        QTest::newRow("de outro computador") << QUrl(u"http://exemplo.pt/a.vcf"_s) << false;
    }
    void larga_se_um_ficheiro_deste_computador_que_pode_ter_contactos()
    {
        QFETCH(QUrl, endereco);
        QFETCH(bool, serve);
        Programa p;
        QVERIFY(p.janela.acceptDrops());
        QMimeData dados;
        dados.setUrls({endereco});
        const QSignalSpy largados(p.janela.findChild<ContactosLargados *>(), &ContactosLargados::Ficheiros);
        QDragEnterEvent entrada({10, 10}, Qt::CopyAction | Qt::MoveAction, &dados, Qt::LeftButton, {});
        entrada.setDropAction(Qt::MoveAction); // as the other program would have it
        entrada.ignore();
        QCoreApplication::sendEvent(&p.janela, &entrada);
        QCOMPARE(entrada.isAccepted(), serve);
        QCOMPARE(entrada.dropAction(), serve ? Qt::CopyAction : Qt::MoveAction);
        QCOMPARE(largados.count(), 0); // it is only shown that it could be
        QDragEnterEvent so_mover({10, 10}, Qt::MoveAction, &dados, Qt::LeftButton, {});
        so_mover.ignore();
        QCoreApplication::sendEvent(&p.janela, &so_mover);
        QVERIFY(!so_mover.isAccepted());
        QDragLeaveEvent fora; // or the toolkit would hand the next drop to this window, which is gone by then
        QCoreApplication::sendEvent(&p.janela, &fora);
    }

    void o_que_nao_sao_contactos_nao_se_larga()
    {
        Programa p;
        QMimeData dados;
        dados.setText(u"uma frase"_s);
        QVERIFY(!Largar(p.janela, dados));
    }

    void um_cartao_cola_se_e_num_campo_cola_se_o_texto()
    {
        Programa p;
        p.janela.show();
        auto *dados = new QMimeData;
        dados->setText(QString::fromUtf8(Cartao("FN:Colado")));
        QGuiApplication::clipboard()->setMimeData(dados);
        p.janela.txtProcura->setFocus();
        QTest::keyClick(p.janela.txtProcura, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(p.janela.txtProcura->text().startsWith(u"BEGIN"_s));
        bool veio = false;
        Quando_Abrir<frmImportarContactos>([&](frmImportarContactos &form) {
            veio = true;
            QTRY_COMPARE(form.Lista->model()->rowCount(), 1);
            form.cmdCancelar->click();
        });
        Q_EMIT p.janela.findChild<QShortcut *>(u"ColarContactos"_s)->activated();
        QTRY_VERIFY(veio);
    }

    void sem_o_direito_de_adicionar_ha_a_recusa_por_todos_os_caminhos()
    {
        Programa p;
        p.s.Novo_Utilizador(u"Eva"_s, u"x"_s, u"01111"_s);
        p.s.Entrar(u"Eva"_s);
        auto &entrada = *p.janela.findChild<EntradaDeContactos *>();
        const QString caminho = p.Ficheiro(u"gente.vcf"_s, de_tudo);
        for (const std::function<void()> &ir : std::initializer_list<std::function<void()>>{
                 [&] { p.janela.ImportarContactos->trigger(); }, [&] { entrada.ImportarContactos(caminho); },
                 [&] { entrada.ImportarCartoes(de_tudo); }}) {
            p.s.caixas.Espera(p.s.Texto(102), box::stop, u"Morvex"_s);
            ir();
            QVERIFY(p.s.caixas.Todas_Vistas());
        }
        QCOMPARE(p.Contactos().size(), 1);
    }

    void por_tabulador_chega_se_a_tudo_pela_ordem_do_ecra()
    {
        Programa p;
        Formulario f(p);
        f.form.activateWindow();
        f.form.txtCaminho->setFocus();
        QStringList vistos;
        for (int i = 0; i < 11; ++i) {
            vistos << f.form.focusWidget()->objectName();
            QTest::keyClick(f.form.focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(vistos,
                 (QStringList{u"txtCaminho"_s, u"cmdProcurar"_s, u"Lista"_s, u"txtContacto"_s,
                              u"ComboEscolha"_s, u"ComboGrupos"_s, u"chkCriar"_s, u"ComboCodificacao"_s,
                              u"chkJuntar"_s, u"cmdImportar"_s, u"cmdCancelar"_s}));
    }
};

MORVEX_TESTE(TestFrmImportarContactos)
#include "test_frmImportarContactos.moc"
