// The words of preview and printer, one by one in each language.
#include "report/ReportWords.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct Palavra {
    ReportWord qual;
    std::array<const char16_t *, 7> ditas;
};
constexpr std::array linguas{"PortuguesPT", "PortuguesBR", "InglesUK", "EspanholES",
                             "ItalianoIT",  "FrancesFR",   "AlemaoDE"};
constexpr Palavra palavras[] = {
    {ReportWord::First,
     {u"Primeira página", u"Primeira página", u"First page", u"Primera página", u"Prima pagina",
      u"Première page", u"Erste Seite"}},
    {ReportWord::Previous,
     {u"Página anterior", u"Página anterior", u"Previous page", u"Página anterior", u"Pagina precedente",
      u"Page précédente", u"Vorige Seite"}},
    {ReportWord::Next,
     {u"Página seguinte", u"Próxima página", u"Next page", u"Página siguiente", u"Pagina successiva",
      u"Page suivante", u"Nächste Seite"}},
    {ReportWord::Last,
     {u"Última página", u"Última página", u"Last page", u"Última página", u"Ultima pagina", u"Dernière page",
      u"Letzte Seite"}},
    {ReportWord::Page, {u"Página", u"Página", u"Page", u"Página", u"Pagina", u"Page", u"Seite"}},
    {ReportWord::ZoomIn,
     {u"Ampliar", u"Ampliar", u"Zoom in", u"Ampliar", u"Ingrandisci", u"Agrandir", u"Vergrößern"}},
    {ReportWord::ZoomOut,
     {u"Reduzir", u"Reduzir", u"Zoom out", u"Reducir", u"Riduci", u"Réduire", u"Verkleinern"}},
    {ReportWord::FitWidth,
     {u"Largura da página", u"Largura da página", u"Page width", u"Ancho de página", u"Larghezza pagina",
      u"Largeur de page", u"Seitenbreite"}},
    {ReportWord::WholePage,
     {u"Página inteira", u"Página inteira", u"Whole page", u"Página completa", u"Pagina intera",
      u"Page entière", u"Ganze Seite"}},
    {ReportWord::Print,
     {u"Imprimir", u"Imprimir", u"Print", u"Imprimir", u"Stampa", u"Imprimer", u"Drucken"}},
    {ReportWord::SavePdf,
     {u"Guardar como PDF", u"Salvar como PDF", u"Save as PDF", u"Guardar como PDF", u"Salva come PDF",
      u"Enregistrer en PDF", u"Als PDF speichern"}},
    {ReportWord::Refresh,
     {u"Actualizar", u"Atualizar", u"Refresh", u"Actualizar", u"Aggiorna", u"Actualiser", u"Aktualisieren"}},
    {ReportWord::Search, {u"Procurar", u"Procurar", u"Find", u"Buscar", u"Cerca", u"Rechercher", u"Suchen"}},
    {ReportWord::Close, {u"Fechar", u"Fechar", u"Close", u"Cerrar", u"Chiudi", u"Fermer", u"Schließen"}},
    {ReportWord::Printing,
     {u"A escrever a página %1 de %2", u"Escrevendo a página %1 de %2", u"Writing page %1 of %2",
      u"Escribiendo la página %1 de %2", u"Scrittura della pagina %1 di %2", u"Écriture de la page %1 sur %2",
      u"Seite %1 von %2 wird geschrieben"}},
    {ReportWord::Cancel,
     {u"Cancelar", u"Cancelar", u"Cancel", u"Cancelar", u"Annulla", u"Annuler", u"Abbrechen"}},
    {ReportWord::NoPrinter,
     {u"Não há nenhuma impressora instalada.", u"Não há nenhuma impressora instalada.",
      u"No printer is installed.", u"No hay ninguna impresora instalada.", u"Nessuna stampante installata.",
      u"Aucune imprimante n’est installée.", u"Es ist kein Drucker installiert."}},
    {ReportWord::Rejected,
     {u"A impressora recusou o trabalho.", u"A impressora recusou o trabalho.",
      u"The printer refused the job.", u"La impresora ha rechazado el trabajo.",
      u"La stampante ha rifiutato il lavoro di stampa.", u"L’imprimante a refusé l’impression.",
      u"Der Drucker hat den Druckauftrag abgelehnt."}},
    {ReportWord::NotWritten,
     {u"Não foi possível gravar o ficheiro.", u"Não foi possível salvar o arquivo.",
      u"The file could not be written.", u"No se ha podido guardar el archivo.",
      u"Impossibile salvare il file.", u"Impossible d’enregistrer le fichier.",
      u"Die Datei konnte nicht gespeichert werden."}},
    {ReportWord::Empty,
     {u"A selecção está vazia: não há nada para imprimir.",
      u"A seleção está vazia: não há nada para imprimir.",
      u"The selection is empty: there is nothing to print.",
      u"La selección está vacía: no hay nada que imprimir.",
      u"La selezione è vuota: non c’è nulla da stampare.",
      u"La sélection est vide\u00a0: il n’y a rien à imprimer.",
      u"Die Auswahl ist leer: Es gibt nichts zu drucken."}},
    {ReportWord::DoesNotFit,
     {u"Estas linhas não cabem na folha, nem em letra mais pequena, e ficam por imprimir:",
      u"Estas linhas não cabem na folha, nem em letra menor, e não serão impressas:",
      u"These lines do not fit on the sheet, not even in smaller type, and will not be printed:",
      u"Estas líneas no caben en la hoja, ni siquiera en letra más pequeña, y no se imprimirán:",
      u"Queste righe non entrano nel foglio, nemmeno in caratteri più piccoli, e non saranno stampate:",
      u"Ces lignes ne tiennent pas sur la feuille, même en plus petits caractères, et ne seront pas "
      u"imprimées\u00a0:",
      u"Diese Zeilen passen auch in kleinerer Schrift nicht auf das Blatt und werden nicht gedruckt:"}},
    {ReportWord::PageOfPages,
     {u"Página %1 de %2", u"Página %1 de %2", u"Page %1 of %2", u"Página %1 de %2", u"Pagina %1 di %2",
      u"Page %1 sur %2", u"Seite %1 von %2"}},
    {ReportWord::DayFormat,
     {u"dd-MM-yyyy", u"dd/MM/yyyy", u"dd/MM/yyyy", u"dd/MM/yyyy", u"dd/MM/yyyy", u"dd/MM/yyyy",
      u"dd.MM.yyyy"}},
};
} // namespace

class TestReportWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_palavra_esta_escrita_em_cada_lingua_data()
    {
        QTest::addColumn<int>("lingua");
        for (std::size_t i = 0; i < linguas.size(); ++i)
            QTest::newRow(linguas[i]) << static_cast<int>(i);
    }
    void cada_palavra_esta_escrita_em_cada_lingua()
    {
        QFETCH(const int, lingua);
        const auto i = static_cast<std::size_t>(lingua);
        for (const Palavra &palavra : palavras)
            QCOMPARE(reportWord(palavra.qual, QString::fromLatin1(linguas[i])),
                     QString::fromUtf16(palavra.ditas[i]));
    }
    void a_lista_tem_todas_as_palavras()
    {
        QCOMPARE(static_cast<int>(std::size(palavras)), int(ReportWord::DayFormat) + 1);
    }
};

MORVEX_TESTE(TestReportWords)
#include "test_ReportWords.moc"
