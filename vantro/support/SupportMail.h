#pragma once

#include "platform/SystemInfo.h"

#include <QString>

namespace vantro::mail {

/// "mailto:" URLs for the user's mail program. vantro itself sends nothing.

/// An error report with questions and a description of the system. @p appVersion: empty when unknown.
[[nodiscard]] QString errorReportUrl(const QString& address, const QString& appVersion, const SystemInfo& system);
[[nodiscard]] QString feedbackUrl(const QString& address);

/// The description of the system in the report, one fact per line.
[[nodiscard]] QString systemInformation(const QString& appVersion, const SystemInfo& system);

/// "15.5 GB": in multiples of 1024; no decimals below 1 MB, at most one below 1 GB, at most two above.
[[nodiscard]] QString memorySize(quint64 bytes);

} // namespace vantro::mail
