#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantro {

/// The kind of provider, which decides the format of requests.
enum class RemoteProviderType { OpenAI, Anthropic, Gemini, Custom };

inline constexpr std::array allRemoteProviderTypes{RemoteProviderType::OpenAI, RemoteProviderType::Anthropic,
                                                   RemoteProviderType::Gemini, RemoteProviderType::Custom};

/// "OpenAI", "Anthropic", "Gemini", "Custom": stored, and used as the prefix of log lines.
QString rawValue(RemoteProviderType type);
/// "OpenAI", "Anthropic", "Google Gemini", "Custom (OpenAI-compatible)": shown to users.
QString displayName(RemoteProviderType type);
/// The page on which the provider's customers make keys; empty for servers of one's own.
QString keyPage(RemoteProviderType type);
/// Accepts either name, in any case.
std::optional<RemoteProviderType> remoteProviderType(const QString& name);

} // namespace vantro
