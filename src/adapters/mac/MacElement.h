#pragma once

#include "platform/Accessibility.h"

#import <Foundation/Foundation.h>

#include <ApplicationServices/ApplicationServices.h>

namespace larkspan::mac {

/// Retains an Accessibility element.
class MacElement final : public AXElement {
  public:
    /// Takes ownership of the caller's reference; nullptr if it is null.
    static AXElementRef adopt(AXUIElementRef element);
    /// The native element of one made by this adapter; nullptr if there is none.
    static AXUIElementRef of(const AXElementRef& element);

    explicit MacElement(id element)
        : element_(element) {}

  private:
    id element_;
};

/// An attribute's value; absent for a type that `AXValue` does not support.
std::optional<AXValue> axValueOf(id object);

/// A value in Accessibility's format; nil for a list with an unsupported element.
id objectOf(const AXValue& value);

} // namespace larkspan::mac
