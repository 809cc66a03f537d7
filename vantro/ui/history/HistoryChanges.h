#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <qcoro/qcorotask.h>

#include <functional>
#include <vector>

namespace vantro {

/// What the history's window does to the store: tells what has been done, what is being done and why something failed,
/// and takes changes back, the latest first, as long as the window is open. Main thread.
class HistoryChanges : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed)
    Q_PROPERTY(QString done READ done NOTIFY changed)
    Q_PROPERTY(QString work READ work NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
public:
    /// Takes a change back. Throws Error.
    using Undo = std::function<QCoro::Task<>()>;

    /// Calls @p change, whose Error becomes the problem, printed after @p failure if there is one. Returns whether it
    /// succeeded.
    bool attempt(const std::function<void()>& change, const char* failure = nullptr);
    /// Something has been changed, as @p done says in a sentence, and @p undo takes it back.
    void add(const QString& done, const std::function<void()>& undo);
    void addLong(const QString& done, Undo undo);
    void setProblem(const QString& problem);
    /// What takes a while, for the user to read; empty when nothing does.
    void setWork(const QString& work);

    [[nodiscard]] bool canUndo() const { return !undos_.empty() && !isBusy(); }
    [[nodiscard]] bool isBusy() const { return !work_.isEmpty(); }
    /// The latest change that can be taken back.
    [[nodiscard]] QString done() const { return undos_.empty() ? QString() : undos_.back().done; }
    [[nodiscard]] QString work() const { return work_; }
    /// Why the latest change failed; empty when it did not.
    [[nodiscard]] QString problem() const { return problem_; }

    /// Takes back the latest change. One that cannot be taken back stays, to be tried again.
    Q_INVOKABLE void undo() { undoLatest(); }

Q_SIGNALS:
    void changed();

private:
    struct Change
    {
        QString done;
        Undo undo;
    };

    QCoro::Task<> undoLatest();

    std::vector<Change> undos_;
    QString problem_;
    QString work_;
};

} // namespace vantro
