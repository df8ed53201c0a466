// Two desks on one database: one has a contact in the editor while the other one writes to the same row.
#include "contacts/DisputaDoContacto.h"
#include "contacts/Editor.h"
#include "contacts/frmConflito.h"
#include "contacts/TrechoQueDifere.h"
#include "platform/Picture.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/Teste.h"

#include <QClipboard>

namespace
{
using Colunas = QMap<QString, Value>;

// The program once more on the same file, past the window of the first.
struct DoisPostos : Editor {
    DoisPostos() : caminho(s.Base()), outro(caminho, s.Pasta())
    {
        id = Mostrar({{u"Nome"_s, u"Ana"_s},
                      {u"Telefone1"_s, u"21"_s},
                      {u"Dia"_s, u"30"_s},
                      {u"Mes"_s, u"01"_s},
                      {u"Ano"_s, u"1980"_s},
                      {u"Obs"_s, u"antes"_s}});
    }

    // The other desk's editor writes all columns, with these in place of what stands there.
    void Outro_Muda(const Colunas &mudadas)
    {
        const LinhaInteira linha = outro.Ler_Inteiras("TblLista", "ID", id).front();
        const auto v = [&](const char *coluna) {
            return mudadas.value(QLatin1StringView(coluna), Value(linha_inteira::Texto(linha, coluna)));
        };
        outro.Executar("cmdUpdateNome",
                       {v("Nome"), v("Telefone1"), v("Telefone2"), v("Fax"), v("Telemovel1"), v("Telemovel2"),
                        v("Telemovel3"), v("Dia"), v("Mes"), v("Ano"), v("Email1"), v("Email2"), v("Website"),
                        v("Morada"), v("Obs"), v("Fotografia"), v("Grupo"), id});
    }
    void Outro_Elimina() { outro.Executar("cmdEliminarNome", {id}); }

    // Presses Ok, and does that in the form that must come.
    static void Ok_E(frmAddEdit &form, const std::function<void(frmConflito &)> &no_conflito)
    {
        bool veio = false;
        accoes::Quando_Abrir<frmConflito>([&](frmConflito &conflito) {
            veio = true;
            no_conflito(conflito);
            if (conflito.isVisible()) conflito.reject();
        });
        form.cmdOk->click();
        QVERIFY(veio);
    }

    QString Linha(const QString &colunas)
    {
        return s.Linhas(u"SELECT %1 FROM TblLista WHERE ID=%2"_s.arg(colunas).arg(id)).join(u';');
    }

    int id = 0;
    QString caminho;
    DE outro;
};

// A row of the form as a person reads it.
QStringList Lida(const frmConflito &conflito, int linha)
{
    const QTreeWidgetItem &item = *conflito.lvCampos->topLevelItem(linha);
    return {item.text(0), item.text(1), item.text(2)};
}

ComboBox &Escolha(const frmConflito &conflito, int linha)
{
    QWidget *lugar = conflito.lvCampos->itemWidget(conflito.lvCampos->topLevelItem(linha), 3);
    auto *caixa = qobject_cast<ComboBox *>(lugar);
    return caixa != nullptr ? *caixa : *lugar->findChild<ComboBox *>();
}

constexpr int pergunta = box::question | box::yesNo;
} // namespace

