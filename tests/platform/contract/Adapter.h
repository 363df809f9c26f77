#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace larkspan::contract {

/// The parameter of a contract: how to make the world of one adapter, and its name in test names.
template <typename World>
struct Adapter {
    std::string name;
    std::function<std::unique_ptr<World>()> make;

    friend std::ostream& operator<<(std::ostream& stream, const Adapter& adapter) {
        return stream << adapter.name;
    }
};

template <typename World, typename AdapterWorld, auto... arguments>
Adapter<World> adapter(std::string name) {
    return {std::move(name), [] { return std::make_unique<AdapterWorld>(arguments...); }};
}

} // namespace larkspan::contract
