// The backup: the order of its steps, what it leaves when it fails, and the copy it makes.
#include "interchange/frmBackup.h"

#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestFrmBackup : public QObject
{
    Q_OBJECT

    // A form over an installation whose database is open, as it is on a normal start.
    struct Copia {
        Copia() : form(s.geral, s.plataforma)
        {
            s.geral.de.Abrir("cmdVerConfig").Close();
            form.show();
        }
        QString Trabalho() const { return s.Ficheiro(u"MorvexCopy.mdb"_s); }
        QString Alvo() const { return pasta.filePath(u"Morvex.mdb"_s); }
        QString Pasta_Com_Barra() const { return pasta.path() + u'/'; }
        void Espera_Sucesso() { s.caixas.Espera(s.Texto(255), 64, form.windowTitle()); }
        QString Guardado() { return s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobackup"_s); }
        bool Ligada() { return s.geral.de.Abrir("cmdVerConfig").RecordCount() == 1; }

        QTemporaryDir pasta;
        Sistema s;
        frmBackup form;
    };

    static void Tocar(const QString &caminho)
    {
        QFile ficheiro(caminho);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.write("resto");
    }

private Q_SLOTS:
    void a_copia_tem_tudo_e_a_ligacao_volta()
    {
        Copia c;
        c.s.Novo_Contacto({{u"Nome"_s, Value(u"Ângela"_s)}});
        c.form.txtCaminhoBackup->setText(c.Pasta_Com_Barra());
        c.form.cmdIniciar->setEnabled(true);
        c.Espera_Sucesso();
        c.form.cmdIniciar->click();

        Connection copia;
        copia.setConnectionString(u"Data Source='%1'"_s.arg(c.Alvo()));
        copia.OpenReadOnly();
        QCOMPARE(copia.query(u"SELECT Nome FROM TblLista WHERE Nome='Ângela'"_s, {}).RecordCount(), 1);
        QCOMPARE(copia.query(u"SELECT * FROM TblIdiomas"_s, {}).RecordCount(), 248);
        QVERIFY(!QFile::exists(c.Trabalho()));
        QVERIFY(c.Ligada());
        QCOMPARE(c.Guardado(), c.Pasta_Com_Barra());
        QVERIFY(c.form.isVisible());
        QVERIFY(!c.form.ProgressBar1->isVisible());
        QCOMPARE(c.form.ProgressBar1->value(), 100);
    }

    void o_alvo_guardado_vem_na_caixa_e_deixa_comecar()
    {
        Sistema s;
        s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobackup"_s, u"/copias/"_s);
        frmBackup form(s.geral, s.plataforma);
        QCOMPARE(form.txtCaminhoBackup->text(), u"/copias/"_s);
        QVERIFY(form.cmdIniciar->isEnabled());
        QCOMPARE(form.Label1->text(), s.Texto(253));
        QCOMPARE(form.cmdIniciar->text(), s.Texto(229));
        QCOMPARE(form.cmdSair->text(), s.Texto(136));
        QVERIFY(!s.geral.temporizadores.timerTarefas.Enabled());
        form.show();
        form.cmdSair->click();
        QVERIFY(s.geral.temporizadores.timerTarefas.Enabled());

        Sistema nova;
        QVERIFY(!frmBackup(nova.geral, nova.plataforma).cmdIniciar->isEnabled());
    }

    void uma_pasta_sem_barra_no_fim_cola_se_ao_nome()
    {
        Copia c;
        c.form.txtCaminhoBackup->setText(c.pasta.filePath(u"copia"_s));
        c.form.cmdIniciar->setEnabled(true);
        c.Espera_Sucesso();
        c.form.cmdIniciar->click();
        QVERIFY(QFile::exists(c.pasta.filePath(u"copiaMorvex.mdb"_s)));
    }

    void uma_copia_de_trabalho_esquecida_sai_antes_de_tudo_mesmo_sem_alvo()
    {
        Copia c;
        Tocar(c.Trabalho());
        c.form.txtCaminhoBackup->clear();
        c.form.cmdIniciar->setEnabled(true);
        c.s.caixas.Espera(c.s.Texto(253), 16, c.form.windowTitle());
        c.form.cmdIniciar->click();
        QVERIFY(!QFile::exists(c.Trabalho()));
        QVERIFY(c.Ligada());
    }

    void cancelar_a_escolha_esvazia_a_caixa_e_deixa_o_botao()
    {
        Copia c;
        c.form.txtCaminhoBackup->setText(u"/copias/"_s);
        c.s.dialogos.textos << std::nullopt;
        c.form.cmdProcurar->click();
        QCOMPARE(c.form.txtCaminhoBackup->text(), QString());
        QVERIFY(c.form.cmdIniciar->isEnabled());
        QVERIFY(
            c.s.dialogos.perguntas.constLast().startsWith(u"folder Choose a directory from the list. @"_s));
        c.s.caixas.Espera(c.s.Texto(253), 16, c.form.windowTitle());
        c.form.cmdIniciar->click();
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    void a_pasta_escolhida_leva_uma_barra_no_fim()
    {
        Copia c;
        c.s.dialogos.textos << u"/copias"_s << u"/outras/"_s;
        c.form.cmdProcurar->click();
        QCOMPARE(c.form.txtCaminhoBackup->text(), u"/copias/"_s);
        c.form.cmdProcurar->click();
        QCOMPARE(c.form.txtCaminhoBackup->text(), u"/outras/"_s);
    }

    void uma_pasta_que_falta_falha_e_tudo_volta()
    {
        Copia c;
        const QString alvo = c.pasta.path() + u"/nao/existe/"_s;
        c.form.txtCaminhoBackup->setText(alvo);
        c.form.cmdIniciar->setEnabled(true);
        const QString ficheiro = alvo + u"Morvex.mdb"_s;
        c.s.caixas.Espera(u"error #75 app %1\rThe file could not be written: %1"_s.arg(ficheiro), 0,
                          u"Error"_s);
        c.form.cmdIniciar->click();
        QVERIFY(!c.form.ProgressBar1->isVisible());
        QVERIFY(c.Ligada());
        QVERIFY(!QFile::exists(c.Trabalho()));
        QCOMPARE(c.Guardado(), QString());
        QVERIFY(c.form.isVisible());
    }

    void o_alvo_anterior_e_substituido_sem_pergunta()
    {
        Copia c;
        Tocar(c.Alvo());
        c.form.txtCaminhoBackup->setText(c.Pasta_Com_Barra());
        c.form.cmdIniciar->setEnabled(true);
        c.Espera_Sucesso();
        c.form.cmdIniciar->click();
        QVERIFY(QFileInfo(c.Alvo()).size() > 4096);
    }

    void se_o_alvo_for_a_propria_base_ela_sobrevive()
    {
        Copia c;
        // The same file under the name of the copy, as a folder that tells no capitals apart would show it.
        QFile::remove(c.s.Ficheiro(u"Morvex.mdb"_s));
        QVERIFY(QFile::link(c.s.Base(), c.s.Ficheiro(u"Morvex.mdb"_s)));
        c.form.txtCaminhoBackup->setText(c.s.Pasta() + u'/');
        c.form.cmdIniciar->setEnabled(true);
        const QString ficheiro = c.s.Ficheiro(u"Morvex.mdb"_s);
        c.s.caixas.Espera(u"error #75 app %1\rSource and target are one file: %1"_s.arg(ficheiro), 0,
                          u"Error"_s);
        c.form.cmdIniciar->click();
        QVERIFY(c.Ligada());
        QCOMPARE(c.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"3"_s});
    }

    void uma_base_estragada_nao_se_copia_e_a_copia_anterior_fica()
    {
        Copia c;
        Tocar(c.Alvo());
        QFile base(c.s.Base());
        QVERIFY(base.open(QIODevice::ReadWrite));
        base.seek(4096 * 3);
        base.write(QByteArray(4096 * 4, 'x'));
        base.close();
        c.form.txtCaminhoBackup->setText(c.Pasta_Com_Barra());
        c.form.cmdIniciar->setEnabled(true);
        c.form.cmdIniciar->setEnabled(true);
        c.s.caixas.Espera_Qualquer(0, u"Error"_s);
        c.form.cmdIniciar->click();
        QCOMPARE(QFileInfo(c.Alvo()).size(), 5);
        QVERIFY(!QFile::exists(c.Trabalho()));
    }

    void o_menu_abre_a_janela_sem_desligar_a_principal()
    {
        Sistema s;
        Main main(s.geral, s.plataforma);
        main.Carregar();
        accoes::Quando_Abrir<frmBackup>([&](frmBackup &form) {
            QVERIFY(main.isEnabled());
            QCOMPARE(form.windowTitle(), s.Texto(254).remove(u'&'));
            form.cmdSair->click();
        });
        main.mnuBackup->trigger();
    }
};

MORVEX_TESTE(TestFrmBackup)
#include "test_frmBackup.moc"
