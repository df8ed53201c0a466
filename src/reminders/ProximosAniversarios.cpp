#include "reminders/ProximosAniversarios.h"

#include "store/Recordset.h"

#include <optional>

namespace
{
QDate Data_No_Ano(const Aniversariante &pessoa, int ano)
{
    const int dia = pessoa.Dia.toInt();
    const int mes = pessoa.Mes.toInt();
    constexpr int fevereiro = 2;
    if (dia == 29 && mes == fevereiro && !QDate::isLeapYear(ano)) return {ano, fevereiro + 1, 1};
    return {ano, mes, dia};
}

std::optional<qint64> Dias_Ate(QDate hoje, QDate data)
{
    return data.isValid() ? std::optional(hoje.daysTo(data)) : std::nullopt;
}
} // namespace

std::vector<Aniversariante> Proximos_Aniversarios(Recordset &rs, QDate hoje, int dias)
{
    std::vector<Aniversariante> proximos;
    for (; !rs.Eof(); rs.MoveNext()) {
        Aniversariante pessoa{.ID = rs.Fields("ID").text(),
                              .Nome = rs.Fields("Nome").textOrEmpty(),
                              .Dia = rs.Fields("Dia").textOrEmpty(),
                              .Mes = rs.Fields("Mes").textOrEmpty()};
        if (pessoa.Dia.isEmpty() || pessoa.Mes.isEmpty()) continue;
        bool perto = false;
        for (const int ano : {hoje.year(), hoje.year() + 1}) {
            const auto faltam = Dias_Ate(hoje, Data_No_Ano(pessoa, ano));
            perto = perto || (faltam && *faltam >= 0 && *faltam < dias);
            pessoa.hoje = pessoa.hoje || faltam == 0;
        }
        if (perto) proximos.push_back(std::move(pessoa));
    }
    return proximos;
}
