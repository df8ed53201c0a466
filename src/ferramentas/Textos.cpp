#include "ferramentas/Textos.h"

#include "platform/Failure.h"

#include <QFile>

using namespace Qt::StringLiterals;

QList<QStringList> Ler_Textos(const QString &caminho)
{
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly))
        throw Failure(Failure::FileNotFound, caminho, u"The texts were not found: %1"_s.arg(caminho));
    QList<QStringList> linhas;
    for (const QString &linha : QString::fromUtf8(ficheiro.readAll()).split(u'\n', Qt::SkipEmptyParts))
        linhas << linha.split(u'\t');
    return linhas;
}
