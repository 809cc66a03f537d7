#pragma once

#include "platform/Workspace.h"

#include <map>
#include <optional>
#include <vector>

union _XEvent; // NOLINT(bugprone-reserved-identifier)

namespace vantro {

class X11Connection;

/// Accesses windows through EWMH, or through the input focus if there is no window manager that supports it. The server
/// gives the numbers of a program that has ended to the next one, so a WindowID is a number and, above it, how many
/// other windows of that number have been in front before.
class X11Workspace final : public Workspace
{
    Q_OBJECT
public:
    /// @p connection must outlive the workspace.
    explicit X11Workspace(X11Connection& connection);

    /// The server's number of @p window.
    [[nodiscard]] static unsigned long numberOf(WindowID window) { return window & 0xffffffffU; }

    [[nodiscard]] std::optional<WindowID> frontWindow() const override;
    [[nodiscard]] bool windowExists(WindowID window) const override;
    [[nodiscard]] bool hasInputFocus(WindowID window) const override;
    void activateWindow(WindowID window) override;
    [[nodiscard]] bool isOwn(WindowID window) const override;
    [[nodiscard]] bool takesText(WindowID window) const override;
    [[nodiscard]] QStringList windowClass(WindowID window) const override;
    bool ping(WindowID window) override;
    [[nodiscard]] bool hasAnswered(WindowID window) const override;
    bool openUrl(const QString& url) override;
    [[nodiscard]] bool isCompositing() const override;
    [[nodiscard]] std::unique_ptr<UserActivity> watchUser() override;

private:
    enum class TopLevel { Managed, Any };

    [[nodiscard]] WindowID identify(unsigned long number) const;
    void noteAnswer(const _XEvent& event);
    void awaitAnswers();
    [[nodiscard]] bool managerSupports(unsigned long atom) const;
    [[nodiscard]] std::vector<unsigned long> windowProperty(unsigned long window, unsigned long atom,
                                                            unsigned long type) const;
    [[nodiscard]] std::optional<WindowID> focusedTopLevel(TopLevel kind) const;
    [[nodiscard]] std::optional<unsigned long> focusedWindow() const;
    [[nodiscard]] std::optional<unsigned long> parentOf(unsigned long window) const;

    X11Connection& connection_;
    unsigned long activeWindowAtom_ = 0;
    unsigned long stateAtom_ = 0;
    unsigned long supportedAtom_ = 0;
    unsigned long compositorAtom_ = 0;
    unsigned long protocolsAtom_ = 0;
    unsigned long pingAtom_ = 0;

    mutable std::map<unsigned long, WindowID> known_; ///< the latest of each number that has been in front

    struct Ping
    {
        WindowID window{};
        bool isAnswered = false;
    };
    std::vector<Ping> pings_; ///< the latest of each window
};

} // namespace vantro
