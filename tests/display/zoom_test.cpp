#include "display/zoom.h"

#include <gtest/gtest.h>

namespace nebkaro {
namespace {

TEST(Zoom, StepsStayWithinOneToFourTimes) {
    const std::tuple<int, int, int> cases[] = {
        // percent, one step in, one step out
        {100, 125, 100}, {125, 150, 100}, {200, 250, 150}, {400, 400, 300}, {170, 200, 150},
    };
    for (const auto& [at, in, out] : cases) {
        EXPECT_EQ(zoomedIn(at), in) << at;
        EXPECT_EQ(zoomedOut(at), out) << at;
    }
}

TEST(Zoom, ABoxGrowsAboutTheAreaCentreSoACentredWordStaysCentred) {
    const Rect area{300, 600, 6000, 2400}; // centre 3300, 1800
    const auto edges = [](Rect r) { return std::tuple(r.left, r.top, r.width, r.height); };
    const std::tuple<Rect, int, Rect> cases[] = {
        {{3000, 1500, 600, 600}, 100, {3000, 1500, 600, 600}},
        {{3000, 1500, 600, 600}, 200, {2700, 1200, 1200, 1200}},
        {{3300, 1800, 300, 150}, 400, {3300, 1800, 1200, 600}},
        {{300, 600, 15, 15}, 300, {-5700, -1800, 45, 45}},
        {{3000, 1500, 600, 600}, 900, {2100, 600, 2400, 2400}}, // at most 400 %
    };
    for (const auto& [box, percent, want] : cases)
        EXPECT_EQ(edges(zoomedBox(box, area, percent)), edges(want)) << percent;
}

} // namespace
} // namespace nebkaro
