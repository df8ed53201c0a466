#include "cards/MapaDaTabela.h"

#include "csv/CsvHeaders.h"
#include "data/ReadWriteINI.h"

#include <algorithm>
#include <numeric>
#include <QCryptographicHash>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto seccao = "csv"_L1;
constexpr int base_dos_campos = 36; // one sign a field
constexpr int campos = static_cast<int>(CsvField::Photo) + 1;
constexpr int lugares = static_cast<int>(CsvPlace::Other) + 1;
static_assert(campos <= base_dos_campos);

// The places of the columns in the order of their names.
std::vector<std::size_t> Pelo_Nome(const QStringList &nomes)
{
    std::vector<std::size_t> ordem(static_cast<std::size_t>(nomes.size()));
    std::iota(ordem.begin(), ordem.end(), std::size_t{0});
    std::stable_sort(ordem.begin(), ordem.end(), [&](std::size_t a, std::size_t b) {
        return nomes[static_cast<qsizetype>(a)] < nomes[static_cast<qsizetype>(b)];
    });
    return ordem;
}

QString Chave(const QStringList &nomes)
{
    QStringList ordenados = nomes;
    ordenados.sort();
    const QByteArray soma =
        QCryptographicHash::hash(ordenados.join(u'\n').toUtf8(), QCryptographicHash::Sha1).toHex();
    return QString::fromLatin1(soma);
}

QString Ordem_Escrita(const std::optional<DateOrder> &ordem)
{
    if (!ordem) return u"?"_s;
    return *ordem == DateOrder::DayFirst ? u"d"_s : u"m"_s;
}

// False for what a person has spoilt in the file.
bool Ler_Coluna(QStringView escrita, CsvColumn &coluna)
{
    bool e_campo = false;
    bool e_lugar = false;
    const int campo = escrita.first(1).toInt(&e_campo, base_dos_campos);
    const int lugar = escrita.sliced(1).toInt(&e_lugar);
    if (!e_campo || !e_lugar || campo >= campos || lugar < 0 || lugar >= lugares) return false;
    const CsvColumn lida{static_cast<CsvField>(campo), static_cast<CsvPlace>(lugar), 0, false};
    // Unchanged by the person, it keeps what its name told besides: its number, and that it is a label.
    if (lida.field != coluna.field || lida.place != coluna.place) coluna = lida;
    return true;
}
} // namespace

MapaDaTabela MapaDaTabela::Proposto(const QStringList &nomes, const CsvHeaders &conhecidos)
{
    return {conhecidos.columns(nomes), {}};
}

void MapasGuardados::Guardar(const QStringList &nomes, const MapaDaTabela &mapa)
{
    if (nomes.size() > mais_colunas || nomes.size() != static_cast<qsizetype>(mapa.colunas.size())) return;
    QString valor = Ordem_Escrita(mapa.ordem);
    for (const std::size_t i : Pelo_Nome(nomes))
        valor += QString::number(static_cast<int>(mapa.colunas[i].field), base_dos_campos) +
                 QString::number(static_cast<int>(mapa.colunas[i].place));
    ini_.Escrever_Ini(seccao, Chave(nomes), valor);
}

MapaDaTabela MapasGuardados::Ler(const QStringList &nomes, const CsvHeaders &conhecidos)
{
    MapaDaTabela proposto = MapaDaTabela::Proposto(nomes, conhecidos);
    const QString valor = ini_.Ler_Ini(seccao, Chave(nomes));
    if (valor.size() != 1 + 2 * nomes.size()) return proposto;
    MapaDaTabela mapa = proposto;
    if (valor.front() == u'd') mapa.ordem = DateOrder::DayFirst;
    if (valor.front() == u'm') mapa.ordem = DateOrder::MonthFirst;
    qsizetype onde = 1;
    for (const std::size_t i : Pelo_Nome(nomes)) {
        if (!Ler_Coluna(QStringView(valor).sliced(onde, 2), mapa.colunas[i])) return proposto;
        onde += 2;
    }
    return mapa;
}
