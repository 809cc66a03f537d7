#pragma once

#include "base/Settings.h"
#include "platform/LoginItem.h"
#include "vantro/support/UpdateChecker.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace vantro {

/// The view model of the page "General". Changes are written at once; changes made elsewhere are shown at once. Main
/// thread; lives as long as its window.
class GeneralSettings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(bool autoPaste READ autoPaste WRITE setAutoPaste NOTIFY changed)
    Q_PROPERTY(bool keepOnClipboard READ keepOnClipboard WRITE setKeepOnClipboard NOTIFY changed)
    Q_PROPERTY(bool restoreEveryFormat READ restoreEveryFormat WRITE setRestoreEveryFormat NOTIFY changed)
    Q_PROPERTY(bool playSound READ playSound WRITE setPlaySound NOTIFY changed)
    Q_PROPERTY(bool recognizeAhead READ recognizeAhead WRITE setRecognizeAhead NOTIFY changed)
    Q_PROPERTY(bool showWords READ showWords WRITE setShowWords NOTIFY changed)
    Q_PROPERTY(bool keepModelInMemory READ keepModelInMemory WRITE setKeepModelInMemory NOTIFY changed)
    Q_PROPERTY(bool holdToTalk READ holdToTalk WRITE setHoldToTalk NOTIFY changed)
    Q_PROPERTY(int appearance READ appearance WRITE setAppearance NOTIFY changed)
    Q_PROPERTY(int motion READ motion WRITE setMotion NOTIFY changed)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY changed)
    Q_PROPERTY(bool checkForUpdates READ checkForUpdates WRITE setCheckForUpdates NOTIFY changed)
    Q_PROPERTY(bool isCheckingForUpdates READ isCheckingForUpdates NOTIFY checkingChanged)
    Q_PROPERTY(int language READ language WRITE setLanguage NOTIFY changed)
    Q_PROPERTY(QStringList languages READ languages CONSTANT)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
public:
    struct Parts
    {
        UserDefaults& defaults;
        LoginItem& loginItem;
        UpdateChecker& updates;
    };

    explicit GeneralSettings(Parts parts);

    [[nodiscard]] bool autoPaste() const { return parts_.defaults.get(setting::autoPasteEnabled); }
    void setAutoPaste(bool on) { parts_.defaults.set(setting::autoPasteEnabled, on); }
    [[nodiscard]] bool keepOnClipboard() const { return parts_.defaults.get(setting::copyToClipboardEnabled); }
    void setKeepOnClipboard(bool on) { parts_.defaults.set(setting::copyToClipboardEnabled, on); }
    [[nodiscard]] bool restoreEveryFormat() const { return parts_.defaults.get(setting::restoreEveryFormat); }
    void setRestoreEveryFormat(bool on) { parts_.defaults.set(setting::restoreEveryFormat, on); }
    [[nodiscard]] bool playSound() const { return parts_.defaults.get(setting::playSoundOnComplete); }
    void setPlaySound(bool on) { parts_.defaults.set(setting::playSoundOnComplete, on); }
    [[nodiscard]] bool recognizeAhead() const { return parts_.defaults.get(setting::recognizeWhileSpeaking); }
    void setRecognizeAhead(bool on) { parts_.defaults.set(setting::recognizeWhileSpeaking, on); }
    [[nodiscard]] bool showWords() const { return parts_.defaults.get(setting::showWordsWhileSpeaking); }
    void setShowWords(bool on) { parts_.defaults.set(setting::showWordsWhileSpeaking, on); }
    [[nodiscard]] bool keepModelInMemory() const { return parts_.defaults.get(setting::whisperKeepModelInMemory); }
    void setKeepModelInMemory(bool on) { parts_.defaults.set(setting::whisperKeepModelInMemory, on); }
    [[nodiscard]] bool holdToTalk() const { return parts_.defaults.get(setting::holdToTalk); }
    void setHoldToTalk(bool on) { parts_.defaults.set(setting::holdToTalk, on); }
    /// 0: same as the desktop, 1: light, 2: dark.
    [[nodiscard]] int appearance() const;
    void setAppearance(int index);
    /// 0: same as the desktop, 1: animations on, 2: off.
    [[nodiscard]] int motion() const;
    void setMotion(int index);
    [[nodiscard]] bool launchAtLogin() const { return parts_.loginItem.isEnabled(); }
    void setLaunchAtLogin(bool on);
    [[nodiscard]] bool checkForUpdates() const { return parts_.defaults.get(setting::checkForUpdatesOnLaunch); }
    void setCheckForUpdates(bool on) { parts_.defaults.set(setting::checkForUpdatesOnLaunch, on); }
    [[nodiscard]] bool isCheckingForUpdates() const { return parts_.updates.isChecking(); }
    /// The spoken language, as an index into languages().
    [[nodiscard]] int language() const;
    void setLanguage(int index);
    [[nodiscard]] QStringList languages() const;
    /// Why the latest change failed; otherwise empty.
    [[nodiscard]] QString problem() const { return problem_; }

    Q_INVOKABLE void checkForUpdatesNow();

Q_SIGNALS:
    void changed();
    void checkingChanged();

private:
    Parts parts_;
    QString problem_;
};

} // namespace vantro
