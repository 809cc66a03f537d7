#include "platform/linux/x11/X11SelectionService.h"

#include "base/Logger.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto readLimit = 2000ms;
constexpr std::size_t maxPropertyBytes = std::size_t{1024} * 1024;

struct Freed
{
    void operator()(void* data) const { std::free(data); }
};
template <typename Reply>
using Owner = std::unique_ptr<Reply, Freed>;

template <typename Reply>
Owner<Reply> owner(Reply* reply)
{
    return Owner<Reply>(reply);
}

bool isEarlier(xcb_timestamp_t left, xcb_timestamp_t right)
{
    return static_cast<std::int32_t>(left - right) < 0;
}

template <typename Event>
const Event& as(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&>(event);
}

} // namespace

bool sameClient(xcb_connection_t* connection, std::uint32_t left, std::uint32_t right)
{
    const std::uint32_t client = ~xcb_get_setup(connection)->resource_id_mask;
    return (left & client) == (right & client);
}

X11SelectionService::X11SelectionService(const QByteArray& displayName)
{
    int screenNumber = 0;
    connection_.reset(xcb_connect(displayName.isEmpty() ? nullptr : displayName.constData(), &screenNumber));
    wakeFd_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (xcb_connection_has_error(connection_.get()) != 0 || wakeFd_ < 0) {
        closed_ = true;
        return;
    }
    xcb_screen_iterator_t screen = xcb_setup_roots_iterator(xcb_get_setup(connection_.get()));
    for (; screenNumber > 0; --screenNumber)
        xcb_screen_next(&screen);
    window_ = xcb_generate_id(connection_.get());
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window_, screen.data->root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    internAtoms();
    maxPropertyBytes_ = std::min<std::size_t>(maxPropertyBytes,
                                              4 * std::size_t{xcb_get_maximum_request_length(connection_.get())} - 64);
    thread_ = std::thread([this] { run(); });
}

X11SelectionService::~X11SelectionService()
{
    onThread([this] {
        leaveToManager();
        ending_ = true;
    });
    if (thread_.joinable())
        thread_.join();
    ::close(wakeFd_);
}

void X11SelectionService::internAtoms()
{
    constexpr std::array<const char*, AtomCount> names{
        "CLIPBOARD",        "CLIPBOARD_MANAGER", "DELETE",  "INCR",         "INSERT_PROPERTY",
        "INSERT_SELECTION", "MULTIPLE",          "PRIMARY", "SAVE_TARGETS", "VANTRO_SELECTION",
        secretHint,         "TARGETS",           "TEXT",    "text/plain",   "text/plain;charset=utf-8",
        "TIMESTAMP",        "UTF8_STRING"};
    std::array<xcb_intern_atom_cookie_t, AtomCount> cookies{};
    std::ranges::transform(names, cookies.begin(), [this](const char* name) {
        return xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    });
    std::ranges::transform(cookies, atoms_.begin(), [this](xcb_intern_atom_cookie_t cookie) {
        const auto reply = owner(xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
        return reply ? reply->atom : XCB_NONE;
    });
}

bool X11SelectionService::onThread(std::function<void()> action)
{
    std::promise<bool> done;
    std::future<bool> result = done.get_future();
    enqueue({std::move(action), std::move(done)});
    return result.get();
}

void X11SelectionService::enqueue(Work work)
{
    {
        const std::scoped_lock lock(mutex_);
        if (closed_) {
            work.done.set_value(false);
            return;
        }
        work_.push_back(std::move(work));
    }
    const std::uint64_t one = 1;
    std::ignore = ::write(wakeFd_, &one, sizeof one);
}

void X11SelectionService::run()
{
    pumpUntil(
        [this] {
            runWork();
            return ending_;
        },
        std::nullopt);
    const std::scoped_lock lock(mutex_);
    closed_ = true;
    for (Work& work : work_)
        work.done.set_value(false);
    work_.clear();
}

void X11SelectionService::runWork()
{
    std::vector<Work> current;
    {
        const std::scoped_lock lock(mutex_);
        current.swap(work_);
    }
    for (Work& work : current) {
        work.action();
        work.done.set_value(true);
    }
}

bool X11SelectionService::pumpUntil(const std::function<bool()>& done, std::optional<Clock::time_point> deadline)
{
    while (true) {
        while (const auto event = owner(xcb_poll_for_event(connection_.get())))
            handle(*event);
        if (done())
            return true;
        if (xcb_connection_has_error(connection_.get()) != 0)
            return false;
        xcb_flush(connection_.get());
        int timeoutMs = -1;
        if (deadline) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - Clock::now());
            if (left <= 0ms)
                return false;
            timeoutMs = static_cast<int>(left.count());
        }
        // Requests in done() may have queued events along with their replies.
        if (const auto event = owner(xcb_poll_for_queued_event(connection_.get()))) {
            handle(*event);
            continue;
        }
        std::array<pollfd, 2> sources{pollfd{xcb_get_file_descriptor(connection_.get()), POLLIN, 0},
                                      pollfd{wakeFd_, POLLIN, 0}};
        // With a deadline, new work has to wait, so leave its wake-up in the eventfd.
        poll(sources.data(), deadline ? 1 : 2, timeoutMs);
        std::uint64_t count = 0;
        if (!deadline)
            std::ignore = ::read(wakeFd_, &count, sizeof count);
    }
}

