// The part of X11SelectionService that keeps what another program offers, in all its formats.
#include "base/Logger.h"
#include "platform/linux/x11/X11SelectionService.h"

#include <QStringList>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto backgroundPatience = 1000ms;
constexpr auto patience = 300ms;
constexpr qsizetype mostBytes = qsizetype{32} * 1024 * 1024;

} // namespace

void X11SelectionService::fetchContents(Selection selection)
{
    enqueue({[this, selection] {
                 fetched_[selection == Selection::Clipboard ? 0 : 1] = fetchAll(selection, backgroundPatience);
             },
             {}});
}

std::shared_ptr<const SelectionContents> X11SelectionService::contents(Selection selection)
{
    std::shared_ptr<const SelectionContents> result;
    onThread([&] {
        if (const auto& mine = owned(selection)) {
            result = mine->contents;
            return;
        }
        result = std::exchange(fetched_[selection == Selection::Clipboard ? 0 : 1], nullptr);
        if (!result || !isStill(selection, *result))
            result = fetchAll(selection, patience);
    });
    return result && !result->formats.empty() ? result : nullptr;
}

bool X11SelectionService::isStill(Selection selection, const SelectionContents& contents)
{
    if (currentOwner(selection) != contents.owner)
        return false;
    if (contents.formats.empty()) // an owner that has not answered all the while is not waited for once more
        return true;
    return !contents.since.isEmpty() && fetchTimestamp(selection, Clock::now() + patience) == contents.since;
}

QByteArray X11SelectionService::fetchTimestamp(Selection selection, Clock::time_point giveUp)
{
    const auto time = fetchFormat(atomOf(selection), atoms_[Timestamp], giveUp, mostBytes);
    return time ? time->bytes : QByteArray();
}

/// Targets that are requests rather than contents: some would change the owner's document.
bool X11SelectionService::isContent(xcb_atom_t target) const
{
    constexpr std::array requests{Delete, InsertProperty, InsertSelection, Multiple, SaveTargets, Targets, Timestamp};
    return target != XCB_NONE &&
           std::ranges::none_of(requests, [&](Atom request) { return atoms_[request] == target; });
}

std::shared_ptr<const SelectionContents> X11SelectionService::fetchAll(Selection selection, Clock::duration patience)
{
    const auto giveUp = Clock::now() + patience;
    auto result = std::make_shared<SelectionContents>();
    result->owner = currentOwner(selection);
    const auto offered = fetchFormat(atomOf(selection), atoms_[Targets], giveUp, mostBytes);
    if (!offered || offered->itemBits != 32)
        return result;
    result->since = fetchTimestamp(selection, giveUp);
    std::vector<xcb_atom_t> targets(static_cast<std::size_t>(offered->bytes.size()) / sizeof(xcb_atom_t));
    std::memcpy(targets.data(), offered->bytes.constData(), targets.size() * sizeof(xcb_atom_t));
    qsizetype left = mostBytes;
    QStringList missing;
    for (const xcb_atom_t target : targets) {
        if (!isContent(target) || result->find(target) != nullptr)
            continue;
        if (auto format = fetchFormat(atomOf(selection), target, giveUp, left)) {
            left -= format->bytes.size();
            result->formats.push_back(std::move(*format));
        } else {
            missing << nameOf(target);
        }
    }
    if (!missing.isEmpty())
        Logger("X11Pasteboard")
            .info(QStringLiteral("Formats of the clipboard that will not come back, because they are too large or do "
                                 "not come in time: %1")
                      .arg(missing.join(QStringLiteral(", "))));
    return result;
}

QString X11SelectionService::nameOf(xcb_atom_t atom)
{
    const std::unique_ptr<xcb_get_atom_name_reply_t, decltype(&std::free)> reply(
        xcb_get_atom_name_reply(connection_.get(), xcb_get_atom_name(connection_.get(), atom), nullptr), &std::free);
    return reply ? QString::fromLatin1(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()))
                 : QString::number(atom);
}

} // namespace vantro
