#include "vantro/ui/onboarding/OnboardingModel.h"

#include "base/Notifications.h"
#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/models/SpokenLanguages.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto keyPatience = 1500ms;
constexpr qint64 finishedStep = -1;

} // namespace

OnboardingModel::OnboardingModel(Parts parts)
    : parts_(std::move(parts))
    , monitor_(parts_.makeEngine, parts_.devices, parts_.clock)
    , download_(parts_.downloads)
{
    keyPatience_.setSingleShot(true);
    keyPatience_.setInterval(keyPatience);
    connect(&keyPatience_, &QTimer::timeout, this, [this] { failKeys({}); });
    connect(&monitor_, &MicrophoneMonitor::changed, this, [this] {
        Q_EMIT levelChanged();
        Q_EMIT changed();
    });
    connect(&parts_.devices, &AudioDeviceManager::availableDevicesChanged, this, &OnboardingModel::changed);
    connect(&parts_.shortcuts, &KeyboardShortcuts::shortcutFailed, this, &OnboardingModel::changed);
    connect(&parts_.shortcuts, &KeyboardShortcuts::shortcutRecovered, this, &OnboardingModel::changed);
    observations_.push_back(parts_.notifications.observe(KeyboardShortcuts::shortcutByNameDidChange,
                                                         [this](const auto&) { Q_EMIT changed(); }));
    connect(&parts_.devices, &AudioDeviceManager::selectedDeviceIDChanged, this, &OnboardingModel::followMicrophone);
    connect(&parts_.devices, &AudioDeviceManager::inputModeChanged, this, &OnboardingModel::followMicrophone);
    download_.setModel(parts_.models.selectedModel(), {});
    connect(&download_, &ModelDownloadModel::statusChanged, this, &OnboardingModel::changed);
    const auto left = parts_.defaults.get(setting::guideStep);
    setStep(left > Welcome && left < Ready ? static_cast<Step>(left) : Welcome);
}

OnboardingModel::~OnboardingModel()
{
    parts_.defaults.set(setting::guideStep, isFinished_ ? finishedStep : static_cast<qint64>(step_));
    if (!isFinished_ && step_ < Practice && parts_.left)
        parts_.left();
}

void OnboardingModel::setStep(Step step)
{
    step_ = step;
    // The microphone is only open while its page is shown.
    if (step == Microphone)
        monitor_.start();
    else
        monitor_.stop();
    if (step == ShortcutStep && !parts_.shortcuts.shortcut(KeyboardShortcuts::Name::openModal))
        parts_.shortcuts.proposeShortcut(KeyboardShortcuts::Name::openModal);
    parts_.setSandboxMode(step == Practice);
    Q_EMIT changed();
}

QString OnboardingModel::microphoneText() const
{
    if (!parts_.permissions.microphoneAuthorized())
        return wording::noSoundServer();
    if (!monitor_.problem().isEmpty())
        return monitor_.problem();
    const auto& present = parts_.devices.availableDevices();
    if (present.empty())
        return wording::noMicrophone();
    const auto wanted = parts_.devices.effectiveDeviceID();
    const auto found = std::ranges::find_if(present, [&](const auto& device) { return wanted == device.id; });
    const QString name = found != present.end() ? found->name : tr("The default microphone");
    return monitor_.hasHeard() ? tr("%1 hears you.").arg(name) : tr("%1 is listening. Say something.").arg(name);
}

QStringList OnboardingModel::microphones() const
{
    QStringList names{tr("The desktop's microphone")};
    for (const AudioInputDevice& device : parts_.devices.availableDevices())
        names << device.name;
    return names;
}

int OnboardingModel::microphone() const
{
    if (parts_.devices.inputMode() == AudioInputMode::systemDefault)
        return 0;
    const auto& present = parts_.devices.availableDevices();
    const auto used = parts_.devices.effectiveDeviceID();
    const auto found = std::ranges::find_if(present, [&](const auto& device) { return used == device.id; });
    return found != present.end() ? static_cast<int>(found - present.begin()) + 1 : 0;
}

void OnboardingModel::setMicrophone(int index)
{
    const auto& present = parts_.devices.availableDevices();
    if (index > 0 && index <= static_cast<int>(present.size()))
        parts_.devices.setSelectedDeviceID(present[static_cast<std::size_t>(index) - 1].id);
    parts_.devices.setInputMode(index > 0 ? AudioInputMode::custom : AudioInputMode::systemDefault);
}

/// The bar shows the level of the one that is chosen.
void OnboardingModel::followMicrophone()
{
    if (monitor_.isRunning()) {
        monitor_.stop();
        monitor_.start();
    }
    Q_EMIT changed();
}

QStringList OnboardingModel::languages() const
{
    QStringList names;
    for (const SpokenLanguage& language : spokenLanguages())
        names << language.name;
    return names;
}

