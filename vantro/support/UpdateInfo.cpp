#include "vantro/support/UpdateInfo.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <charconv>
#include <vector>

namespace vantro {

namespace {

std::optional<qint64> number(const QString& text)
{
    // Unlike QString's conversion, rejects spaces around the number.
    const QByteArray latin = text.toLatin1();
    const char* begin = latin.cbegin();
    if (latin.startsWith('+') && !latin.startsWith("+-"))
        ++begin;
    qint64 value = 0;
    const auto [end, error] = std::from_chars(begin, latin.cend(), value);
    return error == std::errc() && end == latin.cend() ? std::optional(value) : std::nullopt;
}

std::vector<qint64> numbers(const QString& version)
{
    std::vector<qint64> result;
    for (const QString& piece : version.split(QLatin1Char('.'), Qt::SkipEmptyParts)) {
        if (const auto value = number(piece))
            result.push_back(*value);
    }
    return result;
}

} // namespace

std::optional<UpdateInfo> UpdateInfo::fromJson(const QByteArray& json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const QJsonValue version = object.value(QLatin1String("version"));
    const QJsonValue url = object.value(QLatin1String("url"));
    const QJsonValue notes = object.value(QLatin1String("notes"));
    if (!version.isString() || !url.isString() || !(notes.isString() || notes.isNull() || notes.isUndefined()))
        return std::nullopt;
    const QUrl page(url.toString(), QUrl::StrictMode);
    if (page.isEmpty() || !page.isValid())
        return std::nullopt;
    return UpdateInfo{version.toString(), page, notes.toString()};
}

bool isNewerVersion(const QString& a, const QString& b)
{
    std::vector<qint64> left = numbers(a);
    std::vector<qint64> right = numbers(b);
    const std::size_t length = std::max(left.size(), right.size());
    left.resize(length);
    right.resize(length);
    return left > right;
}

} // namespace vantro
