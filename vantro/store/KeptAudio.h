#pragma once

#include "base/SerialExecutor.h"
#include "base/UserDefaults.h"
#include "vantro/store/AudioFolder.h"
#include "vantro/store/CoreDataStack.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <optional>
#include <vector>

namespace vantro {

/// Keeps the recordings of dictations and notes as long as the user wants: nobody waits for the disk, and what goes
/// wrong costs the recording alone. Main thread; files are written on a thread of its own.
class KeptAudio final : public QObject
{
    Q_OBJECT
public:
    /// All must outlive this object. @p store may be loaded later, but before start() and keep().
    KeptAudio(UserDefaults& defaults, CoreDataStack& store, Clock& clock);

    /// From now on the limits hold: at once, after each recording, once a day, and when a setting changes.
    void start();
    [[nodiscard]] bool isKeeping() const;
    [[nodiscard]] const AudioFolder& folder() const { return folder_; }
    /// What the settings allow to stay with another span of days (see Retention::daysFrom()) and size.
    [[nodiscard]] AudioFolder::Limits limits(std::optional<int> days, qint64 megabytes) const;

    /// Keeps the recording of a dictation or note that is stored, unless it is deleted meanwhile. @p samples: 16 kHz
    /// mono.
    QCoro::Task<> keep(QUuid id, std::vector<float> samples);
    /// Removes the recordings whose dictations or notes are gone for good.
    QCoro::Task<> sweep();

Q_SIGNALS:
    /// A recording has been kept, or some have been removed.
    void changed();
    /// Recordings cannot be kept, for the reason @p problem. Once until one is kept again.
    void failed(const QString& problem);

private:
    QCoro::Task<> enforce();
    void enforceDaily();
    [[nodiscard]] AudioFolder::Limits limits() const;
    [[nodiscard]] bool isWanted(const QUuid& id) const;
    void tell(const QString& problem);

    UserDefaults& defaults_;
    CoreDataStack& store_;
    Clock& clock_;
    AudioFolder folder_;
    bool isFailing_ = false;
    SerialExecutor executor_{QStringLiteral("kept audio")};
};

} // namespace vantro
