#include "store/OrbitGeometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orr {
namespace {

constexpr double kPixel = 15;  // units per pixel of a classic screen

SystemRecord systemWithOrbits(std::initializer_list<int> positions, int size = 2) {
    SystemRecord record;
    for (int position : positions) {
        ++record.PlanetCount;
        PlanetRecord& p = record.planet(record.PlanetCount);
        p.Position = static_cast<std::int16_t>(position);
        p.Size = static_cast<std::int16_t>(size);
        p.PlanetClass = 1;
    }
    return record;
}

double degrees(double radians) {
    return radians * 180 / OrbitGeometry::kPi;
}

TEST(OrbitGeometryTest, PlanetsStandAtEqualTurnsAndArePickedByDiscThenOrbit) {
    const SystemRecord four = systemWithOrbits({400, 430, 460, 490});
    EXPECT_NEAR(degrees(OrbitGeometry::planetAngle(1, 4)), 90, 1e-9);
    EXPECT_NEAR(degrees(OrbitGeometry::planetAngle(4, 4)), 360, 1e-9);
    const auto first = OrbitGeometry::planetCentre(four, 1);  // straight below the star
    EXPECT_NEAR(first.x, 0, 1e-9);
    EXPECT_NEAR(first.y, 400, 1e-9);

    // One planet on the positive x axis; probes straight above the star, far from the disc,
    // so only the orbit distance decides: below sixty units only.
    const SystemRecord one = systemWithOrbits({1000});
    // Two planets of size 3: 1 at angle pi (left), 2 at 2 pi (right).
    const SystemRecord two = systemWithOrbits({400, 430}, 3);
    const struct {
        const SystemRecord& record;
        OrbitGeometry::Point at;
        int picked;
    } probes[] = {
        {one, {0, -1059}, 1},
        {one, {0, -941}, 1},
        {one, {0, -1060}, 0},
        {one, {0, -940}, 0},
        {two, {-430, 0}, 1},       // on planet 1's disc, exactly on planet 2's
                                   // orbit: the disc wins
        {two, {430 + 59, 59}, 2},  // a disc reaches (Size + 1) pixels in each axis
        {two, {0, 415}, 1},        // midway between the orbits: the first planet
        {two, {0, 428}, 2},
        {SystemRecord{}, {0, 400}, 0},
    };
    for (const auto& p : probes)
        EXPECT_EQ(OrbitGeometry::hitTest(p.record, p.at, kPixel), p.picked)
            << p.at.x << "," << p.at.y;
}

TEST(OrbitGeometryTest, DragKeepsOrbitsApartAndInsideLimits) {
    const SystemRecord record = systemWithOrbits({400, 600, 800});
    // Planet 1 inward stops at 200, the last planet outward at 2000.
    EXPECT_EQ(OrbitGeometry::dragPosition(record, 1, 10, kPixel), 200);
    EXPECT_EQ(OrbitGeometry::dragPosition(record, 3, 5000, kPixel), 2000);
    // The integer part of the distance is taken.
    EXPECT_EQ(OrbitGeometry::dragPosition(record, 2, 650.9, kPixel), 650);
    // A middle planet stays one pixel clear of both neighbours.
    EXPECT_EQ(OrbitGeometry::dragPosition(record, 2, 100, kPixel), 415);
    EXPECT_EQ(OrbitGeometry::dragPosition(record, 2, 1900, kPixel), 785);
    EXPECT_EQ(OrbitGeometry::dragPosition(record, 3, 100, kPixel), 615);
    // A fractional pixel still keeps a whole unit more than the pixel.
    EXPECT_EQ(OrbitGeometry::dragPosition(record, 2, 100, 10.3), 411);
    EXPECT_EQ(OrbitGeometry::dragPosition(record, 4, 1000, kPixel), 0);  // no such planet
    // Without room the orbit stays.
    const SystemRecord tight = systemWithOrbits({400, 410, 420});
    EXPECT_EQ(OrbitGeometry::dragPosition(tight, 2, 1000, kPixel), 410);
    EXPECT_EQ(OrbitGeometry::dragPosition(tight, 2, 0, kPixel), 410);
}

TEST(OrbitGeometryTest, BeltArcsLieOnThreeRingsWithAboutOneInFiveFilled) {
    const int position = 600;
    const auto arcs = OrbitGeometry::beltArcs(position, 0);
    const double step = 15.0 / position;
    const int candidates = 3 * static_cast<int>(std::floor(2 * OrbitGeometry::kPi / step));
    ASSERT_FALSE(arcs.empty());
    for (const auto& arc : arcs) {
        EXPECT_TRUE(arc.radius == 585 || arc.radius == 600 || arc.radius == 615);
        EXPECT_DOUBLE_EQ(arc.sweep, step);
        EXPECT_LE(arc.startAngle, 2 * OrbitGeometry::kPi - step + 1e-9);
    }
    const double share = static_cast<double>(arcs.size()) / candidates;
    EXPECT_GT(share, 0.12);
    EXPECT_LT(share, 0.28);
    EXPECT_TRUE(OrbitGeometry::beltArcs(0, 0).empty());

    // The same planet angle always gives the same rocks, another angle others.
    const auto starts = [](const std::vector<OrbitGeometry::Arc>& list) {
        std::vector<std::pair<double, double>> out;
        for (const auto& arc : list) out.emplace_back(arc.radius, arc.startAngle);
        return out;
    };
    const double angle = OrbitGeometry::planetAngle(2, 3);
    EXPECT_EQ(starts(OrbitGeometry::beltArcs(600, angle)),
              starts(OrbitGeometry::beltArcs(600, angle)));
    EXPECT_NE(starts(OrbitGeometry::beltArcs(600, angle)), starts(arcs));
    for (long long seed : {-100000LL, -1LL, 0LL, 1LL, 123456789LL}) {
        const double f = OrbitGeometry::seededFraction(seed);
        EXPECT_GE(f, 0.0);
        EXPECT_LT(f, 1.0);
    }
}

}  // namespace
}  // namespace orr
