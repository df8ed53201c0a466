#include "interchange/frmExportarContactos.h"

#include "controls/Controls.h"
#include "controls/ListBox.h"
#include "controls/Scale.h"
#include "controls/SpokenName.h"
#include "data/Geral.h"
#include "interchange/ExportacaoDeContactos.h"
#include "interchange/NumeroDoCartao.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_titulo = 275;
constexpr qint16 texto_cartoes = 402;
constexpr qint16 texto_tabelas = 403;
constexpr qint16 texto_pasta = 404;
constexpr qint16 texto_nome_proposto = 405;
constexpr qint16 texto_nenhum = 406;
constexpr qint16 texto_feito_um = 407;
constexpr qint16 texto_feitos = 408;
constexpr qint16 texto_fotografia_de_fora = 409;
constexpr qint16 texto_fotografias_de_fora = 410;
constexpr qint16 texto_nao_se_escreve = 411;
constexpr qint16 texto_verifique = 412;
constexpr qint16 texto_cancelada = 413;

constexpr int passo = 8; // milliseconds between two looks at the events

// What it is about stands behind the option's own words.
void Oferecer(QRadioButton &opcao, bool ha, const QString &nome)
{
    constexpr qsizetype mais_letras = 40;
    opcao.setEnabled(ha);
    if (!ha) return;
    const QString inteiro = nome.simplified();
    QString visto = Cortado(inteiro, mais_letras);
    if (visto != inteiro) visto += u'…';
    opcao.setText(opcao.text() + u" (%1)"_s.arg(visto.replace(u'&', "&&"_L1)));
}
} // namespace

frmExportarContactos::frmExportarContactos(const Janela &janela, Geral &geral, Platform &platform,
                                           QWidget *dono)
    : QDialog(dono), geral_(geral), platform_(platform), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    connect(ComboFormato, &ComboBox::Click, this, &frmExportarContactos::ComboFormato_Click);
    connect(cmdExportar, &QPushButton::clicked, this, &frmExportarContactos::cmdExportar_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmExportarContactos::reject);
    connect(&passo_, &QTimer::timeout, this, &frmExportarContactos::Passo);
    connect(this, &QDialog::finished, this, &frmExportarContactos::Form_Unload);

    Legendar();
    Oferecer_Contactos(janela);
    Oferecer_Formatos();
    keepPlaceWhenHidden(*ProgressBar1);
    ProgressBar1->hide();
}

frmExportarContactos::~frmExportarContactos() = default;

void frmExportarContactos::Legendar()
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(texto_titulo)));
    FrameContactos->setTitle(geral_.Ler_Idioma(390));
    OptionSelecionado->setText(geral_.Ler_Idioma(391));
    OptionGrupo->setText(geral_.Ler_Idioma(392));
    OptionTodos->setText(geral_.Ler_Idioma(393));
    FrameFormato->setTitle(geral_.Ler_Idioma(394));
    cbFotografias->setText(geral_.Ler_Idioma(399));
    cbUmPorContacto->setText(geral_.Ler_Idioma(400));
    cmdExportar->setText(geral_.Ler_Idioma(401));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    setSpokenName(*ComboFormato, FrameFormato->title());
    ProgressBar1->setAccessibleName(windowTitle());
}

// What the list shows is what is offered first: its group, else all of them.
void frmExportarContactos::Oferecer_Contactos(const Janela &janela)
{
    const ListBox &nomes = *janela.ListaNomes;
    if (nomes.ListIndex() >= 0) nome_seleccionado_ = nomes.List(nomes.ListIndex());
    Oferecer(*OptionSelecionado, nomes.ListIndex() >= 0, nome_seleccionado_);

    const ComboBox &grupos = *janela.ComboGrupos;
    if (grupos.ListIndex() >= 0) grupo_ = grupos.ItemData(grupos.ListIndex());
    if (grupo_ != 0) nome_do_grupo_ = grupos.currentText();
    Oferecer(*OptionGrupo, grupo_ != 0, nome_do_grupo_);
    OptionGrupo->setChecked(grupo_ != 0);
}

void frmExportarContactos::Oferecer_Formatos()
{
    constexpr std::pair<qint16, FormatoDeSaida> formatos[]{{395, FormatoDeSaida::Cartao3},
                                                           {396, FormatoDeSaida::Cartao4},
                                                           {397, FormatoDeSaida::TabelaExcel},
                                                           {398, FormatoDeSaida::TabelaOutros}};
    for (const auto &[texto, formato] : formatos) {
        ComboFormato->AddItem(geral_.Ler_Idioma(texto));
        ComboFormato->SetItemData(ComboFormato->NewIndex(), static_cast<int>(formato));
    }
    ComboFormato->setListIndex(0);
}

void frmExportarContactos::Form_Unload() { pausa_.Retomar(); }

bool frmExportarContactos::E_Cartao() const
{
    const int formato = ComboFormato->ItemData(ComboFormato->ListIndex());
    return formato == static_cast<int>(FormatoDeSaida::Cartao3) ||
           formato == static_cast<int>(FormatoDeSaida::Cartao4);
}

void frmExportarContactos::ComboFormato_Click()
{
    for (QWidget *so_de_cartoes : {cbFotografias, cbUmPorContacto})
        so_de_cartoes->setEnabled(E_Cartao());
}

