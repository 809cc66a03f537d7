#include "vantro/text/VocabularySettings.h"

#include "base/Error.h"
#include "base/Settings.h"
#include "vantro/text/VocabularyJson.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

void requireRoom(qsizetype present, qsizetype more, qsizetype most)
{
    if (present + more > most)
        throw Error(VocabularySettings::tr("the list has no room for %1 more: it takes %2 and has %3")
                        .arg(more)
                        .arg(most)
                        .arg(present));
}

} // namespace

VocabularySettings::VocabularySettings(UserDefaults& defaults) : defaults_(defaults)
{
    loadVocabulary();
    loadReplacements();
    loadDetails();
    connect(&defaults, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == setting::customVocabulary.key) {
            loadVocabulary();
            Q_EMIT customVocabularyChanged();
        } else if (key == setting::textReplacements.key) {
            loadReplacements();
            Q_EMIT textReplacementsChanged();
        } else if (key == setting::vocabularyDetails.key) {
            loadDetails();
            Q_EMIT customVocabularyChanged();
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

void VocabularySettings::loadDetails()
{
    details_ = detailsFromJson(defaults_.get(setting::vocabularyDetails));
}

void VocabularySettings::setDetails(const QString& word, const VocabularyDetails& details)
{
    defaults_.change([&] {
        if (details == VocabularyDetails())
            details_.remove(word);
        else
            details_.insert(word, details);
        defaults_.set(setting::vocabularyDetails, toJson(details_));
    });
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
    insertVocabularyWord(maxVocabularyWords, word);
}

void VocabularySettings::insertVocabularyWord(qsizetype index, const QString& word)
{
    const QString trimmed = word.trimmed();
    defaults_.change([&] {
        if (trimmed.isEmpty() || customVocabulary_.contains(trimmed))
            return;
        customVocabulary_.insert(std::min(index, customVocabulary_.size()), trimmed);
        saveVocabulary();
    });
}

void VocabularySettings::removeVocabularyWord(qsizetype index)
{
    if (index < 0 || index >= customVocabulary_.size())
        return;
    defaults_.change([this, word = customVocabulary_[index]] {
        if (customVocabulary_.removeOne(word))
            saveVocabulary();
    });
}

void VocabularySettings::addReplacement(const QString& find, const QString& replace)
{
    if (find.trimmed().isEmpty())
        return;
    defaults_.change([&] {
        textReplacements_.push_back({QUuid::createUuid(), find, replace});
        saveReplacements();
    });
}

/// The entry that is seen at @p index may stand somewhere else by now, or nowhere.
void VocabularySettings::changeReplacement(std::size_t index, const std::function<void(Replacements::iterator)>& edit)
{
    if (index >= textReplacements_.size())
        return;
    defaults_.change([&, id = textReplacements_[index].id] {
        const auto isMeant = [&id](const TextReplacement& entry) {
            return entry.id == id;
        };
        auto entry = textReplacements_.begin() + static_cast<std::ptrdiff_t>(std::min(index, textReplacements_.size()));
        if (entry == textReplacements_.end() || !isMeant(*entry))
            entry = std::ranges::find_if(textReplacements_, isMeant);
        if (entry == textReplacements_.end())
            return;
        edit(entry);
        saveReplacements();
    });
}

void VocabularySettings::removeReplacement(std::size_t index)
{
    changeReplacement(index, [this](auto entry) { textReplacements_.erase(entry); });
}

void VocabularySettings::updateReplacement(const TextReplacement& replacement, std::size_t index)
{
    changeReplacement(index, [&replacement](auto entry) { *entry = replacement; });
}

std::vector<VocabularyWord> VocabularySettings::vocabularyWords() const
{
    std::vector<VocabularyWord> words;
    for (const QString& word : customVocabulary_)
        words.push_back({word, details(word)});
    return words;
}

qsizetype VocabularySettings::addVocabularyWords(const std::vector<VocabularyWord>& words)
{
    qsizetype added = 0;
    defaults_.change([&] {
        QStringList all = customVocabulary_;
        for (const VocabularyWord& word : words) {
            if (!all.contains(word.text.trimmed()))
                all << word.text.trimmed();
        }
        added = all.size() - customVocabulary_.size();
        requireRoom(customVocabulary_.size(), added, maxVocabularyWords);
        for (const VocabularyWord& word : words) {
            const QString text = word.text.trimmed();
            if (word.details != VocabularyDetails() && details(text) == VocabularyDetails())
                setDetails(text, word.details);
        }
        if (added > 0)
            setVocabulary(all);
    });
    return added;
}

qsizetype VocabularySettings::addVocabularyWords(const QStringList& words)
{
    std::vector<VocabularyWord> plain;
    for (const QString& word : words)
        plain.push_back({word});
    return addVocabularyWords(plain);
}

std::size_t VocabularySettings::addReplacements(std::vector<TextReplacement> replacements)
{
    std::size_t added = 0;
    defaults_.change([&] {
        Replacements all = textReplacements_;
        for (TextReplacement& entry : replacements) {
            const auto isSame = [&entry](const TextReplacement& other) {
                return other.find == entry.find && other.replace == entry.replace;
            };
            if (std::ranges::any_of(all, isSame))
                continue;
            if (std::ranges::find(all, entry.id, &TextReplacement::id) != all.end())
                entry.id = QUuid::createUuid();
            all.push_back(std::move(entry));
        }
        added = all.size() - textReplacements_.size();
        requireRoom(std::ssize(textReplacements_), static_cast<qsizetype>(added), maxReplacements);
        if (added > 0)
            setReplacements(std::move(all));
    });
    return added;
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
    details_.clear();
    defaults_.set(setting::vocabularyDetails, QByteArray());
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
