#pragma once

#include "vantro/ai/FormatRequestServicing.h"

#include <QString>
#include <qcoro/qcorotask.h>

#include <memory>

namespace vantro {

/// Runs one transcript through one mode: stores it, has it rewritten where the mode calls for that, and answers with
/// the text to deliver. Main thread.
class ModeHandler
{
public:
    virtual ~ModeHandler() = default;

    /// @p service: the mode's language model. Throws an Error; what was stored until then stays.
    virtual QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) = 0;
};

} // namespace vantro
