// The import of a text file, from the choice of the file to the rows in the database.
#include "interchange/frmImportar.h"

#include "interchange/frmImportar2.h"
#include "interchange/frmImportarMDB.h"
#include "interchange/Intercambio.h"
#include "platform/ListBox.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
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

struct Programa {
    Programa() : main(s.geral, s.plataforma)
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
        for (const QString &nome : QDir(QFINDTESTDATA("fixtures/dat")).entryList({u"*.json"_s}))
            if (nome != u"linhas_5000.json"_s) QTest::newRow(qPrintable(nome)) << nome;
    }
    void cada_ficheiro_da_as_linhas_do_seu_manifesto()
    {
        QFETCH(QString, nome);
        const QJsonObject manifesto = Manifesto(nome);
        Programa p;
        const bool termina = manifesto[u"outcome"_s].toString() == u"process ends"_s;
        if (termina) p.s.caixas.Espera_Erro(5);
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            form.cmdProcurar->click();
            QVERIFY(form.cmdSeguinte->isEnabled());
            Quando_Abrir<frmImportar2>([&](frmImportar2 &segunda) {
                QCOMPARE(segunda.Label3->text(),
                         p.s.Texto(86) + u' ' + QString::number(manifesto[u"count_shown"_s].toInt()));
                segunda.cmdSeguinte->click();
                if (segunda.isVisible()) segunda.reject(); // only where the process would have ended
            });
            form.cmdSeguinte->click();
        });
        p.s.dialogos.textos << p.Copia(manifesto[u"file"_s].toString());
        p.main.Importar->trigger();

        QCOMPARE(p.s.processo.Terminou(), termina);
        QStringList esperadas;
        for (const auto &linha : manifesto[u"rows"_s].toArray()) {
            QStringList celulas;
            for (const auto &celula : linha.toArray())
                celulas << celula.toString();
            esperadas << celulas.join(u'|').replace(u"<grupo>"_s, u"1"_s);
        }
        if (manifesto.contains(u"rule"_s)) // too many to list
            QCOMPARE(p.Linhas().size(), manifesto[u"count_shown"_s].toInt());
        else
            QCOMPARE(p.Linhas(), esperadas);
        if (!termina) QCOMPARE(p.main.ListaNomes->ListCount(), p.Linhas().size());
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
        auto &intercambio = *p.main.findChild<Intercambio *>();
        intercambio.FileName = QFINDTESTDATA("fixtures/jet/vazia.mdb");
        intercambio.De2();
        const QString caminho = p.Copia(u"linhas_5000.dat"_s);
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + caminho, 16, p.s.Texto(82));
        p.Importar(caminho);
        QVERIFY(!p.s.processo.Terminou());
        QVERIFY(p.main.isEnabled());
    }

    void um_ficheiro_que_nao_se_pode_escrever_vai_para_o_passo_de_falha()
    {
        Programa p;
        auto &intercambio = *p.main.findChild<Intercambio *>();
        intercambio.FileName = QFINDTESTDATA("fixtures/jet/vazia.mdb");
        intercambio.De2();
        const QString caminho = p.Copia(u"normal.dat"_s);
        QFile::setPermissions(caminho, QFileDevice::ReadOwner | QFileDevice::ReadOther);
        if (QFile(caminho).open(QIODevice::ReadWrite)) QSKIP("this user may write everything");
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + caminho, 16, p.s.Texto(82));
        p.Importar(caminho);
        QVERIFY(p.Linhas().isEmpty());
    }

    void cancelar_o_dialogo_perde_a_escolha_anterior()
    {
        Programa p;
        p.s.dialogos.textos << u"/um/ficheiro.dat"_s << std::nullopt;
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            QVERIFY(!form.cmdSeguinte->isEnabled());
            form.cmdProcurar->click();
            QCOMPARE(form.txtCaminho->text(), u"/um/ficheiro.dat"_s);
            form.cmdProcurar->click();
            QCOMPARE(form.txtCaminho->text(), QString());
            QVERIFY(!form.cmdSeguinte->isEnabled());
            form.cmdCancelar->click();
        });
        p.main.Importar->trigger();
        QVERIFY(p.s.dialogos.perguntas.constFirst().startsWith(u"openFile "_s + p.s.Texto(81) +
                                                               u"|*.dat;*.mdb @"_s));
        QVERIFY(p.main.isEnabled());
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

    void os_temporizadores_ficam_parados_depois_da_segunda_carga()
    {
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
                segunda.cmdCancelar->click();
            });
            form.cmdSeguinte->click();
        });
        p.main.Importar->trigger();
        QVERIFY(!t.timerTarefas.Enabled());
    }
};

MORVEX_TESTE(TestFrmImportar)
#include "test_frmImportar.moc"
