#pragma once

#include <QString>
#include <qcoro/qcorotask.h>

namespace vantro {

/// A language model that rewrites a text by an instruction. One object serves one dictation. Main thread.
class FormatRequestServicing
{
public:
    virtual ~FormatRequestServicing() = default;

    /// The rewritten text; throws an Error.
    virtual QCoro::Task<QString> format(QString prompt, QString text) = 0;
};

} // namespace vantro
