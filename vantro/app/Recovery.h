#pragma once

#include "base/Clock.h"
#include "base/Error.h"
#include "platform/SessionState.h"
#include "vantro/audio/RecordingSpool.h"
#include "vantro/delivery/PasteDelivery.h"

#include <QObject>
#include <QRect>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantro {

class Dictation;
class Shell;

/// A recording whose text the user has not got yet.
struct Owed
{
    std::shared_ptr<Recording> recording;
    /// Where it was dictated into; without it the text goes to the clipboard.
    std::optional<PasteDelivery::Target> target = {};
    bool isCancelled = false;            ///< by the user, who may take that back
    QString earlierTexts = {};           ///< of the same retry: they are on the clipboard already
    std::shared_ptr<QObject> offer = {}; ///< an alert that asks about it; goes with the last one that it asks about
};

/// Another dictation is under way.
class NotNow : public Error
{
public:
    using Error::Error;
};

/// There is no recording to transcribe or to discard.
class NothingKept : public Error
{
public:
    using Error::Error;
};

/// Offers recordings that have not become text: a cancelled one until its user has seen the offer for ten seconds,
/// others until they are transcribed or discarded. Main thread.
class Recovery final : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::seconds undoTime{10};

    /// Transcribes and delivers what is owed. Throws NotNow, or another Error that the user has been told.
    using Begin = std::function<std::shared_ptr<Dictation>(Owed)>;

    /// All references must outlive this object.
    Recovery(RecordingSpool& spool, Clock& clock, const SessionState& session, Shell& shell);

    /// To be set before anything else is called.
    void setBegin(Begin begin) { begin_ = std::move(begin); }

    /// Offers the recording of a dictation that has failed. @p notice: why, for the user.
    void offerFailed(Owed owed, const QString& notice);
    /// Offers a cancelled recording for undoTime. @p anchor: where the launcher was.
    void offerCancelled(Owed owed, std::optional<QRect> anchor);
    /// Keeps it without a word.
    void keep(Owed owed) { kept_.push_back(std::move(owed)); }

    /// Whether a cancelled recording is on offer.
    [[nodiscard]] bool hasOffer() const { return cancelled_.has_value(); }
    /// The same of one that was not made for @p target.
    [[nodiscard]] bool offersForAnother(const PasteDelivery::Target& target) const;
    /// A launcher opens where the last one was: moves the offer above it.
    void makeRoom();
    /// Transcribes the cancelled recording; false when none is on offer.
    bool takeCancelBack();
    /// Ends the offer. Its recording is gone.
    void forgetCancelled();

    /// Offers what earlier processes have left. Returns false if they have left nothing.
    QCoro::Task<bool> offerLeft();
    /// Transcribes all recordings, a cancelled one included, to the clipboard. Returns their texts, with blank lines
    /// between them. Throws Error; what has not been transcribed stays.
    QCoro::Task<QString> transcribeAll();
    /// Deletes all recordings, a cancelled one included. Throws NothingKept.
    QCoro::Task<> discardAll();

private:
    QCoro::Task<std::vector<Owed>> takeAll();
    [[nodiscard]] std::vector<Owed> take(const std::vector<std::weak_ptr<Recording>>& wanted);
    void offer(std::vector<Owed> owed, const QString& title, const QString& text);
    void showOffer(std::optional<QRect> anchor);
    void setCovered(bool isCovered);
    void countDown();
    void stopCountingDown();
    QCoro::Task<> start(std::vector<Owed> owed);
    QCoro::Task<QString> transcribe(std::vector<Owed> owed);

    RecordingSpool& spool_;
    Clock& clock_;
    const SessionState& session_;
    Shell& shell_;
    Begin begin_;
    std::vector<Owed> kept_;
    std::optional<Owed> cancelled_;
    std::optional<QRect> launcherFrame_; ///< of the cancelled dictation, in screen coordinates
    bool isCovered_ = false;             ///< the offer
    std::chrono::milliseconds undoLeft_{};
    Clock::Instant undoEnd_;             ///< while undoTimer_ runs
    std::unique_ptr<QObject> undoTimer_; ///< destroying it stops it
};

} // namespace vantro
