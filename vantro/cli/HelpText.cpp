#include "vantro/cli/HelpText.h"

#include <QRegularExpression>
#include <QStringList>

namespace vantro {

namespace {

constexpr QLatin1Char space(' ');
/// Where entries begin.
constexpr qsizetype entryIndent = 2;

qsizetype indentOf(const QString& line)
{
    qsizetype count = 0;
    while (count < line.size() && line[count] == space)
        ++count;
    return count;
}

/// Where the meaning of an entry begins; 0 when it is not on that line.
qsizetype meaningColumn(const QString& entry)
{
    static const QRegularExpression form(QStringLiteral("^  \\S.*?  +(?=\\S)"));
    return form.match(entry).capturedEnd() > 0 ? form.match(entry).capturedEnd() : 0;
}

/// A paragraph, or an entry, that further lines are joined to.
struct Block
{
    QString text;
    qsizetype indent = 0; ///< of all lines but the first
    bool isEntry = false;
};

bool goesOn(const Block& block, const QString& line)
{
    const qsizetype indent = indentOf(line);
    return !block.text.isEmpty() && !line.isEmpty() &&
           (block.isEntry ? indent > entryIndent && indent == block.indent : indent == 0);
}

} // namespace

QString wrapped(const QString& line, qsizetype indent)
{
    QStringList lines;
    QString rest = line;
    while (rest.size() > helpWidth) {
        const qsizetype end = rest.lastIndexOf(space, helpWidth);
        if (end <= indent)
            break;
        lines << rest.left(end);
        rest = QString(indent, space) + rest.mid(end + 1);
    }
    return (lines << rest).join(QLatin1Char('\n'));
}

QString reflowed(const QString& description)
{
    QStringList result;
    Block block;
    const auto finish = [&result, &block] {
        if (!block.text.isEmpty())
            result << wrapped(block.text, block.indent);
        block = {};
    };
    for (const QString& line : description.split(QLatin1Char('\n'))) {
        if (goesOn(block, line)) {
            block.text += space + line.trimmed();
            continue;
        }
        finish();
        const qsizetype indent = indentOf(line);
        const bool isEntry = indent == entryIndent;
        block = {line, isEntry ? meaningColumn(line) : indent, indent > 0};
        if (line.isEmpty())
            result << QString();
    }
    finish();
    return result.join(QLatin1Char('\n'));
}

} // namespace vantro
