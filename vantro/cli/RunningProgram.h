#pragma once

#include <QJsonObject>

#include <optional>

namespace vantro {

/// What the running desktop program tells about itself; nothing when none runs in this session.
std::optional<QJsonObject> runningProgramStatus();

} // namespace vantro
