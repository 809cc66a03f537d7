#include "base/SerialExecutor.h"

namespace vantro {

SerialExecutor::SerialExecutor(const QString& threadName)
{
    pool_.setObjectName(threadName);
    pool_.setMaxThreadCount(1);
    // Never expires: keeps warm caches, and an inference library's thread-local state, between dictations.
    pool_.setExpiryTimeout(-1);
}

SerialExecutor::~SerialExecutor()
{
    pool_.waitForDone();
}

} // namespace vantro
