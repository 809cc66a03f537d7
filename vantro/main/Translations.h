#pragma once

#include <QTranslator>

namespace vantro {

/// The texts of the windows in the language of the user's session; English where there is no translation.
class Translations final : public QTranslator
{
    Q_OBJECT
public:
    Translations();

    /// Texts are filed under plain class names, whatever namespace the class lives in.
    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char* disambiguation,
                                    int n) const override;
};

} // namespace vantro
