#include "cards/ColunasLivres.h"

#include <algorithm>

QString Chave_Ou_Valor(ChaveDoValor chave, const QString &valor)
{
    const QString esta = chave(valor);
    return esta.isEmpty() ? valor.trimmed() : esta;
}

QStringList Encher_Livres(ColunasDoContacto &para, const ColunasDoContacto &de,
                          std::span<const Coluna> colunas, ChaveDoValor chave, QStringList ja_la)
{
    QStringList sem_lugar;
    for (const Coluna coluna : colunas) {
        const QString &valor = de[coluna];
        if (valor.isEmpty()) continue;
        const QString esta = Chave_Ou_Valor(chave, valor);
        if (esta.isEmpty() || ja_la.contains(esta)) continue;
        ja_la << esta;
        const auto livre = std::find_if(colunas.begin(), colunas.end(),
                                        [&](Coluna outra) { return para[outra].trimmed().isEmpty(); });
        if (livre != colunas.end())
            para[*livre] = valor;
        else
            sem_lugar << valor.trimmed();
    }
    return sem_lugar;
}
