// A window with a text field that records when new text is on the screen: one line per change in the file named on the
// command line, with the monotonic clock in microseconds and the number of characters.
#include <QApplication>
#include <QFile>
#include <QPlainTextEdit>

#include <chrono>
#include <utility>

namespace {

class Field final : public QPlainTextEdit
{
public:
    explicit Field(const QString& path) : record_(path)
    {
        if (!record_.open(QFile::WriteOnly))
            qFatal("The record cannot be written");
        connect(this, &QPlainTextEdit::textChanged, this, [this] { changed_ = true; });
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPlainTextEdit::paintEvent(event);
        // Painted content reaches the X server before the next event is handled.
        if (std::exchange(changed_, false))
            QMetaObject::invokeMethod(this, &Field::note, Qt::QueuedConnection);
    }

private:
    void note()
    {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const auto us = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
        record_.write(QByteArray::number(qint64{us}) + ' ' + QByteArray::number(toPlainText().size()) + '\n');
        record_.flush();
    }

    QFile record_;
    bool changed_ = false;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Field field(QString::fromLocal8Bit(argv[argc - 1]));
    field.setWindowTitle(QStringLiteral("vantro bench target"));
    field.resize(600, 300);
    field.show();
    return QApplication::exec();
}
