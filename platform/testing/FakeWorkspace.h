#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace vantro::doubles {

/// Windows that a test opens, closes and gives the keyboard to.
class FakeWorkspace final : public Workspace
{
    Q_OBJECT
public:
    [[nodiscard]] std::optional<WindowID> frontWindow() const override { return front_; }
    [[nodiscard]] bool windowExists(WindowID window) const override { return windows_.contains(window); }
    [[nodiscard]] bool hasInputFocus(WindowID window) const override { return focus_ == window; }
    void activateWindow(WindowID window) override;
    [[nodiscard]] QStringList windowClass(WindowID window) const override;
    bool openUrl(const QString& url) override
    {
        opened_ << url;
        return true;
    }
    [[nodiscard]] bool isCompositing() const override { return true; }

    void openWindow(WindowID window, const QStringList& windowClass = {}) { windows_[window] = windowClass; }
    /// Closes @p window; the keyboard goes nowhere if it was there.
    void closeWindow(WindowID window);
    /// What the window manager says, and tells with frontWindowChanged().
    void setFrontWindow(std::optional<WindowID> window);
    /// Where key presses really go.
    void setInputFocus(std::optional<WindowID> window) { focus_ = window; }
    /// Both at once.
    void focus(WindowID window);

    /// How the window manager answers activateWindow(); without it the request is granted at once.
    void setActivationPolicy(std::function<void(WindowID)> policy) { policy_ = std::move(policy); }
    [[nodiscard]] const std::vector<WindowID>& activations() const { return activations_; }
    [[nodiscard]] const QStringList& openedUrls() const { return opened_; }

private:
    std::map<WindowID, QStringList> windows_;
    std::optional<WindowID> front_;
    std::optional<WindowID> focus_;
    std::function<void(WindowID)> policy_;
    std::vector<WindowID> activations_;
    QStringList opened_;
};

} // namespace vantro::doubles
