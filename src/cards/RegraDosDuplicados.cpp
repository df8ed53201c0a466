#include "cards/RegraDosDuplicados.h"

#include "cards/Completacao.h"
#include "cards/NomeDobrado.h"

#include <algorithm>
#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype mais_da_mesma_chave = 3; // a switchboard, info@: it proves nothing of more contacts

QStringList Sem(QStringList chaves, const QStringList &outras)
{
    chaves.removeIf([&](const QString &chave) { return outras.contains(chave); });
    return chaves;
}

QSet<QString> Palavras(const QString &nome)
{
    const QStringList palavras = nome.split(u' ', Qt::SkipEmptyParts);
    return {palavras.begin(), palavras.end()};
}

bool Outro_Aniversario(const ColunasDoContacto &um, const ColunasDoContacto &outro)
{
    return !um[Coluna::Dia].isEmpty() && !outro[Coluna::Dia].isEmpty() &&
           (um[Coluna::Dia] != outro[Coluna::Dia] || um[Coluna::Mes] != outro[Coluna::Mes]);
}

void Cada_Um_Uma_Vez(std::vector<std::size_t> &lugares)
{
    if (lugares.size() < 2) return;
    std::sort(lugares.begin(), lugares.end());
    lugares.erase(std::unique(lugares.begin(), lugares.end()), lugares.end());
}
} // namespace

RegraDosDuplicados::RegraDosDuplicados(QString idioma) : idioma_(std::move(idioma)) {}

void RegraDosDuplicados::Contar_Com(std::size_t quantos)
{
    todos_.reserve(quantos);
    chaves_.reserve(quantos);
    for (Dicionario *dicionario : {&nomes_, &numeros_, &emails_})
        dicionario->reserve(static_cast<qsizetype>(quantos));
    uids_.reserve(static_cast<qsizetype>(quantos));
}

void RegraDosDuplicados::Juntar(ColunasDoContacto colunas, const QString &uid)
{
    Chaves chaves = Chaves::De(colunas);
    Juntar(std::move(colunas), std::move(chaves), uid);
}

void RegraDosDuplicados::Juntar(ColunasDoContacto colunas, ChavesDoContacto as_suas, const QString &uid)
{
    const std::size_t lugar = todos_.size();
    todos_.push_back(std::move(colunas));
    chaves_.push_back(std::move(as_suas));
    const Chaves &chaves = chaves_.back();
    if (!chaves.nome.isEmpty()) nomes_[chaves.nome].push_back(lugar);
    Apontar(numeros_, chaves.numeros, lugar);
    Apontar(emails_, chaves.emails, lugar);
    if (!uid.isEmpty()) uids_.insert(uid, lugar);
}

void RegraDosDuplicados::Apontar(Dicionario &dicionario, const QStringList &chaves, std::size_t lugar)
{
    for (const QString &chave : chaves)
        dicionario[chave].push_back(lugar);
}

// A completion takes nothing away and leaves the name, so there are only more keys than before.
void RegraDosDuplicados::Completar(std::size_t lugar, const ColunasDoContacto &completado)
{
    Chaves novas = Chaves::De(completado);
    Apontar(numeros_, Sem(novas.numeros, chaves_[lugar].numeros), lugar);
    Apontar(emails_, Sem(novas.emails, chaves_[lugar].emails), lugar);
    todos_[lugar] = completado;
    chaves_[lugar] = std::move(novas);
}

RegraDosDuplicados::Lugares RegraDosDuplicados::Com_Alguma(const Dicionario &dicionario,
                                                           const QStringList &chaves)
{
    Lugares lugares;
    for (const QString &chave : chaves) {
        const auto achada = dicionario.constFind(chave);
        if (achada == dicionario.constEnd() || achada->size() > mais_da_mesma_chave) continue;
        lugares.insert(lugares.end(), achada->begin(), achada->end());
    }
    Cada_Um_Uma_Vez(lugares);
    return lugares;
}

bool RegraDosDuplicados::Um_Nome_Contem_O_Outro(const QString &nome, std::size_t outro) const
{
    const QSet<QString> umas = Palavras(nome);
    const QSet<QString> outras = Palavras(chaves_[outro].nome);
    return std::min(umas.size(), outras.size()) >= 2 && (umas.contains(outras) || outras.contains(umas));
}

bool RegraDosDuplicados::Mesmo_Telemovel(const ColunasDoContacto &colunas, std::size_t outro) const
{
    for (const Coluna um : ColunasDoContacto::telemoveis) {
        const QString chave = ChavesDoContacto::Do_Numero(colunas[um]);
        for (const Coluna dele : ColunasDoContacto::telemoveis)
            if (!chave.isEmpty() && chave == ChavesDoContacto::Do_Numero(todos_[outro][dele])) return true;
    }
    return false;
}

