// What the server has done without giving its answer. A new task, group, user, account or note, confirmed once more, is
// there once, with what was written since; a deletion can be undone, and is undone once.
#include "cards/LinhaDaAgenda.h"
#include "contacts/DesfazerEliminacao.h"
#include "contacts/frmAddEdit.h"
#include "contacts/frmNovoGrupo.h"
#include "data/Codificar_Pass.h"
#include "online/frmAddEditEmail.h"
#include "reminders/frmAddEditTarefa.h"
#include "session/frmNovoUser.h"
#include "session/Posto.h"
#include "testlib/Accoes.h"
#include "testlib/Teste.h"

#include <algorithm>
#include <QAction>

using namespace Qt::StringLiterals;

namespace
{
// The first Ok arrives and is not answered; something is changed, and Ok pressed once more.
template<class Form>
void Repetir(Posto &p, const std::function<void()> &abrir, const std::function<void(Form &)> &preencher,
             const std::function<void(Form &)> &mudar)
{
    bool veio = false;
    p.s.caixas.Espera_Erro(Failure::StoreError);
    accoes::Quando_Abrir<Form>([&](Form &form) {
        veio = true;
        preencher(form);
        p.servidor.Perder_A_Proxima_Resposta();
        QTest::mouseClick(form.cmdOk, Qt::LeftButton);
        QVERIFY(form.isVisible());
        p.servidor.Voltar();
        p.s.geral.de.Executar("cmdUPDATEIdioma", {u"PortuguesPT"_s}); // the desk goes on writing meanwhile
        mudar(form);
        QTest::mouseClick(form.cmdOk, Qt::LeftButton);
        QVERIFY(!form.isVisible());
    });
    abrir();
    QVERIFY(veio);
    QVERIFY(p.s.caixas.Todas_Vistas());
}

frmMemo *Nota(const QString &titulo)
{
    for (frmMemo *nota : Abertos<frmMemo>())
        if (nota->lblTitle->text() == titulo) return nota;
    return nullptr;
}

// The contact in that row of the list is deleted, and the server goes away over it.
void Eliminar_Sem_Resposta(Posto &p, int linha)
{
    p.lista.setListIndex(linha);
    p.s.caixas.Espera(u"*"_s, box::question | box::yesNo, p.janela.windowTitle(), answer::yes);
    QTest::mouseClick(p.janela.cmdEliminar, Qt::LeftButton);
    QVERIFY(p.s.caixas.Todas_Vistas());
}
void Desfazer(Posto &p)
{
    QVERIFY(p.janela.DesfazerEliminar->isEnabled());
    QTest::keyClick(&p.lista, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(p.s.caixas.Todas_Vistas());
}
QStringList Contactos(Posto &p) { return p.s.Linhas(u"SELECT * FROM TblLista ORDER BY ID"_s); }

QStringList Textos(Posto &p)
{
    return p.s.Linhas(u"SELECT Descricao FROM TblMemos WHERE Titulo='Compras'"_s);
}
} // namespace

class TestRespostaPerdida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uma_tarefa_nova_fica_uma_so()
    {
        Posto p;
        p.s.geral.ModoTarefa = u"Add"_s;
        frmAddEditTarefa form(p.s.geral, p.s.plataforma, p.janela, &p.janela);
        Repetir<frmAddEditTarefa>(
            p, [&] { form.exec(); },
            [&](frmAddEditTarefa &f) {
                f.txtTarefa->setPlainText(u"Ligar"_s);
                f.DataTarefa->setDate(p.s.relogio.now().date().addDays(1));
            },
            [](frmAddEditTarefa &f) { f.txtTarefa->setPlainText(u"Ligar ao banco"_s); });
        QCOMPARE(p.s.Linhas(u"SELECT Tarefa FROM TblTarefas WHERE Tarefa LIKE 'Ligar%'"_s),
                 QStringList{u"Ligar ao banco"_s});
    }

    void um_grupo_novo_fica_um_so()
    {
        Posto p;
        Repetir<frmNovoGrupo>(
            p, [&] { p.janela.CriarGrupos->trigger(); },
            [](frmNovoGrupo &f) { f.txtGrupo->setText(u"Coral"_s); },
            [](frmNovoGrupo &f) { f.txtGrupo->setText(u"Coral da vila"_s); });
        QCOMPARE(p.s.Linhas(u"SELECT NomeGrupo, IdUtilizador FROM TblGrupos WHERE NomeGrupo LIKE 'Coral%'"_s),
                 QStringList{u"Coral da vila|0"_s});
        QVERIFY(p.janela.ComboGrupos->findText(u"Coral da vila"_s) > 0);
    }

