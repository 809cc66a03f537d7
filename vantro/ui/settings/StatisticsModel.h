#pragma once

#include "vantro/support/Statistics.h"

#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace vantro {

/// The view model of the page "Statistics". Main thread; lives as long as its window.
class StatisticsModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(bool isKept READ isKept WRITE setKept NOTIFY changed)
    Q_PROPERTY(QString total READ total NOTIFY changed)
    Q_PROPERTY(QString saved READ saved NOTIFY changed)
    Q_PROPERTY(QVariantList bars READ bars NOTIFY changed)
    Q_PROPERTY(QString best READ best NOTIFY changed)
public:
    /// Days in the chart.
    static constexpr int shownDays = 30;

    /// Both must outlive the model.
    StatisticsModel(Statistics& statistics, Clock& clock);

    [[nodiscard]] bool isKept() const { return statistics_.isKept(); }
    void setKept(bool on) { statistics_.setKept(on); }
    /// What was dictated in the year, in a sentence.
    [[nodiscard]] QString total() const;
    /// The time that typing would have taken more; empty when it is not worth a word.
    [[nodiscard]] QString saved() const;
    /// Of each day, the oldest first: "height", 0..1, "words" and "name".
    [[nodiscard]] QVariantList bars() const;
    /// The day with the most words, in a sentence.
    [[nodiscard]] QString best() const;

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] int mostWords() const;

    Statistics& statistics_;
    Clock& clock_;
};

} // namespace vantro
