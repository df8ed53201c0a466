#include "csv/CsvHeaders.h"

#include <algorithm>
#include <array>
#include <QFile>
#include <QRegularExpression>
#include <QVarLengthArray>

using namespace Qt::StringLiterals;

static void announceNames()
{
    Q_INIT_RESOURCE(csv);
} // a library's data announce themselves only when asked to

namespace
{
struct FieldName {
    const char16_t *name;
    CsvField field;
};

constexpr std::array fieldNames{
    FieldName{u"FullName", CsvField::FullName},
    FieldName{u"GivenName", CsvField::GivenName},
    FieldName{u"MiddleName", CsvField::MiddleName},
    FieldName{u"FamilyName", CsvField::FamilyName},
    FieldName{u"NamePrefix", CsvField::NamePrefix},
    FieldName{u"NameSuffix", CsvField::NameSuffix},
    FieldName{u"Nickname", CsvField::Nickname},
    FieldName{u"Phone", CsvField::Phone},
    FieldName{u"Mobile", CsvField::Mobile},
    FieldName{u"Fax", CsvField::Fax},
    FieldName{u"Email", CsvField::Email},
    FieldName{u"Website", CsvField::Website},
    FieldName{u"Address", CsvField::Address},
    FieldName{u"Street", CsvField::Street},
    FieldName{u"PostCode", CsvField::PostCode},
    FieldName{u"City", CsvField::City},
    FieldName{u"Region", CsvField::Region},
    FieldName{u"Country", CsvField::Country},
    FieldName{u"Birthday", CsvField::Birthday},
    FieldName{u"BirthDay", CsvField::BirthDay},
    FieldName{u"BirthMonth", CsvField::BirthMonth},
    FieldName{u"BirthYear", CsvField::BirthYear},
    FieldName{u"Note", CsvField::Note},
    FieldName{u"Detail", CsvField::Detail},
    FieldName{u"Group", CsvField::Group},
    FieldName{u"Photo", CsvField::Photo},
};

CsvField fieldOf(const QString &name)
{
    for (const FieldName &each : fieldNames)
        if (name == QStringView(each.name)) return each.field;
    return CsvField::Unknown;
}

CsvPlace placeOf(const QString &name)
{
    if (name == u"Home"_s) return CsvPlace::Home;
    if (name == u"Work"_s) return CsvPlace::Work;
    return name == u"Other"_s ? CsvPlace::Other : CsvPlace::None;
}

CsvField fieldOfNumbered(const QString &kind, const QString &part)
{
    if (kind == u"phone"_s) return CsvField::Phone;
    if (kind == u"website"_s) return CsvField::Website;
    if (kind != u"address"_s) return CsvField::Email;
    if (part == u"city"_s) return CsvField::City;
    if (part == u"region"_s) return CsvField::Region;
    if (part == u"postal code"_s) return CsvField::PostCode;
    if (part == u"country"_s) return CsvField::Country;
    const bool isWhole =
        part == u"formatted"_s || part == u"label"_s || part == u"type"_s || part == u"value"_s;
    return isWhole ? CsvField::Address : CsvField::Street;
}

// "Phone 1 - Label", "E-mail 2 - Value", "Address 1 - City".
CsvColumn numberedColumn(const QString &folded)
{
    static const QRegularExpression form(u"^(phone|e ?mail|address|website) (\\d{1,2}) "
                                         u"(label|type|value|formatted|street|city|po box|region|postal code|"
                                         u"country|extended address)$"_s);
    const QRegularExpressionMatch found = form.match(folded);
    if (!found.hasMatch()) return {};
    const QString part = found.captured(3);
    return {fieldOfNumbered(found.captured(1), part), CsvPlace::None, found.captured(2).toInt(),
            part == u"label"_s || part == u"type"_s};
}

bool isName(CsvField field)
{
    return field == CsvField::FullName || field == CsvField::GivenName || field == CsvField::FamilyName;
}

// Row: of a header's meanings, each with the column that it is taken for.
template<class Row>
bool has(const Row &row, std::size_t except, CsvField field, CsvPlace place = CsvPlace::None)
{
    for (std::size_t i = 0; i < row.size(); ++i)
        if (i != except && row[i].column.field == field && row[i].column.place == place) return true;
    return false;
}

template<class Row> bool hasNameBefore(const Row &row, std::size_t at)
{
    return std::any_of(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(at),
                       [](const auto &meaning) { return isName(meaning.column.field); });
}

// That of the nearest part of an address before it, else of the nearest behind it. No other column has a place,
// nor has a numbered one.
template<class Row> CsvPlace neighboursPlace(const Row &row, std::size_t at)
{
    for (std::size_t i = at; i-- > 0;)
        if (row[i].column.place != CsvPlace::None) return row[i].column.place;
    for (std::size_t i = at + 1; i < row.size(); ++i)
        if (row[i].column.place != CsvPlace::None) return row[i].column.place;
    return CsvPlace::Home;
}

// The place in which no other column has this field yet.
template<class Row> CsvPlace freePlace(const Row &row, std::size_t at)
{
    const CsvPlace wanted = neighboursPlace(row, at);
    for (const CsvPlace place : {wanted, CsvPlace::Home, CsvPlace::Work, CsvPlace::Other})
        if (!has(row, at, row[at].column.field, place)) return place;
    return wanted;
}

// "Região" of one program is the country of another: what the place has already, it is not.
template<class Row> CsvField missingOf(const Row &row, std::size_t at)
{
    const CsvColumn &column = row[at].column;
    const CsvField other = column.field == CsvField::Region ? CsvField::Country : CsvField::Region;
    const bool isTaken = has(row, at, column.field, column.place);
    return isTaken && !has(row, at, other, column.place) ? other : column.field;
}
// Letters and figures in lower case without their marks, and blanks for all else.
QString decomposed(const QString &text)
{
    QString lower = text.toLower();
    lower.replace(u'ß', u"ss"_s); // which has no other form to be decomposed to
    QString plain;
    for (const QChar sign : lower.normalized(QString::NormalizationForm_KD)) {
        if (sign.isMark()) continue;
        plain += sign.isLetterOrNumber() ? sign : QChar(u' ');
    }
    return plain;
}

// Below this no sign is a mark of the one before it, so each is folded for itself, and once for all texts:
// the letters of western and central Europe.
constexpr char16_t foldedAlone = 0x180;

struct FoldedSign {
    std::array<QChar, 3> signs; // that one becomes
    qsizetype size = 0;
};

const std::array<FoldedSign, foldedAlone> &foldedSigns()
{
    static const std::array<FoldedSign, foldedAlone> signs = [] {
        std::array<FoldedSign, foldedAlone> table;
        char16_t sign = 0;
        for (FoldedSign &each : table) {
            const QString folded = decomposed(QString(QChar(sign++)));
            each.size = folded.size();
            std::copy(folded.begin(), folded.end(), each.signs.begin());
        }
        return table;
    }();
    return signs;
}

QString foldedSignBySign(const QString &text)
{
    const std::array<FoldedSign, foldedAlone> &table = foldedSigns();
    QVarLengthArray<QChar, 256> plain(static_cast<qsizetype>(table.front().signs.size()) * text.size());
    QChar *const begin = plain.data();
    QChar *end = begin;
    bool isApart = false; // from the word before
    for (const QChar sign : text) {
        const FoldedSign &folded = table[sign.unicode()];
        for (qsizetype i = 0; i < folded.size; ++i) {
            const QChar each = folded.signs[static_cast<std::size_t>(i)];
            if (each != u' ' && isApart && end != begin) *end++ = u' ';
            isApart = each == u' ';
            if (!isApart) *end++ = each;
        }
    }
    return QString(begin, end - begin);
}
} // namespace