    // The first one takes over what belonged to nobody, and that as well must not fall through.
    void o_primeiro_utilizador_fica_um_so_e_recebe_o_que_e_seu()
    {
        Posto p;
        p.s.Escrever(u"DELETE FROM TblUsers"_s);
        frmNovoUser form(p.s.geral, p.s.plataforma, &p.janela);
        Repetir<frmNovoUser>(
            p, [&] { form.exec(); }, [](frmNovoUser &f) { f.campos->txtUser->setText(u"Ana"_s); },
            [](frmNovoUser &f) {
                f.campos->txtPass1->setText(u"segredo"_s);
                f.campos->txtPass2->setText(u"segredo"_s);
            });
        const QStringList ids = p.s.Linhas(u"SELECT ID FROM TblUsers"_s);
        QCOMPARE(ids.size(), 1);
        QCOMPARE(p.s.Linhas(u"SELECT Utilizador, Pass FROM TblUsers"_s),
                 QStringList{u"Ana|"_s + Codificar_Pass(u"segredo"_s)});
        QCOMPARE(p.s.Linhas(u"SELECT DISTINCT IdUtilizador FROM TblGrupos"_s), ids);
        QCOMPARE(p.s.geral.ini.Ler_Ini(u"emailnotify"_s + ids[0], u"minutos"_s), u"60"_s);
    }

    void uma_conta_de_correio_nova_fica_uma_so()
    {
        Posto p;
        p.s.geral.ModoEmail = u"Add"_s;
        frmAddEditEmail form(p.s.geral, &p.janela);
        Repetir<frmAddEditEmail>(
            p, [&] { form.exec(); },
            [](frmAddEditEmail &f) {
                f.txtEmail->setText(u"a@x.example"_s);
                f.txtServerName->setText(u"pop.x.example"_s);
                f.txtUsername->setText(u"a"_s);
                f.txtPalavraPasse->setText(u"abc"_s);
                f.cmdOk->setEnabled(true);
            },
            [](frmAddEditEmail &f) { f.txtServerName->setText(u"pop3.x.example"_s); });
        QCOMPARE(p.s.Linhas(u"SELECT Email, ServerName FROM TblEmails"_s),
                 QStringList{u"a@x.example|pop3.x.example"_s});
    }

    void um_contacto_novo_com_fotografia_na_base_fica_um_so()
    {
        Posto p;
        Repetir<frmAddEdit>(
            p, [&] { p.janela.cmdNovo->click(); },
            [&](frmAddEdit &f) {
                f.txtNome->setText(u"Eva"_s);
                QImage imagem(8, 8, QImage::Format_RGB32);
                imagem.fill(Qt::red);
                QVERIFY(imagem.save(p.s.Ficheiro(u"foto.png"_s)));
                p.s.dialogos.textos << p.s.Ficheiro(u"foto.png"_s);
                f.cmd_foto->click();
                QVERIFY(f.txtFotografia->text().startsWith(u"bd:"_s));
            },
            [](frmAddEdit &f) { f.txtWebsite->setText(u"eva.pt"_s); });
        QCOMPARE(p.s.Linhas(u"SELECT Nome, Website FROM TblLista WHERE Nome='Eva'"_s),
                 QStringList{u"Eva|eva.pt"_s});
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblFotografias"_s), QStringList{u"1"_s});
        QCOMPARE(p.lista.List(p.lista.ListIndex()), u"Eva"_s);
    }

    void um_memo_novo_fica_um_so()
    {
        Posto p;
        p.s.dialogos.textos << u"Compras"_s;
        p.servidor.Perder_A_Proxima_Resposta();
        p.janela.Memo->trigger();
        frmMemo *nota = Nota(u"Compras"_s);
        QVERIFY(nota != nullptr);
        QVERIFY(nota->cmdPorGuardar->isVisible());
        nota->txtMemo->setPlainText(u"leite"_s);
        p.servidor.Voltar();
        p.Recolher();
        QCOMPARE(Textos(p), QStringList{u"leite"_s});
        QCOMPARE(std::ranges::count(Abertos<frmMemo>(), u"Compras"_s,
                                    [](const frmMemo *n) { return n->lblTitle->text(); }),
                 1); // the row has its note, and no second one comes
        nota->txtMemo->setPlainText(u"leite e pão"_s);
        nota->cmdGuardar->click();
        QCOMPARE(Textos(p), QStringList{u"leite e pão"_s});
    }

    void um_memo_mudado_fica_um_so_ainda_que_se_escreva_mais()
    {
        Posto p;
        p.s.dialogos.textos << u"Compras"_s;
        p.janela.Memo->trigger();
        frmMemo *nota = Nota(u"Compras"_s);
        QVERIFY(nota != nullptr);
        nota->txtMemo->setPlainText(u"leite"_s);
        p.servidor.Perder_A_Proxima_Resposta();
        QTest::mouseClick(nota->cmdGuardar, Qt::LeftButton);
        QVERIFY(nota->cmdPorGuardar->isVisible());
        QCOMPARE(Textos(p), QStringList{u"leite"_s});
        nota->txtMemo->setPlainText(u"leite e pão"_s);
        p.servidor.Voltar();
        QCOMPARE(Textos(p), QStringList{u"leite e pão"_s});
    }