class TestDisputaDoContacto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void os_dois_lados_tem_a_mesma_largura_entre_o_campo_e_a_escolha()
    {
        Sistema s;
        frmConflito form(s.geral, {}, {{0, {u"Fax"_s, u"1"_s, u"2"_s, {}}}}, nullptr);
        form.show();
        QCoreApplication::processEvents();
        const QHeaderView &colunas = *form.lvCampos->header();
        QCOMPARE(colunas.sectionSize(0), 110);
        QCOMPARE(colunas.sectionSize(3), 150);
        QVERIFY(std::abs(colunas.sectionSize(1) - colunas.sectionSize(2)) <= 1);
        QCOMPARE(colunas.length(), form.lvCampos->viewport()->width());
        QCOMPARE(form.lvCampos->topLevelItem(0)->sizeHint(0).height(), 26);
        const QTreeWidgetItem &titulos = *form.lvCampos->headerItem();
        QCOMPARE((QStringList{titulos.text(0), titulos.text(1), titulos.text(2), titulos.text(3)}),
                 (QStringList{s.Texto(383), s.Texto(423), s.Texto(424), s.Texto(382)}));
        const auto &escolha = *qobject_cast<QComboBox *>(form.lvCampos->itemWidget(form.lvCampos->topLevelItem(0), 3));
        QCOMPARE((QStringList{escolha.itemText(0), escolha.itemText(1)}), (QStringList{s.Texto(424), s.Texto(423)}));
    }

    void mudado_la_noutra_coluna_junta_se_sem_perguntar()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Telefone1"_s, u"22"_s}, {u"Email1"_s, u"a@x.example"_s}});
            form.txtNome->setText(u"Ana Sousa"_s);
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.Linha(u"Nome, Telefone1, Email1, Obs"_s), u"Ana Sousa|22|a@x.example|antes"_s);
        QCOMPARE(p.Escolhido(), u"Ana Sousa"_s);
        QCOMPARE(p.janela.txtTelefone1->text(), u"22"_s); // and the card shows it
    }

    void mudado_la_e_nada_aqui_fica_como_la()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Nome"_s, u"Ana Reis"_s}});
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.Linha(u"Nome"_s), u"Ana Reis"_s);
    }

    void mudado_nos_dois_para_o_mesmo_nao_pergunta()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Nome"_s, u"Ana Reis"_s}, {u"Obs"_s, u"uma\r\nduas"_s}});
            form.txtNome->setText(u"Ana Reis"_s);
            form.txtObs->setPlainText(u"uma\nduas"_s);
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.Linha(u"Nome, Obs"_s), u"Ana Reis|uma\r\nduas"_s);
    }

    void a_presenca_que_muda_la_nao_e_disputa_e_fica()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.s.Escrever(u"UPDATE TblLista SET MSNMessenger='18'"_s);
            form.txtNome->setText(u"Ana Reis"_s);
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.Linha(u"Nome, MSNMessenger"_s), u"Ana Reis|18"_s);
    }

    void mudado_nos_dois_mostra_os_dois_lados_com_o_meu_escolhido()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Nome"_s, u"Ana Reis"_s}, {u"Telefone1"_s, u"22"_s}, {u"Obs"_s, u"de la"_s}});
            form.txtNome->setText(u"Ana Sousa"_s);
            form.txtObs->setPlainText(u"de aqui"_s);
            p.Ok_E(form, [&](frmConflito &conflito) {
                QCOMPARE(conflito.windowTitle(), p.s.Texto(420));
                QCOMPARE(conflito.Label1->text(), p.s.Texto(421));
                QCOMPARE(conflito.lvCampos->topLevelItemCount(), 2);
                QCOMPARE(Lida(conflito, 0),
                         QStringList({form.lblNome->text(), u"Ana Reis"_s, u"Ana Sousa"_s}));
                QCOMPARE(Lida(conflito, 1), QStringList({form.lblObs->text(), u"de la"_s, u"de aqui"_s}));
                QCOMPARE(Escolha(conflito, 0).currentText(), p.s.Texto(424));
                QVERIFY(conflito.cmdGuardar->isDefault());
                QCOMPARE(p.Linha(u"Nome, Obs"_s), u"Ana Reis|de la"_s); // nothing is written yet
                conflito.cmdGuardar->click();
            });
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.Linha(u"Nome, Telefone1, Obs"_s), u"Ana Sousa|22|de aqui"_s);
        QCOMPARE(p.Escolhido(), u"Ana Sousa"_s);
    }

    void o_que_se_escolhe_e_o_que_fica_data()
    {
        QTest::addColumn<QString>("accoes");
        QTest::addColumn<QString>("gravado");
        QTest::newRow("todos os do outro") << u"deles"_s << u"Ana Reis|22|de la|A meu"_s;
        QTest::newRow("campo a campo") << u"um"_s << u"Ana Sousa|22|de la|A meu"_s;
        QTest::newRow("todos os meus outra vez") << u"deles meus"_s << u"Ana Sousa|22|de aqui|A meu"_s;
    }
    void o_que_se_escolhe_e_o_que_fica()
    {
        QFETCH(QString, accoes);
        QFETCH(QString, gravado);
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Nome"_s, u"Ana Reis"_s}, {u"Telefone1"_s, u"22"_s}, {u"Obs"_s, u"de la"_s}});
            form.txtNome->setText(u"Ana Sousa"_s);
            form.txtObs->setPlainText(u"de aqui"_s);
            form.txtMorada->setPlainText(u"A meu"_s); // only here
            p.Ok_E(form, [&](frmConflito &conflito) {
                if (accoes == "um"_L1) Escolha(conflito, 1).setCurrentIndex(1);
                if (accoes.startsWith("deles"_L1)) conflito.cmdDeles->click();
                if (accoes.endsWith("meus"_L1)) conflito.cmdMeus->click();
                conflito.cmdGuardar->click();
            });
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.Linha(u"Nome, Telefone1, Obs, Morada"_s), gravado);
    }

    void voltar_ao_editor_nada_grava_e_deixa_o_que_se_escreveu_data()
    {
        QTest::addColumn<bool>("escape");
        QTest::newRow("o botao") << false;
        QTest::newRow("escape") << true;
    }
    void voltar_ao_editor_nada_grava_e_deixa_o_que_se_escreveu()
    {
        QFETCH(bool, escape);
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Nome"_s, u"Ana Reis"_s}, {u"Telefone1"_s, u"22"_s}});
            form.txtNome->setText(u"Ana Sousa"_s);
            p.Ok_E(form, [&](frmConflito &conflito) {
                if (escape)
                    QTest::keyClick(&conflito, Qt::Key_Escape);
                else
                    conflito.cmdVoltar->click();
                QVERIFY(!conflito.isVisible());
            });
            QVERIFY(form.isVisible());
            QCOMPARE(form.txtNome->text(), u"Ana Sousa"_s);
            QCOMPARE(form.txtTelefone1->text(), u"21"_s);
            QCOMPARE(p.Linha(u"Nome, Telefone1"_s), u"Ana Reis|22"_s);
            p.Ok_E(form, [](frmConflito &conflito) { conflito.cmdGuardar->click(); }); // it is asked again
        });
        QCOMPARE(p.Linha(u"Nome, Telefone1"_s), u"Ana Sousa|22"_s);
    }

    void cada_campo_chama_se_como_no_editor_e_traz_os_dois_lados()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            LinhaEditada::Disputa disputa;
            for (int i = 0; i < 17; ++i) {
                disputa.aqui << u"a%1"_s.arg(i);
                disputa.la << u"l%1"_s.arg(i);
            }
            for (std::size_t lugar = 0; lugar < 13; ++lugar) // but for picture and group
                disputa.campos.insert(lugar);
            QStringList lidos;
            for (const auto &[lugar, campo] : disputa_do_contacto::Campos(disputa, p.s.geral, {}))
                lidos << campo.rotulo + u'|' + campo.la + u'|' + campo.aqui;
            QStringList esperados;
            const auto campo = [&](const QLabel *rotulo, const QString &lados) {
                esperados << rotulo->text().remove(u':').trimmed() + u'|' + lados;
            };
            campo(form.lblNome, u"l0|a0"_s);
            campo(form.lblTelefone1, u"l1|a1"_s);
            campo(form.lblTelefone2, u"l2|a2"_s);
            campo(form.lblFax, u"l3|a3"_s);
            campo(form.lblTelemovel1, u"l4|a4"_s);
            campo(form.lblTelemovel2, u"l5|a5"_s);
            campo(form.lblTelemovel3, u"l6|a6"_s);
            campo(form.lblAniversario, u"l7-l8-l9|a7-a8-a9"_s);
            campo(form.lblEmail1, u"l10|a10"_s);
            campo(form.lblEmail2, u"l11|a11"_s);
            campo(form.lblWebsite, u"l12|a12"_s);
            campo(form.lblMorada, u"l13|a13"_s);
            campo(form.lblObs, u"l14|a14"_s);
            QCOMPARE(lidos, esperados);
        });
    }

    void o_aniversario_e_um_so_campo_e_nunca_se_mistura()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Dia"_s, u"28"_s}, {u"Mes"_s, u"02"_s}});
            form.txtDia->setText(u"31"_s);
            p.Ok_E(form, [&](frmConflito &conflito) {
                QCOMPARE(Lida(conflito, 0),
                         QStringList({form.lblAniversario->text(), u"28-02-1980"_s, u"31-01-1980"_s}));
                QCOMPARE(conflito.lvCampos->topLevelItemCount(), 1);
                conflito.cmdDeles->click();
                conflito.cmdGuardar->click();
            });
        });
        QCOMPARE(p.Linha(u"Dia, Mes, Ano"_s), u"28|02|1980"_s);
    }

    void os_grupos_mostram_se_pelos_nomes()
    {
        DoisPostos p;
        const int coral = p.Grupo(u"Coral"_s);
        p.Grupo(u"Teatro"_s);
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Grupo"_s, coral}});
            form.ComboGrupos->ChooseText(u"Teatro"_s);
            p.Ok_E(form, [&](frmConflito &conflito) {
                QCOMPARE(Lida(conflito, 0), QStringList({u"Grupo"_s, u"Coral"_s, u"Teatro"_s}));
                conflito.cmdDeles->click();
                conflito.cmdGuardar->click();
            });
        });
        QCOMPARE(p.Linha(u"Grupo"_s), QString::number(coral));
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void movido_la_para_fora_do_grupo_a_vista_fica_escolhido_sob_todos()
    {
        DoisPostos p;
        const int coral = p.Grupo(u"Coral"_s);
        const int teatro = p.Grupo(u"Teatro"_s);
        p.Outro_Muda({{u"Grupo"_s, coral}});
        p.Filtrar(u"Coral"_s);
        p.janela.ListaNomes->setListIndex(0);
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Grupo"_s, teatro}});
            form.txtNome->setText(u"Ana Sousa"_s);
            form.cmdOk->click();
        });
        QCOMPARE(p.Linha(u"Nome, Grupo"_s), u"Ana Sousa|%1"_s.arg(teatro));
        QCOMPARE(p.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(p.Escolhido(), u"Ana Sousa"_s);
    }

    void as_fotografias_mostram_se_como_imagens()
    {
        DoisPostos p;
        const QString vermelha = Por_Na_Base(p.s, {40, 30}, qRgb(255, 0, 0));
        const QString verde = Por_Na_Base(p.s, {400, 200}, qRgb(0, 255, 0));
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Fotografia"_s, vermelha}});
            form.txtFotografia->setText(verde);
            p.Ok_E(form, [&](frmConflito &conflito) {
                QTreeWidgetItem &item = *conflito.lvCampos->topLevelItem(0);
                const auto imagem = [&](int coluna) {
                    return qvariant_cast<QPixmap>(item.data(coluna, Qt::DecorationRole)).toImage();
                };
                QCOMPARE(item.text(1) + item.text(2), QString());
                QCOMPARE(imagem(1).pixel(5, 5), qRgb(255, 0, 0));
                QCOMPARE(imagem(1).size(), QSize(40, 30));
                QCOMPARE(imagem(2).pixel(5, 5), qRgb(0, 255, 0));
                QCOMPARE(imagem(2).size(), QSize(120, 60));
                QVERIFY(conflito.lvCampos->visualItemRect(&item).height() >= 60); // not cut to a text's height
                QCOMPARE(item.data(1, Qt::AccessibleTextRole).toString(), vermelha);
            });
        });
    }

    void cada_imagem_cabe_no_seu_lugar_e_tem_pelo_menos_um_ponto_data()
    {
        QTest::addColumn<QSize>("natural");
        QTest::addColumn<QSize>("mostrada");
        QTest::newRow("um ponto") << QSize(1, 1) << QSize(1, 1);
        QTest::newRow("a medida do lugar") << QSize(120, 90) << QSize(120, 90);
        QTest::newRow("um ponto larga de mais") << QSize(121, 90) << QSize(120, 89);
        QTest::newRow("um ponto alta de mais") << QSize(120, 91) << QSize(118, 90);
        QTest::newRow("muito larga") << QSize(1000, 1) << QSize(120, 1);
        QTest::newRow("muito alta") << QSize(1, 1000) << QSize(1, 90);
    }
    void cada_imagem_cabe_no_seu_lugar_e_tem_pelo_menos_um_ponto()
    {
        QFETCH(QSize, natural);
        Sistema s;
        const auto pintar = [&](const QString &nome) { return Picture(Bytes_De_Imagem(natural), nome); };
        const CamposDisputados campos{{0, {u"Fotografia"_s, u"foto.png"_s, QString(), pintar}}};
        const frmConflito conflito(s.geral, u"facto"_s, campos, nullptr);
        const QVariant imagem = conflito.lvCampos->topLevelItem(0)->data(1, Qt::DecorationRole);
        QTEST(qvariant_cast<QPixmap>(imagem).size(), "mostrada");
    }

    void ao_lado_de_uma_imagem_a_escolha_nao_se_estica_data()
    {
        QTest::addColumn<QString>("la");
        QTest::addColumn<QString>("aqui");
        QTest::newRow("la") << u"foto.png"_s << QString();
        QTest::newRow("aqui") << QString() << u"foto.png"_s;
    }
    void ao_lado_de_uma_imagem_a_escolha_nao_se_estica()
    {
        QFETCH(const QString, la);
        QFETCH(const QString, aqui);
        Sistema s;
        const auto pintar = [&](const QString &nome) { return Picture(Bytes_De_Imagem({120, 90}), nome); };
        const CamposDisputados campos{{0, {u"Fotografia"_s, la, aqui, pintar}}};
        frmConflito conflito(s.geral, u"facto"_s, campos, nullptr);
        conflito.show();
        const auto *escolha = conflito.lvCampos->findChild<ComboBox *>();
        QCOMPARE(escolha->height(), escolha->sizeHint().height());
        QVERIFY(escolha->height() < conflito.lvCampos->visualItemRect(conflito.lvCampos->topLevelItem(0)).height());
    }

    // Taking a picture away is a change like any other.
    void uma_fotografia_tirada_junta_se_ou_e_disputa_data()
    {
        QTest::addColumn<QString>("la"); // where "antes" is the one that the contact had
        QTest::addColumn<QString>("aqui");
        QTest::addColumn<bool>("disputa");
        QTest::addColumn<bool>("deles");
        QTest::addColumn<QString>("fica");
        QTest::newRow("tirada nos dois") << u""_s << u""_s << false << false << u""_s;
        QTest::newRow("so aqui") << u"antes"_s << u""_s << false << false << u""_s;
        QTest::newRow("so la") << u""_s << u"antes"_s << false << false << u""_s;
        for (const bool deles : {false, true}) {
            QTest::addRow("aqui, e outra la: %s", deles ? "deles" : "minha")
                << u"verde"_s << u""_s << true << deles << (deles ? u"verde"_s : u""_s);
            QTest::addRow("la, e outra aqui: %s", deles ? "deles" : "minha")
                << u""_s << u"verde"_s << true << deles << (deles ? u""_s : u"verde"_s);
        }
    }
    void uma_fotografia_tirada_junta_se_ou_e_disputa()
    {
        QFETCH(QString, la);
        QFETCH(QString, aqui);
        QFETCH(bool, disputa);
        QFETCH(bool, deles);
        QFETCH(QString, fica);
        DoisPostos p;
        const QMap<QString, QString> nomes{{u""_s, u""_s},
                                           {u"antes"_s, Por_Na_Base(p.s, {40, 30}, qRgb(255, 0, 0))},
                                           {u"verde"_s, Por_Na_Base(p.s, {60, 30}, qRgb(0, 255, 0))}};
        p.Outro_Muda({{u"Fotografia"_s, nomes[u"antes"_s]}});
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Fotografia"_s, nomes[la]}, {u"Telefone1"_s, u"22"_s}});
            form.txtNome->setText(u"Ana Sousa"_s);
            form.txtFotografia->setText(nomes[aqui]);
            if (!disputa) return form.cmdOk->click();
            p.Ok_E(form, [&](frmConflito &conflito) {
                QCOMPARE(conflito.lvCampos->topLevelItemCount(), 1);
                const QTreeWidgetItem &item = *conflito.lvCampos->topLevelItem(0);
                QCOMPARE(item.text(0), form.lblFotografia->text());
                for (const auto &[coluna, lado] : {std::pair(1, la), std::pair(2, aqui)}) {
                    QCOMPARE(item.data(coluna, Qt::DecorationRole).isNull(),
                             lado.isEmpty()); // nor that of an error
                    QCOMPARE(item.toolTip(coluna), nomes[lado]);
                }
                if (deles) conflito.cmdDeles->click();
                conflito.cmdGuardar->click();
            });
        });
        QCOMPARE(p.Linha(u"Nome, Telefone1, Fotografia"_s), u"Ana Sousa|22|"_s + nomes[fica]);
    }

    void pelo_teclado_vai_se_da_lista_as_escolhas_e_aos_botoes()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Nome"_s, u"Ana Reis"_s}, {u"Obs"_s, u"de la"_s}});
            form.txtNome->setText(u"Ana Sousa"_s);
            form.txtObs->setPlainText(u"de aqui"_s);
            p.Ok_E(form, [&](frmConflito &conflito) {
                QVERIFY(QTest::qWaitForWindowActive(&conflito));
                QCOMPARE(conflito.lvCampos->currentItem(), conflito.lvCampos->topLevelItem(0));
                QVERIFY(conflito.lvCampos->currentItem()->isSelected());
                conflito.lvCampos->setFocus();
                const QList<QWidget *> ordem{&Escolha(conflito, 0), &Escolha(conflito, 1), conflito.cmdMeus};
                for (QWidget *seguinte : ordem) {
                    QTest::keyClick(conflito.focusWidget(), Qt::Key_Tab);
                    QCOMPARE(conflito.focusWidget(), seguinte);
                }
            });
        });
    }

    void um_aniversario_sem_ano_le_se_sem_tracos_a_mais()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Ano"_s, u""_s}});
            form.txtDia->setText(u"31"_s);
            p.Ok_E(form, [&](frmConflito &conflito) {
                QCOMPARE(Lida(conflito, 0),
                         QStringList({form.lblAniversario->text(), u"30-01"_s, u"31-01-1980"_s}));
            });
        });
    }

    void um_grupo_que_ja_nao_ha_nao_tem_nome()
    {
        DoisPostos p;
        const int coral = p.Grupo(u"Coral"_s);
        p.Grupo(u"Teatro"_s);
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Grupo"_s, coral}});
            p.s.Escrever(u"DELETE FROM TblGrupos WHERE NomeGrupo='Coral'"_s);
            form.ComboGrupos->ChooseText(u"Teatro"_s);
            p.Ok_E(form, [&](frmConflito &conflito) {
                QCOMPARE(Lida(conflito, 0), QStringList({u"Grupo"_s, u""_s, u"Teatro"_s}));
                QCOMPARE(p.s.geral.de.Rs("cmdVerGrupo").State(), Recordset::Closed);
            });
        });
    }

    void uma_fotografia_que_nao_ha_mostra_a_do_erro()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Fotografia"_s, u"/nao/ha.png"_s}});
            form.txtFotografia->setText(u"bd:nenhuma.png"_s);
            p.Ok_E(form, [&](frmConflito &conflito) {
                for (const int coluna : {1, 2})
                    QVERIFY(!qvariant_cast<QPixmap>(
                                 conflito.lvCampos->topLevelItem(0)->data(coluna, Qt::DecorationRole))
                                 .isNull());
            });
        });
    }

    void o_ficheiro_da_fotografia_preterida_vai_se_e_o_da_escolhida_fica_data()
    {
        QTest::addColumn<bool>("deles");
        QTest::newRow("fica a minha") << false;
        QTest::newRow("fica a do outro") << true;
    }
    void o_ficheiro_da_fotografia_preterida_vai_se_e_o_da_escolhida_fica()
    {
        SO_NUM_FICHEIRO("a picture that stays a file");
        QFETCH(bool, deles);
        DoisPostos p;
        const QString pasta = p.s.Ficheiro(u"fotografias"_s);
        QVERIFY(QDir().mkpath(pasta));
        const QString do_outro = pasta + u"/fotografia1.png"_s;
        QImage imagem(8, 8, QImage::Format_RGB32);
        imagem.fill(Qt::red);
        QVERIFY(imagem.save(do_outro));
        QString minha;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Fotografia"_s, do_outro}});
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QGuiApplication::clipboard()->setImage(imagem);
            QTest::keyClick(form.txtNome, Qt::Key_V, Qt::ControlModifier);
            QTRY_VERIFY(!form.txtFotografia->text().isEmpty());
            minha = form.txtFotografia->text();
            QVERIFY(minha != do_outro && QFile::exists(minha));
            p.Ok_E(form, [&](frmConflito &conflito) {
                if (deles) conflito.cmdDeles->click();
                conflito.cmdGuardar->click();
            });
        });
        QCOMPARE(p.Linha(u"Fotografia"_s), deles ? do_outro : minha);
        QCOMPARE(QFile::exists(do_outro), deles);
        QCOMPARE(QFile::exists(minha), !deles);
    }

    void eliminado_la_guarda_se_como_novo_se_se_quiser()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Elimina();
            form.txtNome->setText(u"Ana Sousa"_s);
            p.s.caixas.Espera(p.s.Texto(429), pergunta, form.windowTitle(), answer::yes);
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.s.Linhas(u"SELECT Nome, Telefone1, Obs FROM TblLista"_s),
                 QStringList{u"Ana Sousa|21|antes"_s});
        QCOMPARE(p.Escolhido(), u"Ana Sousa"_s);
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    void eliminado_la_e_recusado_como_novo_fica_no_editor()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Elimina();
            form.txtNome->setText(u"Ana Sousa"_s);
            p.s.caixas.Espera(p.s.Texto(429), pergunta, form.windowTitle(), answer::no);
            form.cmdOk->click();
            QVERIFY(form.isVisible());
            QCOMPARE(form.txtNome->text(), u"Ana Sousa"_s);
        });
        QCOMPARE(p.Contactos(), 0);
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    void quem_nao_pode_adicionar_nao_guarda_como_novo()
    {
        DoisPostos p;
        p.s.Novo_Utilizador(u"Rui"_s, u"x"_s, u"01111"_s);
        p.s.Entrar(u"Rui"_s);
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Elimina();
            form.txtNome->setText(u"Ana Sousa"_s);
            p.s.caixas.Espera(p.s.Texto(429), pergunta, form.windowTitle(), answer::yes);
            p.s.caixas.Espera(p.s.Texto(102), box::stop, u"Morvex"_s);
            form.cmdOk->click();
            QVERIFY(form.isVisible());
        });
        QCOMPARE(p.Contactos(), 0);
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    void eliminado_enquanto_se_escolhe_oferece_se_como_novo()
    {
        DoisPostos p;
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Nome"_s, u"Ana Reis"_s}});
            form.txtNome->setText(u"Ana Sousa"_s);
            p.s.caixas.Espera(p.s.Texto(429), pergunta, form.windowTitle(), answer::yes);
            p.Ok_E(form, [&](frmConflito &conflito) {
                p.Outro_Elimina();
                conflito.cmdGuardar->click();
            });
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista"_s), QStringList{u"Ana Sousa"_s});
    }

    void uma_escrita_que_falha_deixa_o_editor_aberto_com_o_que_se_escreveu()
    {
        DoisPostos p;
        p.s.Recusar(u"UPDATE"_s, u"TblLista"_s);
        p.Editar([&](frmAddEdit &form) {
            form.txtNome->setText(u"Ana Sousa"_s);
            p.s.caixas.Espera_Erro(Failure::StoreError);
            QTest::keyClick(form.cmdOk, Qt::Key_Space);
            QVERIFY(form.isVisible());
            QCOMPARE(form.txtNome->text(), u"Ana Sousa"_s);
            p.s.Deixar_De_Recusar();
            form.cmdOk->click(); // another try from the same form
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.Linha(u"Nome"_s), u"Ana Sousa"_s);
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    void um_nome_que_nao_cabe_no_campo_e_que_mudou_la_fica_inteiro()
    {
        DoisPostos p;
        const QString longo(80, u'n');
        p.s.Escrever(u"UPDATE TblLista SET Nome='%1'"_s.arg(longo));
        p.Editar([&](frmAddEdit &form) {
            p.Outro_Muda({{u"Nome"_s, longo + u'm'}});
            form.txtTelefone1->setText(u"22"_s);
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(p.Linha(u"Nome, Telefone1"_s), longo + u"m|22"_s);
    }

    // What is read of a long text

    void trechos_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("outro");
        QTest::addColumn<QString>("trecho");
        const QString longo(400, u'a');
        QTest::newRow("curto, inteiro") << u"uma\r\nduas"_s << u"tres"_s << u"uma\nduas"_s;
        QTest::newRow("vazio") << QString() << longo << QString();
        QTest::newRow("longo que difere no principio")
            << u'b' + longo << longo << u'b' + longo.left(299) + u'…';
        QTest::newRow("longo que difere no fim")
            << longo + u'b' << longo + u'c' << u'…' + longo.left(40) + u'b';
        QTest::newRow("longo que acaba onde o outro continua")
            << longo << longo + u'c' << u'…' + longo.left(40);
        QTest::newRow("trezentas letras, inteiro") << longo.left(300) << longo.left(200) << longo.left(300);
        QTest::newRow("trezentas e uma letras") << longo.left(301) << QString() << longo.left(300) + u'…';
        QTest::newRow("a partir da segunda letra")
            << longo.left(41) + u'b' + longo << longo << u'…' + longo.left(40) + u'b' + longo.left(259) + u'…';
        QTest::newRow("a partir da primeira, que tem duas metades")
            << u"😀"_s + longo << u"😀"_s + longo.left(39) << u"😀"_s + longo.left(298) + u'…';
        QTest::newRow("oito linhas, inteiro")
            << u"x\n"_s.repeated(7) + u'y' << QString() << u"x\n"_s.repeated(7) + u'y';
        QTest::newRow("nove linhas") << u"x\n"_s.repeated(8) + u'y' << QString() << u"x\nx\nx\nx\nx\nx\nx\nx…"_s;
        QTest::newRow("muitas linhas") << u"x\n"_s.repeated(20) << QString() << u"x\nx\nx\nx\nx\nx\nx\nx…"_s;
    }
    void trechos()
    {
        QFETCH(QString, texto);
        QFETCH(QString, outro);
        QFETCH(QString, trecho);
        QCOMPARE(Trecho_Que_Difere(texto, outro), trecho);
    }

    void um_trecho_nao_comeca_nem_acaba_a_meio_de_uma_letra()
    {
        const QString pares = u"😀"_s.repeated(300); // two units each
        for (int i = 0; i < 4; ++i) {
            const QString texto = QString(i, u'a') + pares + u'b' + pares;
            const QString trecho = Trecho_Que_Difere(texto, QString(i, u'a') + pares + u'c').remove(u'…');
            QVERIFY(!trecho.front().isLowSurrogate());
            QVERIFY(!trecho.back().isHighSurrogate());
            QVERIFY(trecho.contains(u'b'));
        }
    }
};

MORVEX_TESTE(TestDisputaDoContacto)
#include "test_DisputaDoContacto.moc"
