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

/// What an application says of its launcher.
struct LauncherEntry {
    std::int64_t count = 0;
    bool showsCount = false;
    bool isUrgent = false;
    bool operator==(const LauncherEntry&) const = default;
};

/// Hears what applications say of their launchers: the signal `Update` of the interface
/// "com.canonical.Unity.LauncherEntry" on the session bus, which needs no answer. What one has said
/// holds until it says otherwise or leaves the bus. Main thread only.
class LauncherEntries : public QObject {
    Q_OBJECT

  public:
    /// `changed` is called whenever `entries` differ from before.
    explicit LauncherEntries(std::function<void()> changed);
    ~LauncherEntries() override;

    /// Connects to the session bus. Without one nothing is ever heard.
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
    /// Who spoke last for each entry, by its name on the bus.
    std::map<std::string, QString> senders_;
    std::unique_ptr<Bus> bus_;
};

/// What an update leaves of an entry: only what it names changes.
LauncherEntry updatedEntry(LauncherEntry entry, const QVariantMap& properties);

/// The id in an address such as "application://firefox.desktop"; empty for any other text.
std::string entryOfAddress(std::string_view address);

} // namespace larkspan::freedesktop
