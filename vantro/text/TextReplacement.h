#pragma once

#include <QString>
#include <QUuid>

namespace vantro {

/// A replacement applied to transcripts.
struct TextReplacement
{
    QUuid id;
    QString find;    ///< as the user typed it
    QString replace; ///< may be empty: the word is deleted

    bool operator==(const TextReplacement&) const = default;
};

} // namespace vantro