int OnboardingModel::language() const
{
    const auto& all = spokenLanguages();
    const auto found = std::ranges::find(all, parts_.defaults.get(setting::selectedLanguage), &SpokenLanguage::code);
    return found != all.end() ? static_cast<int>(found - all.begin()) : 0;
}

void OnboardingModel::setLanguage(int index)
{
    parts_.defaults.set(setting::selectedLanguage, spokenLanguages().at(static_cast<std::size_t>(index)).code);
    Q_EMIT changed();
}

QStringList OnboardingModel::models() const
{
    const TranscriptionModel& best =
        recommended(catalogue(), parts_.machine, spokenLanguage(parts_.defaults), parts_.isModelPresent);
    QStringList names;
    for (const TranscriptionModel& each : catalogue()) {
        const QString entry = tr("%1, %2").arg(shortName(each), each.size);
        names << (each.name == best.name ? tr("%1 (recommended)").arg(entry) : entry);
    }
    return names;
}

int OnboardingModel::model() const
{
    const auto found = std::ranges::find(catalogue(), parts_.models.selectedModel().name, &TranscriptionModel::name);
    return static_cast<int>(found - catalogue().begin());
}

void OnboardingModel::setModel(int index)
{
    parts_.models.select(catalogue().at(static_cast<std::size_t>(index)));
    download_.setModel(parts_.models.selectedModel(), {});
    Q_EMIT changed();
}

QString OnboardingModel::modelText() const
{
    const auto wait = expectedWait(parts_.models.selectedModel(), parts_.machine);
    return wait < 1s
               ? tr("A sentence of ten seconds takes it less than a second on this computer.")
               : tr("A sentence of ten seconds takes it about %1 s on this computer.").arg(std::lround(wait.count()));
}

void OnboardingModel::setStartsAtLogin(bool on)
{
    problem_.clear();
    try {
        parts_.loginItem.setEnabled(on);
    } catch (const LoginItemError& error) {
        problem_ = error.localizedDescription();
    }
    Q_EMIT changed();
}

void OnboardingModel::tryKeys()
{
    keys_ = KeyTest::posted;
    keysProblem_.clear();
    keyPatience_.start();
    Q_EMIT changed();
    try {
        parts_.keyEvents.postPaste(KeyEventPoster::PasteChord::ControlV);
    } catch (const KeyEventError& error) {
        failKeys(error.localizedDescription());
    }
}

void OnboardingModel::keyArrived()
{
    // The same keys pressed by the user prove nothing.
    if (keys_ != KeyTest::posted)
        return;
    keyPatience_.stop();
    keys_ = KeyTest::arrived;
    logger_.info(QStringLiteral("The keystroke arrived"));
    Q_EMIT changed();
}

void OnboardingModel::failKeys(const QString& reason)
{
    keyPatience_.stop();
    keys_ = KeyTest::lost;
    keysProblem_ = reason;
    logger_.info(QStringLiteral("The keystroke did not arrive: ") + reason);
    Q_EMIT changed();
}

QString OnboardingModel::keysText() const
{
    switch (keys_) {
    case KeyTest::untried:
    case KeyTest::posted:
        return tr("Trying the keyboard...");
    case KeyTest::arrived:
        return tr("The keystroke arrived: vantro can paste for you.");
    case KeyTest::lost:
        return (keysProblem_.isEmpty() ? tr("The keystroke did not arrive.") : keysProblem_) + QLatin1Char('\n') +
               tr("Bring this window to the front and try again. Otherwise you can paste your text yourself with %1.")
                   .arg(wording::shownKeys(wording::pasteShortcut()));
    }
    return {};
}

bool OnboardingModel::isShortcutGood() const
{
    const auto& name = KeyboardShortcuts::Name::openModal;
    return parts_.shortcuts.shortcut(name) && !parts_.shortcuts.failure(name);
}

QString OnboardingModel::shortcut() const
{
    const auto stored = parts_.shortcuts.shortcut(KeyboardShortcuts::Name::openModal);
    return stored ? wording::shownKeys(stored->displayText()) : QString();
}

QString OnboardingModel::shortcutText() const
{
    if (const auto failure = parts_.shortcuts.failure(KeyboardShortcuts::Name::openModal))
        return *failure;
    if (!isShortcutGood())
        return tr("None of the usual shortcuts is free. Record one of your own.");
    if (parts_.shortcuts.howToBind(KeyboardShortcuts::Name::openModal))
        return tr("Do what stands below, once. Then press it to start, and Space when you are done.");
    return tr("It works in every program. Press it to start, and Space when you are done.");
}

void OnboardingModel::startDownload()
{
    if (!isModelGood())
        download_.retry();
}

void OnboardingModel::finish()
{
    isFinished_ = true;
    parts_.notifications.post(notification::onboardingClosed);
}

} // namespace vantro
