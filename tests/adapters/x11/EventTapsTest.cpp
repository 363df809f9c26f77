#include "adapters/x11/DesktopTest.h"

#include <gtest/gtest.h>

#include <xcb/xinput.h>

namespace larkspan::x11 {
namespace {

constexpr std::uint64_t gestures = std::uint64_t{1} << TapEvent::gesture;

/// Another program that selects the swipes of the root window; `listen` returns whether it gets
/// them.
class OtherListener {
  public:
    explicit OtherListener(const std::string& display)
        : connection_(xcb_connect(display.c_str(), nullptr)) {
        std::free(xcb_input_xi_query_version_reply(
            connection_, xcb_input_xi_query_version(connection_, 2, 4), nullptr));
    }
    ~OtherListener() { xcb_disconnect(connection_); }
    OtherListener(const OtherListener&) = delete;
    OtherListener& operator=(const OtherListener&) = delete;

    bool listen() {
        const struct {
            xcb_input_event_mask_t head;
            std::uint32_t events[2];
        } mask{{XCB_INPUT_DEVICE_ALL_MASTER, 2}, {3U << 30, 1}};
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        auto* error = xcb_request_check(
            connection_, xcb_input_xi_select_events_checked(connection_, root, 1, &mask.head));
        std::free(error);
        return error == nullptr;
    }

  private:
    xcb_connection_t* connection_;
};

TEST(X11EventTaps, OnlyOneTapListensAndOnlyToGestures) {
    const DesktopUnderTest desktop(ManagedServer::display());
    auto& taps = desktop.platform().eventTaps;
    const auto ignore = [](EventTap&, const TappedEvent&) {};
    EXPECT_EQ(taps.listen(1U << 10, ignore), nullptr) << "keys";
    auto tap = taps.listen(gestures, ignore);
    ASSERT_NE(tap, nullptr);
    EXPECT_EQ(taps.listen(gestures, ignore), nullptr);
    tap.reset();
    EXPECT_NE(taps.listen(gestures, ignore), nullptr);
}

TEST(X11EventTaps, AnotherProgramsSwipesAreNotTaken) {
    const DesktopUnderTest desktop(ManagedServer::display());
    auto& taps = desktop.platform().eventTaps;
    const auto ignore = [](EventTap&, const TappedEvent&) {};
    OtherListener other(ManagedServer::display());
    auto tap = taps.listen(gestures, ignore);
    ASSERT_NE(tap, nullptr);
    tap.reset();
    EXPECT_TRUE(other.listen()) << "destroying the tap releases the swipes";
    EXPECT_EQ(taps.listen(gestures, ignore), nullptr);
}

} // namespace
} // namespace larkspan::x11
