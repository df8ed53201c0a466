#include "session/OmissaoDosMemos.h"

#include "data/Geral.h"
#include "controls/Units.h"

using namespace Qt::StringLiterals;

namespace
{
// The store's own rules of conversion: "8,25" and "8.25" are one number.
StoreValue Convertido(const QString &texto, ColumnType tipo) { return Value(texto).convertedTo(tipo); }

double Real(const QString &texto)
{
    const StoreValue valor = Convertido(texto, ColumnType::Single);
    return Field(valor).real();
}

bool Sim(const QString &texto)
{
    const StoreValue valor = Convertido(texto, ColumnType::YesNo);
    return Field(valor).yes();
}

QString Verdade(bool sim) { return sim ? u"True"_s : u"False"_s; }
} // namespace

QFont omissao_dos_memos::Fonte(const Geral &geral)
{
    QFont fonte(geral.MemoFontName);
    fonte.setPointSizeF(Real(geral.MemoFontSize));
    fonte.setBold(Sim(geral.MemoFontBold));
    fonte.setItalic(Sim(geral.MemoFontItalic));
    return fonte;
}

QColor omissao_dos_memos::Cor(const Geral &geral)
{
    const StoreValue numero = Convertido(geral.MemoCorFundo, ColumnType::Long);
    return colour(static_cast<unsigned>(Field(numero).number()));
}

void omissao_dos_memos::Guardar_Fonte(const QFont &fonte, Geral &geral)
{
    geral.MemoFontName = fonte.family();
    geral.MemoFontSize = QString::number(fonte.pointSizeF()).replace(u'.', u',');
    geral.MemoFontBold = Verdade(fonte.bold());
    geral.MemoFontItalic = Verdade(fonte.italic());
}

void omissao_dos_memos::Guardar_Cor(const QColor &cor, Geral &geral)
{
    geral.MemoCorFundo = QString::number(colourNumber(cor));
}
