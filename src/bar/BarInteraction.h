#pragma once

#include "bar/BarLayout.h"
#include "bar/BarOverlay.h"
#include "bar/BarTile.h"
#include "model/Animation.h"
#include "model/DockStore.h"
#include "platform/Observed.h"
#include "platform/Scheduler.h"
#include "settings/BarLook.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// What stands on a bar, and where.
struct BarContents {
    std::vector<BarTile> tiles;
    BarLayout layout;

    bool operator==(const BarContents&) const = default;
};

/// What the keys mean to somebody who walks over the tiles. `left` and `right` are directions on
/// the screen, `next` and `previous` follow the bar.
enum class BarKey {
    left,
    right,
    next,
    previous,
    first,
    last,
    click,
    tileMenu,
    barMenu,
    leave,
};

/// One bar as its user meets it: what stands where, what is lit, and what comes of the pointer and
/// the keys. A view draws it and hands on what the user does; without a view it is the same. Main
/// thread only.
class BarInteraction {
  public:
    static constexpr int noTile = -1;

    BarInteraction(Scheduler& scheduler, const DockStore& store, BarLook& look,
                   BarOverlay& overlay);
    ~BarInteraction();
    BarInteraction(const BarInteraction&) = delete;
    BarInteraction& operator=(const BarInteraction&) = delete;

    // What views observe. Nobody else sets it.

    /// In the panel's points, from its top left. Follows the model and the look at the end of the
    /// turn in which they changed.
    Observed<BarContents> contents;
    /// The points of the tiles that are scrolled away at the left.
    Observed<double> scrollX;
    /// The tile under the pointer or, while the bar has the keyboard, the one that a key acts on.
    Observed<int> litTile{noTile};
    Observed<bool> hasKeyboard{false};

    /// The spring that came with the last change of the contents.
    const Animation& animation() const { return animation_; }
    const std::vector<BarTile>& tiles() const { return contents->tiles; }
    const BarLayout& layout() const { return contents->layout; }
    const Screen& screen() const { return screen_; }
    bool isShown() const { return isShown_; }
    /// The name that shows above one of the tiles; empty for none.
    std::string label() const { return overlay_.labelOf(*this); }

    /// The visible bar in screen coordinates: of an island, the island alone.
    Rect frame() const;
    /// A tile in screen coordinates.
    Rect frameOfTile(int tile) const;

    // From whoever puts the bar in its place.

    /// Whether the first tile stands at the right.
    void setMirrored(bool isMirrored);
    /// `panel`: the size of the panel, which stands at the bottom of the screen.
    void place(const Screen& screen, const Size& panel);
    void setShown(bool isShown);
    /// Brings the contents up to the model now, should they be behind.
    void catchUp();

    // From the user.

    void setPointerInside(bool isInside);
    void hover(int tile, bool isHovered);
    void scrollBy(double points);
    /// A page towards the right end, or towards the left one.
    void scrollPage(bool isToTheRight);
    void click(int tile, ClickModifiers modifiers = {});
    void openTileMenu(int tile);
    /// The menu of the bar itself, above that place of the panel.
    void openBarMenu(double x);
    void setKeyboard(bool hasKeyboard);
    /// Returns whether the key means anything here, which it does only with the keyboard.
    bool press(BarKey key, ClickModifiers modifiers = {});
    /// Goes to the next tile whose name matches, and stays where there is none.
    bool walkTo(const std::function<bool(const std::string& name)>& matches);

  private:
    void observe();
    void refreshSoon();
    void refresh();
    BarLayoutInput layoutInput() const;
    int placeOf(const std::string& key) const;
    int tileCount() const { return static_cast<int>(tiles().size()); }
    void walkBy(int step);
    void light(int tile);
    void reveal(int tile);
    void setScrollX(double x);
    void updateLabel();

    Scheduler& scheduler_;
    const DockStore& store_;
    BarLook& look_;
    BarOverlay& overlay_;
    Screen screen_;
    Size panel_;
    bool isMirrored_ = false;
    bool isShown_ = false;
    Animation animation_;
    bool isRefreshPending_ = false;
    /// What came with the changes that are still to be shown.
    std::optional<Animation> pendingAnimation_;
    std::vector<Handle> observations_;
    /// Ends with this object, so that a refresh that was posted finds nobody.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
