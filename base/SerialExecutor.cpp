#include "base/SerialExecutor.h"

#include "base/FaultStack.h"

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

void SerialExecutor::prepareThread()
{
    // On the heap: a thread_local object itself would take as much memory in every other thread.
    thread_local const auto stack = std::make_unique<FaultStack>();
}

} // namespace vantro
