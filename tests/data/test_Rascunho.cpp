// What was typed into an editor and not confirmed: what of it is kept, for whom, and how it is offered again.
#include "data/Rascunho.h"
#include "testlib/SeteLinguas.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace
{
const auto pergunta = u"O que escreveu aqui da última vez não chegou a ser confirmado. Deseja retomá-lo?"_s;

// An editor with a field of each kind.
struct Editor {
    explicit Editor(Sistema &s, const QString &registo = u"contacto 7"_s)
        : rascunho(new Rascunho(form, s.geral, s.plataforma, [registo] { return registo; }))
    {
        form.setWindowTitle(u"Editor"_s);
        linha->setObjectName(u"txtNome"_s);
        texto->setObjectName(u"txtObs"_s);
        escolha->setObjectName(u"ComboGrupos"_s);
        escolha->addItems({u"Amigos"_s, u"Outros"_s});
        data->setObjectName(u"DataTarefa"_s);
        data->setDateTime(manha);
        escondido->setObjectName(u"txtIDGrupo"_s);
        escondido->hide();
        do_ambiente->setObjectName(u"qt_spinbox_lineedit"_s);
    }
    // Comes up, and is asked about its draft.
    Editor &Abrir()
    {
        form.show();
        QCoreApplication::processEvents();
        return *this;
    }
    Editor &Escrever()
    {
        linha->setText(u"Ana"_s);
        texto->setPlainText(u"um\ndois"_s);
        escolha->setCurrentIndex(1);
        data->setDateTime(tarde);
        return *this;
    }
    QStringList Campos() const
    {
        return {linha->text(), texto->toPlainText(), escolha->currentText(),
                data->dateTime().toString(u"dd hh:mm"_s)};
    }

    const QDateTime manha{{2027, 2, 1}, {9, 0}};
    const QDateTime tarde{{2027, 5, 4}, {17, 30}};
    QDialog form;
    QLineEdit *linha = new QLineEdit(&form);
    QPlainTextEdit *texto = new QPlainTextEdit(&form);
    QComboBox *escolha = new QComboBox(&form);
    QDateTimeEdit *data = new QDateTimeEdit(&form);
    QLineEdit *escondido = new QLineEdit(&form);
    QLineEdit *do_ambiente = new QLineEdit(&form);
    Rascunho *rascunho;
};

const QStringList escrito{u"Ana"_s, u"um\ndois"_s, u"Outros"_s, u"04 17:30"_s};
const QStringList por_escrever{QString(), QString(), u"Amigos"_s, u"01 09:00"_s};

// The process ends while that editor is open with something typed.
void Interromper(Sistema &s, const QString &registo = u"contacto 7"_s)
{
    Editor editor(s, registo);
    editor.Abrir().Escrever();
    QVERIFY(s.geral.rascunhos.Guardar());
}
} // namespace

