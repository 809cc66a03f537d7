// Start at login, as the desktop's session reads it.
#include "platform/linux/xdg/XdgAutostart.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

class LoginItemTest : public ::testing::Test
{
protected:
    [[nodiscard]] QString entry() const { return folder.filePath(QStringLiteral("autostart/com.vantro.app.desktop")); }
    void append(const QByteArray& line)
    {
        QFile file(entry());
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(line);
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(LoginItemTest, IsAnEntryThatTheSessionCanStart)
{
    const QString program = folder.filePath(QStringLiteral("my \"own\" $tools/echo\\it"));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(program).path()));
    QFile script(program);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho started > \"$0.ran\"\n");
    script.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    script.close();

    XdgAutostart item(folder.path(), program);
    EXPECT_FALSE(item.isEnabled());
    item.setEnabled(true);
    EXPECT_TRUE(item.isEnabled());
    // GLib reads entries as GNOME, Xfce and others do.
    QProcess launcher;
    launcher.start(QStringLiteral("gio"), {QStringLiteral("launch"), entry()});
    if (!launcher.waitForStarted())
        GTEST_SKIP() << "gio is not installed";
    ASSERT_TRUE(launcher.waitForFinished());
    EXPECT_EQ(launcher.exitCode(), 0) << launcher.readAllStandardError().toStdString();
    const QString ran = program + QStringLiteral(".ran");
    for (int i = 0; i < 500 && !QFile::exists(ran); ++i)
        QThread::msleep(10);
    EXPECT_TRUE(QFile::exists(ran));
}

TEST_F(LoginItemTest, ListensToTheDesktopsOwnSwitch)
{
    XdgAutostart item(folder.path(), QStringLiteral("/usr/bin/vantro"));
    item.setEnabled(true);
    append("X-GNOME-Autostart-enabled = false\n");
    EXPECT_FALSE(item.isEnabled());
    item.setEnabled(true);
    EXPECT_TRUE(item.isEnabled());
    append("Hidden=true\n");
    EXPECT_FALSE(item.isEnabled());
    item.setEnabled(false);
    EXPECT_FALSE(QFile::exists(entry()));
    item.setEnabled(false);
}

TEST_F(LoginItemTest, TellsWhyItCannotBeStored)
{
    XdgAutostart item(QStringLiteral("/proc/nowhere"), QStringLiteral("/usr/bin/vantro"));
    try {
        item.setEnabled(true);
        FAIL() << "stored where nothing can be";
    } catch (const LoginItemError& error) {
        EXPECT_TRUE(error.localizedDescription().contains(QStringLiteral("/proc/nowhere/autostart")));
    }
    EXPECT_FALSE(item.isEnabled());
}
