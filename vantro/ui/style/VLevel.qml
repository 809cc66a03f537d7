import QtQuick

// A level meter.
Rectangle {
    id: meter

    property real level
    property string name

    implicitHeight: Theme.space12
    radius: height / 2
    color: Theme.surfacePressed
    border.width: Theme.hairline
    border.color: Theme.control
    Accessible.role: Accessible.ProgressBar
    Accessible.name: name

    Rectangle {
        width: Math.max(height, parent.width * Math.min(1, meter.level))
        height: parent.height
        radius: parent.radius
        color: Theme.recording
    }
}
