import QtQuick
import Vantro.Style
import Vantro.History

// Plays the recording of a dictation.
Item {
    id: bar

    required property RecordingPlayer player

    implicitHeight: button.implicitHeight

    VButton {
        id: button
        secondary: true
        text: bar.player.isPlaying ? qsTr("Pause") : qsTr("Play")
        Accessible.description: qsTr("The recording of this dictation")
        onClicked: bar.player.toggle()
    }
    VSlider {
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
        anchors { right: parent.right; verticalCenter: button.verticalCenter }
        text: bar.player.inWords(bar.player.position) + " / " + bar.player.inWords(bar.player.duration)
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeSecondary
    }
}
