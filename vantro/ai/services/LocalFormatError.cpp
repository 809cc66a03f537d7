#include "vantro/ai/services/LocalFormatError.h"

#include "platform/Wording.h"

namespace vantro {

namespace {

QString describeLocal(LocalFormatError::Kind kind)
{
    switch (kind) {
    case LocalFormatError::Kind::generationFailed:
        return LocalFormatError::tr("Generation failed: ");
    case LocalFormatError::Kind::modelUnavailable:
        return LocalFormatError::tr("The on-device model is not available on this device");
    case LocalFormatError::Kind::modelNotReady:
        return LocalFormatError::tr("The model is not ready. Please wait for it to download");
    case LocalFormatError::Kind::appleIntelligenceNotEnabled:
        return wording::localProcessingIsOff();
    case LocalFormatError::Kind::contextWindowExceeded:
        return LocalFormatError::tr("The text is too long to process. Please try with shorter text");
    }
    Q_UNREACHABLE();
}

} // namespace

LocalFormatError::LocalFormatError(Kind kind) : LocalFormatError(kind, describeLocal(kind), {}) {}

LocalFormatError::LocalFormatError(Kind kind, const QString& description, const QString& detail)
    : Error(description)
    , kind_(kind)
    , detail_(detail)
{
}

LocalFormatError LocalFormatError::generationFailed(const QString& detail)
{
    return {Kind::generationFailed, describeLocal(Kind::generationFailed) + detail, detail};
}

} // namespace vantro
