#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include "base/Logger.h"
#include "base/Settings.h"
#include "platform/KeyCode.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

const Logger& logger()
{
    static const Logger instance("KeyboardShortcuts");
    return instance;
}

const QString storagePrefix = QStringLiteral("KeyboardShortcuts_");

QString storageKey(const QString& name)
{
    return storagePrefix + name;
}

} // namespace

const QString KeyboardShortcuts::shortcutByNameDidChange = QStringLiteral("KeyboardShortcuts_shortcutByNameDidChange");

KeyboardShortcuts::Registration::Registration(Registration&& other) noexcept
    : shortcuts_(std::exchange(other.shortcuts_, nullptr))
    , token_(other.token_)
{
}

KeyboardShortcuts::Registration& KeyboardShortcuts::Registration::operator=(Registration&& other) noexcept
{
    if (this != &other) {
        reset();
        shortcuts_ = std::exchange(other.shortcuts_, nullptr);
        token_ = other.token_;
    }
    return *this;
}

void KeyboardShortcuts::Registration::reset()
{
    if (KeyboardShortcuts* const shortcuts = std::exchange(shortcuts_, nullptr))
        shortcuts->remove(token_);
}

KeyboardShortcuts::KeyboardShortcuts(HotKeyManager& hotKeys, UserDefaults& defaults, NotificationCenter& notifications)
    : hotKeys_(hotKeys)
    , defaults_(defaults)
    , notifications_(notifications)
    , disabled_{Name::stopRecordingAndCloseModal.rawValue, Name::cancelDictation.rawValue}
{
    connect(&hotKeys_, &HotKeyManager::hotKeyPressed, this, [this](std::uint32_t id) { dispatch(id, Phase::Down); });
    connect(&hotKeys_, &HotKeyManager::hotKeyReleased, this, [this](std::uint32_t id) { dispatch(id, Phase::Up); });
    connect(&hotKeys_, &HotKeyManager::hotKeyLost, this, &KeyboardShortcuts::hotKeyLost);
    connect(&hotKeys_, &HotKeyManager::otherKeyPressed, this, [this](auto key) { Q_EMIT otherKeyPressed(Key{key}); });
    connect(&hotKeys_, &HotKeyManager::otherKeyReleased, this, [this](auto key) { Q_EMIT otherKeyReleased(Key{key}); });
    connect(&hotKeys_, &HotKeyManager::keyboardChanged, this, &KeyboardShortcuts::retryFailed);
    retryTimer_.setSingleShot(true);
    connect(&retryTimer_, &QTimer::timeout, this, &KeyboardShortcuts::retryFailed);
    connect(&defaults_, &UserDefaults::changed, this, &KeyboardShortcuts::adoptSetting);
}

KeyboardShortcuts::~KeyboardShortcuts() = default;

KeyboardShortcuts::Registration KeyboardShortcuts::onKeyDown(const Name& name, QObject& owner, Action action)
{
    return add(name, Phase::Down, owner, std::move(action));
}

KeyboardShortcuts::Registration KeyboardShortcuts::onKeyUp(const Name& name, QObject& owner, Action action)
{
    return add(name, Phase::Up, owner, std::move(action));
}

KeyboardShortcuts::Registration KeyboardShortcuts::add(const Name& name, Phase phase, QObject& owner, Action action)
{
    const std::uint64_t token = ++lastToken_;
    Handlers& handlers = handlers_[name.rawValue];
    const bool isFirst = handlers.isEmpty();
    (phase == Phase::Down ? handlers.keyDown : handlers.keyUp).push_back({token, &owner, std::move(action)});
    defaultShortcuts_[name.rawValue] = name.defaultShortcut;
    // Otherwise a shortcut whose first registration failed would fail and be reported again.
    if (isFirst)
        update(name.rawValue);
    return {*this, token};
}

void KeyboardShortcuts::remove(std::uint64_t token)
{
    const auto isIt = [token](const Handler& handler) {
        return handler.token == token;
    };
    for (auto& [name, handlers] : handlers_) {
        if (std::erase_if(handlers.keyDown, isIt) + std::erase_if(handlers.keyUp, isIt) > 0) {
            update(name);
            return;
        }
    }
}

void KeyboardShortcuts::enable(const std::vector<Name>& names)
{
    for (const Name& name : names) {
        disabled_.erase(name.rawValue);
        update(name.rawValue);
    }
}

