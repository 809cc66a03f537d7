#include "vantro/app/AppDelegate.h"

#include "base/Notifications.h"
#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/ai/providers/LegacyKeyName.h"

#include <QCoreApplication>
#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

namespace {

constexpr std::chrono::milliseconds shortcutPatience{6500};

} // namespace

AppDelegate::AppDelegate(Parts parts) : parts_(std::move(parts))
{
    recovery().setBegin([this](Owed owed) { return transcribeAgain(std::move(owed)); });
}

void AppDelegate::applicationDidFinishLaunching()
{
    UserDefaults& defaults = parts_.dictation.defaults;
    if (defaults.get(setting::checkForUpdatesOnLaunch))
        shell().checkForUpdates();
    renameLegacyKey(defaults);
    parts_.migrations.runTranscriptionTrimMigrationIfNeeded();
    parts_.migrations.runEmptyTranscriptionDeleteMigrationIfNeeded();
    observeNotifications();
    if (isReadyToDictate()) {
        printLine(QStringLiteral("All permissions granted"));
        printLine(QStringLiteral("setupInitialState"));
    } else {
        printLine(QStringLiteral("Missing permissions, showing onboarding"));
        shell().showOnboarding();
    }
    // In either case, so that a sound server or shortcut that appears later works without a restart.
    openModalAction_ =
        std::make_unique<HoldToTalk>(parts_.shortcuts, defaults, parts_.dictation.clock,
                                     [this](Dictation::Keyboard keyboard) { return shortcutUsed(keyboard); });
    // When it is released: a key that is held would turn the paste keystroke into another one.
    pasteOriginalAction_ = parts_.shortcuts.onKeyUp(KeyboardShortcuts::Name::pasteOriginal, *this, [this] {
        if (const QString reason = pasteOriginal(); !reason.isEmpty())
            shell().showPasteHUD(std::nullopt, {}, tr("Not pasted: %1.").arg(reason));
    });
    settleModel();
}

bool AppDelegate::isReadyToDictate() const
{
    return parts_.permissions.microphoneAuthorized() && parts_.permissions.trustedForAccessibility() &&
           parts_.shortcuts.shortcut(KeyboardShortcuts::Name::openModal);
}

void AppDelegate::applicationWillTerminate()
{
    if (dictation_)
        dictation_->leave();
    recovery().forgetCancelled();
    QCoreApplication::sendPostedEvents(dictation_.get()); // deletes its launcher while the QML engine still exists
    parts_.dictation.delivery.restoreNow();
}

void AppDelegate::observeNotifications()
{
    auto& center = parts_.dictation.notifications;
    observations_.push_back(
        center.observe(notification::onboardingClosed, [this](const auto&) { shell().closeOnboarding(); }));
    observations_.push_back(center.observe(notification::modelDownloaded, [this](const auto&) { modelDownloaded(); }));
    connect(&parts_.dictation.delivery, &PasteDelivery::notFetched, this,
            [this](const QString& reason) { shell().showPasteHUD(std::nullopt, {}, reason); });
    connect(&parts_.shortcuts, &KeyboardShortcuts::shortcutFailed, this, &AppDelegate::shortcutFailed);
}

QCoro::Task<> AppDelegate::settleModel()
{
    co_await parts_.prepareModels();
    const TranscriptionModel model = parts_.models.selectedModel();
    printLine(QStringLiteral("Checking model: ") + model.name);
    const QFuture<ModelCheck> checking = parts_.checkModel(model);
    const ModelCheck check = co_await checking;
    if (!check.isReady) {
        downloadModel(model, check.problem);
        co_return;
    }
    modelBecameReady(model);
    if (!isReadyToDictate())
        shell().showOnboarding();
}

void AppDelegate::modelBecameReady(const TranscriptionModel& model)
{
    modelProblem_.reset();
    printLine(QStringLiteral("Model %1 is downloaded").arg(model.name));
}

void AppDelegate::downloadModel(const TranscriptionModel& model, const QString& problem)
{
    modelProblem_ = ModelProblem{model.name, problem};
    printLine(QStringLiteral("Need to download model: ") + model.name);
    shell().showModelDownload(model, problem);
}

QCoro::Task<> AppDelegate::modelDownloaded()
{
    shell().closeModelDownload();
    // The settings may have downloaded a different model.
    const TranscriptionModel model = parts_.models.selectedModel();
    const QFuture<ModelCheck> checking = parts_.checkModel(model);
    const ModelCheck check = co_await checking;
    if (check.isReady && modelProblem_)
        modelBecameReady(model);
}

