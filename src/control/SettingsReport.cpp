#include "control/SettingsReport.h"

#include "app/AppController.h"

#include <nlohmann/json.hpp>

namespace larkspan {
namespace {

using nlohmann::json;

json settingJson(const PropertyValue& value) {
    if (const auto* array = value.as<PropertyValue::Array>()) {
        json list = json::array();
        for (const auto& element : *array)
            list.push_back(settingJson(element));
        return list;
    }
    if (const auto* text = value.as<std::string>()) return *text;
    if (const auto* number = value.as<double>()) return *number;
    if (const auto* flag = value.as<bool>()) return *flag;
    return nullptr;
}

} // namespace

json settingReport(const AppController& controller, const Setting& setting) {
    const auto value = controller.settingInEffect(setting);
    return value ? settingJson(*value) : json(nullptr);
}

json settingsReport(const AppController& controller) {
    json all = json::object();
    for (const auto& setting : controller.settings().table())
        if (setting.isOffered()) all[std::string(setting.key)] = settingReport(controller, setting);
    return all;
}

} // namespace larkspan
