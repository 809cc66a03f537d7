#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vantro {

/// Comma-separated values (RFC 4180); lines may end in LF alone. Any thread.
namespace csv {

/// Returns the rows of @p text without a byte order mark and empty lines. Throws Error with the line number for an
/// unclosed quote or text after a closing one.
std::vector<QStringList> parse(const QString& text);
/// Returns one line without its line ending; quotes fields if necessary.
QString line(const QStringList& fields);

} // namespace csv

} // namespace vantro
