// The mails as a mail program takes them apart, and what they say of the machine.
#include "vantro/support/SupportMail.h"

#include "platform/linux/proc/ProcSystemInfo.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <QUrlQuery>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

class Machine final : public SystemInfo
{
public:
    [[nodiscard]] QString operatingSystemVersion() const override { return QStringLiteral("Debian 12, kernel 6.1"); }
    [[nodiscard]] QString deviceModel() const override { return QStringLiteral("B&R Automation PC+ #2"); }
    [[nodiscard]] QString processorName() const override { return QStringLiteral("Intel(R) Core(TM) i7 @ 2.80GHz"); }
    [[nodiscard]] quint64 physicalMemoryBytes() const override { return 16ULL << 30; }
    [[nodiscard]] std::optional<quint64> availableMemoryBytes() const override { return std::nullopt; }
};

/// A mail's field as a mail program reads it.
QString field(const QString& url, const QString& name)
{
    return QUrlQuery(QUrl(url, QUrl::StrictMode)).queryItemValue(name, QUrl::FullyDecoded);
}

class SystemFolder : public ::testing::Test
{
protected:
    void write(const QString& path, const QByteArray& text)
    {
        QDir(root.path()).mkpath(QFileInfo(path).path());
        QFile file(root.filePath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir root;
};

} // namespace

TEST(SupportMail, ErrorReportReachesAMailProgramWhole)
{
    const QString url = mail::errorReportUrl(QStringLiteral("help@example.org"), QStringLiteral("1.4.2"), Machine());
    EXPECT_TRUE(url.startsWith(QStringLiteral("mailto:help@example.org?subject=vantro%20error%20report&body=")));
    EXPECT_FALSE(url.contains(QLatin1Char(' ')) || url.contains(QLatin1Char('\n')));
    EXPECT_TRUE(url.contains(QStringLiteral("body=%F0%9F%93%9D%20Issue%20details:%0A*%20What%20steps")));
    const QString body = field(url, QStringLiteral("body"));
    EXPECT_TRUE(
        body.contains(QStringLiteral("* What did actually happened instead?\n* Has it happened before?\n\n---\n")));
    EXPECT_TRUE(body.endsWith(QStringLiteral("\n\nSystem Information:\n"
                                             "App Version: 1.4.2\n"
                                             "Linux Version: Debian 12, kernel 6.1\n"
                                             "Device: B&R Automation PC+ #2\n"
                                             "CPU: Intel(R) Core(TM) i7 @ 2.80GHz\n"
                                             "Memory: 16 GB\n")
                                  .mid(1)))
        << body.toStdString();
}

TEST(SupportMail, MemoryIsCountedInMultiplesOf1024)
{
    EXPECT_EQ(mail::memorySize(0), QStringLiteral("0 bytes"));
    EXPECT_EQ(mail::memorySize(100ULL << 20), QStringLiteral("100 MB"));
    EXPECT_EQ(mail::memorySize(1536ULL << 20), QStringLiteral("1.5 GB"));
    EXPECT_EQ(mail::memorySize(25'165'824ULL * 1024 - 512ULL * 1024 * 1024), QStringLiteral("23.5 GB"));
    EXPECT_EQ(mail::memorySize(2ULL << 40), QStringLiteral("2 TB"));
}

TEST_F(SystemFolder, IsReadAsItsFilesAreWritten)
{
    write(QStringLiteral("etc/os-release"), "NAME=Fedora\nPRETTY_NAME='Fedora Linux 41 (KDE Plasma)'\n");
    write(QStringLiteral("proc/sys/kernel/osrelease"), "6.11.4\n");
    write(QStringLiteral("proc/cpuinfo"), "processor\t: 0\nmodel name\t: AMD EPYC: Turin\n\nprocessor\t: 1\n");
    write(QStringLiteral("proc/meminfo"), "MemTotal:       8048576 kB\nMemFree: 1 kB\nMemAvailable:  2 kB\n");
    write(QStringLiteral("sys/class/dmi/id/sys_vendor"), "LENOVO\n");
    write(QStringLiteral("sys/class/dmi/id/product_name"), "20XW\n");
    const ProcSystemInfo system(root.path());
    EXPECT_EQ(system.operatingSystemVersion(), QStringLiteral("Fedora Linux 41 (KDE Plasma), kernel 6.11.4"));
    EXPECT_EQ(system.processorName(), QStringLiteral("AMD EPYC: Turin"));
    EXPECT_EQ(system.physicalMemoryBytes(), 8048576ULL * 1024);
    EXPECT_EQ(system.availableMemoryBytes(), 2048U);
    EXPECT_EQ(system.deviceModel(), QStringLiteral("LENOVO 20XW"));
}

TEST_F(SystemFolder, BoardThatNamesNothingAndSystemThatTellsNothing)
{
    const ProcSystemInfo system(root.path());
    EXPECT_EQ(system.operatingSystemVersion() + system.deviceModel() + system.processorName(), QString());
    EXPECT_EQ(system.physicalMemoryBytes(), 0U);
    EXPECT_EQ(system.availableMemoryBytes(), std::nullopt);
    write(QStringLiteral("sys/class/dmi/id/product_name"), "To Be Filled By O.E.M.\n");
    write(QStringLiteral("proc/device-tree/model"), QByteArray("Raspberry Pi 5 Model B\0", 23));
    EXPECT_EQ(system.deviceModel(), QStringLiteral("Raspberry Pi 5 Model B"));
}
