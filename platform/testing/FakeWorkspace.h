#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace vantro::doubles {

/// Windows opened, closed and focused by a test.
class FakeWorkspace final : public Workspace
{
    Q_OBJECT
public:
    [[nodiscard]] std::optional<WindowID> frontWindow() const override { return front_; }
    [[nodiscard]] bool windowExists(WindowID window) const override { return windows_.contains(window); }
    [[nodiscard]] bool hasInputFocus(WindowID window) const override { return focus_ == window; }
    void activateWindow(WindowID window) override;
    [[nodiscard]] bool isOwn(WindowID window) const override { return own_.contains(window); }
    [[nodiscard]] bool takesText(WindowID window) const override { return isOwn(window) && own_.at(window); }
    [[nodiscard]] QStringList windowClass(WindowID window) const override;
    bool ping(WindowID window) override
    {
        pinged_.insert(window);
        return isAskable_;
    }
    [[nodiscard]] bool hasAnswered(WindowID window) const override { return pinged_.contains(window) && isAnswering_; }
    bool openUrl(const QString& url) override
    {
        opened_ << url;
        return true;
    }
    [[nodiscard]] bool isCompositing() const override { return true; }
    [[nodiscard]] std::unique_ptr<UserActivity> watchUser() override { return nullptr; }

    void openWindow(WindowID window, const QStringList& windowClass = {}) { windows_[window] = windowClass; }
    /// From now on @p window is one of the program's own.
    void makeOwn(WindowID window, bool hasTextField = false) { own_[window] = hasTextField; }
    /// Closes @p window; if it had the focus, no window has.
    void closeWindow(WindowID window);
    /// Whether the programs of windows answer; by default they do not.
    void setAnswering(bool isAnswering) { isAnswering_ = isAnswering; }
    void setAskable(bool isAskable) { isAskable_ = isAskable; }
    /// The window manager's view; emits frontWindowChanged().
    void setFrontWindow(std::optional<WindowID> window);
    /// The actual recipient of key presses.
    void setInputFocus(std::optional<WindowID> window) { focus_ = window; }
    /// Both at once.
    void focus(WindowID window);

    /// Handles activateWindow(); by default it is granted at once.
    void setActivationPolicy(std::function<void(WindowID)> policy) { policy_ = std::move(policy); }
    [[nodiscard]] const std::vector<WindowID>& activations() const { return activations_; }
    [[nodiscard]] const QStringList& openedUrls() const { return opened_; }

private:
    std::map<WindowID, QStringList> windows_;
    std::map<WindowID, bool> own_; ///< with or without a text field
    std::set<WindowID> pinged_;
    bool isAnswering_ = false;
    bool isAskable_ = true;
    std::optional<WindowID> front_;
    std::optional<WindowID> focus_;
    std::function<void(WindowID)> policy_;
    std::vector<WindowID> activations_;
    QStringList opened_;
};

} // namespace vantro::doubles
