#include "vantro/fluid/ErrorDetail.h"

#include "asr/ASRError.h"
#include "base/Error.h"

namespace vantro {

QString detailOf(const std::exception& error)
{
    const auto* asrError = dynamic_cast<const asr::ASRError*>(&error);
    return asrError != nullptr && !asrError->detail().empty()
               ? QStringLiteral("%1 (%2)").arg(localizedDescription(error), QString::fromStdString(asrError->detail()))
               : localizedDescription(error);
}

} // namespace vantro
