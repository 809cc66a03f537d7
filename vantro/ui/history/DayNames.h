#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

namespace vantro {

/// A day as people call it: "Today", "Yesterday", otherwise its date in full.
[[nodiscard]] QString dayName(QDate day, QDate today);
/// Hours and minutes as the session's language writes them.
[[nodiscard]] QString timeOfDay(const QDateTime& time);

} // namespace vantro
