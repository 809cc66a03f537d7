#include "vantro/ai/AnswerSetAside.h"

#include <array>
#include <utility>

namespace vantro {

namespace {

using Doubt = AnswerSetAside::Doubt;

QString reason(Doubt doubt)
{
    switch (doubt) {
    case Doubt::cutOff:
        return AnswerSetAside::tr("the answer is cut off. Raise the provider's token limit, or say less at a time.");
    case Doubt::empty:
        return AnswerSetAside::tr("the answer is empty.");
    case Doubt::refused:
        return AnswerSetAside::tr("the model answered you instead.");
    case Doubt::placeholder:
        return AnswerSetAside::tr("the answer has a blank to fill in, %1.");
    case Doubt::addedNumber:
    case Doubt::addedName:
        return AnswerSetAside::tr("it says \u201C%1\u201D, and you did not.");
    case Doubt::missingNumber:
    case Doubt::missingName:
        return AnswerSetAside::tr("you said \u201C%1\u201D, and it does not.");
    case Doubt::negation:
        return AnswerSetAside::tr("it may say the opposite of what you said.");
    case Doubt::otherLanguage:
        return AnswerSetAside::tr("it is in another language.");
    case Doubt::tooLong:
        return AnswerSetAside::tr("it is much longer than what you said.");
    case Doubt::tooShort:
        return AnswerSetAside::tr("it leaves out much of what you said.");
    case Doubt::otherWords:
        return AnswerSetAside::tr("it says something other than you did.");
    }
    Q_UNREACHABLE();
}

QString describe(Doubt doubt, const QString& detail)
{
    QString why = reason(doubt);
    if (!detail.isEmpty())
        why = why.arg(detail);
    return AnswerSetAside::tr("The rewriting was set aside: %1").arg(why);
}

} // namespace

AnswerSetAside::AnswerSetAside(Doubt doubt, QString answer, const QString& detail)
    : Error(describe(doubt, detail))
    , doubt_(doubt)
    , answer_(std::move(answer))
{
}

QString AnswerSetAside::name(Doubt doubt)
{
    constexpr std::array names{"cut-off",        "empty",      "refused",      "placeholder", "added-number",
                               "missing-number", "added-name", "missing-name", "negation",    "other-language",
                               "too-long",       "too-short",  "other-words"};
    return QLatin1String(names.at(static_cast<std::size_t>(doubt)));
}

} // namespace vantro
