// What of a contact's card goes into a code that a telephone reads from a screen: few enough bytes for its
// modules to stay large.
#pragma once

#include <QByteArray>

struct CardContent;

// A card of version 3.0 with less than maior_conteudo_do_qr bytes. The name is always in it, then come
// numbers and mails, the firm, the address in the web, and the address of a letter: each that would be too
// much is left out, and those behind it get their turn. Never a note or a picture.
QByteArray Conteudo_Do_QR(const CardContent &conteudo);

constexpr qsizetype maior_conteudo_do_qr = 500;
