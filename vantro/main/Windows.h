#pragma once

#include "KeyboardShortcuts/RecorderCocoa.h"
#include "platform/Platform.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/app/AppDelegate.h"
#include "vantro/app/LanguageModels.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/models/ModelDownloader.h"
#include "vantro/models/ModelStatus.h"
#include "vantro/store/CoreDataStack.h"
#include "vantro/support/UpdateChecker.h"
#include "vantro/text/VocabularySettings.h"
#include "vantro/ui/alert/AlertWindow.h"
#include "vantro/ui/download/ModelDownloadWindow.h"
#include "vantro/ui/hud/PasteHUDWindow.h"
#include "vantro/ui/settings/ModelListModel.h"
#include "vantro/ui/settings/ProvidersModel.h"
#include "vantro/ui/settings/VocabularyModel.h"
#include "vantro/ui/style/UiEngine.h"
#include "vantro/ui/tray/TrayIcon.h"
#include "vantro/ui/window/LazyWindow.h"

#include <memory>
#include <optional>

namespace vantro {

/// Everything of the program that can be seen but the launcher. Main thread.
class Windows final : public QObject
{
    Q_OBJECT
public:
    struct Parts
    {
        UserDefaults& defaults;
        NotificationCenter& notifications;
        Clock& clock;
        Platform& platform;
        const ModelCatalogue& catalogue;
        ModelSelection& models;
        ModelDownloader& downloader;
        CoreDataStack& store;
        AudioDeviceManager& devices;
        KeyboardShortcuts& shortcuts;
        VocabularySettings& vocabulary;
        PromptSettings& prompts;
        LanguageModels& languageModels;
        /// Which of its files are there; reads none of them.
        std::function<ModelStatus(const TranscriptionModel&)> modelStatus;
        /// Throws Error.
        std::function<void(const TranscriptionModel&)> removeModel;
        /// For the practice run of the onboarding.
        std::function<void(bool)> setSandboxMode;
    };

    explicit Windows(Parts parts);
    ~Windows() override;

    [[nodiscard]] QQmlEngine& engine() { return ui_.engine(); }
    [[nodiscard]] SideWindow& settingsWindow() { return settings_; }
    [[nodiscard]] SideWindow& transcriptionsWindow() { return transcriptions_; }
    [[nodiscard]] TrayIcon& tray() { return tray_; }
    [[nodiscard]] UpdateChecker& updates() { return updates_; }

    void applyTheme() { ui_.applyTheme(); }
    /// What a user who starts the program once more wants to see.
    void showMain();
    void showSettings(const QString& page);
    void showOnboarding() { onboarding_.open(); }
    void closeOnboarding() { onboarding_.close(); }
    void showPasteHUD(std::optional<QRect> anchor) { hud_.showHUD(anchor); }
    void showAlert(AlertWindow::Kind kind, const QString& title, const QString& text, const QStringList& buttons,
                   AlertWindow::Answered answered = {});
    /// @p problem: why a model that was there has to be fetched again; empty else.
    void showModelDownload(const TranscriptionModel& model, const QString& problem);
    void closeModelDownload();
    void tellOfCrash();
    void tellOfSettings(const KeptAside& settings);
    void reportError();
    void sendFeedback();

Q_SIGNALS:
    void quitRequested();

private:
    [[nodiscard]] LazyWindow::Content settingsContent();
    [[nodiscard]] std::unique_ptr<ModelListModel> makeModelList();
    [[nodiscard]] std::unique_ptr<VocabularyModel> makeVocabularyModel();
    [[nodiscard]] std::unique_ptr<ProvidersModel> makeProvidersModel();
    /// Calls @p confirmed when the first of two buttons is chosen, which bears @p verb.
    void confirm(const QString& title, const QString& question, const QString& verb, std::function<void()> confirmed);
    [[nodiscard]] LazyWindow::Content onboardingContent();
    [[nodiscard]] LazyWindow::Content historyContent();
    [[nodiscard]] std::unique_ptr<RecorderCocoa> makeRecorder(const KeyboardShortcuts::Name& name);
    [[nodiscard]] ModelListModel::State stateOf(const TranscriptionModel& model) const;
    [[nodiscard]] UpdateChecker::ShowAlert updateAlert();
    void connectTray();
    void tellOfUnsavedSettings(const QString& file);
    void openMail(const QString& url, const QString& address);

    Parts parts_;
    bool hasToldOfUnsavedSettings_ = false;
    UiEngine ui_;
    PasteHUDWindow hud_;
    UpdateChecker updates_;
    NotificationCenter::Observation downloadObservation_;
    std::unique_ptr<ModelDownloadWindow> downloadWindow_;
    LazyWindow settings_;
    LazyWindow transcriptions_;
    LazyWindow onboarding_;
    TrayIcon tray_;
};

} // namespace vantro
