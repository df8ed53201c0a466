#include "testlib/Legibilidade.h"

#include "controls/Contrast.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace
{
constexpr int densidade = 2; // so that a stroke of a small letter fills a pixel

struct Zona {
    QRect lugar; // on the control
    QString texto;
};

QImage Retrato(QWidget &controlo, const QRect &lugar)
{
    QImage imagem(lugar.size() * densidade, QImage::Format_RGB32);
    imagem.setDevicePixelRatio(densidade);
    imagem.fill(controlo.window()->palette().color(QPalette::Window));
    QPainter painter(&imagem);
    QWidget &janela = *controlo.window();
    janela.render(&painter, QPoint(), QRegion(QRect(controlo.mapTo(&janela, lugar.topLeft()), lugar.size())));
    return imagem;
}

// How often each colour is there. Most pixels are like the one before, which is much faster than to look it
// up.
QHash<QRgb, qsizetype> Cores(const QImage &imagem)
{
    QHash<QRgb, qsizetype> vezes;
    for (int y = 0; y < imagem.height(); ++y) {
        const auto *pixel = reinterpret_cast<const QRgb *>(imagem.constScanLine(y));
        const QRgb *const fim = pixel + imagem.width();
        while (pixel != fim) {
            const QRgb *const outra = std::find_if(pixel, fim, [cor = *pixel](QRgb c) { return c != cor; });
            vezes[*pixel] += outra - pixel;
            pixel = outra;
        }
    }
    return vezes;
}

// The most frequent colour is the ground; the letters are what stands out most from it.
double Contraste_Visto(QWidget &controlo, const QRect &lugar)
{
    const QHash<QRgb, qsizetype> vezes = Cores(Retrato(controlo, lugar));
    QRgb fundo = 0;
    for (auto it = vezes.cbegin(); it != vezes.cend(); ++it)
        if (it.value() > vezes.value(fundo)) fundo = it.key();
    double melhor = 1;
    for (auto it = vezes.cbegin(); it != vezes.cend(); ++it)
        melhor = std::max(melhor, contrast(QColor::fromRgb(it.key()), QColor::fromRgb(fundo)));
    return melhor;
}

template<class Opcao> Opcao Opcao_De(const QWidget &controlo)
{
    Opcao opcao;
    opcao.initFrom(&controlo);
    return opcao;
}

QRect Lugar_No_Botao(QAbstractButton &botao)
{
    const auto opcao = Opcao_De<QStyleOptionButton>(botao);
    const auto parte = [&](QStyle::SubElement elemento) {
        return botao.style()->subElementRect(elemento, &opcao, &botao);
    };
    if (qobject_cast<QCheckBox *>(&botao) != nullptr) return parte(QStyle::SE_CheckBoxContents);
    if (qobject_cast<QRadioButton *>(&botao) != nullptr) return parte(QStyle::SE_RadioButtonContents);
    constexpr int rebordo = 4;
    QRect lugar = botao.rect().adjusted(rebordo, rebordo, -rebordo, -rebordo);
    if (auto *ferramenta = qobject_cast<QToolButton *>(&botao)) {
        if (ferramenta->toolButtonStyle() == Qt::ToolButtonIconOnly && !botao.icon().isNull()) return {};
        if (!botao.icon().isNull()) lugar.setTop(lugar.bottom() - lugar.height() / 3);
    } else if (!botao.icon().isNull()) {
        lugar.setLeft(lugar.left() + botao.iconSize().width() + 2 * rebordo);
    }
    return lugar;
}

QList<Zona> Zonas_Da_Lista(QAbstractItemView &lista)
{
    QList<Zona> zonas;
    if (lista.model() == nullptr) return zonas;
    constexpr int bastantes = 4;
    for (int linha = 0; linha < std::min(bastantes, lista.model()->rowCount()); ++linha)
        for (int coluna = 0; coluna < lista.model()->columnCount(); ++coluna) {
            const QModelIndex indice = lista.model()->index(linha, coluna);
            const QRect lugar = lista.visualRect(indice).adjusted(2, 2, -2, -2) & lista.viewport()->rect();
            if (indice.flags().testFlag(Qt::ItemIsEnabled) && indice.data().isValid())
                zonas << Zona{lugar.translated(lista.viewport()->pos()), indice.data().toString()};
        }
    return zonas;
}

template<class Barra> QList<Zona> Zonas_Do_Menu(Barra &barra)
{
    QList<Zona> zonas;
    for (QAction *accao : barra.actions())
        if (accao->isEnabled() && accao->isVisible() && !accao->isSeparator())
            zonas << Zona{barra.actionGeometry(accao).adjusted(24, 2, -6, -2), accao->text()};
    return zonas;
}

QList<Zona> Zonas_Dos_Titulos(const QHeaderView &titulos)
{
    QList<Zona> zonas;
    for (int i = 0; i < titulos.count(); ++i)
        zonas << Zona{QRect(titulos.sectionViewportPosition(i), 0, titulos.sectionSize(i), titulos.height())
                          .adjusted(4, 3, -4, -3),
                      titulos.model()->headerData(i, titulos.orientation()).toString()};
    return zonas;
}

QList<Zona> Zonas_Dos_Separadores(const QTabBar &barra)
{
    QList<Zona> zonas;
    for (int i = 0; i < barra.count(); ++i)
        if (barra.isTabEnabled(i))
            zonas << Zona{barra.tabRect(i).adjusted(6, 4, -6, -4) & barra.rect(), barra.tabText(i)};
    return zonas;
}

QList<Zona> Zonas(QWidget &controlo)
{
    if (auto *rotulo = qobject_cast<QLabel *>(&controlo)) return {{rotulo->contentsRect(), rotulo->text()}};
    if (auto *botao = qobject_cast<QAbstractButton *>(&controlo))
        return {{Lugar_No_Botao(*botao), botao->text()}};
    if (auto *linha = qobject_cast<QLineEdit *>(&controlo))
        return {{linha->rect().adjusted(3, 3, -3, -3), linha->text()}};
    if (auto *texto = qobject_cast<QPlainTextEdit *>(&controlo))
        return {{texto->viewport()->geometry(), texto->toPlainText()}};
    if (auto *combo = qobject_cast<QComboBox *>(&controlo)) {
        const auto opcao = Opcao_De<QStyleOptionComboBox>(*combo);
        return {{combo->style()
                     ->subControlRect(QStyle::CC_ComboBox, &opcao, QStyle::SC_ComboBoxEditField, combo)
                     .adjusted(2, 2, -2, -2),
                 combo->currentText()}};
    }
    if (auto *moldura = qobject_cast<QGroupBox *>(&controlo)) {
        auto opcao = Opcao_De<QStyleOptionGroupBox>(*moldura);
        opcao.text = moldura->title();
        return {
            {moldura->style()->subControlRect(QStyle::CC_GroupBox, &opcao, QStyle::SC_GroupBoxLabel, moldura),
             moldura->title()}};
    }
    if (auto *separadores = qobject_cast<QTabBar *>(&controlo)) return Zonas_Dos_Separadores(*separadores);
    if (auto *titulos = qobject_cast<QHeaderView *>(&controlo)) return Zonas_Dos_Titulos(*titulos);
    if (auto *lista = qobject_cast<QAbstractItemView *>(&controlo)) return Zonas_Da_Lista(*lista);
    if (auto *menu = qobject_cast<QMenu *>(&controlo)) return Zonas_Do_Menu(*menu);
    if (auto *barra = qobject_cast<QMenuBar *>(&controlo)) {
        QList<Zona> zonas = Zonas_Do_Menu(*barra);
        for (Zona &zona : zonas)
            zona.lugar.setLeft(zona.lugar.left() - 18); // no room for pictures here
        return zonas;
    }
    return {};
}

QString Nome(const QWidget &controlo)
{
    return QLatin1StringView(controlo.metaObject()->className()) + u' ' + controlo.objectName();
}

bool Mostra_Campo(const QWidget &controlo)
{
    return qobject_cast<const QLineEdit *>(&controlo) != nullptr ||
           qobject_cast<const QPlainTextEdit *>(&controlo) != nullptr ||
           qobject_cast<const QAbstractItemView *>(&controlo) != nullptr;
}
} // namespace

