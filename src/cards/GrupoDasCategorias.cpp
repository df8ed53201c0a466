#include "cards/GrupoDasCategorias.h"

#include "cards/NomeDobrado.h"

using namespace Qt::StringLiterals;

namespace
{
// A group that a web book makes by itself.
bool E_De_Um_Programa(const QString &categoria)
{
    const QString nome = categoria.trimmed();
    return nome.startsWith("* "_L1) || nome.compare("myContacts"_L1, Qt::CaseInsensitive) == 0 ||
           nome.compare("starred"_L1, Qt::CaseInsensitive) == 0 ||
           nome.startsWith("Imported"_L1, Qt::CaseInsensitive);
}
} // namespace

QString Grupo_Das_Categorias(const QStringList &categorias, const GruposDaImportacao &grupos)
{
    for (const QString &categoria : categorias)
        for (const QString &visivel : grupos.visiveis)
            if (Nome_Dobrado(categoria) == Nome_Dobrado(visivel)) return visivel;
    if (grupos.criar)
        for (const QString &categoria : categorias)
            if (!categoria.trimmed().isEmpty() && !E_De_Um_Programa(categoria)) return categoria.trimmed();
    return grupos.escolhido;
}
