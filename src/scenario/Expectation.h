#pragma once

#include "scenario/ScenarioFields.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace larkspan::sim {

/// The value at a path such as "/pinned/org.example.notes/running"; nullptr when there is none. A
/// part of the path that meets a list is a place in it, counted from 0, or the "id", "name" or
/// "title" of one of its objects.
const nlohmann::json* valueAt(const nlohmann::json& state, const std::string& path);

/// What can be said about a value: a field for each.
const std::vector<Field>& expectationConditions();

/// Answers what is wrong with an expectation's own words.
std::optional<std::string> checkExpectation(const std::string& path, const nlohmann::json& fields);

/// Answers how the state differs from what is expected; absent when it does not.
std::optional<std::string> compare(const nlohmann::json& state, const std::string& path,
                                   const nlohmann::json& fields);

} // namespace larkspan::sim
