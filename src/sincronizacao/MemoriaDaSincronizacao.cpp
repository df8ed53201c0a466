#include "sincronizacao/MemoriaDaSincronizacao.h"

#include "data/DE.h"
#include "store/Row.h"
#include "vcard/CardNormalForm.h"
#include "vcard/CardReader.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>

namespace
{
constexpr std::size_t sem_grupo = ColunasDoContacto::quantas - 1; // the group is the last column

QString Em_Texto(const ColunasDoContacto &colunas)
{
    QJsonArray valores;
    for (std::size_t i = 0; i < sem_grupo; ++i)
        valores.append(colunas.valores.at(i));
    return QString::fromUtf8(QJsonDocument(valores).toJson(QJsonDocument::Compact));
}

ColunasDoContacto Do_Texto(const QString &texto)
{
    ColunasDoContacto colunas;
    const QJsonArray valores = QJsonDocument::fromJson(texto.toUtf8()).array();
    for (qsizetype i = 0; i < std::min<qsizetype>(valores.size(), sem_grupo); ++i)
        colunas.valores.at(static_cast<std::size_t>(i)) = valores.at(i).toString();
    return colunas;
}

Par Par_Da_Linha(const Row &linha)
{
    const auto campo = [&](const char *nome) { return linha.field(linha.column(nome)); };
    return {campo("href").textOrEmpty(),
            campo("IDContacto").number(),
            campo("etag").textOrEmpty().toUtf8(),
            static_cast<Par::Estado>(campo("estado").number()),
            campo("resumo").textOrEmpty().toUtf8(),
            Do_Texto(campo("acordo").textOrEmpty())};
}

Ocorrencia Ocorrencia_Da_Linha(const Row &linha)
{
    const auto campo = [&](const char *nome) { return linha.field(linha.column(nome)); };
    return {static_cast<Ocorrencia::Que>(campo("Que").number()),
            campo("IDContacto").number(),
            campo("Nome").textOrEmpty(),
            campo("Campo").textOrEmpty(),
            campo("Valor").textOrEmpty(),
            campo("Outro").textOrEmpty(),
            campo("Quando").textOrEmpty()};
}
} // namespace

QByteArray Resumo_Do_Cartao(const QByteArray &cartao)
{
    const CardFile ficheiro = CardReader().read(cartao);
    if (ficheiro.cards.empty()) return {};
    return QCryptographicHash::hash(normalForm(ficheiro.cards.front()), QCryptographicHash::Sha1).toHex();
}

MemoriaDaSincronizacao::MemoriaDaSincronizacao(DE &de, QString IdUtilizador)
    : de_(de), IdUtilizador_(std::move(IdUtilizador))
{
}

QString MemoriaDaSincronizacao::Chave(const QString &href) const { return IdUtilizador_ + u' ' + href; }

std::optional<ContaSincronizada> MemoriaDaSincronizacao::Conta()
{
    std::optional<ContaSincronizada> conta;
    if (!de_.Em_Dia()) return conta;
    de_.Percorrer("cmdVerSincronizacao", {IdUtilizador_}, [&](const Row &linha) {
        const auto campo = [&](const char *nome) { return linha.field(linha.column(nome)); };
        conta = ContaSincronizada{campo("Endereco").textOrEmpty(),
                                  campo("Nome").textOrEmpty(),
                                  campo("PalavraPasse").textOrEmpty(),
                                  campo("Livro").textOrEmpty(),
                                  campo("NomeDoLivro").textOrEmpty(),
                                  campo("IDGrupo").number(),
                                  campo("Ligada").yes(),
                                  campo("AoArrancar").yes(),
                                  campo("Minutos").number()};
    });
    return conta;
}

EstadoDaConta MemoriaDaSincronizacao::Estado()
{
    EstadoDaConta estado;
    if (!de_.Em_Dia()) return estado;
    de_.Percorrer("cmdVerSincronizacao", {IdUtilizador_}, [&](const Row &linha) {
        const auto campo = [&](const char *nome) { return linha.field(linha.column(nome)); };
        estado = {campo("Testemunho").textOrEmpty().toUtf8(), campo("Corrida").number(),
                  campo("UltimaVez").textOrEmpty(), campo("Resultado").textOrEmpty()};
    });
    return estado;
}

