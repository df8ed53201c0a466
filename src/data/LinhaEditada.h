// A row of a table that stands in an editor while others can write it too: how it is written without the
// changes of anybody being lost.
#pragma once

#include "data/EncontroDeLinhas.h"

#include <functional>
#include <optional>
#include <string_view>

class DE;
class Recordset;

class LinhaEditada
{
public:
    // The table, its columns that the editor writes, and what they say together (see EncontroDeLinhas).
    struct Forma {
        std::string_view tabela;
        std::vector<std::string_view> colunas; // literals
        EncontroDeLinhas::Campos campos;
    };

    // Both sides of what is disputed, whole rows in the order of the columns.
    struct Disputa {
        EncontroDeLinhas::Lugares campos; // by their places in the form
        QStringList aqui;
        QStringList la;
    };
    // Asks the person which fields become theirs; nothing: not to be written now. Called while nothing is
    // locked.
    using Perguntar = std::function<std::optional<EncontroDeLinhas::Lugares>(const Disputa &)>;
    // Writes these values to the row.
    using Escrever = std::function<void(const QStringList &valores)>;

    enum class Fim {
        Gravada,
        Deixada,   // by the person who was asked
        Eliminada, // there is no such row any more
    };

    LinhaEditada(DE &de, Forma forma) : de_(de), forma_(std::move(forma)) {}

    // The editor opens: the ID of the row, and what the editor made of its values. The row is the recordset's
    // current one.
    void Comecar(const QString &ID, const Recordset &rs, QStringList mostrada);
    // The same for a row that the editor has from somebody who read it before: what it shows is what it was.
    void Comecar(const QString &ID, const QStringList &mostrada);

    // Whether the editor has other values than it had when it opened.
    bool Mudou(const QStringList &aqui) const { return encontro_->Mudou_Aqui(aqui); }

    // Writes what the editor has, with what others have changed meanwhile. Nobody else writes between the
    // look at the row and its writing. Raises what the store raises, and then, as when the row was left or is
    // gone, nothing is written and a next call begins anew; but for a write whose answer was lost, which the
    // next call knows again where it has arrived.
    Fim Gravar(QStringList aqui, const Perguntar &perguntar, const Escrever &escrever);

    enum class Estado { Igual, Mudada, Eliminada };
    // What others have made of the row since the editor opened. Raises what the store raises.
    Estado La();

    const QString &ID() const { return ID_; }

private:
    std::optional<QStringList> Ler();

    DE &de_;
    Forma forma_;
    QString ID_;
    std::optional<EncontroDeLinhas> encontro_; // none before the editor opens
    std::optional<EncontroDeLinhas> escrito_;  // the same as it is once what was written last has arrived
    bool chegou_ = false;                      // it has, and the row may hold what the editor does not show
};
