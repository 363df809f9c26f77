#include "adapters/x11/windows/ClientPropertyReader.h"

#include "adapters/x11/windows/PropertyText.h"

#include <algorithm>
#include <span>
#include <string_view>

#include <unistd.h>

namespace larkspan::x11 {

namespace {

// A title may be a megabyte long; only this much is read. In 32-bit units.
constexpr std::uint32_t longestText = 512;
constexpr std::uint32_t iconPixmapHint = 1u << 2;
constexpr std::uint32_t urgencyHint = 1u << 8;

/// The reply to a property request; without a reply, the property is absent.
class PropertyReply {
  public:
    PropertyReply(const xcb_get_property_reply_t* reply, const Atoms& atoms)
        : reply_(reply)
        , atoms_(atoms) {}

    std::span<const std::uint32_t> numbers() const {
        if (!reply_ || reply_->format != 32) return {};
        return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply_)),
                reply_->value_len};
    }
    std::optional<std::uint32_t> number() const {
        const auto all = numbers();
        return all.empty() ? std::nullopt : std::optional(all.front());
    }
    std::vector<xcb_atom_t> list() const {
        const auto all = numbers();
        return {all.begin(), all.end()};
    }
    std::string_view bytes() const {
        if (!reply_ || reply_->format != 8) return {};
        return {static_cast<const char*>(xcb_get_property_value(reply_)), reply_->value_len};
    }
    std::string text() const {
        if (!reply_) return {};
        if (reply_->type == atoms_.utf8String) return textFromUtf8(bytes());
        if (reply_->type == atoms_.compoundText) return textFromCompoundText(bytes());
        return textFromLatin1(bytes());
    }
    const Atoms& atoms() const { return atoms_; }
    bool hasValue() const { return reply_ && reply_->bytes_after > 0; }

  private:
    const xcb_get_property_reply_t* reply_;
    const Atoms& atoms_;
};

using Take = void (*)(ClientProperties&, const PropertyReply&);

struct Property {
    xcb_atom_t Atoms::*named;
    /// For an atom that is predefined in the X server.
    xcb_atom_t predefined;
    std::uint32_t length;
    Take take;
};

// The instance and the class, each terminated by NUL.
void takeClass(ClientProperties& facts, const PropertyReply& answer) {
    const auto bytes = answer.bytes();
    const auto end = bytes.find('\0');
    facts.instance = textFromLatin1(bytes.substr(0, end));
    facts.className =
        end == std::string_view::npos ? std::string() : textFromLatin1(bytes.substr(end + 1));
}

void takePid(ClientProperties& facts, const PropertyReply& answer) {
    const auto number = answer.number();
    const bool isProcess = number && *number > 0 && *number <= INT32_MAX;
    facts.namedPid = isProcess ? std::optional(static_cast<ProcessId>(*number)) : std::nullopt;
}

void takeProtocols(ClientProperties& facts, const PropertyReply& answer) {
    const auto protocols = answer.numbers();
    const auto takesPartIn = [&](xcb_atom_t protocol) {
        return std::ranges::find(protocols, protocol) != protocols.end();
    };
    facts.takesFocusItself = takesPartIn(answer.atoms().wmTakeFocus);
    facts.supportsPings = takesPartIn(answer.atoms().netWmPing);
}

void takeHints(ClientProperties& facts, const PropertyReply& answer) {
    const auto numbers = answer.numbers();
    const auto flags = numbers.empty() ? 0 : numbers[0];
    facts.isUrgent = (flags & urgencyHint) != 0;
    facts.hasHintIcon = (flags & iconPixmapHint) != 0;
    facts.hasInput = (flags & inputHint) == 0 || numbers.size() < 2 || numbers[1] != 0;
}

Edges edgesFrom(const PropertyReply& answer) {
    const auto numbers = answer.numbers();
    if (numbers.size() < 4) return {};
    // A frame thicker than any screen is wrong (or a negative number).
    const auto sane = [&](std::size_t i) { return numbers[i] < 0x8000 ? numbers[i] : 0; };
    return {sane(0), sane(1), sane(2), sane(3)};
}

void takeStrut(ClientProperties& facts, const PropertyReply& answer) {
    const auto numbers = answer.numbers();
    if (numbers.size() < 4) return;
    facts.strut = {.depth = edgesFrom(answer)};
    if (numbers.size() < 12) return;
    facts.strut.left = {numbers[4], numbers[5]};
    facts.strut.right = {numbers[6], numbers[7]};
    facts.strut.top = {numbers[8], numbers[9]};
    facts.strut.bottom = {numbers[10], numbers[11]};
}

