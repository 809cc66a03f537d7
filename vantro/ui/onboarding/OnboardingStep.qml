import QtQuick
import Vantro.Style

// A page: what is tested, whether it works, and what to do if it does not.
Column {
    id: step

    property string title
    property string explanation
    property bool good
    property string status
    property Item firstControl: null // that Return is for; null for the button that leads on
    default property alias extra: extra.data

    spacing: Theme.space16
    // Read aloud when the keyboard comes into the page.
    Accessible.role: Accessible.Grouping
    Accessible.name: title + ". " + explanation

    VText {
        width: parent.width
        text: step.title
        color: Theme.text
        font.pixelSize: Theme.sizeTitle
        font.weight: Font.DemiBold
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    VText {
        width: parent.width
        text: step.explanation
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeBody
        wrapMode: Text.Wrap
    }
    Row {
        width: parent.width
        spacing: Theme.space8
        visible: step.status !== ""
        VText {
            id: mark
            text: step.good ? "\u2713" : "\u2022"
            color: step.good ? Theme.success : Theme.warning
            font.pixelSize: Theme.sizeBody
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        VText {
            width: parent.width - mark.width - parent.spacing
            text: step.status
            color: Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: step.good ? Accessible.StaticText : Accessible.AlertMessage
            Accessible.name: text
        }
    }
    Column {
        id: extra
        width: parent.width
        spacing: Theme.space12
    }
}
