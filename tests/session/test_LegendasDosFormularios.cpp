// The captions of every form but the main window, each by the number of its text, in three languages.
#include "session/Formularios.h"
#include "testlib/Teste.h"

#include <QGroupBox>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace
{
// A form, and the numbers of its texts: "control number", "title number", with what
// the code puts behind the text; "tab" is a tab, by its place; "tip" the tip of a control.
struct Formulario {
    const char *nome;
    QStringList legendas;
};

const QStringList dados_do_utilizador{u"lblUser 94"_s,       u"lblPass1 90 :"_s,  u"lblPass2 91"_s,
                                      u"FrameDireitos 99"_s, u"cbAdicionar 95"_s, u"cbEditar 96"_s,
                                      u"cbEliminar 97"_s,    u"cbGrupos 98"_s,    u"cbUtilizadores 103"_s,
                                      u"cbSystemTray 92"_s,  u"cmdCancelar 43"_s};
const QStringList intervalo{u"FrameIntervalo 74"_s, u"OptionTodos 75"_s, u"OptionSelecionado 76"_s,
                            u"lblGrupo 42"_s,       u"FrameEstilo 78"_s, u"OptionLista 79"_s};

const QList<Formulario> formularios{
    {"frmLogin", {u"Label1 94"_s, u"Label2 90 :"_s, u"cmdCancelar 43"_s}},
    {"frmLoading", {u"Label1 242"_s}},
    {"frmNovoUser", QStringList{u"title 89"_s} + dados_do_utilizador},
    {"frmEditUser", QStringList{u"title 104"_s, u"Label1 105"_s} + dados_do_utilizador},
    {"frmDeleteUser", {u"title 108"_s, u"Label1 109"_s, u"cmdCancelar 43"_s}},
    {"frmOpcoes",
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
     {u"title 113"_s, u"Label1 112"_s, u"Label2 271"_s, u"cmdCriarUtilizador 130"_s, u"cmdOk 228"_s,
      u"cmdCancelar 43"_s}},
    {"frmEditGroup",
     {u"title 122"_s, u"Label1 123"_s, u"OptionRenomear 124"_s, u"OptionMover 116"_s,
      u"OptionChangeUser 273"_s, u"cmdCriarUtilizador 130"_s, u"cmdCancelar 43"_s}},
    {"frmDeleteGroup",
     {u"title 121"_s, u"Label1 115"_s, u"OptionMover 116"_s, u"OptionEliminar 117"_s, u"cmdCancelar 43"_s}},
    {"frmEmail", {u"title 55"_s, u"lblLegenda1 58"_s, u"cmdCancelar 43"_s}},
    {"frmAddEdit",
     {u"lblNome 27"_s, u"lblTelefone1 28"_s, u"lblTelefone2 29"_s, u"lblTelemovel1 30"_s,
      u"lblTelemovel2 31"_s, u"lblTelemovel3 32"_s, u"lblFotografia 35"_s, u"lblWebsite 34"_s,
      u"lblMorada 36"_s, u"lblObs 37"_s, u"lblAniversario 38"_s, u"lblDia 39"_s, u"lblMes 40"_s,
      u"lblAno 41"_s, u"lblGrupo 42"_s, u"cmd_foto 44"_s, u"cmdCancelar 43"_s}},
    {"frmProcurar",
     {u"title 59"_s, u"Frame1 61"_s, u"opcaoNome 62"_s, u"opcaoTelefone 63"_s, u"opcaoFax 64"_s,
      u"opcaoTelemovel 65"_s, u"opcaoWebsite 66"_s, u"opcaoMorada 67"_s, u"opcaoObs 68"_s,
      u"cmdProcurar 69"_s}},
    {"frmVerImagem", {u"title 11"_s}},
    {"frmConflito",
     {u"title 420"_s, u"Label1 421"_s, u"Label2 422"_s, u"cmdMeus 425"_s, u"cmdDeles 426"_s, u"cmdGuardar 427"_s,
      u"cmdVoltar 428"_s}},
    {"frmAddEditTarefa, nova",
     {u"title 149"_s, u"lblTarefa 167"_s, u"lblData 168"_s, u"lblHora 169"_s, u"lblRepeticao 174"_s,
      u"cmdCancelar 43"_s}},
    {"frmAddEditTarefa, editada",
     {u"title 171"_s, u"lblTarefa 167"_s, u"lblData 168"_s, u"lblHora 169"_s, u"lblRepeticao 174"_s,
      u"cmdCancelar 43"_s}},
    {"frmListaTarefas",
     {u"title 150"_s, u"Label1 150"_s, u"cmdCriar 185"_s, u"cmdEditar 179"_s, u"cmdEliminar 183"_s,
      u"cmdFechar 135"_s}},
    {"frmTarefas",
     {u"title 178"_s, u"Label1 167"_s, u"Label2 168"_s, u"Label3 169"_s, u"Label4 174"_s, u"cmdEditar 179"_s,
      u"cmdEliminar 183"_s, u"cmdImprimirTarefa 80"_s}},
    {"frmAniversarios", {u"title 175"_s, u"Label1 175"_s, u"cmdFechar 135"_s}},
    {"frmMemo",
     {u"tip:cmdGuardar 186"_s, u"tip:cmdFonte 187"_s, u"tip:cmdCor 188"_s, u"tip:cmdFechar 189"_s}},
    {"frmAddEditEmail, nova",
     {u"title 248"_s, u"lbl1 243"_s, u"lbl2 244"_s, u"lbl3 250"_s, u"lbl4 90"_s, u"cmdCancelar 43"_s}},
    {"frmImprimir", intervalo + QStringList{u"title 73"_s, u"CheckBoxPrevisualizar 77"_s, u"cmdImprimir 80"_s,
                                            u"cmdCancelar 43"_s}},
    {"frmEnvelope",
     {u"title 159"_s, u"lblNome 161"_s, u"lblLeft 162"_s, u"lblCenter 163"_s, u"lblRight 164"_s,
      u"cmdImprimir 80"_s, u"cmdCancelar 43"_s}},
    {"frmEtiquetas", {u"CheckBoxPrevisualizar 77"_s, u"cmdImprimir 80"_s, u"cmdCancelar 43"_s}},
    {"frmExportar", intervalo + QStringList{u"title 257"_s, u"frameExportar 257"_s, u"cmdExportar 257"_s,
                                            u"cmdFechar 135"_s}},
    {"frmBackup", {u"title 254"_s, u"Label1 253"_s, u"cmdIniciar 229"_s, u"cmdSair 136"_s}},
    // The titles of this form and of frmAddEdit come from their openers.
    {"frmImportar",
     {u"Label1 83"_s, u"Label2 84"_s, u"cmdProcurar 69"_s, u"cmdSeguinte 71"_s, u"cmdCancelar 43"_s}},
    {"frmImportar2", {u"Label1 83"_s, u"Label2 85"_s, u"cmdSeguinte 71"_s, u"cmdCancelar 43"_s}},
    {"frmImportarContactos",
     {u"title 285"_s, u"Label1 286"_s, u"cmdProcurar 69"_s, u"lblGrupos 289"_s, u"chkCriar 290"_s,
      u"chkJuntar 291"_s, u"lblCodificacao 292"_s, u"lblEscolha 293"_s, u"cmdImportar 287"_s,
      u"cmdAnular 288"_s, u"cmdCancelar 43"_s}},
    {"frmImportarMDB", {u"title 82"_s, u"Label1 83"_s, u"cmdSeguinte 229"_s, u"cmdCancelar 43"_s}},
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
        QWidget &form = *aberturas[QString::fromLatin1(formularios[qual].nome)](c);
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
