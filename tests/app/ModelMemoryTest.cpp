// When models that stay in memory between dictations are unloaded.
#include "vantro/app/ModelMemory.h"

#include "tests/app/DictationFixture.h"

using namespace vantro;

namespace {

class Machine final : public SystemInfo
{
public:
    [[nodiscard]] QString operatingSystemVersion() const override { return {}; }
    [[nodiscard]] QString deviceModel() const override { return {}; }
    [[nodiscard]] QString processorName() const override { return {}; }
    [[nodiscard]] quint64 physicalMemoryBytes() const override { return 1600; }
    [[nodiscard]] std::optional<quint64> availableMemoryBytes() const override { return available; }

    std::optional<quint64> available = 800;
};

class ResidentModel : public DictationTest
{
protected:
    Machine machine;
    ModelMemory memory{{speechEngines, models, defaults, recorder, machine, clock}};
};

} // namespace

TEST_F(ResidentModel, IsUnloadedWhenMemoryIsShortButNotDuringADictation)
{
    neuralProvider.isLoaded = true;
    dictate(QStringLiteral("one"));
    EXPECT_TRUE(neuralProvider.isLoaded);
    pressShortcut();
    machine.available = 90;
    clock.advance(5min);
    pump();
    EXPECT_TRUE(neuralProvider.isLoaded);
    delegate.cancelDictation();
    pump();
    EXPECT_FALSE(neuralProvider.isLoaded);

    machine.available.reset(); // not every system tells
    neuralProvider.isLoaded = true;
    dictate(QStringLiteral("two"));
    clock.advance(5min);
    EXPECT_TRUE(neuralProvider.isLoaded);
    machine.available = 90;
    clock.advance(1min);
    EXPECT_FALSE(neuralProvider.isLoaded);
}

TEST_F(ResidentModel, IsUnloadedWhenOneOfAnotherEngineIsSelected)
{
    neuralProvider.isLoaded = true;
    models.select(*catalogue.find(QStringLiteral("Parakeet v3 (Fluid)")));
    EXPECT_TRUE(neuralProvider.isLoaded);
    models.select(*catalogue.find(QStringLiteral("tiny.en")));
    EXPECT_FALSE(neuralProvider.isLoaded);
}
