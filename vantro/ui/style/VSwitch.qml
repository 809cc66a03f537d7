import QtQuick
import QtQuick.Templates as T

// An on/off switch.
T.Switch {
    id: control

    implicitWidth: Theme.switchWidth
    implicitHeight: Theme.switchHeight
    opacity: enabled ? 1 : Theme.disabledOpacity
    activeFocusOnTab: true
    Keys.onReturnPressed: { toggle(); toggled() }
    Keys.onEnterPressed: { toggle(); toggled() }

    indicator: Rectangle {
        width: control.width
        height: control.height
        radius: height / 2
        color: control.checked ? Theme.accent : Theme.surface
        border.width: control.visualFocus && !control.checked ? Theme.focusRing : Theme.hairline
        border.color: control.checked ? Theme.accent : control.visualFocus ? Theme.text : Theme.textSecondary

        VFocusLine { visible: control.visualFocus && control.checked }
        Rectangle {
            readonly property int rim: Theme.space4
            x: control.checked ? parent.width - width - rim : rim
            anchors.verticalCenter: parent.verticalCenter
            width: parent.height - 2 * rim
            height: width
            radius: height / 2
            color: control.checked ? Theme.accentText : Theme.textSecondary

            Behavior on x {
                NumberAnimation { duration: Theme.stateMs }
            }
        }
    }
}
