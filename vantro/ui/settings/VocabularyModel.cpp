#include "vantro/ui/settings/VocabularyModel.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace vantro {

VocabularyModel::VocabularyModel(Parts parts) : parts_(std::move(parts))
{
    connect(&parts_.vocabulary, &VocabularySettings::customVocabularyChanged, this, &VocabularyModel::wordsChanged);
    connect(&parts_.vocabulary, &VocabularySettings::textReplacementsChanged, this,
            &VocabularyModel::replacementsChanged);
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
        QStringList present = words();
        present.insert(std::min<qsizetype>(row, present.size()), word);
        parts_.vocabulary.setVocabulary(present);
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
