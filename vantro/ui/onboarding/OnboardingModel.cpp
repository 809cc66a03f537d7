#include "vantro/ui/onboarding/OnboardingModel.h"

#include "base/Notifications.h"
#include "platform/Wording.h"

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto keyPatience = 1500ms;

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
    download_.setModel(parts_.model, {});
    connect(&download_, &ModelDownloadModel::statusChanged, this, &OnboardingModel::changed);
    setStep(Microphone);
}

OnboardingModel::~OnboardingModel()
{
    if (!isFinished_ && step_ != Practice && parts_.left)
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
                   .arg(wording::pasteShortcut());
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
    return stored ? stored->displayText() : QString();
}

QString OnboardingModel::shortcutText() const
{
    if (const auto failure = parts_.shortcuts.failure(KeyboardShortcuts::Name::openModal))
        return *failure;
    if (!isShortcutGood())
        return tr("None of the usual shortcuts is free. Record one of your own.");
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
