#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <limits>

namespace vantro {

/// Copies of what is stored, named as in the store. Every attribute may be missing: a null text, an invalid date, a
/// null identity.

/// One dictation.
struct Transcription
{
    qint64 objectID = 0; ///< place in the order of time, newest highest; never that of another row
    QUuid id;
    QDateTime created_at;
    QString processingMode; ///< a mode's raw value
    QString transcription;
    QString formatted; ///< empty while there is none

    /// What was delivered: the formatted text where there is one.
    [[nodiscard]] const QString& text() const { return formatted.isEmpty() ? transcription : formatted; }
};

/// One dictation in Notes mode.
struct Note
{
    qint64 objectID = 0;
    QUuid id;
    QDateTime created_at;
    QString transcription;
    qint64 dailyNote = 0; ///< objectID of its day
};

/// One calendar day of notes.
struct DailyNote
{
    qint64 objectID = 0;
    QUuid id;
    QDateTime created_at; ///< some moment of the day
    QString formatted;    ///< the day's summary; empty until there is one
    int noteCount = 0;
};

/// A stretch of the order of time, both ends included.
struct FetchRange
{
    qint64 newest = std::numeric_limits<qint64>::max();
    qint64 oldest = std::numeric_limits<qint64>::min();
};

} // namespace vantro
