// The form of a mail account: when it can be confirmed, and what is then in the database.
#include "data/Codificar_Email.h"
#include "online/frmAddEditEmail.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
QString Codificada(const QString &senha)
{
    QString saida;
    return Codificar_Email(senha, saida);
}

struct Cenario {
    explicit Cenario(const QString &modo) { s.geral.ModoEmail = modo; }

    frmAddEditEmail &Abrir()
    {
        form_ = std::make_unique<frmAddEditEmail>(s.geral, nullptr);
        form_->show();
        return *form_;
    }

    // A stored account, and the one that the form is to change.
    int Nova_Conta(const QString &senha, int IdUtilizador = 0)
    {
        s.geral.de.Executar("cmdInserirEmail", {u"ana@x.example", u"pop.x.example", u"ana", Codificada(senha),
                                                QString::number(IdUtilizador)});
        s.geral.IDContaEmail = static_cast<qint16>(s.Ultimo_Id(u"TblEmails"_s));
        return s.geral.IDContaEmail;
    }

    QStringList Contas()
    {
        return s.Linhas(
            u"SELECT Email || '/' || ServerName || '/' || Username || '/' || PalavraPasse || '/' || "
            "IdUtilizador FROM TblEmails ORDER BY ID"_s);
    }

    Sistema s;

private:
    std::unique_ptr<frmAddEditEmail> form_;
};

void Preencher(const frmAddEditEmail &form, const QString &senha)
{
    form.txtEmail->setText(u"rui@y.example"_s);
    form.txtServerName->setText(u"pop.y.example:995"_s);
    form.txtUsername->setText(u"rui"_s);
    form.txtPalavraPasse->setText(senha);
}
} // namespace

