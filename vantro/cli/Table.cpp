#include "vantro/cli/Table.h"

#include "vantro/cli/Terminal.h"

#include <algorithm>
#include <span>

namespace vantro {

void terminal::writeTable(const std::vector<QStringList>& rows)
{
    if (!outputIsTerminal()) {
        for (const QStringList& row : std::span(rows).subspan(1))
            writeLine(row.join(QLatin1Char('\t')));
        return;
    }
    std::vector<qsizetype> widths(static_cast<std::size_t>(rows.front().size()), 0);
    for (const QStringList& row : rows) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], row[static_cast<qsizetype>(i)].size());
    }
    for (const QStringList& row : rows) {
        QString line;
        for (std::size_t i = 0; i < widths.size(); ++i)
            line += row[static_cast<qsizetype>(i)].leftJustified(widths[i] + 2);
        writeLine(line.trimmed());
    }
}

} // namespace vantro
