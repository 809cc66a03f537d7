#pragma once

#include "vantro/text/TextReplacement.h"

#include <QString>

#include <vector>

namespace vantro {

/// Replaces whole words. Has no state; any thread.
class TextReplacer
{
public:
    /// @p text with every whole-word occurrence of @p find, in upper or lower case, replaced by @p replace as it
    /// stands.
    ///
    /// White space around @p find does not count; an empty one changes nothing. Where it begins or ends with a letter,
    /// a number or "_", it must not touch another of these; where it begins or ends with something else ("c++"), white
    /// space or the text's edge must follow. An empty @p replace deletes the word together with the blank and the comma
    /// that it leaves behind.
    [[nodiscard]] static QString applyReplacement(const QString& text, const QString& find, const QString& replace);

    /// One after the other, each on the result of the one before.
    [[nodiscard]] static QString applyReplacements(QString text, const std::vector<TextReplacement>& replacements);
};

} // namespace vantro
