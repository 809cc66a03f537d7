#pragma once

#include <QString>

#include <vector>

namespace vantro {

/// What is done with a word or phrase that was spoken: taken out, or written as a sign or a line break.
struct CleaningRule
{
    QString find;    ///< whole words, in any case
    QString replace; ///< empty: it is taken out

    bool operator==(const CleaningRule&) const = default;
};

/// Makes spoken words fit to be read, without a language model. Stateless; any thread.
class TextCleaner
{
public:
    /// Returns @p text with the rules applied, words that were said twice written once, a capital at the beginning of
    /// each sentence and a full stop at the end. A text of fillers alone stays as it is.
    [[nodiscard]] static QString cleaned(const QString& text, const std::vector<CleaningRule>& rules);
};

} // namespace vantro
