#pragma once

#include <QTranslator>

namespace vantro {

/// Translates the windows' texts into the session's language; English where there is no translation.
class Translations final : public QTranslator
{
    Q_OBJECT
public:
    Translations();

    /// Strips the namespace from @p context: the translations are listed under plain class names.
    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char* disambiguation,
                                    int n) const override;
};

} // namespace vantro
