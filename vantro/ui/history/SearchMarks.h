#pragma once

#include <QColor>
#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

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
    QPointer<QObject> highlighter_; ///< owned by the document, which may go first
};

} // namespace vantro
