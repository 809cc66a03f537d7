#pragma once

#include <QString>
#include <QUuid>

namespace vantro {

/// What is to be written where the engine wrote something else.
struct TextReplacement
{
    QUuid id;
    QString find;    ///< as the user typed it
    QString replace; ///< may be empty: the word is deleted

    bool operator==(const TextReplacement&) const = default;
};

} // namespace vantro
