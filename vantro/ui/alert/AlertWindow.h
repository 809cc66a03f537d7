#pragma once

#include "vantro/ui/style/Dialog.h"

#include <QPointer>

#include <functional>
#include <optional>

namespace vantro {

/// An alert with a title, a text and one or more buttons, one of which has the focus. Escape and the close button
/// press none of them. Deletes itself when closed. Main thread.
class AlertWindow final : public Dialog
{
    Q_OBJECT
public:
    enum class Kind { informational, warning };

    /// Called once, with the index of the button, or nullopt when the alert was closed in another way; not when it is
    /// destroyed while it is shown.
    using Answered = std::function<void(std::optional<int> button)>;

    struct Contents
    {
        Kind kind = Kind::warning;
        QString title;
        QString text;
        QStringList buttons;
        int safeButton = 0;                          ///< has the focus: Return presses it
        std::optional<QPointer<QObject>> about = {}; ///< when it is destroyed the alert is of no use and closes
    };

    AlertWindow(QQmlEngine& engine, Clock& clock, const Contents& contents, Answered answered = {});

protected:
    void hideEvent(QHideEvent* event) override;

private Q_SLOTS:
    void pressed(int button);

private:
    void answer(std::optional<int> button);

    Answered answered_;
};

} // namespace vantro
