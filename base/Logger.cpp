#include "base/Logger.h"

#include "base/LogOutput.h"

#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <utility>

namespace vantro {

namespace {

constexpr char subsystem[] = "com.vantro.app";

std::atomic<FILE*> printStream{stdout};

const char* levelName(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "debug";
    case QtInfoMsg:
        return "info";
    case QtWarningMsg:
        return "warning";
    default:
        return "error";
    }
}

/// Set before the first line is logged and constant from then on.
std::vector<LogSink> logSinks;

void distribute(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const char* category = context.category != nullptr ? context.category : "";
    if (std::strncmp(category, subsystem, sizeof subsystem - 1) == 0 && category[sizeof subsystem - 1] == '.')
        category += sizeof subsystem;
    for (const LogSink sink : logSinks)
        sink(type, category, text);
}

} // namespace

Logger::Logger(const char* typeName)
    : name_(std::string(subsystem) + '.' + typeName)
    , category_(name_.c_str(), QtDebugMsg)
{
}

void Logger::debug(const QString& line) const
{
    qCDebug(category_).noquote() << line;
}

void Logger::info(const QString& line) const
{
    qCInfo(category_).noquote() << line;
}

void Logger::error(const QString& line) const
{
    qCCritical(category_).noquote() << line;
}

void logToStandardError(QtMsgType level, const char* typeName, const QString& line)
{
    std::fprintf(stderr, "vantro[%s] %s: %s\n", typeName, levelName(level), qUtf8Printable(line));
}

void logErrorsToStandardError(QtMsgType level, const char* typeName, const QString& line)
{
    if (level != QtDebugMsg && level != QtInfoMsg)
        logToStandardError(level, typeName, line);
}

void installLogOutput(bool verbose, std::vector<LogSink> sinks)
{
    logSinks = std::move(sinks);
    if (!verbose)
        QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\ncom.vantro.app.*.debug=false"));
    qInstallMessageHandler(distribute);
}

void printLine(const QString& line)
{
    FILE* stream = printStream.load();
    std::fprintf(stream, "%s\n", qUtf8Printable(line));
    std::fflush(stream);
}

void printToPerson(const QString& line)
{
    if (::isatty(::fileno(printStream.load())) != 0)
        printLine(line);
}

void printToStandardError()
{
    printStream.store(stderr);
}

} // namespace vantro
