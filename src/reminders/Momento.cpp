#include "reminders/Momento.h"

#include "platform/Failure.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr QStringView forma_da_data = u"dd-MM-yyyy";
constexpr QStringView forma_da_hora = u"HH:mm";

template<class Valor> Valor Do_Texto(const QString &texto, QStringView forma)
{
    const Valor valor = Valor::fromString(texto, forma);
    if (!valor.isValid())
        throw Failure(Failure::TypeMismatch, u"TblTarefas"_s,
                      u"\"%1\" is not %2"_s.arg(texto, forma.toString()));
    return valor;
}
} // namespace

QString Texto_Da_Data(QDate data) { return data.toString(forma_da_data); }
QString Texto_Da_Hora(QTime hora) { return hora.toString(forma_da_hora); }

QDate Data_Do_Texto(const QString &texto) { return Do_Texto<QDate>(texto, forma_da_data); }
QTime Hora_Do_Texto(const QString &texto) { return Do_Texto<QTime>(texto, forma_da_hora); }
