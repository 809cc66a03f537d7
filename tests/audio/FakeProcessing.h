#pragma once

#include "base/Clock.h"
#include "vantro/audio/RecordingProcessing.h"

#include <string>
#include <vector>

namespace vantro::testing {

/// Stands for everything behind the recorder. Notes what it is asked in `events`; a job takes `duration` of the
/// clock and ends in `result`.
class FakeProcessing final : public RecordingProcessing
{
public:
    explicit FakeProcessing(Clock& clock) : clock_(clock) {}

    std::chrono::milliseconds duration{700};
    DictationResult result{QStringLiteral("spoken words")};

    std::vector<std::string> events;
    QString recordingID;
    std::vector<float> samples;

    void recordingStarted() override { events.emplace_back("started"); }
    void recordingDiscarded() override { events.emplace_back("discarded"); }
    void runAbandoned() override { events.emplace_back("abandoned"); }
    std::unique_ptr<DictationJob> prepare(ProcessingMode mode) override
    {
        events.push_back("prepared " + rawValue(mode).toStdString());
        return std::make_unique<Job>(*this);
    }

private:
    class Job final : public DictationJob
    {
    public:
        explicit Job(FakeProcessing& processing) : processing_(processing) {}

        QCoro::Task<DictationResult> run(QString recordingID, std::vector<float> samples) override
        {
            processing_.events.emplace_back("run");
            processing_.recordingID = recordingID;
            processing_.samples = std::move(samples);
            const DictationResult result = processing_.result;
            co_await processing_.clock_.sleepFor(processing_.duration);
            co_return result;
        }

    private:
        FakeProcessing& processing_;
    };

    Clock& clock_;
};

} // namespace vantro::testing
