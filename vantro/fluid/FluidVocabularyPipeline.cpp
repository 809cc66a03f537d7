#include "vantro/fluid/FluidVocabularyPipeline.h"

#include <utility>

namespace vantro {

namespace {

/// Without accents and the like.
QString baseLetters(const QString& text)
{
    QString letters;
    for (const QChar character : text.normalized(QString::NormalizationForm_KD)) {
        if (!character.isMark())
            letters += character;
    }
    return letters.replace(QStringLiteral("ß"), QStringLiteral("ss"));
}

} // namespace

FluidVocabularyError FluidVocabularyError::noTokenizableTerms()
{
    return FluidVocabularyError(QStringLiteral("None of the vocabulary terms could be tokenized for boosting."));
}

QString FluidVocabulary::key() const
{
    constexpr QChar betweenTerms(u'\0');
    constexpr QChar betweenDetails(u'\x1f');
    QStringList texts;
    for (const asr::CustomVocabularyTerm& term : terms) {
        QString text = QString::fromStdString(term.text);
        for (const std::string& alias : term.aliases)
            text += betweenDetails + QString::fromStdString(alias);
        if (term.weight)
            text += betweenDetails + QString::number(static_cast<double>(*term.weight));
        texts << text;
    }
    return texts.join(betweenTerms);
}

asr::CustomVocabularyTerm vocabularyTerm(const QString& text, const QStringList& soundsLike, double weight)
{
    asr::CustomVocabularyTerm term;
    // Line breaks and tabs of an imported list have no place in a dictation.
    const QString written = text.simplified();
    term.text = written.toStdString();
    term.textLowercased = written.toLower().toStdString();
    for (const QString& alias : soundsLike)
        term.aliases.push_back(alias.toStdString());
    if (const QString base = baseLetters(written); base != written)
        term.aliases.push_back(base.toStdString());
    if (weight != 1)
        term.weight = static_cast<float>(weight);
    return term;
}

std::shared_ptr<const FluidVocabularyPipeline>
FluidVocabularyPipeline::make(const std::vector<asr::CustomVocabularyTerm>& terms,
                              std::shared_ptr<const asr::CtcModel> model)
{
    auto pipeline = std::make_shared<FluidVocabularyPipeline>();
    pipeline->vocabulary = asr::tokenised(terms, model->tokenizer());
    if (pipeline->vocabulary.terms.empty())
        throw FluidVocabularyError::noTokenizableTerms();
    pipeline->rescorer = std::make_shared<asr::VocabularyRescorer>(model, pipeline->vocabulary);
    for (const asr::CustomVocabularyTerm& term : terms) {
        if (!pipeline->rescorer->looksFor(term.text))
            pipeline->notLookedFor << QString::fromStdString(term.text);
    }
    pipeline->spotter = std::make_shared<asr::CtcKeywordSpotter>(std::move(model));
    return pipeline;
}

} // namespace vantro