// Those of the same name and a common number or mail. Where one name is only a part of the other, a number
// of the house is not enough.
RegraDosDuplicados::Lugares RegraDosDuplicados::Certos(const ColunasDoContacto &colunas, const Chaves &chaves,
                                                       const Lugares &por_numero,
                                                       const Lugares &por_email) const
{
    Lugares todos;
    std::set_union(por_numero.begin(), por_numero.end(), por_email.begin(), por_email.end(),
                   std::back_inserter(todos));
    std::erase_if(todos, [&](std::size_t lugar) {
        if (!chaves.nome.isEmpty() && chaves_[lugar].nome == chaves.nome) return false;
        const bool por_seu =
            std::binary_search(por_email.begin(), por_email.end(), lugar) || Mesmo_Telemovel(colunas, lugar);
        return !por_seu || !Um_Nome_Contem_O_Outro(chaves.nome, lugar);
    });
    return todos;
}

// All that somebody says who has neither number nor mail is there.
bool RegraDosDuplicados::Ja_Esta_La(const ColunasDoContacto &colunas, std::size_t outro) const
{
    const ColunasDoContacto &dele = todos_[outro];
    for (const Coluna coluna :
         {Coluna::Telefone1, Coluna::Telefone2, Coluna::Fax, Coluna::Telemovel1, Coluna::Telemovel2,
          Coluna::Telemovel3, Coluna::Email1, Coluna::Email2, Coluna::Website, Coluna::Morada, Coluna::Obs,
          Coluna::Dia, Coluna::Mes, Coluna::Ano})
        if (!colunas[coluna].isEmpty() && Nome_Dobrado(colunas[coluna]) != Nome_Dobrado(dele[coluna]))
            return false;
    return colunas[Coluna::Fotografia].isEmpty() || !dele[Coluna::Fotografia].isEmpty();
}

Decisao RegraDosDuplicados::O_Mesmo(const ColunasDoContacto &colunas, const Chaves &chaves,
                                    std::size_t outro) const
{
    Completacao feita = Completado(todos_[outro], chaves_[outro], colunas, chaves, idioma_);
    const Veredicto veredicto = feita.preenchidas.empty() ? Veredicto::Igual : Veredicto::Completa;
    return {veredicto, {outro}, std::move(feita.colunas), std::move(feita.preenchidas)};
}

Decisao RegraDosDuplicados::Juntos(const QString &idioma, const ColunasDoContacto &colunas,
                                   const ColunasDoContacto &outro)
{
    Completacao feita =
        Completado(outro, Chaves::Sem_Nome(outro), colunas, Chaves::Sem_Nome(colunas), idioma);
    const Veredicto veredicto = feita.preenchidas.empty() ? Veredicto::Igual : Veredicto::Completa;
    return {veredicto, {0}, std::move(feita.colunas), std::move(feita.preenchidas)};
}

Decisao RegraDosDuplicados::Decidir(const ColunasDoContacto &colunas, const QString &uid) const
{
    return Decidir(colunas, Chaves::De(colunas), uid);
}

Decisao RegraDosDuplicados::Decidir(const ColunasDoContacto &colunas, const ChavesDoContacto &chaves,
                                    const QString &uid) const
{
    const auto do_nome = chaves.nome.isEmpty() ? nomes_.constEnd() : nomes_.constFind(chaves.nome);
    const Lugares mesmo_nome =
        do_nome == nomes_.constEnd() ? Lugares() : Lugares(do_nome->begin(), do_nome->end());
    const Lugares por_numero = Com_Alguma(numeros_, chaves.numeros);
    const Lugares por_email = Com_Alguma(emails_, chaves.emails);
    const auto do_uid = uid.isEmpty() ? uids_.constEnd() : uids_.constFind(uid);
    const Lugares certos =
        do_uid != uids_.constEnd() ? Lugares{*do_uid} : Certos(colunas, chaves, por_numero, por_email);
    const bool so_tem_nome = chaves.numeros.isEmpty() && chaves.emails.isEmpty();
    if (certos.empty() && so_tem_nome && mesmo_nome.size() == 1 && Ja_Esta_La(colunas, mesmo_nome.front()))
        return {Veredicto::Igual, mesmo_nome, todos_[mesmo_nome.front()], {}};
    if (certos.size() == 1 && !Outro_Aniversario(colunas, todos_[certos.front()]))
        return O_Mesmo(colunas, chaves, certos.front());
    if (certos.size() == 1) return {Veredicto::Talvez, certos, {}, {}};
    Lugares talvez = certos;
    for (const Lugares *mais : {&mesmo_nome, &por_numero, &por_email})
        talvez.insert(talvez.end(), mais->begin(), mais->end());
    Cada_Um_Uma_Vez(talvez);
    const Veredicto veredicto = talvez.empty() ? Veredicto::Novo : Veredicto::Talvez;
    return {veredicto, std::move(talvez), {}, {}};
}