std::map<QString, int> MemoriaDaSincronizacao::Corridas_Dos_Outros(int IDGrupo)
{
    std::map<QString, int> corridas;
    if (!de_.Em_Dia()) return corridas;
    de_.Percorrer("cmdListarCorridas", {IDGrupo}, [&](const Row &linha) {
        const QString quem = linha.field(linha.column("IdUtilizador")).textOrEmpty();
        if (quem != IdUtilizador_) corridas.emplace(quem, linha.field(linha.column("Corrida")).number());
    });
    return corridas;
}

void MemoriaDaSincronizacao::Guardar(const ContaSincronizada &conta)
{
    de_.Tudo_Ou_Nada([&] {
        const std::optional<ContaSincronizada> antes = Conta();
        de_.Executar("cmdGuardarSincronizacao",
                     {IdUtilizador_, conta.Endereco, conta.Nome, conta.PalavraPasse, conta.Livro,
                      conta.NomeDoLivro, conta.IDGrupo, conta.Ligada, conta.AoArrancar, conta.Minutos});
        if (!antes || (antes->Livro == conta.Livro && antes->IDGrupo == conta.IDGrupo)) return;
        de_.Executar("cmdEliminarPares", {IdUtilizador_});
        EstadoDaConta estado = Estado();
        estado.Testemunho.clear();
        Guardar_Resultado(estado);
        Guardar_Corrida(estado.Corrida < 0 ? estado.Corrida - 1 : estado.Corrida + 1);
    });
}

void MemoriaDaSincronizacao::Guardar_Corrida(int corrida)
{
    de_.Executar("cmdGuardarCorrida", {corrida, IdUtilizador_});
}

void MemoriaDaSincronizacao::Guardar_Resultado(const EstadoDaConta &estado)
{
    de_.Executar("cmdGuardarResultado",
                 {QString::fromUtf8(estado.Testemunho), estado.UltimaVez, estado.Resultado, IdUtilizador_});
}

void MemoriaDaSincronizacao::Esquecer()
{
    de_.Tudo_Ou_Nada([this] {
        de_.Executar("cmdEliminarSincronizacao", {IdUtilizador_});
        de_.Executar("cmdEliminarPares", {IdUtilizador_});
        de_.Executar("cmdEliminarOcorrencias", {IdUtilizador_});
    });
}

std::vector<Par> MemoriaDaSincronizacao::Pares()
{
    std::vector<Par> pares;
    if (de_.Em_Dia())
        de_.Percorrer("cmdListarPares", {IdUtilizador_},
                      [&](const Row &linha) { pares.push_back(Par_Da_Linha(linha)); });
    return pares;
}

void MemoriaDaSincronizacao::Guardar(const Par &par)
{
    de_.Executar("cmdGuardarPar",
                 {Chave(par.href), IdUtilizador_, par.IDContacto, par.href, QString::fromUtf8(par.etag),
                  static_cast<int>(par.estado), QString::fromUtf8(par.resumo), Em_Texto(par.acordo)});
}

void MemoriaDaSincronizacao::Eliminar_Par(const QString &href)
{
    de_.Executar("cmdEliminarPar", {Chave(href)});
}

std::vector<Ocorrencia> MemoriaDaSincronizacao::Ocorrencias()
{
    std::vector<Ocorrencia> ocorrencias;
    if (de_.Em_Dia())
        de_.Percorrer("cmdListarOcorrencias", {IdUtilizador_},
                      [&](const Row &linha) { ocorrencias.push_back(Ocorrencia_Da_Linha(linha)); });
    return ocorrencias;
}

void MemoriaDaSincronizacao::Apontar(const Ocorrencia &ocorrencia)
{
    de_.Executar("cmdInserirOcorrencia",
                 {IdUtilizador_, ocorrencia.Quando, static_cast<int>(ocorrencia.que), ocorrencia.IDContacto,
                  ocorrencia.Nome, ocorrencia.Campo, ocorrencia.Aqui, ocorrencia.La});
}

void MemoriaDaSincronizacao::Limpar_Ocorrencias() { de_.Executar("cmdEliminarOcorrencias", {IdUtilizador_}); }
