#pragma once

#include <QRect>
#include <QString>

#include <memory>
#include <optional>

namespace vantro {

class Dictation;
class LauncherPanel;
struct TranscriptionModel;

/// Everything that the program can be seen by, as the dictation and its delegate need it: windows, alerts, the tray and
/// the notice of updates stand behind it. Main thread.
class Shell
{
public:
    virtual ~Shell() = default;

    /// In the background.
    virtual void checkForUpdates() = 0;

    /// A panel for @p dictation, not yet shown; it goes before the dictation does.
    [[nodiscard]] virtual std::unique_ptr<LauncherPanel> makeLauncher(Dictation& dictation) = 0;
    /// @p anchor: where the launcher was, in screen coordinates.
    virtual void showPasteHUD(std::optional<QRect> anchor) = 0;
    virtual void showAlert(const QString& title, const QString& text) = 0;

    /// Hides own windows while a dictation is recorded, unless it is a practice; bringWindowsBack() shows those that
    /// were there.
    virtual void putWindowsAside() = 0;
    virtual void bringWindowsBack() = 0;

    /// Begins to download @p model and shows how far it is; brings the window forward when it is there already. Its end
    /// is announced as "download:model:success". @p problem: why a model that was there has to be fetched again.
    virtual void showModelDownload(const TranscriptionModel& model, const QString& problem) = 0;
    virtual void closeModelDownload() = 0;
    /// Leads through what is missing; its end is announced as "permissions:close".
    virtual void showOnboarding() = 0;
    virtual void closeOnboarding() = 0;
};

} // namespace vantro
