#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/windows/ClientWindow.h"

#include <array>
#include <cstdint>
#include <string>

namespace larkspan::x11 {

/// Reads what a window's properties say, in two steps, so that the requests about many windows are
/// all under way before the first answer is awaited.
class ClientPropertyReader {
  public:
    /// A set of facts, one bit each.
    using Facets = std::uint32_t;
    static constexpr Facets allFacets = UINT32_MAX;
    static constexpr Facets geometryFacet = Facets{1} << 31;

    static constexpr std::size_t propertyCount = 18;
    struct Pending {
        Facets facets = 0;
        std::array<xcb_get_property_cookie_t, propertyCount> properties{};
        xcb_get_geometry_cookie_t geometry{};
        xcb_translate_coordinates_cookie_t origin{};
    };

    explicit ClientPropertyReader(X11Connection& connection);

    /// The facets that the property carries; 0 when none.
    Facets facetsOf(xcb_atom_t property) const;
    Pending request(WindowId window, Facets facets) const;
    /// Takes the answers into the facts; false when the window is gone.
    bool collect(const Pending& pending, ClientProperties& facts) const;

  private:
    X11Connection& connection_;
    std::string machine_;
};

} // namespace larkspan::x11
