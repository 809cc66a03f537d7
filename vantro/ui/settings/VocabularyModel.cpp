#include "vantro/ui/settings/VocabularyModel.h"

#include <QPointer>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace vantro {

namespace {

/// The weights that the page offers.
constexpr std::array<double, 3> weights = {0.5, 1, 2};

} // namespace

VocabularyModel::VocabularyModel(Parts parts)
    : parts_(std::move(parts))
    , wordsFile_(
          {tr("Words"), parts_.chooseToRead, parts_.chooseToWrite,
           [this](const QString& path, ListFormat format) { return importWords(path, format, parts_.vocabulary); },
           [this](ListFormat format) {
               return write(parts_.vocabulary.vocabularyWords(), format);
           }})
    , replacementsFile_({tr("Replacements"), parts_.chooseToRead, parts_.chooseToWrite,
                         [this](const QString& path, ListFormat format) {
                             return importReplacements(path, format, parts_.vocabulary);
                         },
                         [this](ListFormat format) {
                             return write(parts_.vocabulary.textReplacements(), format);
                         }})
    , boosting_(parts_.boosting())
{
    connect(&parts_.vocabulary, &VocabularySettings::customVocabularyChanged, this, &VocabularyModel::showWords);
    connect(&parts_.vocabulary, &VocabularySettings::textReplacementsChanged, this, &VocabularyModel::showReplacements);
    showWords();
    showReplacements();
}

void VocabularyModel::showWords()
{
    std::vector<QVariantMap> rows;
    for (int row = 0; row < words().size(); ++row)
        rows.push_back({{QStringLiteral("word"), words().at(row)},
                        {QStringLiteral("soundsLike"), soundsLike(row)},
                        {QStringLiteral("readiness"), readiness(row)}});
    wordRows_.show(std::move(rows));
    Q_EMIT wordsChanged();
}

void VocabularyModel::showReplacements()
{
    std::vector<QVariantMap> rows;
    for (const TextReplacement& replacement : parts_.vocabulary.textReplacements())
        rows.push_back({{QStringLiteral("identity"), replacement.id},
                        {QStringLiteral("find"), replacement.find},
                        {QStringLiteral("replace"), replacement.replace}});
    replacementRows_.show(std::move(rows));
    Q_EMIT replacementsChanged();
}

void VocabularyModel::refreshBoosting()
{
    boosting_ = parts_.boosting();
    Q_EMIT boostingChanged();
}

QString VocabularyModel::boostingText() const
{
    switch (boosting_.state) {
    case Boosting::State::prompt:
        return tr("Your words are given to the whisper model as a hint before it listens.");
    case Boosting::State::ready:
        return tr("Ready: Parakeet dictations are searched for your words.");
    case Boosting::State::missing:
        return tr("Parakeet models need a second model that looks for your words (%1).").arg(boosting_.size);
    case Boosting::State::unpublished:
        return tr("Parakeet models need a second model that looks for your words. No model host has it yet.");
    case Boosting::State::damaged:
        return tr("The model that looks for your words is damaged or of another kind.");
    case Boosting::State::downloading:
        return tr("The model that looks for your words is being downloaded.");
    }
    return {};
}

QString VocabularyModel::boostingHint() const
{
    switch (boosting_.state) {
    case Boosting::State::ready:
        return tr("Costs about 0.2 GB of memory and a third more computing, mostly while you speak. English words are "
                  "found best.");
    case Boosting::State::unpublished:
        return tr("Make it with convert-ctc from NVIDIA's published model, and put it there: %1").arg(boosting_.file);
    case Boosting::State::damaged:
        return tr("Replace or delete this file: %1").arg(boosting_.file);
    default:
        return {};
    }
}

QString VocabularyModel::boostingProblem() const
{
    return boosting_.problem.isEmpty() || words().isEmpty()
               ? QString()
               : tr("The latest dictation was not searched for your words: %1").arg(boosting_.problem);
}

QString VocabularyModel::soundsLike(int row) const
{
    return parts_.vocabulary.details(words().value(row)).soundsLike.join(QStringLiteral(", "));
}

int VocabularyModel::readiness(int row) const
{
    const double weight = parts_.vocabulary.details(words().value(row)).weight;
    const auto isNearer = [weight](double a, double b) {
        return std::abs(a - weight) < std::abs(b - weight);
    };
    return static_cast<int>(std::ranges::min_element(weights, isNearer) - weights.begin());
}

