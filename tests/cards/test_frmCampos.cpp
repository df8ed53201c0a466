// The form in which a person says what the columns of a foreign table hold.
#include "cards/frmCampos.h"

#include "cards/CamposDaTabela.h"
#include "controls/Contrast.h"
#include "cards/RotulosDoCartao.h"
#include "testlib/Sistema.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
const QByteArray tabela =
    "Quem;Telemóvel;Signo\r\nAna Silva;912345678;Peixes\r\nRui Costa;961234567;Touro\r\n";

struct Mesa {
    std::unique_ptr<frmCampos> Abrir(const QByteArray &ficheiro = tabela)
    {
        auto form = std::make_unique<frmCampos>(s.geral, s.plataforma, ficheiro);
        form->show();
        return form;
    }
    Sistema s;
};

QString Palavra(const frmCampos &form, int coluna)
{
    return form.tblCampos->model()->index(0, coluna).data().toString();
}

// The lines of the card, "label: value".
QStringList Cartao(const frmCampos &form)
{
    QStringList linhas;
    for (int i = 0; i < form.lvContacto->topLevelItemCount(); ++i)
        linhas << form.lvContacto->topLevelItem(i)->text(0) + u": "_s +
                      form.lvContacto->topLevelItem(i)->text(1);
    return linhas;
}

QComboBox *Caixa_Da_Coluna(frmCampos &form) { return form.tblCampos->viewport()->findChild<QComboBox *>(); }

int Qual(CsvField campo) { return campos_da_tabela::Escolha_De({campo, CsvPlace::None, 0, false}); }
} // namespace

