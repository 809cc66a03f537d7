#include "vantro/cli/Captions.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr QChar wordBegins(0x2581);
/// Two lines of a subtitle.
constexpr qsizetype mostCharacters = 84;
constexpr auto longest = 7s;
constexpr auto pause = 800ms;

std::chrono::milliseconds inMilliseconds(std::chrono::duration<double> time)
{
    return std::chrono::round<std::chrono::milliseconds>(time);
}

bool isSentence(const QString& text)
{
    static const QString ends = QString::fromUtf8(".?!。？！");
    return !text.isEmpty() && ends.contains(text.back());
}

bool isFull(const Caption& caption, const QString& piece, const TranscribedToken& next)
{
    const auto start = inMilliseconds(next.start);
    return isSentence(caption.text) || start - caption.end >= pause ||
           inMilliseconds(next.end) - caption.start > longest || caption.text.size() + piece.size() > mostCharacters;
}

QString timeText(std::chrono::milliseconds time, QChar point)
{
    const auto total = time.count();
    return QStringLiteral("%1:%2:%3%4%5")
        .arg(total / 3'600'000, 2, 10, QLatin1Char('0'))
        .arg(total / 60'000 % 60, 2, 10, QLatin1Char('0'))
        .arg(total / 1000 % 60, 2, 10, QLatin1Char('0'))
        .arg(point)
        .arg(total % 1000, 3, 10, QLatin1Char('0'));
}

QString cue(const Caption& caption, QChar point)
{
    return QStringLiteral("%1 --> %2\n%3\n")
        .arg(timeText(caption.start, point), timeText(caption.end, point), caption.text);
}

} // namespace

std::vector<Caption> captionsFrom(const std::vector<TranscribedToken>& tokens)
{
    std::vector<Caption> captions;
    for (const TranscribedToken& token : tokens) {
        const bool isWord = token.piece.startsWith(wordBegins);
        const QString piece = QString(token.piece).replace(wordBegins, QLatin1Char(' '));
        if (captions.empty() || (isWord && isFull(captions.back(), piece, token)))
            captions.push_back({inMilliseconds(token.start), inMilliseconds(token.end), {}});
        Caption& caption = captions.back();
        caption.text = (caption.text + piece).simplified();
        caption.end = std::max(caption.end, inMilliseconds(token.end));
    }
    std::erase_if(captions, [](const Caption& caption) { return caption.text.isEmpty(); });
    return captions;
}

QString subRip(const std::vector<Caption>& captions)
{
    QString text;
    for (std::size_t i = 0; i < captions.size(); ++i)
        text += QStringLiteral("%1\n%2\n").arg(i + 1).arg(cue(captions[i], QLatin1Char(',')));
    return text;
}

QString webVtt(const std::vector<Caption>& captions)
{
    QString text = QStringLiteral("WEBVTT\n\n");
    for (const Caption& caption : captions)
        text += cue(caption, QLatin1Char('.')) + QLatin1Char('\n');
    return text;
}

} // namespace vantro
