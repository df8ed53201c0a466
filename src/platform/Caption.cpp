#include "platform/Caption.h"

QString withoutMnemonic(const QString &caption)
{
    QString plain;
    plain.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size()) ++i; // "&&" stands for the sign itself
        plain += caption[i];
    }
    return plain;
}
