#include "cards/frmCampos.h"

#include "cards/Codificacoes.h"
#include "cards/LinhasDoContacto.h"
#include "cards/ModelosDaTabela.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "platform/Platform.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QScopeGuard>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{
constexpr int largura_da_coluna = 140; // in pixels, as below
constexpr int altura_do_campo = 24;
constexpr int altura_da_linha = 18;
constexpr int largura_do_rotulo = 90;
constexpr auto separadores = u",;\t|";

ContactosDaTabela::Opcoes Opcoes_De(const Geral &geral, const Platform &platform)
{
    return {geral.IdiomaActual, DateOrder::DayFirst, platform.clock.today().year(), {}};
}

// A remark can be as long as its author liked.
QString A_Vista(const QString &valor)
{
    constexpr qsizetype mais_letras = 2000;
    return valor.size() > mais_letras ? valor.left(mais_letras) + u'…' : valor;
}

void Por_Alturas(QTableView &tabela, int altura)
{
    tabela.verticalHeader()->setMinimumSectionSize(1);
    tabela.verticalHeader()->setDefaultSectionSize(scale::scaled(altura));
    tabela.horizontalHeader()->setDefaultSectionSize(scale::scaled(largura_da_coluna));
}
} // namespace

frmCampos::frmCampos(Geral &geral, Platform &platform, QByteArray ficheiro, QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      leitura_(std::move(ficheiro), geral.ini, Opcoes_De(geral, platform)),
      campos_(new ModeloDosCampos(leitura_, geral, this)),
      linhas_(new ModeloDasLinhas(leitura_, this))
{
    setupUi(this);
    scale::apply(*this);
    Ligar_Tabelas();
    connect(ComboCodificacao, &ComboBox::Click, this, &frmCampos::ComboCodificacao_Click);
    connect(ComboSeparador, &ComboBox::Click, this, &frmCampos::ComboSeparador_Click);
    connect(ComboDatas, &ComboBox::Click, this, &frmCampos::ComboDatas_Click);
    connect(chkNomes, &QAbstractButton::clicked, this, &frmCampos::chkNomes_Click);
    connect(cmdOk, &QAbstractButton::clicked, this, &frmCampos::cmdOk_Click);
    connect(cmdCancelar, &QAbstractButton::clicked, this, &QDialog::reject);

    Escrever_Textos();
    Mostrar_Tudo();
    tblLinhas->setFocus();
}

// A window that goes hides its tables first, and they would ask for rows that are no more.
frmCampos::~frmCampos()
{
    tblCampos->setModel(nullptr);
    tblLinhas->setModel(nullptr);
}

// The row of choices stays above its columns, however the rows below it are scrolled and their columns are
// drawn.
void frmCampos::Ligar_Tabelas()
{
    Por_Alturas(*tblCampos, altura_do_campo);
    Por_Alturas(*tblLinhas, altura_da_linha);
    tblCampos->setItemDelegate(new EscolhaDoCampo(*campos_, this));
    tblCampos->setModel(campos_);
    tblLinhas->setModel(linhas_);
    tblCampos->horizontalHeader()->setHighlightSections(false);
    const int cabecalho = tblCampos->horizontalHeader()->sizeHint().height();
    tblCampos->setFixedHeight(cabecalho + scale::scaled(altura_do_campo) + 2 * tblCampos->frameWidth());
    canto->setFixedWidth(0);
    lvContacto->setColumnWidth(0, scale::scaled(largura_do_rotulo));

    QScrollBar *cima = tblCampos->horizontalScrollBar();
    QScrollBar *baixo = tblLinhas->horizontalScrollBar();
    connect(cima, &QScrollBar::valueChanged, baixo, &QScrollBar::setValue);
    connect(baixo, &QScrollBar::valueChanged, cima, &QScrollBar::setValue);
    connect(tblCampos->horizontalHeader(), &QHeaderView::sectionResized, tblLinhas,
            [this](int coluna, int, int largura) { tblLinhas->setColumnWidth(coluna, largura); });
    connect(tblLinhas->verticalScrollBar(), &QScrollBar::rangeChanged, canto, [this](int menor, int maior) {
        canto->setFixedWidth(maior > menor ? tblLinhas->verticalScrollBar()->sizeHint().width() : 0);
    });
    connect(tblCampos, &QAbstractItemView::clicked, tblCampos,
            [this](const QModelIndex &indice) { tblCampos->edit(indice); });
    connect(campos_, &QAbstractItemModel::dataChanged, this, [this] {
        tblLinhas->viewport()->update();
        Mostrar_Contacto();
        Mostrar_Avisos();
    });
    connect(tblLinhas->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmCampos::Mostrar_Contacto);
}

void frmCampos::Escrever_Textos()
{
    setWindowTitle(geral_.Ler_Idioma(340));
    Label1->setText(geral_.Ler_Idioma(341));
    Label2->setText(geral_.Ler_Idioma(342));
    Label3->setText(geral_.Ler_Idioma(343));
    chkNomes->setText(geral_.Ler_Idioma(344));
    Label4->setText(geral_.Ler_Idioma(373));
    Label5->setText(geral_.Ler_Idioma(372));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    tblCampos->setAccessibleName(geral_.Ler_Idioma(353));
    tblLinhas->setAccessibleName(Label4->text());
    lvContacto->setAccessibleName(Label5->text());
    lvContacto->setEmptyText(geral_.Ler_Idioma(357));
}

void frmCampos::Preencher_Codificacoes()
{
    const QByteArray &escolhida = leitura_.Escolha().encoding;
    QString automatico = geral_.Ler_Idioma(345);
    const QString &idioma = geral_.IdiomaActual;
    if (escolhida.isEmpty())
        automatico += u": "_s + codificacoes::Palavra(leitura_.Tabela().encoding, idioma);
    ComboCodificacao->Clear();
    ComboCodificacao->AddItem(automatico);
    ComboCodificacao->setCurrentIndex(0);
    for (const char *nome : codificacoes::nomes) {
        ComboCodificacao->AddItem(codificacoes::Palavra(nome, idioma));
        if (escolhida == nome) ComboCodificacao->setCurrentIndex(ComboCodificacao->NewIndex());
    }
}

void frmCampos::Preencher_Separadores()
{
    constexpr qint16 primeiro_texto = 346;
    const QStringView todos(separadores);
    const qsizetype achado = todos.indexOf(leitura_.Tabela().delimiter);
    QString automatico = geral_.Ler_Idioma(345);
    if (leitura_.Escolha().delimiter.isNull())
        automatico +=
            u": "_s + (achado < 0 ? QString(leitura_.Tabela().delimiter)
                                  : geral_.Ler_Idioma(static_cast<qint16>(primeiro_texto + achado)));
    ComboSeparador->Clear();
    ComboSeparador->AddItem(automatico);
    ComboSeparador->setCurrentIndex(0);
    for (qsizetype i = 0; i < todos.size(); ++i)
        ComboSeparador->AddItem(geral_.Ler_Idioma(static_cast<qint16>(primeiro_texto + i)));
    if (!leitura_.Escolha().delimiter.isNull()) ComboSeparador->setCurrentIndex(static_cast<int>(achado) + 1);
}

void frmCampos::Preencher_Escolhas()
{
    Preencher_Codificacoes();
    Preencher_Separadores();
    ComboDatas->Clear();
    for (const qint16 texto : std::initializer_list<qint16>{345, 350, 351})
        ComboDatas->AddItem(geral_.Ler_Idioma(texto));
    const std::optional<DateOrder> ordem = leitura_.Mapa().ordem;
    ComboDatas->setCurrentIndex(!ordem ? 0 : *ordem == DateOrder::DayFirst ? 1 : 2);
    chkNomes->setChecked(leitura_.Tabela().hasHeader);
}

void frmCampos::Mostrar_Tudo()
{
    Preencher_Escolhas();
    campos_->Refrescar();
    linhas_->Refrescar();
    tblLinhas->setCurrentIndex(linhas_->index(0, 0));
    tblCampos->setCurrentIndex(campos_->index(0, 0));
    cmdOk->setEnabled(leitura_.Quantos() > 0);
    Mostrar_Contacto();
    Mostrar_Avisos();
}

void frmCampos::Mostrar_Contacto()
{
    lvContacto->clear();
    const QModelIndex actual = tblLinhas->currentIndex();
    if (!actual.isValid()) return;
    ContactoLido lido = leitura_.Contacto(static_cast<std::size_t>(actual.row())).lido;
    lido.colunas[Coluna::IDGrupo] = lido.Grupo; // by its name: it may not be there yet
    for (const Linha linha : linhas_do_contacto::todas) {
        QString rotulo = linhas_do_contacto::Rotulo(linha, geral_);
        for (const QString &valor : linhas_do_contacto::Valores(linha, lido.colunas, geral_)) {
            auto *item = new QTreeWidgetItem(lvContacto, {std::exchange(rotulo, {}), A_Vista(valor)});
            item->setToolTip(1, item->text(1));
        }
    }
}

void frmCampos::Mostrar_Avisos()
{
    QStringList avisos;
    if (leitura_.Quantos() == 0)
        avisos << geral_.Ler_Idioma(357);
    else if (const QStringList nomes = leitura_.Nomes_Ambiguos(); !nomes.isEmpty())
        avisos << geral_.Ler_Idioma(355) + u' ' + nomes.join(u", "_s);
    if (const auto [quantos, primeiro] = leitura_.Numeros_Estragados(); quantos > 0)
        avisos << u"%1 %2 (%3)"_s.arg(geral_.Ler_Idioma(356)).arg(quantos).arg(primeiro);
    LabelAvisos->setText(avisos.join(u'\n'));
    LabelAvisos->setVisible(!avisos.isEmpty());
}

// A long table takes a moment.
void frmCampos::Reler(const CsvChoice &escolha)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto depois = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    leitura_.Ler(escolha);
    Mostrar_Tudo();
}

