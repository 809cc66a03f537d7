#pragma once

#include <QLoggingCategory>
#include <QString>

#include <vector>

namespace vantro {

/// Takes a log line of the type named @p typeName. Called on the thread that logs.
using LogSink = void (*)(QtMsgType level, const char* typeName, const QString& line);

/// One "vantro[Type] level: text" line on standard error.
void logToStandardError(QtMsgType level, const char* typeName, const QString& line);

/// Routes log lines to @p sinks, debug lines only when @p verbose. Call once from main before the first logger is used.
void installLogOutput(bool verbose, std::vector<LogSink> sinks);

} // namespace vantro
