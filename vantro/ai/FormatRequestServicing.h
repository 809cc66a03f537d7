#pragma once

#include <QString>
#include <qcoro/qcorotask.h>

namespace vantro {

/// A language model that rewrites a text by an instruction. One object serves one dictation. Main thread.
class FormatRequestServicing
{
public:
    virtual ~FormatRequestServicing() = default;

    /// A text is on its way: whatever can be had without it may be fetched now. Asking for nothing is allowed.
    virtual void prepare() {}
    /// The rewritten text; throws an Error. @p prompt says what to do with @p text.
    virtual QCoro::Task<QString> format(QString prompt, QString text) = 0;
};

} // namespace vantro
