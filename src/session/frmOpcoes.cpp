#include "session/frmOpcoes.h"

#include "controls/Label.h"
#include "controls/Scale.h"
#include "controls/Units.h"
#include "data/Geral.h"
#include "data/Idiomas.h"
#include "data/Inteiro.h"
#include "data/ValorLongo.h"
#include "janela/Janela.h"
#include "online/ContasEmail.h"
#include "platform/Caption.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "session/PaineArranque.h"
#include "session/PaineMemos.h"
#include "session/PaineSons.h"
#include "session/ServidorAusente.h"

#include <algorithm>
#include <QFileInfo>
#include <QScopeGuard>
#include <QScreen>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::array<qint16, 8> textos_dos_separadores{128, 190, 191, 217, 192, 239, 245, 267};
constexpr int fora_da_vista = -20000; // twips

QString Com_Retornos(QString texto) { return texto.replace(u"\n"_s, u"\r\n"_s); }

// Of two buttons with the same caption a screen reader tells each by its frame.
void Distinguir(QAbstractButton &botao, const QGroupBox &quadro)
{
    const QString legenda = withoutMnemonic(botao.text());
    botao.setAccessibleName(legenda.isEmpty() ? legenda : legenda + u", "_s + quadro.title());
}
} // namespace

frmOpcoes::frmOpcoes(Geral &geral, Platform &platform, Janela &janela)
    : QDialog(&janela), geral_(geral), platform_(platform), janela_(janela), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    picOptions = {picOptions0, picOptions1, picOptions2, picOptions3,
                  picOptions4, picOptions5, picOptions6, picOptions7};
    contas_ = new ContasEmail(*this, {*lvEmails, *cmdAdicionar, *cmdEditar, *cmdEliminar}, geral_);
    memos_ = new PaineMemos(*this, *this, geral_, platform_);
    arranque_ = new PaineArranque(*this, *this, geral_, platform_);
    sons_ = new PaineSons(*this, *this, geral_, platform_);
    Ligar_Controlos();
    endOnFailure(platform_.boxes, platform_.process, [this] { Form_Load(); });
}

void frmOpcoes::Ligar_Controlos()
{
    connect(tbsOptions, &QTabBar::currentChanged, this, &frmOpcoes::tbsOptions_Click);
    connect(new QShortcut(Qt::CTRL | Qt::Key_Tab, this), &QShortcut::activated, this,
            &frmOpcoes::Separador_Seguinte);
    for (QWidget *endereco : {txtRemetente, txtDestinatario})
        endereco->installEventFilter(this);
    connect(cbActivarMailNotification, &QCheckBox::toggled, this,
            &frmOpcoes::cbActivarMailNotification_Click);
    connect(comboIdioma, &ComboBox::Click, this, &frmOpcoes::comboIdioma_Click);
    connect(cmdProcurar, &QPushButton::clicked, this, &frmOpcoes::cmdProcurar_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmOpcoes::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmOpcoes::reject);
    connect(this, &QDialog::finished, this, &frmOpcoes::Form_Unload);
}

void frmOpcoes::Form_Load()
{
    Temporizadores &temporizadores = geral_.temporizadores;
    geral_.ErroMail = 0;
    Q_EMIT temporizadores.RecolherPopupEmail();
    temporizadores.TimerMailNotification.setEnabled(false);
    temporizadores.TimerMailNotification3.setEnabled(false);
    Atribuir_Legendas();
    Atribuir_Legendas_Dos_Quadros();
    Dar_Nomes_Acessiveis();
    Arrumar();
    tbsOptions_Click();
    contas_->Preencher();
    Preencher_Controlos();
}

