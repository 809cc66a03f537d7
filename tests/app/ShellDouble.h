#pragma once

#include "platform/testing/FakeAudioEngine.h"
#include "platform/testing/FakeWorkspace.h"
#include "vantro/app/Dictation.h"
#include "vantro/app/LauncherPanel.h"
#include "vantro/app/Shell.h"

#include <QPointer>
#include <QStringList>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace vantro {

// Windows of other programs.
inline constexpr WindowID editor = 77;
inline constexpr WindowID otherWindow = 78;

/// A panel without a window: takes the keyboard from the window in front and gives it back.
class PanelDouble final : public LauncherPanel
{
public:
    PanelDouble(Dictation& dictation, doubles::FakeWorkspace& workspace, int& open)
        : dictation_(dictation)
        , workspace_(workspace)
        , open_(open)
    {
    }
    ~PanelDouble() override { PanelDouble::closePanel(); }

    [[nodiscard]] QRect frame() const override { return {1, 2, 500, 200}; }
    void makeKeyAndOrderFront() override
    {
        orderFront();
        isKey_ = true;
        former_ = workspace_.frontWindow();
        workspace_.makeOwn(1000);
        workspace_.setFrontWindow(1000);
        workspace_.setInputFocus(1000);
    }
    void orderFront() override
    {
        isOpen_ = true;
        ++open_;
    }
    void closePanel() override
    {
        if (!std::exchange(isOpen_, false))
            return;
        --open_;
        dictation_.cancelRecording();
        if (!isKey_)
            return;
        if (former_ && workspace_.windowExists(*former_))
            workspace_.focus(*former_);
        else
            workspace_.focus(otherWindow);
    }

private:
    Dictation& dictation_;
    doubles::FakeWorkspace& workspace_;
    int& open_;
    bool isOpen_ = false;
    bool isKey_ = false;
    std::optional<WindowID> former_;
};

/// Notes what the program would show.
class ShellDouble final : public Shell
{
public:
    struct Hud
    {
        std::optional<QRect> anchor;
        QString keys;
        QString reason;
    };

    ShellDouble(doubles::FakeWorkspace& workspace, const doubles::FakeAudioEngines& engines)
        : workspace_(workspace)
        , engines_(engines)
    {
    }

    void checkForUpdates() override { steps << QStringLiteral("update check"); }
    std::unique_ptr<LauncherPanel> makeLauncher(Dictation& dictation) override
    {
        EXPECT_NE(engines_.current(), nullptr) << "the first word may come before the panel is made";
        auto panel = std::make_unique<PanelDouble>(dictation, workspace_, openPanels);
        launcher = panel.get();
        if (onLauncher)
            onLauncher(dictation);
        return panel;
    }
    void showPasteHUD(std::optional<QRect> anchor, std::function<QString()> keys, const QString& reason) override
    {
        huds.push_back({anchor, keys ? keys() : QString(), reason});
    }
    void showUndoOffer(std::optional<QRect> anchor, std::function<void()> accepted,
                       std::function<void(bool isCovered)> covered) override
    {
        undoAnchor = anchor;
        undo = std::move(accepted);
        coverUndo = std::move(covered);
    }
    void showTranscribing() override { isTranscribingShown = true; }
    void withdrawHUD() override
    {
        undo = nullptr;
        coverUndo = nullptr;
        isTranscribingShown = false;
    }
    void offerTranscription(const QString& title, const QString& text, QObject* about,
                            std::function<void(bool isWanted)> answered) override
    {
        showAlert(title, text);
        offer = about;
        answerOffer = std::move(answered);
    }
    void showRewritingFailure(const QString& text, std::function<void(AsSpoken)> wanted) override
    {
        showAlert({}, text);
        answerFailure = std::move(wanted);
    }
    void showAlert(const QString&, const QString& text) override
    {
        EXPECT_EQ(openPanels, 0) << "an alert takes the keyboard";
        alerts << text;
    }
    void putWindowsAside() override { areWindowsAside = true; }
    void bringWindowsBack() override { areWindowsAside = false; }
    void showModelDownload(const TranscriptionModel& model, const QString& problem) override
    {
        downloads << model.name + problem;
    }
    void closeModelDownload() override { downloads.clear(); }
    void showOnboarding() override { steps << QStringLiteral("onboarding"); }
    void closeOnboarding() override { steps << QStringLiteral("onboarding closed"); }

    QStringList steps; ///< of the launch, in their order
    QStringList alerts;
    QStringList downloads; ///< models whose download is shown
    std::vector<Hud> huds;
    std::function<void()> undo; ///< a click on the offer that is shown
    std::function<void(bool isCovered)> coverUndo;
    std::optional<QRect> undoAnchor;             ///< where it is
    QPointer<QObject> offer;                     ///< while the latest alert that asks is open
    std::function<void(bool)> answerOffer;       ///< a button of the latest alert that asks
    std::function<void(AsSpoken)> answerFailure; ///< the same of a text that was not rewritten
    bool isTranscribingShown = false;
    int openPanels = 0;
    LauncherPanel* launcher = nullptr; ///< the latest; gone when its dictation is
    bool areWindowsAside = false;
    std::function<void(const Dictation&)> onLauncher; ///< may be empty

private:
    doubles::FakeWorkspace& workspace_;
    const doubles::FakeAudioEngines& engines_;
};

} // namespace vantro
