// The services that Windows has in a way of its own: its registry, its store of secrets, no messenger.
#include "platform/MessengerAPI.h"
#include "platform/OwnServices.h"
#include "platform/Registry.h"
#include "platform/SecretStore.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestOwnServices : public QObject
{
    Q_OBJECT

    const QString key_ = u"Software\\Morvex\\Ensaio"_s;
    static constexpr auto user = Registry::Root::CurrentUser;

private Q_SLOTS:
    void a_value_of_the_registry_is_written_read_and_deleted()
    {
        const auto registry = own_services::registry();
        const QString program = uR"(C:\Users\Inês\morvex.exe)"_s;
        QVERIFY(registry->writeString(user, key_, u"Morvex 1.0"_s, program));
        QCOMPARE(registry->readString(user, key_, u"Morvex 1.0"_s), program);
        QVERIFY(registry->deleteValue(user, key_, u"Morvex 1.0"_s));
        QCOMPARE(registry->readString(user, key_, u"Morvex 1.0"_s), QString());
        QVERIFY(!registry->deleteValue(user, key_, u"Morvex 1.0"_s));
    }

    void the_value_of_a_key_itself_has_no_name()
    {
        const auto registry = own_services::registry();
        QVERIFY(registry->writeString(user, key_, {}, u"o da chave"_s));
        QCOMPARE(registry->readString(user, key_, {}), u"o da chave"_s);
        QVERIFY(registry->deleteValue(user, key_, {}));
    }

    void a_secret_comes_back_and_goes_away()
    {
        const auto secrets = own_services::secrets();
        QVERIFY(secrets->isThere());
        const QString secret = u"palavra-passe com ç, 日本 e 💩"_s;
        QVERIFY(secrets->write(u"ensaio"_s, u"Ensaio"_s, u"antes"_s));
        QVERIFY(secrets->write(u"ensaio"_s, u"Ensaio"_s, secret));
        QCOMPARE(secrets->read(u"ensaio"_s), secret);
        secrets->remove(u"ensaio"_s);
        QCOMPARE(secrets->read(u"ensaio"_s), std::nullopt);
        secrets->remove(u"ensaio"_s); // none is no failure
    }

    void there_is_no_messenger()
    {
        const auto messenger = own_services::messenger();
        QCOMPARE(messenger->status(u"ana@x.example"_s), std::nullopt);
        QVERIFY(messenger->contacts().isEmpty());
        messenger->openConversation(u"ana@x.example"_s);
    }
};

QTEST_GUILESS_MAIN(TestOwnServices)
#include "test_OwnServices.moc"
