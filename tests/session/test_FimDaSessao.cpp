// The end from outside: what is saved, what is kept and offered again, and in which order the program goes.
#include "contacts/frmAddEdit.h"
#include "memos/frmMemo.h"
#include "reminders/frmAddEditTarefa.h"
#include "session/FimDaSessao.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{
class FimFalso final : public SessionEnd
{
    Q_OBJECT
public:
    void Acabar() { Q_EMIT ending(); }
    // The desktop asks. True if its session is to go on.
    bool Sair_Da_Sessao(bool deixa_perguntar)
    {
        struct Saida final : Logout {
            bool mayAsk() override { return ++perguntou, deixa; }
            void refuse() override { recusou = true; }
            bool deixa = false, recusou = false;
            int perguntou = 0;
        } saida;
        saida.deixa = deixa_perguntar;
        Q_EMIT loggingOut(saida);
        pediu_para_perguntar = saida.perguntou > 0;
        return saida.recusou;
    }
    bool pediu_para_perguntar = false;
};

struct Programa {
    Programa()
    {
        s.Escrever(u"DELETE FROM TblMemos"_s);
        s.Escrever(u"INSERT INTO TblMemos (Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, "
                   u"FontSize, FontBold, "
                   "FontItalic, CorFundo, Utilizador) VALUES "
                   "('Compras','pão','495','645','2775','1395','Tahoma',8.25,0,0,"
                   "65535,0)"_s);
        s.Novo_Contacto({{u"Nome"_s, Value(u"Rita"_s)}});
        janela.Carregar();
        janela.ListaNomes->setListIndex(0);
    }

    // Opens the editor of a new contact, does that in it, and leaves it by Cancelar if it is still open.
    void Novo_Contacto(const std::function<void(frmAddEdit &)> &accao)
    {
        Abrir<frmAddEdit>([this] { janela.cmdNovo->click(); }, accao);
    }
    void Editar_Contacto(const std::function<void(frmAddEdit &)> &accao)
    {
        Abrir<frmAddEdit>([this] { janela.cmdEditar->click(); }, accao);
    }
    void Nova_Tarefa(const std::function<void(frmAddEditTarefa &)> &accao)
    {
        Abrir<frmAddEditTarefa>([this] { janela.NovaTarefa->trigger(); }, accao);
    }
    // A contact was being written when the process had to end; the program is then started anew.
    void Interromper_Novo_Contacto(const QString &nome)
    {
        Novo_Contacto([&](frmAddEdit &form) {
            form.txtNome->setText(nome);
            fim.Acabar();
            rascunho = Rascunho();
        });
        // A process that ends closes no form; this one did.
        QFile ficheiro(s.Ficheiro(u"rascunho.json"_s));
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.write(rascunho);
    }
    QByteArray Rascunho() const
    {
        QFile ficheiro(s.Ficheiro(u"rascunho.json"_s));
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
    }
    void Espera_Oferta(int resposta)
    {
        s.caixas.Espera(u"O que escreveu aqui da última vez não chegou a ser confirmado. Deseja retomá-lo?"_s,
                        36, s.Texto(26).remove(u'&'), resposta);
    }
    void Espera_Pergunta(int resposta)
    {
        s.caixas.Espera(u"O que escreveu ainda não está confirmado. Deseja terminar a sessão agora? O texto "
                        "ser-lhe-á oferecido quando voltar a abrir o formulário."_s,
                        52, QApplication::applicationName(), resposta);
    }
    QString Nota() { return s.Linhas(u"SELECT Descricao FROM TblMemos"_s).join(u'/'); }
    static frmMemo *Nota_Aberta()
    {
        for (QWidget *janela : QApplication::topLevelWidgets())
            if (auto *nota = qobject_cast<frmMemo *>(janela); nota != nullptr && nota->isVisible())
                return nota;
        return nullptr;
    }

