#pragma once

#include "adapters/mac/decode/ValueView.h"

#import <Foundation/Foundation.h>

namespace larkspan::mac {

/// A view of an object of a property list, or of one of the platform's dictionaries. Keeps the
/// object alive.
class ObjectView {
  public:
    explicit ObjectView(id object)
        : object_(object) {}

    ObjectView operator[](std::string_view key) const;
    std::optional<bool> boolean() const;
    std::optional<std::int64_t> integer() const;
    std::optional<double> real() const;
    std::optional<std::string> string() const;
    std::optional<Data> data() const;
    std::optional<std::vector<ObjectView>> array() const;
    std::optional<std::vector<std::pair<std::string, ObjectView>>> dictionary() const;

  private:
    NSNumber* number() const;

    id object_;
};
static_assert(ValueView<ObjectView>);

/// The value as an object of a property list.
id objectOf(const PropertyValue& value);

} // namespace larkspan::mac
