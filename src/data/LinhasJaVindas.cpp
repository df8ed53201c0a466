#include "data/LinhasJaVindas.h"

#include "data/DE.h"

LinhasJaVindas::LinhasJaVindas(DE &de) : de_(de), num_servidor_(de.Num_Servidor()), vindas_(de.Chaves()) {}

// Two rows that are alike are two: the second one has a key of its own.
bool LinhasJaVindas::Tomar(const QString &especie, const QStringList &conteudo)
{
    if (!num_servidor_) return false;
    static const QUuid daqui(QStringLiteral("7c1f5d0a-3e64-4b8e-9d57-6f0f2b1c9a42"));
    QByteArray tudo = especie.toUtf8();
    for (const QString &celula : conteudo)
        tudo += '\0' + celula.toUtf8();
    ultima_ = QUuid::createUuidV5(daqui, tudo);
    while (tomadas_.contains(ultima_))
        ultima_ = QUuid::createUuidV5(ultima_, tudo);
    tomadas_ << ultima_;
    const bool veio = vindas_.contains(ultima_);
    quantas_ += veio ? 1 : 0;
    return veio;
}

void LinhasJaVindas::Executar(ComandoSemLinhas comando, std::initializer_list<Value> parametros)
{
    if (num_servidor_)
        de_.Executar_Com_Chave(comando, parametros, ultima_);
    else
        de_.Executar(comando, parametros);
}

void LinhasJaVindas::Acabou()
{
    if (!tomadas_.isEmpty()) de_.Largar_Chaves(tomadas_);
}
