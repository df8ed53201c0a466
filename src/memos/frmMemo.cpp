#include "memos/frmMemo.h"

#include "controls/Controls.h"
#include "controls/ReachablePlace.h"
#include "controls/Scale.h"
#include "controls/Units.h"
#include "data/Geral.h"
#include "memos/Aparencia.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

#include <algorithm>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace
{
constexpr int maior_medida = 32767; // pixels: the window system knows none beyond

double Twips_Da_Linha(const Field &campo)
{
    constexpr double limite = maior_medida * twipsPerPixel;
    return std::clamp(campo.real(), -limite, limite);
}

int Medida_Da_Linha(const Field &campo) { return std::min(pixels(Twips_Da_Linha(campo)), maior_medida); }

// A place is one of the screen, which is as wide for large letters as for small ones.
int Lugar_Da_Linha(const Field &campo)
{
    return static_cast<int>(std::lround(Twips_Da_Linha(campo) / twipsPerPixel));
}

// Words that are wanted when the database may not be there to be asked.
constexpr Translations nao_guardado{u"Não guardado", u"Não salvo",      u"Not saved",        u"Sin guardar",
                                    u"Non salvato",  u"Non enregistré", u"Nicht gespeichert"};
constexpr Translations carregue_para_repetir{
    u"A base de dados não aceitou este memo. Clique para tentar de novo.",
    u"O banco de dados não aceitou este memo. Clique para tentar de novo.",
    u"The database did not accept this memo. Click to try again.",
    u"La base de datos no ha aceptado esta nota. Haga clic para intentarlo de nuevo.",
    u"Il database non ha accettato questo memo. Fare clic per riprovare.",
    u"La base de données n’a pas accepté ce mémo. Cliquez pour réessayer.",
    u"Die Datenbank hat dieses Memo nicht angenommen. Klicken Sie, um es erneut zu versuchen."};
} // namespace

frmMemo::frmMemo(Geral &geral, Platform &platform)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint),
      geral_(geral),
      platform_(platform),
      nova_(geral.de, "TblMemos", {"Titulo", "Descricao", "LeftForm", "TopForm", "Utilizador"})
{
    setupUi(this);
    scale::apply(*this);
    connect(lblTitle, &DragLabel::Dragged, this, &frmMemo::lblTitle_MouseMove);
    connect(LabelH, &DragLabel::Dragged, this, &frmMemo::LabelH_MouseMove);
    connect(LabelV, &DragLabel::Dragged, this, &frmMemo::LabelV_MouseMove);
    connect(LabelHV, &DragLabel::Dragged, this, &frmMemo::LabelHV_MouseMove);
    for (const DragLabel *pega : {lblTitle, LabelH, LabelV, LabelHV})
        connect(pega, &DragLabel::Dropped, this, &frmMemo::Largada);
    connect(txtMemo, &QPlainTextEdit::textChanged, this, &frmMemo::txtMemo_Change);
    connect(cmdGuardar, &QToolButton::clicked, this, &frmMemo::cmdGuardar_Click);
    connect(cmdPorGuardar, &QToolButton::clicked, this, &frmMemo::cmdGuardar_Click);
    connect(cmdFonte, &QToolButton::clicked, this, &frmMemo::cmdFonte_Click);
    connect(cmdCor, &QToolButton::clicked, this, &frmMemo::cmdCor_Click);
    connect(cmdFechar, &QToolButton::clicked, this, &frmMemo::cmdFechar_Click);
    connect(&geral_.rascunhos, &Rascunhos::Guardar_Ja, this, &frmMemo::Guardar_Se_Mudou);

    for (const auto &[botao, texto] :
         {std::pair<QToolButton *, int>{cmdGuardar, 186}, {cmdFonte, 187}, {cmdCor, 188}, {cmdFechar, 189}}) {
        const QString dica = withoutMnemonic(geral_.Ler_Idioma(static_cast<qint16>(texto)));
        botao->setToolTip(dica);
        botao->setAccessibleName(dica);
    }
    cmdPorGuardar->setAccessibleName(translated(nao_guardado, geral_.IdiomaActual));
    cmdPorGuardar->setToolTip(translated(carregue_para_repetir, geral_.IdiomaActual));
    for (QFrame *linha : {Line1, Line2, Line3, Line4, Line5})
        Pintar_Linha(*linha);
    for (DragLabel *pega : {LabelH, LabelV, LabelHV})
        pega->raise();
}

