// A photograph on its way between a card and the book.
#pragma once

#include <QByteArray>
#include <QString>

namespace fotografia_do_cartao
{
// What the column Fotografia says of a photograph that the database holds: "bd:<sha1>.<ext>", the same bytes
// always by the same name. Empty for what can't be decoded, or only into too much memory.
QString Nome(const QByteArray &bytes);

// As other programs show it: what is neither JPEG, PNG nor GIF becomes a JPEG. Empty for what can't be
// decoded.
QByteArray Para_Cartao(const QByteArray &bytes);
} // namespace fotografia_do_cartao
