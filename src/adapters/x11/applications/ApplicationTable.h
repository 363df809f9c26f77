#pragma once

#include "adapters/freedesktop/entries/InstalledApplications.h"
#include "adapters/x11/windows/ClientWindow.h"
#include "platform/Scheduler.h"
#include "platform/Signal.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::x11 {

/// An application as the bar understands it: a desktop entry with all its processes and windows,
/// or, if there is no entry, the windows of one WM_CLASS. A window without a class belongs to its
/// process; a window without either is an application of its own.
struct RunningEntry {
    enum class Hiding { shown, asked, hidden };

    /// Used as the process identifier of the application. It is the process of its first window,
    /// unless that is unknown or already used for another application (several classes can share a
    /// process); then it is an invented number above all real ones. It stays the same while the
    /// application runs, even if that process ends before the others.
    ProcessId number = 0;
    /// The desktop entry's id without ".desktop", the file manager's identifier, or "x11:" and the
    /// class.
    std::optional<std::string> bundleIdentifier;
    std::string className;
    /// The processes known to belong to it.
    std::set<ProcessId> processes;
    /// Front to back.
    std::vector<ClientWindowRef> windows;
    Hiding hiding = Hiding::shown;
    /// The windows that were iconified to hide the application.
    std::vector<WindowId> iconified;
    /// The window to bring forward before others; 0 for the frontmost one.
    WindowId mainWindow = 0;
    bool isLaunching = false;
    /// Larger for applications that started later.
    std::uint64_t order = 0;

    bool isHidden() const { return hiding == Hiding::hidden; }
};

/// The running applications, derived from the windows and from what was launched. Main thread only.
class ApplicationTable {
  public:
    /// Calls back once the process has ended, until its handle ends; returns an empty handle if the
    /// process cannot be watched.
    using WatchExit = std::function<Handle(ProcessId process, std::function<void()> ended)>;
    using FindEntry = std::function<std::optional<freedesktop::EntryMatch>(
        const std::string& instance, const std::string& className,
        std::optional<ProcessId> process)>;

    /// A launch counts as under way for this many seconds, unless a window appears first.
    static constexpr double launchLimit = 15;
    /// After the launched process has ended, the wait is at most this long: it failed, or passed
    /// the request on to a running one.
    static constexpr double handoverLimit = 3;

    ApplicationTable(Scheduler& scheduler, FindEntry findEntry, WatchExit watchExit);

    /// The number of the application that owns a window with these properties; a new one for its
    /// first window.
    ProcessId ownerOf(const ClientProperties& facts);
    /// Updates the table with the current windows, front to back. Applications without windows are
    /// removed, unless a process of their desktop entry is still running.
    void update(const std::vector<ClientWindowRef>& windows);

    void noteLaunch(const std::string& bundleIdentifier, std::optional<ProcessId> process);
    void noteHideAsked(ProcessId number, std::vector<WindowId> iconified);
    void noteShowAsked(ProcessId number);
    void setMainWindow(ProcessId number, WindowId window);

    /// In launch order.
    std::vector<const RunningEntry*> applications() const;
    const RunningEntry* find(ProcessId number) const;
    const RunningEntry* findIdentifier(std::string_view bundleIdentifier) const;

    /// A process ended or a launch timed out.
    Signal<> changed;

  private:
    struct Entry : RunningEntry {
        std::string key;
        std::map<ProcessId, Handle> exitWatches;
        Handle launchTimer;
    };

    Entry& entryFor(const std::string& key, std::optional<std::string> bundleIdentifier,
                    std::optional<ProcessId> process);
    ProcessId freeNumber(std::optional<ProcessId> process);
    void watchProcess(Entry& entry, ProcessId process);
    void processEnded(ProcessId number, ProcessId process);
    void limitLaunch(Entry& entry, double seconds);
    void launchTimedOut(ProcessId number);
    void updateHiding(Entry& entry);
    void dropEnded();

    Scheduler& scheduler_;
    FindEntry findEntry_;
    WatchExit watchExit_;
    std::map<ProcessId, Entry> entries_;
    std::map<std::string, ProcessId, std::less<>> numbers_;
    ProcessId nextMadeUp_;
    std::uint64_t nextOrder_ = 0;
};

} // namespace larkspan::x11