void frmMemo::Criar(const QString &titulo, const QPoint &lugar)
{
    cmdGuardar->show();
    lblTitle->setText(titulo);
    txtFontName->setText(geral_.MemoFontName);
    txtFontSize->setText(geral_.MemoFontSize);
    txtFontBold->setText(geral_.MemoFontBold);
    txtFontItalic->setText(geral_.MemoFontItalic);
    txtCorFundo->setText(geral_.MemoCorFundo);
    Aplicar_Aparencia();
    move(lugar);
    show();
    activateWindow();
    Anotar_Lugar();
}

void frmMemo::Restaurar(const Recordset &rs)
{
    const QScopedValueRollback guarda(adiar_, true);
    Ler_Linha(rs);
    skipFailure([&] { Aplicar_Aparencia(); });
    show();
    cmdGuardar->hide();
}

bool frmMemo::Em_Uso() const { return isActiveWindow() || adiar_ || !cmdGuardar->isHidden(); }

void frmMemo::Seguir(const Recordset &rs)
{
    const QScopedValueRollback guarda(adiar_, true);
    Ler_Linha(rs);
    skipFailure([&] { Aplicar_Aparencia(); });
    cmdGuardar->hide();
}

void frmMemo::Perder_Linha()
{
    txtId->clear();
    cmdGuardar->show();
}

bool frmMemo::event(QEvent *evento)
{
    if (evento->type() == QEvent::WindowDeactivate) Q_EMIT Largada_Do_Teclado();
    return QWidget::event(evento);
}

void frmMemo::Ler_Linha(const Recordset &rs)
{
    const auto ler = [&](const char *coluna, QLineEdit &caixa) {
        return skipFailure([&] { caixa.setText(rs.Fields(coluna).text()); });
    };
    ler("ID", *txtId);
    skipFailure([&] { resize(Medida_Da_Linha(rs.Fields("Width")), Medida_Da_Linha(rs.Fields("Height"))); });
    skipFailure([&] {
        const QPoint lugar(Lugar_Da_Linha(rs.Fields("LeftForm")), Lugar_Da_Linha(rs.Fields("TopForm")));
        move(reachablePlace({lugar, size()}, lblTitle->height(), availableScreens()));
        ler("LeftForm", *txtLeft);
        ler("TopForm", *txtTop);
        posta_ = pos();
    });
    skipFailure([&] { lblTitle->setText(rs.Fields("Titulo").text()); });
    skipFailure([&] {
        descricao_da_linha_ = rs.Fields("Descricao").textOrEmpty();
        Descricao_.load(*txtMemo, rs.Fields("Descricao").text());
    });
    ler("FontName", *txtFontName);
    ler("FontSize", *txtFontSize);
    skipFailure([&] { txtFontBold->setText(Texto_Logico(rs.Fields("FontBold").yes())); });
    skipFailure([&] { txtFontItalic->setText(Texto_Logico(rs.Fields("FontItalic").yes())); });
    ler("CorFundo", *txtCorFundo);
}

// The hidden boxes hold the looks; here they show.
void frmMemo::Aplicar_Aparencia()
{
    txtMemo->setFont(
        Fonte_De_Memo(txtFontName->text(), txtFontSize->text(), txtFontBold->text(), txtFontItalic->text()));
    const QColor fundo = Cor_De_Memo(txtCorFundo->text());
    for (QWidget *controlo : {static_cast<QWidget *>(this), static_cast<QWidget *>(lblTitle),
                              static_cast<QWidget *>(txtMemo)})
        Pintar_Memo(*controlo, fundo);
    setWindowTitle(lblTitle->text());
    txtMemo->setAccessibleName(lblTitle->text());
}

// Of a drag only the end is saved.
void frmMemo::lblTitle_MouseMove(const QPoint &canto)
{
    adiar_ = true;
    move(canto - lblTitle->pos());
}

void frmMemo::LabelH_MouseMove(const QPoint &canto)
{
    Redimensionar(width(), canto.y() - y() + LabelH->height());
}

void frmMemo::LabelV_MouseMove(const QPoint &canto)
{
    Redimensionar(canto.x() - x() + LabelV->width(), height());
}

void frmMemo::LabelHV_MouseMove(const QPoint &canto)
{
    Redimensionar(canto.x() - x() + LabelHV->width(), canto.y() - y() + LabelHV->height());
}

