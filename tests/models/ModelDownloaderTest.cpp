#include "base/Error.h"
#include "tests/WaitFor.h"
#include "tests/models/ModelServer.h"
#include "vantro/models/DownloadQueue.h"
#include "vantro/models/ModelDownloadError.h"
#include "vantro/models/ModelHost.h"
#include "vantro/models/testing/FakeSpeechEngine.h"
#include "vantro/whisper/WhisperModelFiles.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <qcoro/qcorofuture.h>

#include <gtest/gtest.h>

#include <functional>
#include <mutex>
#include <thread>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

constexpr qint64 fileBytes = 3'000'000;
constexpr qint64 middle = 1'000'000;

/// The error's kind, or nothing when the download succeeded.
std::optional<ModelDownloadError::Kind> outcome(const QFuture<void>& future)
{
    EXPECT_TRUE(waitFor([&] { return future.isFinished(); }));
    try {
        QFuture<void>(future).waitForFinished();
    } catch (const ModelDownloadError& error) {
        return error.kind();
    }
    return std::nullopt;
}

class Download : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QDir(folder.path()).mkpath(QStringLiteral("served"));
        QFile file(folder.filePath(QStringLiteral("served/ggml-test.bin")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        for (qint64 i = 0; i < fileBytes; ++i)
            content.append(static_cast<char>(i * 7 + i / 256));
        file.write(content);
        model.name = QStringLiteral("test");
        model.hash = QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex());
    }

    void serve(const QString& fault = QStringLiteral("{}"))
    {
        server.reset();
        server = std::make_unique<ModelServer>(folder.filePath(QStringLiteral("served")), fault);
        model.url = server->url(QStringLiteral("ggml-test.bin"));
    }

    [[nodiscard]] TransferRequest request() const
    {
        TransferRequest request;
        request.url = QUrl(model.url);
        request.destination = store.ownFile(model);
        request.sha1 = model.hash;
        return request;
    }

    [[nodiscard]] qint64 partBytes() const
    {
        return QFileInfo(folder.path() + QStringLiteral("/user/.work/ggml-test.bin.part")).size();
    }

    QTemporaryDir folder;
    QByteArray content;
    TranscriptionModel model;
    WhisperModelFiles store{{folder.filePath(QStringLiteral("user"))}};
    std::unique_ptr<ModelServer> server;
};

} // namespace

TEST_F(Download, ASilentHostIsGivenUpAndTheRestIsFetchedFromOneThatSpeaks)
{
    serve(QStringLiteral(R"({"stall_after": %1})").arg(middle));
    {
        FileDownloader impatient({.stallTimeout = 200ms, .reconnections = 0});
        EXPECT_EQ(outcome(impatient.download(request(), {})), ModelDownloadError::Kind::connectionBroken);
        EXPECT_EQ(partBytes(), middle);
        EXPECT_FALSE(QFile::exists(store.ownFile(model)));
    }
    serve();
    FileDownloader downloader;
    EXPECT_EQ(outcome(downloader.download(request(), {})), std::nullopt);
    EXPECT_EQ(server->requests().last(), QStringLiteral("/resolve/main/ggml-test.bin bytes=%1-").arg(middle));
    EXPECT_TRUE(store.isReady(model));
}

TEST_F(Download, ManyWhoAskShareOneTransferAndMayLeaveIt)
{
    serve(QStringLiteral(R"({"pause_at": %1, "once": true})").arg(middle));
    FileDownloader downloader;
    std::stop_source firstStop;
    std::stop_source secondStop;
    std::atomic<int> calls = 0;
    const auto count = [&calls](const DownloadProgress&) {
        ++calls;
    };
    const auto first = downloader.download(request(), count, firstStop.get_token());
    const auto second = downloader.download(request(), {}, secondStop.get_token());
    ASSERT_TRUE(waitFor([&] { return partBytes() == middle; }));

    firstStop.request_stop();
    const int callsUntilStop = calls;
    EXPECT_EQ(outcome(first), ModelDownloadError::Kind::cancelled);
    EXPECT_FALSE(second.isFinished()) << "the other one still waits";
    secondStop.request_stop();
    EXPECT_EQ(outcome(second), ModelDownloadError::Kind::cancelled);

    const auto third = downloader.download(request(), {});
    const auto fourth = downloader.download(request(), {});
    EXPECT_EQ(outcome(third), std::nullopt);
    EXPECT_EQ(outcome(fourth), std::nullopt);
    EXPECT_EQ(server->requests().size(), 2) << "one until all had left, one for the rest";
    EXPECT_EQ(calls, callsUntilStop) << "nobody is told anything after leaving";
    EXPECT_TRUE(store.isReady(model));
}

