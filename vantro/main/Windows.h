#pragma once

#include "KeyboardShortcuts/RecorderCocoa.h"
#include "platform/Platform.h"
#include "vantro/app/History.h"
#include "vantro/app/Rewriting.h"
#include "vantro/app/SecondTranscription.h"
#include "vantro/app/Shell.h"
#include "vantro/app/Speech.h"
#include "vantro/app/WhenBack.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/AudioRecorder.h"
#include "vantro/main/Alerts.h"
#include "vantro/main/WhenIdle.h"
#include "vantro/models/Recommendation.h"
#include "vantro/support/Statistics.h"
#include "vantro/support/UpdateChecker.h"
#include "vantro/text/VocabularySettings.h"
#include "vantro/ui/download/ModelDownloadWindow.h"
#include "vantro/ui/hud/PasteHUDWindow.h"
#include "vantro/ui/settings/ModelListModel.h"
#include "vantro/ui/settings/ProvidersModel.h"
#include "vantro/ui/settings/VocabularyModel.h"
#include "vantro/ui/shortcuts/ShortcutWindow.h"
#include "vantro/ui/style/UiEngine.h"
#include "vantro/ui/tray/TrayIcon.h"
#include "vantro/ui/window/LazyWindow.h"

#include <memory>
#include <optional>
#include <vector>

namespace vantro {

class HistoryChanges;
class HistoryModel;
class ModesModel;
class NotesModel;
class PrivacySettings;
class RecordingPlayer;

/// The user interface: windows, alerts, the tray icon and the update notice. Main thread.
class Windows final : public QObject, public Shell
{
    Q_OBJECT
public:
    struct Parts
    {
        UserDefaults& defaults;
        NotificationCenter& notifications;
        Clock& clock;
        Platform& platform;
        Speech& speech;
        History& history;
        AudioDeviceManager& devices;
        const AudioRecorder& recorder;
        KeyboardShortcuts& shortcuts;
        VocabularySettings& vocabulary;
        Rewriting& rewriting;
        Statistics& statistics;
    };

    explicit Windows(const Parts& parts);
    ~Windows() override;

    void checkForUpdates() override { updates_.check(UpdateChecker::Asker::launch); }
    [[nodiscard]] std::unique_ptr<LauncherPanel> makeLauncher(Dictation& dictation) override;
    void showPasteHUD(std::optional<QRect> anchor, std::function<QString()> keys, const QString& reason) override;
    void showUndoOffer(std::optional<QRect> anchor, std::function<void()> accepted,
                       std::function<void(bool isCovered)> covered) override;
    void showTranscribing() override;
    void withdrawHUD() override { hud_.withdraw(); }
    void showAlert(const QString& title, const QString& text) override;
    void offerTranscription(const QString& title, const QString& text, QObject* about,
                            std::function<void(bool isWanted)> answered) override;
    void showRewritingFailure(const QString& text, std::function<void(AsSpoken)> wanted) override;
    void putWindowsAside() override;
    void bringWindowsBack() override;
    void showModelDownload(const TranscriptionModel& model, const QString& problem) override;
    void closeModelDownload() override;
    /// Does nothing while the user is being asked for a shortcut, which matters more.
    void showOnboarding() override;
    void closeOnboarding() override { onboarding_.close(); }

    [[nodiscard]] Alerts& alerts() { return alerts_; }
    /// What a second start of the program shows.
    void showMain();
    void showSettings(const QString& page);
    /// @p page: "dictations" or "notes".
    void showHistory(const QString& page);
    /// By the name that "vantro show" takes: "settings", "history", "notes" or "guide". Returns whether there is one.
    bool show(const QString& name);
    /// @p reason: a sentence for the user.
    void askForShortcut(const QString& reason);

Q_SIGNALS:
    void dictateRequested();
    void finishRequested();
    void cancelRequested();
    void pasteRequested(const QString& text);
    void quitRequested();

private:
    void askToDiscard(std::function<void()> discard);
    [[nodiscard]] LazyWindow::Content settingsContent();
    [[nodiscard]] ModelListModel::Parts modelListParts(const std::vector<TranscriptionModel>& models);
    [[nodiscard]] std::unique_ptr<ModelListModel> makeModelList();
    [[nodiscard]] std::unique_ptr<ModelListModel> makeLanguageModelList();
    void askToRemove(const TranscriptionModel& model, std::function<void()> confirmed);
    [[nodiscard]] std::unique_ptr<ModesModel> makeModesModel();
    [[nodiscard]] std::unique_ptr<VocabularyModel> makeVocabularyModel();
    [[nodiscard]] VocabularyModel::Boosting boosting() const;
    [[nodiscard]] std::unique_ptr<ProvidersModel> makeProvidersModel();
    [[nodiscard]] LazyWindow::Content onboardingContent();
    [[nodiscard]] LazyWindow::Content historyContent();
    [[nodiscard]] std::unique_ptr<HistoryModel> makeHistoryModel(HistoryChanges& changes);
    [[nodiscard]] std::unique_ptr<PrivacySettings> makePrivacySettings();
    [[nodiscard]] std::unique_ptr<RecorderCocoa> makeRecorder(const KeyboardShortcuts::Name& name);
    [[nodiscard]] Machine machine() const;
    [[nodiscard]] ModelListModel::State stateOf(const TranscriptionModel& model) const;
    void connectTray();
    void connectTrayOffers();
    void fillTray();
    [[nodiscard]] std::vector<TranscriptionExcerpt> recentDictations() const;
    void followRecorder();
    void followShortcut();
    [[nodiscard]] QString leaveUnusableMode(AudioRecorder& recorder) const;
    void tellOfNote(const QString& text);
    void tellOfModel(const QString& name);

    [[nodiscard]] std::unique_ptr<NotesModel> makeNotesModel(HistoryChanges& changes);
    [[nodiscard]] std::unique_ptr<RecordingPlayer> makeRecordingPlayer(HistoryChanges& changes);
    [[nodiscard]] std::vector<TranscriptionModel> readySpeechModels() const;
    [[nodiscard]] QStringList readySpeechModelNames() const;
    [[nodiscard]] QCoro::Task<QString> transcribeAgain(int model, const QUuid& recording);

    Parts parts_;
    SecondTranscription secondTranscription_;
    UiEngine ui_;
    WhenIdle idle_;
    WhenBack back_;
    Alerts alerts_;
    PasteHUDWindow hud_;
    UpdateChecker updates_;
    NotificationCenter::Observation shortcutObservation_;
    std::unique_ptr<ModelDownloadWindow> downloadWindow_;
    std::unique_ptr<ShortcutWindow> shortcutWindow_;
    LazyWindow settings_;
    LazyWindow transcriptions_;
    LazyWindow onboarding_;
    TrayIcon tray_;
    std::vector<QUuid> recent_;      ///< the dictations in the tray's menu
    std::vector<LazyWindow*> aside_; ///< hidden during a recording
    bool isQuitting_ = false;
    bool isSandboxMode_ = false; ///< practising in the onboarding: windows are not hidden
};

} // namespace vantro
