// The captions of every form but the main window, each by the number of its text, in three languages.
#include "contacts/DesfazerEliminacao.h"
#include "contacts/frmAddEdit.h"
#include "contacts/frmDeleteGroup.h"
#include "contacts/frmEditGroup.h"
#include "contacts/frmEmail.h"
#include "contacts/frmNovoGrupo.h"
#include "contacts/frmProcurar.h"
#include "contacts/frmVerImagem.h"
#include "contacts/ListaContactos.h"
#include "interchange/frmBackup.h"
#include "interchange/frmExportar.h"
#include "interchange/frmImportar.h"
#include "interchange/frmImportar2.h"
#include "interchange/frmImportarMDB.h"
#include "interchange/Intercambio.h"
#include "memos/frmMemo.h"
#include "online/frmAddEditEmail.h"
#include "printing/frmEnvelope.h"
#include "printing/frmImprimir.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/frmAniversarios.h"
#include "reminders/frmListaTarefas.h"
#include "reminders/frmTarefas.h"
#include "session/frmDeleteUser.h"
#include "session/frmEditUser.h"
#include "session/frmLoading.h"
#include "session/frmLogin.h"
#include "session/frmNovoUser.h"
#include "session/frmOpcoes.h"
#include "session/Main.h"
#include "testlib/RelatorioFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QGroupBox>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace
{
// An installation in that language with a user, a main window, and a form over it.
struct ComFormulario {
    explicit ComFormulario(const QString &idioma) : s(Sistema::Estado::Semeado, idioma)
    {
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        s.geral.MemoFontName = u"Tahoma"_s;
        s.geral.MemoFontSize = u"8,25"_s;
        s.geral.MemoFontBold = s.geral.MemoFontItalic = u"False"_s;
        s.geral.MemoCorFundo = u"65535"_s;
        lista.Carregar_Grupos();
    }

    template<class Formulario, class... Argumentos> QWidget *Novo(Argumentos &&...argumentos)
    {
        form = std::make_unique<Formulario>(std::forward<Argumentos>(argumentos)...);
        return form.get();
    }

    Sistema s;
    Main janela{s.geral, s.plataforma};
    ListaContactos &lista = *janela.findChild<ListaContactos *>();
    DesfazerEliminacao &desfazer = *janela.findChild<DesfazerEliminacao *>();
    Intercambio &intercambio = *janela.findChild<Intercambio *>();
    RelatorioFalso relatorio;
    std::unique_ptr<QWidget> form;
};

// A form as its opener makes it, and the numbers of its texts: "control number", "title number", with what
// the code puts behind the text; "tab" is a tab, by its place; "tip" the tip of a control.
struct Formulario {
    const char *nome;
    QWidget *(*abrir)(ComFormulario &);
    QStringList legendas;
};

const QStringList dados_do_utilizador{u"lblUser 94"_s,       u"lblPass1 90 :"_s,  u"lblPass2 91"_s,
                                      u"FrameDireitos 99"_s, u"cbAdicionar 95"_s, u"cbEditar 96"_s,
                                      u"cbEliminar 97"_s,    u"cbGrupos 98"_s,    u"cbUtilizadores 103"_s,
                                      u"cbSystemTray 92"_s,  u"cmdCancelar 43"_s};
const QStringList intervalo{u"FrameIntervalo 74"_s, u"OptionTodos 75"_s, u"OptionSelecionado 76"_s,
                            u"lblGrupo 42"_s,       u"FrameEstilo 78"_s, u"OptionLista 79"_s};

QString Modo(QString &modo, const char *valor) { return modo = QLatin1StringView(valor); }

const QList<Formulario> formularios{
    {"frmLogin",
     [](ComFormulario &c) { return c.Novo<frmLogin>(c.s.geral, c.s.plataforma); },
     {u"Label1 94"_s, u"Label2 90 :"_s, u"cmdCancelar 43"_s}},
    {"frmLoading", [](ComFormulario &c) { return c.Novo<frmLoading>(c.s.geral); }, {u"Label1 242"_s}},
    {"frmNovoUser", [](ComFormulario &c) { return c.Novo<frmNovoUser>(c.s.geral, c.s.plataforma); },
     QStringList{u"title 89"_s} + dados_do_utilizador},
    {"frmEditUser", [](ComFormulario &c) { return c.Novo<frmEditUser>(c.s.geral, c.s.plataforma); },
     QStringList{u"title 104"_s, u"Label1 105"_s} + dados_do_utilizador},
    {"frmDeleteUser",
     [](ComFormulario &c) { return c.Novo<frmDeleteUser>(c.s.geral, c.s.plataforma, c.janela); },
     {u"title 108"_s, u"Label1 109"_s, u"cmdCancelar 43"_s}},
    {"frmOpcoes",
     [](ComFormulario &c) { return c.Novo<frmOpcoes>(c.s.geral, c.s.plataforma, c.janela); },
     {u"title 151"_s,
      u"tab0 128"_s,
      u"tab1 190"_s,
      u"tab2 191"_s,
      u"tab3 217"_s,
      u"tab4 192"_s,
      u"tab5 239"_s,
      u"tab6 245"_s,
      u"tab7 267"_s,
      u"frameRemetente 193"_s,
      u"frameDestinatario 194"_s,
      u"frameAniversarios 190"_s,
      u"lblDias 195"_s,
      u"Opcao0 196"_s,
      u"Opcao1 197"_s,
      u"Opcao2 198"_s,
      u"frameMemos 191"_s,
      u"txtMemo 199"_s,
      u"cmdFonte 200"_s,
      u"cmdCor 201"_s,
      u"FrameBD 220"_s,
      u"lblBD 221"_s,
      u"cmdProcurar 69"_s,
      u"frameArranque 192"_s,
      u"OpcaoSim 202"_s,
      u"OpcaoNao 203"_s,
      u"cbMinimizar 204"_s,
      u"cbMessenger 265"_s,
      u"FrameIdiomas 239"_s,
      u"lblIdioma 240"_s,
      u"FrameMailNotification 245"_s,
      u"lblMailNotification 246"_s,
      u"cbActivarMailNotification 247"_s,
      u"lblMinutos 251"_s,
      u"cmdAdicionar 228"_s,
      u"cmdEditar 131"_s,
      u"cmdEliminar 132"_s,
      u"FrameSons 267"_s,
      u"lblSons 268"_s,
      u"cmdPlay 270"_s,
      u"cmdProcurarSom 69"_s,
      u"cmdCancelar 43"_s}},
    {"frmNovoGrupo",
     [](ComFormulario &c) { return c.Novo<frmNovoGrupo>(c.s.geral, c.lista); },
     {u"title 113"_s, u"Label1 112"_s, u"Label2 271"_s, u"cmdCriarUtilizador 130"_s, u"cmdOk 228"_s,
      u"cmdCancelar 43"_s}},
    {"frmEditGroup",
     [](ComFormulario &c) { return c.Novo<frmEditGroup>(c.s.geral, c.s.plataforma, c.lista); },
     {u"title 122"_s, u"Label1 123"_s, u"OptionRenomear 124"_s, u"OptionMover 116"_s,
      u"OptionChangeUser 273"_s, u"cmdCriarUtilizador 130"_s, u"cmdCancelar 43"_s}},
    {"frmDeleteGroup",
     [](ComFormulario &c) { return c.Novo<frmDeleteGroup>(c.s.geral, c.s.plataforma, c.lista, c.desfazer); },
     {u"title 121"_s, u"Label1 115"_s, u"OptionMover 116"_s, u"OptionEliminar 117"_s, u"cmdCancelar 43"_s}},
    {"frmEmail",
     [](ComFormulario &c) { return c.Novo<frmEmail>(c.s.geral, c.s.plataforma, u"a@x"_s, u"b@x"_s); },
     {u"title 55"_s, u"lblLegenda1 58"_s, u"cmdCancelar 43"_s}},
    {"frmAddEdit",
     [](ComFormulario &c) {
         Modo(c.s.geral.ModoContacto, "Add");
         auto *form = c.Novo<frmAddEdit>(c.janela, c.s.geral, c.s.plataforma, c.lista);
         static_cast<frmAddEdit *>(form)->Carregar();
         return form;
     },
     {u"lblNome 27"_s, u"lblTelefone1 28"_s, u"lblTelefone2 29"_s, u"lblTelemovel1 30"_s,
      u"lblTelemovel2 31"_s, u"lblTelemovel3 32"_s, u"lblFotografia 35"_s, u"lblWebsite 34"_s,
      u"lblMorada 36"_s, u"lblObs 37"_s, u"lblAniversario 38"_s, u"lblDia 39"_s, u"lblMes 40"_s,
      u"lblAno 41"_s, u"lblGrupo 42"_s, u"cmd_foto 44"_s, u"cmdCancelar 43"_s}},
    {"frmProcurar",
     [](ComFormulario &c) {
         auto *form = c.Novo<frmProcurar>(c.janela, c.s.geral, c.s.plataforma);
         static_cast<frmProcurar *>(form)->Abrir();
         return form;
     },
     {u"title 59"_s, u"Frame1 61"_s, u"opcaoNome 62"_s, u"opcaoTelefone 63"_s, u"opcaoFax 64"_s,
      u"opcaoTelemovel 65"_s, u"opcaoWebsite 66"_s, u"opcaoMorada 67"_s, u"opcaoObs 68"_s,
      u"cmdProcurar 69"_s}},
    {"frmVerImagem",
     [](ComFormulario &c) { return c.Novo<frmVerImagem>(c.s.geral, Picture()); },
     {u"title 11"_s}},
    {"frmAddEditTarefa, nova",
     [](ComFormulario &c) {
         Modo(c.s.geral.ModoTarefa, "Add");
         return c.Novo<frmAddEditTarefa>(c.s.geral, c.s.plataforma, c.janela, nullptr);
     },
     {u"title 149"_s, u"lblTarefa 167"_s, u"lblData 168"_s, u"lblHora 169"_s, u"lblRepeticao 174"_s,
      u"cmdCancelar 43"_s}},
    {"frmAddEditTarefa, editada",
     [](ComFormulario &c) {
         Modo(c.s.geral.ModoTarefa, "Edit");
         return c.Novo<frmAddEditTarefa>(c.s.geral, c.s.plataforma, c.janela, nullptr);
     },
     {u"title 171"_s, u"lblTarefa 167"_s, u"lblData 168"_s, u"lblHora 169"_s, u"lblRepeticao 174"_s,
      u"cmdCancelar 43"_s}},
    {"frmListaTarefas",
     [](ComFormulario &c) { return c.Novo<frmListaTarefas>(c.s.geral, c.s.plataforma, c.janela); },
     {u"title 150"_s, u"Label1 150"_s, u"cmdCriar 185"_s, u"cmdEditar 179"_s, u"cmdEliminar 183"_s,
      u"cmdFechar 135"_s}},
    {"frmTarefas",
     [](ComFormulario &c) { return c.Novo<frmTarefas>(c.s.geral, c.s.plataforma, c.janela, c.relatorio); },
     {u"title 178"_s, u"Label1 167"_s, u"Label2 168"_s, u"Label3 169"_s, u"Label4 174"_s, u"cmdEditar 179"_s,
      u"cmdEliminar 183"_s, u"cmdImprimirTarefa 80"_s}},
    {"frmAniversarios",
     [](ComFormulario &c) { return c.Novo<frmAniversarios>(c.s.geral, c.janela); },
     {u"title 175"_s, u"Label1 175"_s, u"cmdFechar 135"_s}},
    {"frmMemo",
     [](ComFormulario &c) { return c.Novo<frmMemo>(c.s.geral, c.s.plataforma); },
     {u"tip:cmdGuardar 186"_s, u"tip:cmdFonte 187"_s, u"tip:cmdCor 188"_s, u"tip:cmdFechar 189"_s}},
    {"frmAddEditEmail, nova",
     [](ComFormulario &c) {
         Modo(c.s.geral.ModoEmail, "Add");
         auto *form = c.Novo<frmAddEditEmail>(c.s.geral, nullptr);
         form->show();
         return form;
     },
     {u"title 248"_s, u"lbl1 243"_s, u"lbl2 244"_s, u"lbl3 250"_s, u"lbl4 90"_s, u"cmdCancelar 43"_s}},
    {"frmImprimir",
     [](ComFormulario &c) { return c.Novo<frmImprimir>(c.s.geral, c.relatorio, *c.janela.ListaNomes); },
     intervalo +
         QStringList{u"title 73"_s, u"CheckBoxPrevisualizar 77"_s, u"cmdImprimir 80"_s, u"cmdCancelar 43"_s}},
    {"frmEnvelope",
     [](ComFormulario &c) { return c.Novo<frmEnvelope>(c.s.geral, c.relatorio); },
     {u"title 159"_s, u"lblNome 161"_s, u"lblLeft 162"_s, u"lblCenter 163"_s, u"lblRight 164"_s,
      u"cmdImprimir 80"_s, u"cmdCancelar 43"_s}},
    {"frmExportar",
     [](ComFormulario &c) { return c.Novo<frmExportar>(c.s.geral, c.relatorio, *c.janela.ListaNomes); },
     intervalo +
         QStringList{u"title 257"_s, u"frameExportar 257"_s, u"cmdExportar 257"_s, u"cmdFechar 135"_s}},
    {"frmBackup",
     [](ComFormulario &c) { return c.Novo<frmBackup>(c.s.geral, c.s.plataforma); },
     {u"title 254"_s, u"Label1 253"_s, u"cmdIniciar 229"_s, u"cmdSair 136"_s}},
    // The titles of this form and of frmAddEdit come from their openers.
    {"frmImportar",
     [](ComFormulario &c) { return c.Novo<frmImportar>(c.s.geral, c.s.plataforma, c.intercambio, c.janela); },
     {u"Label1 83"_s, u"Label2 84"_s, u"cmdProcurar 69"_s, u"cmdSeguinte 71"_s, u"cmdCancelar 43"_s}},
    {"frmImportar2",
     [](ComFormulario &c) {
         auto *form = c.Novo<frmImportar2>(c.s.geral, c.s.plataforma, c.intercambio, c.janela);
         static_cast<frmImportar2 *>(form)->Form_Load();
         return form;
     },
     {u"Label1 83"_s, u"Label2 85"_s, u"cmdSeguinte 71"_s, u"cmdCancelar 43"_s}},
    {"frmImportarMDB",
     [](ComFormulario &c) {
         c.intercambio.FileName = QFINDTESTDATA("fixtures/jet/vazia.mdb");
         return c.Novo<frmImportarMDB>(c.s.geral, c.s.plataforma, c.intercambio, c.janela);
     },
     {u"title 82"_s, u"Label1 83"_s, u"cmdSeguinte 229"_s, u"cmdCancelar 43"_s}},
};

QString No_Ecra(QWidget &form, const QString &onde)
{
    if (onde == "title"_L1) return form.windowTitle();
    if (onde.startsWith("tab"_L1)) return form.findChild<QTabBar *>()->tabText(onde.mid(3).toInt());
    if (onde.startsWith("tip:"_L1)) return form.findChild<QWidget *>(onde.mid(4))->toolTip();
    auto *controlo = form.findChild<QWidget *>(onde);
    if (controlo == nullptr) return u"no control of that name"_s;
    if (auto *moldura = qobject_cast<QGroupBox *>(controlo)) return moldura->title();
    if (const QVariant texto = controlo->property("plainText"); texto.isValid()) return texto.toString();
    return controlo->property("text").toString();
}
} // namespace

