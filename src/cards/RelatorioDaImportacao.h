// What a person reads about an import: what the file holds, what became of it, and what of it could not come.
#pragma once

#include "cards/EscritaDaImportacao.h"

class Geral;
class RetratoDoContacto;

class RelatorioDaImportacao
{
public:
    static constexpr std::size_t mais_outros = 20; // of those with whom a contact may be joined

    explicit RelatorioDaImportacao(Geral &geral) : geral_(geral) {}

    // One line each: of a file that was read, and of what was done.
    QString Lidos(const ImportacaoDeContactos &importacao) const;
    QString Feitos(const EscritaDaImportacao::Contagem &feita) const;

    // The contact as it will be, in that group where it names none, and those who it may be.
    void Escrever(RetratoDoContacto &campo, const ImportacaoDeContactos &importacao,
                  const ContactoAImportar &contacto, const QString &grupo) const;

    // All that was done, the faults with their lines.
    void Escrever(RetratoDoContacto &campo, const ImportacaoDeContactos &importacao,
                  const EscritaDaImportacao &escrita) const;

private:
    QString Parte(qint16 texto, qsizetype numero) const;
    QStringList Partes(const EscritaDaImportacao::Contagem &feita) const;
    void Escrever_Outros(RetratoDoContacto &campo, const ImportacaoDeContactos &importacao,
                         const ContactoAImportar &contacto) const;
    QString Falta(const FaltaDaFonte &falta) const;

    Geral &geral_;
};
