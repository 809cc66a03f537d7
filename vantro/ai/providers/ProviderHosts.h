#pragma once

#include <QString>

namespace vantro {

/// The base addresses of the three public providers.
struct ProviderHosts
{
    QString openAI = QStringLiteral("https://api.openai.com");
    QString anthropic = QStringLiteral("https://api.anthropic.com");
    QString gemini = QStringLiteral("https://generativelanguage.googleapis.com");
};

} // namespace vantro
