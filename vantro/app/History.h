#pragma once

#include "vantro/app/LenientStore.h"
#include "vantro/store/CoreDataStack.h"
#include "vantro/store/HistoryJobs.h"
#include "vantro/store/KeptAudio.h"
#include "vantro/store/MigrationManager.h"
#include "vantro/store/Retention.h"

namespace vantro {

/// The history of dictations: the store, the recordings beside it, the way dictations write to it, and its migrations.
/// The constructor opens nothing. Main thread.
struct History
{
    History(UserDefaults& defaults, Clock& clock)
        : store(clock)
        , audio(defaults, store, clock)
        , retention(defaults, jobs, clock)
        , migrations(defaults, store)
    {
    }

    CoreDataStack store;
    HistoryJobs jobs{store};
    KeptAudio audio;
    Retention retention;
    LenientStore dictations{store, [this] {
                                return retention.isKeeping();
                            }};
    MigrationManager migrations;
};

} // namespace vantro