// A measure that no window can have is left as it was.
void frmMemo::Redimensionar(int largura, int altura)
{
    adiar_ = true;
    resize(largura > 0 ? largura : width(), altura > 0 ? altura : height());
}

void frmMemo::Largada()
{
    adiar_ = false;
    skipFailure([&] { cmdGuardar_Click(); });
}

void frmMemo::resizeEvent(QResizeEvent *)
{
    Dispor();
    if (!adiar_) skipFailure([&] { cmdGuardar_Click(); });
}

// The places are told in twips from the right and the bottom edge.
void frmMemo::Dispor()
{
    const int largura = twips(width());
    const int altura = twips(height());
    const int topo = pixels(altura - 350);
    txtMemo->resize(pixels(largura - 75) - txtMemo->x(), pixels(altura - 400));
    cmdGuardar->move(pixels(largura - 420), topo);
    cmdFechar->move(pixels(largura - 350), topo);
    cmdCor->move(pixels(largura - 680), topo);
    cmdFonte->move(pixels(largura - 990), topo);
    Dispor_Marca(topo);
    LabelV->setGeometry(pixels(largura - 75), 0, LabelV->width(), height());
    LabelH->setGeometry(0, pixels(altura - 75), width(), LabelH->height());
    LabelHV->move(width() - LabelHV->width(), height() - LabelHV->height());
    lblTitle->resize(pixels(largura - 30), lblTitle->height());
    Dispor_Rebordo();
}

// Beside the buttons, or above them where the note is too narrow for that; its words end in dots where even
// the whole width is too little, and are a mere sign where no letter fits.
void frmMemo::Dispor_Marca(int topo)
{
    const QString palavras = cmdPorGuardar->accessibleName();
    cmdPorGuardar->setText(palavras);
    const int inteira = cmdPorGuardar->sizeHint().width();
    const bool ao_lado = inteira <= cmdFonte->x() - LabelV->width();
    const int margem = std::min(LabelV->width(), (width() - 1) / 2);
    const int largura = ao_lado ? inteira : width() - 2 * margem;
    const int altura = cmdPorGuardar->height();
    cmdPorGuardar->setGeometry(margem, ao_lado ? topo : std::max(0, topo - altura), largura, altura);
    if (largura >= inteira) return;
    const QFontMetrics letras = cmdPorGuardar->fontMetrics();
    const int rebordo = inteira - letras.horizontalAdvance(palavras);
    const QString curtas = letras.elidedText(palavras, Qt::ElideRight, largura - rebordo);
    cmdPorGuardar->setText(curtas.isEmpty() ? u"!"_s : curtas);
}

void frmMemo::Dispor_Rebordo()
{
    const int direita = pixels(twips(width()) - 10);
    const int fundo = pixels(twips(height()) - 10);
    Line1->resize(direita, 1);
    Line2->resize(1, fundo);
    Line3->setGeometry(direita, 0, 1, fundo);
    Line4->setGeometry(0, fundo, direita, 1);
    Line5->resize(direita, 1);
}

void frmMemo::txtMemo_Change() { cmdGuardar->show(); }

void frmMemo::cmdGuardar_Click()
{
    auto falhou = qScopeGuard([this] { Marcar(true); });
    Anotar_Lugar();
    if (txtId->text().isEmpty()) txtId->setText(Id_Da_Linha_Inserida());
    if (txtId->text().isEmpty())
        Adicionar();
    else
        geral_.de.Tudo_Ou_Nada([this] { Actualizar(); });
    descricao_da_linha_ = Descricao_.stored(*txtMemo);
    falhou.dismiss();
    Marcar(false);
}

// A note that was only moved takes the text that another desk has given it meanwhile.
void frmMemo::Actualizar()
{
    const LinhasInteiras linhas = geral_.de.Ler_Inteiras("TblMemos", "ID", txtId->text());
    const QString aqui = Descricao_.stored(*txtMemo);
    const QString la = linhas.empty() ? QString() : linha_inteira::Texto(linhas.front(), "Descricao");
    const bool mudou_aqui = aqui != descricao_da_linha_;
    const bool sei = la == descricao_da_linha_ || la == descricao_enviada_ || la == aqui;
    const bool mudou_la = linhas.empty() || !sei;
    if (mudou_aqui && mudou_la) return Adicionar();
    if (!mudou_aqui && !linhas.empty() && la != aqui) Descricao_.load(*txtMemo, la);
    descricao_enviada_ = Descricao_.stored(*txtMemo);
    Gravar("cmdUpdateMemo", txtId->text());
}

