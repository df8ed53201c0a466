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
    std::vector<std::vector<Coluna>> partes{{nascimento.begin(), nascimento.end()}};
    for (const Coluna coluna :
         {Coluna::Nome, Coluna::Telefone1, Coluna::Telefone2, Coluna::Fax, Coluna::Telemovel1,
          Coluna::Telemovel2, Coluna::Telemovel3, Coluna::Email1, Coluna::Email2, Coluna::Website,
          Coluna::Morada, Coluna::Fotografia})
        partes.push_back({coluna});
    return partes;
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
    valores.removeAll(QString());
    return valores.join(parte.size() > 1 ? u"/"_s : u", "_s);
}

// The number or address stands in the contact, be it in another column.
bool Esta_La(const ColunasDoContacto &colunas, Coluna coluna, const QString &valor)
{
    const auto mesmo = [&](std::span<const Coluna> quais, QString (*chave)(const QString &)) {
        return std::any_of(quais.begin(), quais.end(), [&](Coluna qual) {
            const QString &outro = colunas[qual];
            return outro == valor || (!chave(valor).isEmpty() && chave(outro) == chave(valor));
        });
    };
    const auto &numeros = ColunasDoContacto::numeros;
    if (std::find(numeros.begin(), numeros.end(), coluna) != numeros.end())
        return mesmo(numeros, ChavesDoContacto::Do_Numero);
    if (coluna == Coluna::Email1 || coluna == Coluna::Email2)
        return mesmo(ColunasDoContacto::emails, ChavesDoContacto::Do_Email);
    return false;
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
        std::erase_if(juntos_.conflitos, [this](const ConflitoDeColuna &conflito) {
            return Esta_La(juntos_.colunas, conflito.coluna, conflito.aqui);
        });
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
        linhas.removeIf([&](const QString &linha) { return linha.trimmed().isEmpty() || de_la.contains(linha); });
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
