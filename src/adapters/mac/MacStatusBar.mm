#include "adapters/mac/MacStatusBar.h"

#include "adapters/mac/MacMenu.h"
#include "adapters/mac/text.h"

namespace larkspan::mac {

Handle MacStatusBar::show(StatusItem item) {
    NSStatusItem* shown =
        [NSStatusBar.systemStatusBar statusItemWithLength:NSSquareStatusItemLength];
    NSString* description = nsString(item.accessibilityDescription);
    NSImage* symbol = [NSImage imageWithSystemSymbolName:nsString(item.symbol)
                                accessibilityDescription:description];
    shown.button.image = symbol;
    // A text is shown if the system has no such symbol.
    if (symbol == nil) {
        shown.length = NSVariableStatusItemLength;
        shown.button.title = description;
    }
    shown.menu = nsMenu(item.menu);
    return Handle([shown] { [NSStatusBar.systemStatusBar removeStatusItem:shown]; });
}

} // namespace larkspan::mac