void frmOpcoes::Atribuir_Legendas()
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(151)));
    for (const qint16 texto : textos_dos_separadores)
        tbsOptions->addTab(geral_.Ler_Idioma(texto));
    const std::pair<QAbstractButton *, qint16> clicaveis[]{
        {cmdCancelar, 43},   {Opcao0, 196},      {Opcao1, 197},      {Opcao2, 198},
        {cmdFonte, 200},     {cmdCor, 201},      {cmdProcurar, 69},  {OpcaoSim, 202},
        {OpcaoNao, 203},     {cbMinimizar, 204}, {cbMessenger, 265}, {cbActivarMailNotification, 247},
        {cmdAdicionar, 228}, {cmdEditar, 131},   {cmdEliminar, 132}, {cmdPlay, 270},
        {cmdProcurarSom, 69}};
    for (const auto &[botao, texto] : clicaveis)
        botao->setText(geral_.Ler_Idioma(texto));
    const std::pair<QLabel *, qint16> etiquetas[]{{lblDias, 195},    {lblBD, 221},
                                                  {lblIdioma, 240},  {lblMailNotification, 246},
                                                  {lblMinutos, 251}, {lblSons, 268}};
    for (const auto &[etiqueta, texto] : etiquetas)
        etiqueta->setText(geral_.Ler_Idioma(texto));
    txtMemo->setPlainText(geral_.Ler_Idioma(199));
}

// A heading has no mnemonic: the tab of the same name has it.
void frmOpcoes::Atribuir_Legendas_Dos_Quadros()
{
    const std::pair<QGroupBox *, qint16> quadros[]{{frameRemetente, 193},    {frameDestinatario, 194},
                                                   {frameAniversarios, 190}, {frameMemos, 191},
                                                   {FrameBD, 220},           {frameArranque, 192},
                                                   {FrameIdiomas, 239},      {FrameMailNotification, 245},
                                                   {FrameSons, 267}};
    for (const auto &[quadro, texto] : quadros)
        quadro->setTitle(withoutMnemonic(geral_.Ler_Idioma(texto)));
}

void frmOpcoes::Dar_Nomes_Acessiveis()
{
    tbsOptions->setAccessibleName(windowTitle());
    txtRemetente->setAccessibleName(frameRemetente->title());
    txtDestinatario->setAccessibleName(frameDestinatario->title());
    lvEmails->setAccessibleName(FrameMailNotification->title());
    txtCaminhoSom->setAccessibleName(FrameSons->title());
    Distinguir(*cmdProcurar, *FrameBD);
    Distinguir(*cmdProcurarSom, *FrameSons);
}

