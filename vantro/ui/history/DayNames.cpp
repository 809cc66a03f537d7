#include "vantro/ui/history/DayNames.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace vantro {

QString dayName(QDate day, QDate today)
{
    if (day == today)
        return QCoreApplication::translate("History", "Today");
    if (day == today.addDays(-1))
        return QCoreApplication::translate("History", "Yesterday");
    return QLocale().toString(day, QLocale::LongFormat);
}

QString timeOfDay(const QDateTime& time)
{
    const QLocale locale;
    const QTime local = time.toLocalTime().time();
    // Without a language the short format has seconds.
    return locale.language() == QLocale::C ? locale.toString(local, QStringLiteral("HH:mm"))
                                           : locale.toString(local, QLocale::ShortFormat);
}

} // namespace vantro
