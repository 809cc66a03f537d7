#pragma once

#include "base/UserDefaults.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <qcoro/qcorotask.h>

#include <functional>
#include <optional>
#include <vector>

namespace vantro {

/// The view model of the page "Privacy". Main thread; lives as long as its window.
class PrivacySettings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QStringList spans READ spans NOTIFY changed)
    Q_PROPERTY(int span READ span WRITE setSpan NOTIFY changed)
    Q_PROPERTY(QStringList recordingSpans READ recordingSpans NOTIFY changed)
    Q_PROPERTY(int recordingSpan READ recordingSpan WRITE setRecordingSpan NOTIFY changed)
    Q_PROPERTY(QStringList recordingSizes READ recordingSizes NOTIFY changed)
    Q_PROPERTY(int recordingSize READ recordingSize WRITE setRecordingSize NOTIFY changed)
    Q_PROPERTY(bool isPrivate READ isPrivate WRITE setPrivate NOTIFY changed)
    Q_PROPERTY(QString stored READ stored NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(bool isClearing READ isClearing NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
public:
    struct Stored
    {
        int dictations = 0;
        int notes = 0;
        int recordings = 0;
        qint64 bytes = 0; ///< of all
        QString folder;
    };
    struct Parts
    {
        UserDefaults& defaults;
        std::function<Stored()> stored;
        std::function<int(int days)> countOlder; ///< dictations that would be deleted with that span
        /// Recordings that would be deleted with that span (see Retention::daysFrom()) and size.
        std::function<int(std::optional<int> days, qint64 megabytes)> countBeyond;
        std::function<QCoro::Task<>()> clear; ///< throws Error
        std::function<bool()> isPrivate;
        std::function<void(bool)> setPrivate;
        /// Asks before dictations are deleted; calls its last argument when the user is sure.
        std::function<void(const QString& title, const QString& question, std::function<void()>)> confirm;
    };

    explicit PrivacySettings(Parts parts);

    /// How long dictations can be kept.
    [[nodiscard]] QStringList spans() const;
    [[nodiscard]] int span() const;
    /// Asks first if that deletes any.
    void setSpan(int index);
    /// How long recordings can be kept, and how much of the disk they may take. Both ask first if that deletes any.
    [[nodiscard]] QStringList recordingSpans() const;
    [[nodiscard]] int recordingSpan() const;
    void setRecordingSpan(int index);
    [[nodiscard]] QStringList recordingSizes() const;
    [[nodiscard]] int recordingSize() const;
    void setRecordingSize(int index);
    [[nodiscard]] bool isPrivate() const { return parts_.isPrivate(); }
    void setPrivate(bool on) { parts_.setPrivate(on); }
    /// What is stored and where, in a sentence.
    [[nodiscard]] QString stored() const;
    [[nodiscard]] bool isEmpty() const
    {
        return stored_.dictations == 0 && stored_.notes == 0 && stored_.recordings == 0;
    }
    [[nodiscard]] bool isClearing() const { return isClearing_; }
    /// Why clearing failed; otherwise empty.
    [[nodiscard]] QString problem() const { return problem_; }

    /// Deletes all dictations and notes, after asking.
    Q_INVOKABLE void clearAll();
    /// What is stored or set has changed.
    void refresh();

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] std::optional<int> days() const;
    [[nodiscard]] std::optional<int> recordingDays() const;
    [[nodiscard]] std::vector<qint64> sizes() const;
    void limitRecordings(std::optional<int> days, qint64 megabytes);
    QCoro::Task<> clear();

    Parts parts_;
    Stored stored_;
    bool isClearing_ = false;
    QString problem_;
};

} // namespace vantro
