// The in-process measurements of bench/models: hashing a file, and downloading one with the program's downloader.
//
//   vantro_bench_models hash FILE
//   vantro_bench_models download URL DESTINATION
//
// Prints one JSON object: times in milliseconds, peak resident memory in MiB.
#include "vantro/models/FileDownloader.h"
#include "vantro/models/Sha1.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>

#include <sys/resource.h>

#include <atomic>
#include <cstdio>

using namespace vantro;

namespace {

double residentMiB()
{
    struct rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void print(QJsonObject figures)
{
    figures.insert(QStringLiteral("resident_mib"), residentMiB());
    std::printf("%s\n", QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
}

double milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void hash(const QString& file)
{
    QElapsedTimer timer;
    timer.start();
    const QString sha1 = sha1OfFile(file);
    print({{QStringLiteral("sha1"), sha1}, {QStringLiteral("ms"), milliseconds(timer)}});
}

void download(const QString& url, const QString& destination)
{
    QElapsedTimer timer;
    timer.start();
    std::atomic<double> receivedMs = 0;
    TransferRequest request;
    request.url = QUrl(url);
    request.destination = destination;
    request.onStored = [&destination] {
        sha1OfFile(destination);
    };
    FileDownloader downloader;
    downloader
        .download(request,
                  [&](const DownloadProgress& progress) {
                      if (progress.receivedBytes == progress.totalBytes && receivedMs.load() == 0)
                          receivedMs = milliseconds(timer);
                  })
        .waitForFinished();
    print({{QStringLiteral("received_ms"), receivedMs.load()}, {QStringLiteral("verified_ms"), milliseconds(timer)}});
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1String("hash"))
        hash(arguments[2]);
    else if (arguments.size() == 4 && arguments[1] == QLatin1String("download"))
        download(arguments[2], arguments[3]);
    else
        return 2;
    return 0;
}