// All panes get the size of the largest, so that the form stays as it is from tab to tab.
void frmOpcoes::Arrumar()
{
    QSize maior(tbsOptions->sizeHint().width(), 0);
    for (const QWidget *pane : picOptions)
        maior = maior.expandedTo(pane->sizeHint());
    areaCliente->setFixedSize(maior);
    for (QWidget *pane : picOptions)
        pane->resize(maior);
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

void frmOpcoes::Preencher_Controlos()
{
    cbActivarMailNotification->setChecked(geral_.EmailNotifyActivo == 1);
    cbActivarMailNotification_Click();
    ComboMailNotification->setCurrentText(QString::number(geral_.EmailNotifyMinutos));
    txtRemetente->setPlainText(geral_.RemetenteBD);
    txtDestinatario->setPlainText(geral_.DestinatarioBD);
    comboAniversario->setCurrentText(QString::number(geral_.DiasAniversarios));
    bool numero = false;
    const int aviso = geral_.AvisoAniversarios.toInt(&numero);
    QRadioButton *const avisos[]{Opcao0, Opcao1, Opcao2};
    for (int i = 0; i < 3; ++i)
        avisos[i]->setChecked(numero && aviso == i);
    memos_->Preencher();
    arranque_->Preencher();
    txtCaminho->setText(geral_.de.Base().Caminho());
    sons_->Preencher();
    Escolher_Idioma_Actual();
}

// Without a click: nobody has chosen anything. A language that isn't offered is shown, and not selected.
void frmOpcoes::Escolher_Idioma_Actual()
{
    for (const Idioma &idioma : idiomas::todos)
        if (idioma.disponivel) comboIdioma->AddItem(QString::fromUtf16(idioma.nome));
    const Idioma *actual = idiomas::Procurar(geral_.IdiomaActual);
    if (actual == nullptr) return;
    const QString nome = QString::fromUtf16(actual->nome);
    comboIdioma->setCurrentIndex(comboIdioma->findText(nome));
    comboIdioma->setPlaceholderText(nome);
}

// The mail check goes on where it was held up, instead of beginning anew.
void frmOpcoes::Form_Unload()
{
    pausa_.Largar();
    geral_.temporizadores.timerTarefas.setEnabled(true);
    geral_.temporizadores.timerPonto.setEnabled(true);
    Q_EMIT geral_.temporizadores.ReiniciarMail();
}

void frmOpcoes::reject()
{
    if (cmdCancelar->isEnabled()) QDialog::reject();
}

void frmOpcoes::tbsOptions_Click()
{
    for (int indice = 0; QWidget * pane : picOptions) {
        const bool escolhido = indice++ == tbsOptions->currentIndex();
        pane->move(escolhido ? 0 : pixels(fora_da_vista), 0);
        pane->setVisible(escolhido);
    }
}

void frmOpcoes::Separador_Seguinte()
{
    tbsOptions->setFocus();
    tbsOptions->setCurrentIndex((tbsOptions->currentIndex() + 1) % tbsOptions->count());
}

// In the two address boxes the Enter key makes a new line, and from then on confirms nothing. The form's
// notion of a default button can't be emptied, only moved: to one that is never seen.
bool frmOpcoes::eventFilter(QObject *alvo, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) semOmissao->setDefault(true);
    return QDialog::eventFilter(alvo, event);
}

void frmOpcoes::cbActivarMailNotification_Click()
{
    const bool activo = cbActivarMailNotification->isChecked();
    ComboMailNotification->setEnabled(activo);
    lvEmails->setEnabled(activo);
}

void frmOpcoes::comboIdioma_Click() { platform_.boxes.show(geral_.Ler_Idioma(238), box::information, this); }

void frmOpcoes::cmdProcurar_Click()
{
    const auto ficheiro = platform_.dialogs.openFile(geral_.Ler_Idioma(218) + u"|*.mdb"_s, {}, this);
    if (!ficheiro) return;
    txtBD->setText(u"1"_s);
    platform_.boxes.show(geral_.Ler_Idioma(219), box::information, windowTitle(), this);
    txtCaminho->setText(*ficheiro);
}

// The first value that config.ini would cut short is refused on its own pane.
bool frmOpcoes::Tudo_Cabe_No_Ini()
{
    const std::pair<const QWidget *, QString> valores[]{{picOptions6, ComboMailNotification->currentText()},
                                                        {picOptions1, comboAniversario->currentText()},
                                                        {picOptions2, txtMemo->font().family()},
                                                        {picOptions3, txtCaminho->text()},
                                                        {picOptions7, geral_.SomEmail},
                                                        {picOptions7, geral_.SomTarefa}};
    for (const auto &[pane, valor] : valores) {
        if (Cabe_No_Ini(valor)) continue;
        Mostrar_Pane(*pane);
        Recusar_Valor_Longo(valor, geral_, platform_, this);
        return false;
    }
    return true;
}

void frmOpcoes::Mostrar_Pane(const QWidget &pane)
{
    const auto lugar = std::find(picOptions.begin(), picOptions.end(), &pane) - picOptions.begin();
    tbsOptions->setCurrentIndex(static_cast<int>(lugar));
}

// The one that the program has already is not tried again, and a file that was chosen is there.
bool frmOpcoes::Serve_O_Caminho()
{
    const QString caminho = txtCaminho->text().trimmed();
    const bool endereco = Connection::isAddress(caminho);
    if (caminho == geral_.de.Base().Caminho()) return true;
    if (endereco ? Responde(caminho) : !txtCaminho->isModified() || QFileInfo(caminho).isFile()) return true;
    if (!endereco) platform_.boxes.show(geral_.Ler_Idioma(454), box::stop, windowTitle(), this);
    txtCaminho->setFocus();
    return false;
}

