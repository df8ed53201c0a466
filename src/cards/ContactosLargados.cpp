#include "cards/ContactosLargados.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace
{
// Only files of this machine; another address is never followed.
QStringList Ficheiros_De(const QMimeData &dados)
{
    QStringList caminhos;
    for (const QUrl &endereco : dados.urls()) {
        const QString caminho = endereco.toLocalFile();
        const QString terminacao = QFileInfo(caminho).suffix().toLower();
        if (terminacao == "vcf"_L1 || terminacao == "csv"_L1) caminhos << caminho;
    }
    return caminhos;
}

// Some programs hand a card on as a text, and nothing else.
QByteArray Cartoes_De(const QMimeData &dados)
{
    for (const auto &tipo : {u"text/vcard"_s, u"text/x-vcard"_s, u"text/directory"_s})
        if (dados.hasFormat(tipo)) return dados.data(tipo);
    const QByteArray texto = dados.text().trimmed().toUtf8();
    return texto.left(11).toUpper() == "BEGIN:VCARD" ? texto : QByteArray();
}
} // namespace

ContactosLargados::ContactosLargados(QWidget &janela) : QObject(&janela)
{
    janela.setAcceptDrops(true);
    janela.installEventFilter(this);
    auto *colar = new QShortcut(QKeySequence::Paste, &janela);
    colar->setObjectName(u"ColarContactos"_s);
    connect(colar, &QShortcut::activated, this, &ContactosLargados::Colar);
}

// A field with the keyboard takes the key before it comes here.
void ContactosLargados::Colar()
{
    if (const QMimeData *dados = QGuiApplication::clipboard()->mimeData()) Entregar(*dados);
}

bool ContactosLargados::eventFilter(QObject * /*alvo*/, QEvent *evento)
{
    switch (evento->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return Receber(*static_cast<QDropEvent *>(evento));
    default:
        return false;
    }
}

// A copy: what is moved the other program would delete.
bool ContactosLargados::Receber(QDropEvent &evento)
{
    const QMimeData &dados = *evento.mimeData();
    const bool serve = !Ficheiros_De(dados).isEmpty() || !Cartoes_De(dados).isEmpty();
    evento.setAccepted(serve && evento.possibleActions().testFlag(Qt::CopyAction));
    if (!evento.isAccepted()) return true;
    evento.setDropAction(Qt::CopyAction);
    if (evento.type() == QEvent::Drop) Entregar(dados);
    return true;
}

void ContactosLargados::Entregar(const QMimeData &dados)
{
    const QStringList caminhos = Ficheiros_De(dados);
    const QByteArray cartoes = Cartoes_De(dados);
    if (!caminhos.isEmpty())
        Q_EMIT Ficheiros(caminhos);
    else if (!cartoes.isEmpty())
        Q_EMIT Cartoes(cartoes);
}
