#include "platform/linux/x11/X11Pasteboard.h"

#include "platform/linux/x11/X11SelectionService.h"

#include <QClipboard>
#include <QGuiApplication>

namespace vantro {

namespace {

/// This program's own clipboard owner, Qt, answers on the main thread, which would be waiting for it.
std::optional<QClipboard::Mode> ownedByQt(Pasteboard::Selection selection)
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        return std::nullopt;
    const QClipboard* const clipboard = QGuiApplication::clipboard();
    if (selection == Pasteboard::Selection::Clipboard && clipboard->ownsClipboard())
        return QClipboard::Clipboard;
    if (selection == Pasteboard::Selection::Primary && clipboard->ownsSelection())
        return QClipboard::Selection;
    return std::nullopt;
}

} // namespace

X11Pasteboard::X11Pasteboard(const QString& displayName)
    : service_(std::make_unique<X11SelectionService>(displayName.toLocal8Bit()))
{
}

X11Pasteboard::~X11Pasteboard() = default;

std::optional<QString> X11Pasteboard::string(Selection selection) const
{
    if (const auto mode = ownedByQt(selection); mode && !service_->owns(selection)) {
        const QString text = QGuiApplication::clipboard()->text(*mode);
        return text.isNull() ? std::nullopt : std::optional(text);
    }
    const auto text = service_->read(selection);
    return text ? std::optional(QString::fromUtf8(*text)) : std::nullopt;
}

void X11Pasteboard::setString(Selection selection, const QString& text)
{
    service_->own(selection, text.toUtf8());
}

void X11Pasteboard::clear(Selection selection)
{
    service_->disown(selection);
}

bool X11Pasteboard::wasFetched(Selection selection) const
{
    return service_->wasFetchedBy(selection, std::nullopt);
}

bool X11Pasteboard::wasFetchedBy(Selection selection, WindowID window) const
{
    return service_->wasFetchedBy(selection, window);
}

} // namespace vantro
