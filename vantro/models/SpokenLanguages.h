#pragma once

#include "base/UserDefaults.h"

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

/// Whether there is one with that code, or it is "auto".
[[nodiscard]] bool isSpokenLanguage(const QString& code);

/// The language set, or while it is detected the desktop's, which its user is likely to speak.
[[nodiscard]] QString spokenLanguage(const UserDefaults& defaults);

} // namespace vantro
