// Mail and web addresses handed to the programs that the user chose for them.
#pragma once

class QString;
class Shell;

// Opens a "mailto:" or web address. Does not wait, and nobody learns whether it opened.
void Link_Abrir(Shell &shell, const QString &alvo);

// Begins a mail to that address.
void Escrever_Email(Shell &shell, const QString &endereco);

// Opens the page that a contact's web address means: in lower case, with "www." in front unless it begins
// with that or with a scheme of the web. An address not yet filled in opens nothing.
void Visitar_Website(Shell &shell, const QString &endereco);
