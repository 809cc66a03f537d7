import QtQuick
import Vantro.Style

// A key and what it does, such as "<Space> Start transcription".
Text {
    color: Theme.textSecondary
    font.pixelSize: Theme.sizeSecondary
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
