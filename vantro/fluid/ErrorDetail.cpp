#include "vantro/fluid/ErrorDetail.h"

#include "asr/ASRError.h"
#include "base/Error.h"

#include <QtGlobal>

#include <array>

namespace vantro {

namespace {

/// What the recogniser, which knows nothing of translations, tells the user.
[[maybe_unused]] constexpr std::array sentences = {
    QT_TRANSLATE_NOOP("Exception", "Speech recognition failed."),
    QT_TRANSLATE_NOOP("Exception", "This processor cannot run the Parakeet models."),
    QT_TRANSLATE_NOOP("Exception", "The audio could not be converted for recognition."),
    QT_TRANSLATE_NOOP("Exception", "The audio file could not be read."),
    QT_TRANSLATE_NOOP("Exception", "The speech encoder could not be set up."),
    QT_TRANSLATE_NOOP("Exception", "The speech recogniser has no model loaded."),
    QT_TRANSLATE_NOOP("Exception", "The recording contains no usable audio."),
    QT_TRANSLATE_NOOP("Exception", "Failed to load Parakeet CoreML models."),
};

} // namespace

QString detailOf(const std::exception& error)
{
    const auto* asrError = dynamic_cast<const asr::ASRError*>(&error);
    return asrError != nullptr && !asrError->detail().empty()
               ? QStringLiteral("%1 (%2)").arg(localizedDescription(error), QString::fromStdString(asrError->detail()))
               : localizedDescription(error);
}

} // namespace vantro
