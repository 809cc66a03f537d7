// store_writer PATH COUNT: saves dictations into the history PATH and acknowledges each with its identity on a line of
// standard output. Ends with 1 and the reason when a save fails.
#include "vantro/store/CoreDataStack.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    vantro::SystemClock clock;
    vantro::CoreDataStack store(clock, arguments.value(1));
    try {
        store.loadPersistentStores();
        for (int i = 0; i < arguments.value(2).toInt(); ++i) {
            const QString text = QStringLiteral("dictation number %1 ").arg(i).repeated(1 + i % 40);
            const QUuid id = store.saveTranscription(text, vantro::ProcessingMode::Email);
            if (i % 3 == 0)
                store.updateFormatted(id, text.toUpper());
            std::printf("%s\n", qUtf8Printable(id.toString(QUuid::WithoutBraces)));
            std::fflush(stdout);
        }
    } catch (const vantro::Error& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.localizedDescription()));
        return 1;
    }
    return 0;
}
