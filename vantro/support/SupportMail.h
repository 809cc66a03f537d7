#pragma once

#include "platform/SystemInfo.h"

#include <QString>

namespace vantro::mail {

/// "mailto:" addresses of mails that the user sends with a mail program of his own. Nothing is sent by vantro.

/// A mail to @p address with the questions of an error report and what kind of system this is. @p appVersion may be
/// empty when it is unknown.
[[nodiscard]] QString errorReportUrl(const QString& address, const QString& appVersion, const SystemInfo& system);
[[nodiscard]] QString feedbackUrl(const QString& address);

/// The system's description as it stands in the report, one fact a line.
[[nodiscard]] QString systemInformation(const QString& appVersion, const SystemInfo& system);

/// "15.5 GB": multiples of 1024, as memory is counted; no decimals below a megabyte, one below a gigabyte, else two.
[[nodiscard]] QString memorySize(quint64 bytes);

} // namespace vantro::mail
