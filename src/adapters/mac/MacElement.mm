#include "adapters/mac/MacElement.h"

#include "adapters/mac/ObjectView.h"
#include "adapters/mac/text.h"

namespace larkspan::mac {
namespace {

bool isOfType(id object, CFTypeID type) {
    return object != nil && CFGetTypeID((__bridge CFTypeRef)object) == type;
}

AXElementRef elementOf(id object) {
    return isOfType(object, AXUIElementGetTypeID()) ? std::make_shared<MacElement>(object)
                                                    : nullptr;
}

template <typename Structure>
std::optional<Structure> structureOf(AXValueRef value, AXValueType type) {
    Structure structure;
    if (!AXValueGetValue(value, type, &structure)) return std::nullopt;
    return structure;
}

std::optional<AXValue> geometryOf(AXValueRef value) {
    if (const auto point = structureOf<CGPoint>(value, kAXValueTypeCGPoint))
        return Point{point->x, point->y};
    if (const auto size = structureOf<CGSize>(value, kAXValueTypeCGSize))
        return Size{size->width, size->height};
    if (const auto rect = structureOf<CGRect>(value, kAXValueTypeCGRect))
        return Rect{rect->origin.x, rect->origin.y, rect->size.width, rect->size.height};
    return std::nullopt;
}

/// The elements of a list; other values are skipped.
std::vector<AXElementRef> elementsOf(NSArray* list) {
    std::vector<AXElementRef> elements;
    elements.reserve(list.count);
    for (id object in list)
        if (auto element = elementOf(object)) elements.push_back(std::move(element));
    return elements;
}

struct AttributeMaker {
    id operator()(bool boolean) const { return boolean ? @YES : @NO; }
    id operator()(std::int64_t integer) const { return @(integer); }
    id operator()(double real) const { return @(real); }
    id operator()(const std::string& text) const { return nsString(text); }
    id operator()(const Point& point) const {
        const CGPoint structure = CGPointMake(point.x, point.y);
        return CFBridgingRelease(AXValueCreate(kAXValueTypeCGPoint, &structure));
    }
    id operator()(const Size& size) const {
        const CGSize structure = CGSizeMake(size.width, size.height);
        return CFBridgingRelease(AXValueCreate(kAXValueTypeCGSize, &structure));
    }
    id operator()(const Rect& rect) const {
        const CGRect structure = CGRectMake(rect.x, rect.y, rect.width, rect.height);
        return CFBridgingRelease(AXValueCreate(kAXValueTypeCGRect, &structure));
    }
    id operator()(const AXElementRef& element) const {
        return (__bridge id)MacElement::of(element);
    }
    id operator()(const std::vector<AXElementRef>& elements) const {
        NSMutableArray* objects = [NSMutableArray arrayWithCapacity:elements.size()];
        for (const auto& element : elements) {
            id object = (*this)(element);
            if (object == nil) return nil;
            [objects addObject:object];
        }
        return objects;
    }
};

} // namespace

AXElementRef MacElement::adopt(AXUIElementRef element) {
    return elementOf(CFBridgingRelease(element));
}

AXUIElementRef MacElement::of(const AXElementRef& element) {
    if (!element) return nullptr;
    return (__bridge AXUIElementRef) static_cast<const MacElement&>(*element).element_;
}

std::optional<AXValue> axValueOf(id object) {
    if (isOfType(object, AXValueGetTypeID())) return geometryOf((__bridge AXValueRef)object);
    if (auto element = elementOf(object)) return AXValue(std::move(element));
    if ([object isKindOfClass:[NSArray class]])
        return AXValue(elementsOf(static_cast<NSArray*>(object)));
    if ([object isKindOfClass:[NSURL class]])
        return AXValue(textOf(static_cast<NSURL*>(object).absoluteString));
    const ObjectView view(object);
    if (const auto boolean = view.boolean()) return AXValue(*boolean);
    if (const auto integer = view.integer()) return AXValue(*integer);
    if (const auto real = view.real()) return AXValue(*real);
    if (auto text = view.string()) return AXValue(*std::move(text));
    return std::nullopt;
}

id objectOf(const AXValue& value) {
    return std::visit(AttributeMaker{}, value);
}

} // namespace larkspan::mac
