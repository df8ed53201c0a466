#include "data/EstadoMessenger.h"

#include <QIcon>
#include <QString>

using namespace Qt::StringLiterals;

namespace
{
constexpr int imagem_sem_estado = 8;
constexpr int imagem_ligado = 18;
constexpr int imagem_ocupado = 19;
constexpr int imagem_ausente = 20;
constexpr int imagem_desligado = 21;

QIcon Icone(int imagem) { return QIcon(u":/imagens/toolbar/messenger_%1.svg"_s.arg(imagem)); }
} // namespace

int estado_messenger::Imagem(const QString &codigo)
{
    if (codigo.isEmpty() || codigo == "0"_L1) return imagem_sem_estado;
    if (codigo == "1"_L1) return imagem_desligado;
    if (codigo == "10"_L1) return imagem_ocupado;
    if (codigo == "18"_L1 || codigo == "34"_L1) return imagem_ausente;
    return imagem_ligado;
}

bool estado_messenger::Ligado(const QString &codigo) { return Imagem(codigo) != imagem_sem_estado; }

bool estado_messenger::Presente(const QString &codigo)
{
    return Ligado(codigo) && Imagem(codigo) != imagem_desligado;
}

QIcon estado_messenger::Botao(const QString &codigo) { return Icone(Imagem(codigo)); }

QIcon estado_messenger::Retrato(const QString &codigo)
{
    return Ligado(codigo) ? Botao(codigo) : QIcon(u":/imagens/card/email.svg"_s);
}
