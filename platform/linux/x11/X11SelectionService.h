#pragma once

#include "platform/Pasteboard.h"

#include <QByteArray>

#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace vantro {

/// What password managers offer beside a password, for clipboard histories to leave it out.
inline constexpr char secretHint[] = "x-kde-passwordManagerHint";
inline constexpr char secretHintValue[] = "secret";

/// Whether two windows (or other resources) belong to the same connection, i.e. share its ID prefix.
bool sameClient(xcb_connection_t* connection, std::uint32_t left, std::uint32_t right);

/// What a program offered as a selection.
struct SelectionContents final : Pasteboard::Contents
{
    struct Format
    {
        xcb_atom_t target = XCB_NONE;
        xcb_atom_t type = XCB_NONE;
        std::uint8_t itemBits = 8;
        QByteArray bytes;
    };

    xcb_window_t owner = XCB_NONE;
    QByteArray since; ///< the owner's time stamp; empty if it does not tell
    std::vector<Format> formats;

    [[nodiscard]] const Format* find(xcb_atom_t target) const
    {
        const auto found = std::ranges::find(formats, target, &Format::target);
        return found != formats.end() ? &*found : nullptr;
    }
};

/// Owns and reads X selections on a thread of its own (see the Inter-Client Communication Conventions Manual, section
/// 2). Public functions may be called from any other thread and block until it is done: a foreign program can delay
/// that by half a second of silence, and by two seconds in total.
class X11SelectionService
{
public:
    using Selection = Pasteboard::Selection;
    enum class Privacy { open, secret };

    explicit X11SelectionService(const QByteArray& displayName);
    ~X11SelectionService();
    X11SelectionService(const X11SelectionService&) = delete;
    X11SelectionService& operator=(const X11SelectionService&) = delete;

    /// UTF-8; nullopt if the selection has no owner, or the owner has no text or does not answer.
    [[nodiscard]] std::optional<QByteArray> read(Selection selection);
    void own(Selection selection, const QByteArray& utf8, Privacy privacy);
    /// Replaces the contents of the selection by what another program offered once.
    void own(Selection selection, std::shared_ptr<const SelectionContents> contents);
    /// Fetches in the background what the owner offers, for contents().
    void fetchContents(Selection selection);
    /// What the owner offers now; fetched again if it has changed since fetchContents(). Waits 300 ms at most.
    [[nodiscard]] std::shared_ptr<const SelectionContents> contents(Selection selection);
    /// Whether the owner, this program or another, marks its text as a secret.
    [[nodiscard]] bool isSecret(Selection selection);
    [[nodiscard]] bool isOwner(Selection selection);
    void disown(Selection selection);
    /// The window that owns the selection, in any program.
    [[nodiscard]] std::optional<WindowID> ownerOf(Selection selection);
    /// Whether a program has fetched the owned text: any, or the one that owns @p window.
    [[nodiscard]] bool wasFetchedBy(Selection selection, std::optional<WindowID> window);
    [[nodiscard]] bool isSameProgram(WindowID one, WindowID other) const;

private:
    using Clock = std::chrono::steady_clock;
    /// How long another program or the server may stay silent.
    static constexpr std::chrono::milliseconds silenceLimit{500};

    struct Connection
    {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    struct Owned
    {
        QByteArray utf8;
        Privacy privacy = Privacy::open;
        xcb_timestamp_t since = XCB_CURRENT_TIME;
        std::vector<xcb_window_t> fetchedBy;
        std::shared_ptr<const SelectionContents> contents; ///< served instead of the text, unless null
    };
    /// An INCR transfer: a long text sent in chunks as the other program deletes the property.
    struct Transfer
    {
        xcb_window_t requestor = XCB_NONE;
        xcb_atom_t property = XCB_NONE;
        xcb_atom_t type = XCB_NONE;
        std::uint8_t itemBits = 8;
        QByteArray rest;
        Clock::time_point lastMoved;
    };
    struct Work
    {
        std::function<void()> action;
        std::promise<bool> done;
    };
    enum Atom {
        Clipboard,
        ClipboardManager,
        Delete,
        Incr,
        InsertProperty,
        InsertSelection,
        Multiple,
        Primary,
        SaveTargets,
        Scratch,
        SecretHint,
        Targets,
        Text,
        TextPlain,
        TextPlainUtf8,
        Timestamp,
        Utf8String,
        AtomCount
    };

