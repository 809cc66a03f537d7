#pragma once

#include "KeyboardShortcuts/ShortcutValidator.h"

#include <QObject>

#include <functional>
#include <optional>

class QKeyEvent;

namespace vantro {

class HotKeyManager;

/// View model of the control that records the shortcut for a name. While recording, the program's hot keys are
/// suspended and its windows' key events come here: a combination is taken when its key is released, or refused with
/// a reason. Escape, Tab and focus loss end the recording; Backspace and Delete clear the shortcut. Requires a
/// QGuiApplication. Main thread only.
class RecorderCocoa : public QObject
{
    Q_OBJECT
    /// The raw name: "openModal", "stopRecordingAndCloseModal".
    Q_PROPERTY(QString shortcutName READ shortcutName WRITE setShortcutName NOTIFY changed)
    Q_PROPERTY(int minimumWidth READ minimumWidth CONSTANT)
    /// What the shortcut does.
    Q_PROPERTY(QString title READ title NOTIFY changed)
    /// The shortcut with the desktop's key names; while recording, the modifiers held down.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool recording READ isRecording NOTIFY changed)
    /// Why the last shortcut was refused or the current one does not work, and what to do.
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString advice READ advice NOTIFY changed)
    /// Whether useAnyway() accepts the refused shortcut.
    Q_PROPERTY(bool canForce READ canForce NOTIFY changed)
    Q_PROPERTY(QString forceText READ forceText CONSTANT)
public:
    using OnChange = std::function<void(const std::optional<KeyboardShortcuts::Shortcut>&)>;

    /// "KeyboardShortcuts_recorderActiveStatusDidChange"; posted with "isActive" when recording starts and ends.
    static const QString recorderActiveStatusDidChange;

    /// All references but @p name must outlive the control.
    RecorderCocoa(KeyboardShortcuts& shortcuts, const HotKeyManager& hotKeys, const DesktopShortcuts& desktop,
                  NotificationCenter& notifications, const KeyboardShortcuts::Name& name);
    ~RecorderCocoa() override;

    [[nodiscard]] QString shortcutName() const { return name_.rawValue; }
    void setShortcutName(const QString& rawName);
    /// In pixels; fits the longest common shortcut.
    [[nodiscard]] int minimumWidth() const { return 200; }
    [[nodiscard]] QString title() const { return ShortcutValidator::title(name_); }
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool isRecording() const { return isRecording_; }
    [[nodiscard]] QString message() const;
    [[nodiscard]] QString advice() const { return refusal_ ? refusal_->advice : QString(); }
    [[nodiscard]] bool canForce() const { return refusal_ && refusal_->canForce; }
    [[nodiscard]] QString forceText() const { return ShortcutValidator::forceText(); }
    /// Called after the user sets or clears the shortcut here.
    void setOnChange(OnChange onChange) { onChange_ = std::move(onChange); }

    Q_INVOKABLE void beginRecording();
    /// Keeps the previous shortcut unless a new combination was already accepted.
    Q_INVOKABLE void endRecording();
    Q_INVOKABLE void clear();
    Q_INVOKABLE void useAnyway();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] bool keyPressed(const QKeyEvent& event);
    void keyReleased(const QKeyEvent& event);
    [[nodiscard]] bool editingKeyPressed(int key);
    void consider(const KeyboardShortcuts::Shortcut& shortcut);
    void store(const std::optional<KeyboardShortcuts::Shortcut>& shortcut);

    KeyboardShortcuts& shortcuts_;
    const HotKeyManager& hotKeys_;
    NotificationCenter& notifications_;
    KeyboardShortcuts::Name name_;
    ShortcutValidator validator_;
    OnChange onChange_;
    NotificationCenter::Observation nameObservation_;
    bool isRecording_ = false;
    std::uint32_t heldModifiers_ = 0;
    std::optional<KeyboardShortcuts::Shortcut> accepted_;
    /// The last refused shortcut, and why.
    std::optional<KeyboardShortcuts::Shortcut> refused_;
    std::optional<ShortcutRefusal> refusal_;
};

} // namespace vantro
