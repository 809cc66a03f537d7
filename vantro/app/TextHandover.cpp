#include "vantro/app/TextHandover.h"

#include "base/PlainText.h"

#include <utility>

namespace vantro {

namespace {

/// In characters.
constexpr qsizetype excerptLength = 60;

/// So that the user knows which text is meant.
QString withFirstWords(const QString& reason, const QString& text)
{
    const QString words = TextHandover::tr("\u201C%1\u201D").arg(firstWords(text, excerptLength));
    return reason.isEmpty() ? words : reason + QLatin1Char('\n') + words;
}

QString joined(const QString& one, const QString& other)
{
    return one.isEmpty() || other.isEmpty() ? one + other : one + QLatin1Char('\n') + other;
}

} // namespace

QCoro::Task<PasteDelivery::Outcome> TextHandover::paste(QString text, Owed owed, bool isStored,
                                                        std::optional<QRect> anchor)
{
    PasteDelivery::Keeping keeping{[recording = owed.recording] { recording->discard(); }, {}};
    if (!isStored)
        keeping.lost = [&recovery = recovery_, owed] {
            recovery.keep(owed);
        };
    const auto delivery = delivery_.deliver(text, std::move(keeping));
    const auto outcome = co_await delivery;
    const QString reason = delivery_.explanation(outcome);
    const bool isHeld = outcome == PasteDelivery::Outcome::Held;
    if (!reason.isEmpty())
        shell_.showPasteHUD(anchor, isHeld ? nullptr : pasteKeys(), withFirstWords(joined(remark_, reason), text));
    else if (outcome == PasteDelivery::Outcome::Pasted && !remark_.isEmpty())
        shell_.showPasteHUD(anchor, {}, joined(remark_, tr("Your words are there as you said them.")));
    co_return outcome;
}

void TextHandover::copy(const QString& text, bool isStored, bool isFromKept, std::optional<QRect> anchor)
{
    delivery_.copy(text);
    const QString reason = !delivery_.canCopy() ? delivery_.whereItIs(isStored)
                           : isFromKept         ? tr("The text of your recording is on the clipboard.")
                                                : QString();
    shell_.showPasteHUD(anchor, pasteKeys(), withFirstWords(joined(remark_, reason), text));
}

std::function<QString()> TextHandover::pasteKeys() const
{
    if (!delivery_.canCopy())
        return {};
    return [&delivery = delivery_] {
        return delivery.pasteKeys();
    };
}

} // namespace vantro