TEST_F(Download, EndsInOrderWhenTheProgramEnds)
{
    serve(QStringLiteral(R"({"stall_after": %1})").arg(middle));
    QFuture<void> future;
    {
        FileDownloader downloader;
        future = downloader.download(request(), {});
        ASSERT_TRUE(waitFor([&] { return partBytes() == middle; }));
    }
    EXPECT_EQ(outcome(future), ModelDownloadError::Kind::cancelled);
    EXPECT_EQ(partBytes(), middle);
}

TEST_F(Download, APartIsSafeFromTheCheckThatRemovesWrongFiles)
{
    // A wrong file under the model's name, and a download that is about to replace it.
    serve(QStringLiteral(R"({"stall_after": %1})").arg(middle));
    QDir().mkpath(folder.filePath(QStringLiteral("user")));
    QFile wrong(store.ownFile(model));
    ASSERT_TRUE(wrong.open(QIODevice::WriteOnly));
    wrong.write("wrong");
    wrong.close();
    FileDownloader downloader;
    const auto future = downloader.download(request(), {});
    ASSERT_TRUE(waitFor([&] { return partBytes() == middle; }));
    EXPECT_FALSE(store.isReady(model));
    EXPECT_TRUE(wrong.exists()) << "who holds the right to the file decides what becomes of it";
    EXPECT_THROW(store.remove(model), Error) << "it is being downloaded";
    EXPECT_EQ(partBytes(), middle);
}

TEST(ModelDownloader, PublishesOncePerPercentOnTheMainThread)
{
    doubles::FakeSpeechEngine provider;
    provider.fetch = [](const FileDownloader::OnProgress& onProgress) {
        for (qint64 received = 0; received <= 20'000; ++received) {
            DownloadProgress progress;
            progress.receivedBytes = received;
            progress.totalBytes = 20'000;
            onProgress(progress);
        }
    };
    const SpeechEngines engines({&provider});
    const ModelCatalogue catalogue;
    ModelDownloader downloader(catalogue, engines);
    int published = 0;
    QObject::connect(&downloader, &ModelDownloader::progressChanged, &downloader, [&] {
        ++published;
        EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
    });
    std::optional<bool> isReady;
    auto task = downloader.download({}).then([&isReady](bool ready) { isReady = ready; });
    ASSERT_TRUE(waitFor([&] { return isReady.has_value(); }));
    EXPECT_LE(published, 102) << "0 to 100, and the end";
    EXPECT_GE(published, 2);
}

TEST(ModelDownloader, LeavesTheReasonOfAFailureToBeRead)
{
    doubles::FakeSpeechEngine provider;
    const SpeechEngines engines({&provider});
    const ModelCatalogue catalogue;
    ModelDownloader downloader(catalogue, engines);
    const auto statusAfterDownload = [&downloader](const TranscriptionModel& model) {
        std::optional<bool> isReady;
        auto task = downloader.download(model).then([&isReady](bool ready) { isReady = ready; });
        EXPECT_TRUE(waitFor([&] { return isReady.has_value(); }));
        EXPECT_EQ(isReady, false);
        return downloader.statusText().value_or(QString());
    };
    provider.fetch = [](const auto&) {
        throw ModelDownloadError::diskFull(QStringLiteral("/models"));
    };
    EXPECT_EQ(statusAfterDownload({}),
              QStringLiteral("Download failed: The disk of /models is full. Free some space, then "
                             "try again to resume the download."));
    provider.fetch = [](const auto&) {
    };
    provider.answer = ModelCheck(false, QStringLiteral("ggml-x.bin is not the published file."));
    EXPECT_EQ(statusAfterDownload({}), QStringLiteral("Download failed: ggml-x.bin is not the published file."));
}

