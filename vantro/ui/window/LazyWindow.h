#pragma once

#include "base/UserDefaults.h"
#include "platform/Workspace.h"

#include <QQuickView>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantro {

/// A window that exists only while it is open: closing it frees it and its view models. Can be hidden temporarily
/// during a recording. Main thread.
class LazyWindow final
{
public:
    struct Content
    {
        QVariantMap properties;                       ///< of the QML root
        std::vector<std::unique_ptr<QObject>> models; ///< used by the properties; live as long as the window
    };
    struct Look
    {
        QString title;
        QUrl source;
        QSize size;
        QSize minimumSize;
        const Setting<QString>& rememberedSize; ///< "WIDTHxHEIGHT" once the user has closed the window
    };

    /// The first three must outlive this object. @p makeContent is called when the window opens. The QML
    /// root's signal "closeRequested" closes it.
    LazyWindow(QQmlEngine& engine, Workspace& workspace, UserDefaults& defaults, Look look,
               std::function<Content()> makeContent);
    ~LazyWindow();
    LazyWindow(const LazyWindow&) = delete;
    LazyWindow& operator=(const LazyWindow&) = delete;

    /// Shows the window, or brings it to the front, with the focus.
    void open();
    void close();
    /// The QML root; null while the window is closed.
    [[nodiscard]] QObject* root() const;
    /// Called after the window has been closed in any way.
    void onClosed(std::function<void()> action) { closed_ = std::move(action); }

    /// Also true while it is hidden for a dictation.
    [[nodiscard]] bool isOpen() const { return view_ != nullptr; }
    [[nodiscard]] bool isVisible() const;
    /// Hides the window unless it has the keyboard: the text may be meant for a field in it. Whether it was hidden.
    bool orderOut();
    /// Brings the window back where it was, without the keyboard.
    void orderFront();

private:
    class View;

    void makeView();
    [[nodiscard]] QSize wantedSize() const;
    void rememberSize();
    void viewClosed();

    QQmlEngine& engine_;
    Workspace& workspace_;
    UserDefaults& defaults_;
    Look look_;
    std::function<Content()> makeContent_;
    std::function<void()> closed_;
    Content content_;
    std::unique_ptr<View> view_;
    std::optional<WindowID> formerFront_; ///< the window with the keyboard when this one was put aside
};

} // namespace vantro
