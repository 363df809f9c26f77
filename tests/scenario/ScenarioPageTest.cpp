#include "scenario/Expectation.h"
#include "scenario/MacReport.h"
#include "scenario/ScenarioAction.h"
#include "scenario/ScenarioWorld.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

namespace larkspan::sim {
namespace {

using Names = std::set<std::string>;

// docs/scenarios.md must document exactly what the code can do.

/// The page's lines under that heading.
std::vector<std::string> linesUnder(const std::string& heading) {
    std::ifstream page(LARKSPAN_SCENARIO_PAGE);
    std::vector<std::string> lines;
    bool isUnder = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("## ")) isUnder = line == "## " + heading;
        if (isUnder) lines.push_back(line);
    }
    return lines;
}

/// The texts in backticks.
Names inBackticks(const std::string& text) {
    Names names;
    for (auto begin = text.find('`'); begin != std::string::npos;) {
        const auto end = text.find('`', begin + 1);
        names.insert(text.substr(begin + 1, end - begin - 1));
        begin = text.find('`', end + 1);
    }
    return names;
}

/// The cells of a table's row; empty for other lines and for the head of a table.
std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    if (!line.starts_with("| `") || line.starts_with("| `\"")) return cells;
    for (std::size_t begin = 1; begin < line.size();) {
        const auto end = line.find('|', begin);
        cells.push_back(line.substr(begin, end - begin));
        begin = end + 1;
    }
    return cells;
}

/// The names in the first cells under the heading.
Names namedUnder(const std::string& heading) {
    Names names;
    for (const auto& line : linesUnder(heading)) {
        if (const auto cells = cellsOf(line); !cells.empty()) names.merge(inBackticks(cells[0]));
    }
    return names;
}

Names namesOf(const std::vector<Field>& fields) {
    Names names;
    for (const Field& field : fields)
        names.emplace(field.name);
    return names;
}

struct Fields {
    Names required;
    Names optional;
    bool operator==(const Fields&) const = default;
};

Fields fieldsOf(const ScenarioAction& action) {
    Fields fields;
    for (const Field& field : action.fields)
        (field.isRequired ? fields.required : fields.optional).emplace(field.name);
    return fields;
}

std::map<std::string, Fields> actionsOnThePage() {
    std::map<std::string, Fields> actions;
    for (const auto& line : linesUnder("Actions")) {
        const auto cells = cellsOf(line);
        if (cells.empty()) continue;
        const auto bracket = cells[1].find('[');
        for (const auto& name : inBackticks(cells[0]))
            actions[name] = {inBackticks(cells[1].substr(0, bracket)),
                             bracket == std::string::npos ? Names{}
                                                          : inBackticks(cells[1].substr(bracket))};
    }
    return actions;
}

TEST(ScenarioPageTest, ListsEveryActionWithItsFields) {
    auto page = actionsOnThePage();
    for (const auto name : scenarioActionNames()) {
        SCOPED_TRACE(name);
        const auto entry = page.extract(std::string(name));
        ASSERT_FALSE(entry.empty()) << "it is missing on the page";
        EXPECT_THAT(entry.mapped().required,
                    testing::ContainerEq(fieldsOf(*scenarioAction(name)).required));
        EXPECT_THAT(entry.mapped().optional,
                    testing::ContainerEq(fieldsOf(*scenarioAction(name)).optional));
    }
    for (const auto& [name, fields] : page)
        ADD_FAILURE() << "the page documents an unknown action " << name;
}

TEST(ScenarioPageTest, ListsTheFieldsOfAWorldAndAnExpectation) {
    EXPECT_THAT(namedUnder("The world"), testing::ContainerEq(namesOf(worldFields())));
    EXPECT_THAT(namedUnder("Expectations"), testing::ContainerEq(namesOf(expectationConditions())));
}

TEST(ScenarioPageTest, ListsTheReportOfTheMac) {
    std::string text;
    for (const auto& line : linesUnder("Expectations"))
        text += line + '\n';
    const auto onThePage = inBackticks(text);
    const auto check = [&](const nlohmann::json& object) {
        for (const auto& [name, value] : object.items())
            EXPECT_THAT(onThePage, testing::Contains(name));
    };
    SimMac mac;
    mac.openWindow(mac.finder(), {.title = "Documents"});
    const nlohmann::json report = macReport(mac);
    check(report);
    for (const char* list : {"displays", "apps", "windows"})
        check(report.at(list).at(0));
    check(report.at("dock"));
}

TEST(ScenarioPageTest, ListsEveryScenario) {
    Names stories;
    for (const auto& file : std::filesystem::directory_iterator(LARKSPAN_DEMO_FOLDER))
        stories.insert(file.path().filename());
    std::ifstream page(LARKSPAN_SCENARIO_PAGE);
    Names named;
    for (std::string line; std::getline(page, line) && !line.starts_with("## ");) {
        if (const auto cells = cellsOf(line); !cells.empty()) named.merge(inBackticks(cells[0]));
    }
    EXPECT_THAT(named, testing::ContainerEq(stories));
}

} // namespace
} // namespace larkspan::sim