void frmCampos::ComboCodificacao_Click()
{
    CsvChoice escolha = leitura_.Escolha();
    escolha.encoding = codificacoes::Do_Lugar(ComboCodificacao->ListIndex());
    Reler(escolha);
}

void frmCampos::ComboSeparador_Click()
{
    CsvChoice escolha = leitura_.Escolha();
    const int qual = ComboSeparador->ListIndex();
    escolha.delimiter = qual < 1 ? QChar() : QChar(separadores[qual - 1]);
    Reler(escolha);
}

void frmCampos::ComboDatas_Click()
{
    const int qual = ComboDatas->ListIndex();
    if (qual < 1)
        leitura_.Por_Ordem({});
    else
        leitura_.Por_Ordem(qual == 1 ? DateOrder::DayFirst : DateOrder::MonthFirst);
    Mostrar_Contacto();
}

void frmCampos::chkNomes_Click()
{
    CsvChoice escolha = leitura_.Escolha();
    escolha.hasHeader = chkNomes->isChecked();
    Reler(escolha);
}

void frmCampos::cmdOk_Click()
{
    leitura_.Guardar();
    accept();
}

std::optional<TabelaEscolhida> frmCampos::Escolhida() const
{
    if (result() != Accepted) return std::nullopt;
    return leitura_.Escolhida();
}
