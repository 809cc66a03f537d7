#pragma once

#include "platform/LanguageRecognizer.h"
#include "vantro/ai/AnswerSetAside.h"

#include <QString>

namespace vantro {

/// How far a rewriting may be from what was said.
enum class Liberty {
    wording, ///< the same text, corrected
    letter,  ///< the same with a greeting and an ending
    any,     ///< whatever the user's own prompt asks for
};

/// What @p prompt, which may be the user's own, allows: only the built-in ones are known well enough to judge an answer
/// by what was said.
Liberty libertyOf(const QString& prompt);

/// Judges the answers of language models, all of which are wrong at times: thresholds and what they were measured
/// with are in docs/decisions/answer-check.md. Any thread.
class AnswerCheck
{
public:
    explicit AnswerCheck(const LanguageRecognizer& languages) : languages_(languages) {}

    /// Returns the text to deliver for @p answer, which is @p said rewritten as @p prompt tells. Throws AnswerSetAside.
    [[nodiscard]] QString checked(const QString& answer, const QString& said, const QString& prompt) const;

private:
    const LanguageRecognizer& languages_;
};

} // namespace vantro
