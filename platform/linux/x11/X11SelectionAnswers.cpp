// The part of X11SelectionService that serves the owned text to other programs.
#include "platform/linux/x11/X11SelectionService.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <span>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto transferLimit = 10s;
constexpr auto managerLimit = 500ms;

} // namespace

std::vector<xcb_atom_t> X11SelectionService::textTargets() const
{
    return {atoms_[Utf8String], atoms_[TextPlainUtf8], atoms_[TextPlain], atoms_[Text], XCB_ATOM_STRING};
}

std::vector<xcb_atom_t> X11SelectionService::targetsOf(const Owned& mine) const
{
    if (mine.contents) {
        std::vector<xcb_atom_t> all;
        std::ranges::transform(mine.contents->formats, std::back_inserter(all), &Format::target);
        return all;
    }
    auto result = textTargets();
    if (mine.privacy == Privacy::secret)
        result.push_back(atoms_[SecretHint]);
    return result;
}

void X11SelectionService::answer(const xcb_selection_request_event_t& request)
{
    // Pre-ICCCM programs leave the choice of the property to the owner.
    const xcb_atom_t property = request.property != XCB_NONE ? request.property : request.target;
    // Requests older than the text are answered too, because programs that have seen no event since then (Qt's) send an
    // old time.
    auto* const mine = owned(request.selection);
    bool given = mine != nullptr && mine->has_value();
    if (given)
        given = request.target == atoms_[Multiple] ? giveMultiple(**mine, request.requestor, property)
                                                   : give(**mine, request.requestor, request.target, property);

    union {
        xcb_selection_notify_event_t event;
        std::array<char, 32> wire;
    } notice{};
    notice.event.response_type = XCB_SELECTION_NOTIFY;
    notice.event.time = request.time;
    notice.event.requestor = request.requestor;
    notice.event.selection = request.selection;
    notice.event.target = request.target;
    notice.event.property = given ? property : static_cast<xcb_atom_t>(XCB_NONE);
    xcb_send_event(connection_.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, notice.wire.data());
    xcb_flush(connection_.get());
}

bool X11SelectionService::give(Owned& mine, xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property)
{
    if (target == atoms_[Targets]) {
        const auto texts = targetsOf(mine);
        std::vector<xcb_atom_t> all{atoms_[Targets], atoms_[Timestamp], atoms_[Multiple], atoms_[SaveTargets]};
        all.insert(all.end(), texts.begin(), texts.end());
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_ATOM, 32,
                            static_cast<std::uint32_t>(all.size()), all.data());
        return true;
    }
    if (target == atoms_[Timestamp]) {
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_INTEGER, 32, 1,
                            &mine.since);
        return true;
    }
    if (mine.contents) {
        const Format* const format = mine.contents->find(target);
        if (format != nullptr)
            put(requestor, property, format->type, format->bytes, format->itemBits);
        return format != nullptr;
    }
    if (target == atoms_[SecretHint] && mine.privacy == Privacy::secret) {
        put(requestor, property, target, secretHintValue);
        return true;
    }
    const auto texts = textTargets();
    if (std::ranges::find(texts, target) == texts.end())
        return false;
    mine.fetchedBy.push_back(requestor);
    if (target == XCB_ATOM_STRING)
        put(requestor, property, target, QString::fromUtf8(mine.utf8).toLatin1());
    else
        put(requestor, property, target == atoms_[Text] ? atoms_[Utf8String] : target, mine.utf8);
    return true;
}

/// The property lists pairs of target and property; unsupported ones are set to None.
bool X11SelectionService::giveMultiple(Owned& mine, xcb_window_t requestor, xcb_atom_t property)
{
    constexpr std::uint32_t maxAtoms = 256;
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(
            connection_.get(),
            xcb_get_property(connection_.get(), 0, requestor, property, XCB_GET_PROPERTY_TYPE_ANY, 0, maxAtoms),
            nullptr),
        &std::free);
    if (!reply || reply->format != 32)
        return false;
    const auto* const first = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    std::vector<xcb_atom_t> pairs(first, first + reply->value_len);
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        if (!give(mine, requestor, pairs[i], pairs[i + 1]))
            pairs[i + 1] = XCB_NONE;
    }
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, requestor, property, reply->type, 32,
                        static_cast<std::uint32_t>(pairs.size()), pairs.data());
    return true;
}

void X11SelectionService::put(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type, const QByteArray& bytes,
                              std::uint8_t itemBits)
{
    if (static_cast<std::size_t>(bytes.size()) <= maxPropertyBytes_) {
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, requestor, property, type, itemBits,
                            static_cast<std::uint32_t>(bytes.size() * 8 / itemBits), bytes.constData());
        return;
    }
    std::erase_if(transfers_, [](const Transfer& old) { return Clock::now() - old.lastMoved > transferLimit; });
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_.get(), requestor, XCB_CW_EVENT_MASK, &events);
    const auto atLeastBytes = static_cast<std::uint32_t>(bytes.size());
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, requestor, property, atoms_[Incr], 32, 1,
                        &atLeastBytes);
    transfers_.push_back({requestor, property, type, itemBits, bytes, Clock::now()});
}

void X11SelectionService::continueTransfer(const xcb_property_notify_event_t& event)
{
    const auto transfer = std::ranges::find_if(transfers_, [&](const Transfer& candidate) {
        return candidate.requestor == event.window && candidate.property == event.atom;
    });
    if (transfer == transfers_.end() || event.state != XCB_PROPERTY_DELETE)
        return;
    const QByteArray piece = transfer->rest.left(static_cast<qsizetype>(maxPropertyBytes_));
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, transfer->requestor, transfer->property,
                        transfer->type, transfer->itemBits,
                        static_cast<std::uint32_t>(piece.size() * 8 / transfer->itemBits), piece.constData());
    xcb_flush(connection_.get());
    // An empty piece marks the end.
    if (piece.isEmpty()) {
        transfers_.erase(transfer);
        return;
    }
    transfer->rest.remove(0, piece.size());
    transfer->lastMoved = Clock::now();
}

void X11SelectionService::leaveToManager()
{
    const auto manager = std::unique_ptr<xcb_get_selection_owner_reply_t, decltype(&std::free)>(
        xcb_get_selection_owner_reply(connection_.get(),
                                      xcb_get_selection_owner(connection_.get(), atoms_[ClipboardManager]), nullptr),
        &std::free);
    if (!owned(Selection::Clipboard) || !manager || manager->owner == XCB_NONE)
        return;
    const auto texts = targetsOf(*owned(Selection::Clipboard));
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window_, atoms_[Scratch], XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(texts.size()), texts.data());
    notify_.reset();
    xcb_convert_selection(connection_.get(), window_, atoms_[ClipboardManager], atoms_[SaveTargets], atoms_[Scratch],
                          owned(Selection::Clipboard)->since);
    pumpUntil([this] { return notify_ && notify_->selection == atoms_[ClipboardManager]; },
              Clock::now() + managerLimit);
}

} // namespace vantro
