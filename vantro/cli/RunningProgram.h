#pragma once

#include <QJsonObject>

#include <optional>

namespace vantro {

/// The status of the running program; nullopt when none is running in this session.
std::optional<QJsonObject> runningProgramStatus();

} // namespace vantro
