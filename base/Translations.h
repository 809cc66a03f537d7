#pragma once

#include <QTranslator>

namespace vantro {

/// Translates the texts for people into the session's language; English where there is no translation.
class Translations final : public QTranslator
{
    Q_OBJECT
public:
    Translations();

    /// Strips the namespace from @p context: the translations are listed under plain class names.
    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char* disambiguation,
                                    int n) const override;

    /// While one exists, all texts are in English, on every thread: for what a program is to read.
    class Suspension
    {
    public:
        /// @p isNeeded: whether to do anything.
        explicit Suspension(bool isNeeded);
        ~Suspension();
        Suspension(const Suspension&) = delete;
        Suspension& operator=(const Suspension&) = delete;

    private:
        bool isNeeded_;
    };
};

} // namespace vantro
