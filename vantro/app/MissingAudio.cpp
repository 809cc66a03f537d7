#include "vantro/app/MissingAudio.h"

#include "vantro/audio/AudioRecorder.h"

#include <QCoreApplication>

#include <cmath>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto worthTelling = 1s;

} // namespace

QString missingEnd(const AudioRecorder& recorder)
{
    if (recorder.isFull())
        return QCoreApplication::translate(
            "Dictation",
            "A recording ends after ten minutes. Anything said after that is missing: dictate the rest again.");
    if (const auto& lost = recorder.lostCapture())
        return QCoreApplication::translate(
                   "Dictation", "The microphone was lost during the recording. Anything said after that is missing. %1")
            .arg(lost->reason());
    return {};
}

QString missingParts(const AudioRecorder& recorder)
{
    if (recorder.missing() < worthTelling)
        return {};
    return QCoreApplication::translate(
               "Dictation", "The microphone sent nothing for %1 s of this recording. Anything said then is missing.")
        .arg(std::lround(recorder.missing().count()));
}

} // namespace vantro
