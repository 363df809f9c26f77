#include "adapters/mac/ObjectView.h"

#include "adapters/mac/text.h"

namespace larkspan::mac {
namespace {

/// The object if it is of that class, else nil.
template <typename Class>
Class* as(id object) {
    return [object isKindOfClass:[Class class]] ? static_cast<Class*>(object) : nil;
}

bool isBoolean(id object) {
    return object != nil && CFGetTypeID((__bridge CFTypeRef)object) == CFBooleanGetTypeID();
}

struct PropertyMaker {
    id operator()(bool boolean) const { return boolean ? @YES : @NO; }
    id operator()(std::int64_t integer) const { return @(integer); }
    id operator()(double real) const { return @(real); }
    id operator()(const std::string& text) const { return nsString(text); }
    id operator()(const Data& data) const {
        return [NSData dataWithBytes:data.bytes.data() length:data.bytes.size()];
    }
    id operator()(const PropertyValue::Array& array) const {
        NSMutableArray* objects = [NSMutableArray arrayWithCapacity:array.size()];
        for (const auto& element : array)
            [objects addObject:objectOf(element)];
        return objects;
    }
    id operator()(const PropertyValue::Dictionary& dictionary) const {
        NSMutableDictionary* objects =
            [NSMutableDictionary dictionaryWithCapacity:dictionary.size()];
        for (const auto& [key, member] : dictionary)
            objects[nsString(key)] = objectOf(member);
        return objects;
    }
};

} // namespace

ObjectView ObjectView::operator[](std::string_view key) const {
    return ObjectView(as<NSDictionary>(object_)[nsString(key)]);
}

std::optional<bool> ObjectView::boolean() const {
    if (!isBoolean(object_)) return std::nullopt;
    return static_cast<NSNumber*>(object_).boolValue != NO;
}

NSNumber* ObjectView::number() const {
    return isBoolean(object_) ? nil : as<NSNumber>(object_);
}

std::optional<std::int64_t> ObjectView::integer() const {
    NSNumber* stored = number();
    if (stored == nil || CFNumberIsFloatType((__bridge CFNumberRef)stored)) return std::nullopt;
    return stored.longLongValue;
}

std::optional<double> ObjectView::real() const {
    NSNumber* stored = number();
    if (stored == nil || !CFNumberIsFloatType((__bridge CFNumberRef)stored)) return std::nullopt;
    return stored.doubleValue;
}

std::optional<std::string> ObjectView::string() const {
    NSString* text = as<NSString>(object_);
    return text != nil ? std::optional(textOf(text)) : std::nullopt;
}

std::optional<Data> ObjectView::data() const {
    NSData* data = as<NSData>(object_);
    if (data == nil) return std::nullopt;
    return Data{std::string(static_cast<const char*>(data.bytes), data.length)};
}

std::optional<std::vector<ObjectView>> ObjectView::array() const {
    NSArray* array = as<NSArray>(object_);
    if (array == nil) return std::nullopt;
    std::vector<ObjectView> views;
    views.reserve(array.count);
    for (id element in array)
        views.emplace_back(element);
    return views;
}

std::optional<std::vector<std::pair<std::string, ObjectView>>> ObjectView::dictionary() const {
    NSDictionary* dictionary = as<NSDictionary>(object_);
    if (dictionary == nil) return std::nullopt;
    std::vector<std::pair<std::string, ObjectView>> members;
    for (id key in dictionary)
        if (NSString* name = as<NSString>(key))
            members.emplace_back(textOf(name), ObjectView(dictionary[name]));
    return members;
}

id objectOf(const PropertyValue& value) {
    return std::visit(PropertyMaker{}, value.value);
}

} // namespace larkspan::mac
