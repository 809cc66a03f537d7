#include "vantro/delivery/PasteChords.h"

#include "base/Logger.h"
#include "base/Settings.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantro {

namespace {

using Chord = KeyEventPoster::PasteChord;
using Table = QHash<QString, Chord>;

const Table& builtIn()
{
    static const Table table = [] {
        Table result;
        for (const char* const name : {"alacritty",
                                       "blackbox",
                                       "com.mitchellh.ghostty",
                                       "com.raggesilver.blackbox",
                                       "contour",
                                       "cool-retro-term",
                                       "deepin-terminal",
                                       "foot",
                                       "footclient",
                                       "ghostty",
                                       "gnome-terminal",
                                       "gnome-terminal-server",
                                       "guake",
                                       "io.elementary.terminal",
                                       "kgx",
                                       "kitty",
                                       "konsole",
                                       "lxterminal",
                                       "mate-terminal",
                                       "org.codeberg.dnkl.foot",
                                       "org.gnome.console",
                                       "org.gnome.ptyxis",
                                       "org.gnome.terminal",
                                       "org.kde.konsole",
                                       "org.wezfurlong.wezterm",
                                       "pantheon-terminal",
                                       "ptyxis",
                                       "qterminal",
                                       "rio",
                                       "roxterm",
                                       "sakura",
                                       "st",
                                       "st-256color",
                                       "tabby",
                                       "terminal",
                                       "terminator",
                                       "terminology",
                                       "termite",
                                       "tilda",
                                       "tilix",
                                       "wezterm",
                                       "wezterm-gui",
                                       "x-terminal-emulator",
                                       "xfce4-terminal",
                                       "yakuake"})
            result.insert(QString::fromLatin1(name), Chord::ControlShiftV);
        for (const char* const name : {"aterm", "eterm", "koi8rxterm", "lxterm", "mlterm", "mrxvt", "rxvt",
                                       "rxvt-unicode", "urxvt", "uxterm", "xterm"})
            result.insert(QString::fromLatin1(name), Chord::ShiftInsert);
        return result;
    }();
    return table;
}

std::optional<Chord> chordNamed(const QString& name)
{
    const QString plain = QString(name).remove(QLatin1Char(' ')).toLower();
    if (plain == QLatin1String("ctrl+v"))
        return Chord::ControlV;
    if (plain == QLatin1String("ctrl+shift+v"))
        return Chord::ControlShiftV;
    if (plain == QLatin1String("shift+insert"))
        return Chord::ShiftInsert;
    return std::nullopt;
}

/// The user's own table. Invalid entries are logged and ignored.
Table fromSettings(const UserDefaults& defaults)
{
    static const Logger logger("PasteChords");
    const auto json = defaults.stored(setting::pasteChords);
    if (!json)
        return {};
    const QJsonDocument document = QJsonDocument::fromJson(*json);
    if (!document.isObject()) {
        logger.error(QStringLiteral("The setting pasteChords is ignored: it is not a JSON object"));
        return {};
    }
    Table result;
    const QJsonObject entries = document.object();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (const auto chord = chordNamed(entry.value().toString()))
            result.insert(entry.key().toLower(), *chord);
        else
            logger.error(QStringLiteral("The setting pasteChords has an unknown keystroke for %1: use Ctrl+V, "
                                        "Ctrl+Shift+V or Shift+Insert")
                             .arg(entry.key()));
    }
    return result;
}

std::optional<Chord> find(const Table& table, const QStringList& windowClass)
{
    // The instance name comes last and is more specific than the class.
    for (auto name = windowClass.rbegin(); name != windowClass.rend(); ++name) {
        if (const auto found = table.find(name->toLower()); found != table.end())
            return *found;
    }
    return std::nullopt;
}

} // namespace

KeyEventPoster::PasteChord pasteChordFor(const QStringList& windowClass, const UserDefaults& defaults)
{
    if (const auto chosen = find(fromSettings(defaults), windowClass))
        return *chosen;
    return find(builtIn(), windowClass).value_or(Chord::ControlV);
}

} // namespace vantro
