#include "cards/frmImportarContactos.h"

#include "cards/Codificacoes.h"
#include "cards/ContactosAImportar.h"
#include "cards/frmCampos.h"
#include "cards/RelatorioDaImportacao.h"
#include "cards/RetratoDoContacto.h"
#include "contacts/Preencher_Grupos.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 pausa_maior = 12; // ms without a look at what the person does
} // namespace

frmImportarContactos::frmImportarContactos(Geral &geral, Platform &platform, QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      platform_(platform),
      pausa_(geral.temporizadores),
      contactos_(new ContactosAImportar(geral, this))
{
    setupUi(this);
    scale::apply(*this);
    retrato_ = std::make_unique<RetratoDoContacto>(geral, *txtContacto);
    Lista->setModel(contactos_);
    Ligar();
    Escrever_Textos();
    Preencher_Listas();
    keepPlaceWhenHidden(*ProgressBar1);
    Passar_A(Estado::Vazio);
}

frmImportarContactos::~frmImportarContactos() = default;

void frmImportarContactos::Ligar()
{
    connect(cmdProcurar, &QAbstractButton::clicked, this, &frmImportarContactos::cmdProcurar_Click);
    connect(ComboCodificacao, &QComboBox::activated, this, &frmImportarContactos::ComboCodificacao_Click);
    connect(chkCriar, &QAbstractButton::clicked, this, &frmImportarContactos::chkCriar_Click);
    connect(chkJuntar, &QAbstractButton::clicked, this, &frmImportarContactos::chkJuntar_Click);
    connect(ComboEscolha, &QComboBox::activated, this, &frmImportarContactos::ComboEscolha_Click);
    connect(ComboGrupos, &QComboBox::activated, this, &frmImportarContactos::Mostrar_Contacto);
    connect(cmdImportar, &QAbstractButton::clicked, this, &frmImportarContactos::cmdImportar_Click);
    connect(cmdAnular, &QAbstractButton::clicked, this, &frmImportarContactos::cmdAnular_Click);
    connect(cmdCancelar, &QAbstractButton::clicked, this, &frmImportarContactos::reject);
    connect(Lista->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &frmImportarContactos::Mostrar_Contacto);
    connect(contactos_, &QAbstractItemModel::dataChanged, this, &frmImportarContactos::Mostrar_Contacto);
    connect(&passo_, &QTimer::timeout, this, &frmImportarContactos::Passo);
    connect(this, &QDialog::finished, this, &frmImportarContactos::Form_Unload);
    passo_.setSingleShot(true);
    Lista->installEventFilter(this);
}

void frmImportarContactos::Escrever_Textos()
{
    const auto legenda = [this](auto *controlo, qint16 texto) {
        controlo->setText(geral_.Ler_Idioma(texto));
    };
    setWindowTitle(geral_.Ler_Idioma(285));
    legenda(Label1, 286);
    legenda(cmdProcurar, 69);
    legenda(lblGrupos, 289);
    legenda(chkCriar, 290);
    legenda(chkJuntar, 291);
    legenda(lblCodificacao, 292);
    legenda(lblEscolha, 293);
    legenda(cmdImportar, 287);
    legenda(cmdAnular, 288);
    Lista->setAccessibleName(windowTitle());
    txtContacto->setAccessibleName(geral_.Ler_Idioma(334));
    ProgressBar1->setAccessibleName(windowTitle());
}

// The group on view is where a person would look for what comes.
void frmImportarContactos::Preencher_Listas()
{
    Oferecer_Grupos(geral_, *ComboGrupos);
    for (int i = 0; i < ComboGrupos->ListCount(); ++i)
        if (QString::number(ComboGrupos->ItemData(i)) == geral_.GrupoActual) ComboGrupos->setCurrentIndex(i);
    ComboCodificacao->AddItem(geral_.Ler_Idioma(310));
    for (const char *codificacao : codificacoes::nomes)
        ComboCodificacao->AddItem(codificacoes::Palavra(codificacao, geral_.IdiomaActual));
    ComboCodificacao->setCurrentIndex(0);
    chkJuntar->setChecked(geral_.SessaoActual.Editar);
    QHeaderView &cabecalho = *Lista->header();
    cabecalho.resizeSection(ContactosAImportar::IgualA, scale::scaled(60)); // at least: it takes the rest
    cabecalho.setStretchLastSection(true);
    cabecalho.resizeSection(ContactosAImportar::Nome, scale::scaled(124));
    cabecalho.resizeSection(ContactosAImportar::Numero, scale::scaled(110));
    cabecalho.resizeSection(ContactosAImportar::Email, scale::scaled(130));
    cabecalho.resizeSection(ContactosAImportar::Estado, scale::scaled(92));
}

void frmImportarContactos::Form_Unload()
{
    passo_.stop();
    pausa_.Retomar();
}

void frmImportarContactos::Passar_A(Estado estado)
{
    const bool trabalha = estado == Estado::A_Ler || estado == Estado::A_Escrever;
    const bool lido = estado == Estado::Lido;
    const bool acabou = estado == Estado::Relatorio;
    estado_ = estado;
    ProgressBar1->setVisible(trabalha);
    cmdProcurar->setEnabled(!trabalha && !acabou);
    for (QWidget *controlo : std::initializer_list<QWidget *>{ComboGrupos, chkCriar, chkJuntar, ComboEscolha})
        controlo->setEnabled(lido);
    Lista->setEnabled(lido || estado == Estado::Vazio);
    ComboCodificacao->setEnabled(lido && !tabela_);
    cmdImportar->setVisible(!acabou);
    cmdImportar->setEnabled(lido && contactos_->rowCount() > 0);
    cmdAnular->setVisible(acabou);
    cmdCancelar->setText(geral_.Ler_Idioma(acabou ? 135 : 43));
    Lista->setEmptyText(estado == Estado::A_Ler ? QString() : geral_.Ler_Idioma(lido ? 331 : 330));
}

void frmImportarContactos::reject()
{
    if (estado_ == Estado::A_Escrever) {
        cancelada_ = true;
        return;
    }
    QDialog::reject();
}

void frmImportarContactos::cmdProcurar_Click()
{
    const auto escolhido = platform_.dialogs.openFile(
        geral_.Ler_Idioma(329) + u"|*.vcf;*.vcard;*.vct;*.csv;*.txt"_s, QString(), this);
    if (escolhido) Abrir(*escolhido);
}

void frmImportarContactos::Abrir(const QString &caminho)
{
    if (!caminho.isEmpty()) Comecar(FicheiroDeContactos::Ler(caminho), QDir::toNativeSeparators(caminho));
}

void frmImportarContactos::Abrir_Cartoes(const QByteArray &bytes)
{
    Comecar(FicheiroDeContactos::Com(bytes), geral_.Ler_Idioma(335));
}

// A table is settled first; without that the form is as it was.
void frmImportarContactos::Comecar(const FicheiroDeContactos &ficheiro, const QString &nome)
{
    constexpr qint64 um_MB = qint64{1} << 20;
    if (ficheiro.Leitura() == FicheiroDeContactos::Estado::Ilegivel)
        return Recusar(geral_.Ler_Idioma(87) + u"\r\n"_s + nome);
    if (ficheiro.Leitura() == FicheiroDeContactos::Estado::Grande)
        return Recusar(geral_.Ler_Idioma(326) + u' ' + QString::number(ficheiro.Limite() / um_MB));
    std::optional<TabelaEscolhida> tabela;
    if (ficheiro.E_Tabela()) {
        frmCampos campos(geral_, platform_, ficheiro.Bytes(), isVisible() ? this : parentWidget());
        campos.exec();
        tabela = campos.Escolhida();
        if (!tabela) return;
    }
    tabela_ = std::move(tabela);
    bytes_ = tabela_ ? QByteArray() : ficheiro.Bytes();
    txtCaminho->setText(nome);
    ComboCodificacao->setCurrentIndex(0);
    escolhas_.Esquecer();
    Recomecar();
}

void frmImportarContactos::Recomecar()
{
    contactos_->Mostrar(nullptr);
    retrato_->Limpar();
    escrita_.reset();
    importacao_.emplace(geral_.de, geral_.SessaoActual.IdUtilizador, geral_.IdiomaActual);
    aberta_ = false;
    ProgressBar1->setValue(0);
    lblContagem->setText(geral_.Ler_Idioma(311));
    Passar_A(Estado::A_Ler);
    passo_.start(0);
}

void frmImportarContactos::Abrir_Fonte()
{
    GruposDaImportacao grupos;
    for (int i = 0; i < ComboGrupos->ListCount(); ++i)
        grupos.visiveis << ComboGrupos->List(i);
    grupos.criar = chkCriar->isChecked();
    if (tabela_)
        importacao_->Abrir_Tabela(*tabela_, grupos);
    else
        importacao_->Abrir_Cartoes(bytes_, codificacoes::Do_Lugar(ComboCodificacao->currentIndex()), grupos);
    aberta_ = true;
}

// A failure leaves the form without a file. The file is taken apart in one go: the bar is painted before.
void frmImportarContactos::Passo()
{
    auto falhou = qScopeGuard([this] {
        lblContagem->clear();
        txtCaminho->clear();
        skipFailure([this] { Passar_A(Estado::Vazio); });
    });
    bool ha_mais = true;
    if (!aberta_) {
        repaint();
        Abrir_Fonte();
    } else
        ha_mais = importacao_->Avancar();
    falhou.dismiss();
    ProgressBar1->setValue(importacao_->Percentagem());
    if (ha_mais)
        passo_.start(0);
    else
        Lido();
}

void frmImportarContactos::Lido()
{
    contactos_->Mostrar(&*importacao_);
    contactos_->Juntar_Aos_Existentes(chkJuntar->isChecked());
    escolhas_.Repor(importacao_->Contactos());
    Passar_A(Estado::Lido);
    if (contactos_->rowCount() > 0) {
        Lista->setCurrentIndex(contactos_->index(0, 0));
        Lista->setFocus();
    }
    lblContagem->setText(RelatorioDaImportacao(geral_).Lidos(*importacao_));
}

void frmImportarContactos::ComboCodificacao_Click()
{
    escolhas_.Guardar(importacao_->Contactos());
    Recomecar();
}

void frmImportarContactos::chkCriar_Click()
{
    const bool pode =
        !chkCriar->isChecked() || Tem_Direito(geral_.SessaoActual.Grupos, geral_, platform_, this);
    if (!pode) return chkCriar->setChecked(false);
    ComboCodificacao_Click();
}

void frmImportarContactos::chkJuntar_Click()
{
    const bool pode =
        !chkJuntar->isChecked() || Tem_Direito(geral_.SessaoActual.Editar, geral_, platform_, this);
    if (!pode) return chkJuntar->setChecked(false);
    contactos_->Juntar_Aos_Existentes(chkJuntar->isChecked());
}

int frmImportarContactos::Linha() const
{
    return estado_ == Estado::Lido && Lista->currentIndex().isValid() ? Lista->currentIndex().row() : -1;
}

// The first is new, the last is skipped, and between them stand those with whom it may be joined.
void frmImportarContactos::ComboEscolha_Click()
{
    if (Linha() < 0) return;
    const int qual = ComboEscolha->currentIndex();
    if (qual == 0) return contactos_->Escolher(Linha(), Escolha::Novo);
    if (qual == ComboEscolha->count() - 1) return contactos_->Escolher(Linha(), Escolha::Saltar);
    if (Tem_Direito(geral_.SessaoActual.Editar, geral_, platform_, this))
        contactos_->Escolher(Linha(), Escolha::Juntar, static_cast<std::size_t>(qual - 1));
    else
        Mostrar_Contacto();
}

// Space ticks the row in whatever column the keyboard stands.
bool frmImportarContactos::eventFilter(QObject *alvo, QEvent *evento)
{
    const bool e_tecla = evento->type() == QEvent::KeyPress;
    if (!e_tecla || static_cast<QKeyEvent *>(evento)->key() != Qt::Key_Space || Linha() < 0)
        return QDialog::eventFilter(alvo, evento);
    contactos_->Alternar(Linha());
    return true;
}

void frmImportarContactos::Mostrar_Contacto()
{
    if (Linha() < 0) return;
    const ContactoAImportar &contacto = importacao_->Contactos().at(static_cast<std::size_t>(Linha()));
    RelatorioDaImportacao(geral_).Escrever(*retrato_, *importacao_, contacto, ComboGrupos->currentText());
    Mostrar_Escolhas(contacto);
}

void frmImportarContactos::Mostrar_Escolhas(const ContactoAImportar &contacto)
{
    const std::size_t outros = std::min(contacto.quem.size(), RelatorioDaImportacao::mais_outros);
    ComboEscolha->Clear();
    ComboEscolha->AddItem(geral_.Ler_Idioma(307));
    for (std::size_t i = 0; i < outros; ++i)
        ComboEscolha->AddItem(geral_.Ler_Idioma(308) + u' ' + contactos_->Nome_De(contacto.quem[i]));
    ComboEscolha->AddItem(geral_.Ler_Idioma(309));
    const std::size_t qual = contacto.escolha == Escolha::Novo     ? 0
                             : contacto.escolha == Escolha::Juntar ? contacto.com + 1
                                                                   : outros + 1;
    ComboEscolha->setCurrentIndex(static_cast<int>(qual));
}

void frmImportarContactos::Recusar(const QString &texto)
{
    platform_.boxes.show(texto, box::stop, windowTitle(), isVisible() ? this : parentWidget());
}

bool frmImportarContactos::Pode_Importar()
{
    const EscritaDaImportacao::Contagem prevista = escrita_->Prevista();
    const Sessao &sessao = geral_.SessaoActual;
    if (prevista.adicionados > 0 && !Tem_Direito(sessao.Adicionar, geral_, platform_, this)) return false;
    if (prevista.completados > 0 && !Tem_Direito(sessao.Editar, geral_, platform_, this)) return false;
    if (ComboGrupos->ListIndex() >= 0) return true;
    Recusar(geral_.Ler_Idioma(328));
    return false;
}

void frmImportarContactos::cmdImportar_Click()
{
    const QString grupo = ComboGrupos->ListIndex() < 0 ? QString() : ComboGrupos->ChosenItemData();
    if (!escrita_ || !escrita_->Em_Duvida())
        escrita_.emplace(geral_.de, *importacao_,
                         EscritaDaImportacao::Pedido{geral_.SessaoActual.IdUtilizador, grupo,
                                                     chkCriar->isChecked() && geral_.SessaoActual.Grupos});
    if (!Pode_Importar()) return;
    lblContagem->setText(geral_.Ler_Idioma(312));
    ProgressBar1->setValue(0);
    Passar_A(Estado::A_Escrever);
    const auto volta = qScopeGuard([this] {
        if (estado_ != Estado::A_Escrever) return;
        skipFailure([this] {
            Passar_A(Estado::Lido);
            lblContagem->setText(RelatorioDaImportacao(geral_).Lidos(*importacao_));
        });
    });
    if (!Escrever()) return;
    Mostrar_Relatorio();
    Q_EMIT ContactosMudados();
}

// False where nothing was written. Other failures tell themselves.
bool frmImportarContactos::Escrever()
{
    try {
        cancelada_ = false;
        desde_.start();
        if (escrita_->Escrever([this](int percentagem) { return Progresso(percentagem); })) return true;
        Passar_A(Estado::Lido);
        lblContagem->setText(geral_.Ler_Idioma(333));
    } catch (const NaoCabem &falta) {
        Recusar(geral_.Ler_Idioma(327) + u' ' + QString::number(falta.cabem));
    } catch (const GrupoDesaparecido &) {
        Recusar(geral_.Ler_Idioma(328));
    }
    return false;
}

// Only this form takes what the person does: it stands before all other windows.
bool frmImportarContactos::Progresso(int percentagem)
{
    if (percentagem == 0 || desde_.elapsed() >= pausa_maior) {
        ProgressBar1->setValue(percentagem);
        QCoreApplication::processEvents();
        desde_.restart();
    }
    return !cancelada_;
}

void frmImportarContactos::Mostrar_Relatorio()
{
    const RelatorioDaImportacao relatorio(geral_);
    Passar_A(Estado::Relatorio);
    lblContagem->setText(relatorio.Feitos(escrita_->Feita()));
    relatorio.Escrever(*retrato_, *importacao_, *escrita_);
    ComboEscolha->Clear();
    cmdCancelar->setFocus();
}

void frmImportarContactos::cmdAnular_Click()
{
    escrita_->Anular();
    Passar_A(Estado::Lido);
    Mostrar_Contacto();
    lblContagem->setText(geral_.Ler_Idioma(332));
    Q_EMIT ContactosMudados();
}
