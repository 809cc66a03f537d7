#pragma once

#include <QString>

#include <vector>

namespace vantro {

/// A language that the models recognise.
struct SpokenLanguage
{
    QString code; ///< as the engines expect it: ISO 639, or "auto"
    QString name; ///< in that language
};

/// "auto" first, the others sorted by name.
[[nodiscard]] const std::vector<SpokenLanguage>& spokenLanguages();

} // namespace vantro
