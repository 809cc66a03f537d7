#include "vantro/cli/Command.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Interruption.h"
#include "vantro/cli/ModelsSession.h"
#include "vantro/cli/Terminal.h"
#include "vantro/models/ModelDownloadError.h"
#include "vantro/models/TransferRate.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <qcoro/qcorotask.h>

#include <optional>
#include <utility>

namespace vantro {

namespace {

constexpr int barCells = 24;
constexpr qint64 redrawIntervalMs = 100;
constexpr int percentPerLogLine = 10;

/// Shows a download on standard error: a line that is redrawn on a terminal, otherwise a line every 10 %. Used by the
/// network thread only, until the download has ended.
class ProgressDisplay
{
public:
    explicit ProgressDisplay(QString name) : name_(std::move(name)) {}

    void show(const DownloadProgress& progress);

private:
    [[nodiscard]] QString line(const DownloadProgress& progress) const;

    QString name_;
    TransferRate rate_;
    QElapsedTimer sinceDrawn_;
    std::optional<QString> lastStatus_;
    int lastLoggedPercent_ = 0;
};

void ProgressDisplay::show(const DownloadProgress& progress)
{
    rate_.note(std::chrono::steady_clock::now(), progress.receivedBytes);
    const bool isNews = progress.statusText != lastStatus_;
    lastStatus_ = progress.statusText;
    if (terminal::errorIsTerminal()) {
        if (sinceDrawn_.isValid() && sinceDrawn_.elapsed() < redrawIntervalMs && !isNews)
            return;
        sinceDrawn_.start();
        terminal::showProgress(line(progress));
        return;
    }
    const int percent = static_cast<int>(progress.fraction() * 100);
    if (!(isNews && progress.statusText) && percent / percentPerLogLine == lastLoggedPercent_ / percentPerLogLine)
        return;
    lastLoggedPercent_ = percent;
    terminal::writeMessage(line(progress));
}

QString ProgressDisplay::line(const DownloadProgress& progress) const
{
    QString text = name_ + QStringLiteral("  ");
    if (progress.totalBytes > 0) {
        if (terminal::errorIsTerminal())
            text += terminal::bar(static_cast<int>(progress.fraction() * barCells), barCells) + QLatin1Char(' ');
        text += Command::tr("%1 %  %2 of %3")
                    .arg(static_cast<int>(progress.fraction() * 100), 3)
                    .arg(sizeText(progress.receivedBytes), sizeText(progress.totalBytes));
    } else {
        text += sizeText(progress.receivedBytes);
    }
    if (progress.statusText)
        return text + QStringLiteral("  ") + *progress.statusText;
    const QString rate = rate_.text(progress.totalBytes < 0 ? -1 : progress.totalBytes - progress.receivedBytes);
    return rate.isEmpty() ? text : text + QStringLiteral("  ") + rate;
}

struct Failure
{
    // See ModelCheck for why it has a constructor.
    Failure(QString description, int exitCode) : description(std::move(description)), exitCode(exitCode) {}

    QString description;
    int exitCode;
};

/// Returns the failure, because a task that throws cannot be waited for.
QCoro::Task<std::optional<Failure>> fetch(ModelKeeper& keeper, TranscriptionModel model, ProgressDisplay& display,
                                          std::stop_token stop)
{
    try {
        const FileDownloader::OnProgress onProgress = [&display](const auto& progress) {
            display.show(progress);
        };
        co_await keeper.download(model, onProgress, stop);
    } catch (const ModelDownloadError& error) {
        const bool isHosts = error.isHostsFault();
        co_return Failure(error.localizedDescription(), isHosts ? ExitCode::noService : ExitCode::failed);
    } catch (const std::exception& error) {
        co_return Failure(localizedDescription(error), ExitCode::failed);
    }
    co_return std::nullopt;
}

void report(const ModelsSession& session, const TranscriptionModel& model, qint64 elapsedMs, bool json)
{
    const QString file = session.speech.status(model).file;
    if (!json) {
        terminal::writeLine(terminal::outputIsTerminal() ? Command::tr("%1 is ready: %2").arg(model.name, file) : file);
        return;
    }
    const QJsonObject object{{QStringLiteral("model"), model.name},
                             {QStringLiteral("file"), file},
                             {QStringLiteral("bytes"), QFileInfo(file).size()},
                             {QStringLiteral("elapsed_ms"), elapsedMs}};
    terminal::writeJson(object);
}

} // namespace

int downloadModel(const ModelsSession& session, const TranscriptionModel& model, bool json)
{
    QElapsedTimer timer;
    timer.start();
    const ModelCheck before = session.speech.check(model);
    if (!before.isReady) {
        if (!before.problem.isEmpty())
            terminal::writeError(before.problem);
        const Interruption interruption;
        ProgressDisplay display(model.name);
        ModelKeeper& keeper = session.speech.keeperOf(model);
        const auto failure = QCoro::waitFor(fetch(keeper, model, display, interruption.token()));
        terminal::showProgress({});
        if (failure) {
            terminal::writeError(Command::tr("download of %1: %2").arg(model.name, failure->description));
            return interruption.wasRequested() ? ExitCode::interrupted : failure->exitCode;
        }
    }
    report(session, model, timer.elapsed(), json);
    return ExitCode::done;
}

} // namespace vantro
