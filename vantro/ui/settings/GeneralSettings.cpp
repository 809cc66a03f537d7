#include "vantro/ui/settings/GeneralSettings.h"

#include "base/Settings.h"
#include "vantro/models/SpokenLanguages.h"

#include <algorithm>
#include <utility>

namespace vantro {

GeneralSettings::GeneralSettings(Parts parts) : parts_(std::move(parts))
{
    connect(&parts_.updates, &UpdateChecker::isCheckingChanged, this, &GeneralSettings::checkingChanged);
    connect(&parts_.defaults, &UserDefaults::changed, this, [this] {
        problem_.clear();
        Q_EMIT changed();
    });
}

int GeneralSettings::appearance() const
{
    const QString stored = parts_.defaults.get(setting::appearance);
    return stored == QLatin1String("light") ? 1 : stored == QLatin1String("dark") ? 2 : 0;
}

void GeneralSettings::setAppearance(int index)
{
    if (index == 0)
        parts_.defaults.remove(setting::appearance.key);
    else
        parts_.defaults.set(setting::appearance, index == 1 ? QStringLiteral("light") : QStringLiteral("dark"));
}

int GeneralSettings::motion() const
{
    const auto reduced = parts_.defaults.stored(setting::reduceMotion);
    return !reduced ? 0 : *reduced ? 2 : 1;
}

void GeneralSettings::setMotion(int index)
{
    if (index == 0)
        parts_.defaults.remove(setting::reduceMotion.key);
    else
        parts_.defaults.set(setting::reduceMotion, index == 2);
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

void GeneralSettings::checkForUpdatesNow()
{
    parts_.updates.check(UpdateChecker::Asker::user);
}

int GeneralSettings::language() const
{
    const QString code = parts_.defaults.get(setting::selectedLanguage);
    const auto& all = spokenLanguages();
    const auto found = std::ranges::find(all, code, &SpokenLanguage::code);
    return found != all.end() ? static_cast<int>(found - all.begin()) : 0;
}

void GeneralSettings::setLanguage(int index)
{
    const auto& all = spokenLanguages();
    if (index >= 0 && index < static_cast<int>(all.size()))
        parts_.defaults.set(setting::selectedLanguage, all[static_cast<std::size_t>(index)].code);
}

QStringList GeneralSettings::languages() const
{
    QStringList names;
    for (const SpokenLanguage& language : spokenLanguages())
        names << language.name;
    return names;
}

} // namespace vantro
