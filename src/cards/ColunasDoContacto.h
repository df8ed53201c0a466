// The columns of a contact in the order in which cmdAdicionarNome takes them.
#pragma once

#include <array>
#include <QString>

enum class Coluna : std::size_t {
    Nome,
    Telefone1,
    Telefone2,
    Fax,
    Telemovel1,
    Telemovel2,
    Telemovel3,
    Dia,
    Mes,
    Ano,
    Email1,
    Email2,
    Website,
    Morada,
    Obs,
    Fotografia,
    IDGrupo,
};

struct ColunasDoContacto {
    static constexpr std::size_t quantas = 17;
    // As the table of contacts itself names them.
    static constexpr std::array<const char *, quantas> na_tabela{
        "Nome", "Telefone1", "Telefone2", "Fax",     "Telemovel1", "Telemovel2", "Telemovel3", "Dia",  "Mes",
        "Ano",  "Email1",    "Email2",    "Website", "Morada",     "Obs",        "Fotografia", "Grupo"};
    static constexpr std::array telefones{Coluna::Telefone1, Coluna::Telefone2};
    static constexpr std::array telemoveis{Coluna::Telemovel1, Coluna::Telemovel2, Coluna::Telemovel3};
    static constexpr std::array faxes{Coluna::Fax};
    static constexpr std::array emails{Coluna::Email1, Coluna::Email2};
    static constexpr std::array numeros{Coluna::Telefone1,  Coluna::Telefone2,  Coluna::Fax,
                                        Coluna::Telemovel1, Coluna::Telemovel2, Coluna::Telemovel3};

    // What the boxes of a contact's form take, in characters.
    static constexpr qsizetype maior_nome = 55;
    static constexpr qsizetype maior_numero = 25;
    static constexpr qsizetype maior_email = 60;

    std::array<QString, quantas> valores;

    QString &operator[](Coluna coluna) { return valores[static_cast<std::size_t>(coluna)]; }
    const QString &operator[](Coluna coluna) const { return valores[static_cast<std::size_t>(coluna)]; }
    bool operator==(const ColunasDoContacto &) const = default;
};
