#include "sincronizacao/JuncaoDeTres.h"

#include "cards/BlocoDeObs.h"
#include "cards/ChavesDoContacto.h"
#include "cards/RotulosDoCartao.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::array nascimento{Coluna::Dia, Coluna::Mes, Coluna::Ano};

// A birthday is one thing in three columns.
std::vector<std::vector<Coluna>> Partes()
{
    return {{nascimento.begin(), nascimento.end()},
            {Coluna::Nome},
            {Coluna::Website},
            {Coluna::Morada},
            {Coluna::Fotografia}};
}

// Those of a kind, of which a contact may have several.
struct Especie {
    std::span<const Coluna> colunas;
    QString (*chave)(const QString &);
};
const std::array especies{
    Especie{ColunasDoContacto::telefones, ChavesDoContacto::Do_Numero},
    Especie{ColunasDoContacto::telemoveis, ChavesDoContacto::Do_Numero},
    Especie{ColunasDoContacto::faxes, ChavesDoContacto::Do_Numero},
    Especie{ColunasDoContacto::emails, ChavesDoContacto::Do_Email},
};

QStringList Valores(const ColunasDoContacto &colunas, const Especie &especie)
{
    QStringList valores;
    for (const Coluna coluna : especie.colunas)
        if (!colunas[coluna].isEmpty()) valores << colunas[coluna];
    return valores;
}

// Two spellings of one number are the same.
bool Contem(const QStringList &valores, const QString &valor, const Especie &especie)
{
    const QString chave = especie.chave(valor);
    return std::any_of(valores.begin(), valores.end(), [&](const QString &outro) {
        return outro == valor || (!chave.isEmpty() && especie.chave(outro) == chave);
    });
}

QStringList Sem(QStringList valores, const QStringList &outros, const Especie &especie)
{
    valores.removeIf([&](const QString &valor) { return Contem(outros, valor, especie); });
    return valores;
}

bool Iguais(const ColunasDoContacto &um, const ColunasDoContacto &outro, std::span<const Coluna> parte)
{
    return std::all_of(parte.begin(), parte.end(), [&](Coluna c) { return um[c] == outro[c]; });
}

bool Vazia(const ColunasDoContacto &colunas, std::span<const Coluna> parte)
{
    return std::all_of(parte.begin(), parte.end(), [&](Coluna c) { return colunas[c].isEmpty(); });
}

void Copiar(ColunasDoContacto &para, const ColunasDoContacto &de, std::span<const Coluna> parte)
{
    for (const Coluna coluna : parte)
        para[coluna] = de[coluna];
}

QString Numa_Linha(const ColunasDoContacto &colunas, std::span<const Coluna> parte)
{
    QStringList valores;
    for (const Coluna coluna : parte)
        valores << Com_CR_LF(colunas[coluna]).split(u"\r\n"_s, Qt::SkipEmptyParts);
    return valores.join(parte.size() > 1 ? u"/"_s : u", "_s);
}

class JuncaoDeTres
{
public:
    JuncaoDeTres(const TresVersoes &v, const QString &idioma) : v_(v), idioma_(idioma)
    {
        juntos_.colunas = v.aqui;
        juntos_.acordo = v.aqui;
    }

    JuntosDosTres Fazer()
    {
        static const std::vector<std::vector<Coluna>> partes = Partes();
        for (const std::vector<Coluna> &parte : partes)
            Parte(parte);
        for (const Especie &especie : especies)
            Numeros(especie);
        QStringList linhas;
        for (const ConflitoDeColuna &conflito : juntos_.conflitos)
            linhas << Rotulo_Da_Coluna(conflito.coluna, idioma_) + u": "_s + conflito.aqui;
        Obs(linhas);
        return std::move(juntos_);
    }

private:
    void Parte(std::span<const Coluna> parte)
    {
        const bool mudou_aqui = !Iguais(v_.aqui, v_.aqui_antes, parte);
        const bool mudou_la = !Iguais(v_.la, v_.la_antes, parte);
        if (!mudou_la) return Copiar(juntos_.acordo, v_.aqui_antes, parte);
        Copiar(juntos_.acordo, v_.la, parte);
        const bool iguais = Iguais(v_.aqui, v_.la, parte);
        // What was taken out on one side and written anew on the other stays.
        if (mudou_aqui && !iguais && Vazia(v_.la, parte)) return;
        Copiar(juntos_.colunas, v_.la, parte);
        if (mudou_aqui && !iguais && !Vazia(v_.aqui, parte))
            juntos_.conflitos.push_back(
                {parte.front(), Numa_Linha(v_.aqui, parte), Numa_Linha(v_.la, parte)});
    }

