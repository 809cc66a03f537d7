#pragma once

#include "base/UserDefaults.h"
#include "platform/Platform.h"
#include "vantro/support/UpdateChecker.h"
#include "vantro/ui/alert/AlertWindow.h"

#include <QObject>

#include <functional>

namespace vantro {

/// What the program has to tell or to ask, and the mails that a user may want to write of it. Main thread.
class Alerts final : public QObject
{
    Q_OBJECT
public:
    /// All outlive this object.
    Alerts(QQmlEngine& engine, const UserDefaults& defaults, const Platform& platform);

    void show(AlertWindow::Kind kind, const QString& title, const QString& text,
              const QStringList& buttons = {tr("OK")}, AlertWindow::Answered answered = {});
    /// Calls @p confirmed when the first of two buttons is chosen, which bears @p verb.
    void confirm(const QString& title, const QString& question, const QString& verb, std::function<void()> confirmed);
    /// How the update checker shows its own.
    [[nodiscard]] UpdateChecker::ShowAlert forUpdates();

    void tellOfCrash();
    void tellOfSettings(const KeptAside& settings);
    void reportError();
    void sendFeedback();

private:
    void tellOfUnsavedSettings(const QString& file);
    void openMail(const QString& url, const QString& address);

    QQmlEngine& engine_;
    const Platform& platform_;
    bool hasToldOfUnsavedSettings_ = false;
};

} // namespace vantro
