#pragma once

#include <QString>

#include <functional>

namespace vantro {

/// Asks the user where to write dictations to, with @p name in the documents' folder to begin with; the format follows
/// from the extension. Calls @p chosen with the path unless the user cancels. Main thread.
void chooseFileToWrite(const QString& name, std::function<void(QString)> chosen);
/// The same for a list of words or replacements.
void chooseListToWrite(const QString& name, std::function<void(QString)> chosen);
/// Asks for the file of such a list that is to be read.
void chooseListToRead(std::function<void(QString)> chosen);

} // namespace vantro
