// A contact in words, a line a column, in a text field that is only read: what changes stands out, and a
// picture is shown. Nothing in it is ever followed or loaded.
#pragma once

#include "interchange/ColunasDoContacto.h"

#include <QImage>
#include <QTextCursor>
#include <vector>

class Geral;
class QTextEdit;

class RetratoDoContacto
{
public:
    RetratoDoContacto(Geral &geral, QTextEdit &campo);

    void Limpar();
    void Titulo(const QString &texto);
    // The columns of that list in bold.
    void Contacto(const ColunasDoContacto &colunas, const std::vector<Coluna> &mudadas = {});
    void Linha(const QString &rotulo, const QString &valor, bool mudada = false);
    void Fotografia(const QByteArray &bytes);
    void Texto(const QString &texto);
    void Acabar(); // from its beginning

private:
    struct Rotulo {
        Coluna coluna;
        QString texto;
    };
    QTextEdit &campo_;
    QTextCursor cursor_;
    std::vector<Rotulo> rotulos_;
    QString dois_pontos_;
};
