// What the heads-up display shows when there is more than one thing to tell.
#include "base/UserDefaults.h"
#include "base/testing/ManualClock.h"
#include "platform/testing/FakeDesktopAppearance.h"
#include "platform/testing/FakeWorkspace.h"
#include "vantro/ui/hud/PasteHUDWindow.h"
#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

const QString title = QStringLiteral("Recording discarded");
const QString reason = QStringLiteral("A window has not taken the text.");

class PasteHUDTest : public ::testing::Test
{
protected:
    void offer()
    {
        hud_.showOffer(std::nullopt, title, {},
                       {.accepted = [this] { ++accepted_; },
                        .covered =
                            [this](bool is) {
                                isCovered_ = is;
                            }});
    }
    [[nodiscard]] QString shown() const
    {
        const auto* model = hud_.rootObject()->property("model").value<PasteHUDModel*>();
        return model->title + model->reason;
    }
    void click()
    {
        QTest::mouseClick(&hud_, Qt::LeftButton, {}, hud_.geometry().translated(-hud_.position()).center());
    }

    QTemporaryDir folder_;
    UserDefaults defaults_{folder_.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeDesktopAppearance appearance_;
    doubles::FakeWorkspace workspace_;
    doubles::ManualClock clock_;
    UiEngine ui_{defaults_, appearance_};
    PasteHUDWindow hud_{ui_.engine(), workspace_, clock_};
    int accepted_ = 0;
    bool isCovered_ = false;
};

} // namespace

TEST_F(PasteHUDTest, AnOfferIsBackWhenAnotherMessageHasBeenRead)
{
    offer();
    const auto readingTime = hud_.showHUD(std::nullopt, nullptr, reason);
    EXPECT_EQ(shown(), reason);
    EXPECT_TRUE(isCovered_);
    click();
    EXPECT_EQ(accepted_, 0);

    clock_.advance(readingTime);
    EXPECT_EQ(shown(), title);
    EXPECT_FALSE(isCovered_);
    clock_.advance(1h);
    EXPECT_TRUE(hud_.isVisible());
    click();
    EXPECT_EQ(accepted_, 1);
}

TEST_F(PasteHUDTest, AnOfferThatIsWithdrawnMeanwhileDoesNotComeBack)
{
    offer();
    const auto readingTime = hud_.showHUD(std::nullopt, nullptr, reason);
    hud_.withdraw();
    EXPECT_EQ(shown(), reason) << "it is to be read";
    clock_.advance(readingTime + 1s);
    EXPECT_FALSE(hud_.isVisible());
    EXPECT_EQ(accepted_, 0);
}

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
