#include "base/Error.h"
#include "base/NotificationCenter.h"
#include "base/PlainText.h"
#include "base/SerialExecutor.h"
#include "base/Settings.h"
#include "platform/ThisProcess.h"

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <qcoro/qcorotask.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>
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

namespace {

/// Uses up the stack.
int sink(int depth) // NOLINT(misc-no-recursion)
{
    volatile char frame[4096]; // NOLINT(modernize-avoid-c-arrays): it must not be optimised away
    frame[0] = static_cast<char>(depth);
    return depth < 0 ? 0 : sink(depth + 1) + frame[0];
}

} // namespace

TEST(SerialExecutorDeathTest, AThreadThatUsesUpItsStackLeavesATrace)
{
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            process::traceFaults();
            SerialExecutor executor(QStringLiteral("worker"));
            executor.run([] { return sink(0); }).waitForFinished();
        },
        "vantro ends by signal 11|Sanitizer");
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
    const QByteArray list = R"([{"find":"a, b; \"c\"","replace":"ä\n"}])";
    {
        UserDefaults defaults(path);
        EXPECT_TRUE(defaults.get(setting::autoPasteEnabled));
        defaults.write(setting::autoPasteEnabled.key, QStringLiteral("maybe"));
        EXPECT_TRUE(defaults.get(setting::autoPasteEnabled));
        defaults.set(setting::autoPasteEnabled, false);
        defaults.set(setting::textReplacements, list);
        defaults.set(setting::selectedAudioDeviceID, 4294967295);
    }
    UserDefaults defaults(path);
    EXPECT_FALSE(defaults.get(setting::autoPasteEnabled));
    EXPECT_EQ(defaults.get(setting::textReplacements), list);
    EXPECT_EQ(defaults.get(setting::selectedAudioDeviceID), 4294967295);
    EXPECT_EQ(QFile::permissions(path) & (QFileDevice::ReadGroup | QFileDevice::ReadOther), QFileDevice::Permissions());
}

TEST(UserDefaults, EveryChangeIsToldOnceWhoeverMadeIt)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("deep/vantro.ini"));
    UserDefaults program(path);
    program.watch();
    program.set(setting::autoPasteEnabled, false);
    QStringList heard;
    QEventLoop loop;
    QObject::connect(&program, &UserDefaults::changed, &loop, [&](const QString& key) {
        heard << key;
        loop.quit();
    });
    const auto heardInTime = [&] {
        QTimer::singleShot(10s, &loop, &QEventLoop::quit);
        loop.exec();
        return std::exchange(heard, {});
    };
    program.set(setting::holdToTalk, true);
    program.set(setting::holdToTalk, true);
    EXPECT_EQ(std::exchange(heard, {}), QStringList(setting::holdToTalk.key));

    UserDefaults command(path);
    command.set(setting::selectedLanguage, QStringLiteral("de"));
    EXPECT_EQ(heardInTime(), QStringList(setting::selectedLanguage.key));
    EXPECT_EQ(program.get(setting::selectedLanguage), QStringLiteral("de"));
    command.remove(setting::selectedLanguage.key);
    EXPECT_EQ(heardInTime(), QStringList(setting::selectedLanguage.key));
    EXPECT_EQ(program.get(setting::selectedLanguage), QStringLiteral("auto"));

    program.set(setting::appearance, QStringLiteral("dark"));
    EXPECT_EQ(command.stored(setting::autoPasteEnabled), false);
    EXPECT_EQ(UserDefaults(path).stored(setting::autoPasteEnabled), false) << "each keeps the other's values";
    EXPECT_EQ(UserDefaults(path).get(setting::appearance), QStringLiteral("dark"));
}

