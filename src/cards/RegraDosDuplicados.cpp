#include "cards/RegraDosDuplicados.h"

#include "cards/BlocoDeObs.h"
#include "cards/NomeDobrado.h"
#include "cards/NumeroDoCartao.h"
#include "cards/RotulosDoCartao.h"

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

// Numbers of a kind fill the free columns of that kind; what finds none becomes a line.
void Encher(ColunasDoContacto &inteiras, QStringList &linhas, const ColunasDoContacto &novas,
            std::span<const Coluna> colunas, QString (*chave)(const QString &), const QStringList &ja_la,
            Rotulo rotulo, const QString &idioma)
{
    QStringList vistas = ja_la;
    for (const Coluna coluna : colunas) {
        const QString &valor = novas[coluna];
        if (valor.isEmpty()) continue;
        QString esta = chave(valor);
        if (esta.isEmpty()) esta = valor.trimmed();
        if (esta.isEmpty() || vistas.contains(esta)) continue;
        vistas << esta;
        const auto livre = std::find_if(colunas.begin(), colunas.end(),
                                        [&](Coluna outra) { return inteiras[outra].isEmpty(); });
        if (livre != colunas.end())
            inteiras[*livre] = valor;
        else
            linhas << rotulos_do_cartao::Em(rotulo, idioma) + u": "_s + valor;
    }
}

bool Tem_Obs_Novas(const ColunasDoContacto &novas, const ColunasDoContacto &outro)
{
    const BlocoDeObs dele = BlocoDeObs::Separar(outro[Coluna::Obs]);
    const BlocoDeObs novo = BlocoDeObs::Separar(novas[Coluna::Obs]);
    return !dele.nota.contains(novo.nota) ||
           std::any_of(novo.linhas.begin(), novo.linhas.end(),
                       [&](const QString &linha) { return !dele.linhas.contains(linha); });
}

bool Tem_Colunas_Novas(const ColunasDoContacto &novas, const ColunasDoContacto &outro)
{
    for (const Coluna coluna : {Coluna::Website, Coluna::Morada, Coluna::Dia, Coluna::Fotografia})
        if (!novas[coluna].isEmpty() && outro[coluna].isEmpty()) return true;
    return Tem_Obs_Novas(novas, outro);
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
    std::sort(lugares.begin(), lugares.end());
    lugares.erase(std::unique(lugares.begin(), lugares.end()), lugares.end());
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

void RegraDosDuplicados::Completar(Decisao &decisao, const ColunasDoContacto &colunas) const
{
    const std::size_t outro = decisao.quem.front();
    ColunasDoContacto &inteiras = decisao.completado;
    QStringList linhas;
    const auto encher = [&](EspecieDeNumero especie) {
        Encher(inteiras, linhas, colunas, Colunas_Da_Especie(especie), ChavesDoContacto::Do_Numero,
               chaves_[outro].numeros, Rotulo_Da_Especie(especie), idioma_);
    };
    encher(EspecieDeNumero::Telefone);
    encher(EspecieDeNumero::Fax);
    encher(EspecieDeNumero::Telemovel);
    Encher(inteiras, linhas, colunas, ColunasDoContacto::emails, ChavesDoContacto::Do_Email,
           chaves_[outro].emails, Rotulo::Email, idioma_);
    for (const Coluna coluna : {Coluna::Website, Coluna::Morada, Coluna::Fotografia})
        if (inteiras[coluna].isEmpty()) inteiras[coluna] = colunas[coluna];
    if (inteiras[Coluna::Dia].isEmpty())
        for (const Coluna coluna : {Coluna::Dia, Coluna::Mes, Coluna::Ano})
            inteiras[coluna] = colunas[coluna];
    const BlocoDeObs novo = BlocoDeObs::Separar(colunas[Coluna::Obs]);
    BlocoDeObs bloco = BlocoDeObs::Separar(inteiras[Coluna::Obs]);
    if (!bloco.nota.contains(novo.nota))
        bloco.nota = bloco.nota.isEmpty() ? novo.nota : bloco.nota + u"\r\n"_s + novo.nota;
    const QStringList antes = bloco.linhas;
    bloco.Juntar(novo.linhas + linhas);
    if (bloco.nota != BlocoDeObs::Separar(inteiras[Coluna::Obs]).nota || bloco.linhas != antes)
        inteiras[Coluna::Obs] = bloco.Texto(idioma_);
}

Decisao RegraDosDuplicados::O_Mesmo(const ColunasDoContacto &colunas, const Chaves &chaves,
                                    std::size_t outro) const
{
    Decisao decisao{Veredicto::Igual, {outro}, todos_[outro], {}};
    const bool tem_chaves_novas = !Sem(chaves.numeros, chaves_[outro].numeros).isEmpty() ||
                                  !Sem(chaves.emails, chaves_[outro].emails).isEmpty();
    if (!tem_chaves_novas && !Tem_Colunas_Novas(colunas, todos_[outro])) return decisao;
    decisao.veredicto = Veredicto::Completa;
    Completar(decisao, colunas);
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
        if (decisao.completado.valores[i] != todos_[outro].valores[i])
            decisao.preenchidas.push_back(static_cast<Coluna>(i));
    // All of it had been put into Obs before.
    if (decisao.preenchidas.empty()) decisao.veredicto = Veredicto::Igual;
    return decisao;
}

Decisao RegraDosDuplicados::Juntos(const QString &idioma, const ColunasDoContacto &colunas,
                                   const ColunasDoContacto &outro)
{
    RegraDosDuplicados regra(idioma);
    regra.Juntar(outro);
    return regra.O_Mesmo(colunas, Chaves::De(colunas), 0);
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
    for (const Lugares &mais : {mesmo_nome, por_numero, por_email})
        talvez.insert(talvez.end(), mais.begin(), mais.end());
    std::sort(talvez.begin(), talvez.end());
    talvez.erase(std::unique(talvez.begin(), talvez.end()), talvez.end());
    return {talvez.empty() ? Veredicto::Novo : Veredicto::Talvez, talvez, {}, {}};
}
