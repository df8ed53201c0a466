// The import of a text file, from the choice of the file to the rows in the database.
#include "interchange/frmImportar.h"

#include "interchange/frmImportar2.h"
#include "interchange/frmImportarMDB.h"
#include "interchange/Intercambio.h"
#include "interchange/RegistoMorvex.h"
#include "controls/ListBox.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/OutrosNomes.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using accoes::Quando_Abrir;

namespace
{
QString Dado(const QString &nome) { return QFINDTESTDATA(u"fixtures/dat/"_s + nome); }

QJsonObject Manifesto(const QString &nome)
{
    QFile ficheiro(Dado(nome));
    return ficheiro.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(ficheiro.readAll()).object()
                                              : QJsonObject();
}

// The rows that a manifest promises, cell by cell. One file has too many to list, and a rule in their place.
QList<QStringList> Esperadas(const QJsonObject &manifesto)
{
    const auto grupo = u"1"_s; // the first of the list, which is chosen when the form comes
    QList<QStringList> linhas;
    if (manifesto.contains(u"rule"_s))
        for (int i = 1; i <= manifesto[u"count_shown"_s].toInt(); ++i) {
            QStringList linha(17, u""_s);
            linha[0] = u"N%1"_s.arg(i, 4, 10, QChar(u'0'));
            linha[1] = QString::number(i);
            linha[7] = u"1"_s;
            linha[8] = u"5"_s;
            linha[16] = grupo;
            linhas << linha;
        }
    for (const auto &linha : manifesto[u"rows"_s].toArray()) {
        QStringList celulas;
        for (const auto &celula : linha.toArray())
            celulas << (celula.toString() == u"<grupo>"_s ? grupo : celula.toString());
        linhas << celulas;
    }
    return linhas;
}

struct Programa {
    explicit Programa(const QString &idioma = u"PortuguesPT"_s)
        : s(Sistema::Estado::Semeado, idioma), main(s.geral, s.plataforma)
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        main.Carregar();
    }

    // A copy in the test's own folder: what is imported must be writable.
    QString Copia(const QString &nome)
    {
        const QString destino = s.Ficheiro(QFileInfo(nome).fileName());
        QFile::copy(Dado(nome), destino);
        QFile::setPermissions(destino, QFile::permissions(destino) | QFileDevice::WriteOwner);
        return destino;
    }

    // An older database has been open, and the failure step has a connection to close.
    void Abrir_Uma_Base()
    {
        auto &intercambio = *main.findChild<Intercambio *>();
        intercambio.FileName = QFINDTESTDATA("fixtures/jet/vazia.mdb");
        intercambio.De2();
    }

    // Chooses the file and does that to the second form.
    void Ate_Ao_Grupo(const QString &caminho, const std::function<void(frmImportar2 &)> &accao)
    {
        s.dialogos.textos << caminho;
        Quando_Abrir<frmImportar>([accao](frmImportar &form) {
            form.cmdProcurar->click();
            Quando_Abrir<frmImportar2>(accao);
            form.cmdSeguinte->click();
        });
        main.Importar->trigger();
    }

    // A text file of these bytes.
    QString Texto(const QString &nome, const QByteArray &bytes)
    {
        QFile ficheiro(s.Ficheiro(nome));
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size())
            QTest::qFail("the file was not written", __FILE__, __LINE__);
        return ficheiro.fileName();
    }

    // Chooses the file and goes on.
    void Importar(const QString &caminho)
    {
        s.dialogos.textos << caminho;
        Quando_Abrir<frmImportar>([](frmImportar &form) {
            form.cmdProcurar->click();
            form.cmdSeguinte->click();
            if (form.isVisible()) form.reject(); // a failure leaves it open
        });
        main.Importar->trigger();
    }

    QStringList Linhas()
    {
        return s.Linhas(
            u"SELECT Nome,Telefone1,Telefone2,Fax,Telemovel1,Telemovel2,Telemovel3,Dia,Mes,Ano,Email1,"
            "Email2,Website,Morada,Obs,Fotografia,Grupo FROM TblLista ORDER BY ID"_s);
    }

    Sistema s;
    Main main;
};
} // namespace

