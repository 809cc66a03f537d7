#include "base/Error.h"

#include <QCoreApplication>

#include <new>
#include <utility>

namespace vantro {

Error::Error(QString description) : description_(std::move(description)), utf8_(description_.toStdString()) {}

QString localizedDescription(const std::exception& error)
{
    if (const auto* own = dynamic_cast<const Error*>(&error))
        return own->localizedDescription();
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return QCoreApplication::translate("Error", "There is not enough free memory. Close other programs.");
    return QCoreApplication::translate("Exception", error.what());
}

} // namespace vantro
