#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vantro {

/// Comma-separated values as RFC 4180 describes them; lines may end in LF alone. Any thread.
namespace csv {

/// The rows of @p text, a byte order mark and empty lines left out. Throws an Error that names the line where a quote
/// is not closed or text stands beside a closing one.
std::vector<QStringList> parse(const QString& text);
/// One line, without its end. Fields are quoted where they must be.
QString line(const QStringList& fields);

} // namespace csv

} // namespace vantro
