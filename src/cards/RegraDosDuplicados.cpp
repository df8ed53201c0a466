#include "cards/RegraDosDuplicados.h"

#include "cards/Completacao.h"
#include "cards/NomeDobrado.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
using Lugares = LugaresPorChave::Lugares;

constexpr qsizetype mais_da_mesma_chave = 3; // a switchboard, info@: it proves nothing of more contacts

template<class Chaves> void Apontar(LugaresPorChave &onde, const Chaves &chaves, std::size_t lugar)
{
    for (const ChaveCurta chave : chaves)
        onde.Juntar(chave, lugar);
}

template<class Chaves> Chaves Sem(Chaves chaves, const Chaves &outras)
{
    chaves.removeIf([&](ChaveCurta chave) { return outras.contains(chave); });
    return chaves;
}

template<class Valores> void Cada_Um_Uma_Vez(Valores &valores)
{
    if (valores.size() < 2) return;
    std::sort(valores.begin(), valores.end());
    valores.erase(std::unique(valores.begin(), valores.end()), valores.end());
}

template<class Chaves> Lugares Com_Alguma(const LugaresPorChave &onde, const Chaves &chaves)
{
    Lugares lugares;
    for (const ChaveCurta chave : chaves) {
        const Lugares dela = onde.De(chave, mais_da_mesma_chave + 1);
        if (dela.size() <= mais_da_mesma_chave) lugares.append(dela.data(), dela.size());
    }
    Cada_Um_Uma_Vez(lugares);
    return lugares;
}

bool Outro_Aniversario(const ColunasDoContacto &um, const ColunasDoContacto &outro)
{
    return !um[Coluna::Dia].isEmpty() && !outro[Coluna::Dia].isEmpty() &&
           (um[Coluna::Dia] != outro[Coluna::Dia] || um[Coluna::Mes] != outro[Coluna::Mes]);
}

} // namespace

RegraDosDuplicados::RegraDosDuplicados(QString idioma) : idioma_(std::move(idioma)) {}

void RegraDosDuplicados::Contar_Com(std::size_t quantos)
{
    todos_.reserve(quantos);
    chaves_.reserve(quantos);
    for (LugaresPorChave *onde : {&nomes_, &numeros_, &emails_, &uids_})
        onde->Reservar(quantos);
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
    if (chaves.nome != 0) nomes_.Juntar(chaves.nome, lugar);
    Apontar(numeros_, chaves.numeros, lugar);
    Apontar(emails_, chaves.emails, lugar);
    if (!uid.isEmpty()) uids_.Juntar(Chaves::De_Um_Texto(uid), lugar);
}

// A completion takes nothing away and leaves the name, so there are only more keys than before.
void RegraDosDuplicados::Completar(std::size_t lugar, const ColunasDoContacto &completado)
{
    Chaves novas = Chaves::Sem_Nome(completado);
    novas.nome = chaves_[lugar].nome;
    Apontar(numeros_, Sem(novas.numeros, chaves_[lugar].numeros), lugar);
    Apontar(emails_, Sem(novas.emails, chaves_[lugar].emails), lugar);
    todos_[lugar] = completado;
    chaves_[lugar] = std::move(novas);
}

bool RegraDosDuplicados::Um_Nome_Contem_O_Outro(const ColunasDoContacto &colunas, std::size_t outro) const
{
    Chaves::Palavras umas = Chaves::Das_Palavras(colunas[Coluna::Nome]);
    Chaves::Palavras outras = Chaves::Das_Palavras(todos_[outro][Coluna::Nome]);
    Cada_Um_Uma_Vez(umas);
    Cada_Um_Uma_Vez(outras);
    const auto contem = [](const Chaves::Palavras &maior, const Chaves::Palavras &menor) {
        return std::includes(maior.begin(), maior.end(), menor.begin(), menor.end());
    };
    return std::min(umas.size(), outras.size()) >= 2 && (contem(umas, outras) || contem(outras, umas));
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
    todos.removeIf([&](std::size_t lugar) {
        if (chaves.nome != 0 && chaves_[lugar].nome == chaves.nome) return false;
        const bool por_seu =
            std::binary_search(por_email.begin(), por_email.end(), lugar) || Mesmo_Telemovel(colunas, lugar);
        return !por_seu || !Um_Nome_Contem_O_Outro(colunas, lugar);
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
    constexpr qsizetype todos = std::numeric_limits<qsizetype>::max();
    const Lugares mesmo_nome = nomes_.De(chaves.nome, todos);
    const Lugares por_numero = Com_Alguma(numeros_, chaves.numeros);
    const Lugares por_email = Com_Alguma(emails_, chaves.emails);
    const Lugares do_uid = uids_.De(Chaves::De_Um_Texto(uid), 1);
    const Lugares certos = do_uid.isEmpty() ? Certos(colunas, chaves, por_numero, por_email) : do_uid;
    const bool so_tem_nome = chaves.numeros.isEmpty() && chaves.emails.isEmpty();
    if (certos.isEmpty() && so_tem_nome && mesmo_nome.size() == 1 && Ja_Esta_La(colunas, mesmo_nome.front()))
        return {Veredicto::Igual, {mesmo_nome.front()}, todos_[mesmo_nome.front()], {}};
    if (certos.size() == 1 && !Outro_Aniversario(colunas, todos_[certos.front()]))
        return O_Mesmo(colunas, chaves, certos.front());
    if (certos.size() == 1) return {Veredicto::Talvez, {certos.front()}, {}, {}};
    Lugares talvez = certos;
    for (const Lugares *mais : {&mesmo_nome, &por_numero, &por_email})
        talvez.append(mais->data(), mais->size());
    Cada_Um_Uma_Vez(talvez);
    const Veredicto veredicto = talvez.isEmpty() ? Veredicto::Novo : Veredicto::Talvez;
    return {veredicto, {talvez.begin(), talvez.end()}, {}, {}};
}
