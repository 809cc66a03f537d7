#pragma once

#include "platform/Pasteboard.h"
#include "platform/linux/wayland/ClipboardService.h"

namespace vantro {

/// The clipboard and the primary selection of a compositor with the data-control protocol.
class WaylandPasteboard final : public Pasteboard
{
public:
    [[nodiscard]] bool isOffered() const override { return service_.isOffered(); }
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
    /// Nobody tells who fetched it: true for the first one after the keystroke.
    [[nodiscard]] bool wasFetchedBy(Selection selection, WindowID window) const override;

    /// Call before the paste keystroke.
    void forgetFetches() { service_.forgetFetches(); }

private:
    mutable ClipboardService service_;
};

} // namespace vantro