class TestFrmAddEditEmail : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        Cenario c(u"Add"_s);
        c.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form is drawn in Portuguese
        const frmAddEditEmail &form = c.Abrir();
        QCOMPARE(form.lbl1->text(), c.s.Texto(243));
        QCOMPARE(form.lbl2->text(), c.s.Texto(244));
        QCOMPARE(form.lbl3->text(), c.s.Texto(250));
        QCOMPARE(form.lbl4->text(), c.s.Texto(90));
        QCOMPARE(form.cmdOk->text(), u"&Ok"_s);
        QCOMPARE(form.cmdCancelar->text(), c.s.Texto(43));
        QCOMPARE(form.windowTitle(), c.s.Texto(248));
        for (const QLineEdit *caixa :
             {form.txtEmail, form.txtServerName, form.txtUsername, form.txtPalavraPasse})
            QCOMPARE(caixa->maxLength(), 50);
        QVERIFY(!form.IconEditarEmail->isVisible());
    }

    void editar_mostra_a_conta_como_esta_guardada()
    {
        Cenario c(u"Edit"_s);
        c.Nova_Conta(u"Segredo7"_s);
        const frmAddEditEmail &form = c.Abrir();
        QCOMPARE(form.windowTitle(), c.s.Texto(249));
        QCOMPARE(form.windowIcon().cacheKey(), form.IconEditarEmail->icon().cacheKey());
        QCOMPARE(form.txtEmail->text(), u"ana@x.example"_s);
        QCOMPARE(form.txtServerName->text(), u"pop.x.example"_s);
        QCOMPARE(form.txtUsername->text(), u"ana"_s);
        QCOMPARE(form.txtPalavraPasse->text(), Codificada(u"Segredo7"_s));
        QCOMPARE(c.s.geral.de.Rs("cmdDadosEmail").State(), Recordset::Closed);
    }

    void ok_so_com_as_quatro_caixas_cheias_em_100_ms()
    {
        Cenario c(u"Add"_s);
        const frmAddEditEmail &form = c.Abrir();
        QVERIFY(!form.cmdOk->isEnabled());
        Preencher(form, u"abc"_s);
        QTRY_VERIFY_WITH_TIMEOUT(form.cmdOk->isEnabled(), 1000);
        for (QLineEdit *caixa : {form.txtEmail, form.txtServerName, form.txtUsername, form.txtPalavraPasse}) {
            const QString antes = caixa->text();
            caixa->clear();
            QTRY_VERIFY_WITH_TIMEOUT(!form.cmdOk->isEnabled(), 1000);
            caixa->setText(antes);
            QTRY_VERIFY_WITH_TIMEOUT(form.cmdOk->isEnabled(), 1000);
        }
    }

    void uma_tecla_largada_aplica_a_regra_logo_e_torna_ok_o_botao_de_enter()
    {
        Cenario c(u"Add"_s);
        const frmAddEditEmail &form = c.Abrir();
        Preencher(form, u"ab"_s);
        QVERIFY(!form.cmdOk->isEnabled());
        QTest::keyClick(form.txtPalavraPasse, Qt::Key_C);
        QVERIFY(form.cmdOk->isEnabled());
        QVERIFY(form.cmdOk->isDefault());
        form.txtEmail->setText(u"x"_s);
        QTest::keyClick(form.txtEmail, Qt::Key_Backspace);
        QVERIFY(!form.cmdOk->isEnabled());
    }

    void adicionar_insere_a_conta_com_a_senha_codificada()
    {
        Cenario c(u"Add"_s);
        frmAddEditEmail &form = c.Abrir();
        Preencher(form, u"Segredo7"_s);
        QTest::keyClick(form.txtPalavraPasse, Qt::Key_End);
        QTest::keyClick(form.txtPalavraPasse, Qt::Key_Return);
        QVERIFY(!form.isVisible());
        QCOMPARE(form.result(), static_cast<int>(QDialog::Accepted));
        QCOMPARE(c.Contas(), QStringList{u"rui@y.example/pop.y.example:995/rui/"_s +
                                         Codificada(u"Segredo7"_s) + u"/0"_s});
    }

    void a_conta_pertence_a_quem_entrou()
    {
        Cenario c(u"Add"_s);
        const QString id = QString::number(c.s.Novo_Utilizador(u"Ana"_s, u"x"_s));
        c.s.Entrar(u"Ana"_s);
        const frmAddEditEmail &form = c.Abrir();
        Preencher(form, u"abc"_s);
        QTRY_VERIFY(form.cmdOk->isEnabled());
        form.cmdOk->click();
        QCOMPARE(c.s.Linhas(u"SELECT IdUtilizador FROM TblEmails"_s), QStringList{id});
    }

    void editar_muda_so_essa_conta()
    {
        Cenario c(u"Edit"_s);
        c.Nova_Conta(u"um"_s);
        const QString outra = c.Contas().constFirst();
        c.Nova_Conta(u"dois"_s);
        const frmAddEditEmail &form = c.Abrir();
        Preencher(form, u"nova9"_s);
        QTRY_VERIFY(form.cmdOk->isEnabled());
        form.cmdOk->click();
        QCOMPARE(c.Contas(), QStringList({outra, u"rui@y.example/pop.y.example:995/rui/"_s +
                                                     Codificada(u"nova9"_s) + u"/0"_s}));
    }

    void editar_sem_tocar_na_senha_codifica_a_outra_vez()
    {
        Cenario c(u"Edit"_s);
        c.Nova_Conta(u"Segredo7"_s);
        const frmAddEditEmail &form = c.Abrir();
        QTRY_VERIFY(form.cmdOk->isEnabled());
        form.cmdOk->click();
        const QString guardada = c.s.Linhas(u"SELECT PalavraPasse FROM TblEmails"_s).constFirst();
        QVERIFY(guardada != Codificada(u"Segredo7"_s));
        QCOMPARE(guardada, Codificada(Codificada(u"Segredo7"_s)));
    }

    void uma_senha_com_brancos_ou_acentos_guarda_o_anterior_em_seu_lugar()
    {
        Cenario c(u"Add"_s);
        const frmAddEditEmail &form = c.Abrir();
        Preencher(form, u"a bç"_s);
        QTRY_VERIFY(form.cmdOk->isEnabled());
        form.cmdOk->click();
        QCOMPARE(c.s.Linhas(u"SELECT PalavraPasse FROM TblEmails"_s), QStringList{Codificada(u"aabb"_s)});
    }

    void o_que_saiu_da_ultima_senha_comeca_a_seguinte()
    {
        Cenario c(u"Add"_s);
        for (const QString &senha : {u"abc"_s, u" x"_s}) {
            const frmAddEditEmail &form = c.Abrir();
            Preencher(form, senha);
            QTRY_VERIFY(form.cmdOk->isEnabled());
            form.cmdOk->click();
        }
        QCOMPARE(c.s.Linhas(u"SELECT PalavraPasse FROM TblEmails ORDER BY ID"_s),
                 QStringList({Codificada(u"abc"_s), Codificada(u"cx"_s)}));
    }

    void outro_modo_fecha_sem_escrever()
    {
        Cenario c(u"Ver"_s);
        frmAddEditEmail &form = c.Abrir();
        Preencher(form, u"abc"_s);
        QTRY_VERIFY(form.cmdOk->isEnabled());
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
        QVERIFY(c.Contas().isEmpty());
    }

    void escape_e_cancelar_fecham_sem_escrever_data()
    {
        QTest::addColumn<bool>("pelo_botao");
        QTest::newRow("cancelar") << true;
        QTest::newRow("escape") << false;
    }
    void escape_e_cancelar_fecham_sem_escrever()
    {
        QFETCH(bool, pelo_botao);
        Cenario c(u"Add"_s);
        frmAddEditEmail &form = c.Abrir();
        Preencher(form, u"abc"_s);
        if (pelo_botao)
            form.cmdCancelar->click();
        else
            QTest::keyClick(form.txtEmail, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
        QCOMPARE(form.result(), static_cast<int>(QDialog::Rejected));
        QVERIFY(c.Contas().isEmpty());
    }
};

MORVEX_TESTE(TestFrmAddEditEmail)
#include "test_frmAddEditEmail.moc"
