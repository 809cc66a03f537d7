#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/NotificationCenter.h"
#include "platform/Permissions.h"
#include "vantro/app/Dictation.h"
#include "vantro/app/HoldToTalk.h"
#include "vantro/models/ModelSelection.h"
#include "vantro/models/ModelStatus.h"
#include "vantro/store/MigrationManager.h"

#include <QFuture>
#include <QObject>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantro {

/// Launches the program, and begins and ends its dictations. Main thread.
class AppDelegate final : public QObject
{
    Q_OBJECT
public:
    struct Parts
    {
        Dictation::Parts dictation;
        const Permissions& permissions;
        KeyboardShortcuts& shortcuts;
        ModelSelection& models;
        MigrationManager& migrations;
        /// Makes models that lie on this machine usable; before the selection is settled.
        std::function<QCoro::Task<>()> prepareModels;
        std::function<QFuture<ModelCheck>(const TranscriptionModel&)> checkModel;
    };

    explicit AppDelegate(Parts parts);

    /// The launch handler: theme, update check, repairs, observers, onboarding when something is missing, model.
    void applicationDidFinishLaunching();
    /// Before the process ends: what is being recorded is thrown away, and the clipboard gets back what it held.
    void applicationWillTerminate();
    [[nodiscard]] bool isReadyToDictate() const;

    /// The shortcut's action: opens the launcher and records. Answers the dictation that has begun; nothing when one is
    /// under way or none can begin, of which the user has been told.
    std::weak_ptr<Dictation> showLauncherAndRecord(Dictation::Keyboard keyboard = Dictation::Keyboard::taken);
    /// What Space does in the launcher.
    void stopRecording();
    /// What Escape does in the launcher, also while the recording is being processed.
    void cancelDictation();
    /// Of the latest dictation.
    [[nodiscard]] DictationTimings timings() const;

private:
    void observeNotifications();
    QCoro::Task<> settleModel();
    QCoro::Task<> modelDownloaded();
    void modelBecameReady(const TranscriptionModel& model);
    void downloadModel(const TranscriptionModel& model, const QString& problem);
    void shortcutFailed(const QString& name, const QString& reason);
    [[nodiscard]] Shell& shell() const { return parts_.dictation.shell; }

    Parts parts_;
    std::shared_ptr<Dictation> dictation_; ///< the latest one, also when it is over
    std::unique_ptr<HoldToTalk> openModalAction_;
    std::vector<NotificationCenter::Observation> observations_;
    /// Set while the selected model is missing: why, where it was there before.
    std::optional<QString> modelProblem_;
};

} // namespace vantro
