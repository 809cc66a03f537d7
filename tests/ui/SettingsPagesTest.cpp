#include "base/Settings.h"
#include "base/testing/ManualClock.h"
#include "platform/testing/FakeWorkspace.h"
#include "tests/ui/SettingsPagesFixture.h"
#include "vantro/delivery/PasteChords.h"
#include "vantro/ui/settings/ApplicationsModel.h"
#include "vantro/ui/settings/GeneralSettings.h"
#include "vantro/ui/settings/ModesModel.h"

using namespace vantro;

namespace {

struct NoLoginItem final : LoginItem
{
    [[nodiscard]] bool isEnabled() const override { return false; }
    void setEnabled(bool /*enabled*/) override {}
};

} // namespace

TEST_F(SettingsPages, OpenPagesFollowWhatACommandSets)
{
    doubles::FakeWorkspace workspace;
    NoLoginItem loginItem;
    doubles::ManualClock clock;
    UpdateChecker updates({defaults, workspace, clock, {}, {}, {}});
    GeneralSettings general({defaults, loginItem, updates});
    ModesModel modes({defaults, prompts, cleaning, manager, [](ProcessingMode) { return true; }, {}});
    int generalChanges = 0;
    int modesChanges = 0;
    QObject::connect(&general, &GeneralSettings::changed, [&] { ++generalChanges; });
    QObject::connect(&modes, &ModesModel::changed, [&] { ++modesChanges; });

    UserDefaults command(folder.filePath(QStringLiteral("vantro.ini")));
    command.set(setting::holdToTalk, true);
    command.set(setting::reduceMotion, false);
    command.set(setting::selectedLanguage, QStringLiteral("de"));
    command.set(setting::defaultProcessingMode, QStringLiteral("Notes"));
    defaults.reload();
    EXPECT_GE(generalChanges, 1);
    EXPECT_EQ(modesChanges, 1);
    EXPECT_TRUE(general.holdToTalk());
    EXPECT_EQ(general.motion(), 1) << "with movement, whatever the desktop wants";
    EXPECT_GT(general.language(), 0) << "no longer detected";
    EXPECT_EQ(modes.defaultMode(), static_cast<int>(ProcessingMode::Notes));

    general.setMotion(0);
    general.setAppearance(2);
    command.reload();
    EXPECT_FALSE(command.stored(setting::reduceMotion));
    EXPECT_EQ(command.get(setting::appearance), QStringLiteral("dark"));
}

TEST_F(SettingsPages, ApplicationsGetModesAndPasteKeysOfTheirOwn)
{
    doubles::FakeWorkspace workspace;
    workspace.openWindow(1, {QStringLiteral("XTerm"), QStringLiteral("xterm")});
    workspace.openWindow(2, {QStringLiteral("Mail"), QStringLiteral("thunderbird")});
    workspace.openWindow(3);
    workspace.makeOwn(3);
    workspace.focus(1);
    const auto name = [this](ProcessingMode mode) {
        return prompts.displayName(mode);
    };
    ApplicationsModel page({defaults, workspace, prompts.modes(), name});
    workspace.focus(2);
    workspace.focus(3);
    EXPECT_EQ(page.seen(), (QStringList{QStringLiteral("thunderbird"), QStringLiteral("xterm")}));
    EXPECT_TRUE(page.add(QStringLiteral("thunderbird ")));
    EXPECT_FALSE(page.add(QStringLiteral("Thunderbird")));
    EXPECT_FALSE(page.problem().isEmpty());
    EXPECT_FALSE(page.add(QStringLiteral(" ")));
    EXPECT_EQ(page.seen(), QStringList{QStringLiteral("xterm")});

    int resets = 0;
    QObject::connect(&page, &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    page.setMode(0, 2);
    page.setPasteKeys(0, 3);
    page.setFullStop(0, false);
    EXPECT_EQ(resets, 0) << "the control that was used keeps the keyboard";
    const auto rule = applicationRuleFor(defaults, {QStringLiteral("Mail"), QStringLiteral("thunderbird")});
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->mode, ProcessingMode::Email);
    EXPECT_FALSE(rule->hasFullStop);
    EXPECT_EQ(pasteChordFor({QStringLiteral("thunderbird")}, defaults), KeyEventPoster::PasteChord::ShiftInsert);

    UserDefaults command(folder.filePath(QStringLiteral("vantro.ini")));
    command.set(setting::pasteChords, R"({"xterm":"Ctrl+V","other":"Ctrl+9","thunderbird":"Ctrl+V"})");
    defaults.reload();
    ASSERT_EQ(page.rowCount(), 2) << "what only has paste keys is seen too";
    EXPECT_EQ(page.index(1, 0).data(ApplicationsModel::Application).toString(), QStringLiteral("xterm"));
    page.setPasteKeys(0, 0);
    EXPECT_TRUE(defaults.get(setting::pasteChords).contains(R"("other":"Ctrl+9")")) << "not understood, not lost";
    EXPECT_EQ(pasteChordFor({QStringLiteral("thunderbird")}, defaults), KeyEventPoster::PasteChord::ControlV);
    page.remove(1);
    EXPECT_EQ(pasteChordFor({QStringLiteral("xterm")}, defaults), KeyEventPoster::PasteChord::ShiftInsert);
    EXPECT_EQ(page.removed(), QStringLiteral("xterm"));
    page.undo();
    EXPECT_EQ(pasteChordFor({QStringLiteral("xterm")}, defaults), KeyEventPoster::PasteChord::ControlV);
}