    /// Runs @p action on the thread and waits for it. Returns false without a server.
    bool onThread(std::function<void()> action);
    void enqueue(Work work);
    void run();
    void runWork();
    void internAtoms();
    /// Handles events until @p done (returns true) or @p deadline (returns false).
    bool pumpUntil(const std::function<bool()>& done, std::optional<Clock::time_point> deadline);
    void handle(const xcb_generic_event_t& event);

    void answer(const xcb_selection_request_event_t& request);
    bool give(Owned& mine, xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    bool giveMultiple(Owned& mine, xcb_window_t requestor, xcb_atom_t property);
    void put(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type, const QByteArray& bytes,
             std::uint8_t itemBits = 8);
    void continueTransfer(const xcb_property_notify_event_t& event);
    using Format = SelectionContents::Format;

    [[nodiscard]] std::optional<QByteArray> fetch(xcb_atom_t selection, xcb_atom_t target, Clock::time_point giveUp);
    /// Of any type, @p maxBytes at most.
    [[nodiscard]] std::optional<Format> fetchFormat(xcb_atom_t selection, xcb_atom_t target, Clock::time_point giveUp,
                                                    qsizetype maxBytes);
    [[nodiscard]] std::optional<Format> takeProperty();
    void claim(Selection selection, Owned owned);
    [[nodiscard]] xcb_window_t currentOwner(Selection selection);
    [[nodiscard]] std::shared_ptr<const SelectionContents> fetchAll(Selection selection, Clock::duration patience);
    [[nodiscard]] bool isStill(Selection selection, const SelectionContents& contents);
    [[nodiscard]] QByteArray fetchTimestamp(Selection selection, Clock::time_point giveUp);
    [[nodiscard]] bool isContent(xcb_atom_t target) const;
    [[nodiscard]] QString nameOf(xcb_atom_t atom);
    [[nodiscard]] xcb_timestamp_t serverTime();
    void leaveToManager();

    [[nodiscard]] xcb_atom_t atomOf(Selection selection) const;
    [[nodiscard]] static std::size_t indexOf(Selection selection);
    void lose(std::optional<Owned>& mine);
    [[nodiscard]] std::optional<Owned>& owned(Selection selection);
    [[nodiscard]] std::optional<Owned>* owned(xcb_atom_t selection);
    [[nodiscard]] std::vector<xcb_atom_t> textTargets() const;
    /// textTargets(), and what else there is to say of the text.
    [[nodiscard]] std::vector<xcb_atom_t> targetsOf(const Owned& mine) const;

    std::unique_ptr<xcb_connection_t, Connection> connection_;
    xcb_window_t window_ = XCB_NONE;
    std::size_t maxPropertyBytes_ = 0;
    std::array<xcb_atom_t, AtomCount> atoms_{};

    // Used only on the thread once it runs.
    std::array<std::optional<Owned>, 2> owned_;
    std::array<std::optional<Owned>, 2> lost_; ///< without their texts
    std::array<std::shared_ptr<const SelectionContents>, 2> fetched_;
    std::vector<Transfer> transfers_;
    std::optional<xcb_selection_notify_event_t> notify_;
    bool propertyArrived_ = false;
    std::optional<xcb_timestamp_t> time_;
    bool ending_ = false;

    std::mutex mutex_;
    std::vector<Work> work_;
    bool closed_ = false;
    int wakeFd_ = -1;
    std::thread thread_;
};

} // namespace vantro
