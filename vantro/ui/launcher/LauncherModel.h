#pragma once

#include "base/Clock.h"
#include "vantro/ai/ProcessingMode.h"

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <deque>
#include <vector>

namespace vantro {

class AudioRecorder;
class Dictation;

/// The view model of the recording panel: level, time, modes and progress. Main thread; lives as long as the panel.
class LauncherModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its panel")
    Q_PROPERTY(bool processing READ isProcessing NOTIFY processingChanged)
    Q_PROPERTY(qreal progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(QString processingText READ processingText NOTIFY processingChanged)
    /// Whether a language model is at work, which has no progress to show.
    Q_PROPERTY(bool rewriting READ isRewriting NOTIFY processingChanged)
    Q_PROPERTY(QList<qreal> levels READ levels NOTIFY levelsChanged)
    Q_PROPERTY(QString timeText READ timeText NOTIFY timeChanged)
    Q_PROPERTY(bool timeRunsOut READ timeRunsOut NOTIFY timeChanged)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged)
    /// What was understood so far, in one line; may be empty.
    Q_PROPERTY(QString words READ words NOTIFY wordsChanged)
    Q_PROPERTY(QStringList modes READ modeNames CONSTANT)
    /// How to end the recording, and how to cancel it; may be empty.
    Q_PROPERTY(QString endingHint READ endingHint NOTIFY hintsChanged)
    Q_PROPERTY(QString cancelHint READ cancelHint NOTIFY hintsChanged)
    /// Whether the digit keys choose a mode.
    Q_PROPERTY(bool takesDigits READ takesDigits NOTIFY hintsChanged)
    Q_PROPERTY(int chosenMode READ chosenMode NOTIFY chosenModeChanged)
public:
    struct Mode
    {
        ProcessingMode mode;
        QString name;
    };

    /// @p modes: the visible ones in display order. @p microphone: its name, for the notice that no sound arrives.
    /// @p note: what to say while there is nothing worse; may be empty.
    LauncherModel(Dictation& dictation, Clock& clock, std::vector<Mode> modes, QString microphone, QString note);

    [[nodiscard]] bool isProcessing() const { return processing_; }
    [[nodiscard]] qreal progress() const { return progress_; }
    [[nodiscard]] QString processingText() const;
    [[nodiscard]] bool isRewriting() const { return !rewriter_.isEmpty(); }
    [[nodiscard]] QList<qreal> levels() const;
    [[nodiscard]] QString timeText() const;
    [[nodiscard]] bool timeRunsOut() const;
    [[nodiscard]] QString notice() const { return notice_; }
    [[nodiscard]] const QString& words() const { return words_; }
    [[nodiscard]] QStringList modeNames() const;
    [[nodiscard]] int chosenMode() const;

    [[nodiscard]] QString endingHint() const { return endingHint_; }
    [[nodiscard]] QString cancelHint() const { return cancelHint_; }
    void setEndingHint(const QString& ending, const QString& cancel);
    [[nodiscard]] bool takesDigits() const { return takesDigits_; }
    void setTakesDigits(bool takes) { takesDigits_ = takes; }

    Q_INVOKABLE void chooseMode(int index);

Q_SIGNALS:
    void processingChanged();
    void progressChanged();
    void levelsChanged();
    void timeChanged();
    void noticeChanged();
    void wordsChanged();
    void chosenModeChanged();
    void hintsChanged();

private:
    void followState();
    void followRewriting();
    void countRewriting();
    /// @p fraction: 0..1. Never moves the bar back.
    void setProgress(float fraction);
    void tick();
    [[nodiscard]] QString currentNotice() const;
    void setNotice(const QString& notice);
    void showWords(const QString& text);
    [[nodiscard]] std::chrono::seconds elapsed() const;

    const Dictation& dictation_;
    AudioRecorder& recorder_;
    Clock& clock_;
    std::vector<Mode> modes_;
    QString microphone_;
    Clock::Instant openedAt_;
    Clock::Instant lastHeardAt_;
    Clock::Instant stoppedAt_;
    Clock::Instant rewritingSince_;
    QString rewriter_; ///< while it is at work
    QTimer ticker_;    ///< once per bar of the waveform
    float loudestSinceTick_ = 0;
    std::deque<qreal> levels_;
    bool processing_ = false;
    qreal progress_ = 0;
    QString note_;
    QString notice_;
    QString words_;
    QString endingHint_;
    QString cancelHint_;
    bool takesDigits_ = true;
};

} // namespace vantro
