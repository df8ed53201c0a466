#include "store/postgres/ServerPulse.h"

#include "store/postgres/SocketWait.h"

#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

// The second connection. None of its steps waits.
class ServerPulse::Knock
{
public:
    enum class Stage { Comes, Asks, Answered, InVain };

    explicit Knock(int beside)
    {
        sockaddr_storage peer{};
        socklen_t size = sizeof peer;
        auto *address = reinterpret_cast<sockaddr *>(&peer);
        if (::getpeername(beside, address, &size) != 0) return;
        socket_ = ::socket(peer.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        if (socket_ < 0) return;
        const bool comes = ::connect(socket_, address, size) == 0 || errno == EINPROGRESS;
        stage_ = comes ? Stage::Comes : Stage::InVain;
    }
    ~Knock()
    {
        if (socket_ >= 0) ::close(socket_);
    }
    Knock(const Knock &) = delete;
    Knock &operator=(const Knock &) = delete;

    Stage stage() const { return stage_; }
    bool isOver() const { return stage_ == Stage::Answered || stage_ == Stage::InVain; }
    pollfd waited() const { return {socket_, static_cast<short>(stage_ == Stage::Comes ? POLLOUT : POLLIN), 0}; }

    // To be called when its socket is ready.
    void step() { stage_ = stage_ == Stage::Comes ? ask() : hear(); }

private:
    // Whether it speaks with a security service: any server answers, and one that is left there says nothing of it. Of
    // who asks for encryption and then leaves it would complain.
    Stage ask() const
    {
        constexpr std::array<unsigned char, 8> question{0, 0, 0, 8, 0x04, 0xd2, 0x16, 0x30};
        const ssize_t sent = ::send(socket_, question.data(), question.size(), MSG_NOSIGNAL);
        return sent == static_cast<ssize_t>(question.size()) ? Stage::Asks : Stage::InVain;
    }
    Stage hear() const
    {
        char answer = 0;
        return ::recv(socket_, &answer, 1, 0) == 1 ? Stage::Answered : Stage::InVain;
    }

    int socket_ = -1;
    Stage stage_ = Stage::InVain;
};

ServerPulse::ServerPulse(int socket) : socket_(socket) {}
ServerPulse::~ServerPulse() = default;

bool ServerPulse::ready(bool toWrite, const Deadline &deadline)
{
    for (;;) {
        const std::chrono::milliseconds left = deadline.left();
        if (left.count() == 0) return false;
        const bool mayAsk = deadline.asksForLife() && !knock_;
        const std::chrono::milliseconds untilAsking = mayAsk ? deadline.untilAsking() : left;
        if (untilAsking.count() == 0) {
            knock_ = std::make_unique<Knock>(socket_);
            continue;
        }
        std::array<pollfd, 2> sockets{pollfd{socket_, static_cast<short>(POLLIN | (toWrite ? POLLOUT : 0)), 0}, {-1, 0, 0}};
        if (knock_ && !knock_->isOver()) sockets[1] = knock_->waited();
        if (!anyReady(sockets, std::min(left, untilAsking))) continue;
        if (sockets[1].revents == 0 || sockets[0].revents != 0) return true;
        follow(deadline);
    }
}

void ServerPulse::follow(const Deadline &deadline)
{
    knock_->step();
    if (knock_->stage() != Knock::Stage::Answered) return;
    deadline.heard();
    knock_.reset();
}
