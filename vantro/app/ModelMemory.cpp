#include "vantro/app/ModelMemory.h"

#include "base/Settings.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto lookEvery = 60s;
constexpr quint64 shortageDivisor = 16; ///< memory is short below this fraction of all

} // namespace

ModelMemory::ModelMemory(Parts parts) : parts_(parts)
{
    connect(&parts_.defaults, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == setting::selectedModelName.key)
            unloadUnselected();
    });
    // Later: the dictation that has just ended may unload its model itself.
    connect(&parts_.recorder, &AudioRecorder::isBusyChanged, this, &ModelMemory::look, Qt::QueuedConnection);
}

void ModelMemory::unloadUnselected()
{
    const TranscriptionModel* const selected = parts_.selection.stored();
    for (SpeechEngine* engine : parts_.engines.all()) {
        if (selected != nullptr && engine->kind() != selected->engine && engine->holdsModel())
            engine->unload();
    }
}

void ModelMemory::look()
{
    nextLook_.reset();
    const auto& engines = parts_.engines.all();
    if (parts_.recorder.isBusy() || std::ranges::none_of(engines, &SpeechEngine::holdsModel))
        return;
    if (isShort()) {
        logger_.info(QStringLiteral("Memory is short: unloading the speech model"));
        for (SpeechEngine* engine : engines)
            engine->unload();
        return;
    }
    nextLook_ = std::make_unique<QObject>();
    parts_.clock.callAfter(lookEvery, nextLook_.get(), [this] { look(); });
}

bool ModelMemory::isShort() const
{
    const auto available = parts_.system.availableMemoryBytes();
    return available && *available < parts_.system.physicalMemoryBytes() / shortageDivisor;
}

} // namespace vantro
