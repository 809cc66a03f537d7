#include "vantro/delivery/Joint.h"

#include <QRegularExpression>

namespace vantro {

namespace {

/// Languages that put no spaces between sentences do not need one here.
bool endsWithoutSpace(const QString& text)
{
    static const QRegularExpression wide(
        QStringLiteral("[\\x{3000}-\\x{30FF}\\x{4E00}-\\x{9FFF}\\x{FF00}-\\x{FFEF}]$"));
    return wide.match(text).hasMatch();
}

bool endsSentence(const QString& text)
{
    static const QRegularExpression end(QStringLiteral("[.!?:\\x{2026}][\"')\\x{201C}\\x{201D}]*$"));
    return end.match(text).hasMatch();
}

bool keepsCapital(const QString& text, const QString& language)
{
    static const QRegularExpression own(QStringLiteral("^(I\\b|\\p{Lu}[\\p{Lu}\\d])"));
    return language == QLatin1String("de") || language == QLatin1String("lb") || own.match(text).hasMatch();
}

} // namespace

QString joinedTo(const QString& before, const QString& text, const QString& language)
{
    if (before.isEmpty() || text.isEmpty() || endsWithoutSpace(before))
        return text;
    QString joined = text;
    if (!endsSentence(before) && !keepsCapital(text, language))
        joined[0] = joined[0].toLower();
    return QLatin1Char(' ') + joined;
}

} // namespace vantro
