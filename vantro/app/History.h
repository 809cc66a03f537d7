#pragma once

#include "vantro/app/LenientStore.h"
#include "vantro/store/CoreDataStack.h"
#include "vantro/store/MigrationManager.h"

namespace vantro {

/// Everything about what was dictated: the store, how dictations write into it, and its repairs. The constructor opens
/// nothing. Main thread.
struct History
{
    History(UserDefaults& defaults, Clock& clock) : store(clock), migrations(defaults, store) {}

    CoreDataStack store;
    LenientStore dictations{store};
    MigrationManager migrations;
};

} // namespace vantro
