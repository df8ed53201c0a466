#include "sincronizacao/ResultadoDaSincronizacao.h"

#include <array>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
using R = ResultadoDaSincronizacao;

struct Contagem {
    const char *nome;
    int R::*onde;
};
constexpr std::array contagens{
    Contagem{"adicionados", &R::adicionados},
    Contagem{"alterados", &R::alterados},
    Contagem{"eliminados", &R::eliminados},
    Contagem{"adicionados_la", &R::adicionados_la},
    Contagem{"alterados_la", &R::alterados_la},
    Contagem{"eliminados_la", &R::eliminados_la},
    Contagem{"conflitos", &R::conflitos},
    Contagem{"retidos", &R::retidos},
    Contagem{"recusados", &R::recusados},
    Contagem{"quantos", &R::pergunta_quantos},
    Contagem{"de_quantos", &R::pergunta_de_quantos},
};

int Numero(const QJsonObject &objecto, const char *nome)
{
    return objecto.value(QLatin1StringView(nome)).toInt();
}
} // namespace

QString ResultadoDaSincronizacao::Texto() const
{
    QJsonObject objecto{{QStringLiteral("fim"), static_cast<int>(fim)},
                        {QStringLiteral("erro"), static_cast<int>(erro.kind)},
                        {QStringLiteral("la"), pergunta_la},
                        {QStringLiteral("cautela"), com_cautela}};
    for (const Contagem &contagem : contagens)
        objecto.insert(QLatin1StringView(contagem.nome), this->*contagem.onde);
    return QString::fromUtf8(QJsonDocument(objecto).toJson(QJsonDocument::Compact));
}

ResultadoDaSincronizacao ResultadoDaSincronizacao::Do_Texto(const QString &texto)
{
    const QJsonObject objecto = QJsonDocument::fromJson(texto.toUtf8()).object();
    ResultadoDaSincronizacao resultado;
    resultado.fim = static_cast<Fim>(Numero(objecto, "fim"));
    resultado.erro.kind = static_cast<RemoteError::Kind>(Numero(objecto, "erro"));
    resultado.pergunta_la = objecto.value(QLatin1StringView("la")).toBool();
    resultado.com_cautela = objecto.value(QLatin1StringView("cautela")).toBool();
    for (const Contagem &contagem : contagens)
        resultado.*contagem.onde = Numero(objecto, contagem.nome);
    return resultado;
}
