#include "vantro/app/Recovery.h"

#include "base/Logger.h"
#include "vantro/app/Dictation.h"
#include "vantro/app/Shell.h"

#include <QLocale>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantro {

namespace {

const QString blankLine = QStringLiteral("\n\n");

} // namespace

Recovery::Recovery(RecordingSpool& spool, Clock& clock, const SessionState& session, Shell& shell)
    : spool_(spool)
    , clock_(clock)
    , session_(session)
    , shell_(shell)
{
    connect(&session, &SessionState::aboutToBeAway, this, &Recovery::stopCountingDown);
    connect(&session, &SessionState::returned, this, &Recovery::countDown);
}

void Recovery::offerFailed(Owed owed, const QString& notice)
{
    std::vector<Owed> one;
    one.push_back(std::move(owed));
    offer(std::move(one), tr("Transcription Error"),
          notice + blankLine + tr("Your recording is kept. Transcribe it now?"));
}

/// While the alert is open, its recordings may be dealt with in another way, which closes it.
void Recovery::offer(std::vector<Owed> owed, const QString& title, const QString& text)
{
    const auto offer = std::make_shared<QObject>();
    std::vector<std::weak_ptr<Recording>> recordings;
    for (Owed& one : owed) {
        recordings.push_back(one.recording);
        one.offer = offer;
        keep(std::move(one));
    }
    shell_.offerTranscription(title, text, offer.get(), [this, recordings](bool isWanted) {
        auto owed = take(recordings);
        if (isWanted)
            start(std::move(owed));
        else
            std::ranges::for_each(owed, [](const Owed& one) { one.recording->discard(); });
    });
}

void Recovery::offerCancelled(Owed owed, std::optional<QRect> anchor)
{
    forgetCancelled();
    owed.recording->setHidden(true);
    owed.isCancelled = true;
    cancelled_ = std::move(owed);
    undoLeft_ = undoTime;
    launcherFrame_ = anchor;
    showOffer(anchor);
    countDown();
}

void Recovery::showOffer(std::optional<QRect> anchor)
{
    isCovered_ = false;
    shell_.showUndoOffer(
        anchor, [this] { takeCancelBack(); }, [this](bool isCovered) { setCovered(isCovered); });
}

void Recovery::makeRoom()
{
    if (cancelled_ && launcherFrame_)
        showOffer(launcherFrame_->translated(0, -launcherFrame_->height()));
    countDown();
}

/// By another message, for as long as that is read.
void Recovery::setCovered(bool isCovered)
{
    isCovered_ = isCovered;
    if (isCovered)
        stopCountingDown();
    else
        countDown();
}

/// Nobody sees the offer behind a locked screen or another message.
void Recovery::countDown()
{
    if (!cancelled_ || undoTimer_ || isCovered_ || session_.isAway())
        return;
    undoTimer_ = std::make_unique<QObject>();
    undoEnd_ = clock_.now() + undoLeft_;
    clock_.callAfter(undoLeft_, undoTimer_.get(), [this] { forgetCancelled(); });
}

void Recovery::stopCountingDown()
{
    if (!std::exchange(undoTimer_, nullptr))
        return;
    undoLeft_ =
        std::max(std::chrono::milliseconds(0), std::chrono::ceil<std::chrono::milliseconds>(undoEnd_ - clock_.now()));
}

bool Recovery::offersForAnother(const PasteDelivery::Target& target) const
{
    return cancelled_ && cancelled_->target && cancelled_->target->window != target.window;
}

bool Recovery::takeCancelBack()
{
    if (!cancelled_)
        return false;
    undoTimer_.reset();
    cancelled_->recording->setHidden(false);
    std::vector<Owed> owed;
    owed.push_back(std::move(*cancelled_));
    cancelled_.reset();
    shell_.withdrawHUD();
    start(std::move(owed));
    return true;
}

void Recovery::forgetCancelled()
{
    if (!cancelled_)
        return;
    cancelled_->recording->discard();
    cancelled_.reset();
    shell_.withdrawHUD();
    undoTimer_.reset();
}

