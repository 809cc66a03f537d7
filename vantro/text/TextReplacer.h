#pragma once

#include "vantro/text/TextReplacement.h"

#include <QString>

#include <vector>

namespace vantro {

/// Replaces whole words. Stateless; any thread.
class TextReplacer
{
public:
    /// Returns @p text with every whole-word, case-insensitive occurrence of @p find replaced by @p replace.
    ///
    /// Surrounding white space of @p find is ignored; an empty one changes nothing. An edge that is a letter, a digit
    /// or "_" must not be adjacent to another of these; any other edge ("c++") must be followed by white space or the
    /// end of the text. An empty @p replace deletes the word along with the leftover space and comma.
    [[nodiscard]] static QString applyReplacement(const QString& text, const QString& find, const QString& replace);

    /// Applies them in order, each to the result of the previous one.
    [[nodiscard]] static QString applyReplacements(QString text, const std::vector<TextReplacement>& replacements);
};

} // namespace vantro
