#include "adapters/qt/DefaultsFile.h"
#include "adapters/qt/QtScheduler.h"
#include "adapters/qt/RunLoop.h"
#include "adapters/qt/TemporaryFolder.h"
#include "platform/contract/SchedulerContract.h"
#include "platform/contract/UserDefaultsContract.h"

#include <filesystem>
#include <optional>

namespace larkspan::contract {
namespace {

class QtSchedulerWorld : public SchedulerWorld {
  public:
    Scheduler& scheduler() override { return scheduler_; }
    bool runUntil(const std::function<bool()>& condition) override {
        return qt::runUntil(condition);
    }

  private:
    QCoreApplication& application_ = qt::testApplication();
    qt::QtScheduler scheduler_;
};

class DefaultsFileWorld : public UserDefaultsWorld {
  public:
    DefaultsFileWorld() { killAndRestart(); }
    UserDefaults& defaults() override { return *defaults_; }
    void killAndRestart() override {
        defaults_.emplace(folder_.path("larkspan/settings.json"), [](const std::string&) {});
    }
    // A file is where its folder should be.
    void breakStorage() override {
        std::filesystem::remove_all(folder_.path("larkspan"));
        folder_.write("larkspan", "");
    }

  private:
    TemporaryFolder folder_;
    std::optional<qt::DefaultsFile> defaults_;
};

INSTANTIATE_TEST_SUITE_P(Qt, SchedulerContract,
                         testing::Values(adapter<SchedulerWorld, QtSchedulerWorld>("QtScheduler")));
INSTANTIATE_TEST_SUITE_P(
    Qt, UserDefaultsContract,
    testing::Values(adapter<UserDefaultsWorld, DefaultsFileWorld>("DefaultsFile")));

} // namespace
} // namespace larkspan::contract
