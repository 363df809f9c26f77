#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::freedesktop {

/// The variables the program was started with. Taken first thing in `main`, before anything sets
/// variables of its own, so that launched applications do not get those meant for our own toolkit.
class Environment {
  public:
    using Variables = std::map<std::string, std::string, std::less<>>;

    Environment() = default;
    explicit Environment(Variables variables);
    static Environment ofProcess();

    /// The value, or an empty text if the variable is not set: the XDG specifications treat both
    /// alike.
    const std::string& value(std::string_view name) const;
    const Variables& variables() const { return variables_; }

    /// Where a program of that name is found along PATH; a path with a slash is returned as it is.
    /// Empty if there is no such executable file.
    std::string findProgram(std::string_view name) const;

  private:
    Variables variables_;
};

/// The parts of a list such as `a:b`, without the empty ones.
std::vector<std::string> splitList(std::string_view list, char separator);

} // namespace larkspan::freedesktop
