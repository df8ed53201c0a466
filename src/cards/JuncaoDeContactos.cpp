#include "cards/JuncaoDeContactos.h"

#include "cards/BlocoDeObs.h"
#include "cards/ChavesDoContacto.h"
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

// Two spellings of one number or mail are the same.
QString Chave(Linha linha, const QString &valor)
{
    if (!Tem_Varias(linha)) return valor.trimmed();
    const QString chave =
        linha == Linha::Email ? ChavesDoContacto::Do_Email(valor) : ChavesDoContacto::Do_Numero(valor);
    return chave.isEmpty() ? valor.trimmed() : chave;
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

// Into the free columns of its kind; what finds none is returned.
QStringList Encher(ColunasDoContacto &para, const ColunasDoContacto &de, Linha linha)
{
    QStringList sem_lugar;
    const std::vector<Coluna> colunas = linhas_do_contacto::Colunas(linha);
    for (const Coluna coluna : colunas) {
        const QString &valor = de[coluna];
        if (valor.trimmed().isEmpty() || Chaves(linha, para).contains(Chave(linha, valor))) continue;
        const auto livre = std::find_if(colunas.begin(), colunas.end(),
                                        [&](Coluna c) { return para[c].trimmed().isEmpty(); });
        if (livre != colunas.end())
            para[*livre] = valor;
        else
            sem_lugar << valor.trimmed();
    }
    return sem_lugar;
}

// A date in one line, an address too.
QString Numa_Linha(const ColunasDoContacto &colunas, Linha linha)
{
    QStringList partes;
    for (const Coluna coluna : linhas_do_contacto::Colunas(linha))
        partes << Com_CR_LF(colunas[coluna]).split(u"\r\n"_s, Qt::SkipEmptyParts);
    partes.removeAll(QString());
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
    if (Tem_Varias(linha)) return Encher(para, de, linha);
    if (Vazia(linha, de) || linha == Linha::Grupo) return {};
    if (Vazia(linha, para)) {
        Copiar(para, de, linha);
        return {};
    }
    if (Chaves(linha, para) == Chaves(linha, de)) return {};
    if (linha == Linha::Aniversario && Completa_O_Ano(para, de)) return {};
    return {Numa_Linha(de, linha)};
}

QString Obs_De_Ambos(const QString &primeira, const QString &segunda, const QString &idioma)
{
    BlocoDeObs bloco = BlocoDeObs::Separar(primeira);
    const BlocoDeObs outro = BlocoDeObs::Separar(segunda);
    if (!bloco.nota.contains(outro.nota))
        bloco.nota = bloco.nota.isEmpty() ? outro.nota : bloco.nota + u"\r\n"_s + outro.nota;
    bloco.Juntar(outro.linhas);
    return bloco.linhas.isEmpty() ? bloco.nota : bloco.Texto(idioma);
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
    if (escolha(Linha::Obs) == Fica::Ambos)
        juntos[Coluna::Obs] = Obs_De_Ambos(primeiro_[Coluna::Obs], segundo_[Coluna::Obs], idioma_);
    if (sem_lugar.isEmpty()) return juntos;
    BlocoDeObs bloco = BlocoDeObs::Separar(juntos[Coluna::Obs]);
    bloco.Juntar(sem_lugar);
    juntos[Coluna::Obs] = bloco.Texto(idioma_);
    return juntos;
}