// The old strut comes first in the table; the partial one replaces it.
const Property properties[ClientPropertyReader::propertyCount] = {
    {nullptr, XCB_ATOM_WM_CLASS, longestText, takeClass},
    {&Atoms::netWmName, 0, longestText,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.netName = answer.text(); }},
    {nullptr, XCB_ATOM_WM_NAME, longestText,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.name = answer.text(); }},
    {&Atoms::netWmPid, 0, 1, takePid},
    {nullptr, XCB_ATOM_WM_CLIENT_MACHINE, longestText,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.machine = answer.text(); }},
    {&Atoms::netWmWindowType, 0, 32,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.types = answer.list(); }},
    {&Atoms::netWmState, 0, 64,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.states = answer.list(); }},
    {nullptr, XCB_ATOM_WM_HINTS, 9, takeHints},
    {&Atoms::wmProtocols, 0, 32, takeProtocols},
    {&Atoms::wmState, 0, 2,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.wmState = answer.number(); }},
    {&Atoms::netWmDesktop, 0, 1,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.desktop = answer.number(); }},
    {nullptr, XCB_ATOM_WM_TRANSIENT_FOR, 1,
     [](ClientProperties& facts, const PropertyReply& answer) {
         facts.transientFor = answer.number().value_or(0);
     }},
    {&Atoms::netWmWindowOpacity, 0, 1,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.opacity = answer.number(); }},
    {&Atoms::netFrameExtents, 0, 4,
     [](ClientProperties& facts, const PropertyReply& answer) { facts.frame = edgesFrom(answer); }},
    {&Atoms::gtkFrameExtents, 0, 4,
     [](ClientProperties& facts, const PropertyReply& answer) {
         facts.shadow = edgesFrom(answer);
     }},
    {&Atoms::netWmStrut, 0, 4,
     [](ClientProperties& facts, const PropertyReply& answer) {
         facts.strut = {};
         takeStrut(facts, answer);
     }},
    {&Atoms::netWmStrutPartial, 0, 12, takeStrut},
    // Only whether there is an icon: the images are large and seldom needed.
    {&Atoms::netWmIcon, 0, 0,
     [](ClientProperties& facts, const PropertyReply& answer) {
         facts.hasIcon = answer.hasValue();
     }},
};

constexpr ClientPropertyReader::Facets bit(std::size_t index) {
    return ClientPropertyReader::Facets{1} << index;
}

xcb_atom_t atomOf(const Property& property, const Atoms& atoms) {
    return property.named ? atoms.*property.named : property.predefined;
}

std::string nameOfThisMachine() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : std::string();
}

} // namespace

ClientPropertyReader::ClientPropertyReader(X11Connection& connection)
    : connection_(connection)
    , machine_(nameOfThisMachine()) {}

ClientPropertyReader::Facets ClientPropertyReader::facetsOf(xcb_atom_t name) const {
    const auto& atoms = connection_.atoms();
    if (name == XCB_ATOM_NONE) return 0;
    Facets facets = 0;
    for (std::size_t i = 0; i < propertyCount; ++i)
        if (atomOf(properties[i], atoms) == name) facets |= bit(i);
    // The two struts are one facet: only reading both shows which one counts.
    if (name == atoms.netWmStrut || name == atoms.netWmStrutPartial)
        for (std::size_t i = 0; i < propertyCount; ++i)
            if (properties[i].named == &Atoms::netWmStrut ||
                properties[i].named == &Atoms::netWmStrutPartial)
                facets |= bit(i);
    return facets;
}

ClientPropertyReader::Pending ClientPropertyReader::request(WindowId window, Facets facets) const {
    Pending pending{.facets = facets};
    auto* raw = connection_.raw();
    for (std::size_t i = 0; i < propertyCount; ++i) {
        if ((facets & bit(i)) == 0) continue;
        pending.properties[i] =
            xcb_get_property(raw, 0, window, atomOf(properties[i], connection_.atoms()),
                             XCB_GET_PROPERTY_TYPE_ANY, 0, properties[i].length);
    }
    // Always requested, since the reply shows whether the window still exists.
    pending.geometry = xcb_get_geometry(raw, window);
    if (facets & geometryFacet)
        pending.origin = xcb_translate_coordinates(raw, window, connection_.root(), 0, 0);
    return pending;
}

// All replies are read even if the window is gone: xcb keeps unread ones in memory.
bool ClientPropertyReader::collect(const Pending& pending, ClientProperties& facts) const {
    for (std::size_t i = 0; i < propertyCount; ++i) {
        if ((pending.facets & bit(i)) == 0) continue;
        const auto reply = connection_.reply(xcb_get_property_reply, pending.properties[i]);
        properties[i].take(facts, {reply.get(), connection_.atoms()});
    }
    // A process number is valid only on its own machine. A client on another one must state its
    // name.
    const bool isFromHere = facts.machine.empty() || facts.machine == machine_;
    facts.pid = isFromHere ? facts.namedPid : std::nullopt;

    const auto geometry = connection_.reply(xcb_get_geometry_reply, pending.geometry);
    if ((pending.facets & geometryFacet) == 0) return geometry != nullptr;

    const auto origin = connection_.reply(xcb_translate_coordinates_reply, pending.origin);
    if (!geometry || !origin) return false;
    facts.area = {double(origin->dst_x), double(origin->dst_y), double(geometry->width),
                  double(geometry->height)};
    return true;
}

} // namespace larkspan::x11
