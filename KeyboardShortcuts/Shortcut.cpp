#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "platform/KeyCode.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace vantro {

namespace {

const QString keyCodeKey = QStringLiteral("carbonKeyCode");
const QString modifiersKey = QStringLiteral("carbonModifiers");

} // namespace

const KeyboardShortcuts::Key KeyboardShortcuts::Key::space{KeyCode::space};

const KeyboardShortcuts::Name KeyboardShortcuts::Name::openModal{QStringLiteral("openModal"), std::nullopt};
const KeyboardShortcuts::Name KeyboardShortcuts::Name::stopRecordingAndCloseModal{
    QStringLiteral("stopRecordingAndCloseModal"), Shortcut(Key::space, 0)};
const KeyboardShortcuts::Name KeyboardShortcuts::Name::cancelDictation{QStringLiteral("cancelDictation"),
                                                                       Shortcut(Key{KeyCode::escape}, 0)};
const KeyboardShortcuts::Name KeyboardShortcuts::Name::pasteOriginal{QStringLiteral("pasteOriginal"), std::nullopt};

bool KeyboardShortcuts::Name::isGlobal() const
{
    return rawValue == openModal.rawValue || rawValue == pasteOriginal.rawValue;
}

QString KeyboardShortcuts::Shortcut::toJson() const
{
    const QJsonObject record{{keyCodeKey, carbonKeyCode}, {modifiersKey, carbonModifiers}};
    return QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact));
}

std::optional<KeyboardShortcuts::Shortcut> KeyboardShortcuts::Shortcut::fromJson(const QString& text)
{
    const QJsonObject record = QJsonDocument::fromJson(text.toUtf8()).object();
    if (!record.value(keyCodeKey).isDouble() || !record.value(modifiersKey).isDouble())
        return std::nullopt;
    Shortcut result;
    result.carbonKeyCode = record.value(keyCodeKey).toInteger();
    result.carbonModifiers = record.value(modifiersKey).toInteger();
    return result;
}

QString KeyboardShortcuts::Shortcut::displayText() const
{
    return shortcutText(static_cast<std::uint32_t>(carbonKeyCode), static_cast<std::uint32_t>(carbonModifiers));
}

} // namespace vantro
