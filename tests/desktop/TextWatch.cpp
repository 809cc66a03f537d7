// Preloaded into the program: notes the texts in its windows that are cut off or do not fit, one per line, in the file
// that VANTRO_TEXT_WATCH names.
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSet>
#include <QTimer>

#include <optional>
#include <utility>

namespace {

constexpr int lookEveryMs = 100;
/// Looks in a row that see a fault before it counts: a window that opens or moves is not laid out yet.
constexpr int seenBefore = 3;
/// A text is laid out on whole pixels.
constexpr qreal tolerance = 1.5;

bool isText(const QQuickItem& item)
{
    for (const QMetaObject* type = item.metaObject(); type != nullptr; type = type->superClass()) {
        if (QLatin1String(type->className()) == QLatin1String("QQuickText"))
            return true;
    }
    return false;
}

/// Nothing if it fits.
std::optional<QString> faultOf(const QQuickItem& text)
{
    if (text.property("truncated").toBool())
        return QStringLiteral("cut off");
    const qreal width = text.property("contentWidth").toReal();
    if (text.width() > 0 && width > text.width() + tolerance)
        return QStringLiteral("too wide by %1").arg(width - text.width());
    const qreal height = text.property("contentHeight").toReal();
    if (text.height() > 0 && height > text.height() + tolerance)
        return QStringLiteral("too high by %1").arg(height - text.height());
    const QRectF place = text.mapRectToScene({0, 0, width, height});
    if (place.left() < -tolerance || place.right() > text.window()->width() + tolerance)
        return QStringLiteral("beyond the edge");
    return std::nullopt;
}

class TextWatch
{
public:
    TextWatch() : file_(qEnvironmentVariable("VANTRO_TEXT_WATCH"))
    {
        if (!file_.open(QIODevice::WriteOnly | QIODevice::Append))
            return;
        QObject::connect(&timer_, &QTimer::timeout, [this] { look(); });
        timer_.start(lookEveryMs);
    }

private:
    void look()
    {
        const QHash<QString, int> before = std::exchange(seen_, {});
        for (QWindow* const window : QGuiApplication::allWindows()) {
            auto* const quick = qobject_cast<QQuickWindow*>(window);
            if (quick != nullptr && quick->isVisible())
                look(*quick->contentItem(), before);
        }
    }
    void look(const QQuickItem& item, const QHash<QString, int>& before)
    {
        if (!item.isVisible() || item.opacity() == 0)
            return;
        const QString text = isText(item) ? item.property("text").toString() : QString();
        if (const auto fault = text.isEmpty() ? std::nullopt : faultOf(item)) {
            const QString line = item.window()->title() + QStringLiteral(": ") + *fault + QStringLiteral(": ") + text;
            seen_[line] = before.value(line) + 1;
            if (seen_[line] >= seenBefore)
                note(line);
        } else if (!text.isEmpty()) {
            note(QStringLiteral("fits: ") + text);
        }
        for (const QQuickItem* const child : item.childItems())
            look(*child, before);
    }
    void note(QString line)
    {
        line.replace(QLatin1Char('\n'), QLatin1Char(' '));
        if (noted_.contains(line))
            return;
        noted_.insert(line);
        file_.write(line.toUtf8() + '\n');
        file_.flush();
    }

    QFile file_;
    QTimer timer_;
    QHash<QString, int> seen_; ///< faults of the latest look, and in how many looks in a row
    QSet<QString> noted_;
};

void begin()
{
    static TextWatch* const watch = new TextWatch; // ends with the process
    Q_UNUSED(watch);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)
