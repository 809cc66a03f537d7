#include "vantro/support/SupportMail.h"

#include "platform/Wording.h"

#include <QUrl>

#include <array>

namespace vantro::mail {

namespace {

// Not translated: the developers read it.
constexpr char issueTemplate[] =
    "📝 Issue details:\n"
    "* What steps did you take before the issue occurred?\n"
    "* What did you expect to happen?\n"
    "* What did actually happened instead?\n"
    "* Has it happened before?\n"
    "\n"
    "---\n"
    "📹 Screen recording / screenshots (highly recommended)\n"
    "Create a quick screen recording or screenshots showing the issue. This will help understand the issue faster.\n"
    "\n"
    "System Information:\n";

/// Keeps what RFC 3986, 3.4 allows in a query, except for what would end or change a field of the mailto address: a
/// computer's vendor may be called "B&R".
QString encoded(const QString& text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text, "!$'()*,;:@/?"));
}

} // namespace

QString errorReportUrl(const QString& address, const QString& appVersion, const SystemInfo& system)
{
    const QString body = QString::fromUtf8(issueTemplate) + systemInformation(appVersion, system) + QLatin1Char('\n');
    return QStringLiteral("mailto:%1?subject=%2&body=%3")
        .arg(address, encoded(QStringLiteral("vantro error report")), encoded(body));
}

QString feedbackUrl(const QString& address)
{
    return QStringLiteral("mailto:%1?subject=%2").arg(address, encoded(QStringLiteral("vantro feedback")));
}

QString systemInformation(const QString& appVersion, const SystemInfo& system)
{
    return QStringLiteral("App Version: ") + (appVersion.isEmpty() ? QStringLiteral("Unknown") : appVersion) +
           QLatin1Char('\n') + wording::systemVersionLabel() + system.operatingSystemVersion() +
           QStringLiteral("\nDevice: ") + system.deviceModel() + QStringLiteral("\nCPU: ") + system.processorName() +
           QStringLiteral("\nMemory: ") + memorySize(system.physicalMemoryBytes());
}

QString memorySize(quint64 bytes)
{
    struct Unit
    {
        const char* name;
        int decimals;
    };
    static constexpr std::array<Unit, 5> units{{{"bytes", 0}, {"KB", 0}, {"MB", 1}, {"GB", 2}, {"TB", 2}}};
    auto amount = static_cast<double>(bytes);
    std::size_t unit = 0;
    for (; amount >= 1024 && unit + 1 < units.size(); ++unit)
        amount /= 1024;
    QString figure = QString::number(amount, 'f', units.at(unit).decimals);
    while (figure.contains(QLatin1Char('.')) &&
           (figure.endsWith(QLatin1Char('0')) || figure.endsWith(QLatin1Char('.'))))
        figure.chop(1);
    return figure + QLatin1Char(' ') + QLatin1String(units.at(unit).name);
}

} // namespace vantro::mail