bool frmOpcoes::Responde(const QString &endereco)
{
    try {
        const QScopeGuard fim([] { QGuiApplication::restoreOverrideCursor(); });
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        geral_.de.Experimentar_Endereco(endereco);
    } catch (const Failure &falha) {
        Mostrar_Pane(*picOptions3);
        platform_.boxes.show(servidor_ausente::Palavras(falha, geral_), box::stop, windowTitle(), this);
        return false;
    }
    return true;
}

// The order is fixed: a failure leaves everything before it written, and nothing after it.
void frmOpcoes::cmdOk_Click()
{
    if (!Tudo_Cabe_No_Ini() || !Serve_O_Caminho()) return;
    Escrever_Aviso_De_Email();
    Escrever_Envelopes();
    Escrever_Aniversarios();
    memos_->Escrever();
    arranque_->Escrever();
    sons_->Escrever();
    Escrever_Pasta_Das_Fotos();
    Escrever_Caminho();
    Escrever_Idioma();
    accept();
}

void frmOpcoes::Escrever_Aviso_De_Email()
{
    const QString seccao = geral_.Seccao_Do_Utilizador(u"emailnotify"_s);
    const QString activo = cbActivarMailNotification->isChecked() ? u"1"_s : u"0"_s;
    const QString minutos = ComboMailNotification->currentText();
    geral_.ini.Escrever_Ini(seccao, u"activo"_s, activo);
    geral_.ini.Escrever_Ini(seccao, u"minutos"_s, minutos);
    janela_.lblTemporizador->setCaption(minutos);
    geral_.EmailNotifyActivo = Inteiro(activo);
    geral_.EmailNotifyMinutos = Inteiro(minutos);
}

void frmOpcoes::Escrever_Envelopes()
{
    const QString remetente = Com_Retornos(txtRemetente->toPlainText());
    const QString destinatario = Com_Retornos(txtDestinatario->toPlainText());
    geral_.de.Executar("cmdUpdateEnvelope", {remetente, destinatario});
    geral_.RemetenteBD = remetente;
    geral_.DestinatarioBD = destinatario;
}

void frmOpcoes::Escrever_Aniversarios()
{
    const std::pair<const QRadioButton *, QString> avisos[]{
        {Opcao0, u"0"_s}, {Opcao1, u"1"_s}, {Opcao2, u"2"_s}};
    for (const auto &[opcao, aviso] : avisos) {
        if (!opcao->isChecked()) continue;
        geral_.ini.Escrever_Ini(u"aniversarios"_s, u"aviso"_s, aviso);
        geral_.AvisoAniversarios = aviso;
    }
    const QString dias = comboAniversario->currentText();
    geral_.ini.Escrever_Ini(u"aniversarios"_s, u"dias"_s, dias);
    geral_.DiasAniversarios = Inteiro(dias);
}

void frmOpcoes::Escrever_Pasta_Das_Fotos()
{
    if (!geral_.UltimaPastaFotos.isEmpty()) return;
    geral_.UltimaPastaFotos = u"c:\\"_s;
    geral_.ini.Escrever_Ini(u"fotografias"_s, u"lastpathpic"_s, geral_.UltimaPastaFotos);
}

// The path ends the state of a first run. The connection stays on the old one until the next start.
void frmOpcoes::Escrever_Caminho()
{
    geral_.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, txtCaminho->text().trimmed());
}

void frmOpcoes::Escrever_Idioma()
{
    for (const Idioma &idioma : idiomas::todos)
        if (comboIdioma->currentText() == QStringView(idioma.nome))
            geral_.de.Executar("cmdUPDATEIdioma", {QString::fromLatin1(idioma.coluna)});
}
