#pragma once

#include "platform/WindowID.h"

#include <QString>

#include <optional>

namespace vantro {

/// The desktop's clipboard, plain text only. Main thread only.
class Pasteboard
{
public:
    /// `Primary` is what a middle click or xterm's Shift+Insert pastes; systems without it treat it as always empty.
    enum class Selection { Clipboard, Primary };

    virtual ~Pasteboard() = default;

    /// Nothing when the clipboard is empty, holds no text, or its owner does not answer within a moment.
    [[nodiscard]] virtual std::optional<QString> string(Selection selection) const = 0;
    virtual void setString(Selection selection, const QString& text) = 0;
    /// Leaves the selection without an owner, which is not the same as holding an empty text.
    virtual void clear(Selection selection) = 0;
    /// Whether some program has fetched the text of the last setString() since it was set.
    [[nodiscard]] virtual bool wasFetched(Selection selection) const = 0;
    /// The same for the program that owns @p window: clipboard managers fetch every text as soon as it is set, which
    /// says nothing about the program that is to paste it. Systems that do not tell who fetches answer wasFetched().
    [[nodiscard]] virtual bool wasFetchedBy(Selection selection, WindowID window) const = 0;
};

} // namespace vantro
