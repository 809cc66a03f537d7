#pragma once

#include <QObject>
#include <QString>

#include <cstddef>
#include <vector>

namespace vantro {

/// Plays one recording at a time on the system's default output. Main thread.
class SoundPlayer : public QObject
{
    Q_OBJECT
public:
    /// Plays @p samples (16 kHz mono, nominally -1..1) from the sample @p from on, in place of what plays.
    virtual void play(std::vector<float> samples, std::size_t from) = 0;
    /// Ends what plays; ended() does not follow.
    virtual void stop() = 0;
    [[nodiscard]] virtual bool isPlaying() const = 0;
    /// The sample that is heard now, or was heard last.
    [[nodiscard]] virtual std::size_t position() const = 0;

Q_SIGNALS:
    /// The last sample has been heard, or playing has failed for the reason @p problem, a sentence for the user.
    void ended(const QString& problem);
};

} // namespace vantro
