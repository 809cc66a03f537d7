#pragma once

#include "platform/WindowID.h"

#include <QString>

#include <memory>
#include <optional>

namespace vantro {

/// The desktop's clipboard. Main thread only.
class Pasteboard
{
public:
    /// All formats of a selection, as its owner gave them.
    class Contents
    {
    public:
        virtual ~Contents() = default;
    };

    /// `Primary` is pasted by a middle click or by Shift+Insert in xterm; always empty on systems without it.
    enum class Selection { Clipboard, Primary };

    virtual ~Pasteboard() = default;

    /// Whether the desktop lets this program copy while other programs have the keyboard. If not, selections are empty
    /// and setters do nothing.
    [[nodiscard]] virtual bool isOffered() const { return true; }
    /// nullopt if the clipboard is empty, holds no text, or its owner does not answer in time.
    [[nodiscard]] virtual std::optional<QString> string(Selection selection) const = 0;
    virtual void setString(Selection selection, const QString& text) = 0;
    /// The same with the mark that password managers set: clipboard histories leave the text out.
    virtual void setSecret(Selection selection, const QString& text) = 0;
    /// Whether the text that is there bears that mark, whoever has set it.
    [[nodiscard]] virtual bool isSecret(Selection selection) const = 0;
    /// Whether it is still this program that gives the text of the last setString() or setSecret() to others.
    [[nodiscard]] virtual bool isOwner(Selection selection) const = 0;
    /// Begins to fetch everything that another program offers, so that contents() has it at hand later. Returns at
    /// once.
    virtual void fetchContents(Selection /*selection*/) {}
    /// Everything that another program offers, as far as it is not too much and comes in time; null if that is nothing
    /// or this program owns the selection.
    [[nodiscard]] virtual std::shared_ptr<const Contents> contents(Selection /*selection*/) const { return nullptr; }
    virtual void setContents(Selection /*selection*/, const std::shared_ptr<const Contents>& /*contents*/) {}
    /// Leaves the selection without an owner, as opposed to holding an empty text.
    virtual void clear(Selection selection) = 0;
    /// Whether any program has fetched the text of the last setString() or setSecret().
    [[nodiscard]] virtual bool wasFetched(Selection selection) const = 0;
    /// The same for the program that owns @p window, because clipboard managers fetch every text at once. Where the
    /// system does not tell who fetched it, returns wasFetched().
    [[nodiscard]] virtual bool wasFetchedBy(Selection selection, WindowID window) const = 0;
    /// Whether one program owns both windows, so that wasFetchedBy() does not tell them apart; false where the system
    /// does not tell.
    [[nodiscard]] virtual bool isSameProgram(WindowID /*one*/, WindowID /*other*/) const { return false; }
};

} // namespace vantro