    void Numeros(const Especie &especie)
    {
        const std::span<const Coluna> colunas = especie.colunas;
        if (Iguais(v_.la, v_.la_antes, colunas)) return Copiar(juntos_.acordo, v_.aqui_antes, colunas);
        Copiar(juntos_.acordo, v_.la, colunas);
        if (Iguais(v_.aqui, v_.la, colunas)) return;
        const QStringList aqui = Valores(v_.aqui, especie);
        const QStringList aqui_antes = Valores(v_.aqui_antes, especie);
        const QStringList la = Valores(v_.la, especie);
        const QStringList la_antes = Valores(v_.la_antes, especie);
        QStringList ficam = Sem(la, Sem(aqui_antes, aqui, especie), especie); // less what was taken out here
        for (const QString &nova : la) // what is new there stays, and what is spelled anew
            if (!la_antes.contains(nova) && !ficam.contains(nova)) ficam << nova;
        QStringList nossos = Sem(aqui, la + Sem(la_antes, la, especie), especie);
        // A value that both have replaced.
        const auto trocados = Sem(Sem(aqui_antes, aqui, especie), la, especie).size();
        const QStringList novos_la = Sem(la, la_antes, especie);
        const QStringList novos_aqui = Sem(nossos, aqui_antes, especie);
        for (qsizetype i = 0; i < std::min({trocados, novos_la.size(), novos_aqui.size()}); ++i)
            Conflito(colunas, ficam, novos_la.at(i), nossos.takeAt(nossos.indexOf(novos_aqui.at(i))));
        Por_Numeros(colunas, ficam, nossos);
    }

    void Conflito(std::span<const Coluna> colunas, const QStringList &ficam, const QString &la,
                  const QString &aqui)
    {
        const auto lugar = std::max<qsizetype>(ficam.indexOf(la), 0);
        juntos_.conflitos.push_back({colunas[static_cast<std::size_t>(lugar)], aqui, la});
    }

    // Those for which there is no room become lines.
    void Por_Numeros(std::span<const Coluna> colunas, QStringList ficam, const QStringList &nossos)
    {
        for (const QString &nosso : nossos) {
            if (ficam.size() < static_cast<qsizetype>(colunas.size()))
                ficam << nosso;
            else
                Conflito(colunas, ficam, ficam.constLast(), nosso);
        }
        for (std::size_t i = 0; i < colunas.size(); ++i)
            juntos_.colunas[colunas[i]] = ficam.value(static_cast<qsizetype>(i));
    }

    void Obs(const QStringList &linhas)
    {
        constexpr Coluna obs = Coluna::Obs;
        const bool mudou_aqui = v_.aqui[obs] != v_.aqui_antes[obs];
        const bool mudou_la = v_.la[obs] != v_.la_antes[obs];
        juntos_.acordo[obs] = mudou_la ? v_.la[obs] : v_.aqui_antes[obs];
        if (mudou_la && mudou_aqui && v_.aqui[obs] != v_.la[obs])
            juntos_.colunas[obs] = Obs_De_Ambos();
        else if (mudou_la)
            juntos_.colunas[obs] = v_.la[obs];
        if (linhas.isEmpty()) return;
        BlocoDeObs bloco = BlocoDeObs::Separar(juntos_.colunas[obs]);
        bloco.Juntar(linhas);
        juntos_.colunas[obs] = bloco.Texto(idioma_);
    }

