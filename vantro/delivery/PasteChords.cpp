#include "vantro/delivery/PasteChords.h"

#include "base/Logger.h"
#include "base/Settings.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <utility>

namespace vantro {

namespace {

using Chord = KeyEventPoster::PasteChord;
using Table = PasteChordTable;

constexpr std::array chordNames{std::pair{Chord::ControlV, "Ctrl+V"}, std::pair{Chord::ControlShiftV, "Ctrl+Shift+V"},
                                std::pair{Chord::ShiftInsert, "Shift+Insert"}};

/// By the names of windows' classes.
constexpr std::array terminals{"alacritty",
                               "black-box",
                               "blackbox",
                               "com.mitchellh.ghostty",
                               "com.raggesilver.blackbox",
                               "contour",
                               "cosmic-term",
                               "dev.warp.warp",
                               "evilvte",
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
                               "hyper",
                               "lilyterm",
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
                               "tym",
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
                               "yakuake"};
/// Among them Emacs, which scrolls at Ctrl+V.
constexpr std::array pastedByInsert{"aterm",  "emacs", "eterm", "koi8rxterm",   "lucid-emacs",           "lxterm",
                                    "mlterm", "mrxvt", "rxvt",  "rxvt-unicode", "rxvt-unicode-256color", "urxvt",
                                    "uxterm", "xterm"};

const Table& builtIn()
{
    static const Table table = [] {
        Table result;
        for (const char* const name : terminals)
            result.insert(QString::fromLatin1(name), Chord::ControlShiftV);
        for (const char* const name : pastedByInsert)
            result.insert(QString::fromLatin1(name), Chord::ShiftInsert);
        return result;
    }();
    return table;
}

} // namespace

std::optional<Chord> chordNamed(const QString& text)
{
    const QString plain = QString(text).remove(QLatin1Char(' '));
    const auto* const found = std::ranges::find_if(chordNames, [&](const auto& entry) {
        return plain.compare(QLatin1String(entry.second), Qt::CaseInsensitive) == 0;
    });
    return found != chordNames.end() ? std::optional(found->first) : std::nullopt;
}

std::vector<Chord> allPasteChords()
{
    std::vector<Chord> chords;
    chords.reserve(chordNames.size());
    for (const auto& [chord, name] : chordNames)
        chords.push_back(chord);
    return chords;
}

PasteChordTable ownPasteChords(const UserDefaults& defaults)
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

void setOwnPasteChords(UserDefaults& defaults, const PasteChordTable& table)
{
    const QJsonObject former = QJsonDocument::fromJson(defaults.get(setting::pasteChords)).object();
    QJsonObject entries;
    for (auto entry = former.begin(); entry != former.end(); ++entry) {
        if (!chordNamed(entry.value().toString()))
            entries.insert(entry.key(), entry.value());
    }
    for (auto entry = table.begin(); entry != table.end(); ++entry)
        entries.insert(entry.key(), chordText(entry.value()));
    defaults.set(setting::pasteChords, QJsonDocument(entries).toJson(QJsonDocument::Compact));
}

namespace {

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
    if (const auto chosen = find(ownPasteChords(defaults), windowClass))
        return *chosen;
    return find(builtIn(), windowClass).value_or(Chord::ControlV);
}

QString chordText(Chord chord)
{
    return QLatin1String(std::ranges::find(chordNames, chord, &std::pair<Chord, const char*>::first)->second);
}

} // namespace vantro
