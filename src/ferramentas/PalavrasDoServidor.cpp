#include "ferramentas/PalavrasDoServidor.h"

// As the system itself decides it: the first of these that says anything.
palavras::Lingua palavras::Do_Ambiente()
{
    for (const char *nome : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const QString valor = qEnvironmentVariable(nome); !valor.isEmpty())
            return valor.startsWith(QLatin1StringView("pt")) ? Lingua::Portugues : Lingua::Ingles;
    return Lingua::Ingles;
}

QString palavras::Dizer(const Frase &frase, Lingua lingua)
{
    return QString::fromUtf16(frase[lingua == Lingua::Portugues ? 0 : 1]);
}

QString palavras::Nome(Lingua lingua)
{
    return lingua == Lingua::Portugues ? QStringLiteral("PortuguesPT") : QStringLiteral("InglesUK");
}
