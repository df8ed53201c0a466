#include "reminders/ProximosAniversarios.h"

#include "data/Geral.h"
#include "data/IndicesDoLivro.h"
#include "store/Row.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace
{
struct DiaEMes {
    QString Dia;
    QString Mes;
};

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
    // An empty one is no date either way; most of a book may have none, and each contact is asked at the start.
    if (data.Dia.isEmpty() || data.Mes.isEmpty()) return distancia;
    for (const int ano : {hoje.year(), hoje.year() + 1}) {
        const auto faltam = Dias_Ate(hoje, Data_No_Ano(data, ano));
        distancia.perto = distancia.perto || (faltam && *faltam >= 0 && *faltam < dias);
        distancia.hoje = distancia.hoje || faltam == 0;
    }
    return distancia;
}

// The number of one or two digits, as nearly all days and months are kept.
std::optional<int> Numero_Curto(std::string_view texto)
{
    if (texto.empty() || texto.size() > 2) return {};
    int numero = 0;
    for (const char digito : texto) {
        if (digito < '0' || digito > '9') return {};
        numero = numero * 10 + (digito - '0');
    }
    return numero;
}

QString Texto(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// A large book holds each day of the year many times: its distance is reckoned once.
class Calendario
{
public:
    Calendario(QDate hoje, int dias) : hoje_(hoje), dias_(dias) {}

    Distancia Ate(std::string_view Dia, std::string_view Mes)
    {
        const auto dia = Numero_Curto(Dia);
        const auto mes = Numero_Curto(Mes);
        const auto contar = [&] { return Distancia_De({Texto(Dia), Texto(Mes)}, hoje_, dias_); };
        if (!dia || !mes) return contar();
        auto &conhecida = conhecidas_[*dia * 100 + *mes];
        if (!conhecida) conhecida = contar();
        return *conhecida;
    }

private:
    QDate hoje_;
    int dias_;
    QHash<int, std::optional<Distancia>> conhecidas_;
};

struct Colunas {
    explicit Colunas(const Row &linha)
        : ID(linha.column("ID")),
          Nome(linha.column("Nome")),
          Dia(linha.column("Dia")),
          Mes(linha.column("Mes"))
    {
    }
    int ID, Nome, Dia, Mes;
};
} // namespace

std::optional<std::vector<Aniversariante>> Proximos_Aniversarios(Geral &geral, QDate hoje, int dias)
{
    std::vector<Aniversariante> proximos;
    std::optional<Colunas> colunas;
    Calendario calendario(hoje, dias);
    const bool ha_contactos = geral.de.Percorrer_As_Que(
        "cmdListarAniversarios", geral.SessaoActual.IdUtilizador, colunas_do_aniversario,
        [&](std::string_view Dia, std::string_view Mes) { return calendario.Ate(Dia, Mes).perto; },
        [&](const Row &linha) {
            if (!colunas) colunas.emplace(linha);
            const std::string_view Dia = linha.utf8(colunas->Dia);
            const std::string_view Mes = linha.utf8(colunas->Mes);
            proximos.push_back({.ID = linha.field(colunas->ID).text(),
                                .Nome = linha.field(colunas->Nome).textOrEmpty(),
                                .Dia = Texto(Dia),
                                .Mes = Texto(Mes),
                                .hoje = calendario.Ate(Dia, Mes).hoje});
        });
    return ha_contactos ? std::optional(std::move(proximos)) : std::nullopt;
}
