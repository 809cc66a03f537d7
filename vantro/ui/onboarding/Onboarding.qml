import QtQuick
import Vantro.Style
import Vantro.Onboarding
import Vantro.Shortcuts

// Guides the user to the first dictation. Every page can be skipped.
Rectangle {
    id: window

    required property OnboardingModel model
    required property RecorderCocoa recorder
    readonly property bool isLast: model.step === OnboardingModel.Ready
    readonly property var goods: [true, model.isMicrophoneGood, model.areKeysGood, model.isShortcutGood, model.isModelGood, true, true]
    readonly property int step: model.step
    readonly property bool isStepGood: !!goods[step]
    signal closeRequested

    // What Return does on this page.
    function takeKeyboard() {
        const first = page.item ? page.item.firstControl : null
        if (first && first.visible)
            first.forceActiveFocus()
        else
            next.forceActiveFocus()
    }

    color: Theme.surface
    onIsStepGoodChanged: if (step === OnboardingModel.Model) Qt.callLater(takeKeyboard)
    Component.onCompleted: takeKeyboard()

    Keys.onEscapePressed: closeRequested()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_V && event.modifiers & Qt.ControlModifier)
            model.keyArrived()
    }

    Row {
        id: dots
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space24 }
        spacing: Theme.space8
        Accessible.role: Accessible.StaticText
        Accessible.name: qsTr("Step %1 of %2").arg(window.model.step + 1).arg(window.goods.length)
        Repeater {
            model: window.goods.length
            Rectangle {
                required property int index
                width: (dots.width - (window.goods.length - 1) * dots.spacing) / window.goods.length
                height: Theme.meterHeight
                radius: height / 2
                color: index === window.model.step ? Theme.accent
                     : index < window.model.step && window.goods[index] ? Theme.success : Theme.control
            }
        }
    }
    Loader {
        id: page
        anchors { left: parent.left; right: parent.right; top: dots.bottom; bottom: buttons.top; margins: Theme.space24 }
        // At once: the next Return is meant for the new page.
        onLoaded: window.takeKeyboard()
        sourceComponent: [welcomePage, microphonePage, keysPage, shortcutPage, modelPage, practicePage, readyPage][window.model.step]
    }
    Item {
        id: buttons
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: Theme.space24 }
        height: next.implicitHeight

        VButton {
            id: next
            anchors.right: parent.right
            focus: true
            Accessible.description: page.item ? page.item.explanation : ""
            secondary: !window.isLast && !window.goods[window.model.step]
            text: window.step === OnboardingModel.Model && window.model.download.running ? qsTr("Continue") : window.isLast ? qsTr("Done") : window.goods[window.model.step] ? qsTr("Continue") : qsTr("Later")
            onClicked: window.isLast ? window.model.finish() : window.model.step = window.model.step + 1
        }
        // After what leads on: Tab out of a page comes to that first.
        VButton {
            anchors.left: parent.left
            visible: window.model.step > 0
            secondary: true
            text: qsTr("Back")
            onClicked: window.model.step = window.model.step - 1
        }
    }

    Component {
        id: welcomePage
        OnboardingStep {
            title: qsTr("Speak instead of typing")
            explanation: qsTr("Press a shortcut, speak, press Space: the text stands in the window you were working in.")
                + "\n\n" + qsTr("Speech is recognised on this computer. Nothing you say leaves it, unless you set up a provider that rewrites your text elsewhere.")
                + "\n\n" + qsTr("The next pages try your microphone, keyboard, shortcut and speech model. It takes about three minutes, and each can wait.")
            good: true
        }
    }
    Component {
        id: microphonePage
        OnboardingStep {
            title: qsTr("Can you be heard?")
            explanation: qsTr("Say something and watch the bar. Nothing is recorded here.")
            good: window.model.isMicrophoneGood
            status: window.model.microphoneText
            VLevel {
                width: parent.width
                level: window.model.level
                name: qsTr("Microphone level")
            }
            VSettingRow {
                title: qsTr("Microphone")
                VChoice {
                    width: Theme.wideFieldWidth
                    model: window.model.microphones
                    currentIndex: window.model.microphone
                    Accessible.name: qsTr("Microphone")
                    onActivated: index => window.model.microphone = index
                }
            }
        }
    }
    Component {
        id: keysPage
        OnboardingStep {
            title: qsTr("Can vantro type for you?")
            explanation: qsTr("The finished text is pasted into the window you were working in. This page tests the keystroke for that on itself.")
            good: window.model.areKeysGood
            status: window.model.keysText
            Timer {
                // Waits for the focus, then a moment for held keys to be released.
                running: window.Window.active && !window.model.areKeysGood
                interval: Theme.keyTrialMs
                onTriggered: window.model.tryKeys()
            }
            VButton {
                visible: !window.model.areKeysGood
                secondary: true
                text: qsTr("Try again")
                onClicked: window.model.tryKeys()
            }
        }
    }
    Component {
        id: shortcutPage
        OnboardingStep {
            title: qsTr("Your shortcut")
            explanation: qsTr("Press it anywhere, and speak.")
            good: window.model.isShortcutGood
            status: window.model.shortcutText
            ShortcutRecorder {
                width: parent.width
                model: window.recorder
            }
        }
    }
    Component {
        id: modelPage
        OnboardingStep {
            title: qsTr("The speech model")
            explanation: qsTr("It turns your speech into text on this computer. It only has to be downloaded once.")
            good: window.model.isModelGood
            firstControl: downloadButton
            status: window.model.isModelGood ? qsTr("%1 is ready.").arg(window.model.download.name)
                  : window.model.download.running ? window.model.download.statusText
                  : window.model.download.failed ? window.model.download.statusText
                  : qsTr("%1 (%2) has not been downloaded yet.").arg(window.model.download.name).arg(window.model.download.size)
            VSettingRow {
                visible: !window.model.download.running
                title: qsTr("Language you speak")
                VChoice {
                    model: window.model.languages
                    currentIndex: window.model.language
                    Accessible.name: qsTr("Language you speak")
                    onActivated: index => window.model.language = index
                }
            }
            VSettingRow {
                visible: !window.model.download.running
                title: qsTr("Model")
                hint: window.model.modelText
                VChoice {
                    model: window.model.models
                    currentIndex: window.model.model
                    Accessible.name: qsTr("Model")
                    onActivated: index => window.model.model = index
                }
            }
            Rectangle {
                width: parent.width
                height: Theme.space8
                radius: height / 2
                visible: window.model.download.running
                color: Theme.control
                Accessible.role: Accessible.ProgressBar
                Accessible.name: qsTr("Download of %1").arg(window.model.download.name)
                Rectangle {
                    width: parent.width * window.model.download.progress
                    height: parent.height
                    radius: parent.radius
                    color: Theme.accent
                }
            }
            VButton {
                id: downloadButton
                visible: !window.model.isModelGood
                secondary: window.model.download.running
                text: window.model.download.running ? qsTr("Cancel") : qsTr("Download")
                onClicked: window.model.download.running ? window.model.download.cancel() : window.model.startDownload()
            }
        }
    }
    Component {
        id: practicePage
        OnboardingStep {
            firstControl: field
            title: qsTr("Try it")
            explanation: !window.model.isModelGood
                ? qsTr("The speech model is still missing. Go back one page to download it.")
                : window.model.shortcut === ""
                ? qsTr("No shortcut is set yet. You can start a dictation from vantro's tray menu instead.")
                : qsTr("Press %1, say a sentence, then press Space.").arg(window.model.shortcut)
            VTextArea {
                id: field
                width: parent.width
                height: Theme.practiceHeight
                focus: true
                placeholderText: qsTr("Your sentence appears here")
                Accessible.name: placeholderText
            }
        }
    }
    Component {
        id: readyPage
        OnboardingStep {
            title: qsTr("That is all")
            explanation: (window.model.shortcut === "" ? "" : qsTr("%1 starts a dictation in every program.").arg(window.model.shortcut) + " ")
                + qsTr("vantro waits in the tray: its menu has the history, the notes and the settings, and leads back to these pages. Starting vantro again opens the settings.")
            good: window.model.problem === ""
            status: window.model.problem
            VToggleRow {
                title: qsTr("Start when I log in")
                checked: window.model.startsAtLogin
                onToggled: on => window.model.startsAtLogin = on
            }
        }
    }
}
