// The adapter of the Secret Service against a real keyring on a private bus, and against its absence.
#include "base/RunTask.h"
#include "platform/linux/secretservice/SecretServiceStore.h"
#include "tests/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

template <typename Result>
struct Outcome
{
    Result result{}; ///< whether it ended well where there is none
    std::optional<SecretStoreError> failure;
};

template <typename Result>
auto outcome(QCoro::Task<Result> task)
{
    Outcome<std::conditional_t<std::is_void_v<Result>, bool, Result>> outcome;
    try {
        if constexpr (std::is_void_v<Result>) {
            runTask(std::move(task));
            outcome.result = true;
        } else {
            outcome.result = runTask(std::move(task));
        }
    } catch (const SecretStoreError& error) {
        outcome.failure = error;
    }
    return outcome;
}

const auto account = QStringLiteral("provider-1");

/// A session bus that starts no service of its own accord, and a keyring when the test wants one.
class SecretService : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* program : {"dbus-daemon", "gnome-keyring-daemon"}) {
            if (QStandardPaths::findExecutable(QLatin1String(program)).isEmpty())
                GTEST_SKIP() << program << " is not installed";
        }
        QFile config(folder.filePath(QStringLiteral("bus.conf")));
        ASSERT_TRUE(config.open(QIODevice::WriteOnly));
        config.write("<busconfig><type>session</type><listen>" + busAddress() +
                     "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\" "
                     "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                     "<allow own=\"*\"/></policy></busconfig>");
        config.close();
        bus.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--config-file=") + config.fileName(), QStringLiteral("--nofork")});
        ASSERT_TRUE(waitFor([&] { return QFile::exists(folder.filePath(QStringLiteral("bus"))); }));
        qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress());
    }

    void TearDown() override
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        stop(keyring);
        stop(bus);
    }

    [[nodiscard]] QByteArray busAddress() const
    {
        return "unix:path=" + folder.filePath(QStringLiteral("bus")).toUtf8();
    }

    /// Starts the daemon with the folder's keyring open.
    void startKeyring()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), folder.path());
        environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.filePath(QStringLiteral("data")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.path());
        environment.remove(QStringLiteral("DISPLAY"));
        keyring.setProcessEnvironment(environment);
        keyring.start(
            QStringLiteral("gnome-keyring-daemon"),
            {QStringLiteral("--foreground"), QStringLiteral("--unlock"), QStringLiteral("--components=secrets")});
        keyring.write("password");
        keyring.closeWriteChannel();
        ASSERT_TRUE(waitFor([&] {
            return ask({QStringLiteral("org.freedesktop.DBus.Properties.Get"),
                        QStringLiteral("org.freedesktop.Secret.Collection"), QStringLiteral("Locked")})
                .contains("false");
        }));
    }

    static void stop(QProcess& process)
    {
        process.kill();
        process.waitForFinished();
    }

    void lockKeyring()
    {
        QProcess lock;
        lock.start(QStringLiteral("gdbus"),
                   {QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("--dest"),
                    QStringLiteral("org.freedesktop.secrets"), QStringLiteral("--object-path"),
                    QStringLiteral("/org/freedesktop/secrets"), QStringLiteral("--method"),
                    QStringLiteral("org.freedesktop.Secret.Service.Lock"),
                    QStringLiteral("['/org/freedesktop/secrets/aliases/default']")});
        ASSERT_TRUE(lock.waitForFinished());
        ASSERT_EQ(lock.exitCode(), 0) << lock.readAllStandardError().toStdString();
    }

    /// What the default collection answers to a call.
    static QByteArray ask(const QStringList& methodAndArguments)
    {
        QProcess call;
        call.start(QStringLiteral("gdbus"),
                   QStringList{QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("--dest"),
                               QStringLiteral("org.freedesktop.secrets"), QStringLiteral("--object-path"),
                               QStringLiteral("/org/freedesktop/secrets/aliases/default"), QStringLiteral("--method")} +
                       methodAndArguments);
        call.waitForFinished();
        return call.readAllStandardOutput();
    }

    QTemporaryDir folder;
    QProcess bus;
    QProcess keyring;
};

