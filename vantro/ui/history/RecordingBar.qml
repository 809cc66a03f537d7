import QtQuick
import Vantro.Style
import Vantro.History

// Plays the recording of a dictation or note.
Item {
    id: bar

    required property RecordingPlayer player
    property bool isShown: true // the player is turned to this recording
    property string description: qsTr("The recording of this dictation")
    signal toggled

    implicitHeight: button.implicitHeight

    VButton {
        id: button
        secondary: true
        text: bar.isShown && bar.player.isPlaying ? qsTr("Pause") : qsTr("Play")
        Accessible.description: bar.description
        onClicked: bar.toggled()
    }
    VSlider {
        visible: bar.isShown
        anchors { left: button.right; right: time.left; margins: Theme.space12; verticalCenter: button.verticalCenter }
        to: bar.player.duration
        value: bar.player.position
        stepSize: Math.min(2, to / 20)
        Accessible.name: qsTr("Place in the recording")
        function seek() {
            bar.player.seek(value)
            value = Qt.binding(() => bar.player.position)
        }
        onMoved: if (!pressed) seek()
        onPressedChanged: if (!pressed) seek()
    }
    VText {
        id: time
        visible: bar.isShown
        anchors { right: parent.right; verticalCenter: button.verticalCenter }
        text: bar.player.inWords(bar.player.position) + " / " + bar.player.inWords(bar.player.duration)
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeSecondary
    }
}
