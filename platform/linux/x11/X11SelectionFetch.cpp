// The part of X11SelectionService that fetches one format from the program that offers it.
#include "platform/linux/x11/X11SelectionService.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>
#include <utility>

namespace vantro {

std::optional<QByteArray> X11SelectionService::fetch(xcb_atom_t selection, xcb_atom_t target, Clock::time_point giveUp)
{
    const auto format = fetchFormat(selection, target, giveUp, std::numeric_limits<qsizetype>::max());
    return format && format->type == target ? std::optional(format->bytes) : std::nullopt;
}

std::optional<X11SelectionService::Format>
X11SelectionService::fetchFormat(xcb_atom_t selection, xcb_atom_t target, Clock::time_point giveUp, qsizetype maxBytes)
{
    const auto limit = [&] {
        return std::min(giveUp, Clock::now() + silenceLimit);
    };
    const xcb_timestamp_t time = serverTime();
    notify_.reset();
    xcb_delete_property(connection_.get(), window_, atoms_[Scratch]);
    xcb_convert_selection(connection_.get(), window_, selection, target, atoms_[Scratch], time);
    const bool answered = pumpUntil(
        [&] {
            return notify_ && notify_->selection == selection && notify_->target == target && notify_->time == time;
        },
        limit());
    if (!answered || notify_->property == XCB_NONE)
        return std::nullopt;

    propertyArrived_ = false;
    auto whole = takeProperty();
    if (!whole)
        return std::nullopt;
    const bool isInPieces = whole->type == atoms_[Incr];
    if (isInPieces)
        whole->bytes.clear();
    for (bool isFirst = true; isInPieces; isFirst = false) {
        if (!pumpUntil([this] { return std::exchange(propertyArrived_, false); }, limit()))
            return std::nullopt;
        const auto piece = takeProperty();
        if (!piece || (!isFirst && piece->type != whole->type))
            return std::nullopt;
        whole->type = piece->type;
        whole->itemBits = piece->itemBits;
        if (piece->bytes.isEmpty())
            break;
        if (whole->bytes.size() + piece->bytes.size() > maxBytes)
            return std::nullopt;
        whole->bytes.append(piece->bytes);
    }
    whole->target = target;
    return whole->bytes.size() <= maxBytes ? whole : std::nullopt;
}

/// Deletes the property, which makes an INCR sender continue.
std::optional<X11SelectionService::Format> X11SelectionService::takeProperty()
{
    constexpr std::uint32_t everything = 0x1fffffff;
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(
            connection_.get(),
            xcb_get_property(connection_.get(), 1, window_, atoms_[Scratch], XCB_GET_PROPERTY_TYPE_ANY, 0, everything),
            nullptr),
        &std::free);
    if (!reply || reply->type == XCB_NONE)
        return std::nullopt;
    return Format{XCB_NONE, reply->type, reply->format,
                  QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                             xcb_get_property_value_length(reply.get()))};
}

} // namespace vantro