QStringList legibilidade::Ilegiveis_De(QWidget &controlo, int *medidos)
{
    QStringList faltas;
    const auto julgar = [&](double visto, const QString &texto) {
        if (medidos != nullptr) ++*medidos;
        if (visto < readableContrast)
            faltas << u"%1 \"%2\": %3"_s.arg(Nome(controlo), texto).arg(visto, 0, 'f', 2);
    };
    if (Mostra_Campo(controlo)) {
        const QPalette &p = controlo.palette();
        julgar(contrast(p.color(QPalette::Text), p.color(QPalette::Base)), u"<what is typed here>"_s);
        julgar(contrast(p.color(QPalette::HighlightedText), p.color(QPalette::Highlight)),
               u"<what is chosen>"_s);
    }
    for (const Zona &zona : Zonas(controlo))
        if (!zona.texto.trimmed().isEmpty() && zona.lugar.width() > 4 && zona.lugar.height() > 4)
            julgar(Contraste_Visto(controlo, zona.lugar), zona.texto.left(30));
    return faltas;
}

QStringList legibilidade::Ilegiveis(QWidget &janela)
{
    QStringList faltas = Ilegiveis_De(janela);
    for (QWidget *controlo : janela.findChildren<QWidget *>()) {
        if (!controlo->isVisibleTo(&janela) || !controlo->isEnabled() || controlo->isWindow()) continue;
        faltas += Ilegiveis_De(*controlo);
        if (controlo->focusPolicy() == Qt::NoFocus) continue;
        QWidget *antes = janela.focusWidget();
        controlo->setFocus();
        for (const QString &falta : Ilegiveis_De(*controlo))
            faltas << falta + u" (with the keyboard)"_s;
        if (antes != nullptr) antes->setFocus();
    }
    return faltas;
}
