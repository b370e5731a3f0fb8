#include "store/OrbitGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orr {

double OrbitGeometry::planetAngle(int i, int n) {
    if (n <= 0) return 0;
    return 2 * kPi * i / n;
}

OrbitGeometry::Point OrbitGeometry::planetCentre(const SystemRecord& record, int planet) {
    const double angle = planetAngle(planet, record.PlanetCount);
    const double radius = record.planet(planet).Position;
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

double OrbitGeometry::discRadius(const PlanetRecord& planet) {
    return static_cast<double>(planet.Size) * kUnitsPerSize;
}

double OrbitGeometry::distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

int OrbitGeometry::onePixel(double unitsPerPixel) {
    // Orbits are whole units; a pixel of 10.3 units must still keep orbits a full pixel apart.
    return std::max(1, static_cast<int>(std::ceil(unitsPerPixel)));
}

int OrbitGeometry::hitTest(const SystemRecord& record, Point mouse, double unitsPerPixel) {
    const int count = std::clamp<int>(record.PlanetCount, 0, kMaxPlanets);
    for (int i = 1; i <= count; ++i) {
        const Point centre = planetCentre(record, i);
        const double reach = (record.planet(i).Size + 1) * unitsPerPixel;
        if (std::abs(mouse.x - centre.x) <= reach && std::abs(mouse.y - centre.y) <= reach)
            return i;
    }
    const double d = distance(mouse, {});
    int nearest = 0;
    double nearestGap = kOrbitPickDistance;
    for (int i = 1; i <= count; ++i) {
        const double gap = std::abs(d - record.planet(i).Position);
        if (gap < nearestGap) {
            nearestGap = gap;
            nearest = i;
        }
    }
    return nearest;
}

int OrbitGeometry::dragPosition(const SystemRecord& record, int planet, double distanceFromStar,
                                double unitsPerPixel) {
    const int count = std::clamp<int>(record.PlanetCount, 0, kMaxPlanets);
    if (planet < 1 || planet > count) return 0;
    const int current = record.planet(planet).Position;
    const int pixel = onePixel(unitsPerPixel);
    const int lower = planet == 1 ? kInnermostOrbit : record.planet(planet - 1).Position + pixel;
    const int upper =
        planet == count ? kOutermostOrbit : record.planet(planet + 1).Position - pixel;
    if (lower > upper) return current;
    const double wanted = std::clamp(std::trunc(distanceFromStar), -1e9, 1e9);
    return std::clamp(static_cast<int>(wanted), lower, upper);
}

double OrbitGeometry::seededFraction(long long seed) {
    // splitmix64: small, fast and well mixed even for neighbouring seeds.
    std::uint64_t z = static_cast<std::uint64_t>(seed) + 0x9E3779B97F4A7C15ull;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    z ^= z >> 31;
    return static_cast<double>(z >> 11) / 9007199254740992.0;  // 2^53
}

std::vector<OrbitGeometry::Arc> OrbitGeometry::beltArcs(int position, double planetAngle) {
    std::vector<Arc> arcs;
    if (position <= 0) return arcs;
    const double step = static_cast<double>(kBeltSpread) / position;
    const double lastAngle = 2 * kPi - step;
    // Counting steps instead of adding them up keeps the angles, and so the seeds, exact.
    for (int k = 0;; ++k) {
        const double a = k * step;
        if (a > lastAngle + 1e-12) break;
        for (int r = position - kBeltSpread; r <= position + kBeltSpread; r += kBeltSpread) {
            if (r <= 0) continue;
            const double seedValue = -10.0 * r - 100.0 * a - 100.0 * planetAngle;
            if (seededFraction(static_cast<long long>(std::trunc(seedValue))) < kBeltDensity)
                arcs.push_back({static_cast<double>(r), a, step});
        }
    }
    return arcs;
}

}  // namespace orr