QList<int> frmExportarContactos::Contactos() const
{
    if (OptionSelecionado->isChecked()) return {geral_.IDContacto};
    const ContactosVisiveis visiveis(geral_);
    return OptionGrupo->isChecked() ? visiveis.Do_Grupo(grupo_) : visiveis.Todos();
}

QString frmExportarContactos::Nome_Proposto() const
{
    QString nome = geral_.Ler_Idioma(texto_nome_proposto);
    if (OptionSelecionado->isChecked()) nome = Nome_De_Ficheiro(nome_seleccionado_);
    if (OptionGrupo->isChecked()) nome = Nome_De_Ficheiro(nome_do_grupo_);
    const QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(pasta).filePath(nome + (E_Cartao() ? u".vcf"_s : u".csv"_s));
}

// The dialog for a file asks itself before one is replaced.
std::optional<QString> frmExportarContactos::Alvo(bool um_por_contacto)
{
    if (um_por_contacto)
        return platform_.dialogs.folder(geral_.Ler_Idioma(texto_pasta),
                                        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                                        this);
    const QString filtro = E_Cartao() ? geral_.Ler_Idioma(texto_cartoes) + u"|*.vcf"_s
                                      : geral_.Ler_Idioma(texto_tabelas) + u"|*.csv"_s;
    return platform_.dialogs.saveFile(filtro, Nome_Proposto(), this);
}

void frmExportarContactos::cmdExportar_Click()
{
    lblCancelada->clear();
    PedidoDeSaida pedido{Contactos(),
                         static_cast<FormatoDeSaida>(ComboFormato->ItemData(ComboFormato->ListIndex())),
                         cbFotografias->isChecked(), E_Cartao() && cbUmPorContacto->isChecked(), QString()};
    if (pedido.contactos.isEmpty()) {
        platform_.boxes.show(geral_.Ler_Idioma(texto_nenhum), box::stop, windowTitle(), this);
        return;
    }
    const std::optional<QString> alvo = Alvo(pedido.um_por_contacto);
    if (!alvo) return;
    pedido.alvo = *alvo;
    Tentar([&] { Comecar(pedido); });
}

void frmExportarContactos::Comecar(PedidoDeSaida pedido)
{
    alvo_ = pedido.alvo;
    exportacao_ = std::make_unique<ExportacaoDeContactos>(geral_, std::move(pedido));
    for (QWidget *escolha : std::initializer_list<QWidget *>{FrameContactos, FrameFormato, cmdExportar})
        escolha->setEnabled(false);
    ProgressBar1->setMaximum(exportacao_->Quantos());
    ProgressBar1->setValue(0);
    ProgressBar1->show();
    cmdCancelar->setFocus();
    passo_.start(0);
}

// Whatever was not concluded is gone with it.
void frmExportarContactos::Parar()
{
    passo_.stop();
    exportacao_.reset();
    ProgressBar1->hide();
    for (QWidget *escolha : std::initializer_list<QWidget *>{FrameContactos, FrameFormato, cmdExportar})
        escolha->setEnabled(true);
    cmdExportar->setFocus();
}

// A file that can't be written leaves the form open for another one; what the book refuses goes on.
void frmExportarContactos::Tentar(const std::function<void()> &trabalho)
{
    onFailure(trabalho, [this](const Failure &falha) {
        Parar();
        if (falha.number() != Failure::PathFileAccess) throw falha;
        platform_.boxes.show(geral_.Ler_Idioma(texto_nao_se_escreve).arg(falha.source()) + u"\r\n\r\n"_s +
                                 geral_.Ler_Idioma(texto_verifique),
                             box::stop, windowTitle(), this);
    });
}

void frmExportarContactos::Passo()
{
    Tentar([this] {
        exportacao_->Avancar(passo);
        ProgressBar1->setValue(exportacao_->Feitos());
        if (!exportacao_->Acabou()) return;
        if (exportacao_->Escritos() > 0) exportacao_->Concluir();
        const bool feito = exportacao_->Escritos() > 0;
        const QString resultado = feito ? Resultado() : geral_.Ler_Idioma(texto_nenhum);
        Parar();
        platform_.boxes.show(resultado, feito ? box::information : box::stop, windowTitle(), this);
        if (feito) accept();
    });
}

QString frmExportarContactos::Resultado() const
{
    const int escritos = exportacao_->Escritos();
    const int de_fora = exportacao_->Fotografias_De_Fora();
    QString resultado = escritos == 1 ? geral_.Ler_Idioma(texto_feito_um).arg(alvo_)
                                      : geral_.Ler_Idioma(texto_feitos).arg(alvo_, QString::number(escritos));
    if (de_fora == 1) resultado += u"\r\n\r\n"_s + geral_.Ler_Idioma(texto_fotografia_de_fora);
    if (de_fora > 1) resultado += u"\r\n\r\n"_s + geral_.Ler_Idioma(texto_fotografias_de_fora).arg(de_fora);
    return resultado;
}

void frmExportarContactos::reject()
{
    if (!exportacao_) return QDialog::reject();
    Parar();
    lblCancelada->setText(geral_.Ler_Idioma(texto_cancelada));
}
