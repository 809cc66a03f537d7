#include "platform/linux/xdg/XdgAutostart.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <utility>

namespace vantro {

namespace {

constexpr char entryTemplate[] = R"([Desktop Entry]
Type=Application
Name=vantro
Icon=com.vantro.app
Exec=%1
)";

QString tr(const char* text)
{
    return QCoreApplication::translate("XdgAutostart", text);
}

/// Quotes and escapes an argument of the Exec key.
QString quoted(const QString& argument)
{
    QString result;
    for (const QChar character : argument) {
        if (QStringLiteral("\"`$\\").contains(character))
            result += QLatin1Char('\\');
        if (character == QLatin1Char('%'))
            result += QLatin1Char('%');
        result += character;
    }
    // Desktop entry strings need another level of escaping.
    return QLatin1Char('"') + result.replace(QLatin1Char('\\'), QStringLiteral("\\\\")) + QLatin1Char('"');
}

} // namespace

XdgAutostart::XdgAutostart(const QString& folder, QString program)
    : file_(folder + QStringLiteral("/autostart/com.vantro.app.desktop"))
    , program_(std::move(program))
{
}

bool XdgAutostart::isEnabled() const
{
    QFile file(file_);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QByteArray entry = QByteArray(line).replace(" ", "").toLower();
        if (entry == "hidden=true" || entry == "x-gnome-autostart-enabled=false")
            return false;
    }
    return true;
}

void XdgAutostart::setEnabled(bool enabled)
{
    if (!enabled) {
        QFile file(file_);
        if (file.exists() && !file.remove())
            throw LoginItemError(tr("%1 could not be removed: %2").arg(file_, file.errorString()));
        return;
    }
    QDir().mkpath(QFileInfo(file_).path());
    QSaveFile file(file_);
    const QString entry = QString::fromLatin1(entryTemplate).arg(quoted(program_));
    if (!file.open(QIODevice::WriteOnly) || file.write(entry.toUtf8()) < 0 || !file.commit())
        throw LoginItemError(tr("%1 could not be written: %2").arg(file_, file.errorString()));
}

} // namespace vantro
