// Contacts with every column at random, in all alphabets and with the signs that formats mean something by.
#pragma once

#include "interchange/ColunasDoContacto.h"

#include <QRandomGenerator>
#include <QStringList>

class ContactosAoAcaso
{
public:
    explicit ContactosAoAcaso(quint32 semente) : acaso_(semente) {}

    // Without photograph and group.
    ColunasDoContacto Um()
    {
        ColunasDoContacto c;
        c[Coluna::Nome] = Palavras(1 + Ate(3));
        for (const Coluna coluna : ColunasDoContacto::numeros)
            if (Ate(2) > 0) c[coluna] = Numero();
        for (const Coluna coluna : ColunasDoContacto::emails)
            if (Ate(2) > 0) c[coluna] = Palavra() + u'@' + Palavra();
        if (Ate(2) > 0)
            c[Coluna::Website] = QStringLiteral("http://x%1.example/?a=1,2;3&b=%20%1#c").arg(Ate(1000));
        if (Ate(2) > 0) c[Coluna::Morada] = Linhas(1 + Ate(4));
        if (Ate(2) > 0) c[Coluna::Obs] = Linhas(1 + Ate(8));
        Aniversario(c);
        return c;
    }

    int Ate(int maior) { return acaso_.bounded(maior + 1); }

private:
    QString Palavra()
    {
        static const QStringList alfabetos{QStringLiteral("abcxyzABC"), QStringLiteral("áçãõéßøłžÑ"),
                                           QStringLiteral("αβγδΩΣ"),    QStringLiteral("абвгдЖЯ"),
                                           QStringLiteral("ابتثج"),     QStringLiteral("אבגדה"),
                                           QStringLiteral("漢字仮名"),  QStringLiteral("한글말"),
                                           QStringLiteral("กขคง"),      QStringLiteral(";,\\:\"'=@-+/|()&")};
        const QString &alfabeto = alfabetos[Ate(static_cast<int>(alfabetos.size()) - 1)];
        QString palavra;
        for (int letras = 1 + Ate(8); letras > 0; --letras)
            palavra += alfabeto[Ate(static_cast<int>(alfabeto.size()) - 1)];
        return Ate(30) == 0 ? palavra + QStringLiteral("😀") : palavra;
    }

    QString Palavras(int quantas)
    {
        QStringList palavras;
        for (; quantas > 0; --quantas)
            palavras << Palavra();
        return palavras.join(u' ');
    }

    QString Linhas(int quantas)
    {
        QStringList linhas;
        for (; quantas > 0; --quantas)
            linhas << Palavras(1 + Ate(12));
        return linhas.join(QStringLiteral("\r\n"));
    }

    QString Numero()
    {
        static const QStringList formas{QStringLiteral("9%1"), QStringLiteral("+351 91%1"),
                                        QStringLiteral("(21) %1-0"), QStringLiteral("00 49 %1/1"),
                                        QStringLiteral("*%1#")};
        return formas[Ate(static_cast<int>(formas.size()) - 1)].arg(10'000'000 + Ate(89'999'999));
    }

    void Aniversario(ColunasDoContacto &c)
    {
        if (Ate(2) == 0) return;
        c[Coluna::Dia] = QString::number(1 + Ate(27));
        c[Coluna::Mes] = QString::number(1 + Ate(11));
        if (Ate(1) > 0) c[Coluna::Ano] = QString::number(1901 + Ate(120));
    }

    QRandomGenerator acaso_;
};