void KeyboardShortcuts::disable(const std::vector<Name>& names)
{
    for (const Name& name : names) {
        disabled_.insert(name.rawValue);
        update(name.rawValue);
    }
}

bool KeyboardShortcuts::isEnabled(const Name& name) const
{
    return !disabled_.contains(name.rawValue);
}

std::optional<KeyboardShortcuts::Shortcut> KeyboardShortcuts::shortcut(const Name& name) const
{
    const auto text = defaults_.read<QString>(storageKey(name.rawValue));
    if (!text)
        return name.defaultShortcut;
    const auto stored = Shortcut::fromJson(*text);
    if (!stored)
        logger().error(QStringLiteral("The stored shortcut for %1 cannot be read: %2").arg(name.rawValue, *text));
    return stored ? stored : name.defaultShortcut;
}

void KeyboardShortcuts::setShortcut(const Name& name, const std::optional<Shortcut>& shortcut)
{
    const QString key = storageKey(name.rawValue);
    const auto json = shortcut ? std::optional(shortcut->toJson()) : std::nullopt;
    if (json == defaults_.read<QString>(key))
        adoptSetting(key); // retries a failed registration
    else if (json)
        defaults_.write(key, *json);
    else
        defaults_.remove(key);
}

void KeyboardShortcuts::adoptSetting(const QString& key)
{
    if (!key.startsWith(storagePrefix))
        return;
    const QString name = key.mid(storagePrefix.size());
    update(name);
    notifications_.post(shortcutByNameDidChange, {{QStringLiteral("name"), name}});
}

std::optional<QString> KeyboardShortcuts::failure(const Name& name) const
{
    const auto found = failures_.find(name.rawValue);
    return found != failures_.end() ? std::optional(found->second) : std::nullopt;
}

std::optional<QString> KeyboardShortcuts::howToBind(const Name& name) const
{
    const auto chosen = shortcut(name);
    if (!chosen || name.rawValue != Name::openModal.rawValue)
        return std::nullopt;
    return hotKeys_.howToBind(static_cast<std::uint32_t>(chosen->carbonKeyCode),
                              static_cast<std::uint32_t>(chosen->carbonModifiers), defaults_.get(setting::holdToTalk));
}

std::optional<QString> KeyboardShortcuts::whyUnavailable(const Shortcut& shortcut)
{
    try {
        const SystemHotKey trial(hotKeys_, shortcut.carbonKeyCode, shortcut.carbonModifiers);
        return std::nullopt;
    } catch (const HotKeyError& error) {
        return error.localizedDescription();
    }
}

std::optional<KeyboardShortcuts::Shortcut> KeyboardShortcuts::proposeShortcut(const Name& name)
{
    if (const auto present = shortcut(name))
        return present;
    constexpr std::array candidates{"Ctrl+Alt+D", "Ctrl+Alt+Space", "Super+Alt+D", "Ctrl+Super+D", "Ctrl+Shift+F9"};
    for (const char* const text : candidates) {
        const auto parsed = parseShortcut(QString::fromLatin1(text));
        if (!parsed)
            continue;
        const Shortcut candidate(Key{parsed->keyCode}, parsed->modifiers);
        if (whyUnavailable(candidate))
            continue;
        setShortcut(name, candidate);
        return candidate;
    }
    return std::nullopt;
}

void KeyboardShortcuts::suspend()
{
    ++suspensions_;
    updateAll();
}

void KeyboardShortcuts::resume()
{
    suspensions_ = std::max(0, suspensions_ - 1);
    updateAll();
}

void KeyboardShortcuts::updateAll()
{
    for (const auto& entry : handlers_)
        update(entry.first);
}

std::optional<KeyboardShortcuts::Shortcut> KeyboardShortcuts::wanted(const QString& name) const
{
    const auto handlers = handlers_.find(name);
    if (suspensions_ > 0 || disabled_.contains(name) || handlers == handlers_.end() || handlers->second.isEmpty())
        return std::nullopt;
    return shortcut({name, defaultShortcuts_.at(name)});
}

void KeyboardShortcuts::update(const QString& name)
{
    const auto shortcut = wanted(name);
    const auto present = registered_.find(name);
    if (present != registered_.end() && shortcut == present->second.shortcut)
        return;
    if (present != registered_.end())
        registered_.erase(present);
    failures_.erase(name);
    endHold(name);
    if (!shortcut)
        return;
    if (const auto reason = registerHotKey(name, *shortcut))
        fail(name, *reason);
}

