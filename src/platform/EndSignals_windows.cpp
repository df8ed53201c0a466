#include "platform/EndSignals.h"

#include <QCoreApplication>
#include <QDir>
#include <windows.h>

namespace
{
constexpr auto className = L"MorvexEnd";

LRESULT CALLBACK handle(HWND window, UINT message, WPARAM word, LPARAM value)
{
    if (message != WM_CLOSE) return DefWindowProcW(window, message, word, value);
    const auto *ending = reinterpret_cast<std::function<void()> *>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (ending != nullptr) (*ending)();
    return 0;
}

HWND makeWindow()
{
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    kind.lpfnWndProc = &handle;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = className;
    RegisterClassExW(&kind); // fails where it was done before, which is as good
    const std::wstring folder =
        QDir::toNativeSeparators(QCoreApplication::applicationDirPath()).toStdWString();
    return CreateWindowExW(WS_EX_TOOLWINDOW, className, folder.c_str(), WS_POPUP, 0, 0, 0, 0, nullptr,
                           nullptr, kind.hInstance, nullptr);
}
} // namespace

class EndSignals::Taken
{
public:
    explicit Taken(std::function<void()> ending) : ending_(std::move(ending)), window_(makeWindow())
    {
        if (window_ != nullptr)
            SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&ending_));
    }
    ~Taken()
    {
        if (window_ != nullptr) DestroyWindow(window_);
    }
    Taken(const Taken &) = delete;
    Taken &operator=(const Taken &) = delete;

private:
    std::function<void()> ending_;
    HWND window_;
};

EndSignals::EndSignals(std::function<void()> ending) : taken_(std::make_unique<Taken>(std::move(ending))) {}
EndSignals::~EndSignals() = default;
