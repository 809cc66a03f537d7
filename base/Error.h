#pragma once

#include <QString>

#include <exception>
#include <string>

namespace vantro {

/// Base of all errors that can reach the user. The description is a whole sentence that says what went wrong and,
/// where possible, what to do.
class Error : public std::exception
{
public:
    explicit Error(QString description);

    [[nodiscard]] const QString& localizedDescription() const { return description_; }
    [[nodiscard]] const char* what() const noexcept override { return utf8_.c_str(); }

private:
    QString description_;
    std::string utf8_;
};

/// An Error's description, or what() of any other standard exception; in the user's language if it is listed in the
/// context "Exception".
QString localizedDescription(const std::exception& error);

} // namespace vantro
