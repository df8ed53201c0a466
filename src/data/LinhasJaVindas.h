// The rows of a long import that a server took before it went away: whoever repeats the import does not bring
// them once more, but for those that somebody has deleted meanwhile. Only a server keeps what came; on a file each
// row is written, as it always was.
#pragma once

#include "data/Comandos.h"
#include "store/Values.h"

#include <initializer_list>
#include <QSet>
#include <QStringList>
#include <QUuid>

class DE;

class LinhasJaVindas
{
public:
    // Raises Failure where the server can't be asked what came.
    explicit LinhasJaVindas(DE &de);

    // Whether anything is kept at all.
    bool Num_Servidor() const { return num_servidor_; }

    // The next row of the source, by its kind and by all that it holds. True for one that came in an earlier
    // try: it is not to be written.
    bool Tomar(const QString &especie, const QStringList &conteudo);
    // How many that were.
    int Quantas() const { return quantas_; }

    // Writes the row that was taken last. What belongs to it is to be written behind it.
    void Executar(ComandoSemLinhas comando, std::initializer_list<Value> parametros);

    // All of the import is there: the next one begins anew.
    void Acabou();

private:
    DE &de_;
    bool num_servidor_;
    QSet<QUuid> vindas_;
    QSet<QUuid> tomadas_; // of this source, written or not
    QUuid ultima_;
    int quantas_ = 0;
};
