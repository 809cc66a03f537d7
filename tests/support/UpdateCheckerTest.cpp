// The update check against a real HTTP server that answers rightly, wrongly or not at all.
#include "vantro/support/UpdateChecker.h"

#include "base/Settings.h"
#include "platform/testing/FakeWorkspace.h"
#include "tests/WaitFor.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace vantro;
using Asker = UpdateChecker::Asker;

namespace {

/// Answers every request with the same bytes, or with silence.
class Server : public QObject
{
public:
    Server()
    {
        EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
        connect(&server_, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = server_.nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                if (!socket->readAll().contains("\r\n\r\n"))
                    return;
                ++requests;
                if (answer.isEmpty())
                    return;
                socket->write(answer);
                socket->disconnectFromHost();
            });
        });
    }

    void serve(const QByteArray& body, int status = 200)
    {
        answer = "HTTP/1.1 " + QByteArray::number(status) + " X\r\nContent-Length: " + QByteArray::number(body.size()) +
                 "\r\nConnection: close\r\n\r\n" + body;
    }
    [[nodiscard]] QUrl url() const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/latest.json").arg(server_.serverPort()));
    }
    void stop() { server_.close(); }

    QByteArray answer;
    int requests = 0;

private:
    QTcpServer server_;
};

QByteArray manifest(const char* version, const char* url = "https://example.org/get", const char* more = "")
{
    return QByteArray(R"({"version": ")") + version + R"(", "url": ")" + url + R"(", "file": {"size": 7})" + more + "}";
}

class Updates : public ::testing::Test
{
protected:
    /// A whole check, up to the alert if there is one.
    void check(Asker asker)
    {
        checker.check(asker);
        waitWhileChecking();
    }
    void waitWhileChecking()
    {
        ASSERT_TRUE(waitFor([this] { return !checker.isChecking(); }));
    }
    void press(std::optional<int> button) { std::exchange(answered, nullptr)(button); }

    Server server;
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeWorkspace workspace;
    SystemClock clock;
    std::vector<UpdateChecker::Alert> alerts;
    UpdateChecker::Answered answered;
    UpdateChecker checker{{defaults, workspace, clock, server.url(), QStringLiteral("1.9"),
                           [this](const UpdateChecker::Alert& alert, UpdateChecker::Answered done) {
                               alerts.push_back(alert);
                               answered = std::move(done);
                           },
                           2s}};
};

} // namespace

TEST(VersionTest, NewerIsDecidedNumberByNumber)
{
    const auto newer = [](const char* a, const char* b) {
        return isNewerVersion(QString::fromLatin1(a), QString::fromLatin1(b));
    };
    EXPECT_TRUE(newer("1.10", "1.9"));
    EXPECT_TRUE(newer("1.2.1", "1.2"));
    EXPECT_TRUE(newer("1.x.3", "1.2"));
    EXPECT_TRUE(newer("2", "1.99.99"));
    EXPECT_FALSE(newer("1.2", "1.2.0"));
    EXPECT_FALSE(newer("1..2", "1.2"));
    EXPECT_FALSE(newer("1.2", "1.10"));
    EXPECT_FALSE(newer("newest", "0.1"));
    EXPECT_FALSE(newer("1. 5", "1")) << "a piece with a blank is no number";
    EXPECT_FALSE(newer("99999999999999999999", "1")) << "a number that fits nowhere is none";
}

TEST_F(Updates, NewReleaseIsOfferedWithItsNotes)
{
    server.serve(manifest("1.10", "https://example.org/get", R"(, "notes": "Faster.")"));
    check(Asker::launch);
    ASSERT_EQ(alerts.size(), 1U);
    EXPECT_EQ(alerts[0].message, QStringLiteral("vantro 1.10 is available"));
    EXPECT_EQ(alerts[0].informativeText, QStringLiteral("You have version 1.9.\n\nFaster."));
    EXPECT_EQ(alerts[0].buttons, QStringList({QStringLiteral("Download"), QStringLiteral("Skip This Version")}));
    EXPECT_TRUE(checker.isShowingAlert());

    check(Asker::user);
    EXPECT_EQ(alerts.size(), 1U) << "a second alert over the first";
    press(0);
    EXPECT_EQ(workspace.openedUrls(), QStringList{QStringLiteral("https://example.org/get")});
    EXPECT_FALSE(checker.isShowingAlert());
}

TEST_F(Updates, SkippedVersionIsOfferedOnlyToWhoAsks)
{
    server.serve(manifest("1.10"));
    check(Asker::launch);
    press(1);
    EXPECT_EQ(defaults.stored(setting::skippedUpdateVersion), QStringLiteral("1.10"));
    check(Asker::launch);
    EXPECT_EQ(alerts.size(), 1U);
    check(Asker::user);
    EXPECT_EQ(alerts.size(), 2U);
    press(std::nullopt);
    server.serve(manifest("1.10.0"));
    check(Asker::launch);
    EXPECT_EQ(alerts.size(), 3U) << "another version than the skipped one, though it counts the same";
    EXPECT_TRUE(workspace.openedUrls().isEmpty());
}

TEST_F(Updates, OnlyAnEncryptedPageIsOpened)
{
    for (const char* url : {"http://example.org/get", "file:///etc/passwd", "ftp://example.org/get"}) {
        server.serve(manifest("2.0", url));
        check(Asker::launch);
        press(0);
    }
    EXPECT_TRUE(workspace.openedUrls().isEmpty());
}

TEST_F(Updates, NothingNewIsToldToTheUserAlone)
{
    server.serve(manifest("no version at all"));
    check(Asker::launch);
    EXPECT_TRUE(alerts.empty());
    check(Asker::user);
    ASSERT_EQ(alerts.size(), 1U);
    EXPECT_EQ(alerts[0].message, QStringLiteral("You're up to date"));
    EXPECT_EQ(alerts[0].informativeText, QStringLiteral("vantro 1.9 is the latest version."));
    EXPECT_EQ(alerts[0].buttons, QStringList{QStringLiteral("OK")});
}

TEST_F(Updates, UserWhoAsksDuringTheLaunchesCheckIsAnsweredByIt)
{
    server.serve(manifest("1.9"));
    checker.check(Asker::launch);
    checker.check(Asker::user);
    waitWhileChecking();
    EXPECT_EQ(server.requests, 1);
    EXPECT_EQ(alerts.size(), 1U);
}

TEST_F(Updates, WhatIsNoManifestShowsNothing)
{
    const QByteArrayList wrong{"",
                               "not JSON",
                               "[]",
                               R"({"version": 2, "url": "https://example.org"})",
                               R"({"version": "2.0"})",
                               R"({"version": "2.0", "url": ""})",
                               R"({"version": "2.0", "url": "https://exa mple.org"})",
                               manifest("2.0", "https://example.org", R"(, "notes": 3)"),
                               manifest("2.0").chopped(1)};
    for (const QByteArray& body : wrong) {
        server.serve(body);
        check(Asker::user);
        EXPECT_TRUE(alerts.empty()) << body.toStdString();
    }
    server.serve(manifest("2.0"), 204);
    check(Asker::user);
    server.serve(manifest("2.0"), 500);
    check(Asker::user);
    EXPECT_TRUE(alerts.empty());
}

TEST_F(Updates, ServerThatIsSilentOrGoneEndsTheCheck)
{
    check(Asker::user); // it takes the connection and never answers
    EXPECT_EQ(server.requests, 1);
    server.stop();
    check(Asker::user);
    EXPECT_TRUE(alerts.empty());
    EXPECT_FALSE(checker.isChecking());
}
