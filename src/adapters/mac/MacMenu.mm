#include "adapters/mac/MacMenu.h"

#include "adapters/mac/text.h"

#include <functional>
#include <utility>

/// The target of a menu item's action.
@interface LarkspanMenuChoice : NSObject
- (instancetype)initWithAction:(std::function<void()>)action;
- (void)choose:(id)sender;
@end

@implementation LarkspanMenuChoice {
    std::function<void()> _action;
}

- (instancetype)initWithAction:(std::function<void()>)action {
    self = [super init];
    if (self != nil) _action = std::move(action);
    return self;
}

- (void)choose:(id)__unused sender {
    // A copy: the action may destroy the menu, and this object with it.
    const auto action = _action;
    if (action) action();
}

@end

/// Available since macOS 14.
@protocol LarkspanMenuHeading
+ (NSMenuItem*)sectionHeaderWithTitle:(NSString*)title;
@end

namespace larkspan::mac {

namespace {

void setMark(NSMenuItem* item, MenuItem::Mark mark) {
    if (mark == MenuItem::Mark::check) item.state = NSControlStateValueOn;
    if (mark != MenuItem::Mark::diamond) return;
    item.state = NSControlStateValueOn;
    item.onStateImage = [NSImage imageWithSystemSymbolName:@"diamond.fill"
                                  accessibilityDescription:nil];
}

NSMenuItem* heading(NSString* title) {
    Class<LarkspanMenuHeading> maker = [NSMenuItem class];
    if ([NSMenuItem respondsToSelector:@selector(sectionHeaderWithTitle:)])
        return [maker sectionHeaderWithTitle:title];
    NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:title action:nil keyEquivalent:@""];
    item.enabled = NO;
    return item;
}

NSMenuItem* nsMenuItem(const MenuItem& line) {
    NSString* title = nsString(line.title);
    if (line.kind == MenuItem::Kind::separator) return [NSMenuItem separatorItem];
    if (line.kind == MenuItem::Kind::heading) return heading(title);
    NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:title action:nil keyEquivalent:@""];
    item.enabled = line.isEnabled ? YES : NO;
    setMark(item, line.mark);
    if (line.kind == MenuItem::Kind::submenu) {
        item.submenu = nsMenu(line.submenu);
    } else {
        LarkspanMenuChoice* choice = [[LarkspanMenuChoice alloc] initWithAction:line.action];
        item.target = choice;
        item.action = @selector(choose:);
        // The item does not retain its target.
        item.representedObject = choice;
    }
    return item;
}

/// The system shows one of two adjacent items, depending on the keys held.
void addLine(NSMenu* menu, const MenuItem& line) {
    [menu addItem:nsMenuItem(line)];
    if (!line.alternate) return;
    NSMenuItem* alternate = nsMenuItem(*line.alternate);
    alternate.keyEquivalentModifierMask = NSEventModifierFlagOption;
    alternate.alternate = YES;
    [menu addItem:alternate];
}

} // namespace

NSMenu* nsMenu(const Menu& menu) {
    NSMenu* native = [[NSMenu alloc] initWithTitle:@""];
    native.autoenablesItems = NO;
    for (const MenuItem& line : menu)
        addLine(native, line);
    return native;
}

} // namespace larkspan::mac
