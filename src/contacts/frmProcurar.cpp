#include "contacts/frmProcurar.h"

#include "controls/Scale.h"
#include "controls/Units.h"
#include "data/Geral.h"
#include "data/Inteiro.h"
#include "data/TamanhoGuardado.h"
#include "janela/Janela.h"
#include "platform/Caption.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <algorithm>
#include <QGuiApplication>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_procurar = 69;
constexpr qint16 texto_fim_dos_contactos = 70;
constexpr qint16 texto_seguinte = 71;
constexpr qint16 texto_nenhum_contacto = 72;
constexpr qint16 texto_contactos = 137;

constexpr int sobre_a_direita = 7450;   // twips from the main window's left
constexpr int ao_lado_esquerdo = -2120; // the width of this window

QString So_Digitos(const QString &texto)
{
    QString digitos;
    std::copy_if(texto.begin(), texto.end(), std::back_inserter(digitos),
                 [](QChar c) { return c >= u'0' && c <= u'9'; });
    return digitos;
}

// The tabulator key stops at the option that is set, from which the arrow keys go on. The toolkit sees to
// that only where the keyboard has set it.
void Parar_Tabulador(QRadioButton &opcao, bool marcada)
{
    opcao.setFocusPolicy(marcada ? Qt::StrongFocus : Qt::ClickFocus);
}
} // namespace

frmProcurar::frmProcurar(Janela &Main, Geral &geral, Platform &platform)
    : Main_(Main),
      geral_(geral),
      platform_(platform),
      Main_ListaNomes(*Main.ListaNomes),
      Main_ListaNomes2(*Main.ListaNomes2),
      Main_ComboGrupos(*Main.ComboGrupos)
{
    setupUi(this);
    scale::apply(*this);
    textos_ = {{opcaoNome, "cmdProcurarNome"},
               {opcaoEmail, "cmdProcurarEmail"},
               {opcaoWebsite, "cmdProcurarWebsite"},
               {opcaoMorada, "cmdProcurarMorada"},
               {opcaoObs, "cmdProcurarObs"}};
    numeros_ = {{opcaoTelefone, "cmdProcurarTelefone", {"Telefone1", "Telefone2"}},
                {opcaoFax, "cmdProcurarFax", {"Fax"}},
                {opcaoTelemovel, "cmdProcurarTelemovel", {"Telemovel1", "Telemovel2", "Telemovel3"}}};

    connect(txtProcurar, &QLineEdit::textChanged, this, &frmProcurar::Reset_Pesquisa);
    for (QRadioButton *opcao : Frame1->findChildren<QRadioButton *>()) {
        connect(opcao, &QRadioButton::clicked, this, &frmProcurar::Reset_Pesquisa);
        connect(opcao, &QRadioButton::toggled, this, &frmProcurar::Reset_Pesquisa); // arrow keys
        Parar_Tabulador(*opcao, opcao->isChecked());
        connect(opcao, &QRadioButton::toggled, opcao,
                [opcao](bool marcada) { Parar_Tabulador(*opcao, marcada); });
    }
    // Another desk may change the list at any time, and the row of a hit is that of another contact then.
    connect(Main_ListaNomes.model(), &QAbstractItemModel::modelReset, this, [this] {
        if (!geral_.de.Num_Servidor()) return;
        ListViewProcura.clear();
        PosicaoPesquisa = 1;
    });
    connect(cmdProcurar, &QPushButton::clicked, this, &frmProcurar::cmdProcurar_Click);
    connect(ListaNomes, &ListBox::Click, this, &frmProcurar::ListaNomes_Click);
    connect(this, &QDialog::finished, this, &frmProcurar::Form_Unload);
}

void frmProcurar::Abrir()
{
    Form_Load();
    Form_Activate();
    Tomar_Tamanho();
    show();
    activateWindow();
}

// Once; afterwards it keeps the size that it has.
void frmProcurar::Tomar_Tamanho()
{
    if (tamanho_ != nullptr) return;
    tamanho_ = new TamanhoGuardado(*ListaNomes, geral_.ini, u"procurar"_s);
    const QSize menor = layout()->totalMinimumSize();
    resize((menor + tamanho_->Folga()).boundedTo(screen()->availableGeometry().size()).expandedTo(menor));
}

void frmProcurar::Form_Load()
{
    txtProcurar->clear();
    opcaoNome->setChecked(true);
    Reset_Pesquisa();
    txtProcurar->setFocus();
    const QSize ecra = QGuiApplication::primaryScreen()->size();
    const QString resolucao = u"%1x%2"_s.arg(ecra.width()).arg(ecra.height());
    // By the inner corners: the frame of a window that isn't on the screen yet has no known size.
    const QPoint canto = Main_.geometry().topLeft();
    setGeometry({{pixels(Left_Por_Resolucao(resolucao, twips(canto.x()))), canto.y()}, size()});
}

int frmProcurar::Left_Por_Resolucao(const QString &resolucao, int Main_Left)
{
    static const QStringList ao_lado{u"1024x768"_s, u"1152x864"_s, u"1280x960"_s, u"1280x1024"_s};
    return Main_Left + (ao_lado.contains(resolucao) ? ao_lado_esquerdo : sobre_a_direita);
}

bool frmProcurar::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) Form_Activate();
    return QDialog::event(event);
}

