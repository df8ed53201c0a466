#include "sincronizacao/frmSincronizar.h"

#include "cards/RotulosDoCartao.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "sincronizacao/PalavraPasseDoServidor.h"
#include "sincronizacao/PalavrasDaSincronizacao.h"

#include <QHeaderView>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace
{
using Fim = ResultadoDaSincronizacao::Fim;
constexpr int largura_quando = 150; // in pixels, as below
constexpr int largura_nome = 130;
constexpr int minutos_por_omissao = 30;

QString Momento(const QString &iso)
{
    return QLocale::system().toString(QDateTime::fromString(iso, Qt::ISODate), QLocale::ShortFormat);
}
} // namespace

frmSincronizar::frmSincronizar(Geral &geral, Platform &platform, Sincronizador &sincronizador, QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      platform_(platform),
      sincronizador_(sincronizador),
      memoria_(geral.de, geral.SessaoActual.IdUtilizador)
{
    setupUi(this);
    scale::apply(*this);
    lvOcorrencias->setColumnWidth(0, scale::scaled(largura_quando));
    lvOcorrencias->setColumnWidth(1, scale::scaled(largura_nome));
    connect(cmdEncontrar, &QPushButton::clicked, this, &frmSincronizar::cmdEncontrar_Click);
    connect(cmdSincronizar, &QPushButton::clicked, this, &frmSincronizar::cmdSincronizar_Click);
    connect(cmdLimpar, &QPushButton::clicked, this, &frmSincronizar::cmdLimpar_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmSincronizar::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmSincronizar::reject);
    for (QLineEdit *campo : {txtEndereco, txtUtilizador, txtPalavraPasse})
        connect(campo, &QLineEdit::textEdited, this, &frmSincronizar::Endereco_Mudou);
    for (ComboBox *caixa : {ComboLivro, ComboGrupo})
        connect(caixa, &ComboBox::Click, this, &frmSincronizar::Permitir);
    connect(cbLigada, &QCheckBox::toggled, this, &frmSincronizar::Permitir);
    connect(&sincronizador_, &Sincronizador::Progresso, this, &frmSincronizar::Mostrar_Progresso);
    connect(&sincronizador_, &Sincronizador::Acabou, this, &frmSincronizar::Acabou);

    keepPlaceWhenHidden(*ProgressBar1);
    ProgressBar1->hide();
    Legendar();
    Mostrar_Conta();
    Mostrar_Estado();
    Mostrar_Ocorrencias();
    if (sincronizador_.A_Correr()) Mostrar_Progresso(0, 0);
    Permitir();
}

void frmSincronizar::Legendar()
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(500)));
    const std::pair<QLabel *, qint16> rotulos[]{{lblEndereco, 501},     {lblUtilizador, 502},
                                                {lblPalavraPasse, 503}, {lblLivro, 505},
                                                {lblGrupo, 506},        {lblMinutos, 509}};
    for (const auto &[rotulo, texto] : rotulos)
        rotulo->setText(geral_.Ler_Idioma(texto));
    const std::pair<QAbstractButton *, qint16> comandos[]{{cmdEncontrar, 504}, {cbLigada, 507},
                                                          {cbArrancar, 508},   {cmdSincronizar, 510},
                                                          {cmdLimpar, 517},    {cmdCancelar, 43}};
    for (const auto &[botao, texto] : comandos)
        botao->setText(geral_.Ler_Idioma(texto));
    FrameServidor->setTitle(geral_.Ler_Idioma(511));
    FrameSaber->setTitle(geral_.Ler_Idioma(512));
    lvOcorrencias->setHeaderLabels({geral_.Ler_Idioma(513), geral_.Ler_Idioma(514), geral_.Ler_Idioma(515)});
    lvOcorrencias->setAccessibleName(FrameSaber->title());
    lvOcorrencias->setEmptyText(geral_.Ler_Idioma(516));
    ProgressBar1->setAccessibleName(windowTitle());
    lblGuarda->setText(geral_.Ler_Idioma(platform_.secrets.isThere() ? 528 : 529));
}

void frmSincronizar::Mostrar_Conta()
{
    const auto conta = memoria_.Conta();
    Mostrar_Grupos(conta ? conta->IDGrupo : 0);
    txtMinutos->setValue(conta && conta->Minutos > 0 ? conta->Minutos : minutos_por_omissao);
    if (!conta) return;
    txtEndereco->setText(conta->Endereco);
    txtUtilizador->setText(conta->Nome);
    txtPalavraPasse->setText(
        PalavraPasseDoServidor(geral_, platform_.secrets).Ler(*conta).value_or(QString()));
    cbLigada->setChecked(conta->Ligada);
    cbArrancar->setChecked(conta->AoArrancar);
    if (conta->Livro.isEmpty()) return;
    livros_ = {{QUrl(conta->Livro), conta->NomeDoLivro, true, isExposed(QUrl(conta->Livro))}};
    ComboLivro->AddItem(conta->NomeDoLivro);
    ComboLivro->setListIndex(0);
}

