#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace vantro {

/// The newest release, as the manifest tells it. Its "file" field is for installers and is not looked at.
struct UpdateInfo
{
    QString version; ///< dotted numbers such as 1.4.2
    QUrl url;        ///< the page to download it from
    QString notes;   ///< empty when there are none

    /// Nothing unless @p json is an object with a "version" and a "url" of the right types.
    static std::optional<UpdateInfo> fromJson(const QByteArray& json);
};

/// Whether version @p a is newer than @p b. Both are split at the dots; what is no number is left out, and what one of
/// them lacks at its end counts as 0.
[[nodiscard]] bool isNewerVersion(const QString& a, const QString& b);

} // namespace vantro
