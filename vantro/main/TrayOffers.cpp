// The part of Windows that fills the tray's submenus and does what is chosen there.
#include "base/PlainText.h"
#include "base/Settings.h"
#include "vantro/ai/DefaultMode.h"
#include "vantro/main/Windows.h"
#include "vantro/store/StoreError.h"

namespace vantro {

namespace {

constexpr int recentCount = 5;
/// Of a menu's entry, in characters.
constexpr qsizetype entryLength = 50;

} // namespace

/// Some trays do not tell when the menu opens, so its entries must always be current.
void Windows::connectTrayOffers()
{
    connect(&tray_, &TrayIcon::aboutToShow, this, &Windows::fillTray);
    const CoreDataStack& store = parts_.history.store;
    connect(&store, &CoreDataStack::transcriptionChanged, this, &Windows::fillTray, Qt::QueuedConnection);
    connect(&store, &CoreDataStack::changedAtLarge, this, &Windows::fillTray, Qt::QueuedConnection);
    connect(&parts_.devices, &AudioDeviceManager::availableDevicesChanged, this, &Windows::fillTray);
    connect(&parts_.devices, &AudioDeviceManager::selectedDeviceIDChanged, this, &Windows::fillTray);
    connect(&parts_.devices, &AudioDeviceManager::inputModeChanged, this, &Windows::fillTray);
    connect(&parts_.rewriting.prompts(), &PromptSettings::changed, this, &Windows::fillTray);
    connect(&parts_.defaults, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == setting::defaultProcessingMode.key)
            fillTray();
    });
    // Once the history is open.
    QMetaObject::invokeMethod(this, &Windows::fillTray, Qt::QueuedConnection);

    connect(&tray_, &TrayIcon::copyRequested, this, [this](int index) {
        if (const auto row = parts_.history.store.transcription(recent_.at(static_cast<std::size_t>(index))))
            parts_.platform.pasteboard->setString(Pasteboard::Selection::Clipboard, row->text());
    });
    connect(&tray_, &TrayIcon::microphoneRequested, this, [this](int index) {
        const auto& present = parts_.devices.availableDevices();
        if (index == 0)
            parts_.devices.setInputMode(AudioInputMode::systemDefault);
        if (index == 0 || index > static_cast<int>(present.size()))
            return;
        parts_.devices.setSelectedDeviceID(present[static_cast<std::size_t>(index) - 1].id);
        parts_.devices.setInputMode(AudioInputMode::custom);
    });
    connect(&tray_, &TrayIcon::modeRequested, this, [this](int index) {
        const auto modes = parts_.rewriting.visibleModes();
        if (index < static_cast<int>(modes.size()))
            setDefaultMode(parts_.defaults, modes[static_cast<std::size_t>(index)]);
    });
}

/// None if the history cannot be read.
std::vector<TranscriptionExcerpt> Windows::recentDictations() const
{
    try {
        return TranscriptionFetch(parts_.history.store.persistentContainer(), {}).excerpts({}, recentCount);
    } catch (const StoreError&) {
        return {};
    }
}

void Windows::fillTray()
{
    TrayIcon::Offers offers;
    recent_.clear();
    for (const TranscriptionExcerpt& each : recentDictations()) {
        recent_.push_back(each.id);
        offers.recent << firstWords(each.text, entryLength);
    }
    const AudioInputMode input = parts_.devices.inputMode();
    offers.microphones.push_back({tr("Same as the Desktop"), input == AudioInputMode::systemDefault});
    for (const AudioInputDevice& device : parts_.devices.availableDevices())
        offers.microphones.push_back(
            {device.name, input != AudioInputMode::systemDefault && parts_.devices.effectiveDeviceID() == device.id});
    const ProcessingMode mode = defaultMode(parts_.defaults);
    for (const ProcessingMode each : parts_.rewriting.visibleModes())
        offers.modes.push_back({parts_.rewriting.prompts().displayName(each), each == mode});
    tray_.setOffers(offers);
}

} // namespace vantro