    Sistema s;
    FimFalso fim;
    FimDaSessao fim_da_sessao{fim, s.geral, s.plataforma};
    Main janela{s.geral, s.plataforma};
    QByteArray rascunho;

private:
    template<class Formulario>
    static void Abrir(const std::function<void()> &comando, const std::function<void(Formulario &)> &accao)
    {
        bool abriu = false;
        accoes::Quando_Abrir<Formulario>([&](Formulario &form) {
            abriu = true;
            QCoreApplication::sendPostedEvents(); // what is offered is offered now
            accao(form);
            if (form.isVisible()) form.reject();
        });
        comando();
        QVERIFY(abriu);
    }
};
} // namespace

class TestFimDaSessao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ao_acabar_vao_os_icones_a_ligacao_e_o_processo()
    {
        Programa p;
        p.s.tabuleiro.historia.clear();
        p.s.geral.de.Abrir("cmdVerConfig");
        p.fim.Acabar();
        QCOMPARE(p.s.tabuleiro.historia, (QStringList{u"-1"_s, u"-2"_s}));
        QCOMPARE(p.s.geral.de.Rs("cmdVerConfig").State(), Recordset::Closed);
        QCOMPARE(p.s.processo.fins, 1);
        p.fim.Acabar();
        QCOMPARE(p.s.processo.fins, 1); // its last events change nothing
        QVERIFY(p.Rascunho().isEmpty());
    }

    void com_tarefas_pendentes_ninguem_e_perguntado()
    {
        Programa p;
        p.s.geral.de.Executar("cmdAdicionarTarefa", {u"Ligar"_s, u"01-03-2027"_s, u"10:00"_s, 0, 1});
        p.fim.Acabar();
        QVERIFY(p.s.processo.Terminou());
    }

    void a_nota_por_guardar_fica_guardada()
    {
        Programa p;
        frmMemo *nota = Programa::Nota_Aberta();
        QVERIFY(nota != nullptr);
        nota->txtMemo->setPlainText(u"pão e leite"_s);
        QCOMPARE(p.Nota(), u"pão"_s);
        p.fim.Acabar();
        QCOMPARE(p.Nota(), u"pão e leite"_s);
    }

    void a_base_que_recusa_a_nota_nao_prende_o_processo()
    {
        Programa p;
        p.s.Recusar(u"UPDATE"_s, u"TblMemos"_s);
        Programa::Nota_Aberta()->txtMemo->setPlainText(u"pão e leite"_s);
        p.fim.Acabar();
        QVERIFY(p.s.processo.Terminou());
    }

    void o_contacto_por_confirmar_nao_entra_na_base_e_volta_a_ser_oferecido()
    {
        Programa p;
        const QStringList antes = p.s.Linhas(u"SELECT Nome FROM TblLista"_s);
        p.Interromper_Novo_Contacto(u"Célia"_s);
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista"_s), antes);
        QVERIFY(p.rascunho.contains("Célia"));

        p.Espera_Oferta(answer::yes);
        p.Novo_Contacto([&](frmAddEdit &form) {
            QCOMPARE(form.txtNome->text(), u"Célia"_s);
            form.cmdOk->click();
        });
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista WHERE Nome = 'Célia'"_s), QStringList{u"Célia"_s});
        QVERIFY(p.Rascunho().isEmpty()); // confirmed: nothing is left to offer
    }

    void o_rascunho_recusado_desaparece_e_o_formulario_fica_vazio()
    {
        Programa p;
        p.Interromper_Novo_Contacto(u"Célia"_s);
        p.Espera_Oferta(answer::no);
        p.Novo_Contacto([&](frmAddEdit &form) {
            QVERIFY(form.txtNome->text().isEmpty());
            QVERIFY(p.Rascunho().isEmpty());
        });
        QVERIFY(p.s.caixas.Todas_Vistas());
        p.Novo_Contacto([](frmAddEdit &) {}); // no box comes
    }

    void o_rascunho_de_um_contacto_novo_nao_e_oferecido_noutro_nem_a_outro_utilizador()
    {
        Programa p;
        p.Interromper_Novo_Contacto(u"Célia"_s);
        p.Editar_Contacto([](frmAddEdit &form) { QVERIFY(form.txtNome->text() != u"Célia"_s); });
        p.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        p.s.Entrar(u"Ana"_s);
        p.Novo_Contacto([](frmAddEdit &form) { QVERIFY(form.txtNome->text().isEmpty()); });
        QCOMPARE(p.Rascunho(), p.rascunho);
    }

    void o_editor_em_que_ninguem_escreveu_nao_deixa_rascunho()
    {
        Programa p;
        p.Editar_Contacto([&](frmAddEdit &) {
            p.fim.Acabar();
            QVERIFY(p.Rascunho().isEmpty());
        });
        QVERIFY(p.s.processo.Terminou());
    }

    void a_tarefa_por_confirmar_guarda_texto_data_e_hora()
    {
        Programa p;
        QByteArray rascunho;
        p.Nova_Tarefa([&](frmAddEditTarefa &form) {
            form.txtTarefa->setPlainText(u"Ligar ao Rui"_s);
            form.DataTarefa->setDate({2027, 5, 4});
            form.HoraTarefa->setTime({17, 30});
            p.fim.Acabar();
            rascunho = p.Rascunho();
        });
        QFile ficheiro(p.s.Ficheiro(u"rascunho.json"_s));
        QVERIFY(ficheiro.open(QIODevice::WriteOnly) && ficheiro.write(rascunho) == rascunho.size());
        ficheiro.close();
        p.s.caixas.Espera(
            u"O que escreveu aqui da última vez não chegou a ser confirmado. Deseja retomá-lo?"_s, 36,
            p.s.Texto(149).remove(u'&'), answer::yes);
        p.Nova_Tarefa([](frmAddEditTarefa &form) {
            QCOMPARE(form.txtTarefa->toPlainText(), u"Ligar ao Rui"_s);
            QCOMPARE(form.DataTarefa->date(), QDate(2027, 5, 4));
            QCOMPARE(form.HoraTarefa->time(), QTime(17, 30));
        });
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    // A later version must find what this one has left.
    void o_ficheiro_chama_cada_registo_pelo_seu_nome()
    {
        Programa p;
        QStringList registos;
        const auto guardar = [&] {
            QVERIFY(p.s.geral.rascunhos.Guardar());
            const QJsonArray guardados = QJsonDocument::fromJson(p.Rascunho()).array();
            QCOMPARE(guardados.size(), 1);
            registos << guardados[0][u"editor"_s][u"registo"_s].toString();
        };
        const auto contacto = [&](frmAddEdit &form) {
            form.txtNome->setText(u"Célia"_s);
            guardar();
        };
        const auto tarefa = [&](frmAddEditTarefa &form) {
            form.txtTarefa->setPlainText(u"Ligar ao Rui"_s);
            guardar();
        };
        p.Novo_Contacto(contacto);
        p.Editar_Contacto(contacto);
        p.Nova_Tarefa(tarefa);
        QCOMPARE(registos, (QStringList{u"contacto novo"_s, u"contacto %1"_s.arg(p.s.geral.IDContacto),
                                        u"tarefa nova"_s}));
    }

    void um_ficheiro_estragado_nada_oferece()
    {
        Programa p;
        QFile ficheiro(p.s.Ficheiro(u"rascunho.json"_s));
        QVERIFY(ficheiro.open(QIODevice::WriteOnly) && ficheiro.write("[{\"editor\": 3, ") > 0);
        ficheiro.close();
        p.Novo_Contacto([](frmAddEdit &form) { QVERIFY(form.txtNome->text().isEmpty()); });
    }

    // The desktop's session

    void sem_nada_por_confirmar_a_sessao_sai_sem_perguntas_e_guarda_as_notas()
    {
        Programa p;
        Programa::Nota_Aberta()->txtMemo->setPlainText(u"pão e leite"_s);
        QVERIFY(!p.fim.Sair_Da_Sessao(true));
        QVERIFY(!p.fim.pediu_para_perguntar);
        QCOMPARE(p.Nota(), u"pão e leite"_s);
        QVERIFY(!p.s.processo.Terminou()); // somebody else may still refuse
    }

    void com_um_editor_por_confirmar_a_sessao_espera_pela_resposta_data()
    {
        QTest::addColumn<int>("resposta");
        QTest::newRow("sim") << answer::yes;
        QTest::newRow("nao") << answer::no;
    }
    void com_um_editor_por_confirmar_a_sessao_espera_pela_resposta()
    {
        QFETCH(int, resposta);
        Programa p;
        p.Espera_Pergunta(resposta);
        p.Novo_Contacto([&](frmAddEdit &form) {
            form.txtNome->setText(u"Célia"_s);
            QCOMPARE(p.fim.Sair_Da_Sessao(true), resposta == answer::no);
            QVERIFY(form.isVisible());
            QVERIFY(p.Rascunho().contains("Célia")); // safe either way
        });
        QVERIFY(p.s.caixas.Todas_Vistas());
        QVERIFY(p.Rascunho().isEmpty()); // given up by hand
    }

    void a_sessao_que_nao_deixa_perguntar_acaba_com_o_rascunho_guardado()
    {
        Programa p;
        p.Novo_Contacto([&](frmAddEdit &form) {
            form.txtNome->setText(u"Célia"_s);
            QVERIFY(!p.fim.Sair_Da_Sessao(false));
            QVERIFY(p.Rascunho().contains("Célia"));
        });
    }

    void a_pergunta_do_fim_da_sessao_esta_escrita_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("pergunta");
        QTest::newRow("PortuguesPT")
            << u"O que escreveu ainda não está confirmado. Deseja terminar a sessão agora? O texto ser-lhe-á oferecido quando voltar a abrir o formulário."_s;
        QTest::newRow("PortuguesBR")
            << u"O que você escreveu ainda não está confirmado. Deseja encerrar a sessão agora? O texto será oferecido quando você abrir o formulário novamente."_s;
        QTest::newRow("InglesUK")
            << u"What you typed is not confirmed yet. Would you like to end the session now? The text will be offered to you when you open the form again."_s;
        QTest::newRow("EspanholES")
            << u"Lo que ha escrito aún no está confirmado. ¿Desea cerrar la sesión ahora? Se le ofrecerá el texto cuando vuelva a abrir el formulario."_s;
        QTest::newRow("ItalianoIT")
            << u"Quanto ha scritto non è ancora confermato. Desidera terminare la sessione ora? Il testo Le sarà proposto quando riaprirà il modulo."_s;
        QTest::newRow("FrancesFR")
            << u"Votre saisie n’est pas encore confirmée. Voulez-vous fermer la session maintenant\u00a0? Le texte vous sera proposé lorsque vous rouvrirez le formulaire."_s;
        QTest::newRow("AlemaoDE")
            << u"Ihre Eingabe ist noch nicht bestätigt. Möchten Sie die Sitzung jetzt beenden? Der Text wird Ihnen angeboten, wenn Sie das Formular wieder öffnen."_s;
    }
    void a_pergunta_do_fim_da_sessao_esta_escrita_em_cada_lingua()
    {
        QFETCH(QString, pergunta);
        Programa p;
        p.Novo_Contacto([&](frmAddEdit &form) {
            form.txtNome->setText(u"Rui"_s);
            p.s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
            p.s.caixas.Espera(pergunta, 52, QApplication::applicationName(), answer::no);
            QVERIFY(p.fim.Sair_Da_Sessao(true));
            QVERIFY(p.s.caixas.Todas_Vistas());
        });
    }
};

MORVEX_TESTE(TestFimDaSessao)
#include "test_FimDaSessao.moc"
