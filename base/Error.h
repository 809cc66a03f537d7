#pragma once

#include <QString>

#include <exception>
#include <string>

namespace vantro {

/// Base of every failure that can reach the user. Each error enumeration is one class derived from it; the description
/// is a whole sentence that says what was wrong and, where the user can do something, what to do.
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

/// The description of whatever was thrown: an Error's own words, what() of any other standard exception.
QString localizedDescription(const std::exception& error);

} // namespace vantro
