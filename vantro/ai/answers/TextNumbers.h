#pragma once

#include "vantro/ai/answers/TextWords.h"

#include <optional>

namespace vantro {

/// The numbers of a text, in digits or in words (English, German, Spanish, French), in a form that does not depend on
/// how they are written: "three fifteen" and "3:15" are alike, and so are "4,500" and "four thousand five hundred".
class TextNumbers
{
public:
    explicit TextNumbers(const std::vector<TextWord>& words);

    /// A number of this text that @p other does not say, as it is written here; nullopt when there is none. Numbers at
    /// the places of @p taken are not asked for.
    [[nodiscard]] std::optional<QString> missingIn(const TextNumbers& other, const std::vector<bool>& taken = {}) const;

private:
    struct Number
    {
        qint64 value = 0;
        QString digits;        ///< as they are written, with leading zeros
        std::size_t place = 0; ///< of its first word
        QString shown;
        QString run; ///< the digits of it and of its neighbours, in a telephone number or a time of day
    };

    void read(const std::vector<TextWord>& words);
    void joinRuns(const std::vector<TextWord>& words, const std::vector<std::size_t>& ends);
    void allowReadings(const std::vector<TextWord>& words);
    [[nodiscard]] bool says(const Number& number) const;
    [[nodiscard]] bool saysOnTheClock(qint64 value) const;
    [[nodiscard]] bool saysPart(const Number& part) const;

    std::vector<Number> numbers_;
    std::vector<Number> parts_; ///< "quarter" and "half", as 15 and 30
    QSet<qint64> readings_;     ///< what else may be meant: "half past four", "first", "a dozen"
    bool isOfTheClock_ = false; ///< three may be fifteen
};

/// Whether a folded word is a number, or part of one.
bool isNumberWord(const QString& word);

} // namespace vantro