// The button is in view for as long as there is something to save.
void frmMemo::Guardar_Se_Mudou()
{
    if (isVisible() && !cmdGuardar->isHidden()) skipFailure([&] { cmdGuardar_Click(); });
}

// A save that fails at a move or a resize is told by no box, so the note itself tells it.
void frmMemo::Marcar(bool por_guardar)
{
    cmdGuardar->setVisible(por_guardar);
    cmdPorGuardar->setVisible(por_guardar);
}

// A note that nobody moved keeps the place of its row, to the twip and off the screen.
void frmMemo::Anotar_Lugar()
{
    if (posta_ == pos()) return;
    posta_ = pos();
    txtLeft->setText(QString::number(x() * twipsPerPixel));
    txtTop->setText(QString::number(y() * twipsPerPixel));
}

void frmMemo::Gravar(ComandoSemLinhas comando, const QString &ultimo)
{
    geral_.de.Executar(comando,
                       {lblTitle->text(), Descricao_.stored(*txtMemo), txtLeft->text(), txtTop->text(),
                        twips(width()), twips(height()), txtFontName->text(), txtFontSize->text(),
                        txtFontBold->text(), txtFontItalic->text(), txtCorFundo->text(), ultimo});
}

// The row may be in the file and its number not to be learnt yet; then it is asked for again before the note
// is saved or deleted.
void frmMemo::Adicionar()
{
    const QString utilizador = geral_.SessaoActual.IdUtilizador;
    const QString ID = nova_.Gravar(
        {lblTitle->text(), Descricao_.stored(*txtMemo), txtLeft->text(), txtTop->text(), utilizador},
        [&] { Gravar("cmdAdicionarMemo", utilizador); }, [&](const QString &chegado) { Gravar("cmdUpdateMemo", chegado); });
    lugar_inserido_ = {txtLeft->text(), txtTop->text()};
    txtId->setText(ID.isEmpty() ? Id_Da_Linha_Inserida() : ID);
}

// The last row at the place of this one: notes that came since then stand elsewhere. Empty for a note that
// was never added, or whose row is gone.
QString frmMemo::Id_Da_Linha_Inserida()
{
    QString id;
    if (lugar_inserido_.isEmpty()) return id;
    Recordset &rs = geral_.de.Abrir("cmdListarMemos", {geral_.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext())
        if (lugar_inserido_ ==
            QStringList{rs.Fields("LeftForm").textOrEmpty(), rs.Fields("TopForm").textOrEmpty()})
            id = rs.Fields("ID").text();
    rs.Close();
    return id;
}

void frmMemo::cmdFonte_Click()
{
    const auto fonte = platform_.dialogs.font(txtMemo->font(), this);
    if (!fonte) return;
    txtFontName->setText(fonte->family());
    txtFontSize->setText(QString::number(fonte->pointSizeF()));
    txtFontBold->setText(Texto_Logico(fonte->bold()));
    txtFontItalic->setText(Texto_Logico(fonte->italic()));
    Aplicar_Aparencia();
    cmdGuardar_Click();
}

void frmMemo::cmdCor_Click()
{
    const auto cor = platform_.dialogs.colour(Cor_De_Memo(txtCorFundo->text()), this);
    if (!cor) return;
    txtCorFundo->setText(QString::number(colourNumber(*cor)));
    Aplicar_Aparencia();
    cmdGuardar_Click();
}

void frmMemo::cmdFechar_Click()
{
    const int resposta =
        platform_.boxes.show(geral_.Ler_Idioma(111), box::question | box::yesNo, u"Morvex - Memo"_s, this);
    if (resposta != answer::yes) return;
    if (txtId->text().isEmpty()) txtId->setText(Id_Da_Linha_Inserida());
    if (txtId->text().isEmpty()) txtId->setText(nova_.ID());
    if (!txtId->text().isEmpty()) geral_.de.Executar("cmdEliminarMemo", {txtId->text()});
    hide();
    deleteLater();
}

// The window system's own way of closing asks as the button does. When the whole desktop session ends, the
// note simply goes, to come back at the next start.
void frmMemo::closeEvent(QCloseEvent *event)
{
    if (qGuiApp->isSavingSession()) return;
    event->ignore();
    cmdFechar_Click();
}