void X11SelectionService::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7f) {
    case XCB_SELECTION_REQUEST:
        answer(as<xcb_selection_request_event_t>(event));
        break;
    case XCB_SELECTION_CLEAR: {
        const auto& cleared = as<xcb_selection_clear_event_t>(event);
        if (auto* const mine = owned(cleared.selection);
            mine != nullptr && *mine && !isEarlier(cleared.time, (*mine)->since))
            lose(*mine);
        break;
    }
    case XCB_SELECTION_NOTIFY:
        notify_ = as<xcb_selection_notify_event_t>(event);
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& changed = as<xcb_property_notify_event_t>(event);
        if (changed.window != window_)
            continueTransfer(changed);
        else if (changed.atom == atoms_[Timestamp])
            time_ = changed.time;
        else if (changed.atom == atoms_[Scratch] && changed.state == XCB_PROPERTY_NEW_VALUE)
            propertyArrived_ = true;
        break;
    }
    default:
        // Includes errors, e.g. for windows of programs that have exited.
        break;
    }
}

std::optional<QByteArray> X11SelectionService::read(Selection selection)
{
    std::optional<QByteArray> result;
    onThread([&] {
        if (const auto& mine = owned(selection)) {
            if (!mine->contents || mine->contents->find(atoms_[Utf8String]) != nullptr)
                result = mine->utf8;
            return;
        }
        const auto begin = Clock::now();
        const auto giveUp = begin + readLimit;
        result = fetch(atomOf(selection), atoms_[Utf8String], giveUp);
        if (!result) {
            if (const auto latin1 = fetch(atomOf(selection), XCB_ATOM_STRING, giveUp))
                result = QString::fromLatin1(*latin1).toUtf8();
        }
        if (!result && Clock::now() - begin >= silenceLimit)
            Logger("X11Pasteboard")
                .error(QStringLiteral("The program that owns what is copied is too slow: it was not read"));
    });
    return result;
}

bool X11SelectionService::isSecret(Selection selection)
{
    bool result = false;
    onThread([&] {
        result = owned(selection)
                     ? owned(selection)->privacy == Privacy::secret
                     : fetch(atomOf(selection), atoms_[SecretHint], Clock::now() + silenceLimit) == secretHintValue;
    });
    return result;
}

bool X11SelectionService::isOwner(Selection selection)
{
    bool result = false;
    onThread([&] { result = owned(selection).has_value(); });
    return result;
}

void X11SelectionService::own(Selection selection, const QByteArray& utf8, Privacy privacy)
{
    onThread([&] { claim(selection, Owned{utf8, privacy, serverTime(), {}, nullptr}); });
}

