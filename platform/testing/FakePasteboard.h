#pragma once

#include "platform/Pasteboard.h"

#include <array>
#include <set>
#include <utility>
#include <vector>

namespace vantro::doubles {

/// A clipboard that a test uses in place of other programs.
class FakePasteboard final : public Pasteboard
{
public:
    [[nodiscard]] std::optional<QString> string(Selection selection) const override { return of(selection).text; }
    void setString(Selection selection, const QString& text) override
    {
        of(selection) = {text, {}, true, 1 + of(selection).changes};
    }
    void setSecret(Selection selection, const QString& text) override
    {
        setString(selection, text);
        of(selection).secret = true;
    }
    [[nodiscard]] bool isSecret(Selection selection) const override { return of(selection).secret; }
    [[nodiscard]] bool isOwner(Selection selection) const override { return of(selection).own; }
    void clear(Selection selection) override { of(selection) = {std::nullopt, {}, false, 1 + of(selection).changes}; }
    [[nodiscard]] bool isOffered() const override { return isOffered_; }
    void setOffered(bool offered) { isOffered_ = offered; }
    [[nodiscard]] bool wasFetched(Selection selection) const override { return !of(selection).fetchedBy.empty(); }
    [[nodiscard]] bool wasFetchedBy(Selection selection, WindowID window) const override;
    [[nodiscard]] bool isSameProgram(WindowID one, WindowID other) const override
    {
        return one == other || (program_.contains(one) && program_.contains(other));
    }
    /// @p windows belong to one program.
    void setProgram(std::set<WindowID> windows) { program_ = std::move(windows); }

    /// Another program copies @p text, or non-text content for nullopt.
    void setByOther(Selection selection, std::optional<QString> text, bool secret = false);
    /// The program that owns @p window pastes.
    std::optional<QString> fetch(Selection selection, WindowID window);
    /// How often setString() or clear() was called.
    [[nodiscard]] int changes(Selection selection) const { return of(selection).changes; }

private:
    struct Content
    {
        std::optional<QString> text;
        std::vector<WindowID> fetchedBy;
        bool own = false;
        int changes = 0;
        bool secret = false;
    };

    [[nodiscard]] Content& of(Selection selection) { return contents_[selection == Selection::Clipboard ? 0 : 1]; }
    [[nodiscard]] const Content& of(Selection selection) const
    {
        return contents_[selection == Selection::Clipboard ? 0 : 1];
    }

    std::array<Content, 2> contents_;
    std::set<WindowID> program_;
    bool isOffered_ = true;
};

} // namespace vantro::doubles
