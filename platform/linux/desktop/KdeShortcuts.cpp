#include "platform/linux/desktop/KdeShortcuts.h"

#include "platform/linux/desktop/KeyNames.h"

#include <QFile>
#include <QStringList>

namespace vantro {

namespace {

/// Splits a comma-separated list with backslash escapes.
QStringList fields(const QString& value)
{
    QStringList result{QString()};
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] == QLatin1Char(',')) {
            result << QString();
        } else if (value[i] == QLatin1Char('\\') && i + 1 < value.size()) {
            ++i;
            result.last() += value[i] == QLatin1Char('t') ? QLatin1Char('\t') : value[i];
        } else {
            result.last() += value[i];
        }
    }
    return result;
}

} // namespace

// "Name=active shortcuts,default shortcuts,description", with tabs between several shortcuts. Entries for launching a
// program have the first field only.
std::vector<DesktopShortcut> readKdeShortcuts(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return {};
    std::vector<DesktopShortcut> result;
    QString group;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            group = line.mid(line.lastIndexOf(QLatin1Char('[')) + 1).chopped(1);
            continue;
        }
        const auto equals = line.indexOf(QLatin1Char('='));
        const QString name = line.left(equals);
        if (equals < 1 || name == QLatin1String("_k_friendly_name"))
            continue;
        const QStringList parts = fields(line.mid(equals + 1));
        const QString action = parts.size() > 2 ? parts[2] : group;
        for (const QString& text : parts.first().split(QLatin1Char('\t'))) {
            if (const auto parsed = parseQtSequence(text))
                result.push_back({.keyCode = parsed->keyCode, .modifiers = parsed->modifiers, .action = action});
        }
    }
    return result;
}

} // namespace vantro
