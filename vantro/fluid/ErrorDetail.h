#pragma once

#include <QString>

#include <exception>

namespace vantro {

/// An error's description with the technical reason, for the log.
QString detailOf(const std::exception& error);

} // namespace vantro
