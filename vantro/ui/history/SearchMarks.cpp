#include "vantro/ui/history/SearchMarks.h"

#include "vantro/store/SearchText.h"

#include <QSyntaxHighlighter>

namespace vantro {

/// Each line by itself: no hit spans two.
class SearchMarks::Highlighter final : public QSyntaxHighlighter
{
public:
    Highlighter(QTextDocument* document, const SearchMarks& marks) : QSyntaxHighlighter(document), marks_(marks) {}

protected:
    void highlightBlock(const QString& text) override
    {
        QTextCharFormat format;
        format.setBackground(marks_.color_);
        for (const SearchHit& hit : searchHits(text, SearchQuery(marks_.search_)))
            setFormat(static_cast<int>(hit.begin), static_cast<int>(hit.length), format);
    }

private:
    const SearchMarks& marks_;
};

SearchMarks::SearchMarks(QObject* parent) : QObject(parent)
{
    connect(this, &SearchMarks::changed, this, [this] {
        if (highlighter_)
            static_cast<Highlighter*>(highlighter_.data())->rehighlight();
    });
}

SearchMarks::~SearchMarks()
{
    delete highlighter_;
}

void SearchMarks::setDocument(QQuickTextDocument* document)
{
    delete highlighter_;
    document_ = document;
    if (document != nullptr)
        highlighter_ = new Highlighter(document->textDocument(), *this);
    Q_EMIT changed();
}

} // namespace vantro
