#include "vantro/cli/RewritingExit.h"

#include "vantro/ai/AnswerSetAside.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/ProvidersSession.h"

namespace vantro {

int rewritingExitCode(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const AnswerSetAside&) {
        return ExitCode::setAside;
    } catch (const Error& error) {
        return providersExitCode(error);
    } catch (...) {
        return ExitCode::failed;
    }
}

} // namespace vantro
