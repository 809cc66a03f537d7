#pragma once

#include <QString>

#include <vector>

namespace vantro {

/// A language that speech can be in.
struct SpokenLanguage
{
    QString code; ///< as the engines know it: ISO 639, or "auto"
    QString name; ///< in the language itself
};

/// "auto" first, then by name.
[[nodiscard]] const std::vector<SpokenLanguage>& spokenLanguages();

} // namespace vantro
