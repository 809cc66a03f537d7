#pragma once

#include "platform/Pasteboard.h"

#include <memory>

namespace vantro {

class X11SelectionService;

/// The CLIPBOARD and PRIMARY selections, served by a thread with its own connection: other programs (and Qt in this
/// one, which blocks the main thread) get the text even while the main thread is busy, and waits for an unresponsive
/// program are bounded.
class X11Pasteboard final : public Pasteboard
{
public:
    /// @p displayName: by default $DISPLAY. Without an X server, selections are empty and setters are no-ops.
    explicit X11Pasteboard(const QString& displayName = {});
    /// Hands the clipboard's text over to the clipboard manager, if there is one.
    ~X11Pasteboard() override;

    [[nodiscard]] std::optional<QString> string(Selection selection) const override;
    void setString(Selection selection, const QString& text) override;
    void setSecret(Selection selection, const QString& text) override;
    [[nodiscard]] bool isSecret(Selection selection) const override;
    [[nodiscard]] bool isOwner(Selection selection) const override;
    void fetchContents(Selection selection) override;
    [[nodiscard]] std::shared_ptr<const Contents> contents(Selection selection) const override;
    void setContents(Selection selection, const std::shared_ptr<const Contents>& contents) override;
    void clear(Selection selection) override;
    [[nodiscard]] bool wasFetched(Selection selection) const override;
    [[nodiscard]] bool wasFetchedBy(Selection selection, WindowID window) const override;
    [[nodiscard]] bool isSameProgram(WindowID one, WindowID other) const override;

private:
    std::unique_ptr<X11SelectionService> service_;
};

} // namespace vantro
