#include "base/FaultStack.h"

#include <csignal>

namespace vantro {

FaultStack::FaultStack()
{
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    stack_t stack{};
    stack.ss_sp = memory_.data();
    stack.ss_size = memory_.size();
    sigaltstack(&stack, nullptr);
#endif
}

FaultStack::~FaultStack()
{
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    stack_t none{};
    none.ss_flags = SS_DISABLE;
    sigaltstack(&none, nullptr);
#endif
}

} // namespace vantro
