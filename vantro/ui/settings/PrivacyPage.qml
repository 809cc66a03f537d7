import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property PrivacySettings settings

    title: qsTr("Privacy")
    subtitle: qsTr("Speech is recognised on this computer. Your words leave it only in a mode whose provider runs elsewhere.")

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
        heading: qsTr("History")
        VSettingRow {
            title: qsTr("Keep dictations")
            hint: qsTr("Older ones are deleted automatically, once a day. Notes stay until you delete them.")
            VChoice {
                model: page.settings.spans
                currentIndex: page.settings.span
                Accessible.name: qsTr("Keep dictations")
                onActivated: index => {
                    page.settings.span = index
                    currentIndex = Qt.binding(() => page.settings.span)
                }
            }
        }
        VToggleRow {
            title: qsTr("Private session")
            hint: qsTr("Until you switch it off or vantro quits, dictations are pasted but not kept. The tray's menu has it too.")
            checked: page.settings.isPrivate
            onToggled: on => page.settings.isPrivate = on
        }
    }
    VCard {
        heading: qsTr("Recordings")
        VSettingRow {
            title: qsTr("Keep recordings")
            hint: qsTr("Keeps what you said as sound, to hear it again in the history or have it transcribed by another model. Notes have none.")
            VChoice {
                model: page.settings.recordingSpans
                currentIndex: page.settings.recordingSpan
                Accessible.name: qsTr("Keep recordings")
                onActivated: index => {
                    page.settings.recordingSpan = index
                    currentIndex = Qt.binding(() => page.settings.recordingSpan)
                }
            }
        }
        VSettingRow {
            title: qsTr("At most")
            hint: qsTr("The oldest ones make room. One hour takes about 60 MB.")
            VChoice {
                model: page.settings.recordingSizes
                currentIndex: page.settings.recordingSize
                Accessible.name: qsTr("Recordings take at most")
                onActivated: index => {
                    page.settings.recordingSize = index
                    currentIndex = Qt.binding(() => page.settings.recordingSize)
                }
            }
        }
    }
    VCard {
        heading: qsTr("Stored on this computer")
        VNote { text: page.settings.stored }
        VButton {
            secondary: true
            enabled: !page.settings.isEmpty && !page.settings.isClearing
            text: page.settings.isClearing ? qsTr("Clearing...") : qsTr("Clear all...")
            onClicked: page.settings.clearAll()
        }
    }
}
