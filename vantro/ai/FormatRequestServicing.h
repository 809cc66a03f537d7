#pragma once

#include <QString>
#include <qcoro/qcorotask.h>

namespace vantro {

/// A language model that rewrites a text as a prompt tells it to. One object per dictation. Main thread.
class FormatRequestServicing
{
public:
    virtual ~FormatRequestServicing() = default;

    /// Called when a text is expected, so that keys and connections can be fetched early. format() need not follow.
    virtual void prepare() {}
    /// Returns @p text rewritten as @p prompt says. Throws Error.
    virtual QCoro::Task<QString> format(QString prompt, QString text) = 0;
};

} // namespace vantro
