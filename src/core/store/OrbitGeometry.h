#pragma once
// Where things stand on the system canvas, in canvas units with the star's centre as the origin
// (x to the right, y downwards, as on the screen). The canvas maps pixels to these units; all
// decisions about which planet is under the mouse and how far an orbit may be dragged are taken
// here so that they do not depend on the screen.

#include <vector>

#include "store/SystemRecord.h"

namespace orr {

class OrbitGeometry {
  public:
    static constexpr int kInnermostOrbit = 200;    // planet 1 never comes closer to the star
    static constexpr int kOutermostOrbit = 2000;   // the last planet never goes further out
    static constexpr int kOrbitPickDistance = 60;  // the mouse picks an orbit closer than this
    static constexpr int kUnitsPerSize = 15;       // drawn disc radius per step of Size
    static constexpr int kBeltSpread = 15;       // belt rings lie this far in and out of the orbit
    static constexpr double kBeltDensity = 0.2;  // share of belt arcs that hold rocks
    static constexpr double kPi = 3.14159265358979;

    struct Point {
        double x = 0;
        double y = 0;
    };

    // One arc of an asteroid belt: radius and the angles (radians) it spans.
    struct Arc {
        double radius = 0;
        double startAngle = 0;
        double sweep = 0;
    };

    // Planet i of n stands at 2·π·i/n: evenly spread, planet n at 2·π.
    static double planetAngle(int i, int n);
    static Point planetCentre(const SystemRecord& record, int planet);
    static double discRadius(const PlanetRecord& planet);
    static double distance(Point a, Point b);

    // The planet under the mouse, 0 for none: the first planet whose centre is within
    // (Size + 1) pixels in both axes, else the planet with the nearest orbit when that orbit is
    // closer than kOrbitPickDistance (the first on ties).
    static int hitTest(const SystemRecord& record, Point mouse, double unitsPerPixel);

    // The orbit radius planet `planet` takes when dragged to `distanceFromStar`: the integer part
    // of the distance, kept at least one pixel outside the previous orbit (kInnermostOrbit for
    // planet 1) and one pixel inside the next (kOutermostOrbit for the last planet). When the
    // neighbours leave no room at all the orbit stays where it is.
    static int dragPosition(const SystemRecord& record, int planet, double distanceFromStar,
                            double unitsPerPixel);

    // The rock arcs of a belt on the given orbit. Each candidate arc is kept or dropped by a
    // generator seeded from its radius and angle and the planet's angle, so the same belt always
    // shows the same rocks.
    static std::vector<Arc> beltArcs(int position, double planetAngle);

    // The generator behind the belt: a value in [0, 1) that depends on the seed only.
    static double seededFraction(long long seed);

    // How far from the star anything is drawn: the outermost orbit plus the largest disc.
    static constexpr int drawingExtent() { return kOutermostOrbit + 5 * kUnitsPerSize; }

  private:
    static int onePixel(double unitsPerPixel);
};

}  // namespace orr
