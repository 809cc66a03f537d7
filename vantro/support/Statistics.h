#pragma once

#include "base/Clock.h"
#include "base/UserDefaults.h"

#include <QDate>
#include <QObject>

#include <chrono>
#include <map>

namespace vantro {

/// How much is dictated, a number a day, without a word of what. Kept in a file, for a year, and only while the user
/// wants it ("keepStatistics"). Main thread.
class Statistics final : public QObject
{
    Q_OBJECT
public:
    struct Day
    {
        int dictations = 0;
        int words = 0;
        std::chrono::seconds spoken{};

        bool operator==(const Day&) const = default;
    };

    /// @p defaults and @p clock must outlive this object. @p path: of the file, whose folder exists.
    Statistics(UserDefaults& defaults, Clock& clock, QString path);

    void add(const QString& text, std::chrono::seconds spoken);
    [[nodiscard]] const std::map<QDate, Day>& days() const { return days_; }
    [[nodiscard]] Day total() const;
    [[nodiscard]] bool isKept() const;
    /// Switching off forgets what there is.
    void setKept(bool on);

    /// What a usual typist would have needed more than the speaker; never negative.
    [[nodiscard]] static std::chrono::minutes saved(const Day& day);
    /// Of scripts without spaces, two characters count as a word.
    [[nodiscard]] static int wordsIn(const QString& text);

Q_SIGNALS:
    void changed();

private:
    void read();
    void write();

    UserDefaults& defaults_;
    Clock& clock_;
    QString path_;
    std::map<QDate, Day> days_;
};

} // namespace vantro
