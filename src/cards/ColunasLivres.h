// Numbers or mails of one contact that go into the free columns which another one has for them.
#pragma once

#include "cards/ColunasDoContacto.h"

#include <QStringList>
#include <span>

// By what two spellings of one value are known to be the same: a key of ChavesDoContacto. A value that has
// none is its own.
using ChaveDoValor = QString (*)(const QString &);
QString Chave_Ou_Valor(ChaveDoValor chave, const QString &valor);

// Values of these columns, all of one kind, go into those of them that are free; what stands in one is never
// replaced. Left out is what has one of these keys: whether the other has it in a column of this kind or
// anywhere else is the caller's question. What finds no room is returned.
QStringList Encher_Livres(ColunasDoContacto &para, const ColunasDoContacto &de,
                          std::span<const Coluna> colunas, ChaveDoValor chave, QStringList ja_la);
