#include "base/Error.h"

#include <utility>

namespace vantro {

Error::Error(QString description) : description_(std::move(description)), utf8_(description_.toStdString()) {}

QString localizedDescription(const std::exception& error)
{
    if (const auto* own = dynamic_cast<const Error*>(&error))
        return own->localizedDescription();
    return QString::fromUtf8(error.what());
}

} // namespace vantro
