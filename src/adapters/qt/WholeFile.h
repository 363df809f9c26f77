#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace larkspan::qt {

/// A small file of ours that is read and written as a whole. A link is followed: the file it points
/// to is the one that is replaced.
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
    /// Writes the text to another file beside it, flushes that, and renames it over this one, with
    /// the folder made when it is missing; only this user may read either. False leaves the old
    /// file as it was, and `errno` at why.
    bool write(std::string_view text) const;
    /// Renames the file to `NAME.damaged`, or `NAME.damaged.2` and so on: an earlier one is never
    /// lost. Answers the new path.
    std::optional<std::string> setAside() const;
    /// Differs whenever somebody wrote the file; empty when there is none.
    std::string stamp() const;
    /// Removes what writers that were killed left behind.
    void removeLeftovers() const;

  private:
    std::string target() const;

    std::string path_;
};

} // namespace larkspan::qt
