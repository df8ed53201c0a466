#include "reminders/TarefasLidas.h"

#include "data/Geral.h"
#include "platform/Clock.h"
#include "platform/Failure.h"
#include "reminders/Momento.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 validade = 60; // seconds

// As the store compares them: texts, of which Null is never smaller.
bool Antes_De(const Field &campo, const QString &fim) { return !campo.isNull() && campo.text() < fim; }
} // namespace

// The rows that this desk itself has written, whichever they are: of those nobody tells.
bool TarefasLidas::Ainda_Servem(const QDateTime &agora) const
{
    bool escreveu = false;
    skipFailure([&] {
        const Connection::Mark marca = geral_.de.Marca();
        escreveu = marca.here != marca_.here || marca.opening != marca_.opening;
    });
    return pedidas_.isValid() && !escreveu && Utilizador_ == geral_.SessaoActual.IdUtilizador &&
           std::llabs(pedidas_.secsTo(agora)) < validade;
}

void TarefasLidas::Por_Em_Dia()
{
    const QDateTime agora = relogio_.now();
    if (Ainda_Servem(agora)) return;
    skipFailure([&] { Ler(agora); });
    pedidas_ = agora; // one that failed is not tried again each second either
}

// As far as tomorrow, so that a night without the server costs nothing.
void TarefasLidas::Ler(const QDateTime &agora)
{
    if (Utilizador_ != geral_.SessaoActual.IdUtilizador) linhas_ = {};
    Utilizador_ = geral_.SessaoActual.IdUtilizador;
    skipFailure([&] { marca_ = geral_.de.Marca(); });
    Recordset &rs =
        geral_.de.Abrir("cmdVerificarTarefas2", {Texto_Da_Data(agora.date().addDays(2)), Utilizador_});
    linhas_ = rs;
    rs.Close();
}

bool TarefasLidas::Vencida(const Recordset &linha, const QDateTime &agora)
{
    const QString amanha = agora.date().addDays(1).toString(Qt::ISODate);
    const QString minuto_seguinte = agora.time().toString(u"HH:mm:01"_s);
    return Antes_De(linha.Fields("Data"), amanha) && Antes_De(linha.Fields("Hora"), minuto_seguinte);
}

bool TarefasLidas::De_Um_Dia_Anterior(const Recordset &linha, const QDateTime &agora)
{
    return Antes_De(linha.Fields("Data"), agora.date().toString(Qt::ISODate));
}
