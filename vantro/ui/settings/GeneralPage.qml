import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property GeneralSettings settings

    title: qsTr("General")

    VCard {
        visible: page.settings.problem !== ""
        VText {
            width: parent.width
            text: page.settings.problem
            color: Theme.error
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
    }
    VCard {
        heading: qsTr("Finished text")
        VToggleRow {
            title: qsTr("Paste into the window I was working in")
            hint: qsTr("When off, the text is only copied to the clipboard.")
            checked: page.settings.autoPaste
            onToggled: on => page.settings.autoPaste = on
        }
        VToggleRow {
            title: qsTr("Keep the text on the clipboard after pasting")
            hint: qsTr("When off, the clipboard gets its previous text back.")
            checked: page.settings.keepOnClipboard
            onToggled: on => page.settings.keepOnClipboard = on
        }
        VToggleRow {
            title: qsTr("Give pictures, formatted text and files back too")
            hint: qsTr("Up to 32 MB. When off, only plain text comes back.")
            visible: !page.settings.keepOnClipboard
            checked: page.settings.restoreEveryFormat
            onToggled: on => page.settings.restoreEveryFormat = on
        }
        VToggleRow {
            title: qsTr("Play a sound when the text is ready")
            checked: page.settings.playSound
            onToggled: on => page.settings.playSound = on
        }
    }
    VCard {
        heading: qsTr("Speech")
        VSettingRow {
            title: qsTr("Language you speak")
            hint: qsTr("English-only models always expect English.")
            VChoice {
                model: page.settings.languages
                currentIndex: page.settings.language
                Accessible.name: qsTr("Language you speak")
                onActivated: index => page.settings.language = index
            }
        }
        VToggleRow {
            title: qsTr("Recognise while I speak")
            hint: qsTr("The text is there sooner. Not done while the machine saves power.")
            checked: page.settings.recognizeAhead
            onToggled: on => page.settings.recognizeAhead = on
        }
        VToggleRow {
            title: qsTr("Show what was understood so far")
            hint: qsTr("In the panel, at each pause. The final text may differ.")
            visible: page.settings.recognizeAhead
            checked: page.settings.showWords
            onToggled: on => page.settings.showWords = on
        }
        VToggleRow {
            title: qsTr("Keep the speech model in memory")
            hint: qsTr("Transcribing starts sooner, but the model takes up memory all the time.")
            checked: page.settings.keepModelInMemory
            onToggled: on => page.settings.keepModelInMemory = on
        }
    }
    VCard {
        heading: qsTr("Appearance")
        VSettingRow {
            title: qsTr("Colours")
            VChoice {
                model: [qsTr("Same as the desktop"), qsTr("Light"), qsTr("Dark")]
                currentIndex: page.settings.appearance
                Accessible.name: qsTr("Colours")
                onActivated: index => page.settings.appearance = index
            }
        }
        VSettingRow {
            title: qsTr("Animations")
            VChoice {
                model: [qsTr("Same as the desktop"), qsTr("On"), qsTr("Off")]
                currentIndex: page.settings.motion
                Accessible.name: qsTr("Animations")
                onActivated: index => page.settings.motion = index
            }
        }
    }
    VCard {
        heading: qsTr("Program")
        VToggleRow {
            title: qsTr("Start when I log in")
            checked: page.settings.launchAtLogin
            onToggled: on => page.settings.launchAtLogin = on
        }
        VToggleRow {
            title: qsTr("Check for updates at startup")
            hint: qsTr("Asks a server for the latest version number. Nothing about you is sent.")
            checked: page.settings.checkForUpdates
            onToggled: on => page.settings.checkForUpdates = on
        }
        VButton {
            secondary: true
            enabled: !page.settings.isCheckingForUpdates
            text: page.settings.isCheckingForUpdates ? qsTr("Checking...") : qsTr("Check now")
            onClicked: page.settings.checkForUpdatesNow()
        }
    }
}
