#include "adapters/mac/decode/propertyValue.h"
#include "PropertyView.h"

#include <gtest/gtest.h>

namespace larkspan::mac {
namespace {

using Array = PropertyValue::Array;
using Dictionary = PropertyValue::Dictionary;

/// A tree in which the text "a date" represents a value of an unsupported type.
class DatedView {
  public:
    DatedView(PropertyView view)
        : view_(view) {}
    DatedView operator[](std::string_view key) const { return view_[key]; }
    std::optional<bool> boolean() const { return view_.boolean(); }
    std::optional<std::int64_t> integer() const { return view_.integer(); }
    std::optional<double> real() const { return view_.real(); }
    std::optional<std::string> string() const {
        const auto text = view_.string();
        return text == "a date" ? std::nullopt : text;
    }
    std::optional<Data> data() const { return view_.data(); }
    std::optional<std::vector<DatedView>> array() const {
        const auto elements = view_.array();
        if (!elements) return std::nullopt;
        return std::vector<DatedView>(elements->begin(), elements->end());
    }
    std::optional<std::vector<std::pair<std::string, DatedView>>> dictionary() const {
        const auto members = view_.dictionary();
        if (!members) return std::nullopt;
        return std::vector<std::pair<std::string, DatedView>>(members->begin(), members->end());
    }

  private:
    PropertyView view_;
};

PropertyValue nested(int depth) {
    PropertyValue value("innermost");
    for (int level = 0; level < depth; ++level)
        value = Array{value};
    return value;
}

// A pinned app as the Dock writes it: it must be written back unchanged.
TEST(PropertyValueDecoding, ADockEntryKeepsEveryKeyAndItsType) {
    const PropertyValue entry(Dictionary{
        {"GUID", std::int64_t{2478563190}},
        {"tile-type", "file-tile"},
        {"tile-data", Dictionary{{"book", Data{std::string("book\0\0\0\0mark", 12)}},
                                 {"bundle-identifier", "com.apple.mail"},
                                 {"dock-extra", false},
                                 {"file-data", Dictionary{{"_CFURLString",
                                                           "file:///System/Applications/Mail.app/"},
                                                          {"_CFURLStringType", 15}}},
                                 {"file-label", "Mail"},
                                 {"file-mod-date", std::int64_t{254484283195216}},
                                 {"is-beta", true},
                                 {"a whole number kept as a real one", 15.0},
                                 {"nothing in it", Array{Dictionary{}, Array{}, ""}}}}});
    EXPECT_EQ(propertyValue(PropertyView(&entry)), entry);
}

TEST(PropertyValueDecoding, SkipsUnsupportedTypes) {
    const PropertyValue list(Array{1, "a date", Dictionary{{"a", "a date"}, {"b", 2}}});
    EXPECT_EQ(propertyValue(DatedView(&list)), PropertyValue(Array{1, Dictionary{{"b", 2}}}));
    const PropertyValue date("a date");
    EXPECT_EQ(propertyValue(DatedView(&date)), std::nullopt);
    EXPECT_EQ(propertyValue(PropertyView(nullptr)), std::nullopt);
}

TEST(PropertyValueDecoding, DeepNestingIsCutOff) {
    const auto shallow = nested(63);
    const auto deep = nested(100);
    EXPECT_EQ(propertyValue(PropertyView(&shallow)), shallow);
    EXPECT_NE(propertyValue(PropertyView(&deep)), deep);
}

} // namespace
} // namespace larkspan::mac
