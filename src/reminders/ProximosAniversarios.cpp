#include "reminders/ProximosAniversarios.h"

#include "store/Recordset.h"

#include <optional>
#include <QHash>

namespace
{
struct DiaEMes {
    QString Dia;
    QString Mes;
    bool operator==(const DiaEMes &) const = default;
};

size_t qHash(const DiaEMes &data, size_t seed) { return qHashMulti(seed, data.Dia, data.Mes); }

struct Distancia {
    bool perto = false;
    bool hoje = false;
};

QDate Data_No_Ano(const DiaEMes &data, int ano)
{
    const int dia = data.Dia.toInt();
    const int mes = data.Mes.toInt();
    constexpr int fevereiro = 2;
    if (dia == 29 && mes == fevereiro && !QDate::isLeapYear(ano)) return {ano, fevereiro + 1, 1};
    return {ano, mes, dia};
}

std::optional<qint64> Dias_Ate(QDate hoje, QDate data)
{
    return data.isValid() ? std::optional(hoje.daysTo(data)) : std::nullopt;
}

Distancia Distancia_De(const DiaEMes &data, QDate hoje, int dias)
{
    Distancia distancia;
    if (data.Dia.isEmpty() || data.Mes.isEmpty()) return distancia;
    for (const int ano : {hoje.year(), hoje.year() + 1}) {
        const auto faltam = Dias_Ate(hoje, Data_No_Ano(data, ano));
        distancia.perto = distancia.perto || (faltam && *faltam >= 0 && *faltam < dias);
        distancia.hoje = distancia.hoje || faltam == 0;
    }
    return distancia;
}
} // namespace

// A large book holds each day of the year many times: its distance is reckoned once, and the rest of a row is
// read only where it is listed.
std::vector<Aniversariante> Proximos_Aniversarios(Recordset &rs, QDate hoje, int dias)
{
    std::vector<Aniversariante> proximos;
    QHash<DiaEMes, Distancia> conhecidas;
    for (; !rs.Eof(); rs.MoveNext()) {
        const DiaEMes data{.Dia = rs.Fields("Dia").textOrEmpty(), .Mes = rs.Fields("Mes").textOrEmpty()};
        auto distancia = conhecidas.constFind(data);
        if (distancia == conhecidas.constEnd())
            distancia = conhecidas.insert(data, Distancia_De(data, hoje, dias));
        if (!distancia->perto) continue;
        proximos.push_back({.ID = rs.Fields("ID").text(),
                            .Nome = rs.Fields("Nome").textOrEmpty(),
                            .Dia = data.Dia,
                            .Mes = data.Mes,
                            .hoje = distancia->hoje});
    }
    return proximos;
}
