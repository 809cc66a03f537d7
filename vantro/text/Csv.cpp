#include "vantro/text/Csv.h"

#include "base/Error.h"

#include <QCoreApplication>

namespace vantro {

namespace {

class Parser
{
public:
    explicit Parser(const QString& text) : text_(text), position_(text.startsWith(QChar(0xFEFF)) ? 1 : 0) {}

    std::vector<QStringList> rows()
    {
        std::vector<QStringList> rows;
        while (!atEnd()) {
            const QStringList fields = row();
            if (fields != QStringList(QString()))
                rows.push_back(fields);
        }
        return rows;
    }

private:
    [[nodiscard]] bool atEnd() const { return position_ >= text_.size(); }
    [[nodiscard]] bool at(QChar character) const { return !atEnd() && text_[position_] == character; }

    QStringList row()
    {
        QStringList fields{field()};
        while (at(QLatin1Char(','))) {
            ++position_;
            fields << field();
        }
        if (at(QLatin1Char('\r')))
            ++position_;
        if (at(QLatin1Char('\n')))
            ++position_;
        ++line_;
        return fields;
    }

    QString field()
    {
        if (at(QLatin1Char('"')))
            return quotedField();
        const qsizetype start = position_;
        while (!atEnd() && !endsField())
            ++position_;
        return text_.sliced(start, position_ - start);
    }

    QString quotedField()
    {
        const int begun = line_;
        QString field;
        for (++position_; !atEnd(); ++position_) {
            if (at(QLatin1Char('\n')))
                ++line_;
            if (at(QLatin1Char('"'))) {
                ++position_;
                if (!at(QLatin1Char('"'))) {
                    if (!atEnd() && !endsField())
                        throw Error(QCoreApplication::translate("Csv", "line %1: there is text after a closing quote")
                                        .arg(line_));
                    return field;
                }
            }
            field += text_[position_];
        }
        throw Error(QCoreApplication::translate("Csv", "line %1: a quote is not closed").arg(begun));
    }

    [[nodiscard]] bool endsField() const
    {
        return at(QLatin1Char(',')) || at(QLatin1Char('\n')) ||
               (at(QLatin1Char('\r')) && position_ + 1 < text_.size() && text_[position_ + 1] == QLatin1Char('\n'));
    }

    const QString& text_;
    qsizetype position_;
    int line_ = 1;
};

} // namespace

std::vector<QStringList> csv::parse(const QString& text)
{
    return Parser(text).rows();
}

QString csv::line(const QStringList& fields)
{
    QStringList quoted;
    for (QString field : fields) {
        const bool needsQuotes = field.contains(QLatin1Char(',')) || field.contains(QLatin1Char('"')) ||
                                 field.contains(QLatin1Char('\n')) || field.contains(QLatin1Char('\r')) ||
                                 field.startsWith(QLatin1Char(' ')) || field.endsWith(QLatin1Char(' '));
        if (needsQuotes)
            field = QLatin1Char('"') + field.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
        quoted << field;
    }
    return quoted.join(QLatin1Char(','));
}

} // namespace vantro
