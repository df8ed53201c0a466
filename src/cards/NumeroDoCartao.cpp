#include "cards/NumeroDoCartao.h"

#include "vcard/CardContent.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

EspecieDeNumero Especie_Do_Numero(const CardEntry &entrada, const QString &numero)
{
    const auto tem = [&](std::initializer_list<QLatin1StringView> tipos) {
        return std::any_of(tipos.begin(), tipos.end(),
                           [&](QLatin1StringView tipo) { return entrada.types.contains(tipo); });
    };
    const auto ditos = entrada.types.size() - entrada.types.count(u"pref"_s);
    if (tem({"fax"_L1}) || entrada.label.contains("fax"_L1, Qt::CaseInsensitive)) return EspecieDeNumero::Fax;
    if (tem({"cell"_L1, "mobile"_L1, "iphone"_L1}) || (ditos == 1 && tem({"msg"_L1})))
        return EspecieDeNumero::Telemovel;
    if (tem({"pager"_L1})) return EspecieDeNumero::Pager;
    if (tem({"car"_L1, "video"_L1, "textphone"_L1, "isdn"_L1})) return EspecieDeNumero::OutroTelefone;
    const bool sem_tipo = ditos == 0 && entrada.label.isEmpty();
    return sem_tipo && E_Telemovel_Portugues(numero) ? EspecieDeNumero::Telemovel : EspecieDeNumero::Telefone;
}

bool E_Telemovel_Portugues(const QString &numero)
{
    static const QRegularExpression sinais(u"[ ()./-]"_s);
    static const QRegularExpression forma(u"^(\\+351|00351)?9[0-9]{8}\\z"_s);
    return forma.match(QString(numero).remove(sinais)).hasMatch();
}

std::span<const Coluna> Colunas_Da_Especie(EspecieDeNumero especie)
{
    switch (especie) {
    case EspecieDeNumero::Telefone:
        return ColunasDoContacto::telefones;
    case EspecieDeNumero::Telemovel:
        return ColunasDoContacto::telemoveis;
    case EspecieDeNumero::Fax:
        return ColunasDoContacto::faxes;
    case EspecieDeNumero::Pager:
    case EspecieDeNumero::OutroTelefone:
        break;
    }
    return {};
}

Rotulo Rotulo_Da_Especie(EspecieDeNumero especie)
{
    switch (especie) {
    case EspecieDeNumero::Telemovel:
        return Rotulo::Telemovel;
    case EspecieDeNumero::Fax:
        return Rotulo::Fax;
    case EspecieDeNumero::Pager:
        return Rotulo::Pager;
    case EspecieDeNumero::Telefone:
    case EspecieDeNumero::OutroTelefone:
        break;
    }
    return Rotulo::Telefone;
}

QString Cortado(const QString &texto, qsizetype maior)
{
    if (texto.size() <= maior) return texto;
    const bool parte_um = texto[maior - 1].isHighSurrogate();
    return texto.first(parte_um ? maior - 1 : maior).trimmed();
}
