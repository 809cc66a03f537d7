#pragma once

#include "vantro/ai/FormatRequestServicing.h"

namespace vantro {

/// The system's own language model. No supported system has one yet, so every request fails with
/// LocalFormatError::Kind::modelUnavailable.
class LocalFormatService final : public FormatRequestServicing
{
public:
    QCoro::Task<QString> format(QString prompt, QString text) override;
};

} // namespace vantro
