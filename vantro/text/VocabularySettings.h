#pragma once

#include "base/UserDefaults.h"
#include "vantro/text/TextReplacement.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace vantro {

/// The message shown when a list is full.
struct LimitNotice
{
    QString title;
    QString message;
};

/// What the user knows about a word beyond its spelling.
struct VocabularyDetails
{
    QStringList soundsLike; ///< other spellings of how it is said
    double weight = 1;      ///< the more, the sooner it is written

    static constexpr double leastWeight = 0;
    static constexpr double greatestWeight = 4;

    bool operator==(const VocabularyDetails&) const = default;
};

/// One of the user's words with what is known about it.
struct VocabularyWord
{
    QString text;
    VocabularyDetails details = {};

    bool operator==(const VocabularyWord&) const = default;
};

/// The user's words and replacements. Changes are written through, and changes by other processes are adopted. An
/// unreadable stored list counts as empty and is backed up under "KEY.unreadable" before it is overwritten. Main
/// thread.
class VocabularySettings final : public QObject
{
    Q_OBJECT
public:
    static constexpr qsizetype maxVocabularyWords = 50;
    static constexpr std::size_t maxReplacements = 100;

    explicit VocabularySettings(UserDefaults& defaults);

    /// In the user's order.
    [[nodiscard]] const QStringList& customVocabulary() const { return customVocabulary_; }
    /// In the order in which they are applied.
    [[nodiscard]] const std::vector<TextReplacement>& textReplacements() const { return textReplacements_; }

    /// Adds the trimmed word; a no-op for an empty or existing word (case-sensitive).
    void addVocabularyWord(const QString& word);
    /// The same, for a place in the list, whose end counts for any beyond it.
    void insertVocabularyWord(qsizetype index, const QString& word);
    /// Like the functions below, a no-op for an index out of range.
    void removeVocabularyWord(qsizetype index);
    /// A no-op if @p find is blank. Duplicates are allowed.
    void addReplacement(const QString& find, const QString& replace);
    void removeReplacement(std::size_t index);
    void updateReplacement(const TextReplacement& replacement, std::size_t index);
    /// The defaults for a word without any.
    [[nodiscard]] VocabularyDetails details(const QString& word) const { return details_.value(word); }
    /// Keeps them when the word is removed, for the case that it comes back.
    void setDetails(const QString& word, const VocabularyDetails& details);
    /// Every word with its details, in the user's order.
    [[nodiscard]] std::vector<VocabularyWord> vocabularyWords() const;
    /// Adds those that are not there yet, all or none, and returns how many. Throws Error when they do not fit. A word
    /// that has details already keeps them.
    qsizetype addVocabularyWords(const std::vector<VocabularyWord>& words);
    qsizetype addVocabularyWords(const QStringList& words);
    /// The same; one with an ID that is taken gets another.
    std::size_t addReplacements(std::vector<TextReplacement> replacements);
    /// Replaces the whole list, e.g. to undo a change.
    void setVocabulary(const QStringList& words);
    void setReplacements(std::vector<TextReplacement> replacements);
    /// "Reset All Vocabulary & Replacements".
    void reset();

    /// The message to show if adding @p more would exceed the limit. The adding functions do not check this.
    [[nodiscard]] std::optional<LimitNotice> vocabularyLimitNotice(qsizetype more = 1) const;
    [[nodiscard]] std::optional<LimitNotice> replacementLimitNotice(std::size_t more = 1) const;

Q_SIGNALS:
    void customVocabularyChanged();
    void textReplacementsChanged();

private:
    using Replacements = std::vector<TextReplacement>;

    void loadVocabulary();
    void loadReplacements();
    void loadDetails();
    void saveVocabulary();
    void saveReplacements();
    void changeReplacement(std::size_t index, const std::function<void(Replacements::iterator)>& edit);
    void save(const Setting<QByteArray>& setting, const QByteArray& json, bool unreadable);

    UserDefaults& defaults_;
    QStringList customVocabulary_;
    QHash<QString, VocabularyDetails> details_; ///< by word
    std::vector<TextReplacement> textReplacements_;
    bool vocabularyUnreadable_ = false;
    bool replacementsUnreadable_ = false;
};

} // namespace vantro
