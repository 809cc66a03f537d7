#pragma once

#include "vantro/ai/FormatRequestServicing.h"
#include "vantro/ai/ProcessingMode.h"

#include <QString>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <optional>

namespace vantro {

/// Cleans a text by rules, at once; nullopt when the mode is not set up so.
using Cleaning = std::function<std::optional<QString>(ProcessingMode, const QString&)>;

/// Processes a transcript in one mode: stores it, has it rewritten if the mode asks for it, and returns the text to
/// deliver. Main thread.
class ModeHandler
{
public:
    virtual ~ModeHandler() = default;

    /// @p service: the mode's language model. Throws Error; anything already stored is kept. When that is
    /// AnswerSetAside, the transcript is to be delivered.
    virtual QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) = 0;
};

} // namespace vantro
