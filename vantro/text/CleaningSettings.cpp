#include "vantro/text/CleaningSettings.h"

#include "base/Settings.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace vantro {

namespace {

/// Only words that mean nothing else: "like" and "period" are for the user to add.
const char* builtIn(const QString& language)
{
    if (language == QLatin1String("de"))
        return "äh\nähm\nöh\nhm\nneuer Absatz = \\n\\n\nneue Zeile = \\n\nKomma = ,\nFragezeichen = ?\n"
               "Ausrufezeichen = !\nDoppelpunkt = :";
    if (language == QLatin1String("es"))
        return "eh\nem\neste eh\nnuevo párrafo = \\n\\n\nnueva línea = \\n\npunto y coma = ;\npunto y aparte = .\\n\n"
               "signo de interrogación = ?\nsigno de exclamación = !\ndos puntos = :\ncoma = ,";
    if (language == QLatin1String("fr"))
        return "euh\nheu\nhum\nnouveau paragraphe = \\n\\n\nnouvelle ligne = \\n\nà la ligne = \\n\npoint-virgule = ;\n"
               "point d'interrogation = ?\npoint d'exclamation = !\ndeux points = :\nvirgule = ,";
    return "um\nuh\nuhm\nerm\nnew paragraph = \\n\\n\nnew line = \\n\ncomma = ,\nfull stop = .\nquestion mark = ?\n"
           "exclamation mark = !\nexclamation point = !\nsemicolon = ;";
}

QString withBreaks(QString text)
{
    return text.replace(QLatin1String("\\n"), QLatin1String("\n"));
}

QString withoutBreaks(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
}

} // namespace

CleaningSettings::CleaningSettings(UserDefaults& defaults) : defaults_(defaults)
{
    load();
    connect(&defaults, &UserDefaults::changed, this, [this](const QString& key) {
        if (key != setting::cleaningRules.key)
            return;
        load();
        Q_EMIT changed();
    });
}

QStringList CleaningSettings::languages()
{
    return {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("es"), QStringLiteral("fr")};
}

void CleaningSettings::load()
{
    const QJsonDocument stored = QJsonDocument::fromJson(defaults_.get(setting::cleaningRules));
    if (defaults_.contains(setting::cleaningRules.key) && !stored.isObject())
        defaults_.keepUnreadable(setting::cleaningRules.key);
    for (const QString& language : languages()) {
        const QJsonValue own = stored.object().value(language);
        rules_[language] = fromText(own.isString() ? own.toString() : QString::fromUtf8(builtIn(language)));
    }
}

const std::vector<CleaningRule>& CleaningSettings::rules(const QString& language) const
{
    const auto found = rules_.find(language);
    return found != rules_.end() ? found->second : rules_.at(QStringLiteral("en"));
}

void CleaningSettings::setRules(const QString& language, const std::vector<CleaningRule>& rules)
{
    if (!rules_.contains(language))
        return;
    defaults_.change([&] {
        QJsonObject stored = QJsonDocument::fromJson(defaults_.get(setting::cleaningRules)).object();
        const QString text = asText(rules);
        if (text == asText(fromText(QString::fromUtf8(builtIn(language)))))
            stored.remove(language); // a better list of a later version is taken
        else
            stored.insert(language, text);
        defaults_.set(setting::cleaningRules, QJsonDocument(stored).toJson(QJsonDocument::Compact));
    });
}

void CleaningSettings::reset(const QString& language)
{
    setRules(language, fromText(QString::fromUtf8(builtIn(language))));
}

QString CleaningSettings::asText(const std::vector<CleaningRule>& rules)
{
    QStringList lines;
    for (const CleaningRule& rule : rules)
        lines << (rule.replace.isEmpty() ? rule.find
                                         : QStringLiteral("%1 = %2").arg(rule.find, withoutBreaks(rule.replace)));
    return lines.join(QLatin1Char('\n'));
}

std::vector<CleaningRule> CleaningSettings::fromText(const QString& text)
{
    std::vector<CleaningRule> rules;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const CleaningRule rule{line.section(QLatin1Char('='), 0, 0).simplified(),
                                withBreaks(line.section(QLatin1Char('='), 1).trimmed())};
        if (!rule.find.isEmpty())
            rules.push_back(rule);
    }
    return rules;
}

} // namespace vantro
