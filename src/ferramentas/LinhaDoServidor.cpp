#include "ferramentas/LinhaDoServidor.h"

#include "store/Connection.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace palavras;

namespace
{
using Que = OrdemAoServidor::Que;

struct Forma {
    QLatin1StringView nome;
    Que que;
    const Frase *quer;
    qsizetype quantas; // words behind it
    bool com_posto;
};

constexpr std::array formas{
    Forma{"criar"_L1, Que::Criar, &morada, 1, true},
    Forma{"atualizar"_L1, Que::Atualizar, &morada, 1, true},
    Forma{"mudar"_L1, Que::Mudar, &ficheiro_e_morada, 2, true},
    Forma{"trazer"_L1, Que::Trazer, &morada_e_ficheiro, 2, false},
    Forma{"verificar"_L1, Que::Verificar, &morada, 1, true},
};

class Leitura
{
public:
    explicit Leitura(Lingua lingua) : lingua_(lingua) {}

    OrdemAoServidor Ler(QStringList linha)
    {
        while (!linha.isEmpty() && ordem_.recusa.isEmpty())
            if (const QString palavra = linha.takeFirst(); !palavra.startsWith(u'-')) soltas_ << palavra;
            else if (Opcao(palavra, linha)) return ordem_;
        if (ordem_.recusa.isEmpty()) Entender();
        if (!ordem_.recusa.isEmpty()) ordem_.que = Que::Recusa;
        return ordem_;
    }

private:
    void Recusar(const Frase &porque) { ordem_.recusa = Dizer(porque, lingua_); }
    template<class... Partes> void Recusar(const Frase &porque, const Partes &...partes)
    {
        ordem_.recusa = Dizer(porque, lingua_).arg(partes...);
    }

    // True where nothing else counts any more.
    bool Opcao(const QString &opcao, QStringList &resto)
    {
        if (opcao == "--help"_L1 || opcao == "-h"_L1 || opcao == "--version"_L1 || opcao == "-v"_L1) {
            ordem_.que = opcao.contains(u'v') ? Que::Versao : Que::Ajuda;
            return true;
        }
        if (opcao == "--vazia"_L1) ordem_.vazia = true;
        else if (opcao == "--idioma"_L1) ordem_.idioma = Valor(opcao, resto);
        else if (opcao == "--posto"_L1) ordem_.posto = Valor(opcao, resto);
        else Recusar(opcao_desconhecida, opcao);
        opcoes_ << opcao;
        return false;
    }

    QString Valor(const QString &opcao, QStringList &resto)
    {
        if (resto.isEmpty() || resto.constFirst().isEmpty() || resto.constFirst().startsWith(u'-')) {
            Recusar(falta_o_valor, opcao);
            return {};
        }
        return resto.takeFirst();
    }

    void Entender()
    {
        if (soltas_.isEmpty()) return Recusar(falta_a_ordem);
        const auto forma = std::find_if(formas.begin(), formas.end(),
                                        [&](const Forma &uma) { return uma.nome == soltas_.constFirst(); });
        if (forma == formas.end()) return Recusar(ordem_desconhecida, soltas_.constFirst());
        ordem_.que = forma->que;
        if (soltas_.size() != forma->quantas + 1)
            return Recusar(palavras_a_mais, soltas_.constFirst(), Dizer(*forma->quer, lingua_));
        for (const QString &opcao : opcoes_)
            if (opcao == "--posto"_L1 ? !forma->com_posto : forma->que != Que::Criar)
                return Recusar(opcao_alheia, opcao, soltas_.constFirst());
        ordem_.morada = soltas_[forma->que == Que::Mudar ? 2 : 1];
        if (forma->quantas == 2) ordem_.ficheiro = soltas_[forma->que == Que::Mudar ? 1 : 2];
        if (!Connection::isAddress(ordem_.morada)) return Recusar(nao_e_morada, ordem_.morada);
        if (ordem_.vazia && !ordem_.idioma.isEmpty()) return Recusar(idioma_e_vazia);
        static const QStringList linguas{u"pt"_s, u"br"_s, u"en"_s, u"fr"_s};
        if (!ordem_.idioma.isEmpty() && !linguas.contains(ordem_.idioma))
            Recusar(lingua_desconhecida, ordem_.idioma);
    }

    Lingua lingua_;
    OrdemAoServidor ordem_;
    QStringList soltas_;
    QStringList opcoes_;
};
} // namespace

OrdemAoServidor Ler_Linha(const QStringList &palavras_da_linha, Lingua lingua)
{
    return Leitura(lingua).Ler(palavras_da_linha);
}