void frmProcurar::Form_Activate()
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(59)));
    Frame1->setTitle(geral_.Ler_Idioma(61));
    opcaoNome->setText(geral_.Ler_Idioma(62));
    opcaoTelefone->setText(geral_.Ler_Idioma(63));
    opcaoFax->setText(geral_.Ler_Idioma(64));
    opcaoTelemovel->setText(geral_.Ler_Idioma(65));
    opcaoWebsite->setText(geral_.Ler_Idioma(66));
    opcaoMorada->setText(geral_.Ler_Idioma(67));
    opcaoObs->setText(geral_.Ler_Idioma(68));
    cmdProcurar->setText(
        geral_.Ler_Idioma(texto_procurar)); // even where a search is under way, which goes on
    txtProcurar->setAccessibleName(windowTitle());
    ListaNomes->setAccessibleName(withoutMnemonic(geral_.Ler_Idioma(texto_contactos)));
}

void frmProcurar::Form_Unload() { setWindowTitle(QString()); }

void frmProcurar::Reset_Pesquisa()
{
    cmdProcurar->setText(geral_.Ler_Idioma(texto_procurar));
    ListaNomes->Clear();
    ListaNomes->setEmptyText({});
    ListViewProcura.clear();
    PosicaoPesquisa = 1;
}

void frmProcurar::cmdProcurar_Click()
{
    if (ListaNomes->ListIndex() >= 0) return Mostrar_Seguinte();
    if (ListViewProcura.empty()) return Nova_Procura();
    Procurar_Numero();
}

// Behind the last hit there is no row to choose, and that is how the end is noticed.
void frmProcurar::Mostrar_Seguinte()
{
    onFailure([&] { ListaNomes->setListIndex(ListaNomes->ListIndex() + 1); },
              [&](const Failure &) {
                  platform_.boxes.show(geral_.Ler_Idioma(texto_fim_dos_contactos), box::information,
                                       windowTitle(), this);
                  cmdProcurar->setText(geral_.Ler_Idioma(texto_procurar));
                  ListaNomes->Clear();
              });
}

// The main list shows all that the user may see, read anew.
void frmProcurar::Nova_Procura()
{
    Main_ComboGrupos.setListIndex(0);
    for (const OpcaoDeTexto &texto : textos_)
        if (texto.opcao->isChecked()) return Procurar_Texto(texto);
    for (const OpcaoDeNumero &numero : numeros_)
        if (numero.opcao->isChecked()) Ler_Numeros(numero);
    Procurar_Numero();
}

void frmProcurar::Procurar_Texto(const OpcaoDeTexto &opcao)
{
    const QString padrao = u'%' + txtProcurar->text() + u'%';
    Recordset &rs = opcao.opcao == opcaoEmail ? geral_.de.Abrir(opcao.comando, {padrao, padrao})
                                              : geral_.de.Abrir(opcao.comando, {padrao});
    {
        const ListBox::Filling enchendo(*ListaNomes);
        for (; !rs.Eof(); rs.MoveNext()) {
            ListaNomes->AddItem(rs.Fields("Nome").textOrEmpty());
            ListaNomes->setItemData(ListaNomes->NewIndex(), rs.Fields("ID").number());
        }
    }
    rs.Close();
    if (ListaNomes->ListCount() == 0) {
        ListaNomes->setEmptyText(geral_.Ler_Idioma(texto_nenhum_contacto));
        platform_.boxes.show(geral_.Ler_Idioma(texto_nenhum_contacto), box::information, windowTitle(), this);
        return;
    }
    ListaNomes->setListIndex(0);
    if (ListaNomes->ListCount() > 1) cmdProcurar->setText(geral_.Ler_Idioma(texto_seguinte));
    Q_EMIT Trazer_Main();
}

// The commands know no user, while the main list does: where others have contacts of their own, the row of a
// hit is that of another contact, or of none.
void frmProcurar::Ler_Numeros(const OpcaoDeNumero &opcao)
{
    Recordset &rs = geral_.de.Abrir(opcao.comando);
    for (int linha = 0; !rs.Eof(); rs.MoveNext(), ++linha) {
        ListViewProcura.push_back({linha, {}});
        for (const char *coluna : opcao.colunas)
            ListViewProcura.back().numeros.push_back(So_Digitos(rs.Fields(coluna).textOrEmpty()));
    }
    rs.Close();
}

// Without a further hit no box comes up: the list, which stays without rows, says so.
void frmProcurar::Procurar_Numero()
{
    const QString termo = So_Digitos(txtProcurar->text());
    const auto contem_termo = [&](const QString &numero) { return numero.contains(termo); };
    const auto bate = [&](const LinhaProcura &linha) {
        return std::any_of(linha.numeros.begin(), linha.numeros.end(), contem_termo);
    };
    while (PosicaoPesquisa <= ListViewProcura.size() && !bate(ListViewProcura[PosicaoPesquisa - 1]))
        ++PosicaoPesquisa;
    if (PosicaoPesquisa > ListViewProcura.size()) {
        const bool houve = std::any_of(ListViewProcura.begin(), ListViewProcura.end(), bate);
        ListaNomes->setEmptyText(geral_.Ler_Idioma(houve ? texto_fim_dos_contactos : texto_nenhum_contacto));
        return;
    }
    ListaNomes->setEmptyText({});
    Main_ListaNomes.setListIndex(ListViewProcura[PosicaoPesquisa - 1].linha);
    Q_EMIT Trazer_Main();
    ++PosicaoPesquisa;
    cmdProcurar->setText(geral_.Ler_Idioma(texto_seguinte));
}

// The row of the hit is that of its twin in the sorted list. A hit outside of the user's groups has none, and
// nothing happens. The twin's IDs are read as 16-bit integers.
void frmProcurar::ListaNomes_Click()
{
    const int procurado = ListaNomes->ItemData(ListaNomes->ListIndex());
    for (int i = 0; i < Main_ListaNomes2.ListCount(); ++i)
        if (Inteiro(QString::number(Main_ListaNomes2.ItemData(i))) == procurado)
            return Main_ListaNomes.setListIndex(i);
}
