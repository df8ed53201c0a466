#include "servidor/Dobra.h"

#include "platform/Failure.h"
#include "store/postgres/ServerSession.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace
{
constexpr int ultima = 0xFFFF;                // letters beyond it the file compares exactly
constexpr char16_t primeira_reserva = 0xFDD0; // stand in no text: 32 places that are no characters
constexpr int reservas = 32;

char16_t Dobrada(char16_t letra) { return QChar(letra).toCaseFolded().unicode(); }

// The rules that each installation has, whatever languages it was given.
QString Ordem_De(ServerSession &servidor)
{
    const Recordset rs = servidor.query(
        u"SELECT collname FROM pg_collation WHERE collname IN ('C.utf8', 'C.UTF-8', 'pg_c_utf8') "
        "AND collencoding IN (-1, 6) ORDER BY array_position(ARRAY['C.utf8', 'C.UTF-8', "
        "'pg_c_utf8']::name[], collname) "
        "LIMIT 1"_s);
    if (rs.Eof())
        throw Failure(Failure::StoreError, servidor.place(), u"The server has no collation C.utf8"_s);
    return rs.Fields("collname").text();
}
} // namespace

LetrasPequenas Letras_Pequenas_De(ServerSession &servidor)
{
    LetrasPequenas letras{Ordem_De(servidor), {}};
    servidor.each(
        u"SELECT c, ascii(l) FROM (SELECT c, lower(chr(c) COLLATE %1) AS l FROM generate_series(1, %2) c "
        "WHERE c NOT BETWEEN 55296 AND 57343) x WHERE l <> chr(c) COLLATE \"C\""_s.arg(
            ServerSession::name(letras.ordem), QString::number(ultima)),
        [&](const ServerSession::Values &linha) {
            letras.pequenas.insert(static_cast<char16_t>(std::get<qint64>(linha[0])),
                                   static_cast<char16_t>(std::get<qint64>(linha[1])));
        });
    return letras;
}

// A small letter becomes what it folds to. Where two letters become the same small one and fold to different
// ones, the one that was small from the beginning keeps it, and the other is put away before.
Dobra Dobra_De(const LetrasPequenas &letras)
{
    Dobra dobra;
    for (int i = 1; i <= ultima; ++i) {
        const auto letra = static_cast<char16_t>(i);
        if (QChar(letra).isSurrogate()) continue;
        const char16_t pequena = letras.pequenas.value(letra, letra);
        if (Dobrada(letra) != pequena) dobra.diferentes += QChar(letra);
        if (pequena == letra) {
            if (Dobrada(letra) == letra) continue;
            dobra.depois += QChar(letra);
            dobra.dobradas += QChar(Dobrada(letra));
        } else if (Dobrada(letra) != Dobrada(pequena)) {
            if (dobra.antes.size() >= reservas)
                throw Failure(Failure::StoreError, {}, u"The server's small letters differ too much"_s);
            const QChar reserva(static_cast<char16_t>(primeira_reserva + dobra.antes.size()));
            dobra.antes += QChar(letra);
            dobra.guardadas += reserva;
            dobra.depois += reserva;
            dobra.dobradas += QChar(Dobrada(letra));
        }
    }
    return dobra;
}

// Not strict: so the server puts it into the statement and does not call it. The replacing walks its lists
// for each letter, and is kept for texts that need it.
QString Sql_Dobrar(const QString &ordem, const Dobra &dobra)
{
    const QString pequeno = u"lower(%1 COLLATE %2)"_s;
    const QString colacao = ServerSession::name(ordem);
    const QString antes =
        dobra.antes.isEmpty() ? u"t"_s : u"translate(t, '%1', '%2')"_s.arg(dobra.antes, dobra.guardadas);
    QString corpo = pequeno.arg(u"t"_s, colacao);
    if (!dobra.diferentes.isEmpty())
        corpo = u"CASE WHEN t COLLATE \"C\" ~ '[%1]' THEN translate(%2, '%3', '%4') ELSE %5 END"_s.arg(
            dobra.diferentes, pequeno.arg(antes, colacao), dobra.depois, dobra.dobradas, corpo);
    return u"CREATE OR REPLACE FUNCTION morvex_dobrar(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL "
           u"SAFE "
           "AS $morvex$ SELECT %1 $morvex$"_s.arg(corpo);
}
