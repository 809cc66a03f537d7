import QtQuick

// Small explanatory text; hidden when empty.
VText {
    width: parent ? parent.width : implicitWidth
    visible: text !== ""
    color: Theme.textSecondary
    font.pixelSize: Theme.sizeSecondary
    wrapMode: Text.Wrap
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