class TestLegendasDosFormularios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_legenda_e_o_texto_do_seu_numero_data()
    {
        QTest::addColumn<int>("qual");
        QTest::addColumn<QString>("idioma");
        for (int i = 0; i < formularios.size(); ++i)
            for (const char *idioma : {"PortuguesPT", "InglesUK", "AlemaoDE"})
                QTest::addRow("%s, %s", formularios[i].nome, idioma) << i << QString::fromLatin1(idioma);
    }
    void cada_legenda_e_o_texto_do_seu_numero()
    {
        QFETCH(int, qual);
        QFETCH(QString, idioma);
        ComFormulario c(idioma);
        QWidget &form = *formularios[qual].abrir(c);
        for (const QString &legenda : formularios[qual].legendas) {
            const QStringList partes = legenda.split(u' ');
            const QString esperado = c.s.Texto(partes[1].toInt()) + partes.value(2);
            QVERIFY2(esperado.size() > partes.value(2).size(), qPrintable(legenda));
            const QString visto = No_Ecra(form, partes[0]);
            QVERIFY2(QString(visto).remove(u'&') == QString(esperado).remove(u'&'),
                     qPrintable(legenda + u": "_s + visto));
        }
    }
};

MORVEX_TESTE(TestLegendasDosFormularios)
#include "test_LegendasDosFormularios.moc"
