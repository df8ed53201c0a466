// The words before what a card says and no column holds, in the languages of the program.
#pragma once

#include <QString>
#include <QStringList>

enum class Rotulo {
    NomeCompleto,
    Telefone,
    Telemovel,
    Fax,
    Pager,
    Email,
    Website,
    Morada,
    Aniversario,
    Categorias,
    Fotografia,
    Empresa,
    Cargo,
    Funcao,
    Alcunha,
    Mensagens,
    DataEspecial,
    Relacionado,
    Casa,
    Trabalho,
};

namespace rotulos_do_cartao
{
QString Em(Rotulo rotulo, const QString &idioma);

// The line between a note and what follows it of the card.
QString Marca(const QString &idioma);
bool E_Marca(const QString &linha); // in any of the languages

// The names of all languages, for what may have been written in one that is not active any more.
const QStringList &Idiomas();
} // namespace rotulos_do_cartao
