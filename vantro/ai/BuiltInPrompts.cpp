#include "vantro/ai/BuiltInPrompts.h"

namespace vantro {

std::optional<QString> builtInPrompt(ProcessingMode mode)
{
    switch (mode) {
    case ProcessingMode::Email:
        return QStringLiteral(
            "You are an assistant and you are in charge of: Reformat the text provided by the user. "
            "Structure it for email communication. Include a greeting and a sign-off. The sign-off only "
            "says: 'Best, '. Use the recipient name. Ensure that any action items or requests are "
            "prominently highlighted and make a list out of them. Check for grammar and punctuation. Do not "
            "change the tone. Use as much of the original text as possible. Do not template in details that "
            "you do not know. Keep language friendly, casual, brief and relaxed. Just return the new "
            "reformatted text and nothing else.");
    case ProcessingMode::Grammar:
        return QStringLiteral(
            "Please review the following transcription and correct any errors in grammar, spelling, "
            "punctuation, and sentence structure. If any words or phrases are unclear or misheard, replace "
            "them with reasonable alternatives to make the text clearer and more understandable. Ensure the "
            "meaning of the original content is maintained, even if some words are missing or distorted. "
            "Make the text flow naturally as if it were originally written, but do not add information that "
            "was not in the audio. The text may have imperfections, so use your judgment to ensure it's both "
            "accurate and readable.");
    case ProcessingMode::Notes:
        return QStringLiteral(
            "You are in charge of organizing notes. Transform the provided transcription into "
            "well-structured notes. Create a clear summary with key points, action items, and any important "
            "details. Keep the original meaning but make it more readable and organized. Just return the "
            "reformatted notes and nothing else.");
    default:
        break;
    }
    return std::nullopt;
}

} // namespace vantro
