#pragma once

#include "KeyboardShortcuts/SystemHotKey.h"
#include "base/NotificationCenter.h"
#include "base/UserDefaults.h"
#include "platform/HotKeyManager.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace vantro {

/// Named global shortcuts: stored in the preferences, registered as system-wide hot keys while they have handlers, and
/// dispatched to those handlers. Main thread only.
class KeyboardShortcuts : public QObject
{
    Q_OBJECT
public:
    /// A virtual key code; see platform/KeyCode.h.
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

        /// The stored JSON form, and back; nullopt for malformed text.
        [[nodiscard]] QString toJson() const;
        static std::optional<Shortcut> fromJson(const QString& text);
        /// "Ctrl+Alt+D", with this desktop's key names.
        [[nodiscard]] QString displayText() const;
        friend bool operator==(const Shortcut&, const Shortcut&) = default;
    };

    /// An action that the user can assign a shortcut to.
    struct Name
    {
        QString rawValue;
        std::optional<Shortcut> defaultShortcut;

        /// Shows the launcher and starts recording. No default.
        static const Name openModal;
        /// Ends the recording. Enabled only while the launcher has the keyboard, because its default is a plain Space.
        static const Name stopRecordingAndCloseModal;
        /// Escape, which gives the dictation up. A hot key because a held key repeats: once the launcher is gone, the
        /// rest would go to the window behind it. Enabled like stopRecordingAndCloseModal.
        static const Name cancelDictation;
        /// Pastes the words of the last dictation as they were said. No default.
        static const Name pasteOriginal;

        /// Whether its shortcut works in every program, not in the launcher alone.
        [[nodiscard]] bool isGlobal() const;
    };

    using Action = std::function<void()>;

    /// Unregisters an action when destroyed. May outlive the KeyboardShortcuts object.
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

    /// "KeyboardShortcuts_shortcutByNameDidChange"; posted with the raw name as "name".
    static const QString shortcutByNameDidChange;

    /// All three must outlive this object.
    KeyboardShortcuts(HotKeyManager& hotKeys, UserDefaults& defaults, NotificationCenter& notifications);
    ~KeyboardShortcuts() override;

    /// Runs @p action when @p name's shortcut is pressed or released; actions run in registration order. @p owner is
    /// held weakly: once it is destroyed, the action no longer runs.
    [[nodiscard]] Registration onKeyDown(const Name& name, QObject& owner, Action action);
    [[nodiscard]] Registration onKeyUp(const Name& name, QObject& owner, Action action);

    void enable(const std::vector<Name>& names);
    void disable(const std::vector<Name>& names);
    [[nodiscard]] bool isEnabled(const Name& name) const;

    /// The stored shortcut, else the name's default.
    [[nodiscard]] std::optional<Shortcut> shortcut(const Name& name) const;
    /// Stores or removes @p shortcut, re-registers it and posts shortcutByNameDidChange. See failure() for the outcome
    /// of the registration.
    void setShortcut(const Name& name, const std::optional<Shortcut>& shortcut);

    /// Why @p name's shortcut is not active although it should be, as a sentence for the user.
    [[nodiscard]] std::optional<QString> failure(const Name& name) const;

    /// By which facility of the desktop shortcuts work, for reports.
    [[nodiscard]] QString way() const { return hotKeys_.way(); }
    /// What the user still has to do so that @p name's shortcut works in other programs; nullopt where it just does.
    [[nodiscard]] std::optional<QString> howToBind(const Name& name) const;

    /// The same shortcuts from key events in the program's own windows: no hot key fires while one of our menus has the
    /// keyboard, or where another program has grabbed the combination. Returns false for an unrelated event. A release
    /// matches its press by key alone, whatever modifiers are still held.
    bool handleRawKeyDown(const Shortcut& shortcut);
    bool handleRawKeyUp(Key key);

    /// Tries to register @p shortcut and releases it again; returns the reason for the user when that fails.
    [[nodiscard]] std::optional<QString> whyUnavailable(const Shortcut& shortcut);

    /// Assigns the first free one of a few common combinations if @p name has none. Returns the resulting shortcut.
    std::optional<Shortcut> proposeShortcut(const Name& name);

    /// Unregisters all hot keys until the matching resume(), so that a control that records a shortcut receives the
    /// keys. Calls nest.
    void suspend();
    void resume();

Q_SIGNALS:
    /// @p name's shortcut could not be registered, or was lost later. @p reason is a sentence for the user. It is tried
    /// again from time to time, because programs that fight for a combination, or quit, let it go.
    void shortcutFailed(const QString& name, const QString& reason);
    /// Another key while a shortcut is held down; no other program sees it.
    void otherKeyPressed(Key key);
    void otherKeyReleased(Key key);
    /// A shortcut that had failed works.
    void shortcutRecovered(const QString& name);
    /// @p name's shortcut was changed, disabled or lost while held down: its key-up actions will not run.
    void holdEnded(const QString& name);

private:
    enum class Phase { Down, Up };

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
    /// Makes the registered hot key match wanted().
    void update(const QString& name);
    void endHold(const QString& name);
    void adoptSetting(const QString& key);
    void updateAll();
    [[nodiscard]] std::optional<Shortcut> wanted(const QString& name) const;
    /// Returns why it failed.
    std::optional<QString> registerHotKey(const QString& name, const Shortcut& shortcut);
    void retryFailed();
    void scheduleRetry();
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
    QTimer retryTimer_;
    std::size_t retries_ = 0; ///< since the latest failure
    /// Names whose shortcut is held down; the key is set for raw events only.
    std::map<QString, std::optional<Key>> held_;
    std::uint64_t lastToken_ = 0;
    int suspensions_ = 0;
};

} // namespace vantro
