#include "vantro/audio/AmplitudeSmoother.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

using namespace std::chrono_literals;
using namespace vantro;
using ::testing::ElementsAre;
using ::testing::FloatNear;

namespace {

struct Meter
{
    AmplitudeSmoother::TimePoint now{1h};
    std::vector<float> published;
    AmplitudeSmoother smoother{[this](float level) { published.push_back(level); },
                               [this] {
                                   return now;
                               }};

    void hear(const std::vector<float>& samples)
    {
        const std::array<const float*, 1> channels{samples.data()};
        smoother.measure(AudioTapBuffer(channels, samples.size()));
    }
    /// A steady value has itself as its RMS; the level is seven times that.
    void hearLevel(float level) { hear(std::vector<float>(1024, level / 7.0F)); }
};

} // namespace

TEST(AmplitudeSmoother, TheFirstLevelIsPublishedEvenWhenItIsSilence)
{
    Meter meter;
    meter.hearLevel(0);
    EXPECT_THAT(meter.published, ElementsAre(0.0F));
}

TEST(AmplitudeSmoother, PublishesRealChangesAtOnceAndTheRestThirtyTimesASecond)
{
    Meter meter;
    meter.hearLevel(0.5F);
    meter.hearLevel(0.505F);
    meter.hearLevel(0.495F);
    meter.hearLevel(0.52F);
    EXPECT_THAT(meter.published, ElementsAre(FloatNear(0.5F, 1e-4F), FloatNear(0.52F, 1e-4F)));

    meter.now += 33ms;
    meter.hearLevel(0.52F);
    EXPECT_EQ(meter.published.size(), 2U);
    meter.now += 1ms;
    meter.hearLevel(0.52F);
    EXPECT_EQ(meter.published.size(), 3U);
}

TEST(AmplitudeSmoother, MeasuresEverySampleOfTheFirstChannelAndStaysBetweenZeroAndOne)
{
    Meter meter;
    std::vector<float> lastOnly(1023, 0.0F);
    lastOnly.back() = 0.5F;
    meter.hear(lastOnly);
    EXPECT_NEAR(meter.published.back(), 7.0F * 0.5F / std::sqrt(1023.0F), 1e-5F);
    meter.hearLevel(1.2F);
    EXPECT_EQ(meter.published.back(), 1.0F);
    meter.hear({0.0F, std::numeric_limits<float>::infinity()});
    EXPECT_EQ(meter.published.back(), 1.0F);

    const std::size_t count = meter.published.size();
    meter.now += 1s;
    meter.hear({0.0F, std::numeric_limits<float>::quiet_NaN()});
    meter.hear({});
    meter.smoother.measure(AudioTapBuffer({}, 1024));
    EXPECT_EQ(meter.published.size(), count);
}
