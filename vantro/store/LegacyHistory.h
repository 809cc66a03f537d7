#pragma once

#include "vantro/store/PersistentContainer.h"

#include <QString>

namespace vantro {

/// The history as versions before the store kept it: "history.jsonl" with one JSON object a line, a line per dictation
/// and a line per later change of one.
class LegacyHistory
{
public:
    /// @p folder: where the file may lie.
    explicit LegacyHistory(const QString& folder);

    /// Takes all its rows over, once, and keeps the file beside under another name. A line that cannot be read stays in
    /// that file. Throws StoreError; then nothing was taken over and the file has its name.
    void importInto(const PersistentContainer& container) const;

private:
    [[nodiscard]] QString nameAside() const;

    QString path_;
};

} // namespace vantro