class TestFrmImportar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_ficheiro_da_as_linhas_do_seu_manifesto_data()
    {
        QTest::addColumn<QString>("nome");
        const QStringList ficheiros = QDir(QFINDTESTDATA("fixtures/dat")).entryList({u"*.dat"_s});
        QCOMPARE(ficheiros.size(), 14);
        for (const QString &ficheiro : ficheiros)
            QTest::newRow(qPrintable(ficheiro)) << QFileInfo(ficheiro).completeBaseName() + u".json"_s;
    }
    void cada_ficheiro_da_as_linhas_do_seu_manifesto()
    {
        QFETCH(QString, nome);
        const QJsonObject manifesto = Manifesto(nome);
        QCOMPARE(QFileInfo(Dado(manifesto[u"file"_s].toString())).completeBaseName() + u".json"_s, nome);
        QCOMPARE(QFileInfo(Dado(manifesto[u"file"_s].toString())).size(), manifesto[u"bytes"_s].toInt());
        Programa p;
        const QString caminho = p.Copia(manifesto[u"file"_s].toString());
        const bool escolhido = manifesto[u"choose"_s].toString() == u"ok"_s;
        const bool termina = !escolhido || manifesto[u"outcome"_s].toString() == u"process ends"_s;
        if (escolhido) QCOMPARE(registo_morvex::Ler_Linhas(caminho).size(), manifesto[u"lines"_s].toInt());
        if (termina) p.s.caixas.Espera_Erro(escolhido ? 5 : Failure::StoreError);
        bool segunda_veio = false;
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            form.cmdProcurar->click();
            QVERIFY(form.cmdSeguinte->isEnabled());
            if (escolhido)
                Quando_Abrir<frmImportar2>([&](frmImportar2 &segunda) {
                    segunda_veio = true;
                    QCOMPARE(segunda.Label3->text(),
                             p.s.Texto(86) + u' ' + QString::number(manifesto[u"count_shown"_s].toInt()));
                    segunda.cmdSeguinte->click();
                    if (segunda.isVisible()) segunda.reject(); // only where the process would have ended
                });
            form.cmdSeguinte->click();
            if (form.isVisible()) form.reject();
        });
        p.s.dialogos.textos << caminho;
        p.main.Importar->trigger();

        QCOMPARE(segunda_veio, escolhido);
        QCOMPARE(p.s.processo.Terminou(), termina);
        QStringList colunas;
        for (const auto &coluna : manifesto[u"columns"_s].toArray())
            colunas << coluna.toString();
        QCOMPARE(colunas.size(), 17);
        const QList<QStringList> esperadas = Esperadas(manifesto);
        if (escolhido && !termina) QCOMPARE(esperadas.size(), manifesto[u"count_shown"_s].toInt());
        if (manifesto.contains(u"bad_record"_s))
            QCOMPARE(esperadas.size(), manifesto[u"bad_record"_s].toInt() - 1);
        Recordset rs = p.s.Ler(u"SELECT %1 FROM TblLista ORDER BY ID"_s.arg(colunas.join(u',')));
        QCOMPARE(rs.RecordCount(), esperadas.size());
        for (const QStringList &esperada : esperadas) {
            QCOMPARE(rs.Row(), esperada);
            rs.MoveNext();
        }
        if (!termina) QCOMPARE(p.main.ListaNomes->ListCount(), esperadas.size());
    }

    void cinco_mil_linhas_vao_para_o_passo_de_falha_que_termina_um_processo_novo()
    {
        Programa p;
        p.s.caixas.Espera_Erro(Failure::StoreError); // the text file is no older database either
        p.Importar(p.Copia(u"linhas_5000.dat"_s));
        QVERIFY(p.s.processo.Terminou());
        QVERIFY(p.Linhas().isEmpty());
    }

    void com_uma_base_ja_aberta_a_falha_diz_o_texto_87_e_o_caminho()
    {
        Programa p;
        p.Abrir_Uma_Base();
        const QString caminho = p.Copia(u"linhas_5000.dat"_s);
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + caminho, 16, p.s.Texto(82));
        p.Importar(caminho);
        QVERIFY(!p.s.processo.Terminou());
        QVERIFY(p.main.isEnabled());
    }

    void um_ficheiro_que_nao_se_pode_escrever_vai_para_o_passo_de_falha()
    {
        if (!SemPrivilegios().Possivel()) QSKIP("the rights of an administrator cannot be put off here");
        Programa p;
        p.Abrir_Uma_Base();
        const QString caminho = p.Copia(u"normal.dat"_s);
        for (const QFileInfo &ficheiro : QDir(p.s.Pasta()).entryInfoList(QDir::Files))
            QFile::setPermissions(ficheiro.filePath(), QFile::Permissions(0x6666));
        QFile::setPermissions(p.s.Pasta(), QFile::Permissions(0x7777));
        QFile::setPermissions(caminho, QFile::Permissions(0x4444));
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + caminho, 16, p.s.Texto(82));
        {
            const SemPrivilegios ninguem;
            p.Importar(caminho);
        }
        QVERIFY(p.s.caixas.Todas_Vistas());
        QVERIFY(!p.s.processo.Terminou());
        QVERIFY(p.Linhas().isEmpty());
    }

    // Whoever opens a pipe waits for somebody at its other end, and a device may never come to an end.
    void um_tubo_ou_um_dispositivo_com_nome_de_texto_recusa_se_data()
    {
        QTest::addColumn<bool>("tubo");
        QTest::newRow("tubo") << true;
        QTest::newRow("dispositivo") << false;
    }
    void um_tubo_ou_um_dispositivo_com_nome_de_texto_recusa_se()
    {
        if (!outros_nomes::ha_tubos) QSKIP("no folder holds a pipe or a device here");
        QFETCH(bool, tubo);
        Programa p;
        const QString caminho = p.s.Ficheiro(u"antigo.dat"_s);
        QVERIFY(tubo ? outros_nomes::Fazer_Tubo(caminho) : outros_nomes::Fazer_Atalho(u"/dev/full"_s, caminho));
        VERIFICAR_FALHA(registo_morvex::Ler_Linhas(caminho), Failure::PathFileAccess);
        p.s.caixas.Espera_Erro(Failure::StoreError); // a new process has no older database to close
        p.Importar(caminho);
        QVERIFY(p.s.processo.Terminou());
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"0"_s});
    }

    void cancelar_o_dialogo_perde_a_escolha_anterior()
    {
        Programa p;
        p.s.dialogos.textos << u"/um/ficheiro.dat"_s << std::nullopt;
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            QVERIFY(!form.cmdSeguinte->isEnabled());
            form.cmdProcurar->click();
            QCOMPARE(form.txtCaminho->text(), u"/um/ficheiro.dat"_s);
            QVERIFY(form.cmdSeguinte->isEnabled());
            form.cmdProcurar->click();
            QCOMPARE(form.txtCaminho->text(), QString());
            QVERIFY(!form.cmdSeguinte->isEnabled());
            QVERIFY(!p.main.isEnabled());
            form.cmdCancelar->click();
            QVERIFY(p.main.isEnabled()); // from the moment it closes
        });
        p.main.Importar->trigger();
        QCOMPARE(p.main.findChild<Intercambio *>()->FileName, QString());
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
        QVERIFY(p.s.dialogos.perguntas.constFirst().startsWith(u"openFile "_s + p.s.Texto(81) +
                                                               u"|*.dat;*.mdb @"_s));
        QVERIFY(p.main.isEnabled());
    }

    void uma_falha_ao_procurar_perde_a_escolha_sem_uma_palavra()
    {
        SO_NUM_FICHEIRO("a server that lost its texts has the program's");
        Programa p;
        p.s.dialogos.textos << u"/um/ficheiro.dat"_s;
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            form.cmdProcurar->click();
            QVERIFY(form.cmdSeguinte->isEnabled());
            p.s.Escrever(u"DROP TABLE TblIdiomas"_s);
            form.cmdProcurar->click();
            QCOMPARE(form.txtCaminho->text(), QString());
            QVERIFY(!form.cmdSeguinte->isEnabled());
            form.cmdCancelar->click();
        });
        p.main.Importar->trigger();
    }

    void uma_janela_que_nao_carrega_deixa_a_principal_viva()
    {
        SO_NUM_FICHEIRO("a server that lost its texts has the program's");
        Programa p;
        p.s.Escrever(u"DROP TABLE TblIdiomas"_s);
        VERIFICAR_FALHA(p.main.findChild<QAction *>(u"Importar"_s)->trigger(), Failure::StoreError);
        QVERIFY(p.main.isEnabled());
    }

    void as_janelas_tem_os_seus_textos()
    {
        Programa p(u"FrancesFR"_s); // the design has them in Portuguese
        p.s.dialogos.textos << p.Copia(u"normal.dat"_s);
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            QCOMPARE(form.windowTitle(), p.s.Texto(82));
            QCOMPARE(form.Label1->text(), p.s.Texto(83));
            QCOMPARE(form.Label2->text(), p.s.Texto(84));
            QCOMPARE(form.cmdProcurar->text(), p.s.Texto(69));
            QCOMPARE(form.cmdSeguinte->text(), p.s.Texto(71));
            QCOMPARE(form.cmdCancelar->text(), p.s.Texto(43));
            form.cmdProcurar->click();
            Quando_Abrir<frmImportar2>([&](frmImportar2 &segunda) {
                QCOMPARE(segunda.Label1->text(), p.s.Texto(83));
                QCOMPARE(segunda.Label2->text(), p.s.Texto(85));
                QCOMPARE(segunda.cmdSeguinte->text(), p.s.Texto(71));
                QCOMPARE(segunda.cmdCancelar->text(), p.s.Texto(43));
                QVERIFY(!segunda.txtGrupoID->isVisible());
                QVERIFY(!segunda.ListaMorvex43->isVisible());
                QCOMPARE(segunda.ComboGrupos->ListIndex(), 0);
                segunda.cmdCancelar->click();
            });
            form.cmdSeguinte->click();
        });
        p.main.Importar->trigger();
        QVERIFY(p.Linhas().isEmpty());
    }

    void so_as_tres_ultimas_letras_fazem_um_texto()
    {
        Programa p;
        bool veio = false;
        p.Ate_Ao_Grupo(p.Texto(u"semponto_dat"_s, "x"), [&](frmImportar2 &segunda) {
            veio = true;
            QVERIFY(p.main.isEnabled()); // the first form has closed
            p.main.setEnabled(false);
            segunda.cmdCancelar->click();
            QVERIFY(p.main.isEnabled());
        });
        QVERIFY(veio);
    }

    void so_linhas_vazias_nao_dao_registos_e_a_lista_le_se_outra_vez_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("uma linha") << QByteArray("Morvex\r\n");
        QTest::newRow("só vazias depois da primeira") << QByteArray("Morvex\r\n\r\n\r\n\r\n");
        QTest::newRow("nada") << QByteArray();
    }
    void so_linhas_vazias_nao_dao_registos_e_a_lista_le_se_outra_vez()
    {
        QFETCH(QByteArray, bytes);
        Programa p;
        p.Ate_Ao_Grupo(p.Texto(u"vazio.dat"_s, bytes), [&](frmImportar2 &segunda) {
            QCOMPARE(segunda.Label3->text(), p.s.Texto(86) + u" 0"_s);
            p.s.Novo_Contacto({{u"Nome"_s, Value(u"Por outro caminho"_s)}, {u"Grupo"_s, Value(u"1"_s)}});
            QCOMPARE(p.main.ListaNomes->ListCount(), 0);
            segunda.cmdSeguinte->click();
            QVERIFY(!segunda.isVisible());
        });
        QCOMPARE(p.Linhas().size(), 1);
        QCOMPARE(p.main.ListaNomes->ListCount(), 1);
    }

    void uma_recusa_da_base_termina_o_processo_e_o_que_vem_antes_fica()
    {
        Programa p;
        p.s.Recusar(u"INSERT"_s, u"TblLista"_s, u"NEW.Nome='Com resto'"_s);
        p.s.Escrever(u"DELETE FROM TblGrupos WHERE ID<>1"_s);
        const QByteArray vazio("\xA5\xA6\xB6\xE6\xDE\xA2\xA7\xC6\xBF\xA1\xFF\xB1\xDF\xF8\xB5");
        p.s.caixas.Espera_Erro(Failure::StoreError);
        p.Ate_Ao_Grupo(
            p.Texto(u"recusado.dat"_s, "x\r\num" + vazio + "\r\nCom resto" + vazio + "\r\ntres" + vazio),
            [&](frmImportar2 &segunda) {
                segunda.cmdSeguinte->click();
                segunda.reject();
            });
        QVERIFY(p.s.processo.Terminou());
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista ORDER BY ID"_s), QStringList{u"um"_s});
    }

    void um_grupo_que_ja_nao_existe_nao_deixa_o_numero_de_outro()
    {
        Programa p;
        p.Ate_Ao_Grupo(p.Copia(u"normal.dat"_s), [&](frmImportar2 &segunda) {
            p.s.Escrever(u"DELETE FROM TblGrupos WHERE NomeGrupo='Outros'"_s);
            VERIFICAR_FALHA(segunda.ComboGrupos->ChooseText(u"Outros"_s), Failure::NoCurrentRecord);
            QCOMPARE(segunda.txtGrupoID->text(), QString());
            segunda.reject();
        });
    }

    void duas_importacoes_seguidas_duplicam_e_cada_uma_comeca_de_novo()
    {
        Programa p;
        const QString caminho = p.Copia(u"normal.dat"_s);
        for (int vez = 1; vez <= 2; ++vez) {
            p.Ate_Ao_Grupo(caminho, [&](frmImportar2 &segunda) {
                QCOMPARE(segunda.ListaMorvex43->ListCount(), 50);
                segunda.cmdSeguinte->click();
            });
            QCOMPARE(p.Linhas().size(), 50 * vez);
        }
    }

    void um_caminho_que_acaba_em_DAT_vai_para_a_importacao_de_bases()
    {
        Programa p;
        const QString caminho = p.s.Ficheiro(u"antiga.DAT"_s);
        QFile::copy(QFINDTESTDATA("fixtures/jet/vazia.mdb"), caminho);
        bool veio = false;
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            form.cmdProcurar->click();
            Quando_Abrir<frmImportarMDB>([&](frmImportarMDB &base) {
                veio = true;
                base.cmdCancelar->click();
            });
            form.cmdSeguinte->click();
        });
        p.s.dialogos.textos << caminho;
        p.main.Importar->trigger();
        QVERIFY(veio);
    }

    void o_grupo_escolhido_e_o_que_se_ve_e_ninguem_escreve_outro()
    {
        Programa p;
        p.s.dialogos.textos << p.Copia(u"texto_sem_16.dat"_s);
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            form.cmdProcurar->click();
            Quando_Abrir<frmImportar2>([&](frmImportar2 &segunda) {
                segunda.ComboGrupos->setListIndex(segunda.ComboGrupos->findText(u"Outros"_s));
                QTest::keyClicks(segunda.ComboGrupos, u"Novo"_s);
                QCOMPARE(segunda.ComboGrupos->currentText(), u"Outros"_s);
                QCOMPARE(segunda.txtGrupoID->text(), u"6"_s);
                QCOMPARE(p.s.geral.de.Rs("cmdVerIDGrupo").State(), Recordset::Closed);
                segunda.cmdSeguinte->click();
            });
            form.cmdSeguinte->click();
        });
        p.main.Importar->trigger();
        QCOMPARE(p.s.Linhas(u"SELECT Nome, Grupo, Ano FROM TblLista"_s),
                 QStringList{u"Foto por fechar|6|"_s});
    }

    void sem_grupos_a_carga_da_segunda_janela_falha()
    {
        Programa p;
        p.s.Escrever(u"DELETE FROM TblGrupos"_s);
        p.s.caixas.Espera_Erro(Failure::StoreError);
        p.Importar(p.Copia(u"normal.dat"_s));
        QVERIFY(p.s.processo.Terminou());
        QVERIFY(p.Linhas().isEmpty());
    }

    void os_temporizadores_ficam_parados_depois_da_segunda_carga_data()
    {
        QTest::addColumn<QString>("botao");
        for (const QString &botao : {u"cmdSeguinte"_s, u"cmdCancelar"_s, QString()})
            QTest::newRow(botao.isEmpty() ? "the close box" : qPrintable(botao)) << botao;
    }
    void os_temporizadores_ficam_parados_depois_da_segunda_carga()
    {
        QFETCH(QString, botao);
        Programa p;
        const Temporizadores &t = p.s.geral.temporizadores;
        QVERIFY(t.timerTarefas.Enabled());
        p.s.dialogos.textos << p.Copia(u"uma_linha.dat"_s);
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            QVERIFY(!t.timerTarefas.Enabled());
            QVERIFY(!p.main.isEnabled());
            form.cmdProcurar->click();
            Quando_Abrir<frmImportar2>([&](frmImportar2 &segunda) {
                QVERIFY(t.timerTarefas.Enabled()); // the first form's unload started them
                QVERIFY(p.main.isEnabled());
                p.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
                if (botao.isEmpty())
                    segunda.close();
                else
                    segunda.findChild<QAbstractButton *>(botao)->click();
                QVERIFY(t.timerTarefas.Enabled());
            });
            form.cmdSeguinte->click();
        });
        p.main.Importar->trigger();
        QVERIFY(!t.timerTarefas.Enabled());

        Quando_Abrir<frmImportar>([](frmImportar &form) { form.close(); });
        p.main.Importar->trigger();
        QVERIFY(t.timerTarefas.Enabled()); // a later form's unload starts them
    }
};

MORVEX_TESTE(TestFrmImportar)
#include "test_frmImportar.moc"