std::optional<QString> KeyboardShortcuts::registerHotKey(const QString& name, const Shortcut& shortcut)
{
    try {
        auto reference = std::make_unique<SystemHotKey>(hotKeys_, shortcut.carbonKeyCode, shortcut.carbonModifiers);
        const std::uint32_t id = reference->id();
        registered_.emplace(name, HotKey{shortcut, id, std::move(reference), [this, name] { run(name, Phase::Down); },
                                         [this, name] {
                                             run(name, Phase::Up);
                                         }});
        return std::nullopt;
    } catch (const HotKeyError& error) {
        return error.localizedDescription();
    }
}

void KeyboardShortcuts::scheduleRetry()
{
    constexpr std::array pauses{1s, 5s, 30s};
    if (!failures_.empty())
        retryTimer_.start(pauses[std::min(retries_, pauses.size() - 1)]);
}

void KeyboardShortcuts::retryFailed()
{
    ++retries_;
    const auto failed = failures_;
    for (const auto& entry : failed) {
        const auto shortcut = wanted(entry.first);
        if (!shortcut || registerHotKey(entry.first, *shortcut))
            continue;
        failures_.erase(entry.first);
        logger().info(QStringLiteral("The hotkey %1 works").arg(entry.first));
        Q_EMIT shortcutRecovered(entry.first);
    }
    scheduleRetry();
}

void KeyboardShortcuts::endHold(const QString& name)
{
    if (held_.erase(name) > 0)
        Q_EMIT holdEnded(name);
}

void KeyboardShortcuts::fail(const QString& name, const QString& reason)
{
    logger().error(QStringLiteral("Error registering hotkey %1: %2").arg(name, reason));
    failures_[name] = reason;
    retries_ = 0;
    scheduleRetry();
    Q_EMIT shortcutFailed(name, reason);
}

void KeyboardShortcuts::dispatch(std::uint32_t id, Phase phase)
{
    const auto found =
        std::ranges::find_if(registered_, [id](const auto& entry) { return entry.second.carbonHotKeyId == id; });
    if (found == registered_.end())
        return;
    const QString name = found->first;
    // A copy, because the action may end its own registration.
    const Action action = phase == Phase::Down ? found->second.onKeyDown : found->second.onKeyUp;
    if (phase == Phase::Down)
        held_[name] = std::nullopt;
    else
        held_.erase(name);
    action();
}

bool KeyboardShortcuts::handleRawKeyDown(const Shortcut& shortcut)
{
    std::vector<QString> names;
    for (const auto& entry : handlers_) {
        if (wanted(entry.first) == shortcut)
            names.push_back(entry.first);
    }
    for (const QString& name : names) {
        if (held_.try_emplace(name, Key{shortcut.carbonKeyCode}).second)
            run(name, Phase::Down);
    }
    return !names.empty();
}

bool KeyboardShortcuts::handleRawKeyUp(Key key)
{
    std::vector<QString> names;
    for (const auto& [name, rawKey] : held_) {
        if (rawKey == key)
            names.push_back(name);
    }
    for (const QString& name : names) {
        held_.erase(name);
        run(name, Phase::Up);
    }
    return !names.empty();
}

void KeyboardShortcuts::run(const QString& name, Phase phase)
{
    const auto handlers = [&]() -> std::vector<Handler>& {
        return phase == Phase::Down ? handlers_[name].keyDown : handlers_[name].keyUp;
    };
    std::vector<std::uint64_t> tokens;
    std::ranges::transform(handlers(), std::back_inserter(tokens), &Handler::token);
    // Actions may add and end registrations.
    for (const auto token : tokens) {
        const auto handler = std::ranges::find(handlers(), token, &Handler::token);
        if (handler == handlers().end() || handler->owner == nullptr)
            continue;
        const Action action = handler->action;
        action();
    }
}

void KeyboardShortcuts::hotKeyLost(std::uint32_t id, const QString& reason)
{
    const auto found =
        std::ranges::find_if(registered_, [id](const auto& entry) { return entry.second.carbonHotKeyId == id; });
    if (found == registered_.end())
        return;
    const QString name = found->first;
    registered_.erase(found);
    endHold(name);
    fail(name, reason);
}

} // namespace vantro
