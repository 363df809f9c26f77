#pragma once

#include <functional>
#include <initializer_list>
#include <mutex>
#include <vector>

namespace larkspan::mac {

/// The address of a name in the libraries this process has loaded; nullptr when there is none.
using SymbolLookup = std::function<void*(const char* name)>;

/// A function of the system that is in no header and may not exist. Looked up by name when it is
/// first asked for, once, by whichever thread comes first. Any thread.
template <typename Signature>
class PrivateFunction {
  public:
    /// The names are tried in order and must live as long as the program; `lookup` as long as this.
    PrivateFunction(const SymbolLookup& lookup, std::initializer_list<const char*> names)
        : lookup_(lookup)
        , names_(names) {}

    /// Nullptr when this system has no such function.
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
