#include "report/writers/OfficeFont.h"

#include "report/ReportDefinition.h"

QFont officeFont(int points, QFont::Weight weight)
{
    QFont font;
    font.setFamilies({officeFontName(), QStringLiteral("Liberation Sans"), QStringLiteral("Arimo"),
                      QStringLiteral("Nimbus Sans")});
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(points * twipsPerPoint);
    font.setWeight(weight);
    return font;
}
