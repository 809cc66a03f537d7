#include "vantro/app/ApplicationRules.h"

#include "base/Settings.h"
#include "vantro/delivery/PasteChords.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vantro {

namespace {

const auto applicationKey = QStringLiteral("application");
const auto modeKey = QStringLiteral("mode");
const auto fullStopKey = QStringLiteral("fullStop");

} // namespace

std::vector<ApplicationRule> applicationRules(const UserDefaults& defaults)
{
    std::vector<ApplicationRule> rules;
    const QJsonArray stored = QJsonDocument::fromJson(defaults.get(setting::applicationRules)).array();
    for (const QJsonValue& value : stored) {
        const QJsonObject entry = value.toObject();
        const ApplicationRule rule{entry.value(applicationKey).toString(),
                                   processingModeFromRawValue(entry.value(modeKey).toString()),
                                   entry.value(fullStopKey).toBool(true)};
        if (!rule.application.isEmpty())
            rules.push_back(rule);
    }
    PasteChordTable chords = ownPasteChords(defaults);
    for (ApplicationRule& rule : rules) {
        const auto chord = chords.constFind(rule.application.toLower());
        if (chord != chords.constEnd())
            rule.pasteKeys = *chord;
        chords.remove(rule.application.toLower());
    }
    QStringList others = chords.keys();
    others.sort();
    for (const QString& application : others)
        rules.push_back({.application = application, .pasteKeys = chords.value(application)});
    return rules;
}

void setApplicationRules(UserDefaults& defaults, const std::vector<ApplicationRule>& rules)
{
    QJsonArray array;
    PasteChordTable chords;
    for (const ApplicationRule& rule : rules) {
        if (rule.pasteKeys)
            chords.insert(rule.application.toLower(), *rule.pasteKeys);
        QJsonObject entry{{applicationKey, rule.application}, {fullStopKey, rule.hasFullStop}};
        if (rule.mode)
            entry.insert(modeKey, rawValue(*rule.mode));
        array.append(entry);
    }
    defaults.set(setting::applicationRules, QJsonDocument(array).toJson(QJsonDocument::Compact));
    if (chords != ownPasteChords(defaults))
        setOwnPasteChords(defaults, chords);
}

std::optional<ApplicationRule> applicationRuleFor(const UserDefaults& defaults, const QStringList& windowClass)
{
    const auto rules = applicationRules(defaults);
    const auto found = std::ranges::find_if(rules, [&windowClass](const ApplicationRule& rule) {
        return windowClass.contains(rule.application, Qt::CaseInsensitive);
    });
    return found != rules.end() ? std::optional(*found) : std::nullopt;
}

QString textFor(const ApplicationRule& rule, const QString& text)
{
    // Three of them are not a full stop.
    const bool ends = text.endsWith(QLatin1Char('.')) && !text.endsWith(QLatin1String(".."));
    return !rule.hasFullStop && ends ? text.chopped(1) : text;
}

} // namespace vantro
