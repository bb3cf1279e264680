#include "core/errors.h"
#include "display/layout.h"

#include <gtest/gtest.h>

using namespace nebkaro;

namespace {
using Slot = std::tuple<std::string, double, double>;
// The signs a layout string places, or the number of the error it raises.
std::vector<Slot> parse(const std::string& s, int* error = nullptr) {
    GlyphTable t;
    try {
        parseLayoutString(s, t);
    } catch (const RunError& e) {
        if (!error) throw;
        *error = e.number();
    }
    std::vector<Slot> out;
    for (const auto& g : t.cells)
        if (g.used()) out.emplace_back(*g.code, g.x, g.y);
    return out;
}
} // namespace

TEST(parseLayout, ReadsEntriesWithTheirPositionsOrRaisesTheirErrors) {
    std::string twentyTwo;
    for (int i = 0; i < 22; ++i) twentyTwo += "A1(0,0) - ";
    struct Case {
        std::string layout;
        std::vector<Slot> want;
        int error = 0;
    } cases[] = {
        {"A1(0,0) - G17(300,0) ", {{"A1", 0, 0}, {"G17", 300, 0}}},
        {"A1( 0, 12) - G17( 40, 0) ", {{"A1", 0, 12}, {"G17", 40, 0}}},
        {" A1( 0 , 0 )", {{"A1", 0, 0}}},
        // A "-" inside the brackets is a sign, not a separator.
        {"A1(-40, 0) ", {{"A1", -40, 0}}},
        {"A1(0,-15) - N35(0,300) ", {{"A1", 0, -15}, {"N35", 0, 300}}},
        {"", {}},
        {"A1(0,0)", {{"A1", 0, 0}}},
        {"A1(7.5,0) ", {{"A1", 7.5, 0}}},
        {"A1", {}, InvalidArgument},          // no "("
        {"A1(0 0) ", {}, InvalidArgument},    // no ","
        {"A1(0,0 ", {}, InvalidArgument},     // no ")"
        {twentyTwo, {}, SubscriptOutOfRange}, // a 22nd entry
        {std::string(32768, ' '), {}, Overflow},
        {"A1(x,0) ", {}, TypeMismatch},
        {"A1(1e0777777777777,0) ", {}, Overflow}, // found by fuzzing: beyond a double
    };
    for (const auto& c : cases) {
        int error = 0;
        const auto got = parse(c.layout, &error);
        EXPECT_EQ(error, c.error) << c.layout.substr(0, 40);
        if (c.error) continue;
        EXPECT_EQ(got, c.want) << c.layout;
    }
}

TEST(LayoutWriters, ComposerTrimsNumbersMirroringKeepsTheLeadingBlankBothParseBack) {
    GlyphTable t;
    t[0].code = "A1";
    t[0].x = 0;
    t[0].y = 40;
    t[2].code = "Aa15"; // a gap is skipped
    t[2].x = -30;
    t[2].y = 7.5;
    EXPECT_EQ(composerLayoutString(t), "A1(0,40) - Aa15(-30,7.5) ");
    EXPECT_EQ(mirrorLayoutString(t), "A1( 0, 40) - Aa15(-30, 7.5) ");
    for (const std::string& s : {composerLayoutString(t), mirrorLayoutString(t)})
        EXPECT_EQ(parse(s), (std::vector<Slot>{{"A1", 0, 40}, {"Aa15", -30, 7.5}})) << s;
    GlyphTable none;
    EXPECT_EQ(composerLayoutString(none), "");
    EXPECT_THROW(mirrorLayoutString(none), RunError);
}
