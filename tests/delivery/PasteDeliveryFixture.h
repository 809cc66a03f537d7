#pragma once

#include "base/testing/ManualClock.h"
#include "platform/testing/FakeKeyEventPoster.h"
#include "platform/testing/FakePasteboard.h"
#include "platform/testing/FakeSessionState.h"
#include "platform/testing/FakeWorkspace.h"
#include "vantro/delivery/PasteDelivery.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <memory>
#include <optional>

namespace vantro::doubles {

inline constexpr WindowID editor = 1;
inline constexpr WindowID launcher = 2;
inline constexpr WindowID other = 3;

inline const QString former = QStringLiteral("former");
inline const QString words = QStringLiteral("spoken words");

/// The desktop at the moment a dictation's text is ready: the launcher has just closed, the keyboard is back.
class PasteDeliveryFixture : public ::testing::Test
{
protected:
    using Chord = KeyEventPoster::PasteChord;
    using Outcome = PasteDelivery::Outcome;
    using Selection = Pasteboard::Selection;

    PasteDeliveryFixture()
    {
        workspace_.openWindow(editor, {QStringLiteral("Editor"), QStringLiteral("editor")});
        workspace_.openWindow(launcher);
        workspace_.makeOwn(launcher);
        workspace_.openWindow(other);
        workspace_.focus(editor);
        pasteboard_.setByOther(Selection::Clipboard, former);
        keys_.setTarget([this](Chord chord) {
            const auto selection = chord == Chord::ShiftInsert ? Selection::Primary : Selection::Clipboard;
            if (targetReads_)
                received_ = pasteboard_.fetch(selection, editor);
        });
        delivery_->rememberTarget();
        QObject::connect(delivery_.get(), &PasteDelivery::notFetched, &observer_,
                         [this](const QString& reason) { told_ << reason; });
    }

    void deliver(const QString& text = words)
    {
        outcome_.reset();
        [](PasteDeliveryFixture& self, QString text) -> QCoro::Task<> {
            const auto delivery = self.delivery_->deliver(text, {[&self, text] { self.settled_ << text; }, {}});
            self.outcome_ = co_await delivery;
        }(*this, text);
    }

    std::optional<QString> clipboard() const { return pasteboard_.string(Selection::Clipboard); }

    QTemporaryDir folder_;
    UserDefaults defaults_{folder_.filePath(QStringLiteral("vantro.ini"))};
    ManualClock clock_;
    FakePasteboard pasteboard_;
    FakeKeyEventPoster keys_;
    FakeWorkspace workspace_;
    FakeSessionState session_;
    std::unique_ptr<PasteDelivery> delivery_ =
        std::make_unique<PasteDelivery>(pasteboard_, keys_, workspace_, session_, defaults_, clock_);
    QObject observer_;
    QStringList told_;    ///< of texts that were not fetched
    QStringList settled_; ///< texts of which nothing needs to be kept
    bool targetReads_ = true;
    std::optional<QString> received_;
    std::optional<Outcome> outcome_;
};

} // namespace vantro::doubles
