// Which of the toolkit's platforms the program asks for.
#include "platform/OwnServices.h"
#include "testlib/Teste.h"

class TestChooseDesktop : public QObject
{
    Q_OBJECT

    const QByteArray before_ = qgetenv("QT_QPA_PLATFORM");

private Q_SLOTS:
    void cleanup() { qputenv("QT_QPA_PLATFORM", before_); }

    // Notes stay where they were put, and a notice rises in its corner: only there may a program say where.
    void the_one_on_which_windows_have_places_comes_first()
    {
        qunsetenv("QT_QPA_PLATFORM");
        own_services::chooseDesktop();
        QCOMPARE(qgetenv("QT_QPA_PLATFORM"), QByteArray("xcb;wayland"));
    }

    void what_a_person_has_chosen_stays()
    {
        for (const QByteArray &chosen : {QByteArray("wayland"), QByteArray("offscreen")}) {
            qputenv("QT_QPA_PLATFORM", chosen);
            own_services::chooseDesktop();
            QCOMPARE(qgetenv("QT_QPA_PLATFORM"), chosen);
        }
    }
};

QTEST_APPLESS_MAIN(TestChooseDesktop)
#include "test_ChooseDesktop.moc"
