// What a year of tasks must look like: a calendar, a clock on the wall and a store of tasks of the test's
// own, which share nothing with those of the program.
#pragma once

#include <algorithm>
#include <array>
#include <compare>
#include <map>
#include <optional>
#include <QString>
#include <set>

namespace almanaque
{
struct Dia {
    int ano = 0;
    int mes = 0;
    int dia = 0;
    auto operator<=>(const Dia &) const = default;
};

inline int Dias_Do_Mes(int ano, int mes)
{
    constexpr std::array dias{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool bissexto = ano % 4 == 0 && (ano % 100 != 0 || ano % 400 == 0);
    return mes == 2 && bissexto ? 29 : dias.at(static_cast<std::size_t>(mes - 1));
}

inline Dia Mais_Dias(Dia d, int dias)
{
    for (; dias > 0; --dias) {
        if (++d.dia <= Dias_Do_Mes(d.ano, d.mes)) continue;
        d.dia = 1;
        if (++d.mes <= 12) continue;
        d.mes = 1;
        ++d.ano;
    }
    return d;
}

// A day that the month does not have gives way to its last one.
inline Dia Cortado(int ano, int mes, int dia) { return {ano, mes, std::min(dia, Dias_Do_Mes(ano, mes))}; }

// Where an acknowledgement moves a task of that repetition; nothing for one that ends with it.
inline std::optional<Dia> Seguinte(int repeticao, Dia d)
{
    switch (repeticao) {
    case 2:
        return Mais_Dias(d, 1);
    case 3:
        return Mais_Dias(d, 7);
    case 4:
        return d.mes == 12 ? Cortado(d.ano + 1, 1, d.dia) : Cortado(d.ano, d.mes + 1, d.dia);
    case 5:
        return Cortado(d.ano + 1, d.mes, d.dia);
    default:
        return std::nullopt;
    }
}

// A minute of the clock on the wall.
struct Momento {
    Dia dia;
    int minuto = 0; // of the day
    auto operator<=>(const Momento &) const = default;
};

// Time is counted in seconds from midnight of this Wednesday, in Lisbon's winter time.
constexpr Dia origem{2027, 12, 1};
constexpr qint64 origem_desde_1970 = 1827619200;
constexpr qint64 hora = 3600;
constexpr qint64 dia_inteiro = 24 * hora;

inline int Dias_Desde_A_Origem(Dia d)
{
    int dias = 0;
    for (Dia outro = origem; outro < d; outro = Mais_Dias(outro, 1))
        ++dias;
    return dias;
}

// One o'clock of winter on the last Sunday of the month: the clocks change.
inline qint64 Mudanca_Da_Hora(int ano, int mes)
{
    Dia d{ano, mes, Dias_Do_Mes(ano, mes)};
    while ((Dias_Desde_A_Origem(d) + 2) % 7 != 6)
        --d.dia;
    return Dias_Desde_A_Origem(d) * dia_inteiro + hora;
}

// What the clock on the wall shows; true of the winter, the summer and the winter after the origin.
inline Momento Na_Parede(qint64 segundos)
{
    static const qint64 primavera = Mudanca_Da_Hora(2028, 3);
    static const qint64 outono = Mudanca_Da_Hora(2028, 10);
    if (segundos >= primavera && segundos < outono) segundos += hora;
    return {Mais_Dias(origem, static_cast<int>(segundos / dia_inteiro)),
            static_cast<int>(segundos % dia_inteiro / 60)};
}

inline QString Texto(Dia d)
{
    return QStringLiteral("%1-%2-%3")
        .arg(d.dia, 2, 10, QChar(u'0'))
        .arg(d.mes, 2, 10, QChar(u'0'))
        .arg(d.ano);
}
inline QString Texto_Da_Hora(int minuto)
{
    return QStringLiteral("%1:%2").arg(minuto / 60, 2, 10, QChar(u'0')).arg(minuto % 60, 2, 10, QChar(u'0'));
}

struct Tarefa {
    QString texto;
    Momento momento;
    int utilizador = 0;
    int repeticao = 1;

    // As the table holds it.
    QString Linha(int id) const
    {
        const QStringList data = Texto(momento.dia).split(u'-');
        return QStringLiteral("%1|%2|%3-%4-%5|%6:00|%7|%8")
            .arg(id)
            .arg(texto, data[2], data[1], data[0], Texto_Da_Hora(momento.minuto))
            .arg(utilizador)
            .arg(repeticao);
    }
};

class Modelo
{
public:
    std::map<int, Tarefa> tarefas; // by ID

    QStringList Linhas() const
    {
        QStringList linhas;
        for (const auto &[id, tarefa] : tarefas)
            linhas << tarefa.Linha(id);
        return linhas;
    }

    // Those of the user, by their moments.
    std::vector<int> Do_Utilizador(int utilizador) const
    {
        std::vector<int> ids;
        for (const auto &[id, tarefa] : tarefas)
            if (tarefa.utilizador == utilizador) ids.push_back(id);
        std::stable_sort(ids.begin(), ids.end(),
                         [this](int a, int b) { return tarefas.at(a).momento < tarefas.at(b).momento; });
        return ids;
    }

    // Which one a tick may leave in the notice: the latest of an earlier day, or else the latest of today. Of
    // several of one moment any.
    std::set<int> Em_Cima(int utilizador, Momento agora) const
    {
        std::optional<Momento> ultimo;
        std::set<int> ids;
        const auto ver = [&](int id, Momento momento) {
            if (ultimo && momento < *ultimo) return;
            if (ultimo != momento) ids.clear();
            ultimo = momento;
            ids.insert(id);
        };
        for (const auto &[id, tarefa] : tarefas)
            if (tarefa.utilizador == utilizador && tarefa.momento.dia < agora.dia) ver(id, tarefa.momento);
        if (!ids.empty()) return ids;
        for (const auto &[id, tarefa] : tarefas)
            if (tarefa.utilizador == utilizador && tarefa.momento.dia == agora.dia && tarefa.momento <= agora)
                ver(id, tarefa.momento);
        return ids;
    }

    // How many acknowledgements bring the user to silence.
    int Por_Confirmar(int utilizador, Momento agora) const
    {
        int quantas = 0;
        for (const auto &[id, tarefa] : tarefas) {
            if (tarefa.utilizador != utilizador) continue;
            std::optional<Dia> dia = tarefa.momento.dia;
            for (; dia && Momento{*dia, tarefa.momento.minuto} <= agora; ++quantas)
                dia = Seguinte(tarefa.repeticao, *dia);
        }
        return quantas;
    }

    // The ring is acknowledged.
    void Confirmar(int id, const QString &texto)
    {
        Tarefa &tarefa = tarefas.at(id);
        if (const auto seguinte = Seguinte(tarefa.repeticao, tarefa.momento.dia)) {
            tarefa.momento.dia = *seguinte;
            tarefa.texto = texto;
        } else {
            tarefas.erase(id);
        }
    }
};
} // namespace almanaque
