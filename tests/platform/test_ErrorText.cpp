// The words of an error: a language for everybody, words for every kind that a person can mend.
#include "platform/ErrorText.h"
#include "platform/Failure.h"
#include "platform/Translations.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using enum Failure::Kind;

class TestErrorText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void each_kind_that_a_person_can_mend_has_words_of_its_own_in_every_language()
    {
        QStringList all;
        for (const QString &language : {u"PortuguesPT"_s, u"PortuguesBR"_s, u"InglesUK"_s, u"EspanholES"_s,
                                        u"ItalianoIT"_s, u"FrancesFR"_s, u"AlemaoDE"_s})
            for (const Failure::Kind kind : {DatabaseMissing, DatabaseLocked, DatabaseReadOnly,
                                             DatabaseForbidden, DatabaseDamaged, DatabaseNewer, DiskFull,
                                             DatabaseOlder, ServerUnknown, ServerRefused, ServerCertificate,
                                             ServerForbidden, ServerPassword, ServerPasswordFile,
                                             ServerNoDatabase, ServerLost, PasswordInAddress, ServerLibraryMissing,
                                             ServersNotReached}) {
                const ErrorText text = errorText(Failure(1, u"s"_s, u"technical"_s, kind), language);
                QVERIFY(text.words.size() > 60 && text.words.endsWith(u'.'));
                QVERIFY(!text.words.contains(u"technical"_s));
                QCOMPARE(text.details, u"1 · s\ntechnical"_s);
                all << text.words;
            }
        QCOMPARE(all.removeDuplicates(), 0);
    }

    void a_language_that_is_none_of_the_seven_reads_as_english()
    {
        const Failure full(1, {}, {}, DiskFull);
        for (const QString &language : {u"LatimVA"_s, QString()})
            QCOMPARE(errorText(full, language).words, errorText(full, u"InglesUK"_s).words);
    }

    void what_is_to_be_written_is_shown_as_it_is_written_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("line");
        const auto row = [](const char *language, const QString &address, const QString &line) {
            QTest::newRow(language) << u": postgresql://"_s + address << u": "_s + line;
        };
        row("PortuguesPT", u"utilizador@servidor/base"_s, u"servidor:porta:base:utilizador:palavra-passe"_s);
        row("PortuguesBR", u"usuario@servidor/base"_s, u"servidor:porta:base:usuario:senha"_s);
        row("InglesUK", u"user@server/database"_s, u"server:port:database:user:password"_s);
        row("EspanholES", u"usuario@servidor/base"_s, u"servidor:puerto:base:usuario:contraseña"_s);
        row("ItalianoIT", u"utente@server/database"_s, u"server:porta:database:utente:password"_s);
        row("FrancesFR", u"utilisateur@serveur/base"_s, u"serveur:port:base:utilisateur:mot-de-passe"_s);
        row("AlemaoDE", u"benutzer@server/datenbank"_s, u"server:port:datenbank:benutzer:kennwort"_s);
    }
    void what_is_to_be_written_is_shown_as_it_is_written()
    {
        QFETCH(const QString, address);
        QFETCH(const QString, line);
        const auto words = [](Failure::Kind kind) {
            return errorText(Failure(1, {}, {}, kind), QString::fromLatin1(QTest::currentDataTag())).words;
        };
        QVERIFY2(words(AddressBroken).endsWith(address), qUtf8Printable(words(AddressBroken)));
        QVERIFY2(words(ServerNoPassword).endsWith(line), qUtf8Printable(words(ServerNoPassword)));
        for (const Failure::Kind kind : {PasswordInAddress, ServerPassword, ServerNoPassword, ServerPasswordFile})
            QVERIFY(words(kind).contains(u"~/.pgpass"_s));
    }

    // A person may look one up, or tell it to somebody else.
    void each_error_has_its_number()
    {
        QCOMPARE((QList<int>{Failure::OutOfMemoryOrRange, Failure::SubscriptOutOfRange, Failure::TypeMismatch,
                             Failure::FileNotFound, Failure::PathFileAccess, Failure::InvalidUseOfNull,
                             Failure::InvalidPropertyValue, Failure::InvalidPicture, Failure::NoCurrentRecord,
                             Failure::ItemNotFound, Failure::StoreError}),
                 (QList<int>{6, 9, 13, 53, 75, 94, 380, 481, 3021, 3265, -2147467259}));
        QCOMPARE(Failure(13, u"Value"_s, u"no number"_s).what(), "13 (Value): no number");
    }

    void a_source_is_cut_behind_its_200th_letter()
    {
        QCOMPARE(errorText(Failure(1, QString(200, u'x'), u"d"_s), {}).details,
                 u"1 · "_s + QString(200, u'x'));
        QCOMPARE(errorText(Failure(1, QString(201, u'x'), u"d"_s), {}).details,
                 u"1 · "_s + QString(200, u'x') + u'…');
    }

    void the_rest_keeps_its_description()
    {
        const ErrorText text = errorText(Failure(13, {}, u"line one\nline two"_s), u"AlemaoDE"_s);
        QCOMPARE(text.words, u"line one\nline two"_s);
        QCOMPARE(text.details, u"13"_s);
    }

    void a_text_is_cut_by_its_letters_and_by_its_lines_data()
    {
        QTest::addColumn<QString>("description");
        QTest::addColumn<QString>("words");
        QTest::newRow("600 letters stay") << QString(600, u'x') << QString(600, u'x');
        QTest::newRow("one more does not") << QString(601, u'x') << QString(600, u'x') + u'…';
        QTest::newRow("no half of a letter") << QString(599, u'x') + u"😀"_s << QString(599, u'x') + u'…';
        QTest::newRow("twelve lines stay") << u"a\n"_s.repeated(11) + u'b' << u"a\n"_s.repeated(11) + u'b';
        QTest::newRow("one more does not") << u"a\n"_s.repeated(12) + u'b' << u"a\n"_s.repeated(11) + u"a…"_s;
        QTest::newRow("no control characters") << u"a\x01\tb\rc"_s << u"a  b c"_s;
    }
    void a_text_is_cut_by_its_letters_and_by_its_lines()
    {
        QFETCH(QString, description);
        QFETCH(QString, words);
        QCOMPARE(errorText(Failure(1, {}, description), {}).words, words);
    }

    void before_a_language_is_active_the_desktop_s_is_spoken_data()
    {
        QTest::addColumn<QStringList>("codes");
        QTest::addColumn<QString>("language");
        QTest::newRow("Portugal") << QStringList{u"pt-PT"_s, u"pt"_s} << u"PortuguesPT"_s;
        QTest::newRow("Portuguese of nowhere") << QStringList{u"pt"_s} << u"PortuguesPT"_s;
        QTest::newRow("Angola") << QStringList{u"pt-AO"_s} << u"PortuguesPT"_s;
        QTest::newRow("Brazil") << QStringList{u"pt-BR"_s} << u"PortuguesBR"_s;
        QTest::newRow("Brazil with its script") << QStringList{u"pt-Latn-BR"_s} << u"PortuguesBR"_s;
        QTest::newRow("Brazil, underscored") << QStringList{u"pt_BR"_s} << u"PortuguesBR"_s;
        QTest::newRow("Austria") << QStringList{u"de-AT"_s} << u"AlemaoDE"_s;
        QTest::newRow("Canada") << QStringList{u"fr-CA"_s} << u"FrancesFR"_s;
        QTest::newRow("Mexico") << QStringList{u"es-MX"_s} << u"EspanholES"_s;
        QTest::newRow("Switzerland") << QStringList{u"it-CH"_s} << u"ItalianoIT"_s;
        QTest::newRow("the second wish") << QStringList{u"pl-PL"_s, u"de-DE"_s} << u"AlemaoDE"_s;
        QTest::newRow("English rather than German") << QStringList{u"en-GB"_s, u"de-DE"_s} << u"InglesUK"_s;
        QTest::newRow("a language with a like code") << QStringList{u"est-EE"_s} << u"InglesUK"_s;
        QTest::newRow("none") << QStringList{u"C"_s} << u"InglesUK"_s;
    }
    void before_a_language_is_active_the_desktop_s_is_spoken()
    {
        QFETCH(QStringList, codes);
        QFETCH(QString, language);
        QCOMPARE(languageOf(codes), language);
        QCOMPARE(spokenLanguage(u"ItalianoIT"_s), u"ItalianoIT"_s);
        QCOMPARE(spokenLanguage({}), u"InglesUK"_s); // the tests' desktop
    }
};

MORVEX_TESTE(TestErrorText)
#include "test_ErrorText.moc"
