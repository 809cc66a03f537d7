#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantro {

/// Whose language model rewrites, and with that the shape of a request.
enum class RemoteProviderType { OpenAI, Anthropic, Gemini, Custom };

inline constexpr std::array allRemoteProviderTypes{RemoteProviderType::OpenAI, RemoteProviderType::Anthropic,
                                                   RemoteProviderType::Gemini, RemoteProviderType::Custom};

/// "OpenAI", "Anthropic", "Gemini", "Custom": what is stored, and what log lines begin with.
QString rawValue(RemoteProviderType type);
/// "OpenAI", "Anthropic", "Google Gemini", "Custom (OpenAI-compatible)": what users read.
QString displayName(RemoteProviderType type);
/// Takes either name, in upper or lower case.
std::optional<RemoteProviderType> remoteProviderType(const QString& name);

} // namespace vantro
