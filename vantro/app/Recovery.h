#pragma once

#include "base/Clock.h"
#include "base/Error.h"
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

/// There is no recording to transcribe or to discard.
class NothingKept : public Error
{
public:
    using Error::Error;
};

/// Offers recordings that have not become text: a cancelled one for ten seconds, others until they are transcribed or
/// discarded. Main thread.
class Recovery final : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::seconds undoTime{10};

    /// Transcribes and delivers what is owed. Throws Error when that cannot begin now.
    using Begin = std::function<std::shared_ptr<Dictation>(Owed)>;

    /// All references must outlive this object.
    Recovery(RecordingSpool& spool, Clock& clock, Shell& shell) : spool_(spool), clock_(clock), shell_(shell) {}

    /// To be set before anything else is called.
    void setBegin(Begin begin) { begin_ = std::move(begin); }

    /// A dictation has failed for the reason @p notice, which the user is told with the offer.
    void offerFailed(Owed owed, const QString& notice);
    /// @p anchor: where the launcher was.
    void offerCancelled(Owed owed, std::optional<QRect> anchor);
    /// Keeps it without a word.
    void keep(Owed owed) { kept_.push_back(std::move(owed)); }

    /// Transcribes the cancelled recording; false when none is on offer.
    bool takeCancelBack();
    /// Ends the offer. Its recording is gone.
    void forgetCancelled();

    /// Offers what earlier processes have left; false when that is nothing.
    QCoro::Task<bool> offerLeft();
    /// Transcribes all recordings, a cancelled one included, to the clipboard. Returns their texts, with blank lines
    /// between them. Throws Error; what has not been transcribed stays.
    QCoro::Task<QString> transcribeAll();
    /// Throws NothingKept.
    QCoro::Task<> discardAll();

private:
    QCoro::Task<std::vector<Owed>> takeAll();
    [[nodiscard]] std::vector<Owed> take(const std::vector<std::weak_ptr<Recording>>& wanted);
    void offer(std::vector<Owed> owed, const QString& title, const QString& text);
    QCoro::Task<> start(std::vector<Owed> owed);
    QCoro::Task<QString> transcribe(std::vector<Owed> owed);

    RecordingSpool& spool_;
    Clock& clock_;
    Shell& shell_;
    Begin begin_;
    std::vector<Owed> kept_;
    std::optional<Owed> cancelled_;
    std::unique_ptr<QObject> undoTimer_; ///< destroying it stops it
};

} // namespace vantro
