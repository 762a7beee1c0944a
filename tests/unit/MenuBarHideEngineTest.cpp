#include "TestSupport.h"

#include "core/bar/MenuBarHideEngine.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

// An assessment mode whose activations the test grants or refuses by hand.
class FakeAssessmentMode : public AssessmentMode {
public:
    struct Assertion : AssessmentAssertion {
        bool invalidated = false;
        std::function<void(std::optional<PlatformError>)> completion;
        QStringList owners;
        void invalidate() override { invalidated = true; }
    };

    bool available = true;
    bool configurationFails = false;
    std::vector<std::shared_ptr<Assertion>> assertions;

    bool isAvailable() const override { return available; }
    std::shared_ptr<AssessmentAssertion>
    activate(const std::vector<int>&, const QStringList& owners,
             std::function<void(std::optional<PlatformError>)> completion) override
    {
        if (configurationFails)
            return nullptr;
        auto a = std::make_shared<Assertion>();
        a->completion = std::move(completion);
        a->owners = owners;
        assertions.push_back(a);
        return a;
    }
    void grant(size_t i) { assertions.at(i)->completion(std::nullopt); }
    void refuse(size_t i)
    {
        assertions.at(i)->completion(
            PlatformError{QStringLiteral("MB"), 7, QStringLiteral("refused")});
    }
};

struct Result {
    int calls = 0;
    std::optional<PlatformError> error;
    MenuBarHideEngine::Completion callback()
    {
        return [this](std::optional<PlatformError> e) {
            ++calls;
            error = std::move(e);
        };
    }
};

} // namespace

TEST(MenuBarHideEngine, ConstantTables)
{
    EXPECT_EQ(MenuBarHideEngine::knownSystemItems().size(), 9u);
    EXPECT_EQ(MenuBarHideEngine::knownSystemItems().front().id, 6);
    EXPECT_EQ(MenuBarHideEngine::alwaysAllowedBundleIDs().size(), 13);
    EXPECT_EQ(MenuBarHideEngine::allowedSystemItems().size(), 64u);
    const auto allowed = MenuBarHideEngine::allowedSystemItems({6, 1});
    EXPECT_EQ(allowed.size(), 62u);
    EXPECT_EQ(std::vector<int>(allowed.begin(), allowed.begin() + 7),
              (std::vector<int>{0, 2, 3, 4, 5, 7, 8}));
}

TEST(MenuBarHideEngine, WithoutTheFrameworkRestrictFailsWithCodeOne)
{
    MenuBarHideEngine missing(nullptr);
    Result r;
    test::LogCapture log;
    missing.restrict({}, std::nullopt, r.callback());
    ASSERT_EQ(r.calls, 1);
    EXPECT_EQ(r.error->domain, QStringLiteral("Ravlin.HideEngine"));
    EXPECT_EQ(r.error->code, 1);
    EXPECT_EQ(r.error->description, QStringLiteral("MenuBarClientCore nicht verfügbar"));
    EXPECT_EQ(missing.stateName(), QStringLiteral("unavailable"));
}

TEST(MenuBarHideEngine, AConfigurationThatCannotBeMadeFailsWithCodeTwo)
{
    FakeAssessmentMode mode;
    mode.configurationFails = true;
    MenuBarHideEngine engine(&mode);
    Result r;
    test::LogCapture log;
    engine.restrict({}, std::nullopt, r.callback());
    EXPECT_EQ(r.error->code, 2);
    EXPECT_EQ(r.error->description, QStringLiteral("Konfiguration fehlgeschlagen"));
}

TEST(MenuBarHideEngine, AnEmptyOwnerListStillAllowsTheMandatoryOwners)
{
    FakeAssessmentMode mode;
    MenuBarHideEngine engine(&mode);
    engine.restrict({QStringLiteral("com.x"), QStringLiteral("com.x")}, std::nullopt, {});
    const QStringList owners = mode.assertions[0]->owners;
    EXPECT_EQ(owners.size(), 11);
    EXPECT_TRUE(owners.contains(QStringLiteral("com.apple.loginwindow")));
    EXPECT_EQ(engine.stateName(), QStringLiteral("pending"));
}

TEST(MenuBarHideEngine, ASecondRestrictReplacesTheFirstOnlyWhenGranted)
{
    FakeAssessmentMode mode;
    MenuBarHideEngine engine(&mode);
    Result first, second;
    engine.restrict({}, std::nullopt, first.callback());
    mode.grant(0);
    EXPECT_EQ(engine.stateName(), QStringLiteral("restricted"));
    engine.restrict({}, std::nullopt, second.callback());
    EXPECT_FALSE(mode.assertions[0]->invalidated); // not before the new one is granted
    mode.grant(1);
    EXPECT_TRUE(mode.assertions[0]->invalidated);
    EXPECT_FALSE(mode.assertions[1]->invalidated);
    EXPECT_EQ(second.calls, 1);
    EXPECT_FALSE(second.error.has_value());
}

TEST(MenuBarHideEngine, AReleaseRightAfterARestrictLeavesNoAssertionHeld)
{
    FakeAssessmentMode mode;
    MenuBarHideEngine engine(&mode);
    Result r;
    engine.restrict({}, std::nullopt, r.callback());
    engine.release();
    mode.grant(0);
    EXPECT_TRUE(mode.assertions[0]->invalidated);
    EXPECT_EQ(engine.stateName(), QStringLiteral("idle"));
    EXPECT_EQ(r.calls, 1);
    EXPECT_FALSE(r.error.has_value());
}

TEST(MenuBarHideEngine, ARefusalPassesTheFrameworksErrorOnAndKeepsThePreviousAssertion)
{
    FakeAssessmentMode mode;
    MenuBarHideEngine engine(&mode);
    Result r;
    engine.restrict({}, std::nullopt, {});
    mode.grant(0);
    engine.restrict({}, std::nullopt, r.callback());
    test::LogCapture log;
    mode.refuse(1);
    EXPECT_EQ(r.error->code, 7);
    EXPECT_TRUE(mode.assertions[1]->invalidated);
    EXPECT_FALSE(mode.assertions[0]->invalidated);
    EXPECT_EQ(engine.stateName(), QStringLiteral("restricted"));
    engine.release();
    EXPECT_TRUE(mode.assertions[0]->invalidated);
}

TEST(MenuBarHideEngine, ACompletionAfterTheEngineIsGoneDoesNothing)
{
    FakeAssessmentMode mode;
    Result r;
    {
        MenuBarHideEngine engine(&mode);
        engine.restrict({}, std::nullopt, r.callback());
    }
    mode.grant(0);
    EXPECT_EQ(r.calls, 0);
}