// The group of that name is offered even where it has still to be made.
void frmSincronizar::Mostrar_Grupos(int escolhido)
{
    nome_do_grupo_ = rotulos_do_cartao::Em(Rotulo::Telemovel, geral_.IdiomaActual);
    bool ja_ha = false;
    Recordset &rs = geral_.de.Abrir("cmdListarGrupos", {geral_.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString nome = rs.Fields("NomeGrupo").textOrEmpty();
        const int ID = rs.Fields("ID").number();
        ComboGrupo->AddItem(nome);
        ComboGrupo->SetItemData(ComboGrupo->NewIndex(), ID);
        const bool e_o_nosso = nome.compare(nome_do_grupo_, Qt::CaseInsensitive) == 0;
        ja_ha = ja_ha || e_o_nosso;
        if (ID == escolhido || (escolhido == 0 && e_o_nosso))
            ComboGrupo->setListIndex(ComboGrupo->NewIndex());
    }
    rs.Close();
    if (ja_ha || !geral_.SessaoActual.Grupos) return;
    ComboGrupo->AddItem(nome_do_grupo_);
    if (escolhido == 0) ComboGrupo->setListIndex(ComboGrupo->NewIndex());
}

void frmSincronizar::Mostrar_Estado()
{
    const EstadoDaConta estado = memoria_.Estado();
    if (estado.UltimaVez.isEmpty()) return lblUltima->setText(geral_.Ler_Idioma(519));
    lblUltima->setText(geral_.Ler_Idioma(518).arg(Momento(estado.UltimaVez)));
    Dizer(palavras_da_sincronizacao::Do_Resultado(geral_,
                                                  ResultadoDaSincronizacao::Do_Texto(estado.Resultado)));
}

void frmSincronizar::Mostrar_Ocorrencias()
{
    lvOcorrencias->clear();
    for (const Ocorrencia &ocorrencia : memoria_.Ocorrencias()) {
        const QString texto = palavras_da_sincronizacao::Da_Ocorrencia(geral_, ocorrencia);
        auto *item = new QTreeWidgetItem(lvOcorrencias, {Momento(ocorrencia.Quando), ocorrencia.Nome, texto});
        item->setToolTip(2, texto);
    }
    cmdLimpar->setEnabled(lvOcorrencias->topLevelItemCount() > 0);
}

void frmSincronizar::Dizer(const QString &texto)
{
    lblResultado->setText(texto);
    lblResultado->setAccessibleName(texto);
}

void frmSincronizar::Permitir()
{
    const bool livre = !sincronizador_.A_Correr() && !procura_;
    const int livro = ComboLivro->ListIndex();
    cmdEncontrar->setEnabled(livre && !txtEndereco->text().trimmed().isEmpty());
    cmdSincronizar->setEnabled(livre && livro >= 0 && ComboGrupo->ListIndex() >= 0);
    cmdOk->setEnabled(livre);
    cbArrancar->setEnabled(cbLigada->isChecked());
    txtMinutos->setEnabled(cbLigada->isChecked());
    const bool exposto = livro >= 0 && livros_.at(livro).exposed;
    lblExposto->setText(exposto ? geral_.Ler_Idioma(530) : QString());
}

// Another server has other books.
void frmSincronizar::Endereco_Mudou()
{
    if (sender() == txtEndereco) ComboLivro->Clear();
    Permitir();
}

void frmSincronizar::cmdEncontrar_Click()
{
    Dizer(QString());
    procura_ = sincronizador_.Servidores().procurar(
        txtEndereco->text().trimmed(), {txtUtilizador->text().trimmed(), txtPalavraPasse->text()},
        [this](const RemoteError &erro, const QList<FoundBook> &livros) {
            // The search is let go only once its answer is over.
            QMetaObject::invokeMethod(
                this, [this, erro, livros] { Encontrados(erro, livros); }, Qt::QueuedConnection);
        });
    Permitir();
}

void frmSincronizar::Encontrados(const RemoteError &erro, const QList<FoundBook> &livros)
{
    if (!procura_) return; // it was given up
    procura_.reset();
    if (erro.kind == RemoteError::Kind::Elsewhere) {
        const QString pergunta = geral_.Ler_Idioma(539).arg(erro.detail);
        if (platform_.boxes.show(pergunta, box::question | box::yesNo, windowTitle(), this) == answer::yes) {
            txtEndereco->setText(erro.detail);
            return cmdEncontrar_Click();
        }
    }
    if (erro) {
        Dizer(palavras_da_sincronizacao::Do_Erro(geral_, erro));
        return Permitir();
    }
    livros_ = livros;
    ComboLivro->Clear();
    for (const FoundBook &livro : livros)
        ComboLivro->AddItem(livro.name);
    ComboLivro->setListIndex(0); // which permits what can be done with it
    ComboLivro->setFocus();
    Dizer(QString());
}

// 0 where there is none.
int frmSincronizar::Grupo_Escolhido()
{
    if (ComboGrupo->ListIndex() < 0) return 0;
    const int ID = ComboGrupo->ItemData(ComboGrupo->ListIndex());
    if (ID != 0) return ID;
    geral_.de.Executar("cmdInserirGrupo", {nome_do_grupo_, geral_.SessaoActual.IdUtilizador});
    const int novo = static_cast<int>(geral_.de.Ultimo_ID("TblGrupos"));
    ComboGrupo->SetItemData(ComboGrupo->ListIndex(), novo);
    Q_EMIT sincronizador_.GruposMudados();
    return novo;
}

bool frmSincronizar::Guardar()
{
    ContaSincronizada conta = memoria_.Conta().value_or(ContaSincronizada());
    const bool nova = conta.Endereco.isEmpty();
    const int livro = ComboLivro->ListIndex();
    conta.Endereco = txtEndereco->text().trimmed();
    conta.Nome = txtUtilizador->text().trimmed();
    conta.Livro = livro < 0 ? QString() : livros_.at(livro).address.toString(QUrl::FullyEncoded);
    conta.NomeDoLivro = livro < 0 ? QString() : livros_.at(livro).name;
    conta.Ligada = cbLigada->isChecked();
    conta.AoArrancar = cbArrancar->isChecked();
    conta.Minutos = txtMinutos->value();
    bool guardada = false;
    onFailure(
        [&] {
            conta.IDGrupo = livro < 0 ? conta.IDGrupo : Grupo_Escolhido();
            // A store that was locked has shown none: what lies there stays.
            if (nova || txtPalavraPasse->isModified() || conta.Endereco.isEmpty() ||
                conta.PalavraPasse.isEmpty() != platform_.secrets.isThere())
                PalavraPasseDoServidor(geral_, platform_.secrets).Guardar(conta, txtPalavraPasse->text());
            memoria_.Guardar(conta);
            lblGuarda->setText(geral_.Ler_Idioma(conta.PalavraPasse.isEmpty() ? 528 : 529));
            txtPalavraPasse->setModified(false);
            guardada = true;
        },
        [this](const Failure &falha) { platform_.boxes.showError(falha); });
    if (guardada) sincronizador_.Retomar_Relogio();
    return guardada;
}

void frmSincronizar::cmdSincronizar_Click()
{
    if (!Guardar()) return;
    pediu_ = sincronizador_.Comecar(Sincronizacao::Modo::Normal);
    if (pediu_)
        Mostrar_Progresso(0, 0);
    else
        Dizer(geral_.Ler_Idioma(540));
    Permitir();
}

void frmSincronizar::Mostrar_Progresso(int feitos, int de_quantos)
{
    ProgressBar1->show();
    ProgressBar1->setRange(0, de_quantos);
    ProgressBar1->setValue(feitos);
    QString texto = geral_.Ler_Idioma(525);
    if (de_quantos > 0) texto += u" %1 / %2"_s.arg(feitos).arg(de_quantos);
    lblResultado->setText(texto);
}

void frmSincronizar::Acabou(const ResultadoDaSincronizacao &resultado)
{
    ProgressBar1->hide();
    Mostrar_Estado();
    Dizer(palavras_da_sincronizacao::Do_Resultado(geral_, resultado));
    Mostrar_Ocorrencias();
    Permitir();
    if (resultado.fim == Fim::Perguntar && pediu_) Perguntar(resultado);
}

void frmSincronizar::Perguntar(const ResultadoDaSincronizacao &resultado)
{
    const QString pergunta = geral_.Ler_Idioma(resultado.pergunta_la ? 550 : 549)
                                 .arg(resultado.pergunta_quantos)
                                 .arg(resultado.pergunta_de_quantos);
    const bool sim =
        platform_.boxes.show(pergunta, box::question | box::yesNo, windowTitle(), this) == answer::yes;
    pediu_ = sincronizador_.Comecar(sim ? Sincronizacao::Modo::ApagarMuitos : Sincronizacao::Modo::SemApagar);
    Permitir();
}

void frmSincronizar::cmdLimpar_Click()
{
    memoria_.Limpar_Ocorrencias();
    Mostrar_Ocorrencias();
}

void frmSincronizar::cmdOk_Click()
{
    if (Guardar()) accept();
}

void frmSincronizar::reject()
{
    if (procura_) {
        procura_.reset();
        return Permitir();
    }
    if (pediu_ && sincronizador_.A_Correr()) return sincronizador_.Cancelar();
    QDialog::reject();
}
