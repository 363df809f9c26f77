#include "adapters/freedesktop/entries/DesktopEntry.h"

#include "adapters/freedesktop/entries/KeyFile.h"

#include <algorithm>
#include <limits>

namespace larkspan::freedesktop {

namespace {

constexpr std::string_view mainGroup = "Desktop Entry";
constexpr std::string_view actionGroup = "Desktop Action ";

bool contains(const std::vector<std::string>& list, std::string_view value) {
    return std::ranges::find(list, value) != list.end();
}

/// A list value; a ";" inside an element is written "\;".
std::vector<std::string> listFrom(std::string_view value) {
    std::vector<std::string> list;
    std::string raw;
    const auto finish = [&] {
        if (!raw.empty()) list.push_back(unescaped(raw));
        raw.clear();
    };
    for (std::size_t index = 0; index < value.size(); ++index) {
        if (value[index] == '\\' && index + 1 < value.size()) {
            raw.append(value.substr(index++, 2));
        } else if (value[index] == ';') {
            finish();
        } else {
            raw += value[index];
        }
    }
    finish();
    return list;
}

/// A text that may be given in several languages: keeps the best one so far.
class Localized {
  public:
    explicit Localized(std::string& target)
        : target_(target) {}

    /// `locale` is empty for the untranslated text.
    void offer(std::string_view locale, std::string_view value,
               const std::vector<std::string>& wanted) {
        const auto place = locale.empty() ? wanted.end() : std::ranges::find(wanted, locale);
        if (!locale.empty() && place == wanted.end()) return;
        const auto rank = place - wanted.begin();
        if (rank >= rank_) return;
        rank_ = rank;
        target_ = unescaped(value);
    }

  private:
    std::string& target_;
    std::ptrdiff_t rank_ = std::numeric_limits<std::ptrdiff_t>::max();
};

/// Reads the lines of one desktop file into an entry.
class EntryReader {
  public:
    EntryReader(DesktopEntry& entry, const XdgFolders& folders)
        : entry_(entry)
        , folders_(folders)
        , name_(entry.name) {}

    bool isApplication() const { return isApplication_; }

    bool take(std::string_view group, std::string_view key, std::string_view value) {
        std::string_view locale;
        if (const auto bracket = key.find('['); bracket != std::string_view::npos) {
            locale = key.substr(bracket + 1, key.find(']', bracket) - bracket - 1);
            key = key.substr(0, bracket);
            // Most lines of most files: translations of keys that are not used here.
            if (key != "Name") return true;
        }
        if (group == mainGroup) return takeMain(key, locale, value);
        if (group.starts_with(actionGroup))
            takeAction(group.substr(actionGroup.size()), key, locale, value);
        return true;
    }

    void finish() {
        std::vector<DesktopAction> inOrder;
        for (const auto& id : actionOrder_) {
            const auto found = std::ranges::find(entry_.actions, id, &DesktopAction::id);
            const bool isComplete = found != entry_.actions.end() && !found->name.empty();
            if (isComplete) inOrder.push_back(*found);
        }
        entry_.actions = std::move(inOrder);
        const auto runsHere = [&](const std::vector<std::string>& desktops) {
            return std::ranges::any_of(folders_.currentDesktops, [&](const auto& desktop) {
                return contains(desktops, desktop);
            });
        };
        if (!onlyShowIn_.empty() && !runsHere(onlyShowIn_)) entry_.isDisplayed = false;
        if (runsHere(notShowIn_)) entry_.isDisplayed = false;
    }

  private:
    bool takeMain(std::string_view key, std::string_view locale, std::string_view value) {
        if (key == "Name") name_.offer(locale, value, folders_.locales);
        if (key == "Type") isApplication_ = value == "Application";
        if (key == "Icon") entry_.icon = unescaped(value);
        if (key == "Exec") entry_.exec = unescaped(value);
        if (key == "TryExec") entry_.tryExec = unescaped(value);
        if (key == "Path") entry_.workingFolder = unescaped(value);
        if (key == "StartupWMClass") entry_.startupWMClass = unescaped(value);
        if (key == "Categories") entry_.categories = listFrom(value);
        if (key == "MimeType") entry_.mimeTypes = listFrom(value);
        if (key == "Terminal") entry_.isTerminal = value == "true";
        if (key == "Hidden") entry_.isHidden = value == "true";
        if (key == "NoDisplay" && value == "true") entry_.isDisplayed = false;
        if (key == "Actions") actionOrder_ = listFrom(value);
        if (key == "OnlyShowIn") onlyShowIn_ = listFrom(value);
        if (key == "NotShowIn") notShowIn_ = listFrom(value);
        // A deleted entry needs no other keys.
        return !entry_.isHidden;
    }

    void takeAction(std::string_view id, std::string_view key, std::string_view locale,
                    std::string_view value) {
        if (actionId_ != id) {
            actionId_ = id;
            entry_.actions.push_back({.id = actionId_});
            actionName_.emplace(entry_.actions.back().name);
        }
        DesktopAction& action = entry_.actions.back();
        if (key == "Name") actionName_->offer(locale, value, folders_.locales);
        if (key == "Icon") action.icon = unescaped(value);
        if (key == "Exec") action.exec = unescaped(value);
    }

    DesktopEntry& entry_;
    const XdgFolders& folders_;
    Localized name_;
    bool isApplication_ = false;
    std::string actionId_;
    /// Of the last action, which is being read.
    std::optional<Localized> actionName_;
    std::vector<std::string> actionOrder_;
    std::vector<std::string> onlyShowIn_;
    std::vector<std::string> notShowIn_;
};

} // namespace

bool DesktopEntry::hasCategory(std::string_view category) const {
    return contains(categories, category);
}

bool DesktopEntry::handles(std::string_view mimeType) const {
    return contains(mimeTypes, mimeType);
}

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text, const XdgFolders& folders) {
    DesktopEntry entry;
    EntryReader reader(entry, folders);
    readKeyFile(text, [&](std::string_view group, std::string_view key, std::string_view value) {
        return reader.take(group, key, value);
    });
    reader.finish();
    if (!entry.isHidden && !reader.isApplication()) return std::nullopt;
    return entry;
}

} // namespace larkspan::freedesktop
