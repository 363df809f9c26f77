#pragma once

#include "platform/Accessibility.h"

#import <Foundation/Foundation.h>

#include <ApplicationServices/ApplicationServices.h>

namespace larkspan::mac {

/// An element of Accessibility's own, kept alive.
class MacElement final : public AXElement {
  public:
    /// Takes over the caller's reference; nullptr for none.
    static AXElementRef adopt(AXUIElementRef element);
    /// The element behind one that this adapter made; nullptr for none.
    static AXUIElementRef of(const AXElementRef& element);

    explicit MacElement(id element)
        : element_(element) {}

  private:
    id element_;
};

/// What an attribute holds; absent for a type that `AXValue` has no place for.
std::optional<AXValue> axValueOf(id object);

/// A value as Accessibility takes it; nil when it is a list with an element of no kind.
id objectOf(const AXValue& value);

} // namespace larkspan::mac
