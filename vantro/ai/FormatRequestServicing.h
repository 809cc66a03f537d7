#pragma once

#include <QString>
#include <qcoro/qcorotask.h>

#include <functional>

namespace vantro {

/// A language model that rewrites a text as a prompt tells it to. One object per dictation. Main thread.
class FormatRequestServicing
{
public:
    virtual ~FormatRequestServicing() = default;

    /// Who does it, for the user; may be empty.
    [[nodiscard]] virtual QString name() const { return {}; }
    /// Called when a text is expected, so that keys, connections and models can be fetched early. format() need not
    /// follow, nor come with the same prompt.
    virtual void prepare(const QString& /*prompt*/) {}
    /// @p onText gets each piece of the answer that format() waits for, where the model tells; on any thread.
    virtual void listen(std::function<void(const QString&)> /*onText*/) {}
    /// Called once the language is known in which the text was spoken, as a code such as "es".
    virtual void expectLanguage(const QString& /*code*/) {}
    /// Returns @p text rewritten as @p prompt says. Throws Error.
    virtual QCoro::Task<QString> format(QString prompt, QString text) = 0;
};

} // namespace vantro
