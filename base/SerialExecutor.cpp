#include "base/SerialExecutor.h"

namespace vantro {

SerialExecutor::SerialExecutor(const QString& threadName)
{
    pool_.setObjectName(threadName);
    pool_.setMaxThreadCount(1);
    // The thread keeps its caches (and an inference library its thread-local state) between dictations.
    pool_.setExpiryTimeout(-1);
}

SerialExecutor::~SerialExecutor()
{
    pool_.waitForDone();
}

} // namespace vantro
