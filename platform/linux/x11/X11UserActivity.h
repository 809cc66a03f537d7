#pragma once

#include "platform/Workspace.h"

#include <QObject>

#include <chrono>

union _XEvent; // NOLINT(bugprone-reserved-identifier)

namespace vantro {

class X11Connection;

/// Listens to the raw events of all keyboards and pointers, which arrive whatever window or grab they belong to.
class X11UserActivity final : public QObject, public UserActivity
{
    Q_OBJECT
public:
    /// @p connection must outlive the object; at most one exists for it.
    explicit X11UserActivity(X11Connection& connection);
    ~X11UserActivity() override;

    [[nodiscard]] bool hasActed(std::chrono::milliseconds span, quint64 after) const override;

private:
    void select(bool on);
    void note(_XEvent& event);

    X11Connection& connection_;
    int opcode_ = 0;
    quint64 latest_ = 0;
    std::chrono::steady_clock::time_point seen_;
};

} // namespace vantro
