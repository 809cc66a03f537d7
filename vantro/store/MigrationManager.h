#pragma once

#include "base/UserDefaults.h"
#include "vantro/store/CoreDataStack.h"

#include <QString>

#include <functional>

namespace vantro {

/// Two repairs of the history, each run once per user, before the first dictation. Trimming comes first, so that
/// whitespace-only rows are empty when the second repair runs. A failed repair is printed and not retried. Main thread;
/// never throws.
class MigrationManager
{
public:
    MigrationManager(UserDefaults& userDefaults, CoreDataStack& coreDataStack);

    /// Trims every text.
    void runTranscriptionTrimMigrationIfNeeded();
    /// Deletes dictations without text.
    void runEmptyTranscriptionDeleteMigrationIfNeeded();

private:
    struct Repair
    {
        const Setting<bool>& isDone;
        QString name;     ///< as in "Running NAME..."
        QString headline; ///< the same, capitalised
        std::function<void()> run;
    };

    void runIfNeeded(const Repair& repair);
    void trimTranscriptions();
    void deleteEmptyTranscriptions();

    UserDefaults& userDefaults_;
    CoreDataStack& coreDataStack_;
};

} // namespace vantro
