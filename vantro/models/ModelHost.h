#pragma once

#include "base/UserDefaults.h"
#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace vantro {

/// Where model files are fetched from: a base address (http, https or file) that serves them under "/resolve/main/".
namespace ModelHost {

/// The public repository of the whisper.cpp model files.
QString publicAddress();

/// The public repository of the Parakeet containers.
QString publicFluidAddress();
/// Where the Parakeet containers are fetched from when @p address serves the whisper models: a host that somebody named
/// serves both.
QString fluidAddress(const QString& address);

/// The first that is not empty of: @p option (from the command line), the environment's VANTRO_MODEL_HOST, the setting
/// "modelHostBaseURL", the public repository. Not checked; a trailing slash is dropped.
QString address(const UserDefaults& defaults, const QString& option);

/// @p text as an address that a file can be fetched from; absent for anything else.
std::optional<QUrl> usable(const QString& text);
/// The address that @p model is fetched from. Throws Error when nothing can be fetched from there.
QUrl urlOf(const TranscriptionModel& model);

} // namespace ModelHost

} // namespace vantro
