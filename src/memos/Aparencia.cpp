#include "memos/Aparencia.h"

#include "controls/Contrast.h"
#include "controls/Units.h"
#include "store/Values.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace
{
constexpr QColor cor_das_linhas(0, 0, 0, 90);
}

QFont Fonte_De_Memo(const QString &FontName, const QString &FontSize, const QString &FontBold,
                    const QString &FontItalic)
{
    const auto logico = [](const QString &texto) {
        return std::get<qint64>(Value(texto).convertedTo(ColumnType::YesNo)) != 0;
    };
    QFont fonte(FontName);
    const double pontos = std::get<double>(Value(FontSize).convertedTo(ColumnType::Single));
    if (pontos > 0) fonte.setPointSizeF(pontos);
    fonte.setBold(logico(FontBold));
    fonte.setItalic(logico(FontItalic));
    return fonte;
}

QColor Cor_De_Memo(const QString &CorFundo)
{
    return colour(static_cast<unsigned>(std::get<qint64>(Value(CorFundo).convertedTo(ColumnType::Long))));
}

void Pintar_Memo(QWidget &controlo, const QColor &fundo)
{
    QPalette palette = controlo.palette();
    setGround(palette, fundo);
    controlo.setPalette(palette);
}

void Pintar_Linha(QWidget &linha)
{
    QPalette palette;
    palette.setColor(QPalette::Window, cor_das_linhas);
    linha.setPalette(palette);
    linha.setAutoFillBackground(true);
}

QString Texto_Logico(bool valor) { return valor ? u"True"_s : u"False"_s; }
