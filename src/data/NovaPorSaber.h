// A new row over whose writing a server went away: whether it arrived is known once the server is back. One that did
// is not written twice.
#pragma once

#include <functional>
#include <QString>
#include <QStringList>
#include <string_view>
#include <vector>

class DE;

class NovaPorSaber
{
public:
    // The table, and the columns by whose values a row is known again; the first of them should tell most rows apart.
    NovaPorSaber(DE &de, std::string_view tabela, std::vector<std::string_view> colunas);

    using Inserir = std::function<void()>;
    using Actualizar = std::function<void(const QString &ID)>;

    // Writes the row with these values, as the table has them in those columns; or, where an earlier one of this
    // object has arrived after all, makes that one what the row is now. Returns the ID where it is known: that of a
    // row whose answer was lost. Empty of one that was written in peace. Raises what the work raises.
    QString Gravar(const QStringList &valores, const Inserir &inserir, const Actualizar &actualizar);

    // The values of an earlier row that is known to have arrived after all; none where there is no such row.
    QStringList Chegada() const;
    // And its ID; empty where there is none, or where somebody has taken the row away or changed it since. Raises
    // Failure where nobody knows yet.
    QString ID() const;

private:
    void Vigiar(const QStringList &valores, const Inserir &inserir);
    bool Por_Procurar() const;

    DE &de_;
    std::string_view tabela_;
    std::vector<std::string_view> colunas_;
    QStringList valores_; // of the one whose answer was lost
    int perdida_ = 0;     // its number among such writes; 0: none
    QString achada_;      // its ID, once it was asked for
};
