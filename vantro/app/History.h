#pragma once

#include "vantro/app/LenientStore.h"
#include "vantro/store/CoreDataStack.h"
#include "vantro/store/MigrationManager.h"

namespace vantro {

/// The history of dictations: the store, the way dictations write to it, and its migrations. The constructor opens
/// nothing. Main thread.
struct History
{
    History(UserDefaults& defaults, Clock& clock) : store(clock), migrations(defaults, store) {}

    CoreDataStack store;
    LenientStore dictations{store};
    MigrationManager migrations;
};

} // namespace vantro
