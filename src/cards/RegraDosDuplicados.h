// What a contact that comes in is to those that are there already. It is compared through three dictionaries
// of names, numbers and mails, never pair by pair.
#pragma once

#include "cards/LugaresPorChave.h"

enum class Veredicto {
    Igual,    // the same person with nothing new: is not added
    Completa, // the same person for sure, with something new
    Talvez,   // a person has to decide; added if nobody does
    Novo,
};

struct Decisao {
    Veredicto veredicto = Veredicto::Novo;
    std::vector<std::size_t> quem; // their places in the order of Juntar, ascending
    // For Igual and Completa: the other's columns with what comes in. A value that is there stays.
    ColunasDoContacto completado;
    std::vector<Coluna> preenchidas; // the columns in which completado differs from the other
};

class RegraDosDuplicados
{
public:
    // The word before what finds no free column goes into Obs in that language.
    explicit RegraDosDuplicados(QString idioma);

    // Makes room for so many, which spares it the growing.
    void Contar_Com(std::size_t quantos);

    // One more that is there, with its UID where one is known. Those of an import are added as they pass, and
    // so the same person twice in one file is found as well.
    void Juntar(ColunasDoContacto colunas, const QString &uid = {});

    Decisao Decidir(const ColunasDoContacto &colunas, const QString &uid = {}) const;

    // The same for who has the keys of these columns already.
    void Juntar(ColunasDoContacto colunas, ChavesDoContacto as_suas, const QString &uid);
    Decisao Decidir(const ColunasDoContacto &colunas, const ChavesDoContacto &chaves,
                    const QString &uid) const;

    // What a person decides: who comes in is that one. Igual or Completa.
    static Decisao Juntos(const QString &idioma, const ColunasDoContacto &colunas,
                          const ColunasDoContacto &outro);

    // The one at that place has been completed to these columns.
    void Completar(std::size_t lugar, const ColunasDoContacto &completado);

    const ColunasDoContacto &Quem(std::size_t lugar) const { return todos_.at(lugar); }

private:
    using Lugares = LugaresPorChave::Lugares;
    using Chaves = ChavesDoContacto;

    bool Um_Nome_Contem_O_Outro(const ColunasDoContacto &colunas, std::size_t outro) const;
    bool Mesmo_Telemovel(const ColunasDoContacto &colunas, std::size_t outro) const;
    Lugares Certos(const ColunasDoContacto &colunas, const Chaves &chaves, const Lugares &por_numero,
                   const Lugares &por_email) const;
    bool Ja_Esta_La(const ColunasDoContacto &colunas, std::size_t outro) const;
    Decisao O_Mesmo(const ColunasDoContacto &colunas, const Chaves &chaves, std::size_t outro) const;

    QString idioma_;
    std::vector<ColunasDoContacto> todos_;
    std::vector<Chaves> chaves_;
    LugaresPorChave nomes_;
    LugaresPorChave numeros_;
    LugaresPorChave emails_;
    LugaresPorChave uids_;
};