class TestFrmCampos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        Mesa m;
        m.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form's file has the Portuguese ones
        const auto form = m.Abrir();
        QCOMPARE(form->windowTitle(), m.s.Texto(340));
        const std::pair<QString, int> legendas[]{{form->Label1->text(), 341},
                                                 {form->Label2->text(), 342},
                                                 {form->Label3->text(), 343},
                                                 {form->chkNomes->text(), 344},
                                                 {form->Label4->text(), 373},
                                                 {form->Label5->text(), 372},
                                                 {form->cmdCancelar->text(), 43},
                                                 {form->tblCampos->accessibleName(), 353},
                                                 {form->tblLinhas->accessibleName(), 373},
                                                 {form->lvContacto->accessibleName(), 372}};
        for (const auto &[legenda, texto] : legendas)
            QCOMPARE(legenda, m.s.Texto(texto));
    }

    void cada_campo_que_se_escolhe_tem_a_sua_palavra()
    {
        Sistema s;
        const auto rotulo = [](Rotulo qual) { return rotulos_do_cartao::Em(qual, u"PortuguesPT"_s); };
        QStringList palavras{s.Texto(352), rotulo(Rotulo::NomeCompleto)};
        for (const int texto : {358, 359, 360, 361, 362})
            palavras << s.Texto(texto);
        for (const Rotulo qual : {Rotulo::Alcunha, Rotulo::Telefone, Rotulo::Telemovel, Rotulo::Fax, Rotulo::Email,
                                  Rotulo::Website, Rotulo::Aniversario})
            palavras << rotulo(qual);
        palavras << s.Texto(368) << s.Texto(369) << s.Texto(370) << s.Texto(37) << rotulo(Rotulo::Categorias);
        QStringList morada{rotulo(Rotulo::Morada)};
        for (const int texto : {363, 364, 365, 366, 367})
            morada << s.Texto(texto);
        palavras << morada;
        for (const QString &lugar : {rotulo(Rotulo::Casa), rotulo(Rotulo::Trabalho), s.Texto(389)})
            for (const QString &parte : morada)
                palavras << u"%1 (%2)"_s.arg(parte, lugar);
        QStringList ditas;
        for (const CsvColumn &campo : campos_da_tabela::Todos())
            ditas << campos_da_tabela::Palavra(campo, s.geral);
        QCOMPARE(ditas, palavras);
        QCOMPARE(campos_da_tabela::Palavra({CsvField::Phone, CsvPlace::None, 2, true}, s.geral),
                 u"%1 2 (%2)"_s.arg(rotulo(Rotulo::Telefone), s.Texto(371)));
        QCOMPARE(campos_da_tabela::Palavra({CsvField::Phone, CsvPlace::None, 1, false}, s.geral),
                 rotulo(Rotulo::Telefone) + u" 1"_s);
    }

    // Only an address has a place; a label and a numbered column are no choice.
    void um_campo_que_se_achou_e_a_escolha_que_diz_o_mesmo()
    {
        Sistema s;
        const CsvColumn fax_do_trabalho{CsvField::Fax, CsvPlace::Work, 0, false};
        QCOMPARE(campos_da_tabela::Escolha_De(fax_do_trabalho), Qual(CsvField::Fax));
        QCOMPARE(campos_da_tabela::Palavra(fax_do_trabalho, s.geral),
                 rotulos_do_cartao::Em(Rotulo::Fax, u"PortuguesPT"_s));
        for (const CsvColumn &nenhuma : {CsvColumn{CsvField::Phone, CsvPlace::None, 1, false},
                                         CsvColumn{CsvField::Phone, CsvPlace::None, 0, true}})
            QCOMPARE(campos_da_tabela::Escolha_De(nenhuma), -1);
        for (const CsvField campo : {CsvField::Unknown, CsvField::Detail, CsvField::Photo}) {
            QCOMPARE(Qual(campo), 0);
            QCOMPARE(campos_da_tabela::Palavra({campo, CsvPlace::None, 2, true}, s.geral), s.Texto(352));
        }
        QCOMPARE(campos_da_tabela::Todos().at(1), (CsvColumn{CsvField::FullName, CsvPlace::None, 0, false}));
        QCOMPARE(campos_da_tabela::Todos().back(), (CsvColumn{CsvField::Country, CsvPlace::Other, 0, false}));
    }

    void comeca_nas_linhas_pela_primeira_celula()
    {
        Mesa m;
        const auto form = m.Abrir();
        QCOMPARE(form->focusWidget(), form->tblLinhas);
        for (const QTableView *mesa : {form->tblCampos, form->tblLinhas})
            QCOMPARE(mesa->currentIndex(), mesa->model()->index(0, 0));
    }

    void o_separador_que_se_descobre_diz_se_e_cada_um_que_se_escolhe_vale()
    {
        Mesa m;
        const std::pair<QByteArray, QString> descobertos[]{{",", m.s.Texto(346)},
                                                           {";", m.s.Texto(347)},
                                                           {"\t", m.s.Texto(348)},
                                                           {"|", m.s.Texto(349)}};
        for (const auto &[separador, palavra] : descobertos)
            QCOMPARE(m.Abrir("Nome" + separador + "Fax\nAna" + separador + "1\n")->ComboSeparador->currentText(),
                     m.s.Texto(345) + u": "_s + palavra);
        QCOMPARE(m.Abrir("sep=#\nNome#Fax\nAna#1\n")->ComboSeparador->currentText(), m.s.Texto(345) + u": #"_s);
        const auto form = m.Abrir("a,b;c\td|e\n1,2;3\t4|5\n");
        const QStringList primeiras{u"a"_s, u"a"_s, u"a,b"_s, u"a,b;c"_s, u"a,b;c d"_s};
        for (const int qual : {1, 2, 3, 4, 0}) {
            form->ComboSeparador->setListIndex(qual);
            QCOMPARE(form->ComboSeparador->ListIndex(), qual);
            QCOMPARE(form->tblCampos->model()->headerData(0, Qt::Horizontal).toString(), primeiras[qual]);
        }
    }

    void a_ordem_das_datas_escolhe_se_e_volta_a_ser_a_que_se_descobre()
    {
        Mesa m;
        const auto form = m.Abrir("Nome;Aniversário\nAna;3/4/1975\nRui;3/28/1980\n");
        const QString mes_primeiro = u"Aniversário: 4 Março 1975"_s;
        const QStringList datas{mes_primeiro, u"Aniversário: 3 Abril 1975"_s, mes_primeiro};
        for (const int qual : {0, 1, 2, 1, 0}) {
            form->ComboDatas->setListIndex(qual);
            QVERIFY2(Cartao(*form).contains(datas[qual]), qPrintable(QString::number(qual)));
        }
    }

    void o_canto_tem_a_largura_da_barra_que_ha_por_baixo()
    {
        Mesa m;
        QCOMPARE(m.Abrir()->canto->width(), 0);
        const auto form = m.Abrir("Nome;Fax\n" + QByteArray("Ana;1\n").repeated(20));
        form->tblLinhas->setFixedHeight(100);
        QTRY_COMPARE(form->canto->width(), form->tblLinhas->verticalScrollBar()->sizeHint().width());
    }

    // The large table of another program takes a moment.
    void o_cursor_diz_que_se_espera_enquanto_se_le_de_novo()
    {
        Mesa m;
        const auto form = m.Abrir();
        bool esperou = false;
        connect(form->tblLinhas->model(), &QAbstractItemModel::modelReset, form.get(), [&] {
            const QCursor *cursor = QGuiApplication::overrideCursor();
            esperou = cursor != nullptr && cursor->shape() == Qt::WaitCursor;
        });
        form->chkNomes->click();
        QVERIFY(esperou);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void as_mesas_nada_dizem_do_que_nao_se_lhes_pergunta()
    {
        Mesa m;
        const auto form = m.Abrir();
        for (const QTableView *mesa : {form->tblCampos, form->tblLinhas}) {
            const QAbstractItemModel &modelo = *mesa->model();
            const QModelIndex primeira = modelo.index(0, 0);
            QCOMPARE(modelo.rowCount(primeira), 0);
            QCOMPARE(modelo.columnCount(primeira), 0);
            QVERIFY(!modelo.data({}).isValid());
            for (int coluna = 0; coluna < modelo.columnCount(); ++coluna) {
                QVERIFY(!modelo.index(0, coluna).data(Qt::DecorationRole).isValid());
                QCOMPARE(modelo.index(0, coluna).data(Qt::ToolTipRole), modelo.index(0, coluna).data());
                QCOMPARE(modelo.index(0, coluna).data(Qt::ForegroundRole).isValid(), coluna != 1); // which has a field
                QVERIFY(!modelo.headerData(coluna, Qt::Horizontal, Qt::DecorationRole).isValid());
            }
            QVERIFY(!modelo.headerData(0, Qt::Vertical).isValid());
        }
        QCOMPARE(form->tblCampos->model()->headerData(2, Qt::Horizontal, Qt::ToolTipRole).toString(), u"Signo"_s);
        QVERIFY(!form->tblCampos->model()->headerData(2, Qt::Vertical, Qt::ToolTipRole).isValid());
    }

    void cada_campo_desenha_se_como_uma_escolha_com_a_sua_palavra()
    {
        Mesa m;
        const auto form = m.Abrir();
        QTableView &mesa = *form->tblCampos;
        mesa.setCurrentIndex({}); // whose cell has a frame of its own
        const auto vista = [&](int coluna) {
            return mesa.viewport()->grab(mesa.visualRect(mesa.model()->index(0, coluna))).toImage();
        };
        const auto mais_escuro = [](const QImage &imagem) { // where the word stands
            int menor = 255;
            for (int x = 6; x < imagem.width() - 30; ++x)
                for (int y = 6; y < imagem.height() - 6; ++y)
                    menor = std::min(menor, qGray(imagem.pixel(x, y)));
            return menor;
        };
        QVERIFY(mais_escuro(vista(1)) < mais_escuro(vista(2))); // which goes to Obs
        QSet<QRgb> cores; // of the arrow
        const QImage antes = vista(1);
        for (int x = antes.width() - 20; x < antes.width() - 6; ++x)
            for (int y = 6; y < antes.height() - 6; ++y)
                cores.insert(antes.pixel(x, y));
        QVERIFY(cores.size() > 1);
        mesa.model()->setData(mesa.model()->index(0, 1), Qual(CsvField::Fax));
        QVERIFY(vista(1) != antes);
    }

    void o_que_vai_para_obs_tem_uma_cor_entre_a_das_letras_e_a_do_fundo()
    {
        const QPalette antes = QGuiApplication::palette();
        const auto repor = qScopeGuard([&] { QGuiApplication::setPalette(antes); });
        QPalette clara;
        clara.setColor(QPalette::Base, Qt::white);
        clara.setColor(QPalette::Button, Qt::white);
        clara.setColor(QPalette::Text, QColor(60, 0, 20));
        QGuiApplication::setPalette(clara);
        Mesa m;
        const auto form = m.Abrir();
        QCOMPARE(form->tblLinhas->model()->index(0, 2).data(Qt::ForegroundRole).value<QBrush>().color(),
                 QColor(138, 102, 114)); // three parts of the one, two of the other
    }

    void os_separadores_e_as_datas_escolhem_se_por_palavras()
    {
        Mesa m;
        const auto form = m.Abrir();
        const auto textos = [](const QComboBox &caixa) {
            QStringList todos;
            for (int i = 0; i < caixa.count(); ++i)
                todos << caixa.itemText(i);
            return todos;
        };
        QCOMPARE(textos(*form->ComboSeparador), (QStringList{m.s.Texto(345) + u": "_s + m.s.Texto(347), m.s.Texto(346),
                                                             m.s.Texto(347), m.s.Texto(348), m.s.Texto(349)}));
        QCOMPARE(textos(*form->ComboDatas), (QStringList{m.s.Texto(345), m.s.Texto(350), m.s.Texto(351)}));
        form->ComboSeparador->setListIndex(4); // none is told where a person has chosen
        QCOMPARE(form->ComboSeparador->itemText(0), m.s.Texto(345));
        QCOMPARE(form->ComboSeparador->currentText(), m.s.Texto(349));
    }

    void as_linhas_e_as_colunas_comecam_com_as_suas_medidas()
    {
        Mesa m;
        const auto form = m.Abrir();
        QCOMPARE(form->tblCampos->rowHeight(0), 24);
        QCOMPARE(form->tblLinhas->rowHeight(0), 18);
        for (const QTableView *mesa : {form->tblCampos, form->tblLinhas}) {
            QCOMPARE(mesa->verticalHeader()->minimumSectionSize(), 1); // large letters are not held up by the style
            QCOMPARE(mesa->columnWidth(0), 140);
        }
        QCOMPARE(form->lvContacto->columnWidth(0), 90);
        QCOMPARE(form->tblCampos->viewport()->height(), 24);
        QVERIFY(!form->tblCampos->horizontalHeader()->highlightSections());
    }

    void mostra_as_primeiras_linhas_com_o_campo_de_cada_coluna()
    {
        Mesa m;
        const auto form = m.Abrir();
        QCOMPARE(form->tblLinhas->model()->rowCount(), 2);
        QCOMPARE(form->tblLinhas->model()->index(1, 0).data().toString(), u"Rui Costa"_s);
        QCOMPARE(form->tblCampos->model()->headerData(0, Qt::Horizontal).toString(), u"Quem"_s);
        QCOMPARE(Palavra(*form, 1), u"Telemóvel"_s);
        QCOMPARE(Palavra(*form, 2), m.s.Texto(352));
        const QColor letras = form->palette().color(QPalette::Text);
        const QColor fundo = form->palette().color(QPalette::Base);
        for (const QTableView *tabela_vista : {form->tblCampos, form->tblLinhas}) {
            const auto cor =
                tabela_vista->model()->index(0, 2).data(Qt::ForegroundRole).value<QBrush>().color();
            QVERIFY(contrast(cor, fundo) < contrast(letras, fundo));
            QVERIFY(contrast(cor, fundo) >= readableContrast);
        }
        QVERIFY(!form->tblCampos->model()->index(0, 1).data(Qt::ForegroundRole).isValid());
    }

    // Only the row of the fields shows the names; to a reader each cell below has its own as well.
    void um_leitor_de_ecra_ouve_o_nome_da_coluna_tambem_sobre_as_linhas()
    {
        Mesa m;
        const auto form = m.Abrir("Quem;" + QByteArray("N").repeated(300) + "\r\nAna;1\r\n");
        for (QTableView *mesa : {form->tblCampos, form->tblLinhas}) {
            QAccessibleTableInterface &lida = *QAccessible::queryAccessibleInterface(mesa)->tableInterface();
            QCOMPARE(lida.columnDescription(0), u"Quem"_s);
            QCOMPARE(lida.columnDescription(1), QString(200, u'N') + u'…');
            QCOMPARE(lida.rowDescription(0), QString());
        }
        for (const int papel : {Qt::DecorationRole, Qt::ForegroundRole})
            QVERIFY(!form->tblLinhas->model()->headerData(0, Qt::Horizontal, papel).isValid());
    }

    void mais_de_vinte_linhas_mostram_vinte_e_todas_sao_lidas()
    {
        Mesa m;
        const auto form = m.Abrir("Nome;Fax\n" + QByteArray("Ana;212345678\n").repeated(1000));
        QCOMPARE(form->tblLinhas->model()->rowCount(), 20);
        form->cmdOk->click();
        QCOMPARE(form->Escolhida()->tabela.rows.size(), std::size_t{1001});
    }

    void o_cartao_e_o_da_linha_escolhida_e_segue_cada_mudanca()
    {
        Mesa m;
        const auto form = m.Abrir();
        QVERIFY(Cartao(*form).contains(u"Telemóvel: 912345678"_s));
        form->tblLinhas->setCurrentIndex(form->tblLinhas->model()->index(1, 0));
        QVERIFY(Cartao(*form).contains(u"Telemóvel: 961234567"_s));
        QVERIFY(!Cartao(*form).contains(u"Nome: Rui Costa"_s));
        form->tblCampos->model()->setData(form->tblCampos->model()->index(0, 0), Qual(CsvField::FullName));
        QVERIFY(Cartao(*form).contains(u"Nome: Rui Costa"_s));
    }

    void uma_tabela_de_uma_coluna_mostra_o_campo_dela()
    {
        Mesa m;
        const auto form = m.Abrir("Nome\r\nAna Silva\r\nRui Costa\r\n");
        QCOMPARE(form->tblCampos->model()->columnCount(), 1);
        QCOMPARE(form->tblCampos->model()->rowCount(), 1);
        QCOMPARE(form->tblCampos->model()->rowCount(form->tblCampos->model()->index(0, 0)), 0);
    }

    void um_campo_que_nao_ha_nao_se_toma()
    {
        Mesa m;
        const auto form = m.Abrir();
        QAbstractItemModel &campos = *form->tblCampos->model();
        const QModelIndex primeiro = campos.index(0, 0);
        const QVariant antes = primeiro.data(Qt::EditRole);
        const int quantos = static_cast<int>(campos_da_tabela::Todos().size());
        for (const int fora : {-1, quantos})
            QVERIFY(!campos.setData(primeiro, fora));
        QVERIFY(!campos.setData(primeiro, Qual(CsvField::FullName), Qt::DisplayRole));
        QCOMPARE(primeiro.data(Qt::EditRole), antes);
        for (const int dentro : {0, quantos - 1, Qual(CsvField::FullName)}) {
            QVERIFY(campos.setData(primeiro, dentro));
            QCOMPARE(primeiro.data(Qt::EditRole).toInt(), dentro);
        }
    }

    void um_campo_escolhe_se_so_com_o_teclado()
    {
        Mesa m;
        const auto form = m.Abrir();
        form->tblCampos->setFocus();
        QTest::keyClick(form->tblCampos, Qt::Key_Right);
        QTest::keyClick(form->tblCampos, Qt::Key_Right);
        QTest::keyClick(form->tblCampos, Qt::Key_F2);
        QComboBox *caixa = Caixa_Da_Coluna(*form);
        QVERIFY(caixa != nullptr);
        QCOMPARE(caixa->accessibleName(), u"Signo"_s);
        QTRY_VERIFY(caixa->view()->isVisible());
        while (caixa->view()->currentIndex().row() < Qual(CsvField::Nickname))
            QTest::keyClick(caixa->view(), Qt::Key_Down);
        QCOMPARE(Palavra(*form, 2), m.s.Texto(352));
        QTest::keyClick(caixa->view(), Qt::Key_Return);
        QTRY_COMPARE(Palavra(*form, 2), u"Alcunha"_s);
    }

    void sem_escolher_na_lista_nada_muda()
    {
        Mesa m;
        const auto form = m.Abrir("Name;Phone 2 - Type;Phone 2 - Value\nAna;Home;212345678\n");
        const QString antes = Palavra(*form, 1);
        form->tblCampos->edit(form->tblCampos->model()->index(0, 1));
        QComboBox *caixa = Caixa_Da_Coluna(*form);
        QTRY_VERIFY(caixa->view()->isVisible());
        QTest::keyClick(caixa->view(), Qt::Key_Escape);
        QTest::keyClick(caixa, Qt::Key_Tab);
        QCOMPARE(Palavra(*form, 1), antes);
    }

    void a_tecla_enter_e_ok_tambem_sobre_as_colunas()
    {
        Mesa m;
        const auto form = m.Abrir();
        form->tblCampos->setFocus();
        QTest::keyClick(form->tblCampos, Qt::Key_Return);
        QCOMPARE(form->result(), static_cast<int>(QDialog::Accepted));
    }

    void a_tecla_tab_passa_por_todos_os_controlos()
    {
        Mesa m;
        const auto form = m.Abrir();
        QApplication::setActiveWindow(form.get());
        form->ComboCodificacao->setFocus();
        const QList<QWidget *> todos{form->ComboSeparador, form->ComboDatas, form->chkNomes,
                                     form->tblCampos,      form->tblLinhas,  form->lvContacto,
                                     form->cmdOk,          form->cmdCancelar};
        for (const QWidget *seguinte : todos) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), seguinte);
        }
    }

    void ok_entrega_a_tabela_e_lembra_se_dos_campos()
    {
        Mesa m;
        {
            const auto form = m.Abrir();
            form->tblCampos->model()->setData(form->tblCampos->model()->index(0, 0),
                                              Qual(CsvField::FullName));
            form->cmdOk->click();
            QCOMPARE(form->result(), static_cast<int>(QDialog::Accepted));
            const auto escolhida = form->Escolhida();
            QVERIFY(escolhida.has_value());
            const ContactosDaTabela contactos(escolhida->tabela, escolhida->mapa, escolhida->opcoes);
            QCOMPARE(contactos.Quantos(), std::size_t{2});
            QCOMPARE(contactos.Ler(0).lido.colunas[Coluna::Nome], u"Ana Silva"_s);
            QCOMPARE(escolhida->opcoes.idioma, u"PortuguesPT"_s);
            QCOMPARE(escolhida->opcoes.este_ano, 2027);
        }
        const auto segunda = m.Abrir();
        QCOMPARE(Palavra(*segunda, 0), u"Nome completo"_s);
    }

    void cancelar_nao_entrega_nem_guarda_nada()
    {
        Mesa m;
        {
            const auto form = m.Abrir();
            form->tblCampos->model()->setData(form->tblCampos->model()->index(0, 0),
                                              Qual(CsvField::FullName));
            form->cmdCancelar->click();
            QVERIFY(!form->Escolhida().has_value());
        }
        QCOMPARE(Palavra(*m.Abrir(), 0), m.s.Texto(352));
    }

    void outra_codificacao_outro_separador_e_outra_ordem_leem_de_novo()
    {
        Mesa m;
        const auto form = m.Abrir("Nome;Aniversário\nJos\xC3\xA9,x;3/4/1975\nAna,y;4/4/1975\n");
        QCOMPARE(form->ComboCodificacao->currentText(), m.s.Texto(345) + u": UTF-8"_s);
        QCOMPARE(form->ComboSeparador->currentText(), m.s.Texto(345) + u": "_s + m.s.Texto(347));
        QVERIFY(Cartao(*form).contains(u"Aniversário: 3 Abril 1975"_s));
        form->ComboDatas->setListIndex(2);
        QVERIFY(Cartao(*form).contains(u"Aniversário: 4 Março 1975"_s));
        form->ComboCodificacao->setListIndex(5); // windows-1252
        QCOMPARE(Cartao(*form).constFirst(), u"Nome: JosÃ©,x"_s);
        QCOMPARE(form->ComboDatas->ListIndex(), 2);
        form->ComboSeparador->setListIndex(1); // the comma
        QCOMPARE(form->tblCampos->model()->columnCount(), 2);
        QCOMPARE(form->tblCampos->model()->headerData(0, Qt::Horizontal).toString(), u"Nome;AniversÃ¡rio"_s);
        form->ComboCodificacao->setListIndex(0);
        QCOMPARE(form->tblCampos->model()->headerData(0, Qt::Horizontal).toString(), u"Nome;Aniversário"_s);
    }

    void sem_a_linha_dos_nomes_e_ela_mesma_um_contacto()
    {
        Mesa m;
        const auto form = m.Abrir();
        QVERIFY(form->chkNomes->isChecked());
        form->chkNomes->click();
        QCOMPARE(form->tblLinhas->model()->rowCount(), 3);
        QCOMPARE(form->tblCampos->model()->headerData(1, Qt::Horizontal).toString(), u"2"_s);
    }

    void um_so_numero_estragado_ja_se_diz_e_so_numa_coluna_de_numeros()
    {
        Mesa m;
        const auto form = m.Abrir("Nome completo;Conta\nAna;3,51912E+11\n");
        QVERIFY(!form->LabelAvisos->isVisible());
        form->tblCampos->model()->setData(form->tblCampos->model()->index(0, 1), Qual(CsvField::Phone));
        QCOMPARE(form->LabelAvisos->text(), m.s.Texto(356) + u" 1 (3,51912E+11)"_s);
        QVERIFY(form->LabelAvisos->isVisible());
    }

    void uma_observacao_mostra_se_ate_duas_mil_letras_e_uma_celula_ate_duzentas()
    {
        Mesa m;
        const auto form = m.Abrir("Nome completo;Notas;Fax\nAna;" + QByteArray(2000, 'x') + ";" + QByteArray(200, '1') +
                                  "\nRui;" + QByteArray(2001, 'x') + ";" + QByteArray(201, '1') + "\n");
        for (const int linha : {0, 1}) {
            form->tblLinhas->setCurrentIndex(form->tblLinhas->model()->index(linha, 0));
            const QTreeWidgetItem &item = *form->lvContacto->findItems(m.s.Texto(37), Qt::MatchExactly).value(0);
            QCOMPARE(item.text(1), QString(2000, u'x') + (linha == 0 ? QString() : u"…"_s));
            QCOMPARE(item.toolTip(1), item.text(1));
            QCOMPARE(form->tblLinhas->model()->index(linha, 2).data().toString(),
                     QString(200, u'1') + (linha == 0 ? QString() : u"…"_s));
        }
    }

    void o_primeiro_da_lista_tambem_se_escolhe()
    {
        Mesa m;
        const auto form = m.Abrir();
        form->tblCampos->edit(form->tblCampos->model()->index(0, 1));
        QComboBox *caixa = Caixa_Da_Coluna(*form);
        QCOMPARE(caixa->currentText(), u"Telemóvel"_s);
        QTRY_VERIFY(caixa->view()->isVisible());
        QTest::keyClick(caixa->view(), Qt::Key_Home);
        QTest::keyClick(caixa->view(), Qt::Key_Return);
        QTRY_COMPARE(Palavra(*form, 1), m.s.Texto(352));
    }

    void diz_os_nomes_ambiguos_e_os_numeros_estragados()
    {
        Mesa m;
        const auto form = m.Abrir("Apelido;Telefone\nSilva;3,51912E+11\nCosta;3,51213E+11\n");
        QVERIFY(form->LabelAvisos->text().contains(m.s.Texto(355) + u" Apelido"_s));
        QVERIFY(form->LabelAvisos->text().contains(m.s.Texto(356) + u" 2 (3,51912E+11)"_s));
        QVERIFY(!m.Abrir()->LabelAvisos->isVisible());
    }

    void de_varios_nomes_ambiguos_diz_todos()
    {
        Mesa m;
        QCOMPARE(m.Abrir("Apelido;Telefone;Estado\nSilva;212345678;Beja\n")->LabelAvisos->text(),
                 m.s.Texto(355) + u" Apelido, Estado"_s);
    }

    void um_ficheiro_sem_linhas_so_se_pode_cancelar()
    {
        Mesa m;
        for (const QByteArray &vazio : {QByteArray(), QByteArray("Nome;Telefone\n")}) {
            const auto form = m.Abrir(vazio);
            QVERIFY(!form->cmdOk->isEnabled());
            QCOMPARE(form->LabelAvisos->text(), m.s.Texto(357));
            form->ComboSeparador->setListIndex(1);
            form->chkNomes->click();
        }
    }

    void o_que_uma_celula_tem_de_enorme_ou_invisivel_nao_se_mostra()
    {
        Mesa m;
        const auto form = m.Abrir(QByteArray("Nome;Notas\nA\0\1na;", 18) + QByteArray(1 << 20, 'x') + "\n");
        QCOMPARE(form->tblLinhas->model()->index(0, 0).data().toString(), u"A na"_s);
        QVERIFY(form->tblLinhas->model()->index(0, 1).data().toString().size() < 300);
        for (const QString &linha : Cartao(*form))
            QVERIFY(linha.size() < 3000);
    }

    void mil_colunas_abrem_tao_depressa_como_se_leem()
    {
        const QByteArray ficheiro = "a" + QByteArray(";b").repeated(999) + "\n" +
                                    ("1" + QByteArray(";2").repeated(999) + "\n").repeated(20);
        Mesa m;
        const double leitura = Tempo_Gasto([&] { QCOMPARE(readCsv(ficheiro).rows.size(), std::size_t{21}); });
        const double abertura =
            Tempo_Gasto([&] { QCOMPARE(m.Abrir(ficheiro)->tblCampos->model()->columnCount(), 1000); });
        qInfo("%.1f ms to read, %.1f ms to open", leitura / 1000, abertura / 1000);
        constexpr double meio_segundo = 5e5;
        QVERIFY2(abertura < meio_segundo, qPrintable(QString::number(abertura)));
    }

    void a_linha_dos_campos_segue_as_colunas()
    {
        Mesa m;
        const auto form =
            m.Abrir("a" + QByteArray(";b").repeated(30) + "\n1" + QByteArray(";2").repeated(30) + "\n");
        form->tblLinhas->horizontalScrollBar()->setValue(500);
        QCOMPARE(form->tblCampos->horizontalScrollBar()->value(), 500);
        form->tblCampos->horizontalScrollBar()->setValue(100);
        QCOMPARE(form->tblLinhas->horizontalScrollBar()->value(), 100);
        form->tblCampos->setColumnWidth(1, 77);
        QCOMPARE(form->tblLinhas->columnWidth(1), 77);
    }
};

MORVEX_TESTE(TestFrmCampos)
#include "test_frmCampos.moc"
