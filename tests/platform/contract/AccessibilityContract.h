#pragma once

#include "platform/contract/DesktopWorld.h"

#include <gmock/gmock.h>

namespace larkspan::contract {

/// What every adapter of Accessibility must do.
class AccessibilityContract : public DesktopContract {
  protected:
    std::vector<WindowId> numbers(ProcessId pid) const {
        std::vector<WindowId> numbers;
        for (const auto& each : elements(pid))
            numbers.push_back(ax_.window(each).value_or(0));
        return numbers;
    }
    template <typename T>
    std::optional<T> value(const AXElementRef& element, std::string_view name) const {
        const auto attribute = ax_.attribute(element, name);
        EXPECT_EQ(attribute.error == AXError::success, attribute.value.has_value()) << name;
        const auto* found = attribute.as<T>();
        return found ? std::optional(*found) : std::nullopt;
    }

    /// Reads the app's windows off the main thread, where waiting for an app is allowed.
    AXError askForWindows(ProcessId pid) {
        const auto answer = std::make_shared<std::optional<AXError>>();
        auto& scheduler = platform_.scheduler;
        scheduler.queue("contract").post([&scheduler, &ax = ax_, pid, answer] {
            const auto error = ax.attribute(ax.createApplication(pid), "AXWindows").error;
            scheduler.post([answer, error] { *answer = error; });
        });
        EXPECT_TRUE(runUntil([&] { return answer->has_value(); }));
        return answer->value_or(AXError::failure);
    }
};

TEST_P(AccessibilityContract, AnAppHasItsOwnWindowsWithMinimisedOnes) {
    const auto first = world_->openWindow("writer");
    const auto second = world_->openWindow("writer");
    const auto other = world_->openWindow("painter");
    world_->minimize(first);
    ASSERT_TRUE(runUntil([&] { return !isOnScreen(first); }));
    EXPECT_THAT(numbers(owner(first)), testing::UnorderedElementsAre(first, second));
    EXPECT_THAT(numbers(owner(other)), testing::ElementsAre(other));
    for (const auto& each : elements(owner(first)))
        EXPECT_EQ(ax_.pid(each), owner(first));
}

TEST_P(AccessibilityContract, AWindowsAttributesMatchTheWindowList) {
    const auto window = world_->openWindow("writer", {.title = "Letter"});
    const auto ax = element(window);
    EXPECT_EQ(value<std::string>(ax, "AXRole"), "AXWindow");
    EXPECT_EQ(value<std::string>(ax, "AXSubrole"), "AXStandardWindow");
    EXPECT_EQ(value<std::string>(ax, "AXTitle"), "Letter");
    EXPECT_EQ(value<bool>(ax, "AXMinimized"), false);
    EXPECT_EQ(value<bool>(ax, "AXFullScreen"), false);
    const Rect bounds = *entry(window)->bounds;
    EXPECT_EQ(value<Point>(ax, "AXPosition"), (Point{bounds.x, bounds.y}));
    EXPECT_EQ(value<Size>(ax, "AXSize"), (Size{bounds.width, bounds.height}));

    world_->setTitle(window, "Second letter");
    EXPECT_TRUE(runUntil([&] { return value<std::string>(ax, "AXTitle") == "Second letter"; }));
    const auto dialog = world_->openWindow("writer", {.isDialog = true});
    EXPECT_EQ(value<std::string>(element(dialog), "AXSubrole"), "AXDialog");
}

TEST_P(AccessibilityContract, TheFrontAppsFocusedWindowIsTheOneInFront) {
    world_->openWindow("writer");
    const auto front = world_->openWindow("writer");
    ASSERT_TRUE(runUntil([&] { return isFrontmost("writer"); }));
    const auto app = ax_.createApplication(owner(front));
    EXPECT_EQ(value<std::string>(app, "AXRole"), "AXApplication");
    EXPECT_EQ(ax_.pid(app), owner(front));
    EXPECT_EQ(ax_.window(app), std::nullopt) << "an app is not a window";
    EXPECT_TRUE(runUntil([&] {
        const auto focused = value<AXElementRef>(app, "AXFocusedWindow");
        return focused && ax_.window(*focused) == front;
    }));
}

TEST_P(AccessibilityContract, TheAttributeMinimisesAndRestores) {
    const auto window = world_->openWindow("writer");
    const auto ax = element(window);
    ASSERT_EQ(ax_.setAttribute(ax, "AXMinimized", true), AXError::success);
    ASSERT_TRUE(runUntil([&] { return value<bool>(ax, "AXMinimized") == true; }));
    EXPECT_FALSE(isOnScreen(window));
    ASSERT_EQ(ax_.setAttribute(ax, "AXMinimized", false), AXError::success);
    EXPECT_TRUE(runUntil([&] { return isOnScreen(window); }));
    EXPECT_EQ(value<bool>(ax, "AXMinimized"), false);
}

TEST_P(AccessibilityContract, RaisingPutsAWindowInFrontOfItsAppsOthers) {
    const auto first = world_->openWindow("writer");
    const auto second = world_->openWindow("writer");
    ASSERT_THAT(ordered({first, second}), testing::ElementsAre(second, first));
    ASSERT_EQ(ax_.performAction(element(first), "AXRaise"), AXError::success);
    EXPECT_TRUE(runUntil([&] { return ordered({first, second}).front() == first; }));
}

TEST_P(AccessibilityContract, TheMainWindowComesForwardWithItsApp) {
    const auto first = world_->openWindow("writer");
    const auto second = world_->openWindow("writer");
    const auto other = world_->openWindow("painter");
    ASSERT_EQ(ax_.setAttribute(element(first), "AXMain", true), AXError::success);
    platform_.applications.activate(owner(first));
    EXPECT_TRUE(runUntil([&] { return ordered({first, second, other}).front() == first; }));
}

TEST_P(AccessibilityContract, TheCloseButtonCloses) {
    const auto window = world_->openWindow("writer");
    const auto button = value<AXElementRef>(element(window), "AXCloseButton");
    ASSERT_TRUE(button);
    ASSERT_EQ(ax_.performAction(*button, "AXPress"), AXError::success);
    EXPECT_TRUE(runUntil([&] { return !entry(window); }));
}

TEST_P(AccessibilityContract, ACallToAHungAppTimesOut) {
    const auto writer = owner(world_->openWindow("writer"));
    const auto painter = owner(world_->openWindow("painter"));
    ASSERT_EQ(ax_.setMessagingTimeout(ax_.createSystemWide(), 0.3F), AXError::success);
    EXPECT_EQ(askForWindows(writer), AXError::success);
    world_->hang("writer", true);
    const double before = platform_.scheduler.uptime();
    EXPECT_EQ(askForWindows(writer), AXError::cannotComplete);
    EXPECT_GE(platform_.scheduler.uptime() - before, 0.29);
    EXPECT_EQ(askForWindows(painter), AXError::success) << "only the writer hangs";
    world_->hang("writer", false);
    EXPECT_EQ(askForWindows(writer), AXError::success);
}

TEST_P(AccessibilityContract, EveryCallToAnInvalidElementFails) {
    const auto window = world_->openWindow("writer");
    world_->openWindow("writer");
    const auto ax = element(window);
    const auto button = *value<AXElementRef>(ax, "AXCloseButton");
    world_->closeWindow(window);
    ASSERT_TRUE(runUntil([&] { return !entry(window); }));
    EXPECT_EQ(ax_.attribute(ax, "AXTitle").error, AXError::invalidUIElement);
    EXPECT_EQ(ax_.setAttribute(ax, "AXMinimized", true), AXError::invalidUIElement);
    EXPECT_EQ(ax_.performAction(ax, "AXRaise"), AXError::invalidUIElement);
    EXPECT_EQ(ax_.performAction(button, "AXPress"), AXError::invalidUIElement);
    EXPECT_EQ(ax_.window(ax), std::nullopt);
}

TEST_P(AccessibilityContract, UnknownAttributesAndActionsAreUnsupported) {
    const auto ax = element(world_->openWindow("writer"));
    EXPECT_EQ(ax_.attribute(ax, "AXNonsense").error, AXError::attributeUnsupported);
    EXPECT_EQ(ax_.setAttribute(ax, "AXNonsense", true), AXError::attributeUnsupported);
    EXPECT_EQ(ax_.setAttribute(ax, "AXMinimized", std::string("yes")), AXError::illegalArgument);
    EXPECT_EQ(ax_.performAction(ax, "AXNonsense"), AXError::actionUnsupported);
}

} // namespace larkspan::contract
