#include "platform/EndSignals.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <QSocketNotifier>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{
constexpr std::array endSignals{SIGTERM, SIGINT, SIGHUP};

std::atomic<int> told{-1}; // the end of the pair that the handler writes to
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler must not wait");

// In here hardly anything is allowed; all else is done when the event loop reads the byte.
extern "C" void tellOfSignal(int)
{
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(told, &byte, sizeof byte);
    errno = before;
}
} // namespace

class EndSignals::Taken
{
public:
    explicit Taken(std::function<void()> ending) : ending_(std::move(ending))
    {
        if (::socketpair(AF_UNIX, SOCK_STREAM, 0, pair_.data()) != 0) return;
        for (const int end : pair_) {
            ::fcntl(end, F_SETFD, FD_CLOEXEC);
            ::fcntl(end, F_SETFL, O_NONBLOCK);
        }
        told = pair_[0];
        notifier_ = std::make_unique<QSocketNotifier>(pair_[1], QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
            std::array<char, 16> bytes{};
            while (::read(pair_[1], bytes.data(), bytes.size()) > 0) {
            }
            ending_();
        });
        for (const int number : endSignals)
            takeOver(number);
    }
    ~Taken()
    {
        if (notifier_ == nullptr) return;
        for (const auto &[number, before] : taken_)
            ::sigaction(number, &before, nullptr);
        told = -1;
        notifier_.reset();
        for (const int end : pair_)
            ::close(end);
    }
    Taken(const Taken &) = delete;
    Taken &operator=(const Taken &) = delete;

private:
    // The handler serves once: the second time the signal does what it does to any process.
    void takeOver(int number)
    {
        struct sigaction before = {};
        if (::sigaction(number, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) return;
        struct sigaction action = {};
        action.sa_handler = tellOfSignal;
        action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        sigemptyset(&action.sa_mask);
        if (::sigaction(number, &action, nullptr) == 0) taken_.emplace_back(number, before);
    }

    std::function<void()> ending_;
    std::array<int, 2> pair_{-1, -1};
    std::vector<std::pair<int, struct sigaction>> taken_; // with what was done about them before
    std::unique_ptr<QSocketNotifier> notifier_;
};

EndSignals::EndSignals(std::function<void()> ending) : taken_(std::make_unique<Taken>(std::move(ending))) {}
EndSignals::~EndSignals() = default;
