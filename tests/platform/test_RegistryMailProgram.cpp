// The mail program as a Windows registry names it.
#include "platform/Registry.h"
#include "platform/RegistryMailProgram.h"

#include <QHash>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
const QString version = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion"_s;
const QString addresses = u"SOFTWARE\\Classes\\mailto\\shell\\open\\command"_s;
const QString clients = u"SOFTWARE\\Clients\\Mail"_s;

class Kept final : public Registry
{
public:
    void keep(Root root, const QString &key, const QString &name, const QString &value)
    {
        values_.insert({static_cast<int>(root), key + u'|' + name}, value);
    }
    QString readString(Root root, const QString &key, const QString &name) override
    {
        return values_.value({static_cast<int>(root), key + u'|' + name});
    }
    bool writeString(Root, const QString &, const QString &, const QString &) override { return false; }
    bool deleteValue(Root, const QString &, const QString &) override { return false; }

private:
    QHash<std::pair<int, QString>, QString> values_;
};

constexpr auto machine = Registry::Root::LocalMachine;
constexpr auto user = Registry::Root::CurrentUser;

Kept withCommand(const QString &command)
{
    Kept kept;
    kept.keep(machine, version, u"ProgramFilesPath"_s, u"%ProgramFiles%"_s);
    kept.keep(machine, version, u"ProgramFilesDir"_s, u"C:\\Programas"_s);
    kept.keep(machine, addresses, {}, command);
    return kept;
}
} // namespace

class TestRegistryMailProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void the_folder_stands_in_the_place_of_its_word()
    {
        Kept kept = withCommand(uR"("%ProgramFiles%\Correio\correio.exe" /mailurl:"%1")"_s);
        QCOMPARE(programOfMailAddresses(kept), uR"(C:\Programas\Correio\correio.exe)"_s);
    }

    void the_ending_may_be_in_capitals()
    {
        Kept kept = withCommand(uR"("%ProgramFiles%\Correio\CORREIO.EXE" "%1")"_s);
        QCOMPARE(programOfMailAddresses(kept), uR"(C:\Programas\Correio\CORREIO.EXE)"_s);
    }

    void a_command_of_another_form_gives_a_path_that_leads_nowhere()
    {
        Kept kept = withCommand(uR"(D:\Outros programas\correio.exe "%1")"_s);
        QCOMPARE(programOfMailAddresses(kept), uR"(C:\Programasamas\correio.exe)"_s);
    }

    void no_program_without_each_of_the_values()
    {
        Kept nothing;
        QCOMPARE(programOfMailAddresses(nothing), QString());
        Kept noCommand = withCommand({});
        QCOMPARE(programOfMailAddresses(noCommand), QString());
        Kept noWord = withCommand(uR"("%ProgramFiles%\a\b.exe")"_s);
        noWord.keep(machine, version, u"ProgramFilesPath"_s, {});
        QCOMPARE(programOfMailAddresses(noWord), QString());
        Kept noFolder = withCommand(uR"("%ProgramFiles%\a\b.exe")"_s);
        noFolder.keep(machine, version, u"ProgramFilesDir"_s, {});
        QCOMPARE(programOfMailAddresses(noFolder), QString());
        Kept noProgram = withCommand(uR"("%ProgramFiles%\a\b.com")"_s);
        QCOMPARE(programOfMailAddresses(noProgram), QString());
    }

    void the_chosen_client_starts_by_its_own_command()
    {
        Kept kept;
        kept.keep(machine, clients, {}, u"Correio"_s);
        kept.keep(machine, clients + u"\\Correio\\shell\\open\\command"_s, {}, uR"("C:\a b\c.exe" -mail)"_s);
        QCOMPARE(commandOfMailClient(kept), uR"("C:\a b\c.exe" -mail)"_s);
    }

    void what_the_person_chose_comes_before_what_the_machine_has()
    {
        Kept kept;
        kept.keep(machine, clients, {}, u"Correio"_s);
        kept.keep(user, clients, {}, u"Outro"_s);
        kept.keep(machine, clients + u"\\Correio\\shell\\open\\command"_s, {}, u"correio.exe"_s);
        kept.keep(machine, clients + u"\\Outro\\shell\\open\\command"_s, {}, u"outro.exe"_s);
        QCOMPARE(commandOfMailClient(kept), u"outro.exe"_s);
    }

    void no_client_no_command()
    {
        Kept kept;
        QCOMPARE(commandOfMailClient(kept), QString());
    }
};

QTEST_APPLESS_MAIN(TestRegistryMailProgram)
#include "test_RegistryMailProgram.moc"
