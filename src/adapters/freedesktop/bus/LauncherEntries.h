#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

class QDBusMessage;

namespace larkspan::freedesktop {

/// What an application publishes about its launcher.
struct LauncherEntry {
    std::int64_t count = 0;
    bool showsCount = false;
    bool isUrgent = false;
    bool operator==(const LauncherEntry&) const = default;
};

/// Listens to what applications publish about their launchers: the signal `Update` of the interface
/// "com.canonical.Unity.LauncherEntry" on the session bus. An update is valid until the next one,
/// or until the application leaves the bus. Main thread only.
class LauncherEntries : public QObject {
    Q_OBJECT

  public:
    /// `changed` is called whenever `entries` differ from before.
    explicit LauncherEntries(std::function<void()> changed);
    ~LauncherEntries() override;

    /// Connects to the session bus. Without one, there are never any entries.
    void listen();
    /// By the id of the desktop entry, without ".desktop".
    const std::map<std::string, LauncherEntry>& entries() const { return entries_; }

  private Q_SLOTS:
    void update(const QString& address, const QVariantMap& properties, const QDBusMessage& message);

  private:
    void senderLeft(const QString& sender);

    struct Bus;
    std::function<void()> changed_;
    std::map<std::string, LauncherEntry> entries_;
    /// Who sent the last update of each entry, by its name on the bus.
    std::map<std::string, QString> senders_;
    std::unique_ptr<Bus> bus_;
};

/// The entry after an update, which changes only the properties it contains.
LauncherEntry updatedEntry(LauncherEntry entry, const QVariantMap& properties);

/// The id in a URL such as "application://firefox.desktop"; empty for any other text.
std::string entryOfAddress(std::string_view address);

} // namespace larkspan::freedesktop
