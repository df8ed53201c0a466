// What can be done to the contact on the card: delete it, write to it, visit its page, see its picture.
#include "contacts/frmEmail.h"
#include "contacts/frmProcurar.h"
#include "contacts/frmVerImagem.h"
#include "contacts/Programa.h"
#include "contacts/WebsiteEmail.h"
#include "testlib/Accoes.h"

using namespace Qt::StringLiterals;

class TestAccoesContacto : public QObject
{
    Q_OBJECT

    using Gesto = std::function<void(Programa &)>;

    static void Rota(const char *nome, const Gesto &gesto) { QTest::newRow(nome) << gesto; }

    static Gesto Comando(const QString &nome)
    {
        return [nome](Programa &p) {
            auto &comando = control<QAction>(p.janela, nome);
            QVERIFY(comando.isEnabled());
            comando.trigger();
        };
    }

    static Gesto Tecla_Delete(const QString &caixa)
    {
        return [caixa](Programa &p) {
            p.Mostrar_Janela();
            auto &com_foco = control<QWidget>(p.janela, caixa);
            com_foco.setFocus();
            QTest::keyClick(&com_foco, Qt::Key_Delete);
        };
    }

    static void Rotas_De_Eliminar()
    {
        QTest::addColumn<Gesto>("gesto");
        Rota("botao", [](Programa &p) { p.janela.cmdEliminar->click(); });
        for (const char *comando : {"EliminarContacto", "eliminar_contacto", "RightClickEliminar"})
            Rota(comando, Comando(QLatin1StringView(comando)));
        Rota("tecla na lista", Tecla_Delete(u"ListaNomes"_s));
        Rota("tecla na procura", Tecla_Delete(u"txtProcura"_s));
    }

    // The ways that no disabled control closes.
    static void Rotas_De_Eliminar_Sempre_Abertas()
    {
        QTest::addColumn<Gesto>("gesto");
        Rota("menu da lista", Comando(u"RightClickEliminar"_s));
        Rota("tecla na lista", Tecla_Delete(u"ListaNomes"_s));
        Rota("tecla na procura", Tecla_Delete(u"txtProcura"_s));
    }

    static frmProcurar *Formulario_De_Procura()
    {
        for (QWidget *janela : QApplication::topLevelWidgets())
            if (auto *form = qobject_cast<frmProcurar *>(janela); form != nullptr && form->isVisible())
                return form;
        return nullptr;
    }

    static void Espera_Pergunta(Programa &p, const QString &nome, int resposta)
    {
        p.s.caixas.Espera(p.s.Texto(54) + u' ' + nome + u'?', 36, u"Morvex 1.0"_s, resposta);
    }

    // One contact on the card.
    static void Mostrar_Contacto(Programa &p, const QMap<QString, Value> &colunas)
    {
        QMap<QString, Value> completas = colunas;
        completas.insert(u"Nome"_s, u"Ana"_s);
        p.Mostrar(completas);
    }

