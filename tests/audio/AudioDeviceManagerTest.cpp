#include "vantro/audio/AudioDeviceManager.h"

#include "base/Settings.h"
#include "base/UserDefaults.h"
#include "platform/testing/FakeAudioHardware.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

using namespace vantro;

namespace {

const AudioInputDevice builtIn{.id = 3, .uid = QStringLiteral("built-in"), .name = QStringLiteral("Built-in")};
const AudioInputDevice headset{.id = 7, .uid = QStringLiteral("usb-headset"), .name = QStringLiteral("Headset")};
const AudioInputDevice table{.id = 9, .uid = QStringLiteral("table"), .name = QStringLiteral("Table microphone")};

class AudioDeviceManagerTest : public ::testing::Test
{
protected:
    AudioDeviceManagerTest() { hardware.setDevices({builtIn, headset, table}, builtIn.id); }

    void restart() { manager = std::make_unique<AudioDeviceManager>(hardware, defaults); }

    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeAudioHardware hardware;
    std::unique_ptr<AudioDeviceManager> manager = std::make_unique<AudioDeviceManager>(hardware, defaults);
};

} // namespace

TEST_F(AudioDeviceManagerTest, WithoutSettingsNothingIsSelected)
{
    EXPECT_EQ(manager->effectiveDeviceID(), std::nullopt);
    defaults.set(setting::audioInputMode, QStringLiteral("Telepathy"));
    defaults.set(setting::selectedAudioDeviceID, -4);
    defaults.set(setting::prioritizedDevices, R"([{"id":"table"}])");
    restart();
    EXPECT_EQ(manager->inputMode(), AudioInputMode::systemDefault);
    EXPECT_EQ(manager->selectedDeviceID(), std::nullopt);
    EXPECT_TRUE(manager->prioritizedDevices().empty());
}

TEST_F(AudioDeviceManagerTest, TheChosenDeviceIsFoundAgainUnderAnotherNumberAndMissedWhenItIsGone)
{
    manager->setInputMode(AudioInputMode::custom);
    EXPECT_EQ(manager->effectiveDeviceID(), builtIn.id) << "none chosen: the system default, but selected";
    manager->setSelectedDeviceID(headset.id);
    EXPECT_EQ(manager->effectiveDeviceID(), headset.id);
    EXPECT_EQ(defaults.stored(setting::selectedAudioDeviceID), headset.id);

    // The next run: the numbers are dealt anew, and the chosen one's belongs to another device.
    AudioInputDevice renumberedTable = table;
    renumberedTable.id = headset.id;
    hardware.setDevices({builtIn, renumberedTable}, builtIn.id);
    restart();
    EXPECT_EQ(manager->effectiveDeviceID(), builtIn.id);
    AudioInputDevice renumberedHeadset = headset;
    renumberedHeadset.id = 12;
    hardware.setDevices({builtIn, renumberedTable, renumberedHeadset}, builtIn.id);
    EXPECT_EQ(manager->effectiveDeviceID(), 12U);
    EXPECT_EQ(manager->selectedDeviceID(), 12U) << "what the settings show";

    manager->setSelectedDeviceID(std::nullopt);
    EXPECT_FALSE(defaults.contains(setting::selectedAudioDeviceID.key));
    restart();
    EXPECT_EQ(manager->effectiveDeviceID(), builtIn.id);
}

TEST_F(AudioDeviceManagerTest, ABareNumberIsTakenForWhatBearsIt)
{
    defaults.set(setting::audioInputMode, QStringLiteral("Custom Device"));
    defaults.set(setting::selectedAudioDeviceID, table.id);
    restart();
    EXPECT_EQ(manager->effectiveDeviceID(), table.id);
}

