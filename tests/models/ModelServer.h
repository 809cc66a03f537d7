#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace vantro {

/// modelserver.py as a child process: an HTTP server of a folder's files, with a fault if one is asked for.
class ModelServer
{
public:
    /// Waits until connections are accepted. @p fault: the fields of its Fault, as JSON.
    explicit ModelServer(const QString& folder, const QString& fault = QStringLiteral("{}"));
    ~ModelServer();

    [[nodiscard]] QString url(const QString& file) const;
    /// One "PATH RANGE" line for each request so far.
    [[nodiscard]] QStringList requests() const;

private:
    QString folder_;
    QProcess process_;
    QString port_;
};

} // namespace vantro
