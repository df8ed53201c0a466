// What the system tells of the program's file without running it.
#include <QDir>
#include <QTest>
#include <QXmlStreamReader>
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

    void it_asks_for_no_administrator_and_knows_of_screens_and_long_paths()
    {
        const HMODULE file = LoadLibraryExW(file_.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        const auto release = qScopeGuard([file] { FreeLibrary(file); });
        const HRSRC found = FindResourceW(file, CREATEPROCESS_MANIFEST_RESOURCE_ID, RT_MANIFEST);
        QVERIFY(found != nullptr);
        const auto *const text = static_cast<const char *>(LockResource(LoadResource(file, found)));
        QXmlStreamReader manifest(QByteArray(text, static_cast<qsizetype>(SizeofResource(file, found))));
        QStringList said;
        while (!manifest.atEnd()) {
            if (manifest.readNext() != QXmlStreamReader::StartElement) continue;
            const QString name = manifest.name().toString();
            if (name == "requestedExecutionLevel"_L1)
                said << name + u'=' + manifest.attributes().value("level"_L1).toString();
            else if (name.startsWith("dpiAware"_L1) || name == "longPathAware"_L1)
                said << name + u'=' + manifest.readElementText();
        }
        QVERIFY2(!manifest.hasError(), qPrintable(manifest.errorString()));
        QCOMPARE(said, (QStringList{u"requestedExecutionLevel=asInvoker"_s, u"dpiAware=true/pm"_s,
                                    u"dpiAwareness=PerMonitorV2"_s, u"longPathAware=true"_s}));
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
