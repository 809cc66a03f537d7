#pragma once

#include "base/Error.h"

#include <QCoreApplication>

namespace vantro {

/// Why the system's own language model failed to rewrite a text.
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

    /// For every kind but generationFailed.
    explicit LocalFormatError(Kind kind);
    static LocalFormatError generationFailed(const QString& detail);

    [[nodiscard]] Kind kind() const { return kind_; }
    /// For generationFailed only.
    [[nodiscard]] const QString& detail() const { return detail_; }

private:
    LocalFormatError(Kind kind, const QString& description, const QString& detail);

    Kind kind_;
    QString detail_;
};

} // namespace vantro
