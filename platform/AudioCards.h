#pragma once

#include <QObject>
#include <QString>

#include <vector>

namespace vantro {

/// A Bluetooth headset. It has several profiles, of which one is in force: music in good quality without a microphone,
/// or a microphone with the sound of a telephone.
struct HeadsetCard
{
    /// The same in every run.
    QString uid;
    QString name;
    /// What the identifiers of its microphones contain; they exist only while a profile with a microphone is in force.
    QString address;
    QString activeProfile;
    /// The best profile with a microphone that can be had now; empty when there is none.
    QString headsetProfile;

    friend bool operator==(const HeadsetCard&, const HeadsetCard&) = default;
};

/// The headsets that are connected. Main thread only.
class AudioCards : public QObject
{
    Q_OBJECT
public:
    [[nodiscard]] virtual std::vector<HeadsetCard> headsets() const = 0;
    /// Asks for a profile and returns at once. Whether it came into force shows in the devices that come and go.
    virtual void setProfile(const QString& cardUid, const QString& profile) = 0;
};

} // namespace vantro
