#include "asr/Pieces.h"

#include <cstddef>

namespace vantro::asr {

void appendPiece(std::string& text, std::string_view piece)
{
    for (std::size_t i = 0; i < piece.size();) {
        if (piece.substr(i).starts_with(wordStart)) {
            if (!text.empty())
                text += ' ';
            i += wordStart.size();
        } else {
            text += piece[i++];
        }
    }
}

} // namespace vantro::asr