std::weak_ptr<Dictation> AppDelegate::showLauncherAndRecord(Dictation::Keyboard keyboard)
{
    if (isUserAway())
        return {};
    if (isDictating()) {
        if (dictation_->state() > Dictation::State::recording)
            shell().showPasteHUD(std::nullopt, {}, tr("Still working on the last dictation."));
        return {};
    }
    if (!hasModel())
        return {};
    const bool isElsewhere = isOfferElsewhere();
    if (!isElsewhere)
        recovery().forgetCancelled();
    dictation_ = Dictation::begin(parts_.dictation, keyboard);
    if (isElsewhere)
        recovery().makeRoom();
    return dictation_;
}

/// Without one, opens the window that downloads it.
bool AppDelegate::hasModel()
{
    const TranscriptionModel& model = parts_.models.selectedModel();
    const bool isKnownProblem = modelProblem_ && modelProblem_->model == model.name;
    const bool isDamaged = isKnownProblem && !modelProblem_->text.isEmpty();
    // It may have been removed since the start, or put back by hand.
    if (!isDamaged && parts_.dictation.transcription.hasModel()) {
        if (isKnownProblem) {
            shell().closeModelDownload();
            modelBecameReady(model);
        }
        return true;
    }
    downloadModel(model, isKnownProblem ? modelProblem_->text : QString());
    return false;
}

bool AppDelegate::takeCancelBack()
{
    return !isUserAway() && !isDictating() && !isOfferElsewhere() && recovery().takeCancelBack();
}

/// Takes back a cancel that is still on offer, except when the shortcut is held or used in another window: that starts
/// a dictation.
std::weak_ptr<Dictation> AppDelegate::shortcutUsed(Dictation::Keyboard keyboard)
{
    const bool isHeld = keyboard == Dictation::Keyboard::left;
    return !isHeld && takeCancelBack() ? std::weak_ptr<Dictation>() : showLauncherAndRecord(keyboard);
}

bool AppDelegate::isDictating() const
{
    return dictation_ && !dictation_->isOver();
}

bool AppDelegate::isOfferElsewhere() const
{
    return recovery().hasOffer() && recovery().offersForAnother(parts_.dictation.delivery.targetInFront());
}

std::shared_ptr<Dictation> AppDelegate::transcribeAgain(Owed owed)
{
    if (isDictating())
        throw NotNow(tr("a dictation is already in progress"));
    if (!hasModel())
        throw Error(tr("the speech model is missing; see the program's window"));
    dictation_ = Dictation::again(parts_.dictation, std::move(owed));
    return dictation_;
}

void AppDelegate::stopRecording()
{
    if (dictation_)
        dictation_->stop();
}

void AppDelegate::cancelDictation()
{
    if (dictation_)
        dictation_->cancel();
}

QCoro::Task<> AppDelegate::pasteAgain(QString text)
{
    if (isDictating())
        co_return;
    PasteDelivery& delivery = parts_.dictation.delivery;
    delivery.returnTo(delivery.otherWindow());
    const auto pasting = pasteInFront(std::move(text));
    co_await pasting;
}

QString AppDelegate::pasteOriginal()
{
    if (isDictating())
        return tr("a dictation is in progress");
    const QString text = dictation_ ? dictation_->transcript().trimmed() : QString();
    if (text.isEmpty())
        return tr("nothing has been dictated since vantro was started; vantro last --original writes what was before");
    if (!parts_.dictation.delivery.canCopy())
        return tr("this desktop lets no program copy while you work in another");
    parts_.dictation.delivery.rememberTarget();
    pasteInFront(text);
    return {};
}

/// Into the window that the delivery has as its target.
QCoro::Task<> AppDelegate::pasteInFront(QString text)
{
    PasteDelivery& delivery = parts_.dictation.delivery;
    const auto delivering = delivery.deliver(std::move(text));
    const auto outcome = co_await delivering;
    const QString reason = delivery.explanation(outcome);
    std::function<QString()> keys;
    if (outcome != PasteDelivery::Outcome::Held)
        keys = [&delivery] {
            return delivery.pasteKeys();
        };
    if (!reason.isEmpty())
        shell().showPasteHUD(std::nullopt, std::move(keys), reason);
}

DictationTimings AppDelegate::timings() const
{
    return dictation_ ? dictation_->timings() : DictationTimings();
}

/// Reported only after a few more attempts: programs that start or end together fight for a moment.
void AppDelegate::shortcutFailed(const QString& name)
{
    if (name != KeyboardShortcuts::Name::openModal.rawValue || std::exchange(isShortcutReportDue_, true))
        return;
    parts_.dictation.clock.callAfter(shortcutPatience, this, [this] {
        isShortcutReportDue_ = false;
        if (const auto reason = parts_.shortcuts.failure(KeyboardShortcuts::Name::openModal))
            shell().showAlert(tr("Shortcut Not Available"),
                              *reason + QStringLiteral("\n\n") + wording::howToChooseShortcut());
    });
}

} // namespace vantro
