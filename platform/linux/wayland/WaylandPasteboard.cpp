#include "platform/linux/wayland/WaylandPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <array>

namespace vantro {

namespace {

QClipboard::Mode modeOf(Pasteboard::Selection selection)
{
    return selection == Pasteboard::Selection::Clipboard ? QClipboard::Clipboard : QClipboard::Selection;
}

/// Whether Qt owns the selection, after copying from one of our fields: it answers on the main thread, so waiting there
/// would deadlock.
bool isQts(Pasteboard::Selection selection)
{
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    return selection == Pasteboard::Selection::Clipboard ? clipboard.ownsClipboard() : clipboard.ownsSelection();
}

std::shared_ptr<ClipboardContents> contentsOf(const QString& text)
{
    auto result = std::make_shared<ClipboardContents>();
    for (const char* const type : {"text/plain;charset=utf-8", "text/plain", "UTF8_STRING", "STRING", "TEXT"})
        result->formats.push_back({type, text.toUtf8()});
    return result;
}

} // namespace

std::optional<QString> WaylandPasteboard::string(Selection selection) const
{
    if (isQts(selection)) {
        const QString text = QGuiApplication::clipboard()->text(modeOf(selection));
        return text.isNull() ? std::nullopt : std::optional(text);
    }
    const auto text = service_.text(selection);
    return text ? std::optional(QString::fromUtf8(*text)) : std::nullopt;
}

void WaylandPasteboard::setString(Selection selection, const QString& text)
{
    service_.own(selection, contentsOf(text));
}

void WaylandPasteboard::setSecret(Selection selection, const QString& text)
{
    auto contents = contentsOf(text);
    contents->formats.push_back({secretType, secretValue});
    service_.own(selection, std::move(contents));
}

bool WaylandPasteboard::isSecret(Selection selection) const
{
    if (!isQts(selection))
        return service_.isSecret(selection);
    const QMimeData* const copied = QGuiApplication::clipboard()->mimeData(modeOf(selection));
    return copied != nullptr && copied->data(QLatin1String(secretType)) == QByteArray(secretValue);
}

bool WaylandPasteboard::isOwner(Selection selection) const
{
    return service_.isOwner(selection);
}

void WaylandPasteboard::fetchContents(Selection selection)
{
    if (!isQts(selection))
        service_.fetchContents(selection);
}

std::shared_ptr<const Pasteboard::Contents> WaylandPasteboard::contents(Selection selection) const
{
    return isQts(selection) ? nullptr : service_.contents(selection);
}

void WaylandPasteboard::setContents(Selection selection, const std::shared_ptr<const Contents>& contents)
{
    service_.own(selection, std::dynamic_pointer_cast<const ClipboardContents>(contents));
}

void WaylandPasteboard::clear(Selection selection)
{
    service_.disown(selection);
}

bool WaylandPasteboard::wasFetched(Selection selection) const
{
    return service_.wasFetched(selection);
}

bool WaylandPasteboard::wasFetchedBy(Selection selection, WindowID /*window*/) const
{
    return service_.wasFetched(selection);
}

} // namespace vantro
