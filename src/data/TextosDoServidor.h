// The texts as a server has them: asked for all at once and kept until the process ends, for each question
// would be a trip. One that the server lacks, being older than the program, comes from the program itself; so do all
// while the server can't be asked.
#pragma once

#include <optional>
#include <QHash>
#include <QString>

class DE;

class TextosDoServidor
{
public:
    // The language by its column. Failure for a number that nobody knows and for a cell that is Null.
    QString Ler(DE &de, int numero, const char *coluna);

    // Those that are not Null.
    QHash<qint64, QString> Todos(DE &de, const char *coluna);

private:
    using Textos = QHash<qint64, std::optional<QString>>; // Null is nothing

    void Pedir(DE &de, const char *coluna);

    QString coluna_; // of the texts that are kept; empty before any are
    Textos textos_;
};