CsvHeaders::CsvHeaders()
{
    announceNames();
    QFile table(u":/csv/colunas.tsv"_s);
    if (!table.open(QIODevice::ReadOnly)) return;
    for (const QString &row : QString::fromUtf8(table.readAll()).split(u'\n')) {
        const QStringList cells = row.split(u'\t');
        if (cells.size() != 3) continue;
        const bool isDoubtful = cells[0].endsWith(u'?');
        const Meaning meaning{{fieldOf(isDoubtful ? cells[0].chopped(1) : cells[0]), placeOf(cells[1])},
                              isDoubtful};
        if (meaning.column.field == CsvField::Unknown) continue; // the names of the columns
        for (const QString &name : cells[2].split(u", "_s))
            names_.insert(name, meaning);
    }
}

QString CsvHeaders::folded(const QString &name)
{
    const bool isPlain =
        std::all_of(name.begin(), name.end(), [](QChar sign) { return sign.unicode() < foldedAlone; });
    return isPlain ? foldedSignBySign(name) : decomposed(name).simplified();
}

CsvHeaders::Meaning CsvHeaders::meaningOf(const QString &name) const
{
    const QString plain = folded(name);
    const auto known = names_.constFind(plain);
    return known != names_.constEnd() ? *known : Meaning{numberedColumn(plain), false};
}

void CsvHeaders::settle(Row &row, std::size_t at)
{
    CsvColumn &column = row[at].column;
    if (isAddressPart(column.field)) {
        if (column.place == CsvPlace::None)
            column.place = freePlace(row, at);
        else
            column.field = missingOf(row, at);
    } else if (column.field == CsvField::BirthDay) {
        const bool hasParts = has(row, at, CsvField::BirthMonth) || has(row, at, CsvField::BirthYear);
        if (!hasParts) column.field = CsvField::Birthday;
    } else if (column.field ==
               CsvField::FamilyName) { // apelido: where it isn't the family's name, it is a nickname
        if (has(row, at, CsvField::FamilyName)) column.field = CsvField::Nickname;
    } else if (column.field == CsvField::FullName) { // nome: beside a family's name it is the given one
        if (has(row, at, CsvField::FamilyName) || has(row, at, CsvField::FullName))
            column.field = CsvField::GivenName;
    } else if (column.field == CsvField::NamePrefix) { // title: behind the name it is a profession
        if (hasNameBefore(row, at)) column.field = CsvField::Detail;
    }
}

std::vector<CsvColumn> CsvHeaders::columns(const QStringList &names) const
{
    Row row;
    for (const QString &name : names)
        row.push_back(meaningOf(name));
    for (std::size_t i = 0; i < row.size(); ++i)
        if (row[i].isDoubtful) settle(row, i);
    std::vector<CsvColumn> columns;
    for (const Meaning &meaning : row)
        columns.push_back(meaning.column);
    return columns;
}
