import QtQuick
import QtQuick.Templates as T

// A place on a line, for mouse and arrow keys.
T.Slider {
    id: slider

    implicitHeight: Theme.space24
    snapMode: T.Slider.NoSnap
    hoverEnabled: true

    background: Rectangle {
        anchors.verticalCenter: slider.verticalCenter
        width: slider.width
        height: Theme.meterHeight
        radius: height / 2
        color: Theme.surfacePressed
        border.width: Theme.hairline
        border.color: Theme.control
        Rectangle {
            width: slider.handle.x + slider.handle.width / 2
            height: parent.height
            radius: parent.radius
            color: Theme.accent
        }
    }
    handle: Rectangle {
        x: slider.visualPosition * (slider.width - width)
        anchors.verticalCenter: slider.verticalCenter
        width: Theme.space16
        height: width
        radius: width / 2
        color: slider.pressed ? Theme.accentPressed : slider.hovered ? Theme.accentHovered : Theme.accent
        border.width: slider.activeFocus ? Theme.focusRing : 0
        border.color: Theme.focusOnAccent
    }
}