    void uma_eliminacao_sem_resposta_desfaz_se()
    {
        Posto p;
        const QStringList antes = Contactos(p);
        p.servidor.Perder_A_Proxima_Resposta();
        Eliminar_Sem_Resposta(p, 3);
        QCOMPARE(Contactos(p).size(), antes.size() - 1);
        p.servidor.Voltar();
        Desfazer(p);
        QCOMPARE(Contactos(p), antes);
        QVERIFY(!p.janela.DesfazerEliminar->isEnabled());
    }

    void de_uma_eliminacao_que_nao_chegou_nao_ha_nada_para_desfazer()
    {
        Posto p;
        const QStringList antes = Contactos(p);
        p.lista.setListIndex(8);
        p.s.caixas.Espera(u"*"_s, box::question | box::yesNo, p.janela.windowTitle(), answer::yes);
        p.janela.cmdEliminar->click();
        p.servidor.Perder_A_Proxima_Escrita();
        Eliminar_Sem_Resposta(p, 3);
        p.servidor.Voltar();
        Desfazer(p); // the one before it
        QCOMPARE(Contactos(p), antes);
        QVERIFY(!p.janela.DesfazerEliminar->isEnabled());
    }

    // Under a new number nobody would know it again.
    void uma_eliminacao_desfeita_sem_resposta_desfaz_se_uma_vez()
    {
        Posto p;
        p.lista.setListIndex(3);
        const int id = p.lista.ItemData(3);
        p.s.caixas.Espera(u"*"_s, box::question | box::yesNo, p.janela.windowTitle(), answer::yes);
        p.janela.cmdEliminar->click();
        p.s.Escrever(u"INSERT INTO TblLista (ID, Nome, Grupo) VALUES (%1, 'Intruso', 1)"_s.arg(id));
        p.s.caixas.Espera(u"*"_s, box::question | box::yesNo, p.janela.windowTitle(), answer::yes);
        p.servidor.Perder_A_Proxima_Resposta();
        Desfazer(p);
        p.servidor.Voltar();
        Desfazer(p); // and nothing is asked
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblLista WHERE Nome = 'Nome 13'"_s), QStringList{u"1"_s});
        QCOMPARE(p.lista.List(p.lista.ListIndex()), u"Nome 13"_s);
        QVERIFY(!p.janela.DesfazerEliminar->isEnabled());
    }

    // The one that stays is as it was, and nobody says that it was changed since.
    void dois_juntos_sem_resposta_separam_se_uma_vez_e_sem_resposta()
    {
        Posto p;
        const QStringList antes = Contactos(p);
        const QString fica = QString::number(p.ids[0]);
        const QString vai = QString::number(p.ids[1]);
        auto &desfazer = *p.janela.findChild<DesfazerEliminacao *>();
        p.servidor.Perder_A_Proxima_Resposta();
        LinhaDaAgenda mudada;
        mudada.colunas[Coluna::Nome] = u"Os dois"_s;
        mudada.colunas[Coluna::IDGrupo] = u"1"_s;
        QVERIFY(!skipFailure([&] {
            desfazer.Juntar_Contactos(fica, vai, [&] {
                linha_da_agenda::Escrever(p.s.geral.de, fica, mudada);
                p.s.geral.de.Executar("cmdEliminarNome", {vai});
            });
        }));
        QVERIFY(!Contactos(p).contains(antes[0]));
        QVERIFY(!Contactos(p).contains(antes[1]));
        p.servidor.Voltar();
        p.servidor.Perder_A_Proxima_Resposta();
        Desfazer(p);
        p.servidor.Voltar();
        Desfazer(p);
        QCOMPARE(Contactos(p), antes);
    }

    // Deleting what may be there has to wait for the server, or it comes back at the next start.
    void um_memo_que_ninguem_sabe_se_chegou_nao_se_deita_fora_sem_servidor()
    {
        Posto p;
        p.s.dialogos.textos << u"Compras"_s;
        p.servidor.Perder_A_Proxima_Resposta();
        p.janela.Memo->trigger();
        frmMemo *nota = Nota(u"Compras"_s);
        QVERIFY(nota != nullptr);
        p.s.caixas.Espera(p.s.Texto(111), box::question | box::yesNo, u"Morvex - Memo"_s, answer::yes);
        QTest::mouseClick(nota->cmdFechar, Qt::LeftButton);
        QVERIFY(nota->isVisible());
        p.servidor.Voltar();
        p.s.caixas.Espera(p.s.Texto(111), box::question | box::yesNo, u"Morvex - Memo"_s, answer::yes);
        QTest::mouseClick(nota->cmdFechar, Qt::LeftButton);
        QCOMPARE(Textos(p), QStringList());
    }
};

MORVEX_TESTE(TestRespostaPerdida)
#include "test_RespostaPerdida.moc"
