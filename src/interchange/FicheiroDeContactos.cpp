#include "interchange/FicheiroDeContactos.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
// In whatever encoding, and whatever stands before it.
bool Tem_Cartoes(const QByteArray &bytes)
{
    constexpr qsizetype inicio = 4096;
    QByteArray cabeca = bytes.first(std::min(inicio, bytes.size())).toUpper();
    cabeca.removeIf([](char sinal) { return sinal == '\0' || sinal == ' '; });
    return cabeca.contains("BEGIN:VCARD");
}
} // namespace

FicheiroDeContactos FicheiroDeContactos::Ler(const QString &caminho)
{
    FicheiroDeContactos lido;
    const QString terminacao = QFileInfo(caminho).suffix().toLower();
    lido.e_tabela_ = terminacao != "vcf"_L1 && terminacao != "vcard"_L1;
    QFile ficheiro(caminho);
    if (!QFileInfo(caminho).isFile() || !ficheiro.open(QIODevice::ReadOnly)) return lido;
    lido.estado_ = Estado::Grande;
    if (ficheiro.size() > maior) return lido;
    lido.bytes_ = ficheiro.read(ficheiro.size());
    if (ficheiro.error() != QFileDevice::NoError) {
        lido.estado_ = Estado::Ilegivel;
        return lido;
    }
    lido.e_tabela_ = lido.e_tabela_ && !Tem_Cartoes(lido.bytes_);
    if (lido.bytes_.size() <= lido.Limite())
        lido.estado_ = Estado::Lido;
    else
        lido.bytes_.clear();
    return lido;
}

FicheiroDeContactos FicheiroDeContactos::Com(QByteArray bytes)
{
    FicheiroDeContactos lido;
    lido.estado_ = bytes.size() > maior ? Estado::Grande : Estado::Lido;
    if (lido.estado_ == Estado::Lido) lido.bytes_ = std::move(bytes);
    return lido;
}
