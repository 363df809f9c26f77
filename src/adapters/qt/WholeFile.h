#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace larkspan::qt {

/// A small file that is read and written as a whole. If it is a link, the target is replaced.
class WholeFile {
  public:
    enum class State { absent, unreadable, read };
    struct Contents {
        State state = State::absent;
        std::string text;
    };

    explicit WholeFile(std::string path);

    const std::string& path() const { return path_; }
    Contents read() const;
    /// Writes the text to another file beside it, flushes that, and renames it over this one.
    /// Creates the folder if it is missing; only this user may read either. If it returns false,
    /// the old file is unchanged and `errno` has the error.
    bool write(std::string_view text) const;
    /// Renames the file to `NAME.damaged`, or `NAME.damaged.2` and so on, so that no earlier one is
    /// lost. Returns the new path.
    std::optional<std::string> setAside() const;
    /// Changes whenever the file is written; empty if there is no file.
    std::string stamp() const;
    /// Removes temporary files of writers that were killed.
    void removeLeftovers() const;

  private:
    std::string target() const;

    std::string path_;
};

} // namespace larkspan::qt
