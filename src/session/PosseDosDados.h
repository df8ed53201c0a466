// Who owns the data, at the two moments when all of it changes hands.
#pragma once

class Geral;
class QString;

// Every memo, task, mail account and group of the database becomes that user's, whoever had it. "0" is
// nobody: the groups are shared again.
void Entregar_Tudo(Geral &geral, const QString &IdUtilizador);
