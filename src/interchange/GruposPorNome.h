// The groups of the current database by their names, compared as the database compares them. A name costs the
// same however many groups there are: all are read once, and later on what has come since.
#pragma once

#include <limits>
#include <map>
#include <optional>
#include <QString>

class DE;

class GruposPorNome
{
public:
    explicit GruposPorNome(DE &de) : de_(de) {}

    // The ID of the first group of that name; none where there is none. Raises Failure where the database
    // can't be asked.
    std::optional<QString> Procurar(const QString &nome);

    // What was read may not be in the database any more: all are read anew.
    void Esquecer();

private:
    struct Ordem {
        bool operator()(const QString &a, const QString &b) const;
    };
    void Ler_Novos();

    DE &de_;
    std::map<QString, QString, Ordem> ids_;
    static constexpr qint64 nenhum = std::numeric_limits<qint32>::min(); // a server asked for one below refuses
    qint64 ultimo_ = nenhum; // the highest ID read so far
};
