#pragma once

#include "base/UserDefaults.h"
#include "base/network/HttpExchange.h"
#include "platform/Workspace.h"
#include "vantro/support/UpdateInfo.h"

#include <QObject>
#include <QUrl>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <functional>
#include <optional>

namespace vantro {

/// Asks the maker's manifest whether there is a newer release and offers it. Nothing is sent but the request itself. A
/// manifest that cannot be fetched or read shows nothing. Main thread.
class UpdateChecker final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isChecking READ isChecking NOTIFY isCheckingChanged)
public:
    /// Who wants to know: the launch, which is silent about what the user has skipped and when there is nothing new, or
    /// the user.
    enum class Asker { launch, user };

    struct Alert
    {
        QString message;
        QString informativeText;
        QStringList buttons;
    };
    /// With the button's index, or nothing for any other way out.
    using Answered = std::function<void(std::optional<int> button)>;
    /// Shows an alert and calls @p answered once.
    using ShowAlert = std::function<void(const Alert& alert, Answered answered)>;

    struct Parts
    {
        UserDefaults& defaults;
        Workspace& workspace;
        Clock& clock;
        QUrl manifest;
        QString currentVersion;
        ShowAlert showAlert;
        std::chrono::milliseconds patience{15'000}; ///< until the manifest is there
    };

    explicit UpdateChecker(Parts parts);

    /// At most one check runs and one alert is shown at a time; a user who asks while the launch's check is under way
    /// gets the answer to that one.
    QCoro::Task<> check(Asker asker);

    [[nodiscard]] bool isChecking() const { return isChecking_; }
    [[nodiscard]] bool isShowingAlert() const { return isShowingAlert_; }

Q_SIGNALS:
    void isCheckingChanged();

private:
    [[nodiscard]] QCoro::Task<std::optional<UpdateInfo>> fetch();
    [[nodiscard]] bool isSkipped(const UpdateInfo& update) const;
    void setChecking(bool checking);
    void showUpdateAlert(const UpdateInfo& update);
    void showUpToDateAlert();
    void answer(const UpdateInfo& update, std::optional<int> button);

    Parts parts_;
    std::optional<HttpExchange> http_; ///< during a check
    bool isChecking_ = false;
    bool isShowingAlert_ = false;
    bool userAsks_ = false;
};

} // namespace vantro
