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

/// Fetches the update manifest and offers a newer release. Sends nothing but the request itself. Errors are only
/// logged. Main thread.
class UpdateChecker final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isChecking READ isChecking NOTIFY isCheckingChanged)
public:
    /// At launch, a skipped version and the absence of a new one are not reported; when the user asks, they are.
    enum class Asker { launch, user };

    struct Alert
    {
        QString message;
        QString informativeText;
        QStringList buttons;
    };
    /// Receives the index of the button, or nullopt when the alert was closed in another way.
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
        std::chrono::milliseconds patience{15'000}; ///< time limit for the manifest
    };

    explicit UpdateChecker(Parts parts);

    /// Only one check runs and one alert is shown at a time. A user who asks during the check at launch gets its
    /// result.
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
