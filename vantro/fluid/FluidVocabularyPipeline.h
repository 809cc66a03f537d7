#pragma once

#include "asr/CtcKeywordSpotter.h"
#include "asr/VocabularyRescorer.h"
#include "base/Error.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace vantro {

class FluidVocabularyError : public Error
{
public:
    static FluidVocabularyError noTokenizableTerms();

private:
    using Error::Error;
};

/// The user's words and the model that spots them.
struct FluidVocabulary
{
    std::vector<asr::CustomVocabularyTerm> terms;
    QString modelFile; ///< empty if there is none

    /// Equal for equal terms in the same order.
    [[nodiscard]] QString key() const;
};

/// A term for @p text. If it has accents, which a model may not know, its form without them is added as an alias.
asr::CustomVocabularyTerm vocabularyTerm(const QString& text, const QStringList& soundsLike = {}, double weight = 1);

/// Everything that boosts one list of terms. Immutable; any thread.
struct FluidVocabularyPipeline
{
    std::shared_ptr<const asr::CtcKeywordSpotter> spotter;
    std::shared_ptr<const asr::VocabularyRescorer> rescorer;
    asr::CustomVocabularyContext vocabulary;
    QStringList notLookedFor; ///< terms that are too short or too long, or of which the model knows no letter

    /// Throws FluidVocabularyError.
    static std::shared_ptr<const FluidVocabularyPipeline> make(const std::vector<asr::CustomVocabularyTerm>& terms,
                                                               std::shared_ptr<const asr::CtcModel> model);
};

/// What became of building one.
struct FluidVocabularyBuild
{
    std::shared_ptr<const FluidVocabularyPipeline> pipeline; ///< null after a failure
    QString problem;
};

} // namespace vantro