    // A line that one side has taken out goes; all others stay.
    QString Obs_De_Ambos()
    {
        const BlocoDeObs aqui = BlocoDeObs::Separar(v_.aqui[Coluna::Obs]);
        const BlocoDeObs aqui_antes = BlocoDeObs::Separar(v_.aqui_antes[Coluna::Obs]);
        const BlocoDeObs la = BlocoDeObs::Separar(v_.la[Coluna::Obs]);
        const BlocoDeObs la_antes = BlocoDeObs::Separar(v_.la_antes[Coluna::Obs]);
        BlocoDeObs bloco = la;
        bloco.linhas.removeIf([&](const QString &linha) {
            return aqui_antes.linhas.contains(linha) && !aqui.linhas.contains(linha);
        });
        for (const QString &linha : aqui.linhas)
            if (!la_antes.linhas.contains(linha)) bloco.Juntar({linha});
        bloco.nota = Nota_De_Ambos(aqui.nota, aqui_antes.nota, la.nota, la_antes.nota, bloco);
        return bloco.Texto(idioma_);
    }

    QString Nota_De_Ambos(const QString &aqui, const QString &aqui_antes, const QString &la,
                          const QString &la_antes, BlocoDeObs &bloco)
    {
        if (la == la_antes || la == aqui) return aqui;
        if (aqui == aqui_antes || la.contains(aqui)) return la;
        if (aqui.contains(la)) return aqui;
        QStringList linhas = aqui.split(u"\r\n"_s, Qt::SkipEmptyParts);
        const QStringList de_la = la.split(u"\r\n"_s);
        linhas.removeIf(
            [&](const QString &linha) { return linha.trimmed().isEmpty() || de_la.contains(linha); });
        bloco.Juntar(linhas);
        juntos_.conflitos.push_back({Coluna::Obs, aqui, la});
        return la;
    }

    const TresVersoes &v_;
    const QString &idioma_;
    JuntosDosTres juntos_;
};
} // namespace

JuntosDosTres Juntar_Os_Tres(const TresVersoes &versoes, const QString &idioma)
{
    return JuncaoDeTres(versoes, idioma).Fazer();
}

ColunasDoContacto Alinhado(const ColunasDoContacto &colunas, const ColunasDoContacto &outro)
{
    ColunasDoContacto alinhado = colunas;
    for (const Especie &especie : especies) {
        QStringList valores = Valores(colunas, especie);
        for (const Coluna coluna : especie.colunas)
            alinhado[coluna] = valores.removeOne(outro[coluna]) ? outro[coluna] : QString();
        for (const Coluna coluna : especie.colunas)
            if (alinhado[coluna].isEmpty() && !valores.isEmpty()) alinhado[coluna] = valores.takeFirst();
    }
    return alinhado;
}

bool Dizem_O_Mesmo(const ColunasDoContacto &um, const ColunasDoContacto &outro)
{
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
        if (i != static_cast<std::size_t>(Coluna::IDGrupo) && um.valores.at(i) != outro.valores.at(i))
            return false;
    return true;
}

QString Rotulo_Da_Coluna(Coluna coluna, const QString &idioma)
{
    const auto em = [&](Rotulo rotulo) { return rotulos_do_cartao::Em(rotulo, idioma); };
    switch (coluna) {
    case Coluna::Telefone1:
    case Coluna::Telefone2:
        return em(Rotulo::Telefone);
    case Coluna::Fax:
        return em(Rotulo::Fax);
    case Coluna::Telemovel1:
    case Coluna::Telemovel2:
    case Coluna::Telemovel3:
        return em(Rotulo::Telemovel);
    case Coluna::Email1:
    case Coluna::Email2:
        return em(Rotulo::Email);
    case Coluna::Website:
        return em(Rotulo::Website);
    case Coluna::Morada:
        return em(Rotulo::Morada);
    case Coluna::Dia:
    case Coluna::Mes:
    case Coluna::Ano:
        return em(Rotulo::Aniversario);
    case Coluna::Fotografia:
        return em(Rotulo::Fotografia);
    default:
        return em(Rotulo::NomeCompleto);
    }
}
