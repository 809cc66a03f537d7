import QtQuick
import QtQuick.Templates as T

// A drop-down list.
T.ComboBox {
    id: control

    implicitWidth: Theme.fieldWidth
    implicitHeight: label.implicitHeight + 2 * Theme.space8
    leftPadding: Theme.space12
    rightPadding: Theme.space32
    opacity: enabled ? 1 : Theme.disabledOpacity
    hoverEnabled: true
    // Read aloud as the value.
    Accessible.description: displayText

    contentItem: VText {
        id: label
        text: control.displayText
        color: Theme.text
        font.pixelSize: Theme.sizeBody
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    indicator: VText {
        anchors { right: parent.right; rightMargin: Theme.space12; verticalCenter: parent.verticalCenter }
        text: "\u25BE"
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeBody
        Accessible.ignored: true
    }
    background: Rectangle {
        radius: Theme.radiusSmall
        color: control.pressed ? Theme.surfacePressed : control.hovered ? Theme.surfaceHovered : Theme.surface
        border.width: control.visualFocus ? Theme.focusRing : Theme.hairline
        border.color: control.visualFocus ? Theme.text : Theme.control
    }
    delegate: T.ItemDelegate {
        id: entry
        required property int index
        required property string modelData
        width: control.width - 2 * Theme.space4
        height: entryText.implicitHeight + 2 * Theme.space8
        highlighted: control.highlightedIndex === index
        contentItem: VText {
            id: entryText
            leftPadding: Theme.space8
            text: entry.modelData
            color: entry.highlighted ? Theme.accentText : Theme.text
            font.pixelSize: Theme.sizeBody
            font.weight: control.currentIndex === entry.index ? Font.DemiBold : Font.Normal
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
        }
        background: Rectangle {
            radius: Theme.radiusSmall - Theme.space4
            color: entry.highlighted ? Theme.accent : "transparent"
        }
    }
    popup: T.Popup {
        y: control.height + Theme.space4
        width: control.width
        height: Math.min(list.contentHeight + 2 * padding, Theme.popupHeight)
        padding: Theme.space4
        contentItem: ListView {
            id: list
            clip: true
            model: control.popup.visible ? control.delegateModel : null
            currentIndex: control.highlightedIndex
            highlightMoveDuration: 0
            implicitHeight: contentHeight
            boundsBehavior: Flickable.StopAtBounds
            T.ScrollBar.vertical: VScrollBar {}
        }
        background: Rectangle {
            radius: Theme.radiusSmall
            color: Theme.surfaceRaised
            border.width: Theme.hairline
            border.color: Theme.control
        }
    }
}
