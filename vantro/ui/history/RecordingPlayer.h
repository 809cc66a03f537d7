#pragma once

#include "base/SerialExecutor.h"
#include "platform/SoundPlayer.h"
#include "vantro/store/KeptAudio.h"
#include "vantro/ui/history/HistoryChanges.h"

#include <QObject>
#include <QTimer>
#include <QUuid>
#include <QtQml/qqmlregistration.h>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <optional>
#include <vector>

namespace vantro {

/// The view model of the kept recording of a dictation or note, which can be heard. Main thread; lives as long as its
/// window.
class RecordingPlayer : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QUuid recording READ recording WRITE show NOTIFY changed)
    Q_PROPERTY(bool exists READ exists NOTIFY changed)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY changed)
    Q_PROPERTY(double position READ position NOTIFY changed)
    Q_PROPERTY(double duration READ duration NOTIFY changed)
public:
    /// All must outlive this object.
    RecordingPlayer(KeptAudio& audio, SoundPlayer& player, HistoryChanges& changes);
    ~RecordingPlayer() override;

    /// Whose it is; null for nobody's.
    [[nodiscard]] QUuid recording() const { return recording_; }
    /// Turns to the recording of that dictation or note; to none with a null ID.
    void show(const QUuid& recording);

    [[nodiscard]] bool exists() const { return !file_.isEmpty(); }
    [[nodiscard]] bool isPlaying() const { return player_.isPlaying(); }
    /// Seconds from the beginning.
    [[nodiscard]] double position() const;
    /// In seconds.
    [[nodiscard]] double duration() const { return std::chrono::duration<double>(duration_).count(); }

    /// Plays from where it is, or pauses.
    Q_INVOKABLE void toggle();
    Q_INVOKABLE void seek(double seconds);
    void pause();
    /// "1:05".
    Q_INVOKABLE QString inWords(double seconds) const;

Q_SIGNALS:
    void changed();

private:
    void look();
    QCoro::Task<> play();
    void start();
    void ended(const QString& problem);

    KeptAudio& audio_;
    SoundPlayer& player_;
    HistoryChanges& changes_;
    QUuid recording_;
    QString file_;
    std::chrono::milliseconds duration_{};
    std::size_t from_ = 0;                      ///< the sample at which it goes on
    std::optional<std::vector<float>> samples_; ///< once they are read
    QTimer pulse_;
    SerialExecutor reader_{QStringLiteral("recording reader")};
};

} // namespace vantro
