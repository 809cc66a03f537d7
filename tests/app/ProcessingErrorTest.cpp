// What the user reads when a transcribed dictation could not be processed.
#include "platform/Wording.h"
#include "vantro/ai/providers/KeychainError.h"
#include "vantro/ai/services/LocalFormatError.h"
#include "vantro/ai/services/RemoteFormatError.h"
#include "vantro/app/ProcessingErrorMessage.h"

#include <gtest/gtest.h>

using namespace vantro;

namespace {

QString message(LocalFormatError::Kind kind)
{
    return processingErrorMessage(LocalFormatError(kind));
}

} // namespace

TEST(ProcessingErrorMessage, SpeaksWholeSentencesOfTheModelOnThisMachine)
{
    using Kind = LocalFormatError::Kind;
    EXPECT_EQ(message(Kind::modelUnavailable), QStringLiteral("The on-device model is not available on this device."));
    EXPECT_EQ(message(Kind::modelNotReady), QStringLiteral("The model is not ready. Please wait for it to download."));
    EXPECT_EQ(message(Kind::contextWindowExceeded),
              QStringLiteral("The text is too long to process. Please try with shorter text."));
    EXPECT_EQ(message(Kind::appleIntelligenceNotEnabled), wording::localProcessingIsOff() + QLatin1Char('.'));
    EXPECT_EQ(processingErrorMessage(LocalFormatError::generationFailed(QStringLiteral("no tokens"))),
              QStringLiteral("Generation failed: no tokens"));
}

TEST(ProcessingErrorMessage, LeavesAProviderItsWordsAndIntroducesEverythingElse)
{
    EXPECT_EQ(processingErrorMessage(RemoteFormatError(RemoteFormatError::Kind::contextWindowExceeded)),
              QStringLiteral("Text too long for model context window"));
    EXPECT_EQ(processingErrorMessage(RemoteFormatError::apiError(400, QStringLiteral("no such model"))),
              QStringLiteral("API error (400): no such model"));
    EXPECT_EQ(processingErrorMessage(KeychainError(KeychainError::Kind::serviceMissing, QStringLiteral("Unlock it."))),
              QStringLiteral("Error processing transcription: Keychain error: Unlock it."));
    EXPECT_EQ(processingErrorMessage(std::runtime_error("the disk is full")),
              QStringLiteral("Error processing transcription: the disk is full"));
}
