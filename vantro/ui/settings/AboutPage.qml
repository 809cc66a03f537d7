import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property AboutModel about

    title: qsTr("About vantro")

    VCard {
        Row {
            spacing: Theme.space16
            width: parent.width
            Image {
                id: logo
                source: "qrc:/icons/com.vantro.app.svg"
                sourceSize: Qt.size(Theme.logoSize, Theme.logoSize)
                Accessible.ignored: true
            }
            Column {
                width: parent.width - logo.width - parent.spacing
                anchors.verticalCenter: parent.verticalCenter
                spacing: Theme.space4
                VText {
                    text: qsTr("vantro %1").arg(page.about.version)
                    color: Theme.text
                    font.pixelSize: Theme.sizeTitle
                    font.weight: Font.DemiBold
                }
                VText {
                    width: parent.width
                    text: qsTr("Speech is recognised on your own computer. Your words never leave it unless you set up a provider to rewrite them.")
                    color: Theme.textSecondary
                    font.pixelSize: Theme.sizeBody
                    wrapMode: Text.Wrap
                }
            }
        }
    }
    VCard {
        heading: qsTr("Contact the developers")
        VNote {
            text: qsTr("Both open a draft in your mail program. Nothing is sent until you send it.")
        }
        Row {
            spacing: Theme.space8
            VButton {
                secondary: true
                text: qsTr("Report an Error")
                onClicked: page.about.reportError()
            }
            VButton {
                secondary: true
                text: qsTr("Send Feedback")
                onClicked: page.about.sendFeedback()
            }
        }
    }
    VCard {
        heading: qsTr("Licences")
        VText {
            width: parent.width
            text: qsTr("vantro is free software under the MIT licence. It is built on Qt (LGPL 3), whisper.cpp and ggml (MIT), QCoro (MIT), libpulse, libsoxr, libsndfile, libcanberra, libsecret, GLib and libsystemd (LGPL 2.1), OpenSSL and CLD2 (Apache 2.0), ICU (Unicode 3.0) and X11 (MIT).")
            color: Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
        }
    }
    VCard {
        heading: qsTr("This computer")
        VNote {
            text: page.about.system
        }
    }
    VButton {
        secondary: true
        text: qsTr("Quit vantro")
        onClicked: page.about.quit()
    }
}
