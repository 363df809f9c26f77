#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/windows/ClientWindow.h"

#include <array>
#include <cstdint>
#include <string>

namespace larkspan::x11 {

/// Reads a window's properties in two steps, so that the requests for many windows are sent before
/// the first reply is read.
class ClientPropertyReader {
  public:
    /// A set of facets of a window, one bit each.
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

    /// The facets that the property affects; 0 if none.
    Facets facetsOf(xcb_atom_t property) const;
    Pending request(WindowId window, Facets facets) const;
    /// Reads the replies into `facts`; returns false if the window is gone.
    bool collect(const Pending& pending, ClientProperties& facts) const;

  private:
    X11Connection& connection_;
    std::string machine_;
};

} // namespace larkspan::x11
