#pragma once

#include <QRect>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace vantro {

class Dictation;
class LauncherPanel;
struct TranscriptionModel;

/// The user interface as dictations and the application delegate see it: windows, alerts and the update notice. Main
/// thread.
class Shell
{
public:
    virtual ~Shell() = default;

    /// Returns at once; the check runs in the background.
    virtual void checkForUpdates() = 0;

    /// Creates a panel for @p dictation, which must outlive it. Not shown yet.
    [[nodiscard]] virtual std::unique_ptr<LauncherPanel> makeLauncher(Dictation& dictation) = 0;
    /// @p anchor: where the launcher was, in screen coordinates. @p keys names what pastes the text in the window in
    /// front, and is asked again when another one comes there; may be empty. @p reason says in a sentence why the user
    /// has to paste it himself; empty when that is his choice.
    virtual void showPasteHUD(std::optional<QRect> anchor, std::function<QString()> keys, const QString& reason) = 0;
    /// Offers to transcribe a cancelled recording after all; @p accepted is called for a click, and @p covered when
    /// another message is shown in its place, and when it is back.
    virtual void showUndoOffer(std::optional<QRect> anchor, std::function<void()> accepted,
                               std::function<void(bool isCovered)> covered) = 0;
    /// Tells that a kept recording is being transcribed.
    virtual void showTranscribing() = 0;
    /// Ends such an offer or notice, if it is still shown.
    virtual void withdrawHUD() = 0;
    virtual void showAlert(const QString& title, const QString& text) = 0;
    /// An alert that asks whether to transcribe a kept recording. @p answered is called with the answer, if there is
    /// one, while no dictation is under way. It closes by itself when @p about is destroyed.
    virtual void offerTranscription(const QString& title, const QString& text, QObject* about,
                                    std::function<void(bool isWanted)> answered) = 0;

    /// What the user may want of a text that could not be rewritten.
    enum class AsSpoken { paste, copy };
    /// An alert about it. @p wanted is called with the answer, if there is one, while no dictation is under way.
    virtual void showRewritingFailure(const QString& text, std::function<void(AsSpoken)> wanted) = 0;

    /// Hides the program's own windows during a recording, except the active one and in the practice step of the
    /// onboarding. bringWindowsBack() shows them again.
    virtual void putWindowsAside() = 0;
    virtual void bringWindowsBack() = 0;

    /// Downloads @p model in a window that shows the progress, or brings that window to the front. Posts
    /// "download:model:success" at the end. @p problem: why the model has to be downloaded again; may be empty.
    virtual void showModelDownload(const TranscriptionModel& model, const QString& problem) = 0;
    virtual void closeModelDownload() = 0;
    /// Guides the user through the setup. Posts "permissions:close" at the end.
    virtual void showOnboarding() = 0;
    virtual void closeOnboarding() = 0;
};

} // namespace vantro
