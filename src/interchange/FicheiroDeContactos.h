// The bytes of a foreign file of contacts: read once, and never more than fit in memory beside what becomes
// of them.
#pragma once

#include <optional>
#include <QByteArray>
#include <QString>

class FicheiroDeContactos
{
public:
    static constexpr qint64 maior = qint64{192} << 20; // bytes
    static constexpr qint64 maior_tabela = maior / 4;  // its cells take more room than its bytes

    enum class Estado { Lido, Ilegivel, Grande };

    // What stands in the file at this moment; what is written behind it meanwhile is left.
    static FicheiroDeContactos Ler(const QString &caminho);
    // What came without a file.
    static FicheiroDeContactos Com(QByteArray bytes);

    Estado Leitura() const { return estado_; }
    const QByteArray &Bytes() const { return bytes_; }
    bool E_Tabela() const { return e_tabela_; } // and no cards
    qint64 Limite() const { return e_tabela_ ? maior_tabela : maior; }

private:
    Estado estado_ = Estado::Ilegivel;
    QByteArray bytes_;
    bool e_tabela_ = false;
};