void X11SelectionService::own(Selection selection, std::shared_ptr<const SelectionContents> contents)
{
    if (!contents)
        return;
    onThread([&] {
        const auto* const text = contents->find(atoms_[Utf8String]);
        const auto* const hint = contents->find(atoms_[SecretHint]);
        const bool isSecret = hint != nullptr && hint->bytes == secretHintValue;
        claim(selection, Owned{text != nullptr ? text->bytes : QByteArray(),
                               isSecret ? Privacy::secret : Privacy::open,
                               serverTime(),
                               {},
                               contents});
    });
}

void X11SelectionService::claim(Selection selection, Owned content)
{
    lost_[indexOf(selection)].reset();
    owned(selection) = std::move(content);
    xcb_set_selection_owner(connection_.get(), window_, atomOf(selection), owned(selection)->since);
    if (currentOwner(selection) == window_)
        return;
    owned(selection).reset();
    Logger("X11Pasteboard").error(QStringLiteral("The X server did not grant clipboard ownership"));
}

xcb_window_t X11SelectionService::currentOwner(Selection selection)
{
    const auto reply = owner(xcb_get_selection_owner_reply(
        connection_.get(), xcb_get_selection_owner(connection_.get(), atomOf(selection)), nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
}

void X11SelectionService::disown(Selection selection)
{
    onThread([&] {
        owned(selection).reset();
        xcb_set_selection_owner(connection_.get(), XCB_NONE, atomOf(selection), serverTime());
        std::ignore = currentOwner(selection); // a round trip, so that later queries on any connection find no owner
    });
}

std::optional<WindowID> X11SelectionService::ownerOf(Selection selection)
{
    std::optional<WindowID> result;
    onThread([&] {
        if (const xcb_window_t present = currentOwner(selection); present != XCB_NONE)
            result = present;
    });
    return result;
}

bool X11SelectionService::wasFetchedBy(Selection selection, std::optional<WindowID> window)
{
    bool result = false;
    onThread([&] {
        const auto& mine = owned(selection) ? owned(selection) : lost_[indexOf(selection)];
        if (!mine)
            return;
        result = std::ranges::any_of(mine->fetchedBy, [&](xcb_window_t requestor) {
            return !window || sameClient(connection_.get(), requestor, static_cast<xcb_window_t>(*window));
        });
    });
    return result;
}

bool X11SelectionService::isSameProgram(WindowID one, WindowID other) const
{
    const bool hadServer = thread_.joinable();
    return hadServer && sameClient(connection_.get(), static_cast<xcb_window_t>(one), static_cast<xcb_window_t>(other));
}

/// The server's clock can only be read from the timestamp of a property change.
xcb_timestamp_t X11SelectionService::serverTime()
{
    time_.reset();
    xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, window_, atoms_[Timestamp], XCB_ATOM_INTEGER, 32, 0,
                        nullptr);
    pumpUntil([this] { return time_.has_value(); }, Clock::now() + silenceLimit);
    return time_.value_or(XCB_CURRENT_TIME);
}

xcb_atom_t X11SelectionService::atomOf(Selection selection) const
{
    return atoms_[selection == Selection::Clipboard ? Clipboard : Primary];
}

std::size_t X11SelectionService::indexOf(Selection selection)
{
    return selection == Selection::Clipboard ? 0 : 1;
}

std::optional<X11SelectionService::Owned>& X11SelectionService::owned(Selection selection)
{
    return owned_[indexOf(selection)];
}

/// Another program has copied something. Who fetched our text before that is still asked for.
void X11SelectionService::lose(std::optional<Owned>& mine)
{
    auto& lost = lost_[static_cast<std::size_t>(&mine - owned_.data())];
    lost = Owned{};
    lost->fetchedBy = std::move(mine->fetchedBy);
    mine.reset();
}

std::optional<X11SelectionService::Owned>* X11SelectionService::owned(xcb_atom_t selection)
{
    if (selection == atoms_[Clipboard])
        return &owned(Selection::Clipboard);
    if (selection == atoms_[Primary])
        return &owned(Selection::Primary);
    return nullptr;
}

} // namespace vantro
