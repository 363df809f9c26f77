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
/// or, where there is no entry, the windows of one WM_CLASS; a window that has neither is one by
/// its process, else by itself.
struct RunningEntry {
    enum class Hiding { shown, asked, hidden };

    /// Stands for the application wherever a process identifier does. It is the process of its
    /// first window, unless that one is unknown or already stands for another application (several
    /// classes can live in one process); then it is a made-up number above every real one. It stays
    /// the same while the application runs, also when that process ends before the others do.
    ProcessId number = 0;
    /// The desktop entry's id without ".desktop", the file manager's identifier, or "x11:" and the
    /// class.
    std::optional<std::string> bundleIdentifier;
    std::string className;
    /// The processes known to be its own.
    std::set<ProcessId> processes;
    /// Front to back.
    std::vector<ClientWindowRef> windows;
    Hiding hiding = Hiding::shown;
    /// The windows that hiding has iconified.
    std::vector<WindowId> iconified;
    /// The window to bring forward before others; 0 for the front one.
    WindowId mainWindow = 0;
    bool isLaunching = false;
    /// Larger for those that came later.
    std::uint64_t order = 0;

    bool isHidden() const { return hiding == Hiding::hidden; }
};

/// The applications that run, worked out from the windows and from what was launched. Main thread
/// only.
class ApplicationTable {
  public:
    /// Calls back once the process has ended, until its handle ends; an empty handle when the
    /// process cannot be watched.
    using WatchExit = std::function<Handle(ProcessId process, std::function<void()> ended)>;
    using FindEntry = std::function<std::optional<freedesktop::EntryMatch>(
        const std::string& instance, const std::string& className,
        std::optional<ProcessId> process)>;

    /// A launch counts as under way for so many seconds, unless a window comes before.
    static constexpr double launchLimit = 15;
    /// Once the launched process has ended, the wait is no longer than this: it failed, or handed
    /// over to a running one.
    static constexpr double handoverLimit = 3;

    ApplicationTable(Scheduler& scheduler, FindEntry findEntry, WatchExit watchExit);

    /// The number of the application that owns a window with these facts, made when it is the
    /// first.
    ProcessId ownerOf(const ClientProperties& facts);
    /// Takes the windows as they are now, front to back. Applications without any end, unless a
    /// process of their desktop entry still runs.
    void update(const std::vector<ClientWindowRef>& windows);

    void noteLaunch(const std::string& bundleIdentifier, std::optional<ProcessId> process);
    void noteHideAsked(ProcessId number, std::vector<WindowId> iconified);
    void noteShowAsked(ProcessId number);
    void setMainWindow(ProcessId number, WindowId window);

    /// In the order of their launches.
    std::vector<const RunningEntry*> applications() const;
    const RunningEntry* find(ProcessId number) const;
    const RunningEntry* findIdentifier(std::string_view bundleIdentifier) const;

    /// A process ended or a launch ran out of time.
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
