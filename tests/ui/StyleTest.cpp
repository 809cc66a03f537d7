// The style's own promises: what it draws can be told apart, its text has the desktop's size, and its controls are
// there for the keyboard.
#include "platform/testing/FakeDesktopAppearance.h"
#include "vantro/ui/style/UiEngine.h"

#include <QDirIterator>
#include <QFont>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickView>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace vantro;

namespace {

struct Pair
{
    const char* drawn;
    const char* on;
};

/// As the Web Content Accessibility Guidelines define it.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// What is seen of a translucent colour.
QColor blended(const QColor& color, const QColor& behind)
{
    const auto part = [&](double above, double below) {
        return static_cast<float>(above * color.alphaF() + below * (1 - color.alphaF()));
    };
    return QColor::fromRgbF(part(color.redF(), behind.redF()), part(color.greenF(), behind.greenF()),
                            part(color.blueF(), behind.blueF()));
}

class Style : public ::testing::Test
{
protected:
    [[nodiscard]] QColor color(const char* name) const { return ui.theme().property(name).value<QColor>(); }
    [[nodiscard]] int number(const char* name) const { return ui.theme().property(name).toInt(); }

    void expectContrast(double least, std::initializer_list<Pair> pairs)
    {
        for (const char* const appearance : {"light", "dark"}) {
            defaults.set(setting::appearance, QLatin1String(appearance));
            for (const auto& [drawn, on] : pairs) {
                ASSERT_TRUE(color(drawn).isValid() && color(on).isValid()) << drawn << on;
                for (const Qt::GlobalColor desktop : {Qt::white, Qt::black})
                    EXPECT_GE(contrast(color(drawn), blended(color(on), desktop)), least)
                        << appearance << ": " << drawn << " on " << on;
            }
        }
    }

    /// A shown window with that in it, which has the keyboard.
    std::unique_ptr<QQuickView> open(const char* qml)
    {
        QQmlComponent component(&ui.engine());
        component.setData(QByteArray("import QtQuick\nimport Vantro.Style\n") + qml, QUrl());
        auto* const root = qobject_cast<QQuickItem*>(component.create());
        EXPECT_NE(root, nullptr) << qPrintable(component.errorString());
        auto view = std::make_unique<QQuickView>(&ui.engine(), nullptr);
        view->setResizeMode(QQuickView::SizeRootObjectToView);
        view->setContent(QUrl(), &component, root);
        view->resize(400, 300);
        view->show();
        view->requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(view.get()));
        return view;
    }

    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeDesktopAppearance desktop;
    UiEngine ui{defaults, desktop};
};

} // namespace

TEST_F(Style, TextCanBeRead)
{
    expectContrast(4.5, {{"text", "surface"},
                         {"text", "surfaceRaised"},
                         {"text", "surfaceFloating"},
                         {"text", "surfaceHovered"},
                         {"text", "surfacePressed"},
                         {"text", "mark"},
                         {"textSecondary", "surface"},
                         {"textSecondary", "surfaceRaised"},
                         {"textSecondary", "surfaceHovered"},
                         {"textSecondary", "surfaceFloating"},
                         {"accentText", "accent"},
                         {"accentText", "accentHovered"},
                         {"accentText", "accentPressed"},
                         {"warning", "surface"},
                         {"warning", "surfaceRaised"},
                         {"warning", "surfaceHovered"},
                         {"error", "surface"},
                         {"error", "surfaceRaised"},
                         {"error", "surfaceHovered"},
                         {"success", "surface"},
                         {"success", "surfaceRaised"}});
}

TEST_F(Style, ControlsAndTheirFocusCanBeSeen)
{
    expectContrast(3, {{"control", "surface"},
                       {"control", "surfaceRaised"},
                       {"control", "surfaceHovered"},
                       {"control", "surfaceFloating"},
                       {"accent", "surface"},
                       {"accent", "surfaceRaised"},
                       {"recording", "surfaceRaised"},
                       {"focusOnAccent", "accent"}});
    // The edge of what floats over other windows.
    defaults.set(setting::appearance, QStringLiteral("light"));
    EXPECT_GE(contrast(color("control"), Qt::white), 3);
    defaults.set(setting::appearance, QStringLiteral("dark"));
    EXPECT_GE(contrast(color("control"), Qt::black), 3);
}

TEST_F(Style, TextFollowsTheDesktopsSizeAndIsNeverSmallerThanUsual)
{
    const QFont before = QGuiApplication::font();
    QFont large = before;
    large.setPixelSize(28);
    QGuiApplication::setFont(large);
    QCoreApplication::processEvents();
    EXPECT_EQ(number("sizeBody"), 28);
    EXPECT_EQ(number("sizeTitle"), 40);
    large.setPixelSize(9);
    QGuiApplication::setFont(large);
    QCoreApplication::processEvents();
    EXPECT_EQ(number("sizeBody"), 14);
    QGuiApplication::setFont(before);
}

