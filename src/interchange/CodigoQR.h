// Bytes as a code of dark and light modules.
#pragma once

#include <QByteArray>
#include <QImage>

class CodigoQR
{
public:
    static constexpr int margem = 4; // modules of white around it, which a reader needs

    // Raises Failure for more than a code holds, and for nothing.
    explicit CodigoQR(const QByteArray &bytes);

    int Lado() const { return lado_; } // in modules, without the margin
    bool Escuro(int coluna, int linha) const;

    // Black on white, the margin included, so many points a module.
    QImage Imagem(int pontos) const;

private:
    int lado_ = 0;
    QByteArray modulos_; // row by row, one byte each
};
