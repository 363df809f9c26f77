#include "platform/numberFromText.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

TEST(NumberFromText, OnlyAFiniteNumberIsAccepted) {
    struct Case {
        const char* text;
        std::optional<double> expected;
    };
    const Case cases[] = {
        {"72", 72},  {"-0.5", -0.5}, {"1.5e3", 1500}, {"", {}},     {" 72", {}},
        {"72 ", {}}, {"72px", {}},   {"1,5", {}},     {"0x10", {}}, {"inf", {}},
        {"nan", {}}, {"1e400", {}},  {"1.2.3", {}},   {"-", {}},    {"1e", {}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(numberFromText(each.text), each.expected) << '"' << each.text << '"';
}

} // namespace
} // namespace larkspan
