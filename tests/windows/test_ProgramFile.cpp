// What the system tells of the program's file without running it.
#include <QtTest>
#include <windows.h>

#include <shellapi.h> // knows nothing without what stands before it

using namespace Qt::StringLiterals;

class TestProgramFile : public QObject
{
    Q_OBJECT

    const std::wstring file_ =
        QDir::toNativeSeparators(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/morvex.exe"_s).toStdWString();

private Q_SLOTS:
    void it_names_the_program_and_its_version()
    {
        const DWORD size = GetFileVersionInfoSizeW(file_.c_str(), nullptr);
        QVERIFY(size > 0);
        QByteArray room(static_cast<qsizetype>(size), '\0');
        QVERIFY(GetFileVersionInfoW(file_.c_str(), 0, size, room.data()) != 0);
        const auto text = [&room](const wchar_t *name) {
            void *found = nullptr;
            UINT letters = 0;
            const std::wstring place = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
            return VerQueryValueW(room.constData(), place.c_str(), &found, &letters) != 0
                       ? QString::fromWCharArray(static_cast<const wchar_t *>(found))
                       : QString();
        };
        QCOMPARE(text(L"ProductName"), u"Morvex"_s);
        QCOMPARE(text(L"FileVersion"), QStringLiteral(MORVEX_VERSION));
        QCOMPARE(text(L"ProductVersion"), QStringLiteral(MORVEX_VERSION));
    }

    void it_has_one_icon()
    {
        QCOMPARE(ExtractIconExW(file_.c_str(), -1, nullptr, nullptr, 0), 1U);
        HICON large = nullptr;
        QCOMPARE(ExtractIconExW(file_.c_str(), 0, &large, nullptr, 1), 1U);
        QVERIFY(large != nullptr);
        DestroyIcon(large);
    }
};

QTEST_GUILESS_MAIN(TestProgramFile)
#include "test_ProgramFile.moc"
