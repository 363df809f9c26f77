#include "adapters/x11/DesktopTest.h"

#include <gmock/gmock.h>

namespace larkspan::x11 {

using Pixels = std::vector<std::uint32_t>;
using qt::runUntil;

/// Without a window manager, since some set their own icon on windows that have none.
class HintIconTest : public testing::Test {
  protected:
    /// Two adjacent pixels.
    xcb_pixmap_t pixmap(std::uint8_t depth, std::uint32_t left, std::uint32_t right) {
        auto* raw = client.raw();
        const auto id = xcb_generate_id(raw);
        xcb_create_pixmap(raw, depth, id, client.root(), 2, 1);
        std::int16_t x = 0;
        for (const auto colour : {left, right}) {
            const auto context = xcb_generate_id(raw);
            xcb_create_gc(raw, context, id, XCB_GC_FOREGROUND, &colour);
            const xcb_rectangle_t pixel{x++, 0, 1, 1};
            xcb_poly_fill_rectangle(raw, id, context, 1, &pixel);
        }
        return id;
    }
    Pixels drawn(const std::string& name, xcb_pixmap_t icon, xcb_pixmap_t mask = 0) {
        const auto window = client.open({.className = name});
        client.setNumbers(window, "WM_HINTS", "WM_HINTS",
                          {mask ? 4u + 32u : 4u, 0, 0, icon, 0, 0, 0, mask, 0});
        EXPECT_TRUE(runUntil([&] {
            const auto running = desktop.running("x11:" + name);
            return running && running->icon;
        })) << name;
        const auto running = desktop.running("x11:" + name);
        return running && running->icon ? running->icon->bitmap(2).pixels : Pixels();
    }

    PrivateServer server;
    DesktopUnderTest desktop{server.display()};
    TestClient client{server.display()};
};

TEST_F(HintIconTest, IsThePixmapWithItsColours) {
    EXPECT_THAT(drawn("Coloured", pixmap(24, 0x102030, 0x405060)),
                testing::IsSupersetOf(Pixels{0xFF102030, 0xFF405060}));
}

TEST_F(HintIconTest, IsBlackOnWhiteWhenItHasTwoColours) {
    EXPECT_THAT(drawn("Plain", pixmap(1, 1, 0)),
                testing::IsSupersetOf(Pixels{0xFF000000, 0xFFFFFFFF}));
}

TEST_F(HintIconTest, IsCutOutByItsMask) {
    const auto pixels = drawn("Masked", pixmap(24, 0x102030, 0x405060), pixmap(1, 1, 0));
    EXPECT_THAT(pixels, testing::Contains(0xFF102030));
    EXPECT_THAT(pixels, testing::Not(testing::Contains(0xFF405060)));
}

TEST_F(HintIconTest, IsEmptyIfThePixmapDoesNotExist) {
    EXPECT_TRUE(drawn("Broken", 12345).empty());
}

} // namespace larkspan::x11
