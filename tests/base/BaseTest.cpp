#include "base/Error.h"
#include "base/NotificationCenter.h"
#include "base/SerialExecutor.h"
#include "base/UserDefaults.h"
#include "base/testing/ManualClock.h"

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <qcoro/qcorotask.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

class TypedError : public Error
{
public:
    using Error::Error;
};

} // namespace

TEST(SerialExecutor, RunsInOrderAndCarriesTypedErrorsToTheAwaiter)
{
    SerialExecutor executor(QStringLiteral("worker"));
    std::vector<int> order;
    auto task = [&]() -> QCoro::Task<QString> {
        auto first = executor.run([&] {
            QThread::msleep(5);
            order.push_back(1);
        });
        auto second = executor.run([&]() -> int {
            order.push_back(2);
            throw TypedError(QStringLiteral("broken"));
        });
        QString caught;
        try {
            co_await second;
        } catch (const TypedError& error) {
            caught = error.localizedDescription();
        }
        co_await first;
        co_return caught;
    };
    EXPECT_EQ(QCoro::waitFor(task()), QStringLiteral("broken"));
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST(SerialExecutor, FinishesAcceptedWorkBeforeItGoes)
{
    int done = 0;
    {
        SerialExecutor executor(QStringLiteral("worker"));
        for (int i = 0; i < 20; ++i)
            std::ignore = executor.run([&done] { ++done; });
    }
    EXPECT_EQ(done, 20);
}

TEST(NotificationCenter, ObserversMayComeAndGoWhileOneIsPosted)
{
    NotificationCenter center;
    std::vector<std::string> calls;
    NotificationCenter::Observation late;
    NotificationCenter::Observation second;
    const auto first = center.observe(QStringLiteral("area:event"), [&](const auto&) {
        calls.emplace_back("first");
        second = {};
        late = center.observe(QStringLiteral("area:event"), [&](const auto&) { calls.emplace_back("late"); });
    });
    second = center.observe(QStringLiteral("area:event"), [&](const auto&) { calls.emplace_back("second"); });
    center.post(QStringLiteral("area:other"));
    center.post(QStringLiteral("area:event"));
    EXPECT_EQ(calls, (std::vector<std::string>{"first"}));
}

TEST(UserDefaults, AnotherTypeCountsAsAbsentAndValuesSurviveARestart)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("deep/vantro.ini"));
    {
        UserDefaults defaults(path);
        EXPECT_TRUE(defaults.boolean(QStringLiteral("autoPasteEnabled"), true));
        defaults.setString(QStringLiteral("autoPasteEnabled"), QStringLiteral("maybe"));
        EXPECT_TRUE(defaults.boolean(QStringLiteral("autoPasteEnabled"), true));
        defaults.setBoolean(QStringLiteral("autoPasteEnabled"), false);
        defaults.setData(QStringLiteral("list"), R"([{"find":"a, b; \"c\"","replace":"ä\n"}])");
        defaults.setInteger(QStringLiteral("number"), 4294967295);
    }
    UserDefaults defaults(path);
    EXPECT_FALSE(defaults.boolean(QStringLiteral("autoPasteEnabled"), true));
    EXPECT_EQ(defaults.data(QStringLiteral("list")), R"([{"find":"a, b; \"c\"","replace":"ä\n"}])");
    EXPECT_EQ(defaults.integer(QStringLiteral("number")), 4294967295);
    EXPECT_EQ(QFile::permissions(path) & (QFileDevice::ReadGroup | QFileDevice::ReadOther), QFileDevice::Permissions());
}

TEST(UserDefaults, TwoProcessesKeepEachOthersValuesAndHearOfThem)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("deep/vantro.ini"));
    UserDefaults program(path);
    QStringList heard;
    QEventLoop loop;
    QObject::connect(&program, &UserDefaults::changedElsewhere, &loop, [&](const QStringList& keys) {
        heard += keys;
        loop.quit();
    });
    program.watch();
    program.setBoolean(QStringLiteral("autoPasteEnabled"), false);

    UserDefaults command(path);
    command.setString(QStringLiteral("SelectedLanguage"), QStringLiteral("de"));
    QTimer::singleShot(10s, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(heard, QStringList(QStringLiteral("SelectedLanguage")));
    EXPECT_EQ(program.string(QStringLiteral("SelectedLanguage")), QStringLiteral("de"));

    heard.clear();
    command.remove(QStringLiteral("SelectedLanguage"));
    QTimer::singleShot(10s, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(heard, QStringList(QStringLiteral("SelectedLanguage")));
    EXPECT_FALSE(program.contains(QStringLiteral("SelectedLanguage")));

    program.setString(QStringLiteral("userName"), QStringLiteral("A"));
    EXPECT_TRUE(UserDefaults(path).contains(QStringLiteral("autoPasteEnabled")));
    EXPECT_TRUE(UserDefaults(path).contains(QStringLiteral("userName")));
    EXPECT_TRUE(command.contains(QStringLiteral("autoPasteEnabled")));
}

TEST(UserDefaults, AFileThatCannotBeUsedIsKeptAsideAndNeverOverwritten)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("vantro.ini"));
    const auto write = [&](const QByteArray& contents) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    };
    const auto contents = [](const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArrayList damaged{"[General]\nautoPasteEnabled=false\nSelectedLang",
                                 QByteArray("[General]\na=\0b\n", 16), "{\"autoPasteEnabled\": false}\n"};
    for (const QByteArray& file : damaged) {
        write(file);
        UserDefaults defaults(path);
        ASSERT_TRUE(defaults.keptAside()) << file.toStdString();
        EXPECT_EQ(defaults.keptAside()->reason, KeptAside::Reason::damaged);
        defaults.setBoolean(QStringLiteral("autoPasteEnabled"), true);
        EXPECT_EQ(contents(defaults.keptAside()->file), file) << "every one of them is kept";
    }
    EXPECT_FALSE(UserDefaults(path).keptAside()) << "what was written since is whole";

    write("; by hand\n[General]\n\nsettingsVersion=99\n");
    UserDefaults defaults(path);
    ASSERT_TRUE(defaults.keptAside());
    EXPECT_EQ(defaults.keptAside()->reason, KeptAside::Reason::newer);
    EXPECT_FALSE(defaults.contains(QStringLiteral("settingsVersion")));
    EXPECT_TRUE(contents(defaults.keptAside()->file).contains("99"));
}

TEST(ManualClock, RunsWhatFallsDueInOrderOfTime)
{
    doubles::ManualClock clock;
    std::vector<int> order;
    QObject context;
    auto gone = std::make_unique<QObject>();
    clock.callAfter(300ms, &context, [&] { order.push_back(3); });
    clock.callAfter(100ms, &context, [&] {
        order.push_back(1);
        clock.callAfter(100ms, &context, [&] { order.push_back(2); });
    });
    clock.callAfter(150ms, gone.get(), [&] { order.push_back(-1); });
    gone.reset();
    clock.advance(299ms);
    EXPECT_EQ(order, (std::vector{1, 2}));
    clock.advance(1ms);
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}
