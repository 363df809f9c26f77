#pragma once

namespace larkspan {

/// One visitor made of a function for each alternative of a variant: the compiler names the place
/// where one is missing.
template <typename... Functions>
struct Overload : Functions... {
    using Functions::operator()...;
};

} // namespace larkspan
