#pragma once

#include "base/UserDefaults.h"
#include "vantro/text/TextReplacement.h"

#include <QObject>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace vantro {

/// What the limits of the lists are told with.
struct LimitNotice
{
    QString title;
    QString message;
};

/// The user's words and replacements. Every change is written through; what another process changes is read anew.
/// Main thread.
///
/// A stored list that cannot be read counts as empty, and is put aside under its key and ".unreadable" before a change
/// overwrites it.
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

    /// Without the white space around it; nothing for an empty word or one that is in the list, upper and lower case
    /// being different.
    void addVocabularyWord(const QString& word);
    /// Like the following ones nothing for an index beyond the list.
    void removeVocabularyWord(qsizetype index);
    /// Nothing when @p find is empty or white space. The same text may be there twice.
    void addReplacement(const QString& find, const QString& replace);
    void removeReplacement(std::size_t index);
    void updateReplacement(const TextReplacement& replacement, std::size_t index);
    /// All at once, as an import brings them.
    void setVocabulary(const QStringList& words);
    void setReplacements(std::vector<TextReplacement> replacements);
    /// "Reset All Vocabulary & Replacements".
    void reset();

    /// What to tell instead of adding @p more to a list that would grow beyond its limit. The adding functions do not
    /// ask.
    [[nodiscard]] std::optional<LimitNotice> vocabularyLimitNotice(qsizetype more = 1) const;
    [[nodiscard]] std::optional<LimitNotice> replacementLimitNotice(std::size_t more = 1) const;

Q_SIGNALS:
    void customVocabularyChanged();
    void textReplacementsChanged();

private:
    void loadVocabulary();
    void loadReplacements();
    void saveVocabulary();
    void saveReplacements();
    void save(const Setting<QByteArray>& setting, const QByteArray& json, bool unreadable);

    UserDefaults& defaults_;
    QStringList customVocabulary_;
    std::vector<TextReplacement> textReplacements_;
    bool vocabularyUnreadable_ = false;
    bool replacementsUnreadable_ = false;
};

} // namespace vantro
