// The arithmetic of the contact card, in twips: slots of its two columns, height of the notes, size of the
// photo.
#pragma once

#include <optional>
#include <QRectF>
#include <QSizeF>

namespace cartao
{
constexpr int primeira_linha_direita = 11; // slots 1 to 10 are the left column, 11 to 17 the right one
constexpr int linhas_da_morada = 4;        // an address takes as many slots

// The box in which the photograph stands.
constexpr int foto_left = 5280;
constexpr int foto_top = 390;
constexpr int foto_width = 2415;
constexpr int foto_height = 2325;
constexpr QRectF caixa_da_foto{foto_left, foto_top, foto_width, foto_height};
// The picture for want of one is stretched over the whole box, ten twips lower.
constexpr QRectF foto_por_omissao{foto_left, 400, foto_width, foto_height};

// Top and left of a slot; nothing outside of 1 to 17.
std::optional<int> Posicao_Top(int linha);
std::optional<int> Posicao_Left(int linha);

// Height of the notes by the line reached once the address has been placed; nothing for a line that cannot be
// reached, where the height stays what it was.
std::optional<int> Altura_Obs(int Linha_Card);

// Fits a picture into a box by whole divisors: one a little too large drops to a half of its size, a
// smaller one is never enlarged.
QSizeF Redimensionar_Foto(QSizeF natural, QSizeF caixa = caixa_da_foto.size());

// The place of a fitted picture: the middle of the box.
QRectF Lugar_Da_Foto(QSizeF ajustada, const QRectF &caixa = caixa_da_foto);

// The place of the picture for want of one where the photo box was drawn so much larger: as large as fits, in
// its proportions, in the middle.
QRectF Lugar_Da_Foto_Por_Omissao(const QRectF &caixa);
} // namespace cartao
