#pragma once

#include <QString>

#include <exception>

namespace vantro {

/// The message for the user when a dictation was transcribed but could not be processed in its mode.
QString processingErrorMessage(const std::exception& error);

} // namespace vantro
