#pragma once

#include "base/Error.h"

#include <QCoreApplication>

namespace vantro {

/// A language model's answer that is not believed. The text as it was said takes its place.
class AnswerSetAside : public Error
{
    Q_DECLARE_TR_FUNCTIONS(AnswerSetAside)
public:
    enum class Doubt {
        cutOff, ///< it ends where the model's tokens did
        empty,
        refused, ///< the model talks about itself, or answers what was said
        placeholder,
        addedNumber,
        missingNumber,
        addedName,
        missingName,
        negation, ///< a "not" came or went
        otherLanguage,
        tooLong,
        tooShort,
        otherWords,
    };

    /// @p answer: all that the model wrote. @p detail: the number or name that is meant.
    AnswerSetAside(Doubt doubt, QString answer, const QString& detail = {});

    [[nodiscard]] Doubt doubt() const { return doubt_; }
    [[nodiscard]] const QString& answer() const { return answer_; }

    /// A doubt's name in JSON and in test data, such as "added-number".
    [[nodiscard]] static QString name(Doubt doubt);

private:
    Doubt doubt_;
    QString answer_;
};

} // namespace vantro
