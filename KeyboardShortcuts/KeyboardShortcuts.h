#pragma once

#include "base/NotificationCenter.h"
#include "base/UserDefaults.h"
#include "platform/HotKeyManager.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace vantro {

/// Named global shortcuts: stored in the preferences, registered as system-wide hot keys while something listens to
/// them, and dispatched to the actions of their name. Main owns the one object; main thread only.
class KeyboardShortcuts : public QObject
{
    Q_OBJECT
public:
    /// A virtual key code as platform/KeyCode.h describes it.
    struct Key
    {
        qint64 rawValue = 0;

        static const Key space;
        friend bool operator==(const Key&, const Key&) = default;
    };

    struct Shortcut
    {
        qint64 carbonKeyCode = 0;
        qint64 carbonModifiers = 0;

        Shortcut() = default;
        Shortcut(Key key, std::uint32_t modifiers) : carbonKeyCode(key.rawValue), carbonModifiers(modifiers) {}

        /// The JSON text it is stored as, and back; nothing when the text is not such a record.
        [[nodiscard]] QString toJson() const;
        static std::optional<Shortcut> fromJson(const QString& text);
        /// "Ctrl+Alt+D" as this desktop writes it.
        [[nodiscard]] QString displayText() const;
        friend bool operator==(const Shortcut&, const Shortcut&) = default;
    };

    /// A slot for a shortcut that the user can choose.
    struct Name
    {
        QString rawValue;
        std::optional<Shortcut> defaultShortcut;

        /// Shows the launcher and starts recording. None until the user has chosen one.
        static const Name openModal;
        /// Ends the recording while the launcher has the keyboard; starts out disabled, so that Space types a space
        /// everywhere else.
        static const Name stopRecordingAndCloseModal;
    };

    using Action = std::function<void()>;

    /// Ends the registration of an action when destroyed. Outliving the shortcuts is allowed.
    class Registration
    {
    public:
        Registration() = default;
        Registration(KeyboardShortcuts& shortcuts, std::uint64_t token) : shortcuts_(&shortcuts), token_(token) {}
        ~Registration() { reset(); }
        Registration(Registration&& other) noexcept;
        Registration& operator=(Registration&& other) noexcept;

        void reset();

    private:
        QPointer<KeyboardShortcuts> shortcuts_;
        std::uint64_t token_ = 0;
    };

    /// "KeyboardShortcuts_shortcutByNameDidChange"; posted with the raw name under "name".
    static const QString shortcutByNameDidChange;

    /// All three must outlive this object.
    KeyboardShortcuts(HotKeyManager& hotKeys, UserDefaults& defaults, NotificationCenter& notifications);
    ~KeyboardShortcuts() override;

    /// Runs @p action when @p name's shortcut is pressed or released, after the actions that were there before. @p
    /// owner is held weakly: once it is destroyed the action is not run any more.
    [[nodiscard]] Registration onKeyDown(const Name& name, QObject& owner, Action action);
    [[nodiscard]] Registration onKeyUp(const Name& name, QObject& owner, Action action);

    void enable(const std::vector<Name>& names);
    void disable(const std::vector<Name>& names);
    [[nodiscard]] bool isEnabled(const Name& name) const;

    /// The stored shortcut, else the name's default.
    [[nodiscard]] std::optional<Shortcut> shortcut(const Name& name) const;
    /// Stores @p shortcut, or removes what is stored; registers it in the place of the former one and posts
    /// shortcutByNameDidChange. Whether it could be registered is told by failure().
    void setShortcut(const Name& name, const std::optional<Shortcut>& shortcut);

    /// A sentence for the user when @p name's shortcut should be in force and is not.
    [[nodiscard]] std::optional<QString> failure(const Name& name) const;

    /// The same shortcuts from key events that reached one of the program's own windows: while an open menu of ours
    /// holds the keyboard, and where another program holds the combination, no hot key fires. False when the event
    /// means nothing here. A release belongs to the press that came this way, whatever modifiers are still held.
    bool handleRawKeyDown(const Shortcut& shortcut);
    bool handleRawKeyUp(Key key);

    /// Registers and releases @p shortcut to see whether that is possible; the reason for the user when it is not.
    [[nodiscard]] std::optional<QString> whyUnavailable(const Shortcut& shortcut);

    /// Gives @p name the first of a few customary combinations that is free, if it has none. What it then has.
    std::optional<Shortcut> proposeShortcut(const Name& name);

    /// No hot key is registered between suspend() and the matching resume(), so that a control that records a shortcut
    /// sees the keys. Calls nest.
    void suspend();
    void resume();

Q_SIGNALS:
    /// @p name's shortcut does not work for the sentence in @p reason: it could not be registered, or was lost later.
    void shortcutFailed(const QString& name, const QString& reason);
    /// @p name's shortcut was changed, disabled or lost while it was held down: its key-up actions will not run.
    void holdEnded(const QString& name);

private:
    enum class Phase { Down, Up };

    /// A hot key held with the system; released when destroyed.
    class SystemHotKey
    {
    public:
        /// Throws HotKeyError.
        SystemHotKey(HotKeyManager& hotKeys, std::uint32_t id, const Shortcut& shortcut);
        ~SystemHotKey() { hotKeys_.unregisterHotKey(id_); }
        SystemHotKey(const SystemHotKey&) = delete;
        SystemHotKey& operator=(const SystemHotKey&) = delete;

    private:
        HotKeyManager& hotKeys_;
        std::uint32_t id_;
    };

    struct HotKey
    {
        Shortcut shortcut;
        std::uint32_t carbonHotKeyId = 0;
        std::unique_ptr<SystemHotKey> carbonHotKey;
        Action onKeyDown;
        Action onKeyUp;
    };

    struct Handler
    {
        std::uint64_t token = 0;
        QPointer<QObject> owner;
        Action action;
    };
    struct Handlers
    {
        std::vector<Handler> keyDown;
        std::vector<Handler> keyUp;
        [[nodiscard]] bool isEmpty() const { return keyDown.empty() && keyUp.empty(); }
    };

    Registration add(const Name& name, Phase phase, QObject& owner, Action action);
    void remove(std::uint64_t token);
    /// Brings what is registered for a name in line with what should be.
    void update(const QString& name);
    void endHold(const QString& name);
    void adoptSetting(const QString& key);
    void updateAll();
    [[nodiscard]] std::optional<Shortcut> wanted(const QString& name) const;
    void registerHotKey(const QString& name, const Shortcut& shortcut);
    void run(const QString& name, Phase phase);
    void dispatch(std::uint32_t id, Phase phase);
    void hotKeyLost(std::uint32_t id, const QString& reason);
    void fail(const QString& name, const QString& reason);

    HotKeyManager& hotKeys_;
    UserDefaults& defaults_;
    NotificationCenter& notifications_;
    std::map<QString, Handlers> handlers_;
    std::map<QString, std::optional<Shortcut>> defaultShortcuts_;
    std::set<QString> disabled_;
    std::map<QString, HotKey> registered_;
    std::map<QString, QString> failures_;
    /// Names whose shortcut is down, with the key where it came as a raw event.
    std::map<QString, std::optional<Key>> held_;
    std::uint64_t lastToken_ = 0;
    int suspensions_ = 0;
};

} // namespace vantro