void VocabularyModel::refineWord(int row, const QString& soundsLike, int readiness)
{
    if (row < 0 || row >= words().size() || readiness < 0 || readiness >= std::ssize(weights))
        return;
    VocabularyDetails details = parts_.vocabulary.details(words().at(row));
    // What came from the command line, with a comma in a spelling or a finer weight, stays unless something else is
    // given.
    if (soundsLike != this->soundsLike(row)) {
        details.soundsLike.clear();
        for (const QString& spelling : soundsLike.split(QLatin1Char(','))) {
            if (!spelling.trimmed().isEmpty())
                details.soundsLike << spelling.trimmed();
        }
    }
    if (readiness != this->readiness(row))
        details.weight = weights.at(static_cast<std::size_t>(readiness));
    parts_.vocabulary.setDetails(words().at(row), details);
}

QVariantList VocabularyModel::replacements() const
{
    QVariantList list;
    for (const TextReplacement& replacement : parts_.vocabulary.textReplacements())
        list.append(
            QVariantMap{{QStringLiteral("find"), replacement.find}, {QStringLiteral("replace"), replacement.replace}});
    return list;
}

QString VocabularyModel::wordsLimit() const
{
    return parts_.vocabulary.vocabularyLimitNotice()
               ? tr("Maximum limit reached (%1 words)").arg(VocabularySettings::maxVocabularyWords)
               : QString();
}

QString VocabularyModel::replacementsLimit() const
{
    return parts_.vocabulary.replacementLimitNotice()
               ? tr("Maximum limit reached (%1 replacements)").arg(VocabularySettings::maxReplacements)
               : QString();
}

bool VocabularyModel::addWord(const QString& word)
{
    if (const auto notice = parts_.vocabulary.vocabularyLimitNotice()) {
        parts_.showNotice(*notice);
        return false;
    }
    parts_.vocabulary.addVocabularyWord(word);
    return true;
}

void VocabularyModel::removeWord(int row)
{
    if (row < 0 || row >= words().size())
        return;
    const QString word = words().at(row);
    parts_.vocabulary.removeVocabularyWord(row);
    offerUndo(word, [this, row, word] {
        if (const auto notice = parts_.vocabulary.vocabularyLimitNotice(); notice && !words().contains(word))
            parts_.showNotice(*notice);
        else
            parts_.vocabulary.insertVocabularyWord(row, word);
    });
}

bool VocabularyModel::addReplacement(const QString& find, const QString& replace)
{
    if (const auto notice = parts_.vocabulary.replacementLimitNotice()) {
        parts_.showNotice(*notice);
        return false;
    }
    parts_.vocabulary.addReplacement(find, replace);
    return true;
}

void VocabularyModel::updateReplacement(int row, const QString& find, const QString& replace)
{
    const auto& present = parts_.vocabulary.textReplacements();
    const auto index = static_cast<std::size_t>(row);
    // A replacement with nothing to find would never have any effect.
    if (row < 0 || index >= present.size() || find.trimmed().isEmpty())
        return;
    TextReplacement replacement = present[index];
    replacement.find = find;
    replacement.replace = replace;
    parts_.vocabulary.updateReplacement(replacement, index);
}

void VocabularyModel::removeReplacement(int row)
{
    const auto& present = parts_.vocabulary.textReplacements();
    const auto index = static_cast<std::size_t>(row);
    if (row < 0 || index >= present.size())
        return;
    const TextReplacement replacement = present[index];
    parts_.vocabulary.removeReplacement(index);
    offerUndo(replacement.find, [this, index, replacement] {
        std::vector<TextReplacement> list = parts_.vocabulary.textReplacements();
        list.insert(list.begin() + static_cast<std::ptrdiff_t>(std::min(index, list.size())), replacement);
        parts_.vocabulary.setReplacements(std::move(list));
    });
}

void VocabularyModel::undo()
{
    if (const auto undo = std::exchange(undo_, nullptr))
        undo();
    removed_.clear();
    Q_EMIT removedChanged();
}

void VocabularyModel::reset()
{
    parts_.confirmReset([self = QPointer(this)] {
        if (!self)
            return;
        self->parts_.vocabulary.reset();
        self->offerUndo({}, nullptr);
    });
}

void VocabularyModel::offerUndo(const QString& text, std::function<void()> undo)
{
    removed_ = text;
    undo_ = std::move(undo);
    Q_EMIT removedChanged();
}

} // namespace vantro
