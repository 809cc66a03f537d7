#pragma once

#include "platform/Workspace.h"

#include <QQuickView>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantro {

/// A window that exists only while it is open: closing it gives back what it and its view models took. It can be put
/// aside while a dictation is recorded. Main thread.
class LazyWindow final
{
public:
    struct Content
    {
        QVariantMap properties;                       ///< of the QML root, made when the window opens
        std::vector<std::unique_ptr<QObject>> models; ///< what the properties point to; live as long as the window
    };
    struct Look
    {
        QString title;
        QUrl source;
        QSize size;
        QSize minimumSize;
    };

    /// @p engine and @p workspace must outlive this object. @p makeContent is called whenever the window opens. A
    /// "closeRequested" signal of the QML root closes it.
    LazyWindow(QQmlEngine& engine, Workspace& workspace, Look look, std::function<Content()> makeContent);
    ~LazyWindow();
    LazyWindow(const LazyWindow&) = delete;
    LazyWindow& operator=(const LazyWindow&) = delete;

    /// Shows the window, or brings it forward, with the keyboard.
    void open();
    void close();
    /// The QML root; null while the window is closed.
    [[nodiscard]] QObject* root() const;
    /// Called after the window has been closed by whomever.
    void onClosed(std::function<void()> action) { closed_ = std::move(action); }

    /// Also true while a dictation has put it aside.
    [[nodiscard]] bool isOpen() const { return view_ != nullptr; }
    [[nodiscard]] bool isVisible() const;
    void orderOut();
    /// Brings the window back where it was. It gets the keyboard only when it had it before: the dictation's text may
    /// be meant for a field in it, or for a window of another program.
    void orderFront();

private:
    class View;

    void makeView();
    void viewClosed();

    QQmlEngine& engine_;
    Workspace& workspace_;
    Look look_;
    std::function<Content()> makeContent_;
    std::function<void()> closed_;
    Content content_;
    std::unique_ptr<View> view_;
    std::optional<WindowID> formerFront_; ///< when it was put aside
};

} // namespace vantro
