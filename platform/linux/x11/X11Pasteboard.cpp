#include "platform/linux/x11/X11Pasteboard.h"

#include "platform/linux/x11/X11SelectionService.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace vantro {

namespace {

/// Whether Qt owns the selection, after copying from one of our fields: it answers on the main thread, so waiting there
/// would deadlock.
bool isQts(WindowID window)
{
    const auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application == nullptr)
        return false;
    const auto* const x11 = application->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr && sameClient(x11->connection(), static_cast<std::uint32_t>(window),
                                        xcb_get_setup(x11->connection())->resource_id_base);
}

QClipboard::Mode modeOf(Pasteboard::Selection selection)
{
    return selection == Pasteboard::Selection::Clipboard ? QClipboard::Clipboard : QClipboard::Selection;
}

} // namespace

X11Pasteboard::X11Pasteboard(const QString& displayName)
    : service_(std::make_unique<X11SelectionService>(displayName.toLocal8Bit()))
{
}

X11Pasteboard::~X11Pasteboard() = default;

std::optional<QString> X11Pasteboard::string(Selection selection) const
{
    if (const auto owner = service_->ownerOf(selection); owner && isQts(*owner)) {
        const QString text = QGuiApplication::clipboard()->text(modeOf(selection));
        return text.isNull() ? std::nullopt : std::optional(text);
    }
    const auto text = service_->read(selection);
    return text ? std::optional(QString::fromUtf8(*text)) : std::nullopt;
}

void X11Pasteboard::setString(Selection selection, const QString& text)
{
    service_->own(selection, text.toUtf8(), X11SelectionService::Privacy::open);
}

void X11Pasteboard::setSecret(Selection selection, const QString& text)
{
    service_->own(selection, text.toUtf8(), X11SelectionService::Privacy::secret);
}

bool X11Pasteboard::isSecret(Selection selection) const
{
    const auto owner = service_->ownerOf(selection);
    if (!owner || !isQts(*owner))
        return owner && service_->isSecret(selection);
    const QMimeData* const copied = QGuiApplication::clipboard()->mimeData(modeOf(selection));
    return copied != nullptr && copied->data(QLatin1String(secretHint)) == secretHintValue;
}

bool X11Pasteboard::isOwner(Selection selection) const
{
    return service_->isOwner(selection);
}

void X11Pasteboard::fetchContents(Selection selection)
{
    if (const auto owner = service_->ownerOf(selection); owner && !isQts(*owner))
        service_->fetchContents(selection);
}

std::shared_ptr<const Pasteboard::Contents> X11Pasteboard::contents(Selection selection) const
{
    const auto owner = service_->ownerOf(selection);
    return owner && !isQts(*owner) ? service_->contents(selection) : nullptr;
}

void X11Pasteboard::setContents(Selection selection, const std::shared_ptr<const Contents>& contents)
{
    service_->own(selection, std::dynamic_pointer_cast<const SelectionContents>(contents));
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

bool X11Pasteboard::isSameProgram(WindowID one, WindowID other) const
{
    return service_->isSameProgram(one, other);
}

} // namespace vantro
