#include "DesktopReading.h"

#include <algorithm>
#include <map>

#include <xcb/randr.h>

namespace larkspan::e2e {

namespace {

using nlohmann::json;
using x11::TestClient;
using Numbers = std::vector<std::uint32_t>;

struct Monitor {
    std::uint32_t name = 0;
    Rect area;
};

struct App {
    int windows = 0;
    int minimized = 0;
    /// Monitor and desktop of each window that is shown there.
    std::set<std::pair<std::uint32_t, std::uint32_t>> places;
};

std::string groupLine(std::uint64_t display, std::uint64_t space, bool isShown,
                      const std::string& app) {
    return "display " + std::to_string(display) + " Space " + std::to_string(space) +
           (isShown ? " (shown): " : ": ") + app;
}

// An app without an identifier has a number that only the program knows.
std::string nameOf(const std::string& id) {
    return id.starts_with("pid:") ? "an app without a name" : id;
}

std::string appText(const std::string& id, int windows, int minimized) {
    return nameOf(id) + ", " + std::to_string(windows) + " windows, " + std::to_string(minimized) +
           " minimised";
}

bool contains(const Numbers& numbers, std::uint32_t number) {
    return std::ranges::find(numbers, number) != numbers.end();
}

/// Reads the X server's properties when they are needed.
class ServerReader {
  public:
    explicit ServerReader(TestClient& client)
        : client_(client) {}

    DesktopReading read() {
        readMonitors();
        desktops_ = rootNumber("_NET_NUMBER_OF_DESKTOPS");
        for (const auto window : client_.numbers(client_.root(), "_NET_CLIENT_LIST"))
            readWindow(window);

        DesktopReading reading;
        const auto shown = rootNumber("_NET_CURRENT_DESKTOP");
        for (const auto& [id, app] : apps_) {
            const auto text = appText(id, app.windows, app.minimized);
            if (app.places.empty()) reading.insert("away: " + text);
            for (const auto& [display, desktop] : app.places)
                reading.insert(groupLine(display, (std::uint64_t{display} << 32) + desktop + 1,
                                         desktop == shown, text));
        }
        const auto front = idOf(rootNumber("_NET_ACTIVE_WINDOW"));
        reading.insert("front: " + (apps_.contains(front) ? nameOf(front) : "nothing with a tile"));
        return reading;
    }

    std::string text() {
        readMonitors();
        std::string lines;
        for (const auto& monitor : monitors_)
            lines += "  display " + std::to_string(monitor.name) + areaText(monitor.area) + "\n";
        for (const auto window : client_.numbers(client_.root(), "_NET_CLIENT_LIST")) {
            lines += "  " + std::to_string(window) + " of " + idOf(window) +
                     areaText(frameOf(window)) + " desktop";
            for (const auto desktop : client_.numbers(window, "_NET_WM_DESKTOP"))
                lines += " " + std::to_string(desktop);
            lines += "\n";
        }
        return lines;
    }

  private:
    static std::string areaText(const Rect& area) {
        std::string text = ":";
        for (const double number : {area.x, area.y, area.width, area.height})
            text += " " + std::to_string(static_cast<int>(number));
        return text;
    }

    std::uint32_t rootNumber(const std::string& property) {
        const auto numbers = client_.numbers(client_.root(), property);
        return numbers.empty() ? 0 : numbers.front();
    }

    void readMonitors() {
        auto* raw = client_.raw();
        auto* reply = xcb_randr_get_monitors_reply(
            raw, xcb_randr_get_monitors(raw, client_.root(), 1), nullptr);
        for (auto it = xcb_randr_get_monitors_monitors_iterator(reply); it.rem > 0;
             xcb_randr_monitor_info_next(&it))
            monitors_.push_back({it.data->name,
                                 {double(it.data->x), double(it.data->y), double(it.data->width),
                                  double(it.data->height)}});
        std::free(reply);
    }

    // The application's identifier, from the desktop entries that the test has installed.
    std::string idOf(xcb_window_t window) {
        const auto windowClass = window == XCB_NONE ? std::string() : client_.classOf(window);
        if (windowClass.empty()) return "pid:" + std::to_string(window);
        const auto app = std::ranges::find(testApps(), windowClass, &TestApp::windowClass);
        return app == testApps().end() ? "x11:" + windowClass : app->id;
    }

