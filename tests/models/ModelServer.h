#pragma once

#include "tests/ServerProcess.h"

namespace vantro {

/// modelserver.py: an HTTP server of a folder's files, with a fault if one is asked for.
class ModelServer
{
public:
    /// Waits until connections are accepted. @p fault: the fields of its Fault, as JSON.
    explicit ModelServer(const QString& folder, const QString& fault = QStringLiteral("{}"))
        : folder_(folder)
        , process_(QStringLiteral("models/modelserver.py"),
                   {folder, QStringLiteral("--port-file"), folder + QStringLiteral("/port"),
                    QStringLiteral("--requests"), requestFile(), QStringLiteral("--fault"), fault},
                   folder + QStringLiteral("/port"))
    {
    }

    [[nodiscard]] QString url(const QString& file) const
    {
        return QStringLiteral("http://127.0.0.1:%1/resolve/main/%2").arg(process_.port(), file);
    }
    /// One "PATH RANGE" line for each request so far.
    [[nodiscard]] QStringList requests() const
    {
        return ServerProcess::contents(requestFile()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    [[nodiscard]] QString requestFile() const { return folder_ + QStringLiteral("/requests"); }

    QString folder_;
    ServerProcess process_;
};

} // namespace vantro
