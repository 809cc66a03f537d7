#pragma once

#include "base/UserDefaults.h"
#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace vantro {

/// Where model files come from: a base URL (http, https or file) that serves them under "/resolve/main/".
namespace ModelHost {

/// The public repository of the whisper.cpp model files.
QString publicAddress();

/// The public repository of the Parakeet containers.
QString publicFluidAddress();
/// The base URL of the Parakeet containers when @p address serves the whisper models: a custom host serves both.
QString fluidAddress(const QString& address);

/// The first non-empty of: @p option (from the command line), VANTRO_MODEL_HOST, the setting "modelHostBaseURL", the
/// public repository. Not validated; trailing slashes are removed.
QString address(const UserDefaults& defaults, const QString& option);

/// Parses @p text as a URL that files can be fetched from; nullopt for anything else.
std::optional<QUrl> usable(const QString& text);
/// The URL of @p model's file. Throws Error when it is unusable.
QUrl urlOf(const TranscriptionModel& model);

} // namespace ModelHost

} // namespace vantro