    static void Mover_Sobre(QWidget &onde)
    {
        const QPointF ponto(3, 3);
        QMouseEvent mover(QEvent::MouseMove, ponto, onde.mapToGlobal(ponto), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(&onde, &mover);
    }

    static QColor Cor(const QLineEdit *linha) { return linha->palette().color(QPalette::Text); }
    static QColor Cor_Do_Sistema(QPalette::ColorRole papel) { return QApplication::palette().color(papel); }

    static const QMap<QString, Value> &Com_Tudo()
    {
        static const QMap<QString, Value> colunas{{u"Email1"_s, u"Um@x.example"_s},
                                                  {u"Email2"_s, u"dois@x.example"_s},
                                                  {u"Website"_s, u"www.x.example"_s}};
        return colunas;
    }

private Q_SLOTS:
    void sem_o_direito_nenhuma_rota_elimina_data() { Rotas_De_Eliminar(); }
    void sem_o_direito_nenhuma_rota_elimina()
    {
        QFETCH(Gesto, gesto);
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.ListaNomes->setListIndex(0);
        p.s.geral.SessaoActual.Eliminar = false;
        p.s.caixas.Espera(p.s.Texto(102), 16, u"Morvex"_s);
        gesto(p);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.Nomes_Guardados(), (QStringList{u"Ana"_s, u"Berta"_s}));
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void cada_rota_elimina_depois_de_um_sim_data() { Rotas_De_Eliminar(); }
    void cada_rota_elimina_depois_de_um_sim()
    {
        QFETCH(Gesto, gesto);
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s, u"Carlos"_s});
        p.janela.ListaNomes->setListIndex(1);
        Espera_Pergunta(p, u"Berta"_s, answer::yes);
        gesto(p);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.Nomes_Guardados(), (QStringList{u"Ana"_s, u"Carlos"_s}));
        QCOMPARE(p.janela.ListaNomes->ListCount(), 2);
    }

    void eliminar_pergunta_pelo_contacto_que_elimina_data()
    {
        QTest::addColumn<Gesto>("gesto"); // from Ana's card to the contact behind her, whose card fails
        Rota("rato na lista", [](Programa &p) {
            p.Mostrar_Janela();
            p.Carregar_Na_Linha(1);
        });
        Rota("tecla na lista", [](Programa &p) { QTest::keyClick(p.janela.ListaNomes, Qt::Key_Down); });
        Rota("procura rapida", [](Programa &p) { p.janela.txtProcura->setText(u"Bi"_s); });
        Rota("tecla na procura", [](Programa &p) { QTest::keyClick(p.janela.txtProcura, Qt::Key_Down); });
        for (const char *comando : {"Seguinte", "baixo"})
            Rota(comando, Comando(QLatin1StringView(comando)));
        Rota("Anterior, duas vezes", [](Programa &p) {
            p.janela.Anterior->trigger();
            p.janela.Anterior->trigger();
        });
        Rota("janela de procura", [](Programa &p) {
            p.janela.procurar->trigger();
            frmProcurar &form = *Formulario_De_Procura();
            form.txtProcurar->setText(u"Bissexto"_s);
            form.cmdProcurar->click();
            form.close();
        });
        Rota("procura por numero", [](Programa &p) {
            p.janela.procurar->trigger();
            frmProcurar &form = *Formulario_De_Procura();
            form.opcaoTelefone->click();
            form.txtProcurar->setText(u"229"_s);
            form.cmdProcurar->click();
            form.close();
        });
    }
    void eliminar_pergunta_pelo_contacto_que_elimina()
    {
        QFETCH(Gesto, gesto);
        Programa p;
        p.Contacto({{u"Nome"_s, u"Bissexto"_s},
                    {u"Telefone1"_s, u"22 9"_s},
                    {u"Dia"_s, u"29"_s},
                    {u"Mes"_s, u"2"_s},
                    {u"Ano"_s, u"1992"_s}});
        p.Carregar({u"Ana"_s, u"Carlos"_s});
        p.janela.ListaNomes->setListIndex(0);
        p.s.caixas.Espera(p.s.Texto(256), box::stop, u"Morvex"_s);
        gesto(p);
        QCOMPARE(p.Escolhido(), u"Bissexto"_s);
        Espera_Pergunta(p, u"Bissexto"_s, answer::yes);
        p.janela.cmdEliminar->click();
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.Nomes_Guardados(), (QStringList{u"Ana"_s, u"Carlos"_s}));
    }

    void quem_nao_se_encontrou_nao_se_elimina_por_nenhuma_rota_data() { Rotas_De_Eliminar_Sempre_Abertas(); }
    void quem_nao_se_encontrou_nao_se_elimina_por_nenhuma_rota()
    {
        QFETCH(Gesto, gesto);
        Programa p;
        p.Contacto({{u"Nome"_s, u"Ana"_s}});
        p.Contacto_Com_Id(32768, u"Longe"_s);
        p.Carregar();
        p.janela.ListaNomes->setListIndex(0);
        p.s.caixas.Espera(p.s.Texto(256), box::stop, u"Morvex"_s);
        p.janela.ListaNomes->setListIndex(1);
        gesto(p); // no question comes
        QCOMPARE(p.Nomes_Guardados(), (QStringList{u"Ana"_s, u"Longe"_s}));
    }

    void um_nao_nao_muda_nada()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.ListaNomes->setListIndex(1);
        Espera_Pergunta(p, u"Berta"_s, answer::no);
        p.janela.cmdEliminar->click();
        QCOMPARE(p.Nomes_Guardados(), (QStringList{u"Ana"_s, u"Berta"_s}));
        QCOMPARE(p.Escolhido(), u"Berta"_s);
        QVERIFY(p.janela.cmdEliminar->isEnabled());
    }

    void depois_de_eliminar_nada_fica_escolhido_e_a_ficha_fica_vazia()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s, u"Carlos"_s});
        p.janela.ListaNomes->setListIndex(0);
        Espera_Pergunta(p, u"Ana"_s, answer::yes);
        p.janela.cmdEliminar->click();
        QCOMPARE(p.Escolhido(), QString());
        QVERIFY(p.janela.txtGrupo->isHidden());
        QVERIFY(!p.janela.cmdEliminar->isEnabled());
        QCOMPARE(p.janela.lblContador->text(), p.s.Texto(49) + u" 2"_s);
    }

    void o_contacto_que_resta_sozinho_vem_a_ficha()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.ListaNomes->setListIndex(0);
        Espera_Pergunta(p, u"Ana"_s, answer::yes);
        p.janela.cmdEliminar->click();
        QCOMPARE(p.Escolhido(), u"Berta"_s);
        QVERIFY(p.janela.cmdEliminar->isEnabled());
    }

    void cada_rota_do_email_escreve_ao_unico_endereco_data()
    {
        QTest::addColumn<QString>("comando");
        QTest::addColumn<QString>("coluna");
        for (const char *comando : {"Email", "enviar_email", "RightClickEmail"})
            for (const char *coluna : {"Email1", "Email2"})
                QTest::addRow("%s so com %s", comando, coluna) << comando << coluna;
    }
    void cada_rota_do_email_escreve_ao_unico_endereco()
    {
        QFETCH(QString, comando);
        QFETCH(QString, coluna);
        Programa p;
        Mostrar_Contacto(p, {{coluna, u"Ana@x.example"_s}});
        Comando(comando)(p); // a form would hold the test up
        QCOMPARE(p.s.shell.abertos, QStringList{u"mailto:Ana@x.example"_s});
    }

    void dois_enderecos_perguntam_qual_com_a_janela_desligada()
    {
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        accoes::Quando_Abrir<frmEmail>([&](frmEmail &form) {
            QVERIFY(!p.janela.isEnabled());
            QVERIFY(!form.cmdOk->isEnabled());
            form.OptionEmail2->click();
            form.cmdOk->click();
        });
        p.janela.Email->trigger();
        QVERIFY(p.janela.isEnabled());
        QCOMPARE(p.s.shell.abertos, QStringList{u"mailto:dois@x.example"_s});
    }

    void sem_endereco_os_comandos_do_email_estao_desligados()
    {
        Programa p;
        Mostrar_Contacto(p, {});
        for (const QAction *comando : {p.janela.Email, p.janela.enviar_email, p.janela.RightClickEmail})
            QVERIFY(!comando->isEnabled());
        p.janela.Email->setEnabled(true);
        p.janela.Email->trigger();
        QVERIFY(p.s.shell.abertos.isEmpty());
    }

    void o_que_o_website_abre_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("alvo");
        QTest::newRow("com www") << u"www.x.example"_s << u"www.x.example"_s;
        QTest::newRow("sem www") << u"x.example"_s << u"www.x.example"_s;
        QTest::newRow("maiusculas, o caminho tambem")
            << u"X.Example/Pasta/A.HTM"_s << u"www.x.example/pasta/a.htm"_s;
        QTest::newRow("WWW em maiusculas") << u"WWW.X.EXAMPLE"_s << u"www.x.example"_s;
        QTest::newRow("http") << u"http://x.example"_s << u"http://x.example"_s;
        QTest::newRow("https") << u"HTTPS://x.example"_s << u"https://x.example"_s;
        QTest::newRow("outra palavra a frente") << u"ftp.x.example"_s << u"www.ftp.x.example"_s;
        QTest::newRow("http:// sozinho") << u"http://"_s << QString();
    }
    void o_que_o_website_abre()
    {
        QFETCH(QString, texto);
        QFETCH(QString, alvo);
        Programa p;
        Mostrar_Contacto(p, {{u"Website"_s, texto}});
        p.janela.Website->trigger();
        QCOMPARE(p.s.shell.abertos, alvo.isEmpty() ? QStringList() : QStringList{alvo});
    }

    void cada_rota_do_website_visita_a_pagina_data()
    {
        QTest::addColumn<QString>("comando");
        for (const char *comando : {"Website", "visitar_website", "RightClickWebsite"})
            QTest::newRow(comando) << comando;
    }
    void cada_rota_do_website_visita_a_pagina()
    {
        QFETCH(QString, comando);
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        Comando(comando)(p);
        QCOMPARE(p.s.shell.abertos, QStringList{u"www.x.example"_s});
    }

    void com_parte_do_endereco_marcada_o_website_nao_abre()
    {
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        p.janela.txtWebsite->setSelection(0, 3);
        p.janela.Website->trigger();
        QVERIFY(p.s.shell.abertos.isEmpty());
    }

    void um_website_por_preencher_nao_abre_nada()
    {
        Sistema s;
        Visitar_Website(s.shell, QString());
        QVERIFY(s.shell.abertos.isEmpty());
    }

    void sob_o_rato_uma_linha_parece_um_link_data()
    {
        QTest::addColumn<QString>("linha");
        QTest::addColumn<int>("texto");
        QTest::addColumn<QString>("endereco");
        QTest::newRow("email 1") << u"txtEmail1"_s << 55 << u"Um@x.example"_s;
        QTest::newRow("email 2") << u"txtEmail2"_s << 55 << u"dois@x.example"_s;
        QTest::newRow("website") << u"txtWebsite"_s << 56 << u"www.x.example"_s;
    }
    void sob_o_rato_uma_linha_parece_um_link()
    {
        QFETCH(QString, linha);
        QFETCH(int, texto);
        QFETCH(QString, endereco);
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        auto &caixa = control<QLineEdit>(p.janela, linha);
        Mover_Sobre(caixa);
        QCOMPARE(Cor(&caixa), Cor_Do_Sistema(QPalette::Highlight));
        QVERIFY(caixa.font().underline());
        QCOMPARE(caixa.cursor().shape(), Qt::PointingHandCursor);
        QCOMPARE(caixa.toolTip(), p.s.Texto(texto) + u' ' + endereco);
    }

    void as_outras_linhas_nao_parecem_um_link_nem_abrem_nada_data()
    {
        QTest::addColumn<QString>("linha");
        for (const char *linha : {"txtTelefone1", "txtGrupo", "txtMorada", "txtObs"})
            QTest::newRow(linha) << QString::fromLatin1(linha);
    }
    void as_outras_linhas_nao_parecem_um_link_nem_abrem_nada()
    {
        QFETCH(QString, linha);
        Programa p;
        Mostrar_Contacto(p, {{u"Telefone1"_s, u"21"_s}, {u"Morada"_s, u"Rua Nova"_s}, {u"Obs"_s, u"notas"_s}});
        auto &caixa = control<QWidget>(p.janela, linha);
        QVERIFY(caixa.isVisibleTo(&p.janela));
        const auto *area = qobject_cast<QAbstractScrollArea *>(&caixa);
        QWidget &alvo = area != nullptr ? *area->viewport() : caixa;
        Mover_Sobre(alvo);
        QVERIFY(!caixa.font().underline());
        QVERIFY(caixa.toolTip().isEmpty());
        QTest::mouseClick(&alvo, Qt::LeftButton);
        QVERIFY(p.s.shell.abertos.isEmpty());
    }

    void uma_linha_sem_texto_perde_o_aspecto_de_link()
    {
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        QLineEdit *linha = p.janela.txtEmail1;
        Mover_Sobre(*linha);
        linha->clear();
        Mover_Sobre(*linha);
        QCOMPARE(Cor(linha), Cor_Do_Sistema(QPalette::WindowText));
        QVERIFY(!linha->font().underline());
        QCOMPARE(linha->cursor().shape(), Qt::ArrowCursor);
        QVERIFY(linha->toolTip().isEmpty());
    }

    void passar_a_outra_linha_devolve_a_primeira_a_cor_do_texto()
    {
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        Mover_Sobre(*p.janela.txtEmail1);
        Mover_Sobre(*p.janela.txtWebsite);
        QCOMPARE(Cor(p.janela.txtEmail1), Cor_Do_Sistema(QPalette::WindowText));
        QCOMPARE(Cor(p.janela.txtWebsite), Cor_Do_Sistema(QPalette::Highlight));
        QVERIFY(p.janela.txtEmail1->font().underline()); // until the rows are left
    }

    void sair_das_linhas_limpa_o_aspecto_com_outra_cor_data()
    {
        QTest::addColumn<bool>("para_a_lista");
        QTest::newRow("para o formulario") << false;
        QTest::newRow("para a lista de nomes") << true;
    }
    void sair_das_linhas_limpa_o_aspecto_com_outra_cor()
    {
        QFETCH(bool, para_a_lista);
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        Mover_Sobre(*p.janela.txtEmail1);
        Mover_Sobre(*p.janela.txtEmail2);
        Mover_Sobre(para_a_lista ? *p.janela.ListaNomes->viewport() : *p.janela.centralwidget);
        QCOMPARE(Cor(p.janela.txtEmail2), Cor_Do_Sistema(QPalette::Shadow));
        QCOMPARE(Cor(p.janela.txtEmail1), Cor_Do_Sistema(QPalette::WindowText));
        for (const QLineEdit *linha : {p.janela.txtEmail1, p.janela.txtEmail2, p.janela.txtWebsite})
            QVERIFY(!linha->font().underline());
    }

    void fora_das_linhas_o_rato_nao_toca_em_nada()
    {
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        QFont sublinhada = p.janela.txtEmail1->font();
        sublinhada.setUnderline(true);
        p.janela.txtEmail1->setFont(sublinhada);
        Mover_Sobre(*p.janela.centralwidget);
        QVERIFY(p.janela.txtEmail1->font().underline()); // nothing to clear: no row was under the pointer
        Mover_Sobre(*p.janela.txtEmail2);
        Mover_Sobre(*p.janela.centralwidget);
        QVERIFY(!p.janela.txtEmail1->font().underline());
        p.janela.txtEmail1->setFont(sublinhada);
        Mover_Sobre(*p.janela.centralwidget);
        QVERIFY(p.janela.txtEmail1->font().underline()); // and it is cleared once
    }

    void um_clique_numa_linha_abre_o_seu_endereco_data()
    {
        QTest::addColumn<QString>("linha");
        QTest::addColumn<QString>("alvo");
        QTest::newRow("email 1") << u"txtEmail1"_s << u"mailto:Um@x.example"_s;
        QTest::newRow("email 2") << u"txtEmail2"_s << u"mailto:dois@x.example"_s;
        QTest::newRow("website") << u"txtWebsite"_s << u"www.x.example"_s;
    }
    void um_clique_numa_linha_abre_o_seu_endereco()
    {
        QFETCH(QString, linha);
        QFETCH(QString, alvo);
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        p.Mostrar_Janela();
        QTest::mouseClick(&control<QLineEdit>(p.janela, linha), Qt::LeftButton);
        QCOMPARE(p.s.shell.abertos, QStringList{alvo});
    }

    void arrastar_copia_e_nao_abre()
    {
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        p.Mostrar_Janela();
        for (QLineEdit *linha : {p.janela.txtEmail1, p.janela.txtWebsite}) {
            QTest::mousePress(linha, Qt::LeftButton, {}, {4, 8});
            QMouseEvent arrastar(QEvent::MouseMove, QPointF(40, 8), linha->mapToGlobal(QPointF(40, 8)),
                                 Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(linha, &arrastar);
            QTest::mouseRelease(linha, Qt::LeftButton, {}, {40, 8});
            QVERIFY(linha->hasSelectedText());
        }
        QVERIFY(p.s.shell.abertos.isEmpty());
    }

    void uma_linha_vazia_nao_abre_nada()
    {
        Programa p;
        Mostrar_Contacto(p, {});
        p.s.Escrever(u"UPDATE TblLista SET Email1=NULL"_s); // keeps a blank row on the card
        p.Carregar();
        p.Mostrar_Janela();
        QVERIFY(p.janela.txtEmail1->isVisible());
        QTest::mouseClick(p.janela.txtEmail1, Qt::LeftButton);
        QVERIFY(p.s.shell.abertos.isEmpty());
    }

    void a_fotografia_abre_em_grande_com_a_janela_desligada()
    {
        Programa p;
        Mostrar_Contacto(p, {});
        p.Mostrar_Janela();
        bool vista = false;
        accoes::Quando_Abrir<frmVerImagem>([&](frmVerImagem &form) {
            vista = true;
            QVERIFY(!p.janela.isEnabled());
            QTest::keyClick(&form, Qt::Key_Space);
        });
        QTest::mouseClick(p.janela.Thumb, Qt::LeftButton);
        QVERIFY(vista);
        QVERIFY(p.janela.isEnabled());
    }

    void uma_fotografia_de_8000_por_6000_vem_ao_cartao_e_enche_a_largura_da_janela()
    {
        Programa p;
        QImage enorme(8000, 6000, QImage::Format_Grayscale8);
        enorme.fill(Qt::white);
        const QString foto = p.s.Ficheiro(u"enorme.jpg"_s);
        QVERIFY(enorme.save(foto));
        Mostrar_Contacto(p, {{u"Fotografia"_s, foto}});
        QCOMPARE(p.janela.Thumb->size(), QSize(160, 120)); // a fiftieth of either side
        p.Mostrar_Janela();
        accoes::Quando_Abrir<frmVerImagem>([](frmVerImagem &form) {
            QCOMPARE(form.Image1->width(), form.width());
            QCOMPARE(form.Image1->pixmap().toImage().pixelColor(300, 200), QColor(Qt::white));
            form.close();
        });
        QTest::mouseClick(p.janela.Thumb, Qt::LeftButton);
    }

    void um_clique_que_sai_da_fotografia_nao_a_abre()
    {
        Programa p;
        Mostrar_Contacto(p, {});
        p.Mostrar_Janela();
        QTest::mousePress(p.janela.Thumb, Qt::LeftButton);
        QTest::mouseRelease(p.janela.Thumb, Qt::LeftButton, {}, {-5, 5}); // a form would hold the test up
        QVERIFY(p.janela.isEnabled());
    }

    void sem_rato_a_fotografia_abre_com_uma_tecla_data()
    {
        QTest::addColumn<int>("tecla");
        QTest::newRow("enter") << int(Qt::Key_Return);
        QTest::newRow("enter dos algarismos") << int(Qt::Key_Enter);
        QTest::newRow("espaco") << int(Qt::Key_Space);
    }
    void sem_rato_a_fotografia_abre_com_uma_tecla()
    {
        QFETCH(int, tecla);
        Programa p;
        Mostrar_Contacto(p, {});
        p.Mostrar_Janela();
        p.janela.ListaNomes->setFocus();
        const QImage sem_foco = p.janela.Thumb->grab().toImage();
        QTest::keyClick(p.janela.ListaNomes, Qt::Key_Tab);
        QVERIFY(p.janela.Thumb->hasFocus());
        QVERIFY(p.janela.Thumb->grab().toImage() != sem_foco); // a person sees where the keyboard is
        bool vista = false;
        accoes::Quando_Abrir<frmVerImagem>([&](frmVerImagem &form) {
            vista = true;
            QTest::keyClick(&form, Qt::Key_A);
        });
        QTest::keyClick(p.janela.Thumb, static_cast<Qt::Key>(tecla));
        QVERIFY(vista);
        QCOMPARE(p.janela.focusWidget(), p.janela.Thumb);
    }

    void sem_rato_uma_linha_parece_um_link_e_enter_abre_o_seu_endereco_data()
    {
        um_clique_numa_linha_abre_o_seu_endereco_data();
    }
    void sem_rato_uma_linha_parece_um_link_e_enter_abre_o_seu_endereco()
    {
        QFETCH(QString, linha);
        QFETCH(QString, alvo);
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        p.Mostrar_Janela();
        auto &caixa = control<QLineEdit>(p.janela, linha);
        caixa.setFocus(Qt::TabFocusReason);
        QVERIFY(!caixa.hasSelectedText()); // at once: Enter may come right behind
        QVERIFY(caixa.font().underline());
        QCOMPARE(Cor(&caixa), Cor_Do_Sistema(QPalette::Highlight));
        QTest::keyClick(&caixa, Qt::Key_Return);
        QCOMPARE(p.s.shell.abertos, QStringList{alvo});
        p.janela.ListaNomes->setFocus();
        QVERIFY(!caixa.font().underline());
    }

    void com_o_teclado_no_website_o_menu_tambem_o_abre()
    {
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        p.Mostrar_Janela();
        p.janela.txtWebsite->setFocus(Qt::TabFocusReason);
        QVERIFY(!p.janela.txtWebsite->hasSelectedText());
        p.janela.Website->trigger();
        QCOMPARE(p.s.shell.abertos, QStringList{u"www.x.example"_s});
    }

    void uma_linha_vazia_a_que_as_teclas_chegam_nao_perde_a_selecao_seguinte()
    {
        Programa p;
        p.Mostrar_Janela();
        QLineEdit &caixa = *p.janela.txtEmail1;
        caixa.show();
        caixa.setFocus(Qt::TabFocusReason);
        caixa.setText(u"ana@x.example"_s);
        caixa.setSelection(0, 3);
        QCOMPARE(caixa.selectedText(), u"ana"_s);
    }

    void com_texto_marcado_enter_nao_abre()
    {
        Programa p;
        Mostrar_Contacto(p, Com_Tudo());
        p.Mostrar_Janela();
        p.janela.txtEmail1->setFocus();
        QTest::keyClick(p.janela.txtEmail1, Qt::Key_Home);
        QTest::keyClick(p.janela.txtEmail1, Qt::Key_Right, Qt::ShiftModifier);
        QVERIFY(p.janela.txtEmail1->hasSelectedText());
        QTest::keyClick(p.janela.txtEmail1, Qt::Key_Return);
        QVERIFY(p.s.shell.abertos.isEmpty());
    }

    void as_teclas_da_janela_valem_em_todo_o_cartao_data()
    {
        QTest::addColumn<QString>("controlo");
        for (const char *controlo :
             {"txtEmail1", "txtWebsite", "txtMorada", "txtObs", "Thumb", "ComboGrupos", "cmdNovo", "cmdData"})
            QTest::newRow(controlo) << controlo;
    }
    void as_teclas_da_janela_valem_em_todo_o_cartao()
    {
        QFETCH(QString, controlo);
        Programa p;
        QMap<QString, Value> colunas = Com_Tudo();
        colunas.insert(u"Morada"_s, u"Rua 1"_s);
        colunas.insert(u"Obs"_s, u"notas"_s);
        Mostrar_Contacto(p, colunas);
        p.Mostrar_Janela();
        auto &com_foco = control<QWidget>(p.janela, controlo);
        com_foco.setFocus();
        QVERIFY(com_foco.hasFocus());
        Espera_Pergunta(p, u"Ana"_s, answer::no);
        QTest::keyClick(&com_foco, Qt::Key_Delete);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QTest::keyClick(&com_foco, Qt::Key_Escape);
        QVERIFY(!p.janela.isVisible());
    }

    void o_botao_da_data_abre_a_hora_do_ambiente()
    {
        Programa p;
        p.janela.cmdData->click();
        QCOMPARE(p.s.shell.acertos, 1);
    }
};

MORVEX_TESTE(TestAccoesContacto)
#include "test_AccoesContacto.moc"
