#pragma once

#include "base/Error.h"

#include <QCoreApplication>

namespace vantro {

/// Why the system's own language model did not rewrite a text.
class LocalFormatError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(LocalFormatError)
public:
    enum class Kind {
        generationFailed,
        modelUnavailable,
        modelNotReady,
        appleIntelligenceNotEnabled,
        contextWindowExceeded,
    };

    /// One of the kinds that need no further words.
    explicit LocalFormatError(Kind kind);
    static LocalFormatError generationFailed(const QString& detail);

    [[nodiscard]] Kind kind() const { return kind_; }
    /// Of generationFailed.
    [[nodiscard]] const QString& detail() const { return detail_; }

private:
    LocalFormatError(Kind kind, const QString& description, const QString& detail);

    Kind kind_;
    QString detail_;
};

} // namespace vantro
