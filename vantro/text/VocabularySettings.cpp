#include "vantro/text/VocabularySettings.h"

#include "base/Settings.h"
#include "vantro/text/VocabularyJson.h"

#include <QSet>

#include <utility>

namespace vantro {

VocabularySettings::VocabularySettings(UserDefaults& defaults) : defaults_(defaults)
{
    loadVocabulary();
    loadReplacements();
    connect(&defaults, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == setting::customVocabulary.key) {
            loadVocabulary();
            Q_EMIT customVocabularyChanged();
        } else if (key == setting::textReplacements.key) {
            loadReplacements();
            Q_EMIT textReplacementsChanged();
        }
    });
}

void VocabularySettings::loadVocabulary()
{
    customVocabulary_.clear();
    const auto data = defaults_.stored(setting::customVocabulary);
    const auto words = data ? vocabularyFromJson(*data) : std::nullopt;
    vocabularyUnreadable_ = defaults_.contains(setting::customVocabulary.key) && !words;
    QSet<QString> taken;
    for (const QString& stored : words.value_or(QStringList())) {
        const QString word = stored.trimmed();
        if (word.isEmpty() || taken.contains(word))
            continue;
        taken.insert(word);
        customVocabulary_ << word;
    }
}

void VocabularySettings::loadReplacements()
{
    const auto data = defaults_.stored(setting::textReplacements);
    auto replacements = data ? replacementsFromJson(*data) : std::nullopt;
    replacementsUnreadable_ = defaults_.contains(setting::textReplacements.key) && !replacements;
    textReplacements_ = std::move(replacements).value_or(std::vector<TextReplacement>());
}

void VocabularySettings::saveVocabulary()
{
    save(setting::customVocabulary, toJson(customVocabulary_), vocabularyUnreadable_);
}

void VocabularySettings::saveReplacements()
{
    save(setting::textReplacements, toJson(textReplacements_), replacementsUnreadable_);
}

void VocabularySettings::save(const Setting<QByteArray>& setting, const QByteArray& json, bool unreadable)
{
    if (unreadable)
        defaults_.keepUnreadable(setting.key);
    defaults_.set(setting, json);
}

void VocabularySettings::addVocabularyWord(const QString& word)
{
    const QString trimmed = word.trimmed();
    if (trimmed.isEmpty() || customVocabulary_.contains(trimmed))
        return;
    customVocabulary_ << trimmed;
    saveVocabulary();
}

void VocabularySettings::removeVocabularyWord(qsizetype index)
{
    if (index < 0 || index >= customVocabulary_.size())
        return;
    customVocabulary_.removeAt(index);
    saveVocabulary();
}

void VocabularySettings::addReplacement(const QString& find, const QString& replace)
{
    if (find.trimmed().isEmpty())
        return;
    textReplacements_.push_back({QUuid::createUuid(), find, replace});
    saveReplacements();
}

void VocabularySettings::removeReplacement(std::size_t index)
{
    if (index >= textReplacements_.size())
        return;
    textReplacements_.erase(textReplacements_.begin() + static_cast<std::ptrdiff_t>(index));
    saveReplacements();
}

void VocabularySettings::updateReplacement(const TextReplacement& replacement, std::size_t index)
{
    if (index >= textReplacements_.size())
        return;
    textReplacements_[index] = replacement;
    saveReplacements();
}

void VocabularySettings::setVocabulary(const QStringList& words)
{
    customVocabulary_ = words;
    saveVocabulary();
}

void VocabularySettings::setReplacements(std::vector<TextReplacement> replacements)
{
    textReplacements_ = std::move(replacements);
    saveReplacements();
}

void VocabularySettings::reset()
{
    setVocabulary({});
    setReplacements({});
}

std::optional<LimitNotice> VocabularySettings::vocabularyLimitNotice(qsizetype more) const
{
    if (customVocabulary_.size() + more <= maxVocabularyWords)
        return std::nullopt;
    return LimitNotice{
        tr("Vocabulary Limit Reached"),
        tr("You have reached the maximum limit of %1 custom vocabulary words. Please remove some words to "
           "add new ones.")
            .arg(maxVocabularyWords)};
}

std::optional<LimitNotice> VocabularySettings::replacementLimitNotice(std::size_t more) const
{
    if (textReplacements_.size() + more <= maxReplacements)
        return std::nullopt;
    return LimitNotice{tr("Replacement Limit Reached"),
                       tr("You have reached the maximum limit of %1 text replacements. Please remove some replacements "
                          "to add new ones.")
                           .arg(maxReplacements)};
}

} // namespace vantro
