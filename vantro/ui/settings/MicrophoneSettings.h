#pragma once

#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/MicrophoneMonitor.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace vantro {

/// The view model of the page "Microphone": the choice of microphone and its current level. Changes are written at
/// once. Main thread; lives as long as its window.
class MicrophoneSettings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QStringList modes READ modes CONSTANT)
    Q_PROPERTY(int mode READ mode WRITE setMode NOTIFY changed)
    Q_PROPERTY(QStringList devices READ devices NOTIFY changed)
    Q_PROPERTY(int device READ device WRITE setDevice NOTIFY changed)
    Q_PROPERTY(QString inUse READ inUse NOTIFY changed)
    Q_PROPERTY(QStringList order READ order NOTIFY changed)
    Q_PROPERTY(bool listening READ isListening WRITE setListening NOTIFY changed)
    Q_PROPERTY(qreal level READ level NOTIFY levelChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY levelChanged)
public:
    MicrophoneSettings(AudioEngineFactory makeEngine, AudioDeviceManager& devices, Clock& clock);

    /// In the order of AudioInputMode.
    [[nodiscard]] QStringList modes() const;
    [[nodiscard]] int mode() const { return static_cast<int>(devices_.inputMode()); }
    void setMode(int mode);
    [[nodiscard]] QStringList devices() const;
    /// The chosen one as an index into devices(); -1 when it is not connected.
    [[nodiscard]] int device() const;
    void setDevice(int index);
    /// The one that a dictation would be recorded from now, in a sentence.
    [[nodiscard]] QString inUse() const;
    /// The names in the priority list, highest priority first.
    [[nodiscard]] QStringList order() const;
    [[nodiscard]] bool isListening() const { return monitor_.isRunning(); }
    void setListening(bool listening);
    [[nodiscard]] qreal level() const { return static_cast<qreal>(monitor_.level()); }
    [[nodiscard]] QString problem() const { return monitor_.problem(); }

    /// Moves an entry of order() up by one.
    Q_INVOKABLE void prefer(int index);

Q_SIGNALS:
    void changed();
    void levelChanged();

private:
    void follow();

    AudioDeviceManager& devices_;
    MicrophoneMonitor monitor_;
};

} // namespace vantro
