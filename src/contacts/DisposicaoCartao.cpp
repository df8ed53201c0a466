#include "contacts/DisposicaoCartao.h"

#include <array>
#include <cmath>

namespace
{
struct Lugar {
    int top;
    int left;
};

constexpr std::array lugares{
    Lugar{2820, 420},  Lugar{3160, 420},  Lugar{3500, 420},  Lugar{3840, 420},  Lugar{4180, 420},
    Lugar{4520, 420},  Lugar{4860, 420},  Lugar{5200, 420},  Lugar{5540, 420},  Lugar{5880, 420},
    Lugar{2820, 5160}, Lugar{3160, 5160}, Lugar{3500, 5160}, Lugar{3840, 5160}, Lugar{4180, 5160},
    Lugar{4520, 5160}, Lugar{4860, 5160},
};

std::optional<Lugar> Lugar_Da_Linha(int linha)
{
    const bool existe = linha >= 1 && linha <= static_cast<int>(lugares.size());
    return existe ? std::optional(lugares[static_cast<std::size_t>(linha) - 1]) : std::nullopt;
}
} // namespace

std::optional<int> cartao::Posicao_Top(int linha)
{
    const auto lugar = Lugar_Da_Linha(linha);
    return lugar ? std::optional(lugar->top) : std::nullopt;
}

std::optional<int> cartao::Posicao_Left(int linha)
{
    const auto lugar = Lugar_Da_Linha(linha);
    return lugar ? std::optional(lugar->left) : std::nullopt;
}

std::optional<int> cartao::Altura_Obs(int Linha_Card)
{
    if (Linha_Card < 12) return 3400;
    switch (Linha_Card) {
    case 12:
        return 3000;
    case 13:
        return 2700;
    case 15:
        return 2000;
    case 16:
        return 1635;
    case 17:
        return 1300;
    default:
        return std::nullopt;
    }
}

QSizeF cartao::Redimensionar_Foto(QSizeF natural, QSizeF caixa)
{
    QSizeF ajustada = natural;
    for (int divisor = 1; ajustada.width() > caixa.width() || ajustada.height() > caixa.height(); ++divisor)
        ajustada = {std::floor(natural.width() / divisor), std::floor(natural.height() / divisor)};
    return ajustada;
}

QRectF cartao::Lugar_Da_Foto(QSizeF ajustada, const QRectF &caixa)
{
    return {QPointF((caixa.width() - ajustada.width()) / 2 + caixa.left(),
                    (caixa.height() - ajustada.height()) / 2 + caixa.top()),
            ajustada};
}

QRectF cartao::Lugar_Da_Foto_Por_Omissao(const QRectF &caixa)
{
    const QPointF abaixo = foto_por_omissao.topLeft() - caixa_da_foto.topLeft();
    return Lugar_Da_Foto(foto_por_omissao.size().scaled(caixa.size(), Qt::KeepAspectRatio), caixa)
        .translated(abaixo);
}
