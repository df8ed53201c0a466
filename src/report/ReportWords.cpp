#include "report/ReportWords.h"

#include "platform/Translations.h"

namespace
{
struct Words {
    ReportWord word;
    Translations texts;
};

using enum ReportWord;
constexpr std::array table{
    Words{First,
          {u"Primeira página", u"Primeira página", u"First page", u"Primera página", u"Prima pagina",
           u"Première page", u"Erste Seite"}},
    Words{Previous,
          {u"Página anterior", u"Página anterior", u"Previous page", u"Página anterior", u"Pagina precedente",
           u"Page précédente", u"Vorige Seite"}},
    Words{Next,
          {u"Página seguinte", u"Próxima página", u"Next page", u"Página siguiente", u"Pagina successiva",
           u"Page suivante", u"Nächste Seite"}},
    Words{Last,
          {u"Última página", u"Última página", u"Last page", u"Última página", u"Ultima pagina",
           u"Dernière page", u"Letzte Seite"}},
    Words{Page, {u"Página", u"Página", u"Page", u"Página", u"Pagina", u"Page", u"Seite"}},
    Words{ZoomIn,
          {u"Ampliar", u"Ampliar", u"Zoom in", u"Ampliar", u"Ingrandisci", u"Agrandir", u"Vergrößern"}},
    Words{ZoomOut, {u"Reduzir", u"Reduzir", u"Zoom out", u"Reducir", u"Riduci", u"Réduire", u"Verkleinern"}},
    Words{FitWidth,
          {u"Largura da página", u"Largura da página", u"Page width", u"Ancho de página", u"Larghezza pagina",
           u"Largeur de page", u"Seitenbreite"}},
    Words{WholePage,
          {u"Página inteira", u"Página inteira", u"Whole page", u"Página completa", u"Pagina intera",
           u"Page entière", u"Ganze Seite"}},
    Words{Print, {u"Imprimir", u"Imprimir", u"Print", u"Imprimir", u"Stampa", u"Imprimer", u"Drucken"}},
    Words{SavePdf,
          {u"Guardar como PDF", u"Salvar como PDF", u"Save as PDF", u"Guardar como PDF", u"Salva come PDF",
           u"Enregistrer en PDF", u"Als PDF speichern"}},
    Words{Refresh,
          {u"Actualizar", u"Atualizar", u"Refresh", u"Actualizar", u"Aggiorna", u"Actualiser",
           u"Aktualisieren"}},
    Words{Search, {u"Procurar", u"Procurar", u"Find", u"Buscar", u"Cerca", u"Rechercher", u"Suchen"}},
    Words{Close, {u"Fechar", u"Fechar", u"Close", u"Cerrar", u"Chiudi", u"Fermer", u"Schließen"}},
    Words{Printing,
          {u"A escrever a página %1 de %2", u"Escrevendo a página %1 de %2", u"Writing page %1 of %2",
           u"Escribiendo la página %1 de %2", u"Scrittura della pagina %1 di %2",
           u"Écriture de la page %1 sur %2", u"Seite %1 von %2 wird geschrieben"}},
    Words{Cancel, {u"Cancelar", u"Cancelar", u"Cancel", u"Cancelar", u"Annulla", u"Annuler", u"Abbrechen"}},
    Words{NoPrinter,
          {u"Não há nenhuma impressora instalada.", u"Não há nenhuma impressora instalada.",
           u"No printer is installed.", u"No hay ninguna impresora instalada.",
           u"Nessuna stampante installata.", u"Aucune imprimante n’est installée.",
           u"Es ist kein Drucker installiert."}},
    Words{Rejected,
          {u"A impressora recusou o trabalho.", u"A impressora recusou o trabalho.",
           u"The printer refused the job.", u"La impresora ha rechazado el trabajo.",
           u"La stampante ha rifiutato il lavoro di stampa.", u"L’imprimante a refusé l’impression.",
           u"Der Drucker hat den Druckauftrag abgelehnt."}},
    Words{NotWritten,
          {u"Não foi possível gravar o ficheiro.", u"Não foi possível salvar o arquivo.",
           u"The file could not be written.", u"No se ha podido guardar el archivo.",
           u"Impossibile salvare il file.", u"Impossible d’enregistrer le fichier.",
           u"Die Datei konnte nicht gespeichert werden."}},
    Words{Empty,
          {u"A selecção está vazia: não há nada para imprimir.",
           u"A seleção está vazia: não há nada para imprimir.",
           u"The selection is empty: there is nothing to print.",
           u"La selección está vacía: no hay nada que imprimir.",
           u"La selezione è vuota: non c’è nulla da stampare.",
           u"La sélection est vide\u00a0: il n’y a rien à imprimer.",
           u"Die Auswahl ist leer: Es gibt nichts zu drucken."}},
    Words{DoesNotFit,
          {u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:",
           u"Estas linhas não cabem na folha, nem em letra menor, e não serão impressas:",
           u"These lines do not fit on the sheet, not even in smaller type, and will not be printed:",
           u"Estas líneas no caben en la hoja, ni siquiera en letra más pequeña, y no se imprimirán:",
           u"Queste righe non entrano nel foglio, nemmeno in caratteri più piccoli, e non saranno stampate:",
           u"Ces lignes ne tiennent pas sur la feuille, même en plus petits caractères, et ne seront pas "
           u"imprimées\u00a0:",
           u"Diese Zeilen passen auch in kleinerer Schrift nicht auf das Blatt und werden nicht gedruckt:"}},
    Words{PageOfPages,
          {u"Página %1 de %2", u"Página %1 de %2", u"Page %1 of %2", u"Página %1 de %2", u"Pagina %1 di %2",
           u"Page %1 sur %2", u"Seite %1 von %2"}},
    Words{DayFormat,
          {u"dd-MM-yyyy", u"dd/MM/yyyy", u"dd/MM/yyyy", u"dd/MM/yyyy", u"dd/MM/yyyy", u"dd/MM/yyyy",
           u"dd.MM.yyyy"}},
};
} // namespace

QString reportWord(ReportWord word, const QString &language)
{
    for (const Words &words : table)
        if (words.word == word) return translated(words.texts, language);
    return {};
}