TEST_F(AudioDeviceManagerTest, TheFirstPresentDeviceOfThePriorityListIsTaken)
{
    manager->setInputMode(AudioInputMode::prioritized);
    EXPECT_EQ(manager->effectiveDeviceID(), builtIn.id) << "an empty list: the system default, but selected";
    const std::vector<PrioritizedDevice> list{{.id = table.uid, .name = table.name, .priority = 2},
                                              {.id = headset.uid, .name = headset.name, .priority = 1},
                                              {.id = QStringLiteral("TABLE"), .name = table.name, .priority = -1}};
    manager->setPrioritizedDevices(list);
    restart();
    EXPECT_EQ(manager->prioritizedDevices(), list);
    EXPECT_EQ(manager->inputMode(), AudioInputMode::prioritized);
    EXPECT_EQ(manager->effectiveDeviceID(), headset.id);
    hardware.setDevices({builtIn, table}, builtIn.id);
    EXPECT_EQ(manager->effectiveDeviceID(), table.id);
    hardware.setDevices({builtIn}, builtIn.id);
    EXPECT_EQ(manager->effectiveDeviceID(), builtIn.id);
    hardware.setDevices({table, headset}, table.id);
    EXPECT_EQ(manager->effectiveDeviceID(), headset.id);
    hardware.setDevices({}, std::nullopt);
    EXPECT_EQ(manager->effectiveDeviceID(), std::nullopt);
}

TEST_F(AudioDeviceManagerTest, ThePriorityListIsEditedDeviceByDeviceAndNumberedAnew)
{
    const auto order = [this] {
        std::vector<QString> uids;
        for (const PrioritizedDevice& device : manager->priorityOrder())
            uids.push_back(device.id);
        return uids;
    };
    manager->setPrioritizedDevices({{.id = table.uid, .name = table.name, .priority = 40}});
    manager->addPrioritizedDevice(headset);
    manager->addPrioritizedDevice(builtIn);
    manager->addPrioritizedDevice(table);
    EXPECT_EQ(order(), (std::vector<QString>{table.uid, headset.uid, builtIn.uid})) << "each once";
    EXPECT_EQ(manager->priorityOrder().front().priority, 1);

    manager->movePrioritizedDevice(builtIn.uid, 0);
    EXPECT_EQ(order(), (std::vector<QString>{builtIn.uid, table.uid, headset.uid}));
    manager->movePrioritizedDevice(builtIn.uid, 99);
    manager->movePrioritizedDevice(QStringLiteral("nobody"), 0);
    EXPECT_EQ(order(), (std::vector<QString>{table.uid, headset.uid, builtIn.uid}));
    manager->removePrioritizedDevice(headset.uid);
    restart();
    EXPECT_EQ(order(), (std::vector<QString>{table.uid, builtIn.uid}));
}

TEST_F(AudioDeviceManagerTest, AdoptsWhatAnotherProcessHasSet)
{
    // The other process numbers the devices in its own way.
    doubles::FakeAudioHardware otherHardware;
    AudioInputDevice otherHeadset = headset;
    otherHeadset.id = 70;
    otherHardware.setDevices({otherHeadset}, otherHeadset.id);
    UserDefaults otherDefaults(folder.filePath(QStringLiteral("vantro.ini")));
    AudioDeviceManager other(otherHardware, otherDefaults);
    other.setSelectedDeviceID(otherHeadset.id);
    other.setInputMode(AudioInputMode::custom);
    defaults.reload();
    EXPECT_EQ(manager->inputMode(), AudioInputMode::custom);
    EXPECT_EQ(manager->effectiveDeviceID(), headset.id);
    EXPECT_EQ(manager->selectedDeviceID(), headset.id);
    EXPECT_EQ(defaults.stored(setting::selectedAudioDeviceID), otherHeadset.id) << "no tug-of-war";

    other.addPrioritizedDevice({.id = 3, .uid = table.uid, .name = table.name});
    other.setInputMode(AudioInputMode::prioritized);
    defaults.reload();
    EXPECT_EQ(manager->effectiveDeviceID(), table.id);
}
