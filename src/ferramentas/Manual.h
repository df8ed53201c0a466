// The manual: from one text a language to the pages that are installed.
#pragma once

#include <QString>

namespace manual
{
// Makes all pages of all languages, with pictures and style, in a folder of that name, in place of what was
// there; a failure leaves that as it was. The source is one file a language, `pt.md` to `de.md`, with the
// pages in order, each under a heading of the first rank; `imagens/`; and `manual.css`. In the text, {133}
// stands for the caption with that number in the file's language, and {contactos} for a link to that page.
// Failure tells of a number, page or picture that does not exist, or of a page too many or too few.
void Criar(const QString &fonte, const QString &textos, const QString &destino);
} // namespace manual
