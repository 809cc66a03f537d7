// What PasteDelivery tells the user of a text.
#include "platform/Wording.h"
#include "vantro/delivery/PasteChords.h"
#include "vantro/delivery/PasteDelivery.h"

namespace vantro {

QString PasteDelivery::whereItIs(bool isStored) const
{
    if (canCopy())
        return tr("The text is on the clipboard.");
    return isStored ? tr("The text is in the history.")
                    : tr("The recording is kept: the command vantro retry transcribes it again.");
}

QString PasteDelivery::explanation(Outcome outcome) const
{
    if (outcome == Outcome::Held)
        return tr("That program has not taken the text before this one yet. This text follows when it responds.");
    const QString reason = reasonOf(outcome);
    return reason.isEmpty() ? QString() : reason + QLatin1Char(' ') + whereItIs(!isLost_);
}

QString PasteDelivery::reasonOf(Outcome outcome) const
{
    switch (outcome) {
    case Outcome::Pasted:
    case Outcome::Held:
    case Outcome::Nothing:
        return {};
    case Outcome::NoTarget:
        return tr("No window was active when the dictation began.");
    case Outcome::TargetGone:
        return tr("The window you were working in has been closed.");
    case Outcome::MovedOn:
        return tr("You have moved on to another window.");
    case Outcome::FocusNotReturned:
        return tr("The window you were working in did not become active again.");
    case Outcome::UserAway:
        return tr("You were away when the text was ready.");
    case Outcome::KeyboardTaken:
        return tr("A menu or a locked screen had the keyboard to itself.");
    case Outcome::KeystrokeFailed:
        return keystrokeError_;
    }
    return {};
}

/// A clipboard manager that has taken the text over does not tell who fetches it.
QString PasteDelivery::reasonOfUnfetched(const Restore& paste, bool isFollowed) const
{
    const QString keys = wording::shownKeys(chordText(chordOf(paste.target)));
    if (!isFollowed)
        return tr("The window you were working in may not have taken the text. If it does not appear, press %1 there.")
            .arg(keys);
    if (workspace_.hasAnswered(paste.target))
        return tr("The window you were working in has no use for the text there. Click where it belongs and press %1.")
            .arg(keys);
    return tr("The window you were working in has not taken the text yet. "
              "It appears when the window responds; only if it does not, press %1 there.")
        .arg(keys);
}

QString PasteDelivery::whereIsLost(bool isStored)
{
    return isStored ? tr("That text is in the history.")
                    : tr("Its recording is kept: the command vantro retry transcribes it again.");
}

} // namespace vantro