QCoro::Task<bool> Recovery::offerLeft()
{
    std::vector<std::shared_ptr<Recording>> left = co_await spool_.takeLeft();
    if (left.empty())
        co_return false;
    std::vector<Owed> owed;
    owed.reserve(left.size());
    for (const auto& recording : left)
        owed.push_back({recording});
    const QString time = QLocale().toString(left.front()->header().startedAt.toLocalTime(), QLocale::ShortFormat);
    const QString what = left.size() == 1
                             ? tr("vantro ended before your recording of %1 became text. Transcribe it?").arg(time)
                             : tr("vantro ended before %1 recordings became text. Transcribe them?").arg(left.size());
    offer(std::move(owed), tr("Recording Kept"),
          what + QLatin1Char(' ') + tr("The text goes to the clipboard and into the history."));
    co_return true;
}

QCoro::Task<QString> Recovery::transcribeAll()
{
    std::vector<Owed> owed = co_await takeAll();
    for (Owed& one : owed)
        one.target.reset();
    co_return co_await transcribe(std::move(owed));
}

QCoro::Task<> Recovery::discardAll()
{
    const std::vector<Owed> owed = co_await takeAll();
    for (const Owed& one : owed)
        one.recording->discard();
}

QCoro::Task<std::vector<Owed>> Recovery::takeAll()
{
    const std::vector<std::shared_ptr<Recording>> left = co_await spool_.takeLeft();
    std::vector<Owed> owed = std::exchange(kept_, {});
    for (const auto& recording : left)
        owed.push_back({recording});
    if (cancelled_) {
        cancelled_->recording->setHidden(false);
        owed.push_back(*cancelled_);
        cancelled_.reset();
        undoTimer_.reset();
        shell_.withdrawHUD();
    }
    if (owed.empty())
        throw NothingKept(tr("there is no recording to transcribe"));
    co_return owed;
}

/// Those of @p wanted that have not been dealt with in another way.
std::vector<Owed> Recovery::take(const std::vector<std::weak_ptr<Recording>>& wanted)
{
    const auto isWanted = [&wanted](const Owed& owed) {
        return std::ranges::any_of(wanted, [&owed](const auto& one) { return one.lock() == owed.recording; });
    };
    const auto split =
        std::stable_partition(kept_.begin(), kept_.end(), [&](const Owed& one) { return !isWanted(one); });
    std::vector<Owed> taken(std::make_move_iterator(split), std::make_move_iterator(kept_.end()));
    kept_.erase(split, kept_.end());
    return taken;
}

QCoro::Task<> Recovery::start(std::vector<Owed> owed)
{
    try {
        co_await transcribe(std::move(owed));
    } catch (const NotNow&) {
        shell_.showPasteHUD(
            std::nullopt, {},
            tr("That recording is kept. After this dictation the command vantro retry transcribes it."));
    } catch (const Error& error) {
        // The user has been told, by an alert or by the window that downloads the model.
        Logger("Recovery").error(error.localizedDescription());
    }
}

QCoro::Task<QString> Recovery::transcribe(std::vector<Owed> owed)
{
    QStringList texts;
    for (auto next = owed.begin(); next != owed.end(); ++next) {
        const auto keepFrom = [this, &owed](auto first) {
            kept_.insert(kept_.end(), first, owed.end());
        };
        next->earlierTexts = texts.join(blankLine);
        std::shared_ptr<Dictation> dictation;
        try {
            Owed handed = *next;
            handed.offer.reset();
            dictation = begin_(std::move(handed));
            next->offer.reset();
        } catch (const Error&) {
            keepFrom(next);
            throw;
        }
        co_await dictation->ended();
        if (const auto& failure = dictation->failure()) {
            keepFrom(std::next(next));
            throw Error(*failure);
        }
        texts << dictation->text();
    }
    co_return texts.join(blankLine);
}

} // namespace vantro
