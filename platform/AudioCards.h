#pragma once

#include <QObject>
#include <QString>

#include <vector>

namespace vantro {

/// A Bluetooth headset. Exactly one of its profiles is active: high-quality playback without a microphone, or a
/// microphone with telephone-quality sound.
struct HeadsetCard
{
    /// Stable across runs.
    QString uid;
    QString name;
    /// Part of its microphones' UIDs; they exist only while a profile with a microphone is active.
    QString address;
    QString activeProfile;
    /// The best available profile with a microphone; empty if there is none.
    QString headsetProfile;

    friend bool operator==(const HeadsetCard&, const HeadsetCard&) = default;
};

/// The connected headsets. Main thread only.
class AudioCards : public QObject
{
    Q_OBJECT
public:
    [[nodiscard]] virtual std::vector<HeadsetCard> headsets() const = 0;
    /// Requests a profile and returns immediately; success shows as devices appearing and disappearing.
    virtual void setProfile(const QString& cardUid, const QString& profile) = 0;
};

} // namespace vantro
