// As the system's settings keep it for programs.
#include "platform/ColourScheme.h"
#include "platform/DarkFrames.h"
#include "platform/WindowsRegistry.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <string_view>
#include <windows.h>

using namespace Qt::StringLiterals;

namespace
{
bool isDark()
{
    constexpr auto key = "Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"_L1;
    return WindowsRegistry().readString(Registry::Root::CurrentUser, key, u"AppsUseLightTheme"_s) == u'0';
}

// The system tells every window that a setting has changed, and names it.
bool tellsOfColours(const MSG &message)
{
    if (message.message != WM_SETTINGCHANGE || message.lParam == 0) return false;
    return std::wstring_view(reinterpret_cast<const wchar_t *>(message.lParam)) == L"ImmersiveColorSet";
}
} // namespace

class ThemeSetting final : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    ThemeSetting() { qApp->installNativeEventFilter(this); }

    Q_SLOT void tell()
    {
        const bool dark = isDark();
        frames_.setDark(dark);
        Q_EMIT darkTold(dark);
    }

Q_SIGNALS:
    void darkTold(bool dark);

private:
    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override
    {
        if (tellsOfColours(*static_cast<const MSG *>(message)))
            QMetaObject::invokeMethod(this, &ThemeSetting::tell, Qt::QueuedConnection);
        return false;
    }

    DarkFrames frames_;
};

// The toolkit finds colours there always. They matter to whoever chose great contrast.
bool ColourScheme::wantsOwnColours(bool)
{
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    const bool told = SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0;
    return !told || (contrast.dwFlags & HCF_HIGHCONTRASTON) == 0;
}

void ColourScheme::watch()
{
    auto setting = std::make_unique<ThemeSetting>();
    connect(setting.get(), &ThemeSetting::darkTold, this, &ColourScheme::darkTold);
    QMetaObject::invokeMethod(setting.get(), &ThemeSetting::tell, Qt::QueuedConnection);
    setting_ = std::move(setting);
}

#include "ColourScheme_windows.moc"
