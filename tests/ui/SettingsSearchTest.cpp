// What a search of the settings finds, on pages made for it.
#include "platform/testing/FakeDesktopAppearance.h"
#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

void qml_register_types_Vantro_Settings();

using namespace vantro;

namespace {

constexpr char pages[] = R"(
import QtQuick
import Vantro.Settings
import Vantro.Style

SearchResults {
    id: results
    readonly property string titles: found.map(place => place.title || place.shown).join("|")
    property bool isExpert: false
    pages: [{ key: "general", name: "General", component: general }, { key: "models", name: "Models", component: models }]

    Component {
        id: general
        VPage {
            id: page
            property string about: "Models for your language"
            VCard {
                VSettingRow { title: "Language"; hint: results.isExpert ? page.about : page.about + "." }
                VSettingRow { title: "Sound"; visible: results.isExpert }
            }
        }
    }
    Component {
        id: models
        VPage {
            id: page
            property string where: "Disk space of all models"
            VCard { heading: page.where }
        }
    }
}
)";

int complaints = 0;

class SettingsSearch : public testing::Test
{
protected:
    SettingsSearch()
    {
        keepModule(qml_register_types_Vantro_Settings);
        QQmlComponent component(&ui.engine());
        component.setData(pages, QUrl());
        results.reset(component.create());
        EXPECT_TRUE(results) << qPrintable(component.errorString());
        complaints = 0;
        former = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++complaints; });
    }
    void TearDown() override { qInstallMessageHandler(former); }

    QString found(const char* words)
    {
        results->setProperty("search", QString::fromLatin1(words));
        return results->property("titles").toString();
    }

    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeDesktopAppearance desktop;
    UiEngine ui{defaults, desktop};
    std::unique_ptr<QObject> results;
    QtMessageHandler former = nullptr;
};

} // namespace

TEST_F(SettingsSearch, APageComesBeforeItsPlacesAndTheseBeforeWhatOnlySpeaksOfThem)
{
    EXPECT_EQ(found("models"), QStringLiteral("Models|Disk space of all models|Language"));
    EXPECT_EQ(found("for LANG"), QStringLiteral("Language"));
    EXPECT_EQ(found("printer"), QString());
}

TEST_F(SettingsSearch, WhatIsHiddenJustNowIsNotFound)
{
    EXPECT_EQ(found("sound"), QString());
    found("");
    results->setProperty("isExpert", true);
    EXPECT_EQ(found("sound"), QStringLiteral("Sound"));
}

TEST_F(SettingsSearch, WhatIsLeftOfPagesThatWereLookedThroughComplainsOfNothing)
{
    found("models");
    ui.engine().collectGarbage(); // as it may happen at any time before they are deleted
    results->setProperty("isExpert", true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(complaints, 0);
}

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
