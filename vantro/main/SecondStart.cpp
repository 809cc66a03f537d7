#include "vantro/main/SecondStart.h"

#include "base/Logger.h"
#include "vantro/app/ControlService.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Terminal.h"
#include "vantro/main/SoleInstance.h"

namespace vantro {

int endSecondStart(const SoleInstance& other, const QStringList& arguments)
{
    const QString holder = other.holder();
    const QString place = holder.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(holder);
    const QString message = QStringLiteral("vantro is already running") + place;
    if (ControlService::handOver(arguments) || other.handOver(arguments)) {
        printLine(message);
        return ExitCode::done;
    }
    terminal::writeError(message + QStringLiteral(" and does not answer"));
    return ExitCode::failed;
}

} // namespace vantro
