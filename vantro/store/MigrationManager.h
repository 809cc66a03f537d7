#pragma once

#include "base/UserDefaults.h"
#include "vantro/store/CoreDataStack.h"

#include <QString>

#include <functional>

namespace vantro {

/// Two repairs of the history, each run once per user, at the launch before the first dictation: the trim repair first,
/// so that a row which held only white space is empty when the second one looks. A repair that fails is printed and not
/// tried again. Main thread; never throws.
class MigrationManager
{
public:
    MigrationManager(UserDefaults& userDefaults, CoreDataStack& coreDataStack);

    /// Takes white space off both ends of every text.
    void runTranscriptionTrimMigrationIfNeeded();
    /// Deletes the dictations without a text.
    void runEmptyTranscriptionDeleteMigrationIfNeeded();

private:
    struct Repair
    {
        const Setting<bool>& isDone;
        QString name;     ///< as in "Running NAME..."
        QString headline; ///< the same with a capital
        std::function<void()> run;
    };

    void runIfNeeded(const Repair& repair);
    void trimTranscriptions();
    void deleteEmptyTranscriptions();

    UserDefaults& userDefaults_;
    CoreDataStack& coreDataStack_;
};

} // namespace vantro
