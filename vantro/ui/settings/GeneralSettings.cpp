#include "vantro/ui/settings/GeneralSettings.h"

#include "vantro/ui/settings/SpokenLanguages.h"

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

const QString appearanceKey = QStringLiteral("appearance");
const QString motionKey = QStringLiteral("reduceMotion");
const QString languageKey = QStringLiteral("SelectedLanguage");

} // namespace

GeneralSettings::GeneralSettings(Parts parts) : parts_(std::move(parts))
{
    connect(&parts_.updates, &UpdateChecker::isCheckingChanged, this, &GeneralSettings::checkingChanged);
}

void GeneralSettings::store(const char* key, bool value)
{
    parts_.defaults.setBoolean(QLatin1String(key), value);
    problem_.clear();
    Q_EMIT changed();
}

bool GeneralSettings::autoPaste() const
{
    return parts_.defaults.boolean(QStringLiteral("autoPasteEnabled"), true);
}

void GeneralSettings::setAutoPaste(bool on)
{
    store("autoPasteEnabled", on);
}

bool GeneralSettings::keepOnClipboard() const
{
    return parts_.defaults.boolean(QStringLiteral("copyToClipboardEnabled"), false);
}

void GeneralSettings::setKeepOnClipboard(bool on)
{
    store("copyToClipboardEnabled", on);
}

bool GeneralSettings::playSound() const
{
    return parts_.defaults.boolean(QStringLiteral("playSoundOnComplete"), false);
}

void GeneralSettings::setPlaySound(bool on)
{
    store("playSoundOnComplete", on);
}

bool GeneralSettings::keepModelInMemory() const
{
    return parts_.defaults.boolean(QStringLiteral("whisperKeepModelInMemory"), false);
}

void GeneralSettings::setKeepModelInMemory(bool on)
{
    store("whisperKeepModelInMemory", on);
}

bool GeneralSettings::holdToTalk() const
{
    return parts_.defaults.boolean(QStringLiteral("holdToTalk"), false);
}

void GeneralSettings::setHoldToTalk(bool on)
{
    store("holdToTalk", on);
}

int GeneralSettings::appearance() const
{
    const QString stored = parts_.defaults.string(appearanceKey).value_or(QString());
    return stored == QLatin1String("light") ? 1 : stored == QLatin1String("dark") ? 2 : 0;
}

void GeneralSettings::setAppearance(int index)
{
    if (index == 0)
        parts_.defaults.remove(appearanceKey);
    else
        parts_.defaults.setString(appearanceKey, index == 1 ? QStringLiteral("light") : QStringLiteral("dark"));
    parts_.applyTheme();
    Q_EMIT changed();
}

int GeneralSettings::motion() const
{
    if (!parts_.defaults.contains(motionKey))
        return 0;
    return parts_.defaults.boolean(motionKey, false) ? 2 : 1;
}

void GeneralSettings::setMotion(int index)
{
    if (index == 0)
        parts_.defaults.remove(motionKey);
    else
        parts_.defaults.setBoolean(motionKey, index == 2);
    parts_.applyTheme();
    Q_EMIT changed();
}

void GeneralSettings::setLaunchAtLogin(bool on)
{
    problem_.clear();
    try {
        parts_.loginItem.setEnabled(on);
    } catch (const LoginItemError& error) {
        problem_ = error.localizedDescription();
    }
    Q_EMIT changed();
}

bool GeneralSettings::checkForUpdates() const
{
    return parts_.defaults.boolean(QStringLiteral("checkForUpdatesOnLaunch"), false);
}

void GeneralSettings::setCheckForUpdates(bool on)
{
    store("checkForUpdatesOnLaunch", on);
}

void GeneralSettings::checkForUpdatesNow()
{
    parts_.updates.check(UpdateChecker::Asker::user);
}

int GeneralSettings::language() const
{
    const QString code = parts_.defaults.string(languageKey).value_or(QStringLiteral("auto"));
    const auto& all = spokenLanguages();
    const auto found = std::ranges::find(all, code, &SpokenLanguage::code);
    return found != all.end() ? static_cast<int>(found - all.begin()) : 0;
}

void GeneralSettings::setLanguage(int index)
{
    const auto& all = spokenLanguages();
    if (index >= 0 && index < static_cast<int>(all.size()))
        parts_.defaults.setString(languageKey, all[static_cast<std::size_t>(index)].code);
    Q_EMIT changed();
}

QStringList GeneralSettings::languages() const
{
    QStringList names;
    for (const SpokenLanguage& language : spokenLanguages())
        names << language.name;
    return names;
}

} // namespace vantro
