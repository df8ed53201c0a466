#include "memos/Lugar_Alcancavel.h"

#include <algorithm>

namespace
{
constexpr int largura_de_uma_pega = 60; // pixels of a title that a pointer finds and grasps

// The nearest corner of the strip with which a grasp of it lies on the screen.
QPoint Trazer(const QRect &titulo, int pega, const QRect &ecra)
{
    const int esquerda = ecra.left() - (titulo.width() - pega);
    const int direita = std::max(esquerda, ecra.left() + ecra.width() - pega);
    const int fundo = std::max(ecra.top(), ecra.top() + ecra.height() - titulo.height());
    return {std::clamp(titulo.left(), esquerda, direita), std::clamp(titulo.top(), ecra.top(), fundo)};
}
} // namespace

QPoint Lugar_Alcancavel(const QRect &nota, int altura_do_titulo, const QList<QRect> &ecras)
{
    const QRect titulo(nota.topLeft(), QSize(nota.width(), altura_do_titulo));
    const int pega = std::min(titulo.width(), largura_de_uma_pega);
    QPoint melhor = nota.topLeft();
    int menor = std::numeric_limits<int>::max();
    for (const QRect &ecra : ecras) {
        const QPoint lugar = Trazer(titulo, pega, ecra);
        const int distancia = (lugar - titulo.topLeft()).manhattanLength();
        if (distancia >= menor) continue;
        menor = distancia;
        melhor = lugar;
    }
    return melhor;
}
