#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <limits>

namespace vantro {

/// Copies of stored rows, with the store's names. Every attribute may be missing: a null string, an invalid date, a
/// null UUID.

/// One dictation.
struct Transcription
{
    qint64 objectID = 0; ///< unique key, increasing with time
    QUuid id;
    QDateTime created_at;
    QString processingMode; ///< a mode's raw value
    QString transcription;
    QString formatted;           ///< empty if there is none
    QString setAside = {};       ///< what a language model answered and was not believed; empty if there is none
    QString setAsideReason = {}; ///< for the user to read

    /// The delivered text: formatted if available.
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
    QDateTime created_at; ///< any time of the day
    QString formatted;    ///< the day's summary; empty until there is one
    int noteCount = 0;
};

/// A range of keys in time order, inclusive.
struct FetchRange
{
    qint64 newest = std::numeric_limits<qint64>::max();
    qint64 oldest = std::numeric_limits<qint64>::min();
};

} // namespace vantro
