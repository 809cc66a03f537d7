#include "platform/KeyCode.h"
#include "platform/linux/desktop/LinuxDesktopShortcuts.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace vantro;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

/// What a desktop's settings were read as: "Ctrl+Alt+T: Terminal".
std::vector<std::string> boundNow()
{
    std::vector<std::string> result;
    for (const DesktopShortcut& shortcut : LinuxDesktopShortcuts().bound())
        result.push_back((shortcutText(shortcut.keyCode, shortcut.modifiers) + QStringLiteral(": ") + shortcut.action)
                             .toStdString());
    return result;
}

bool isReserved(const char* shortcut)
{
    const auto keys = parseShortcut(QString::fromUtf8(shortcut)).value();
    return LinuxDesktopShortcuts().reservedFor(keys.keyCode, keys.modifiers).has_value();
}

class DesktopShortcutsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8());
        qputenv("XDG_CONFIG_DIRS", folder_.filePath(QStringLiteral("system")).toUtf8());
    }

    void write(const QString& path, const char* content) const
    {
        const QString whole = folder_.filePath(path);
        QDir().mkpath(QFileInfo(whole).path());
        QFile file(whole);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }

    QTemporaryDir folder_;
};

constexpr char xfceSystem[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="commands" type="empty">
    <property name="default" type="empty">
      <property name="&lt;Alt&gt;F2" type="string" value="xfce4-appfinder"/>
      <property name="&lt;Primary&gt;&lt;Alt&gt;t" type="string" value="exo-open"/>
    </property>
  </property>
  <property name="xfwm4" type="empty">
    <property name="default" type="empty">
      <property name="&lt;Primary&gt;&lt;Alt&gt;d" type="string" value="show_desktop_key"/>
      <property name="&lt;Alt&gt;F12" type="empty"/>
    </property>
  </property>
</channel>)";

constexpr char xfceUser[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="commands" type="empty">
    <property name="custom" type="empty">
      <property name="XF86AudioPlay" type="string" value="playerctl"/>
      <property name="override" type="bool" value="true"/>
    </property>
    <property name="default" type="empty">
      <property name="&lt;Alt&gt;F2" type="string" value="xfce4-appfinder"/>
    </property>
  </property>
  <property name="xfwm4" type="empty">
    <property name="custom" type="empty"/>
    <property name="default" type="empty">
      <property name="&lt;Super&gt;Left" type="string" value="tile_left_key"/>
    </property>
  </property>
</channel>)";

constexpr char kde[] = R"([kwin]
_k_friendly_name=KWin
Overview=Meta+W,Meta+W,Toggle Overview
Show Desktop=none,Meta+D,Peek at Desktop
Zoom=Meta+\,\tMeta++,Meta++,Zoom\, a bit
Window Maximize=Meta+PgUp,Meta+PgUp,Maximize Window

[services][org.kde.konsole.desktop]
_launch=Ctrl+Alt+T

[mediacontrol]
playpausemedia=Media Play,Media Play,Play/Pause media playback
)";

constexpr char gnomeSchemas[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<schemalist>
  <schema id="org.gnome.desktop.wm.keybindings" path="/vantro/wm/">
    <key name="show-desktop" type="as"><default>['&lt;Primary&gt;&lt;Alt&gt;d', '&lt;Super&gt;d', 'disabled']</default>
      <summary>Hide all windows</summary></key>
    <key name="close" type="as"><default>[]</default><summary>Close</summary></key>
  </schema>
  <schema id="org.gnome.settings-daemon.plugins.media-keys" path="/vantro/media/">
    <key name="custom-keybindings" type="as"><default>['/vantro/custom0/']</default></key>
    <key name="screensaver" type="as"><default>['&lt;Super&gt;l']</default></key>
    <key name="max-screencast-length" type="u"><default>30</default></key>
    <key name="old-style" type="s"><default>'XF86Mail'</default><summary>Mail</summary></key>
  </schema>
  <schema id="org.gnome.settings-daemon.plugins.media-keys.custom-keybinding">
    <key name="binding" type="s"><default>'&lt;Control&gt;&lt;Shift&gt;Above_Tab'</default></key>
    <key name="name" type="s"><default>'My notes'</default></key>
    <key name="command" type="s"><default>'notes'</default></key>
  </schema>
</schemalist>)";

} // namespace

