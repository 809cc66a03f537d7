#pragma once

#include <QLoggingCategory>
#include <QString>

#include <string>

namespace vantro {

/// One logger per type: the category is "com.vantro.app." and the type's name, so that QT_LOGGING_RULES or a journal
/// filter picks one type's lines. Any thread except the audio thread, which logs nothing.
class Logger
{
public:
    explicit Logger(const char* typeName);

    void debug(const QString& line) const;
    void info(const QString& line) const;
    void error(const QString& line) const;

private:
    std::string name_;
    QLoggingCategory category_;
};

/// A plain progress line of the desktop program ("Attempting to paste..."), written to standard output unless
/// printToStandardError() has moved such lines out of the way of a command's real output.
void printLine(const QString& line);
void printToStandardError();

} // namespace vantro