template <typename Result>
void expectFailure(const Outcome<Result>& outcome, SecretStoreError::Kind kind, const char* remedy)
{
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->kind(), kind);
    EXPECT_TRUE(outcome.failure->localizedDescription().contains(QLatin1String(remedy)));
}

} // namespace

TEST_F(SecretService, KeepsSecretsBeyondTheDaemonsLifeAndApartFromOthers)
{
    startKeyring();
    {
        SecretServiceStore store(QStringLiteral("com.vantro.test"));
        EXPECT_EQ(outcome(store.read(account)).result, std::nullopt);
        const QByteArray secret = QStringLiteral("sk-ключ\n2").toUtf8();
        EXPECT_TRUE(outcome(store.store(account, QStringLiteral("A key"), "former")).result);
        EXPECT_TRUE(outcome(store.store(account, QStringLiteral("A key"), secret)).result);
        EXPECT_TRUE(outcome(store.store(QStringLiteral("provider-2"), QStringLiteral("Another"), "two")).result);
        SecretServiceStore other(QStringLiteral("com.example.other"));
        EXPECT_EQ(outcome(other.accounts()).result, QStringList());
        EXPECT_EQ(outcome(other.read(account)).result, std::nullopt);

        stop(keyring);
        startKeyring();
        EXPECT_EQ(outcome(store.read(account)).result, secret) << "a service that was started anew";
        QStringList accounts = outcome(store.accounts()).result;
        accounts.sort();
        EXPECT_EQ(accounts, (QStringList{account, QStringLiteral("provider-2")}));
        EXPECT_TRUE(outcome(store.remove(account)).result);
        EXPECT_FALSE(outcome(store.remove(account)).result);
        EXPECT_EQ(outcome(store.read(account)).result, std::nullopt);
        EXPECT_EQ(outcome(store.accounts()).result, QStringList{QStringLiteral("provider-2")});
    }
    // Whatever lies on the disk is encrypted.
    const QDir keyrings(folder.filePath(QStringLiteral("data/keyrings")));
    for (const QString& name : keyrings.entryList(QDir::Files)) {
        QFile file(keyrings.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_FALSE(file.readAll().contains("two")) << name.toStdString();
    }
}

TEST_F(SecretService, ALockedKeyringIsAnErrorAndNoAbsence)
{
    startKeyring();
    SecretServiceStore store(QStringLiteral("com.vantro.test"));
    EXPECT_TRUE(outcome(store.store(account, QStringLiteral("A key"), "one")).result);
    lockKeyring();
    const auto locked = SecretStoreError::Kind::locked;
    expectFailure(outcome(store.read(account)), locked, "Unlock it");
    expectFailure(outcome(store.read(QStringLiteral("unknown"))), locked, "Unlock it");
    expectFailure(outcome(store.store(account, QStringLiteral("A key"), "two")), locked, "Unlock it");
    expectFailure(outcome(store.remove(account)), locked, "Unlock it");
    expectFailure(outcome(store.accounts()), locked, "Unlock it");
    stop(keyring);
    startKeyring();
    EXPECT_EQ(outcome(store.read(account)).result, QByteArray("one"));
}

TEST_F(SecretService, SaysWhatToInstallWhereNoneAnswers)
{
    const auto unavailable = SecretStoreError::Kind::unavailable;
    SecretServiceStore store(QStringLiteral("com.vantro.test"));
    expectFailure(outcome(store.read(account)), unavailable, "Install and start");
    expectFailure(outcome(store.store(account, QStringLiteral("A key"), "one")), unavailable, "Install and start");

    // A bus that goes away takes nobody with it.
    stop(bus);
    expectFailure(outcome(store.accounts()), unavailable, "no session bus");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    expectFailure(outcome(store.remove(account)), unavailable, "no session bus");
}
