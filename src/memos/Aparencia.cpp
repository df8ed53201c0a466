#include "memos/Aparencia.h"

#include "store/Values.h"
#include "controls/Units.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace
{
constexpr int meio_claro = 128;
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
    const QColor letras = qGray(fundo.rgb()) < meio_claro ? Qt::white : Qt::black;
    QPalette palette = controlo.palette();
    for (const auto papel : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(papel, fundo);
    for (const auto papel : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(papel, letras);
    controlo.setPalette(palette);
}

QString Texto_Logico(bool valor) { return valor ? u"True"_s : u"False"_s; }
