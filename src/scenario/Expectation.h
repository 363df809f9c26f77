#pragma once

#include "scenario/ScenarioFields.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace larkspan::sim {

/// The value at a path such as "/pinned/org.example.notes/running"; nullptr if there is none. In a
/// list, a part of the path is an index, counted from 0, or the "id", "name" or "title" of one of
/// its objects.
const nlohmann::json* valueAt(const nlohmann::json& state, const std::string& path);

/// The conditions of an expectation, one field each.
const std::vector<Field>& expectationConditions();

/// What is wrong with the expectation itself; absent if nothing is.
std::optional<std::string> checkExpectation(const std::string& path, const nlohmann::json& fields);

/// How the state differs from the expectation; absent if it does not.
std::optional<std::string> compare(const nlohmann::json& state, const std::string& path,
                                   const nlohmann::json& fields);

} // namespace larkspan::sim
