// Preloaded into the program: ends it when another thread than the first changes the environment, which any thread may
// be reading at that moment.
#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

void requireFirstThread(const char* name)
{
    if (gettid() == getpid())
        return;
    std::fprintf(stderr, "environment changed on another thread: %s\n", name);
    std::_Exit(99);
}

template <typename Function>
Function* original(const char* function)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, function));
}

} // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's functions
extern "C" int setenv(const char* name, const char* value, int overwrite) noexcept
{
    if (overwrite != 0 || std::getenv(name) == nullptr)
        requireFirstThread(name);
    return original<decltype(setenv)>("setenv")(name, value, overwrite);
}

extern "C" int unsetenv(const char* name) noexcept
{
    requireFirstThread(name);
    return original<decltype(unsetenv)>("unsetenv")(name);
}

extern "C" int putenv(char* entry) noexcept
{
    requireFirstThread(entry);
    return original<decltype(putenv)>("putenv")(entry);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
