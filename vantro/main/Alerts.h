#pragma once

#include "base/Clock.h"
#include "base/UserDefaults.h"
#include "platform/Platform.h"
#include "vantro/main/WhenIdle.h"
#include "vantro/support/UpdateChecker.h"
#include "vantro/ui/alert/AlertWindow.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <functional>

namespace vantro {

/// Alerts and questions to the user, and the mails that some of them offer. Main thread.
class Alerts final : public QObject
{
    Q_OBJECT
public:
    /// All outlive this object. @p idle: alerts wait for it.
    Alerts(QQmlEngine& engine, Clock& clock, const UserDefaults& defaults, const Platform& platform, WhenIdle& idle);

    /// One that asks nothing and is still on the screen is brought to the front instead of being shown twice.
    void show(AlertWindow::Kind kind, const QString& title, const QString& text,
              const QStringList& buttons = {tr("OK")}, AlertWindow::Answered answered = {});
    void show(const AlertWindow::Contents& contents, AlertWindow::Answered answered);
    /// Asks with the buttons @p verb and Cancel, which has the focus; calls @p confirmed for @p verb.
    void confirm(const QString& title, const QString& question, const QString& verb, std::function<void()> confirmed);
    /// Lets the update checker show its alerts.
    [[nodiscard]] UpdateChecker::ShowAlert forUpdates();

    void tellOfCrash();
    void tellOfSettings(const KeptAside& settings);
    void reportError();
    void sendFeedback();

private:
    void tellOfUnsavedSettings(const QString& file);
    [[nodiscard]] AlertWindow* window(const AlertWindow::Contents& contents, const AlertWindow::Answered& answered);
    void openMail(const QString& url, const QString& address);

    QQmlEngine& engine_;
    Clock& clock_;
    const Platform& platform_;
    WhenIdle& idle_;
    QHash<QString, QPointer<AlertWindow>> told_; ///< by title and text: those that ask nothing
    bool hasToldOfUnsavedSettings_ = false;
};

} // namespace vantro