TEST_F(Style, APageFollowsTheKeyboard)
{
    const auto view = open(R"(VPage { id: page; focus: true
        Repeater { model: 40; VButton { text: index; objectName: index; focus: index === 0 } } })");
    auto* const page = view->rootObject();
    const auto isSeen = [&] {
        const QQuickItem* const item = view->activeFocusItem();
        const double top = item->mapToItem(page, QPointF()).y();
        return top >= 0 && top + item->height() <= page->height();
    };
    for (int tab = 0; tab < 39; ++tab) {
        QTest::keyClick(view.get(), Qt::Key_Tab);
        ASSERT_TRUE(isSeen()) << tab;
    }
    EXPECT_EQ(view->activeFocusItem()->objectName(), QStringLiteral("39"));
    for (int tab = 0; tab < 39; ++tab) {
        QTest::keyClick(view.get(), Qt::Key_Backtab);
        ASSERT_TRUE(isSeen()) << tab;
    }
    const double before = page->property("contentY").toDouble();
    QMetaObject::invokeMethod(page, "turn", Q_ARG(QVariant, 1));
    EXPECT_GT(page->property("contentY").toDouble(), before + 100);
}

TEST_F(Style, TheListOfPagesIsOneStopWithArrowsInIt)
{
    const auto view = open(R"(Column {
        property alias current: list.current
        VNavList { id: list; width: 100; focus: true; current: "a"; onPicked: key => current = key
                   pages: [{key: "a", name: "A"}, {key: "b", name: "B"}, {key: "c", name: "C"}] }
        VButton { objectName: "after"; text: "after" } })");
    const auto current = [&] {
        return view->rootObject()->property("current").toString();
    };
    QTest::keyClick(view.get(), Qt::Key_Down);
    EXPECT_EQ(current(), QStringLiteral("b"));
    QTest::keyClick(view.get(), Qt::Key_End);
    QTest::keyClick(view.get(), Qt::Key_Down);
    EXPECT_EQ(current(), QStringLiteral("c"));
    QTest::keyClick(view.get(), Qt::Key_Tab);
    EXPECT_EQ(view->activeFocusItem()->objectName(), QStringLiteral("after"));
    const QPoint firstPage(50, 15);
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, firstPage);
    EXPECT_EQ(current(), QStringLiteral("a"));
    QTest::keyClick(view.get(), Qt::Key_Down);
    EXPECT_EQ(current(), QStringLiteral("b")) << "the keyboard is where the mouse was";
}

TEST_F(Style, NothingThatIsShownIsADocumentOrFetchesAnything)
{
    QTcpServer listener;
    ASSERT_TRUE(listener.listen(QHostAddress::LocalHost));
    QQmlComponent component(&ui.engine());
    const QString picture = QStringLiteral("<img src='http://127.0.0.1:%1/a.png'>").arg(listener.serverPort());
    component.setData(
        QStringLiteral("import QtQuick\nimport Vantro.Style\nItem { VText { objectName: 'plain'; text: \"%1\" }"
                       " Text { textFormat: Text.RichText; text: \"%1\" } }")
            .arg(picture)
            .toUtf8(),
        QUrl());
    const std::unique_ptr<QObject> item(component.create());
    ASSERT_TRUE(item) << qPrintable(component.errorString());
    EXPECT_GT(item->findChild<QQuickItem*>(QStringLiteral("plain"))->implicitWidth(), 100) << "it is read as it is";
    EXPECT_FALSE(listener.waitForNewConnection(500));

    QDirIterator files(qEnvironmentVariable("VANTRO_SOURCE_DIR") + QStringLiteral("/vantro/ui"),
                       {QStringLiteral("*.qml")}, QDir::Files, QDirIterator::Subdirectories);
    static const QRegularExpression bare(QStringLiteral("(?<![\\w.])Text \\{"));
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        const bool isAllowed = file.fileName().endsWith(QLatin1String("VText.qml")) ||
                               file.fileName().endsWith(QLatin1String("HistoryRow.qml")); // marks what is searched for
        EXPECT_TRUE(isAllowed || !bare.match(text).hasMatch()) << qPrintable(file.fileName());
    }
}

TEST_F(Style, AButtonPressesOncePerKeyAndNotWhileItIsDisabled)
{
    const auto view = open("VButton { property int presses; focus: true; text: 'x'; onClicked: ++presses }");
    auto* const button = view->rootObject();
    QTest::keyClick(view.get(), Qt::Key_Space);
    QTest::keyClick(view.get(), Qt::Key_Return);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(view.get(), &repeated);
    EXPECT_EQ(button->property("presses").toInt(), 2);
    const double opacity = button->opacity();
    button->setEnabled(false);
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(button->property("presses").toInt(), 2);
    EXPECT_LT(button->opacity(), opacity) << "it does not look like a live one";
}

TEST_F(Style, AListShowsAtOnceWhatReturnWouldTake)
{
    const auto view = open("VChoice { focus: true; model: Array.from({length: 100}, (_, i) => 'entry ' + i) }");
    auto* const choice = view->rootObject();
    QTest::keyClick(view.get(), Qt::Key_Space);
    QTest::keyClick(view.get(), Qt::Key_End);
    EXPECT_EQ(choice->property("highlightedIndex").toInt(), 99);
    auto* const popup = choice->property("popup").value<QObject*>();
    auto* const list = popup->property("contentItem").value<QQuickItem*>();
    QMetaObject::invokeMethod(list, "forceLayout");
    EXPECT_NEAR(list->property("contentY").toDouble() + list->height(), list->property("contentHeight").toDouble(), 1);
}

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
