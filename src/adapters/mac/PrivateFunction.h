#pragma once

#include <functional>
#include <initializer_list>
#include <mutex>
#include <vector>

namespace larkspan::mac {

/// The address of a symbol in the loaded libraries; nullptr if there is none.
using SymbolLookup = std::function<void*(const char* name)>;

/// A function of the system that no header declares and that may not exist. Looked up by name once,
/// on first use, by whichever thread comes first. Any thread.
template <typename Signature>
class PrivateFunction {
  public:
    /// The names are tried in order and must live as long as the program; `lookup` as long as this
    /// object.
    PrivateFunction(const SymbolLookup& lookup, std::initializer_list<const char*> names)
        : lookup_(lookup)
        , names_(names) {}

    /// nullptr if this system has no such function.
    Signature* get() const {
        std::call_once(once_, [this] {
            for (const char* name : names_)
                if (function_ == nullptr) function_ = reinterpret_cast<Signature*>(lookup_(name));
        });
        return function_;
    }

  private:
    const SymbolLookup& lookup_;
    std::vector<const char*> names_;
    mutable std::once_flag once_;
    mutable Signature* function_ = nullptr;
};

} // namespace larkspan::mac