class TestRascunho : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_pergunta_e_a_da_lingua_data()
    {
        Nas_Sete_Linguas(
            {pergunta,
             u"O que você escreveu aqui da última vez não chegou a ser confirmado. Deseja retomá-lo?"_s,
             u"What you typed here last time was not confirmed. Would you like to take it up again?"_s,
             u"Lo que escribió aquí la última vez no llegó a confirmarse. ¿Desea retomarlo?"_s,
             u"Quanto ha scritto qui l’ultima volta non è stato confermato. Desidera riprenderlo?"_s,
             u"Ce que vous aviez saisi ici la dernière fois n’a pas été confirmé. Voulez-vous le reprendre\u00a0?"_s,
             u"Ihre letzte Eingabe an dieser Stelle wurde nicht bestätigt. Möchten Sie sie wieder aufnehmen?"_s});
    }
    void a_pergunta_e_a_da_lingua()
    {
        QFETCH(QString, lingua);
        QFETCH(QString, legenda);
        Sistema s;
        s.geral.IdiomaActual = lingua;
        Interromper(s);
        s.caixas.Espera(legenda, box::question | box::yesNo, u"Editor"_s, answer::no);
        Editor editor(s);
        editor.Abrir();
        QVERIFY(s.caixas.Todas_Vistas());
    }

    void quem_aceita_tem_cada_campo_como_o_deixou()
    {
        Sistema s;
        Interromper(s);
        s.caixas.Espera(pergunta, 36, u"Editor"_s, answer::yes);
        Editor editor(s);
        const QSignalSpy retomado(editor.rascunho, &Rascunho::Retomado);
        editor.Abrir();
        QCOMPARE(editor.Campos(), escrito);
        QCOMPARE(retomado.size(), 1);
        QVERIFY(editor.rascunho->Mudou()); // and the next end keeps it again
    }

    void a_primeira_linha_de_uma_lista_tambem_volta()
    {
        Sistema s;
        {
            Editor editor(s);
            editor.escolha->setCurrentIndex(1);
            editor.Abrir().escolha->setCurrentIndex(0);
            QVERIFY(s.geral.rascunhos.Guardar());
        }
        s.caixas.Espera(pergunta, 36, u"Editor"_s, answer::yes);
        Editor editor(s);
        editor.escolha->setCurrentIndex(1);
        editor.Abrir();
        QCOMPARE(editor.escolha->currentText(), u"Amigos"_s);
    }

    // The next version of the program offers what this one has kept.
    void o_ficheiro_diz_de_que_editor_sao_os_campos()
    {
        Sistema s;
        Interromper(s);
        QFile ficheiro(s.Ficheiro(u"rascunho.json"_s));
        QVERIFY(ficheiro.open(QIODevice::ReadOnly));
        const QJsonArray guardados = QJsonDocument::fromJson(ficheiro.readAll()).array();
        QCOMPARE(guardados.size(), 1);
        QCOMPARE(guardados[0][u"editor"_s][u"registo"_s].toString(), u"contacto 7"_s);
        QCOMPARE(guardados[0][u"editor"_s][u"base"_s].toString(), s.geral.CaminhoBD);
        QCOMPARE(guardados[0][u"editor"_s][u"utilizador"_s].toString(), s.geral.SessaoActual.IdUtilizador);
        QCOMPARE(guardados[0][u"campos"_s][u"txtNome"_s].toString(), u"Ana"_s);
    }

    void quem_recusa_fica_com_o_formulario_como_estava_e_nao_e_perguntado_outra_vez()
    {
        Sistema s;
        Interromper(s);
        s.caixas.Espera(pergunta, 36, u"Editor"_s, answer::no);
        {
            Editor editor(s);
            const QSignalSpy retomado(editor.rascunho, &Rascunho::Retomado);
            editor.Abrir();
            QCOMPARE(editor.Campos(), por_escrever);
            QCOMPARE(retomado.size(), 0);
        }
        QVERIFY(!QFile::exists(s.Ficheiro(u"rascunho.json"_s)));
        Editor outra_vez(s);
        outra_vez.Abrir(); // no box is announced
    }

    void e_so_do_mesmo_registo_utilizador_e_base_data()
    {
        QTest::addColumn<QString>("registo");
        QTest::addColumn<QString>("utilizador");
        QTest::addColumn<QString>("base");
        QTest::newRow("outro registo") << u"contacto 8"_s << QString() << QString();
        QTest::newRow("outro utilizador") << u"contacto 7"_s << u"3"_s << QString();
        QTest::newRow("outra base") << u"contacto 7"_s << QString() << u"/outra/morvex.mdb"_s;
    }
    void e_so_do_mesmo_registo_utilizador_e_base()
    {
        QFETCH(QString, registo);
        QFETCH(QString, utilizador);
        QFETCH(QString, base);
        Sistema s;
        Interromper(s);
        if (!utilizador.isEmpty()) s.geral.SessaoActual.IdUtilizador = utilizador;
        if (!base.isEmpty()) s.geral.CaminhoBD = base;
        Editor editor(s, registo);
        editor.Abrir(); // no box is announced
        QCOMPARE(editor.Campos(), por_escrever);
        QVERIFY(QFile::exists(s.Ficheiro(u"rascunho.json"_s))); // it waits for its own
    }

    void dois_editores_interrompidos_guardam_se_ambos_e_o_mesmo_uma_so_vez()
    {
        Sistema s;
        {
            Editor um(s);
            Editor outro(s, u"tarefa nova"_s);
            um.Abrir().linha->setText(u"Um"_s);
            outro.Abrir().linha->setText(u"Outro"_s);
            QVERIFY(s.geral.rascunhos.Guardar());
            um.linha->setText(u"Um depois"_s);
            QVERIFY(s.geral.rascunhos.Guardar());
        }
        for (const auto &[registo, nome] :
             {std::pair(u"contacto 7"_s, u"Um depois"_s), std::pair(u"tarefa nova"_s, u"Outro"_s)}) {
            s.caixas.Espera(pergunta, 36, u"Editor"_s, answer::yes);
            Editor editor(s, registo);
            editor.Abrir();
            QCOMPARE(editor.linha->text(), nome);
            editor.form.accept();
        }
        QVERIFY(!QFile::exists(s.Ficheiro(u"rascunho.json"_s)));
    }

    void o_que_nao_se_ve_ou_nao_e_do_formulario_nao_se_guarda()
    {
        Sistema s;
        Editor editor(s);
        editor.Abrir();
        editor.escondido->setText(u"5"_s);
        editor.do_ambiente->setText(u"6"_s);
        QVERIFY(!editor.rascunho->Mudou());
        QCOMPARE(editor.rascunho->Campos().keys(),
                 (QStringList{u"ComboGrupos"_s, u"DataTarefa"_s, u"txtNome"_s, u"txtObs"_s}));
    }

    void uma_linha_que_a_lista_ja_nao_tem_deixa_a_escolha_como_esta()
    {
        Sistema s;
        Interromper(s);
        s.caixas.Espera(pergunta, 36, u"Editor"_s, answer::yes);
        Editor editor(s);
        editor.escolha->clear();
        editor.escolha->addItems({u"Colegas"_s, u"Família"_s});
        editor.Abrir();
        QCOMPARE(editor.escolha->currentText(), u"Colegas"_s);
        QCOMPARE(editor.linha->text(), u"Ana"_s);
    }

    // As one is that an older program left, whose form had other fields.
    void um_campo_que_o_rascunho_nao_tem_fica_como_esta_e_um_que_nao_se_ve_tambem()
    {
        Sistema s;
        Interromper(s);
        QFile ficheiro(s.Ficheiro(u"rascunho.json"_s));
        QVERIFY(ficheiro.open(QIODevice::ReadWrite));
        QByteArray json = ficheiro.readAll();
        QVERIFY(json.contains("\"txtObs\""));
        json.replace("\"txtObs\"", "\"txtIDGrupo\"");
        QVERIFY(ficheiro.resize(0) && ficheiro.seek(0) && ficheiro.write(json) == json.size());
        ficheiro.close();
        s.caixas.Espera(pergunta, 36, u"Editor"_s, answer::yes);
        Editor editor(s);
        editor.texto->setPlainText(u"de agora"_s);
        editor.Abrir();
        QCOMPARE(editor.linha->text(), u"Ana"_s);
        QCOMPARE(editor.texto->toPlainText(), u"de agora"_s);
        QCOMPARE(editor.escondido->text(), QString());
    }

    void so_o_que_mudou_desde_que_apareceu_esta_por_confirmar()
    {
        Sistema s;
        Editor editor(s);
        editor.linha->setText(u"Rita"_s); // how the form fills itself
        QVERIFY(!editor.rascunho->Mudou());
        editor.Abrir();
        QVERIFY(!editor.rascunho->Mudou() && !s.geral.rascunhos.Por_Confirmar());
        editor.linha->setText(u"Ritas"_s);
        QVERIFY(editor.rascunho->Mudou() && s.geral.rascunhos.Por_Confirmar());
        editor.linha->setText(u"Rita"_s);
        QVERIFY(!editor.rascunho->Mudou());
        editor.form.hide();
        editor.linha->setText(u"Ritas"_s);
        editor.form.show(); // coming back, as behind a box, begins nothing anew
        QVERIFY(editor.rascunho->Mudou());
    }

    void confirmado_ou_cancelado_nada_fica_por_confirmar_nem_guardado_data()
    {
        QTest::addColumn<bool>("confirmado");
        QTest::newRow("confirmado") << true;
        QTest::newRow("cancelado") << false;
    }
    void confirmado_ou_cancelado_nada_fica_por_confirmar_nem_guardado()
    {
        QFETCH(bool, confirmado);
        Sistema s;
        Editor editor(s);
        editor.Abrir().Escrever();
        QVERIFY(s.geral.rascunhos.Guardar());
        QVERIFY(QFile::exists(s.Ficheiro(u"rascunho.json"_s)));
        confirmado ? editor.form.accept() : editor.form.reject();
        QVERIFY(!editor.rascunho->Mudou() && !s.geral.rascunhos.Por_Confirmar());
        QVERIFY(!QFile::exists(s.Ficheiro(u"rascunho.json"_s)));
    }

    void sem_nada_por_confirmar_as_notas_guardam_se_e_nenhum_ficheiro_aparece()
    {
        Sistema s;
        const QSignalSpy ja(&s.geral.rascunhos, &Rascunhos::Guardar_Ja);
        QVERIFY(s.geral.rascunhos.Guardar());
        QCOMPARE(ja.size(), 1);
        QVERIFY(!QFile::exists(s.Ficheiro(u"rascunho.json"_s)));
    }

    void um_ficheiro_que_nao_se_deixa_escrever_diz_se()
    {
        Sistema s;
        QVERIFY(QDir(s.Pasta()).mkpath(u"rascunho.json/dentro"_s)); // a folder stands in its place
        Editor editor(s);
        editor.Abrir().Escrever();
        QVERIFY(!s.geral.rascunhos.Guardar());
    }
};

MORVEX_TESTE(TestRascunho)
#include "test_Rascunho.moc"
