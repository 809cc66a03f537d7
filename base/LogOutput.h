#pragma once

#include <QLoggingCategory>
#include <QString>

#include <vector>

namespace vantro {

/// Receives a log line from the type @p typeName. Called on the logging thread.
using LogSink = void (*)(QtMsgType level, const char* typeName, const QString& line);

/// Writes "vantro[Type] level: text" to standard error.
void logToStandardError(QtMsgType level, const char* typeName, const QString& line);

/// Errors only, for commands: their output is for scripts and people.
void logErrorsToStandardError(QtMsgType level, const char* typeName, const QString& line);

/// Routes log lines to @p sinks, debug lines only if @p verbose. Call once from main, before any logger is used.
void installLogOutput(bool verbose, std::vector<LogSink> sinks);

} // namespace vantro
