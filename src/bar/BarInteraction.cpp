#include "bar/BarInteraction.h"

#include "bar/barTiles.h"

#include <algorithm>
#include <utility>

namespace larkspan {

BarInteraction::BarInteraction(Scheduler& scheduler, const DockStore& store, BarLook& look,
                               BarOverlay& overlay)
    : scheduler_(scheduler)
    , store_(store)
    , look_(look)
    , overlay_(overlay) {
    observe();
}

BarInteraction::~BarInteraction() {
    overlay_.leave(*this);
}

void BarInteraction::observe() {
    const auto refresh = [this] { refreshSoon(); };
    const auto follow = [&](const auto&... properties) {
        (observations_.push_back(properties.observe(refresh)), ...);
    };
    follow(store_.pinnedItems(), store_.windowAppGroups(), store_.backgroundItems(),
           store_.frontmostPID(), store_.frontDisplays(), store_.badges(), store_.launchingIDs(),
           store_.attentionIDs(), store_.isTrashEmpty());
    follow(look_.showsTrash, look_.style, look_.islandRoundness, look_.islandInset,
           look_.islandPadding);
    observations_.push_back(overlay_.menuChosen.subscribe([this] { setKeyboard(false); }));
}

void BarInteraction::setMirrored(bool isMirrored) {
    if (std::exchange(isMirrored_, isMirrored) != isMirrored) refresh();
}

void BarInteraction::place(const Screen& screen, const Size& panel) {
    if (screen == screen_ && panel == panel_) return;
    screen_ = screen;
    panel_ = panel;
    refresh();
}

void BarInteraction::setShown(bool isShown) {
    isShown_ = isShown;
    if (isShown) return catchUp();
    // A panel that goes from under the pointer does not tell that it left.
    setKeyboard(false);
    light(noTile);
    overlay_.leave(*this);
}

/// The model sets several properties in one go; the bar follows once, at the end of the turn.
void BarInteraction::refreshSoon() {
    if (const auto animation = store_.animation()) pendingAnimation_ = animation;
    if (std::exchange(isRefreshPending_, true)) return;
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (alive.lock()) catchUp();
    });
}

void BarInteraction::catchUp() {
    if (isRefreshPending_) refresh();
}

BarLayoutInput BarInteraction::layoutInput() const {
    return {.panel = panel_,
            .style = *look_.style,
            .roundness = *look_.islandRoundness,
            .inset = *look_.islandInset,
            .padding = *look_.islandPadding,
            .isMirrored = isMirrored_};
}

void BarInteraction::refresh() {
    isRefreshPending_ = false;
    if (panel_.width <= 0) return;
    animation_ = std::exchange(pendingAnimation_, {}).value_or(windowReadAnimation);
    const int before = *litTile;
    const std::string lit = before == noTile ? "" : tiles()[static_cast<std::size_t>(before)].key();
    std::vector<BarTile> tiles = barTiles(store_, screen_.display, *look_.showsTrash);
    BarLayout layout = layOutBar(tiles, layoutInput());
    contents.set({std::move(tiles), std::move(layout)});
    setScrollX(*scrollX);
    if (before == noTile) return;
    int now = placeOf(lit);
    // Whoever walks with the keys goes on from where the tile stood.
    if (now == noTile && *hasKeyboard) now = std::min(before, tileCount() - 1);
    // A label that a click took away stays away.
    litTile.set(now);
    if (overlay_.hasLabelOf(*this)) updateLabel();
}

int BarInteraction::placeOf(const std::string& key) const {
    const auto found = std::ranges::find(tiles(), key, &BarTile::key);
    return found == tiles().end() ? noTile : static_cast<int>(found - tiles().begin());
}

Rect BarInteraction::frame() const {
    return onScreen(layout().glass, panel_.height, screen_.frame);
}

Rect BarInteraction::frameOfTile(int tile) const {
    const Rect inPanel = layout().tileFrame(static_cast<std::size_t>(tile), *scrollX);
    return onScreen(inPanel, panel_.height, screen_.frame);
}

void BarInteraction::setPointerInside(bool isInside) {
    overlay_.setPointer(*this, isInside && isShown_);
}