TEST_F(DesktopShortcutsTest, OnXfceTheUsersSideReplacesTheDefaultsOnlyWhereItSaysSo)
{
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    EXPECT_THAT(boundNow(), IsEmpty());
    write(QStringLiteral("system/xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"), xfceSystem);
    EXPECT_THAT(boundNow(), UnorderedElementsAre("Alt+F2: xfce4-appfinder", "Ctrl+Alt+T: exo-open",
                                                 "Ctrl+Alt+D: show_desktop_key"));
    write(QStringLiteral("xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"), xfceUser);
    EXPECT_THAT(boundNow(), UnorderedElementsAre("MediaPlay: playerctl", "Super+Left: tile_left_key"));
    write(QStringLiteral("xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"), "<channel><prop");
    EXPECT_THAT(boundNow(), IsEmpty()) << "a file cut short";
}

TEST_F(DesktopShortcutsTest, OnKdeWhatIsInForceCountsAndNotTheDefault)
{
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    EXPECT_THAT(boundNow(), IsEmpty());
    write(QStringLiteral("kglobalshortcutsrc"), kde);
    EXPECT_THAT(boundNow(),
                UnorderedElementsAre("Super+W: Toggle Overview", "Super+,: Zoom, a bit", "Super++: Zoom, a bit",
                                     "Super+PageUp: Maximize Window", "Ctrl+Alt+T: org.kde.konsole.desktop",
                                     "MediaPlay: Play/Pause media playback"));
}

TEST_F(DesktopShortcutsTest, OnGnomeTheSchemasAndTheUsersCommandsAreRead)
{
    // GLib looks for schemas once per process.
    const QString compiler = QStandardPaths::findExecutable(QStringLiteral("glib-compile-schemas"));
    if (compiler.isEmpty())
        GTEST_SKIP() << "glib-compile-schemas is not installed";
    write(QStringLiteral("schemas/vantro.gschema.xml"), gnomeSchemas);
    const QString schemas = folder_.filePath(QStringLiteral("schemas"));
    ASSERT_EQ(QProcess::execute(compiler, {QStringLiteral("--strict"), schemas}), 0);
    qputenv("GSETTINGS_SCHEMA_DIR", schemas.toUtf8());
    qputenv("GSETTINGS_BACKEND", "memory");
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_THAT(boundNow(), UnorderedElementsAre("Ctrl+Alt+D: Hide all windows", "Super+D: Hide all windows",
                                                 "Super+L: screensaver", "Mail: Mail", "Ctrl+Shift+`: My notes"));
}

TEST_F(DesktopShortcutsTest, OnAnotherDesktopNothingIsKnown)
{
    write(QStringLiteral("kglobalshortcutsrc"), kde);
    qputenv("XDG_CURRENT_DESKTOP", "i3");
    EXPECT_THAT(boundNow(), IsEmpty());
    qunsetenv("XDG_CURRENT_DESKTOP");
    EXPECT_THAT(boundNow(), IsEmpty());
}

TEST_F(DesktopShortcutsTest, KeysThatSwitchConsolesAreReserved)
{
    for (const char* const shortcut : {"Ctrl+Alt+F1", "Ctrl+Alt+F12"})
        EXPECT_TRUE(isReserved(shortcut)) << shortcut;
    for (const char* const shortcut : {"Ctrl+Alt+F13", "Ctrl+F1", "Ctrl+Alt+Shift+F1", "Ctrl+Alt+D"})
        EXPECT_FALSE(isReserved(shortcut)) << shortcut;
}
