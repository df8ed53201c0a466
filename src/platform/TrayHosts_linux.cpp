#include "platform/SessionBus.h"
#include "platform/TrayHostsWatch.h"

#include <cstdint>
#include <cstdlib>
#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <string_view>
#include <utility>
#include <xcb/xcb.h>

namespace
{
constexpr auto watcherName = "org.kde.StatusNotifierWatcher";
constexpr auto watcherPath = "/StatusNotifierWatcher";

QDBusMessage hostQuestion()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        QLatin1String(watcherName), QLatin1String(watcherPath),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setAutoStartService(false);
    question << QString(QLatin1String(watcherName)) << QStringLiteral("IsStatusNotifierHostRegistered");
    return question;
}

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};

template<class Reply> std::unique_ptr<Reply, FreeReply> owned(Reply *reply)
{
    return std::unique_ptr<Reply, FreeReply>(reply);
}

// Null on a screen of another kind.
xcb_connection_t *xConnection()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t atomOf(xcb_connection_t *connection, std::string_view name)
{
    const auto question =
        xcb_intern_atom(connection, false, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = owned(xcb_intern_atom_reply(connection, question, nullptr));
    return reply == nullptr ? xcb_atom_t(XCB_ATOM_NONE) : reply->atom;
}
class DesktopWatch final : public QObject, public TrayHostsWatch, private QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    explicit DesktopWatch(std::function<void()> changed) : changed_(std::move(changed)) {}

    void begin() override
    {
        watchSelection();
        watchBus();
    }
    bool onSelection() const override { return owner_ != 0; }
    bool onBus() const override { return onBus_; }

private:
    Q_SLOT void askBus();
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    void watchSelection();
    void lookAtSelection();
    void watchBus();
    void busAnswered(const QDBusMessage &reply);

    std::function<void()> changed_;
    std::uint32_t selection_ = 0; // the two names, as the X server knows them
    std::uint32_t manager_ = 0;
    std::uint32_t owner_ = 0; // the window that holds the selection; 0: none
    bool onBus_ = false;
    int lastQuestion_ = 0; // an answer to an earlier one is out of date
};

void DesktopWatch::watchSelection()
{
    xcb_connection_t *connection = xConnection();
    if (connection == nullptr) return;
    selection_ = atomOf(connection, "_NET_SYSTEM_TRAY_S0");
    manager_ = atomOf(connection, "MANAGER");
    if (selection_ == XCB_ATOM_NONE) return;
    qGuiApp->installNativeEventFilter(this);
    lookAtSelection();
}

// A new owner tells everybody so, and the end of its window is told to whom wants to know. The toolkit
// listens to the root window already.
bool DesktopWatch::nativeEventFilter(const QByteArray &type, void *message, qintptr *)
{
    if (type != "xcb_generic_event_t") return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const int kind = event->response_type & 0x7f; // without the mark of an event that was sent
    bool matters = false;
    if (kind == XCB_CLIENT_MESSAGE) {
        const auto *told = static_cast<const xcb_client_message_event_t *>(message);
        matters = told->type == manager_ && told->data.data32[1] == selection_;
    } else if (kind == XCB_DESTROY_NOTIFY) {
        matters = owner_ != 0 && static_cast<const xcb_destroy_notify_event_t *>(message)->window == owner_;
    }
    // Behind the toolkit's own handling, which lets go of the old host or takes to the new one.
    if (matters) QMetaObject::invokeMethod(this, &DesktopWatch::lookAtSelection, Qt::QueuedConnection);
    return false;
}

void DesktopWatch::lookAtSelection()
{
    xcb_connection_t *connection = xConnection();
    const auto reply = owned(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection_), nullptr));
    std::uint32_t owner = reply == nullptr ? 0 : reply->owner;
    if (owner != 0) {
        constexpr std::uint32_t wanted = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        const auto request =
            xcb_change_window_attributes_checked(connection, owner, XCB_CW_EVENT_MASK, &wanted);
        if (owned(xcb_request_check(connection, request)) != nullptr) owner = 0; // gone meanwhile
    }
    if (std::exchange(owner_, owner) != owner) changed_();
}

// The names stand open for every sender: to bind one to the watcher, the toolkit would ask the bus and wait.
void DesktopWatch::watchBus()
{
    if (!sessionBusIsThere()) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    auto *owners = new QDBusServiceWatcher(QLatin1String(watcherName), bus,
                                           QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owners, &QDBusServiceWatcher::serviceOwnerChanged, this, &DesktopWatch::askBus);
    for (const auto &news :
         {QStringLiteral("StatusNotifierHostRegistered"), QStringLiteral("StatusNotifierHostUnregistered")})
        bus.connect(QString(), QLatin1String(watcherPath), QLatin1String(watcherName), news, this,
                    SLOT(askBus()));
    constexpr int patience = 250; // ms: a watcher that hangs must not stop the window
    const QDBusMessage reply = bus.call(hostQuestion(), QDBus::Block, patience);
    busAnswered(reply);
    if (reply.errorName() == QDBusError::errorString(QDBusError::NoReply)) askBus(); // it may just be slow
}

void DesktopWatch::askBus()
{
    const int number = ++lastQuestion_;
    auto *answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(hostQuestion()), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, number] {
        answer->deleteLater();
        if (number == lastQuestion_) busAnswered(answer->reply());
    });
}

void DesktopWatch::busAnswered(const QDBusMessage &reply)
{
    const bool there = reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty() &&
                       reply.arguments().constFirst().value<QDBusVariant>().variant().toBool();
    if (std::exchange(onBus_, there) != there) changed_();
}
} // namespace

std::unique_ptr<TrayHostsWatch> TrayHostsWatch::ofThisSystem(std::function<void()> changed)
{
    return std::make_unique<DesktopWatch>(std::move(changed));
}

#include "TrayHosts_linux.moc"