void BarInteraction::hover(int tile, bool isHovered) {
    if (*hasKeyboard) return;
    if (isHovered)
        light(tile);
    else if (tile == *litTile)
        light(noTile);
}

void BarInteraction::light(int tile) {
    if (litTile.set(tile)) updateLabel();
}

void BarInteraction::updateLabel() {
    if (*litTile == noTile) return overlay_.hideLabel(*this);
    const BarTile& tile = tiles()[static_cast<std::size_t>(*litTile)];
    overlay_.showLabel(*this, tile.name(), frameOfTile(*litTile), screen_);
}

void BarInteraction::setScrollX(double x) {
    scrollX.set(std::clamp(x, 0.0, layout().scrollRange()));
}

void BarInteraction::scrollBy(double points) {
    setScrollX(*scrollX + points);
    if (overlay_.hasLabelOf(*this)) updateLabel();
}

void BarInteraction::scrollPage(bool isToTheRight) {
    const double tile = layout().tileWidth;
    const double page = std::max(tile, layout().viewWidth - tile);
    scrollBy(isToTheRight ? page : -page);
}

void BarInteraction::reveal(int tile) {
    const double x = layout().tileX[static_cast<std::size_t>(tile)];
    const double end = x + layout().tileWidth;
    if (x < *scrollX) setScrollX(x);
    if (end > *scrollX + layout().viewWidth) setScrollX(end - layout().viewWidth);
}

void BarInteraction::click(int tile, ClickModifiers modifiers) {
    // A copy: the click may change the tiles. What cannot be seen has no frame.
    const BarTile clicked = tiles()[static_cast<std::size_t>(tile)];
    overlay_.click(clicked, isShown_ ? frameOfTile(tile) : Rect{}, modifiers);
}

void BarInteraction::openTileMenu(int tile) {
    overlay_.openTileMenu(*this, tiles()[static_cast<std::size_t>(tile)], frameOfTile(tile),
                          screen_);
}

void BarInteraction::openBarMenu(double x) {
    const Rect& glass = layout().glass;
    overlay_.openBarMenu(
        *this, onScreen({x, glass.y, 0, glass.height}, panel_.height, screen_.frame), screen_);
}

void BarInteraction::setKeyboard(bool has) {
    if (!hasKeyboard.set(has)) return;
    overlay_.setKeyboard(*this, has);
    if (has && tileCount() > 0) {
        reveal(0);
        light(0);
    } else {
        light(noTile);
    }
}

bool BarInteraction::press(BarKey key, ClickModifiers modifiers) {
    if (!*hasKeyboard || *litTile == noTile) return false;
    // Taken before the keyboard goes, which puts the light out.
    const int lit = *litTile;
    switch (key) {
    case BarKey::left:
        walkBy(isMirrored_ ? 1 : -1);
        break;
    case BarKey::right:
        walkBy(isMirrored_ ? -1 : 1);
        break;
    case BarKey::next:
        walkBy(1);
        break;
    case BarKey::previous:
        walkBy(-1);
        break;
    case BarKey::first:
        walkBy(-lit);
        break;
    case BarKey::last:
        walkBy(-lit - 1);
        break;
    case BarKey::click:
        setKeyboard(false);
        click(lit, modifiers);
        break;
    case BarKey::tileMenu:
        openTileMenu(lit);
        break;
    case BarKey::barMenu: {
        const Rect tile = layout().tileFrame(static_cast<std::size_t>(lit), *scrollX);
        openBarMenu(tile.x + tile.width / 2);
        break;
    }
    case BarKey::leave:
        setKeyboard(false);
        break;
    }
    return true;
}

/// Around the ends.
void BarInteraction::walkBy(int step) {
    const int tile = (*litTile + step + tileCount()) % tileCount();
    reveal(tile);
    light(tile);
}

bool BarInteraction::walkTo(const std::function<bool(const std::string& name)>& matches) {
    if (!*hasKeyboard || *litTile == noTile) return false;
    for (int step = 1; step <= tileCount(); ++step) {
        const int tile = (*litTile + step) % tileCount();
        if (!matches(tiles()[static_cast<std::size_t>(tile)].name())) continue;
        walkBy(step);
        break;
    }
    return true;
}

} // namespace larkspan
