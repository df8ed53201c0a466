#include "data/Rascunhos.h"

#include "data/Rascunho.h"
#include "platform/ReplaceFile.h"

#include <algorithm>
#include <QFile>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto chave_do_editor = "editor"_L1;
constexpr auto chave_dos_campos = "campos"_L1;

QJsonArray Sem(QJsonArray entradas, const QJsonObject &identidade)
{
    for (qsizetype i = entradas.size(); i-- > 0;)
        if (entradas[i][chave_do_editor] == identidade) entradas.removeAt(i);
    return entradas;
}
} // namespace

Rascunhos::Rascunhos(QString ficheiro) : ficheiro_(std::move(ficheiro)) {}

bool Rascunhos::Por_Confirmar() const
{
    return std::any_of(abertos_.begin(), abertos_.end(), [](const Rascunho *r) { return r->Mudou(); });
}

bool Rascunhos::Guardar()
{
    Q_EMIT Guardar_Ja();
    if (!Por_Confirmar()) return true;
    QJsonArray entradas = Ler();
    for (const Rascunho *rascunho : std::as_const(abertos_)) {
        if (!rascunho->Mudou()) continue;
        entradas = Sem(entradas, rascunho->Identidade());
        entradas << QJsonObject{{chave_do_editor, rascunho->Identidade()},
                                {chave_dos_campos, rascunho->Campos()}};
    }
    return Escrever(entradas);
}

QJsonObject Rascunhos::Guardado(const QJsonObject &identidade) const
{
    for (const auto &entrada : Ler())
        if (entrada[chave_do_editor] == identidade) return entrada[chave_dos_campos].toObject();
    return {};
}

void Rascunhos::Esquecer(const QJsonObject &identidade)
{
    const QJsonArray entradas = Ler();
    const QJsonArray restantes = Sem(entradas, identidade);
    if (restantes.size() != entradas.size()) Escrever(restantes);
}

// A file that is missing or broken keeps nothing.
QJsonArray Rascunhos::Ler() const
{
    QFile ficheiro(ficheiro_);
    if (!ficheiro.open(QIODevice::ReadOnly)) return {};
    return QJsonDocument::fromJson(ficheiro.readAll()).array();
}

bool Rascunhos::Escrever(const QJsonArray &entradas) const
{
    if (entradas.isEmpty()) return QFile::remove(ficheiro_);
    return replaceFile(ficheiro_, QJsonDocument(entradas).toJson());
}
