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

/// Runs the launch sequence, and starts and stops dictations. Main thread.
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
        /// Makes models found on this machine usable. Runs before the selected model is checked.
        std::function<QCoro::Task<>()> prepareModels;
        std::function<QFuture<ModelCheck>(const TranscriptionModel&)> checkModel;
    };

    explicit AppDelegate(Parts parts);

    /// The launch sequence: update check, migrations, observers, onboarding if something is missing, shortcut, model.
    void applicationDidFinishLaunching();
    /// Call before the process ends: abandons the dictation, whose recording stays for the next start, and restores the
    /// clipboard.
    void applicationWillTerminate();
    [[nodiscard]] bool isReadyToDictate() const;
    /// Nobody dictates then: the shortcut does nothing.
    [[nodiscard]] bool isUserAway() const { return parts_.dictation.session.isAway(); }

    /// The shortcut's action: starts recording and opens the launcher. Returns the new dictation, or null when one is
    /// already running, the user is away, or the model is missing, which the user is told.
    std::weak_ptr<Dictation> showLauncherAndRecord(Dictation::Keyboard keyboard = Dictation::Keyboard::taken);
    /// What the shortcut does soon after a cancel, in the same window: false when there is nothing to take back.
    [[nodiscard]] bool takeCancelBack();
    /// What Space does in the launcher.
    void stopRecording();
    /// What Escape does in the launcher, even while the recording is being processed.
    void cancelDictation();
    /// Pastes a text of the history into the window that was in front before ours. Does nothing during a dictation.
    QCoro::Task<> pasteAgain(QString text);
    /// Pastes the words of the last dictation, as they were said, into the window in front. Returns why that cannot be
    /// done; nothing when it is under way.
    [[nodiscard]] QString pasteOriginal();
    /// The timings of the latest dictation.
    [[nodiscard]] DictationTimings timings() const;

private:
    [[nodiscard]] std::weak_ptr<Dictation> shortcutUsed(Dictation::Keyboard keyboard);
    [[nodiscard]] std::shared_ptr<Dictation> transcribeAgain(Owed owed);
    [[nodiscard]] bool isDictating() const;
    [[nodiscard]] bool isOfferElsewhere() const;
    [[nodiscard]] bool hasModel();
    QCoro::Task<> pasteInFront(QString text);
    void observeNotifications();
    QCoro::Task<> settleModel();
    QCoro::Task<> modelDownloaded();
    void modelBecameReady(const TranscriptionModel& model);
    void downloadModel(const TranscriptionModel& model, const QString& problem);
    void shortcutFailed(const QString& name);
    [[nodiscard]] Shell& shell() const { return parts_.dictation.shell; }
    [[nodiscard]] Recovery& recovery() const { return parts_.dictation.recovery; }

    Parts parts_;
    std::shared_ptr<Dictation> dictation_; ///< the latest one, even when it is over
    std::unique_ptr<HoldToTalk> openModalAction_;
    KeyboardShortcuts::Registration pasteOriginalAction_;
    std::vector<NotificationCenter::Observation> observations_;
    struct ModelProblem
    {
        QString model; ///< its name
        QString text;  ///< what is wrong with its file; empty when there is none
    };
    std::optional<ModelProblem> modelProblem_; ///< set while a model that was selected cannot be used
    bool isShortcutReportDue_ = false;
};

} // namespace vantro