    bool isOrdinary(xcb_window_t window, const Numbers& states) {
        const auto types = client_.numbers(window, "_NET_WM_WINDOW_TYPE");
        const bool isOrdinaryType = types.empty() ||
                                    contains(types, client_.atom("_NET_WM_WINDOW_TYPE_NORMAL")) ||
                                    contains(types, client_.atom("_NET_WM_WINDOW_TYPE_DIALOG"));
        return isOrdinaryType && !contains(states, client_.atom("_NET_WM_STATE_SKIP_TASKBAR"));
    }

    void readWindow(xcb_window_t window) {
        const auto states = client_.numbers(window, "_NET_WM_STATE");
        if (!isOrdinary(window, states)) return;
        auto& app = apps_[idOf(window)];
        ++app.windows;
        if (contains(states, client_.atom("_NET_WM_STATE_HIDDEN"))) {
            ++app.minimized;
            return;
        }
        const auto display = monitorOf(frameOf(window));
        const auto desktop = client_.numbers(window, "_NET_WM_DESKTOP");
        if (!desktop.empty() && desktop.front() != TestClient::everyDesktop) {
            app.places.emplace(display, desktop.front());
            return;
        }
        for (std::uint32_t each = 0; each < desktops_; ++each)
            app.places.emplace(display, each);
    }

    Rect frameOf(xcb_window_t window) {
        const auto area = client_.areaOf(window);
        const auto frame = client_.numbers(window, "_NET_FRAME_EXTENTS");
        if (frame.size() < 4) return area;
        const double left = frame[0], right = frame[1], top = frame[2], bottom = frame[3];
        return {area.x - left, area.y - top, area.width + left + right, area.height + top + bottom};
    }

    // The monitor that shows most of the window.
    std::uint32_t monitorOf(const Rect& window) const {
        const auto overlap = [&](const Monitor& monitor) {
            const auto& area = monitor.area;
            const double width =
                std::min(window.x + window.width, area.x + area.width) - std::max(window.x, area.x);
            const double height = std::min(window.y + window.height, area.y + area.height) -
                                  std::max(window.y, area.y);
            return std::max(width, 0.0) * std::max(height, 0.0);
        };
        return std::ranges::max_element(monitors_, {}, overlap)->name;
    }

    TestClient& client_;
    std::vector<Monitor> monitors_;
    std::uint32_t desktops_ = 0;
    std::map<std::string, App> apps_;
};

std::string textOf(const json& item) {
    return appText(item.at("id"), item.at("windows"), item.at("minimized"));
}

} // namespace

DesktopReading readServer(TestClient& reader) {
    return ServerReader(reader).read();
}

std::string serverText(TestClient& reader) {
    return ServerReader(reader).text();
}

DesktopReading readReport(const json& report) {
    DesktopReading reading;
    if (!report.is_object()) return {"no report"};
    // For a hidden app, the X server only shows that its windows are minimised.
    std::map<std::string, json> hidden;
    for (const auto& group : report.at("groups"))
        for (const auto& item : group.at("items"))
            if (item.at("hidden"))
                hidden[item.at("id")] = item;
            else
                reading.insert(groupLine(group.at("display"), group.at("space"),
                                         !group.at("ring").get<bool>(), textOf(item)));
    for (const auto& [id, item] : hidden)
        reading.insert("away: " + textOf(item));
    for (const auto& item : report.at("background"))
        reading.insert("away: " + textOf(item));
    const auto& front = report.at("frontmost");
    const bool hasTile = front.is_object() && front.at("id").is_string();
    reading.insert("front: " + (hasTile ? nameOf(front.at("id")) : "nothing with a tile"));
    return reading;
}

std::string differences(const DesktopReading& server, const DesktopReading& report) {
    std::string text;
    const auto add = [&](const DesktopReading& these, const DesktopReading& those,
                         const std::string& whose) {
        std::vector<std::string> own;
        std::ranges::set_difference(these, those, std::back_inserter(own));
        for (const auto& line : own)
            text += "  only " + whose + ": " + line + "\n";
    };
    add(server, report, "the X server");
    add(report, server, "the report");
    return text;
}

} // namespace larkspan::e2e
