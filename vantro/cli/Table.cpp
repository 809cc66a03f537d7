// Tables for people, as wide as their terminal at most.
#include "vantro/cli/Terminal.h"

#include <algorithm>
#include <numeric>
#include <span>

namespace vantro {

namespace {

constexpr qsizetype gap = 2;
/// No column gets narrower for others.
constexpr qsizetype leastWidth = 8;

/// Breaks at spaces, and within words that are longer than a line.
QStringList wrapped(const QString& text, qsizetype width)
{
    QStringList lines;
    QString rest = text;
    while (rest.size() > width) {
        qsizetype end = rest.lastIndexOf(QLatin1Char(' '), width);
        if (end <= 0)
            end = width;
        lines << rest.left(end).trimmed();
        rest = rest.mid(end).trimmed();
    }
    return lines << rest;
}

std::vector<qsizetype> naturalWidths(const std::vector<QStringList>& rows)
{
    std::vector<qsizetype> widths(static_cast<std::size_t>(rows.front().size()), 0);
    for (const QStringList& row : rows) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], row[static_cast<qsizetype>(i)].size());
    }
    return widths;
}

/// Takes from the widest column until the table fits.
void fit(std::vector<qsizetype>& widths, qsizetype most)
{
    const auto total = [&widths] {
        return std::accumulate(widths.begin(), widths.end(), static_cast<qsizetype>(widths.size() - 1) * gap);
    };
    for (auto widest = std::ranges::max_element(widths); total() > most && *widest > leastWidth;
         widest = std::ranges::max_element(widths))
        --*widest;
}

void writeRow(const QStringList& row, const std::vector<qsizetype>& widths, bool isTitle)
{
    std::vector<QStringList> cells;
    qsizetype height = 1;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        cells.push_back(wrapped(row[static_cast<qsizetype>(i)], widths[i]));
        height = std::max(height, cells.back().size());
    }
    for (qsizetype number = 0; number < height; ++number) {
        QString line;
        for (std::size_t i = 0; i < widths.size(); ++i)
            line += cells[i].value(number).leftJustified(widths[i] + gap);
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        terminal::writeLine(isTitle ? terminal::bold(line) : line);
    }
}

} // namespace

void terminal::writeTable(const std::vector<QStringList>& rows)
{
    if (!outputIsTerminal()) {
        for (const QStringList& row : std::span(rows).subspan(1))
            writeLine(row.join(QLatin1Char('\t')));
        return;
    }
    auto widths = naturalWidths(rows);
    fit(widths, outputWidth());
    for (const QStringList& row : rows)
        writeRow(row, widths, &row == &rows.front());
}

} // namespace vantro
