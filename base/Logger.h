#pragma once

#include <QLoggingCategory>
#include <QString>

#include <string>

namespace vantro {

/// One logger per type, with the category "com.vantro.app.TYPE", so that QT_LOGGING_RULES or a journal filter can
/// select one type's lines. Any thread except the audio thread, which must not log.
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

/// Prints a progress line of the desktop program ("Attempting to paste...") to standard output, or to standard error
/// after printToStandardError(), which commands call to keep their own output clean.
void printLine(const QString& line);
/// The same for a line with words of the user: only where a person reads it at a terminal. A journal would keep what is
/// deleted from the history.
void printToPerson(const QString& line);
void printToStandardError();

} // namespace vantro
