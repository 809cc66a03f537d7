#include "platform/KeyCode.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace vantro {

namespace {

struct Key
{
    std::uint32_t keyCode;
    std::uint32_t keysym;
    const char* name;
};

// Keysyms as in the X protocol; printable Latin-1 characters are their own keysyms.
constexpr std::array keys{
    Key{0, 'a', "A"},
    Key{11, 'b', "B"},
    Key{8, 'c', "C"},
    Key{2, 'd', "D"},
    Key{14, 'e', "E"},
    Key{3, 'f', "F"},
    Key{5, 'g', "G"},
    Key{4, 'h', "H"},
    Key{34, 'i', "I"},
    Key{38, 'j', "J"},
    Key{40, 'k', "K"},
    Key{37, 'l', "L"},
    Key{46, 'm', "M"},
    Key{45, 'n', "N"},
    Key{31, 'o', "O"},
    Key{35, 'p', "P"},
    Key{12, 'q', "Q"},
    Key{15, 'r', "R"},
    Key{1, 's', "S"},
    Key{17, 't', "T"},
    Key{32, 'u', "U"},
    Key{9, 'v', "V"},
    Key{13, 'w', "W"},
    Key{7, 'x', "X"},
    Key{16, 'y', "Y"},
    Key{6, 'z', "Z"},
    Key{29, '0', "0"},
    Key{18, '1', "1"},
    Key{19, '2', "2"},
    Key{20, '3', "3"},
    Key{21, '4', "4"},
    Key{23, '5', "5"},
    Key{22, '6', "6"},
    Key{26, '7', "7"},
    Key{28, '8', "8"},
    Key{25, '9', "9"},
    Key{27, '-', "-"},
    Key{24, '=', "="},
    Key{33, '[', "["},
    Key{30, ']', "]"},
    Key{42, '\\', "\\"},
    Key{41, ';', ";"},
    Key{39, '\'', "'"},
    Key{43, ',', ","},
    Key{47, '.', "."},
    Key{44, '/', "/"},
    Key{50, '`', "`"},
    Key{KeyCode::space, ' ', "Space"},
    Key{36, 0xff0d, "Return"},
    Key{48, 0xff09, "Tab"},
    Key{51, 0xff08, "Backspace"},
    Key{KeyCode::escape, 0xff1b, "Escape"},
    Key{114, 0xff63, "Insert"},
    Key{117, 0xffff, "Delete"},
    Key{115, 0xff50, "Home"},
    Key{119, 0xff57, "End"},
    Key{116, 0xff55, "PageUp"},
    Key{121, 0xff56, "PageDown"},
    Key{123, 0xff51, "Left"},
    Key{124, 0xff53, "Right"},
    Key{125, 0xff54, "Down"},
    Key{126, 0xff52, "Up"},
    Key{122, 0xffbe, "F1"},
    Key{120, 0xffbf, "F2"},
    Key{99, 0xffc0, "F3"},
    Key{118, 0xffc1, "F4"},
    Key{96, 0xffc2, "F5"},
    Key{97, 0xffc3, "F6"},
    Key{98, 0xffc4, "F7"},
    Key{100, 0xffc5, "F8"},
    Key{101, 0xffc6, "F9"},
    Key{109, 0xffc7, "F10"},
    Key{103, 0xffc8, "F11"},
    Key{111, 0xffc9, "F12"},
    Key{105, 0xffca, "F13"},
    Key{107, 0xffcb, "F14"},
    Key{113, 0xffcc, "F15"},
    Key{106, 0xffcd, "F16"},
    Key{64, 0xffce, "F17"},
    Key{79, 0xffcf, "F18"},
    Key{80, 0xffd0, "F19"},
    Key{90, 0xffd1, "F20"},
    // The keypad's keysyms without Num Lock, under the names printed on the keys.
    Key{82, 0xff9e, "Keypad0"},
    Key{83, 0xff9c, "Keypad1"},
    Key{84, 0xff99, "Keypad2"},
    Key{85, 0xff9b, "Keypad3"},
    Key{86, 0xff96, "Keypad4"},
    Key{87, 0xff9d, "Keypad5"},
    Key{88, 0xff98, "Keypad6"},
    Key{89, 0xff95, "Keypad7"},
    Key{91, 0xff97, "Keypad8"},
    Key{92, 0xff9a, "Keypad9"},
    Key{65, 0xff9f, "KeypadDecimal"},
    Key{67, 0xffaa, "KeypadMultiply"},
    Key{69, 0xffab, "KeypadPlus"},
    Key{75, 0xffaf, "KeypadDivide"},
    Key{76, 0xff8d, "KeypadEnter"},
    Key{78, 0xffad, "KeypadMinus"},
    // Keys without a virtual key code.
    Key{KeyCode::keysymBase + 0xff13, 0xff13, "Pause"},
    Key{KeyCode::keysymBase + 0xff61, 0xff61, "Print"},
    Key{KeyCode::keysymBase + 0xff14, 0xff14, "ScrollLock"},
    Key{KeyCode::keysymBase + 0xff67, 0xff67, "Menu"},
    Key{KeyCode::keysymBase + 0xffd2, 0xffd2, "F21"},
    Key{KeyCode::keysymBase + 0xffd3, 0xffd3, "F22"},
    Key{KeyCode::keysymBase + 0xffd4, 0xffd4, "F23"},
    Key{KeyCode::keysymBase + 0xffd5, 0xffd5, "F24"},
    Key{KeyCode::keysymBase + 0x1008ff11, 0x1008ff11, "VolumeDown"},
    Key{KeyCode::keysymBase + 0x1008ff12, 0x1008ff12, "VolumeMute"},
    Key{KeyCode::keysymBase + 0x1008ff13, 0x1008ff13, "VolumeUp"},
    Key{KeyCode::keysymBase + 0x1008ff14, 0x1008ff14, "MediaPlay"},
    Key{KeyCode::keysymBase + 0x1008ff15, 0x1008ff15, "MediaStop"},
    Key{KeyCode::keysymBase + 0x1008ff16, 0x1008ff16, "MediaPrevious"},
    Key{KeyCode::keysymBase + 0x1008ff17, 0x1008ff17, "MediaNext"},
    Key{KeyCode::keysymBase + 0x1008ff1c, 0x1008ff1c, "MediaRecord"},
    Key{KeyCode::keysymBase + 0x1008ff31, 0x1008ff31, "MediaPause"},
    Key{KeyCode::keysymBase + 0x1008ff18, 0x1008ff18, "HomePage"},
    Key{KeyCode::keysymBase + 0x1008ff19, 0x1008ff19, "Mail"},
    Key{KeyCode::keysymBase + 0x1008ff1b, 0x1008ff1b, "Search"},
    Key{KeyCode::keysymBase + 0x1008ff1d, 0x1008ff1d, "Calculator"},
    Key{KeyCode::keysymBase + 0x1008ff81, 0x1008ff81, "Tools"},
    Key{KeyCode::keysymBase + 0x1008ffb2, 0x1008ffb2, "MicrophoneMute"},
};

constexpr std::uint32_t unicodeKeysyms = 0x01000000;

/// The character of a keysym that is not in the table: Latin-1 directly, others by their Unicode number.
QString characterOf(std::uint32_t keysym)
{
    if (keysym > ' ' && keysym < 0x100)
        return QString(QChar(static_cast<char16_t>(keysym)));
    if (keysym > unicodeKeysyms && keysym <= unicodeKeysyms + QChar::LastValidCodePoint) {
        const char32_t character = keysym - unicodeKeysyms;
        return QString::fromUcs4(&character, 1);
    }
    return {};
}

std::optional<std::uint32_t> keysymOfCharacter(const QString& text)
{
    const QList<uint> characters = text.toLower().toUcs4();
    if (characters.size() != 1 || characters.first() <= 0x7f)
        return std::nullopt;
    return characters.first() < 0x100 ? characters.first() : unicodeKeysyms + characters.first();
}

QString keyName(std::uint32_t keyCode)
{
    const auto* const key = std::ranges::find(keys, keyCode, &Key::keyCode);
    if (key != keys.end())
        return QString(QLatin1String(key->name));
    const QString character = characterOf(KeyCode::toKeysym(keyCode).value_or(0)).toUpper();
    return character.isEmpty() ? QStringLiteral("Key%1").arg(keyCode) : character;
}

struct ModifierName
{
    std::uint32_t mask;
    const char* name;
};

constexpr std::array modifierNames{
    ModifierName{Modifier::command, "Ctrl"},    ModifierName{Modifier::option, "Alt"},
    ModifierName{Modifier::shift, "Shift"},     ModifierName{Modifier::control, "Super"},
    ModifierName{Modifier::command, "Control"}, ModifierName{Modifier::control, "Meta"},
};

bool sameName(const QString& text, const char* name)
{
    return text.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

} // namespace

std::uint32_t Modifier::fromQt(Qt::KeyboardModifiers held)
{
    return (held.testFlag(Qt::ControlModifier) ? command : 0) | (held.testFlag(Qt::AltModifier) ? option : 0) |
           (held.testFlag(Qt::ShiftModifier) ? shift : 0) | (held.testFlag(Qt::MetaModifier) ? control : 0);
}

std::optional<std::uint32_t> KeyCode::toKeysym(std::uint32_t keyCode)
{
    if (keyCode > keysymBase)
        return keyCode - keysymBase;
    const auto* const key = std::ranges::find(keys, keyCode, &Key::keyCode);
    return key != keys.end() ? std::optional(key->keysym) : std::nullopt;
}

std::uint32_t KeyCode::fromKeysym(std::uint32_t keysym)
{
    const auto* const key = std::ranges::find(keys, keysym, &Key::keysym);
    return key != keys.end() ? key->keyCode : keysymBase + keysym;
}

bool KeyCode::isForTyping(std::uint32_t keyCode)
{
    constexpr std::uint32_t firstFunctionKeysym = 0xff00;
    constexpr std::uint32_t firstVendorKeysym = 0x10000000;
    const auto keysym = toKeysym(keyCode).value_or(0);
    if (keysym < firstFunctionKeysym || (keysym >= unicodeKeysyms && keysym < firstVendorKeysym))
        return true;
    const auto isWithin = [keysym](std::uint32_t first, std::uint32_t last) {
        return keysym >= first && keysym <= last;
    };
    constexpr std::uint32_t backspace = 0xff08;
    constexpr std::uint32_t enter = 0xff0d;
    constexpr std::uint32_t escapeKey = 0xff1b;
    constexpr std::uint32_t home = 0xff50;
    constexpr std::uint32_t end = 0xff57;
    constexpr std::uint32_t insert = 0xff63;
    constexpr std::uint32_t firstKeypad = 0xff80;
    constexpr std::uint32_t lastKeypad = 0xffb9;
    constexpr std::uint32_t del = 0xffff;
    return isWithin(backspace, enter) || keysym == escapeKey || isWithin(home, end) || keysym == insert ||
           isWithin(firstKeypad, lastKeypad) || keysym == del;
}

QString modifierText(std::uint32_t modifiers)
{
    QString text;
    for (std::size_t i = 0; i < 4; ++i) {
        if ((modifiers & modifierNames[i].mask) != 0)
            text += QLatin1String(modifierNames[i].name) + QLatin1Char('+');
    }
    return text;
}

QString shortcutText(std::uint32_t keyCode, std::uint32_t modifiers)
{
    return modifierText(modifiers) + keyName(keyCode);
}

std::optional<ParsedShortcut> parseShortcut(const QString& text)
{
    ParsedShortcut result;
    QStringList parts = text.trimmed().split(QLatin1Char('+'));
    const QString last = parts.takeLast().trimmed();
    for (const QString& part : std::as_const(parts)) {
        const auto* const modifier =
            std::ranges::find_if(modifierNames, [&](const auto& m) { return sameName(part.trimmed(), m.name); });
        if (modifier == modifierNames.end())
            return std::nullopt;
        result.modifiers |= modifier->mask;
    }
    const auto* const key = std::ranges::find_if(keys, [&](const auto& k) { return sameName(last, k.name); });
    const auto character = keysymOfCharacter(last);
    if (key == keys.end() && !character)
        return std::nullopt;
    result.keyCode = key != keys.end() ? key->keyCode : KeyCode::fromKeysym(*character);
    return result;
}

} // namespace vantro
