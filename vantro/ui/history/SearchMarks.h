#pragma once

#include <QColor>
#include <QObject>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace vantro {

/// Marks what is searched for in the text of a QML TextEdit. Main thread.
class SearchMarks : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument* document MEMBER document_ WRITE setDocument NOTIFY changed)
    Q_PROPERTY(QString search MEMBER search_ NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
public:
    explicit SearchMarks(QObject* parent = nullptr);
    ~SearchMarks() override;

    void setDocument(QQuickTextDocument* document);

Q_SIGNALS:
    void changed();

private:
    class Highlighter;

    QQuickTextDocument* document_ = nullptr;
    QString search_;
    QColor color_;
    std::unique_ptr<Highlighter> highlighter_;
};

} // namespace vantro