TEST(PlainText, FirstWordsEndAtABlankOrWhereThereIsNone)
{
    EXPECT_EQ(firstWords(QStringLiteral(" Call\nAnna "), 10), QStringLiteral("Call Anna"));
    EXPECT_EQ(firstWords(QStringLiteral("Call Anna today"), 10), QStringLiteral("Call Anna\u2026"));
    EXPECT_EQ(firstWords(QStringLiteral("A telephonecallwithoutblanks"), 10), QStringLiteral("A telephon\u2026"));
    EXPECT_EQ(firstWords(QString(20, QChar(0x660E)), 10), QString(10, QChar(0x660E)) + QChar(0x2026));
    EXPECT_EQ(firstWords(QString::fromUcs4(U"abc\U0001F600def"), 4), QStringLiteral("abc\u2026"));
}

// The table that the user reads is the one that the program reads.
TEST(Settings, StandInTheReadme)
{
    QFile readme(qEnvironmentVariable("VANTRO_SOURCE_DIR") + QStringLiteral("/README.md"));
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly));
    QByteArray table = "| Key | Default | Meaning |\n|---|---|---|\n";
    for (const SettingKey* row : setting::documented) {
        const QByteArray otherwise = *row->otherwise != '\0' ? QByteArray(row->otherwise) + ' ' : QByteArray();
        table += "| `" + QByteArray(row->key.data()) + "` | " + otherwise + "| " + row->meaning + " |\n";
    }
    EXPECT_TRUE(readme.readAll().contains("\n\n" + table + "\n")) << "it should read:\n" << table.toStdString();
}

TEST(UserDefaults, WhatCannotBeReadIsKeptBeforeTheFirstWriteAndTheRestCounts)
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
    for (const QByteArray file : {"[General]\nautoPasteEnabled=false\nSelectedLang",
                                  "a line\n[General]\nautoPasteEnabled=false\nselectedModelName=tiny\n",
                                  "[General]\nautoPasteEnabled=false\nsettingsVersion=99\n"}) {
        write(file);
        UserDefaults defaults(path);
        EXPECT_FALSE(defaults.get(setting::autoPasteEnabled)) << file.constData();
        EXPECT_EQ(contents(path), file) << "reading changes nothing";
        defaults.set(setting::holdToTalk, true);
        const auto kept = defaults.repair();
        ASSERT_TRUE(kept) << file.constData();
        EXPECT_EQ(kept->reason, file.contains("99") ? KeptAside::Reason::newer : KeptAside::Reason::damaged);
        EXPECT_EQ(contents(kept->file), file) << "every one of them is kept";
        UserDefaults again(path);
        EXPECT_FALSE(again.repair()) << "what was written since is whole";
        EXPECT_FALSE(again.get(setting::autoPasteEnabled));
        EXPECT_TRUE(again.get(setting::holdToTalk));
    }
    for (const QByteArray sound : {"; by hand\n[General]\n\nholdToTalk=true\n", "# a remark = its end\n", ""}) {
        write(sound);
        EXPECT_FALSE(UserDefaults(path).repair()) << sound.constData();
    }
}

TEST(UserDefaults, AWriteThatFailsIsMadeUpForByTheNextAndThenForgotten)
{
    const QTemporaryDir folder;
    const QString place = folder.filePath(QStringLiteral("vantro"));
    QFile obstacle(place);
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    UserDefaults defaults(place + QStringLiteral("/vantro.ini"));
    int failures = 0;
    QObject::connect(&defaults, &UserDefaults::writeFailed, &defaults, [&] { ++failures; });
    defaults.set(setting::holdToTalk, true);
    EXPECT_EQ(failures, 1);
    EXPECT_THROW(defaults.requireSaved(), SettingsNotSaved);
    EXPECT_TRUE(defaults.get(setting::holdToTalk)) << "in force until the process ends";

    ASSERT_TRUE(obstacle.remove());
    defaults.set(setting::appearance, QStringLiteral("dark"));
    defaults.set(setting::reduceMotion, true);
    EXPECT_EQ(failures, 1);
    EXPECT_NO_THROW(defaults.requireSaved());
    EXPECT_TRUE(UserDefaults(place + QStringLiteral("/vantro.ini")).get(setting::holdToTalk));
}
