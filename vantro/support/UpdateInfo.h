#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace vantro {

/// The newest release, from the manifest. Its "file" field is for installers and is ignored.
struct UpdateInfo
{
    QString version; ///< dotted numbers such as 1.4.2
    QUrl url;        ///< the download page
    QString notes;   ///< empty when there are none

    /// Nullopt unless @p json is an object with a "version" and a "url" of the right types.
    static std::optional<UpdateInfo> fromJson(const QByteArray& json);
};

/// Whether version @p a is newer than @p b. Both are split at the dots; parts that are not numbers are ignored, and
/// missing parts at the end count as 0.
[[nodiscard]] bool isNewerVersion(const QString& a, const QString& b);

} // namespace vantro
