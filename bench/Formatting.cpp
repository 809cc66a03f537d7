// Sends requests to a local server through the real service and prints how long each took and the longest time one
// event blocked the main thread. bench/formatting starts the server and parses the output.
#include "base/Error.h"
#include "base/RunTask.h"
#include "vantro/ai/services/CustomOpenAICompatibleService.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QThread>

#include <algorithm>
#include <cstdio>

using namespace vantro;

namespace {

/// Measures how long each event blocks the main thread.
class TimedApplication final : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        if (QThread::currentThread() != thread())
            return QCoreApplication::notify(receiver, event);
        QElapsedTimer timer;
        timer.start();
        const bool result = QCoreApplication::notify(receiver, event);
        longestNs = std::max(longestNs, timer.nsecsElapsed());
        return result;
    }

    qint64 longestNs = 0;
};

/// A key without a key store, read synchronously.
class OneKey final : public KeychainServicing
{
public:
    QCoro::Task<> save(QString, QString) override { co_return; }
    QCoro::Task<std::optional<QString>> read(QString) override { co_return QStringLiteral("key"); }
    QCoro::Task<> remove(QString) override { co_return; }
    QCoro::Task<QStringList> accounts() override { co_return QStringList(); }
};

class English final : public LanguageRecognizer
{
public:
    [[nodiscard]] std::optional<QString> dominantLanguage(const QString&, const QString&) const override
    {
        return QStringLiteral("en");
    }
};

} // namespace

int main(int argc, char** argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    TimedApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fprintf(stderr, "usage: vantro_bench_formatting BASE-URL RUNS WORDS\n");
        return 2;
    }
    SystemClock clock;
    HttpExchange http(clock);
    OneKey keys;
    const English english;
    RemoteProviderConfig config;
    config.provider = RemoteProviderType::Custom;
    config.customBaseURL = arguments[1];
    const QString prompt = QStringLiteral("Be brief.");
    const QString text = QStringLiteral("word ").repeated(arguments[3].toInt());
    for (int run = 0; run < arguments[2].toInt(); ++run) {
        CustomOpenAICompatibleService service({http, keys, english, clock}, config,
                                              RemoteFormatService::standardTimeout);
        service.prepare(prompt);
        QElapsedTimer timer;
        timer.start();
        qint64 mainNs = 0;
        {
            // Code that runs before the first suspension counts as an event.
            auto asked = service.format(prompt, text);
            mainNs = timer.nsecsElapsed();
            try {
                runTask(std::move(asked));
            } catch (const Error& error) {
                std::fprintf(stderr, "formatting: %s\n", error.what());
                return 1;
            }
        }
        std::printf("%lld %lld\n", static_cast<long long>(timer.nsecsElapsed() / 1000),
                    static_cast<long long>(std::max(mainNs, application.longestNs) / 1000));
        application.longestNs = 0;
    }
    return 0;
}