TEST(DownloadQueue, DownloadsInTurnWhateverBecomesOfTheOthers)
{
    std::mutex serving;
    doubles::FakeSpeechEngine provider;
    provider.fetch = [&serving](const auto&) {
        const std::lock_guard wait(serving);
    };
    const SpeechEngines engines({&provider});
    const ModelCatalogue catalogue;
    ModelDownloader downloader(catalogue, engines);
    DownloadQueue queue(downloader);
    QStringList ready;
    QObject::connect(&queue, &DownloadQueue::finished, &queue, [&ready](const QString& name) { ready << name; });
    const auto named = [](const char* name) {
        TranscriptionModel model;
        model.name = QLatin1String(name);
        return model;
    };
    using State = DownloadQueue::State;
    const auto stateOf = [&queue](const char* name) {
        return queue.stateOf(QLatin1String(name));
    };
    {
        const std::lock_guard pause(serving);
        for (const char* name : {"a", "b", "b", "c"})
            queue.add(named(name));
        EXPECT_EQ(stateOf("a"), State::running);
        EXPECT_EQ(stateOf("b"), State::waiting);
        EXPECT_EQ(queue.statusText(QStringLiteral("c")), QStringLiteral("Waiting for a"));
        queue.cancel(QStringLiteral("b"));
        EXPECT_EQ(stateOf("b"), State::idle);
    }
    EXPECT_TRUE(waitFor([&] { return ready.size() == 2; }));
    EXPECT_EQ(ready, (QStringList{QStringLiteral("a"), QStringLiteral("c")}));

    provider.answer = ModelCheck(false, QStringLiteral("It is another file."));
    queue.add(named("d"));
    queue.add(named("e"));
    EXPECT_TRUE(waitFor([&] { return stateOf("e") == State::idle; }));
    EXPECT_TRUE(queue.failure(QStringLiteral("d")).contains(QStringLiteral("It is another file.")));
    provider.answer = ModelCheck(true, {});
    queue.add(named("d"));
    EXPECT_TRUE(queue.failure(QStringLiteral("d")).isEmpty()) << "it is tried again";
    EXPECT_TRUE(waitFor([&] { return ready.size() == 3; }));
}

TEST(ModelHost, FetchesNothingFromAnAddressThatIsNone)
{
    TranscriptionModel model;
    for (const QString& url : {QString(), QStringLiteral("ftp://h/f"), QStringLiteral("http:///f")}) {
        model.url = url;
        EXPECT_THROW(ModelHost::urlOf(model), Error) << url.toStdString();
    }
}

TEST(TransferRate, CountsOnlyWhatArrivesNow)
{
    using namespace std::chrono;
    const TransferRate::Instant start{1h};
    TransferRate rate;
    rate.note(start, 500'000'000);
    EXPECT_EQ(rate.text(100), QString()) << "nothing can be said yet";
    for (int i = 1; i <= 100; ++i)
        rate.note(start + i * 100ms, 500'000'000 + static_cast<qint64>(i) * 1'048'576);
    ASSERT_TRUE(rate.bytesPerSecond());
    EXPECT_NEAR(*rate.bytesPerSecond(), 10'485'760, 1);
    EXPECT_EQ(rate.text(qint64(10) * 10'485'760), QStringLiteral("10.0 MiB/s, 10 s left"));
    EXPECT_EQ(rate.text(qint64(100) * 10'485'760), QStringLiteral("10.0 MiB/s, 2 min left"));
    EXPECT_EQ(rate.text(-1), QStringLiteral("10.0 MiB/s"));
}
