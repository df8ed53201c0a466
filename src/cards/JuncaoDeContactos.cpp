#include "cards/JuncaoDeContactos.h"

#include "cards/BlocoDeObs.h"
#include "cards/ChavesDoContacto.h"
#include "cards/ColunasLivres.h"
#include "cards/RotulosDoCartao.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
bool Tem_Varias(Linha linha)
{
    return linha == Linha::Telefone || linha == Linha::Fax || linha == Linha::Telemovel ||
           linha == Linha::Email;
}

ChaveDoValor Chave_Da(Linha linha)
{
    return linha == Linha::Email ? ChavesDoContacto::Do_Email : ChavesDoContacto::Do_Numero;
}

// Two spellings of one number or mail are the same.
QString Chave(Linha linha, const QString &valor)
{
    return Tem_Varias(linha) ? Chave_Ou_Valor(Chave_Da(linha), valor) : valor.trimmed();
}

QStringList Chaves(Linha linha, const ColunasDoContacto &colunas)
{
    QStringList chaves;
    for (const Coluna coluna : linhas_do_contacto::Colunas(linha))
        chaves << Chave(linha, colunas[coluna]);
    if (Tem_Varias(linha)) {
        chaves.removeAll(QString());
        chaves.removeDuplicates();
        chaves.sort();
    }
    return chaves;
}

bool Vazia(Linha linha, const ColunasDoContacto &colunas)
{
    const std::vector<Coluna> dela = linhas_do_contacto::Colunas(linha);
    return std::all_of(dela.begin(), dela.end(), [&](Coluna c) { return colunas[c].trimmed().isEmpty(); });
}

Rotulo Rotulo_Da_Linha(Linha linha)
{
    switch (linha) {
    case Linha::Telefone:
        return Rotulo::Telefone;
    case Linha::Fax:
        return Rotulo::Fax;
    case Linha::Telemovel:
        return Rotulo::Telemovel;
    case Linha::Email:
        return Rotulo::Email;
    case Linha::Website:
        return Rotulo::Website;
    case Linha::Morada:
        return Rotulo::Morada;
    case Linha::Aniversario:
        return Rotulo::Aniversario;
    case Linha::Fotografia:
        return Rotulo::Fotografia;
    default:
        return Rotulo::NomeCompleto;
    }
}

void Copiar(ColunasDoContacto &para, const ColunasDoContacto &de, Linha linha)
{
    for (const Coluna coluna : linhas_do_contacto::Colunas(linha))
        para[coluna] = de[coluna];
}

// A date in one line, an address too.
QString Numa_Linha(const ColunasDoContacto &colunas, Linha linha)
{
    QStringList partes;
    for (const Coluna coluna : linhas_do_contacto::Colunas(linha))
        partes << Com_CR_LF(colunas[coluna]).split(u"\r\n"_s, Qt::SkipEmptyParts);
    return partes.join(linha == Linha::Aniversario ? u"/"_s : u", "_s);
}

// The same day, of which one of them knows no year.
bool Completa_O_Ano(ColunasDoContacto &para, const ColunasDoContacto &de)
{
    if (para[Coluna::Dia] != de[Coluna::Dia] || para[Coluna::Mes] != de[Coluna::Mes]) return false;
    if (!para[Coluna::Ano].isEmpty() && !de[Coluna::Ano].isEmpty())
        return para[Coluna::Ano] == de[Coluna::Ano];
    if (para[Coluna::Ano].isEmpty()) para[Coluna::Ano] = de[Coluna::Ano];
    return true;
}

QStringList Juntar_Linha(ColunasDoContacto &para, const ColunasDoContacto &de, Linha linha)
{
    if (Tem_Varias(linha)) // a number of another kind may well be there too
        return Encher_Livres(para, de, linhas_do_contacto::Colunas(linha), Chave_Da(linha),
                             Chaves(linha, para));
    if (Vazia(linha, de) || linha == Linha::Grupo) return {};
    if (Vazia(linha, para)) {
        Copiar(para, de, linha);
        return {};
    }
    if (Chaves(linha, para) == Chaves(linha, de)) return {};
    if (linha == Linha::Aniversario && Completa_O_Ano(para, de)) return {};
    return {Numa_Linha(de, linha)};
}
} // namespace

bool JuncaoDeContactos::Diferem(Linha linha) const
{
    return !Vazia(linha, primeiro_) && !Vazia(linha, segundo_) &&
           Chaves(linha, primeiro_) != Chaves(linha, segundo_);
}

ColunasDoContacto JuncaoDeContactos::Juntos(const Escolhas &escolhas) const
{
    ColunasDoContacto juntos = primeiro_;
    QStringList sem_lugar;
    const auto escolha = [&](Linha linha) {
        const auto dita = escolhas.find(linha);
        return dita == escolhas.end() ? Fica::Ambos : dita->second;
    };
    for (const Linha linha : linhas_do_contacto::todas) {
        if (escolha(linha) == Fica::Segundo) Copiar(juntos, segundo_, linha);
        if (escolha(linha) != Fica::Ambos || linha == Linha::Obs) continue;
        for (const QString &valor : Juntar_Linha(juntos, segundo_, linha))
            sem_lugar << rotulos_do_cartao::Em(Rotulo_Da_Linha(linha), idioma_) + u": "_s + valor;
    }
    BlocoDeObs novo;
    if (escolha(Linha::Obs) == Fica::Ambos) novo = BlocoDeObs::Separar(segundo_[Coluna::Obs]);
    novo.Juntar(sem_lugar);
    BlocoDeObs bloco = BlocoDeObs::Separar(juntos[Coluna::Obs]);
    if (bloco.Acrescentar(novo)) juntos[Coluna::Obs] = bloco.Texto(idioma_);
    return juntos;
}
