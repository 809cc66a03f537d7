// Applies a list of replacements to a text and prints the time of each run in milliseconds, one per line:
//   vantro_bench_text RUNS REPLACEMENTS.json < TEXT

#include "vantro/text/TextReplacer.h"
#include "vantro/text/VocabularyFile.h"

#include <QElapsedTimer>
#include <QFile>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    QFile list(argc == 3 ? QFile::decodeName(argv[2]) : QString());
    QFile input;
    if (!list.open(QIODevice::ReadOnly) || !input.open(stdin, QIODevice::ReadOnly))
        return EXIT_FAILURE;
    const auto replacements = vantro::readReplacements(list.readAll(), vantro::ListFormat::json);
    const QString text = QString::fromUtf8(input.readAll());
    for (int run = std::atoi(argv[1]); run > 0; --run) {
        QElapsedTimer timer;
        timer.start();
        const QString result = vantro::TextReplacer::applyReplacements(text, replacements);
        std::printf("%.3f %lld\n", static_cast<double>(timer.nsecsElapsed()) / 1e6,
                    static_cast<long long>(result.size()));
    }
    return EXIT_SUCCESS;
}
