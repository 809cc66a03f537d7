#include "platform/linux/proc/ProcSystemInfo.h"

#include <QFile>
#include <QStringList>

#include <utility>

namespace vantro {

namespace {

QString unquoted(const QString& text)
{
    for (const QChar quote : {QLatin1Char('"'), QLatin1Char('\'')}) {
        if (text.size() >= 2 && text.startsWith(quote) && text.endsWith(quote))
            return text.mid(1, text.size() - 2);
    }
    return text;
}

/// Filters placeholders that board vendors leave in.
bool isFilledIn(const QString& field)
{
    static const QStringList fillers{QStringLiteral("To Be Filled By O.E.M."), QStringLiteral("To be filled by O.E.M."),
                                     QStringLiteral("System Product Name"),    QStringLiteral("System manufacturer"),
                                     QStringLiteral("Default string"),         QStringLiteral("Not Specified")};
    return !field.isEmpty() && !fillers.contains(field);
}

} // namespace

ProcSystemInfo::ProcSystemInfo(QString root) : root_(std::move(root))
{
    if (!root_.endsWith(QLatin1Char('/')))
        root_ += QLatin1Char('/');
}

QString ProcSystemInfo::operatingSystemVersion() const
{
    QStringList parts;
    for (const char* path : {"etc/os-release", "usr/lib/os-release"}) {
        const QString name = unquoted(value(QLatin1String(path), QStringLiteral("PRETTY_NAME"), QLatin1Char('=')));
        if (!name.isEmpty()) {
            parts << name;
            break;
        }
    }
    if (const QString kernel = contents(QStringLiteral("proc/sys/kernel/osrelease")); !kernel.isEmpty())
        parts << QStringLiteral("kernel ") + kernel;
    return parts.join(QStringLiteral(", "));
}

QString ProcSystemInfo::deviceModel() const
{
    const QString maker = contents(QStringLiteral("sys/class/dmi/id/sys_vendor"));
    const QString model = contents(QStringLiteral("sys/class/dmi/id/product_name"));
    if (!isFilledIn(model))
        return contents(QStringLiteral("proc/device-tree/model"));
    return isFilledIn(maker) && !model.startsWith(maker) ? maker + QLatin1Char(' ') + model : model;
}

QString ProcSystemInfo::processorName() const
{
    const QString path = QStringLiteral("proc/cpuinfo");
    // "model name" on x86; some ARM kernels have only the SoC, as "Hardware".
    const QString name = value(path, QStringLiteral("model name"), QLatin1Char(':'));
    return name.isEmpty() ? value(path, QStringLiteral("Hardware"), QLatin1Char(':')) : name;
}

quint64 ProcSystemInfo::physicalMemoryBytes() const
{
    return memory(QStringLiteral("MemTotal")).value_or(0);
}

std::optional<quint64> ProcSystemInfo::availableMemoryBytes() const
{
    return memory(QStringLiteral("MemAvailable"));
}

std::optional<quint64> ProcSystemInfo::memory(const QString& key) const
{
    constexpr quint64 kib = 1024;
    const QString line = value(QStringLiteral("proc/meminfo"), key, QLatin1Char(':'));
    bool isNumber = false;
    const quint64 count = line.section(QLatin1Char(' '), 0, 0).toULongLong(&isNumber);
    return isNumber ? std::optional(count * kib) : std::nullopt;
}

QString ProcSystemInfo::contents(const QString& path) const
{
    QFile file(root_ + path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // Device tree strings end with a NUL byte.
    return QString::fromUtf8(file.readAll()).remove(QChar(u'\0')).trimmed();
}

QString ProcSystemInfo::value(const QString& path, const QString& key, QChar separator) const
{
    for (const QString& line : contents(path).split(QLatin1Char('\n'))) {
        const auto end = line.indexOf(separator);
        if (end > 0 && line.left(end).trimmed() == key)
            return line.mid(end + 1).trimmed();
    }
    return {};
}

} // namespace vantro
