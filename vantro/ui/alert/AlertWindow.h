#pragma once

#include "vantro/ui/style/Dialog.h"

#include <functional>
#include <optional>

namespace vantro {

/// A title, a text and one or more buttons. The first button has the keyboard; Escape and the close button are no
/// button. Deletes itself when closed. Main thread.
class AlertWindow final : public Dialog
{
    Q_OBJECT
public:
    enum class Kind { informational, warning };

    /// Called once: with the button's index, or nothing for any other way out.
    using Answered = std::function<void(std::optional<int> button)>;

    AlertWindow(QQmlEngine& engine, Kind kind, const QString& title, const QString& text, const QStringList& buttons,
                Answered answered = {});

private Q_SLOTS:
    void pressed(int button);

private:
    void answer(std::optional<int> button);

    Answered answered_;
};

} // namespace vantro
