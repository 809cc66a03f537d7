#pragma once

#include "platform/Pasteboard.h"

#include <memory>

namespace vantro {

class X11SelectionService;

/// The CLIPBOARD and PRIMARY selections. They are served from a thread and a connection of their own, so that other
/// programs (and Qt inside this one, which waits for the answer on the main thread) get the text at once whatever the
/// main thread is doing, and a program that does not answer costs a bounded time.
class X11Pasteboard final : public Pasteboard
{
public:
    /// @p displayName: the X server, $DISPLAY when empty. Without one every selection is empty and nothing can be set.
    explicit X11Pasteboard(const QString& displayName = {});
    /// Leaves the clipboard's text to the clipboard manager, if one runs.
    ~X11Pasteboard() override;

    [[nodiscard]] std::optional<QString> string(Selection selection) const override;
    void setString(Selection selection, const QString& text) override;
    void clear(Selection selection) override;
    [[nodiscard]] bool wasFetched(Selection selection) const override;
    [[nodiscard]] bool wasFetchedBy(Selection selection, WindowID window) const override;

private:
    std::unique_ptr<X11SelectionService> service_;
};

} // namespace vantro
