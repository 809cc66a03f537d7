// The part of Windows that makes their contents: view models of the program's objects.
#include "base/Settings.h"
#include "vantro/main/FileChoice.h"
#include "vantro/main/Windows.h"
#include "vantro/models/SpokenLanguages.h"
#include "vantro/support/SupportMail.h"
#include "vantro/ui/history/HistoryModel.h"
#include "vantro/ui/history/NotesModel.h"
#include "vantro/ui/history/RecordingPlayer.h"
#include "vantro/ui/onboarding/OnboardingModel.h"
#include "vantro/ui/settings/AboutModel.h"
#include "vantro/ui/settings/ApplicationsModel.h"
#include "vantro/ui/settings/GeneralSettings.h"
#include "vantro/ui/settings/MicrophoneSettings.h"
#include "vantro/ui/settings/ModesModel.h"
#include "vantro/ui/settings/PrivacySettings.h"
#include "vantro/ui/settings/StatisticsModel.h"

#include <QFileInfo>

#include <thread>
#include <utility>

namespace vantro {

namespace {

const QString version = QStringLiteral(VANTRO_VERSION);

/// Facilities by their protocols' names, and what is missing in words.
QString describe(const DesktopWays& ways, const QString& shortcut)
{
    const auto named = [](const QString& way) {
        return way.isEmpty() ? Windows::tr("not offered") : way;
    };
    QString text =
        QLatin1Char('\n') + Windows::tr("Desktop: %1").arg(ways.desktop) + QLatin1Char('\n') +
        Windows::tr("Shortcut: %1. Clipboard: %2. Paste: %3. Panel: %4. Windows: %5.")
            .arg(named(shortcut), named(ways.clipboard), named(ways.paste), named(ways.panel), named(ways.windows));
    for (const QString& missing : ways.missing)
        text += QLatin1Char('\n') + missing;
    return text;
}

template <typename Model>
void put(LazyWindow::Content& content, const char* property, std::unique_ptr<Model> model)
{
    content.properties.insert(QLatin1String(property), QVariant::fromValue(model.get()));
    content.models.push_back(std::move(model));
}

} // namespace

LazyWindow::Content Windows::settingsContent()
{
    auto about = std::make_unique<AboutModel>(AboutModel::Actions{[this] { alerts_.reportError(); },
                                                                  [this] { alerts_.sendFeedback(); },
                                                                  [this] {
                                                                      Q_EMIT quitRequested();
                                                                  }});
    about->version = version;
    about->system = mail::systemInformation(version, *parts_.platform.systemInfo) +
                    describe(parts_.platform.ways, parts_.shortcuts.way());

    LazyWindow::Content content;
    put(content, "general",
        std::make_unique<GeneralSettings>(
            GeneralSettings::Parts{parts_.defaults, *parts_.platform.loginItem, updates_}));
    put(content, "microphone",
        std::make_unique<MicrophoneSettings>(parts_.platform.makeAudioEngine, parts_.devices, parts_.clock));
    put(content, "openRecorder", makeRecorder(KeyboardShortcuts::Name::openModal));
    put(content, "stopRecorder", makeRecorder(KeyboardShortcuts::Name::stopRecordingAndCloseModal));
    put(content, "originalRecorder", makeRecorder(KeyboardShortcuts::Name::pasteOriginal));
    put(content, "models", makeModelList());
    put(content, "languageModels", makeLanguageModelList());
    put(content, "modes", makeModesModel());
    put(content, "providers", makeProvidersModel());
    put(content, "applications",
        std::make_unique<ApplicationsModel>(
            ApplicationsModel::Parts{parts_.defaults, *parts_.platform.workspace, parts_.rewriting.prompts().modes(),
                                     [this](ProcessingMode mode) {
                                         return parts_.rewriting.prompts().displayName(mode);
                                     }}));
    put(content, "vocabulary", makeVocabularyModel());
    put(content, "privacy", makePrivacySettings());
    put(content, "statistics", std::make_unique<StatisticsModel>(parts_.statistics, parts_.clock));
    put(content, "about", std::move(about));
    return content;
}

std::unique_ptr<ModesModel> Windows::makeModesModel()
{
    const LanguageModels& local = parts_.rewriting.local().models();
    auto modes = std::make_unique<ModesModel>(ModesModel::Parts{
        parts_.defaults, parts_.rewriting.prompts(), parts_.rewriting.cleaning(), parts_.rewriting.providers(),
        [this](ProcessingMode mode) { return parts_.rewriting.isUsable(mode); },
        [this](std::function<void()> confirmed) {
            alerts_.confirm(tr("Use the Built-In Prompt"),
                            tr("Your own prompt will be overwritten and cannot be restored."), tr("Overwrite"),
                            std::move(confirmed));
        },
        [&local] {
            const auto* chosen = local.chosen();
            return chosen != nullptr ? chosen->name : QString();
        },
        [this](const QString& name, std::function<void()> confirmed) {
            alerts_.confirm(tr("Remove Mode"),
                            tr("%1 will be removed with its prompt, which cannot be restored.").arg(name), tr("Remove"),
                            std::move(confirmed));
        },
        [this](ProcessingMode mode, const QString& text) {
            return parts_.rewriting.rewrite(mode, text);
        }});
    connect(&local, &LanguageModels::changed, modes.get(), &ModesModel::changed);
    connect(&parts_.speech.downloads, &DownloadQueue::finished, modes.get(), &ModesModel::changed);
    return modes;
}

void Windows::askToRemove(const TranscriptionModel& model, std::function<void()> confirmed)
{
    const QString what = parts_.speech.languageModels.isOwn(model)
                             ? tr("%1 leaves the list. Its file stays where it is.").arg(model.name)
                             : tr("%1 (%2) will be deleted from this computer. It would have to be downloaded again.")
                                   .arg(model.name, model.size);
    alerts_.confirm(tr("Remove the Model"), what, tr("Remove"), std::move(confirmed));
}

/// The parts that both lists share; selectedName and select are those of the speech models.
ModelListModel::Parts Windows::modelListParts(const std::vector<TranscriptionModel>& models)
{
    Speech& speech = parts_.speech;
    return {models,
            [this](const TranscriptionModel& model) { return stateOf(model); },
            [&speech] { return speech.selection.selectedModel().name; },
            [&speech](const TranscriptionModel& model) { speech.selection.select(model); },
            [&speech](const TranscriptionModel& model) { return speech.downloads.statusText(model.name); },
            [&speech] { return speech.downloads.progress(); },
            [&speech](const TranscriptionModel& model) { speech.downloads.add(model); },
            [&speech](const TranscriptionModel& model) { speech.downloads.cancel(model.name); },
            [this](const TranscriptionModel& model, std::function<void()> confirmed) {
                askToRemove(model, std::move(confirmed));
            },
            [&speech](const TranscriptionModel& model) { speech.remove(model); },
            machine(),
            [this] { return spokenLanguage(parts_.defaults); },
            [&speech] { return speech.bytesUsed(); },
            [this](std::function<void()> confirmed) {
                alerts_.confirm(
                    tr("Delete Models Cache"),
                    tr("All downloaded models but the one in use will be deleted from this computer. They would "
                       "have to be downloaded again."),
                    tr("Delete"), std::move(confirmed));
            },
            [&speech] {
                std::ignore = speech.removeAllExcept(speech.selection.selectedModel());
            }};
}

std::unique_ptr<ModelListModel> Windows::makeModelList()
{
    auto models = std::make_unique<ModelListModel>(modelListParts(parts_.speech.catalogue.models()));
    connect(&parts_.speech.downloads, &DownloadQueue::changed, models.get(), &ModelListModel::refresh);
    // Queued: looking for the selection while a row is shown may be what settles it.
    const auto follow = [list = models.get()](const QString& key) {
        if (key == setting::selectedModelName.key)
            list->refresh();
    };
    connect(&parts_.defaults, &UserDefaults::changed, models.get(), follow, Qt::QueuedConnection);
    return models;
}

std::unique_ptr<ModelListModel> Windows::makeLanguageModelList()
{
    LanguageModels& languageModels = parts_.speech.languageModels;
    ModelListModel::Parts parts = modelListParts(languageModels.models());
    parts.selectedName = [&languageModels] {
        const auto* chosen = languageModels.chosen();
        return chosen != nullptr ? chosen->name : QString();
    };
    parts.select = [&languageModels](const TranscriptionModel& model) {
        languageModels.choose(model);
    };
    auto list = std::make_unique<ModelListModel>(std::move(parts));
    connect(&parts_.speech.downloads, &DownloadQueue::changed, list.get(), &ModelListModel::refresh);
    connect(&languageModels, &LanguageModels::changed, list.get(), &ModelListModel::reload);
    return list;
}

VocabularyModel::Boosting Windows::boosting() const
{
    using State = VocabularyModel::Boosting::State;
    Speech& speech = parts_.speech;
    const TranscriptionModel& model = speech.catalogue.boostingModel();
    VocabularyModel::Boosting boosting;
    if (!speech.engines.of(speech.selection.selectedModel()).boostsWords())
        return boosting;
    const ModelStatus status = speech.status(model);
    const bool hasHost = ModelHost::usable(model.address()).has_value();
    if (speech.downloads.stateOf(model.name) != DownloadQueue::State::idle)
        boosting.state = State::downloading;
    else if (status.state == ModelStatus::State::ready)
        boosting.state = State::ready;
    else if (status.state == ModelStatus::State::unchecked)
        boosting.state = State::damaged;
    else
        boosting.state = hasHost ? State::missing : State::unpublished;
    boosting.file =
        status.file.isEmpty() ? modelFolders().constFirst() + QLatin1Char('/') + model.fileName() : status.file;
    boosting.size = model.size;
    boosting.problem = boosting.state == State::ready ? speech.boostingProblem() : QString();
    boosting.status = speech.downloads.statusText(model.name);
    boosting.progress =
        speech.downloads.stateOf(model.name) == DownloadQueue::State::running ? speech.downloads.progress() : 0;
    return boosting;
}

std::unique_ptr<VocabularyModel> Windows::makeVocabularyModel()
{
    DownloadQueue& downloads = parts_.speech.downloads;
    auto vocabulary = std::make_unique<VocabularyModel>(VocabularyModel::Parts{
        parts_.vocabulary,
        [this](const LimitNotice& notice) {
            alerts_.show(AlertWindow::Kind::informational, notice.title, notice.message);
        },
        [this](std::function<void()> confirmed) {
            alerts_.confirm(tr("Reset All Vocabulary & Replacements"),
                            tr("All words and replacements will be removed. This action cannot be undone."),
                            tr("Reset"), std::move(confirmed));
        },
        [this] { return boosting(); }, [this, &downloads] { downloads.add(parts_.speech.catalogue.boostingModel()); },
        [this, &downloads] { downloads.cancel(parts_.speech.catalogue.boostingModel().name); }, chooseListToRead,
        chooseListToWrite});
    connect(&downloads, &DownloadQueue::changed, vocabulary.get(), &VocabularyModel::refreshBoosting);
    const auto follow = [page = vocabulary.get()](const QString& key) {
        if (key == setting::selectedModelName.key || key == setting::modelHostBaseURL.key)
            page->refreshBoosting();
    };
    connect(&parts_.defaults, &UserDefaults::changed, vocabulary.get(), follow, Qt::QueuedConnection);
    return vocabulary;
}

std::unique_ptr<ProvidersModel> Windows::makeProvidersModel()
{
    Rewriting& rewriting = parts_.rewriting;
    return std::make_unique<ProvidersModel>(
        ProvidersModel::Parts{rewriting.providers(), [&rewriting] { return rewriting.keyAccounts(); },
                              [&rewriting](const QString& account) { return rewriting.keyEnding(account); },
                              [&rewriting](const ProviderConfiguration& provider, const std::optional<QString>& key) {
                                  return rewriting.verify(provider, key);
                              },
                              [this](const QString& question, std::function<void()> confirmed) {
                                  alerts_.confirm(tr("Delete Provider"), question, tr("Delete"), std::move(confirmed));
                              },
                              [&rewriting](const ProviderConfiguration& provider, const std::optional<QString>& key) {
                                  return rewriting.offeredModels(provider, key);
                              },
                              [this](const QString& address) {
                                  return parts_.platform.workspace->openUrl(address);
                              }});
}

std::unique_ptr<RecorderCocoa> Windows::makeRecorder(const KeyboardShortcuts::Name& name)
{
    return std::make_unique<RecorderCocoa>(parts_.shortcuts, *parts_.platform.hotKeys,
                                           *parts_.platform.desktopShortcuts, parts_.notifications, name);
}

Machine Windows::machine() const
{
    return {static_cast<int>(std::thread::hardware_concurrency()), parts_.platform.systemInfo->physicalMemoryBytes()};
}

std::unique_ptr<PrivacySettings> Windows::makePrivacySettings()
{
    History& history = parts_.history;
    auto privacy = std::make_unique<PrivacySettings>(PrivacySettings::Parts{
        parts_.defaults,
        [&history] {
            const StoredAmount amount = history.store.amount();
            const AudioFolder& audio = history.audio.folder();
            return PrivacySettings::Stored{amount.dictations, amount.notes, static_cast<int>(audio.identities().size()),
                                           amount.bytes + audio.bytes(),
                                           QFileInfo(CoreDataStack::standardPath()).path()};
        },
        [&history](int days) { return history.store.countBefore(history.retention.limit(days)); },
        [&history](std::optional<int> days, qint64 megabytes) {
            return static_cast<int>(history.audio.folder().beyond(history.audio.limits(days, megabytes)).size());
        },
        [&history] { return history.jobs.clear(); }, [&history] { return history.retention.isPrivate(); },
        [&history](bool on) { history.retention.setPrivate(on); },
        [this](const QString& title, const QString& question, std::function<void()> confirmed) {
            alerts_.confirm(title, question, tr("Delete"), std::move(confirmed));
        }});
    connect(&history.retention, &Retention::privateChanged, privacy.get(), &PrivacySettings::changed);
    connect(&history.audio, &KeptAudio::changed, privacy.get(), &PrivacySettings::refresh);
    connect(&history.store, &CoreDataStack::changedAtLarge, privacy.get(), &PrivacySettings::refresh);
    return privacy;
}

LazyWindow::Content Windows::historyContent()
{
    auto changes = std::make_unique<HistoryChanges>();
    auto dictations = makeHistoryModel(*changes);
    auto notes = makeNotesModel(*changes);
    LazyWindow::Content content;
    put(content, "player", makeRecordingPlayer(*changes));
    put(content, "changes", std::move(changes));
    put(content, "model", std::move(dictations));
    put(content, "notes", std::move(notes));
    return content;
}

LazyWindow::Content Windows::onboardingContent()
{
    auto model = std::make_unique<OnboardingModel>(OnboardingModel::Parts{
        parts_.platform.makeAudioEngine, parts_.devices, *parts_.platform.permissions, *parts_.platform.keyEvents,
        parts_.shortcuts, parts_.notifications, parts_.clock, parts_.speech.downloads, parts_.defaults,
        *parts_.platform.loginItem, parts_.speech.selection, machine(),
        [this](const TranscriptionModel& model) { return !parts_.speech.status(model).file.isEmpty(); },
        [this](bool sandbox) { isSandboxMode_ = sandbox; },
        [this] {
            if (!isQuitting_)
                hud_.showNews(tr("Setup not finished"),
                              tr("vantro's tray menu, or \"vantro show guide\", continues it"));
        }});
    LazyWindow::Content content;
    put(content, "model", std::move(model));
    put(content, "recorder", makeRecorder(KeyboardShortcuts::Name::openModal));
    return content;
}

ModelListModel::State Windows::stateOf(const TranscriptionModel& model) const
{
    switch (parts_.speech.downloads.stateOf(model.name)) {
    case DownloadQueue::State::running:
        return ModelListModel::Downloading;
    case DownloadQueue::State::waiting:
        return ModelListModel::Waiting;
    case DownloadQueue::State::idle:
        break;
    }
    const ModelStatus status = parts_.speech.status(model);
    if (!status.file.isEmpty())
        return ModelListModel::Ready;
    return status.state == ModelStatus::State::partial ? ModelListModel::Partial : ModelListModel::Missing;
}

} // namespace vantro
