#pragma once

#include "platform/Pasteboard.h"

#include <QByteArray>

#include <vector>

namespace vantro {

/// What password managers offer beside a password, for clipboard histories to leave it out.
inline constexpr char secretType[] = "x-kde-passwordManagerHint";
inline constexpr char secretValue[] = "secret";

/// A selection in all its formats.
struct ClipboardContents final : Pasteboard::Contents
{
    struct Format
    {
        QByteArray mimeType;
        QByteArray bytes;
    };
    std::vector<Format> formats;
};

} // namespace vantro
