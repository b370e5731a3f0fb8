#pragma once
// The commands on the planets of the open system: adding, inserting, deleting and reordering
// planets, their orbits, classes and properties, their custom-pictures and custom-messages
// switches, and clearing them all. Each is one undoable step of the edit session; where a
// command can be refused, a canVerbObject partner says so without changing anything.

#include <optional>
#include <string>

#include "session/EditSession.h"

namespace orr {

enum class AddPlanetResult { Added, Full, Failed };

// Add: refused when the system has ten planets (Full: the caller shows kMaxPlanetsMessage).
// Otherwise the orbit pass brings a crowded outside in (the last planet to 1970 at most, every
// planet outside its successor to 30 inside it) and the new planet goes outside the last one.
bool canAddPlanet(const EditSession& session);
AddPlanetResult addPlanet(EditSession& session);
// Insert before planet n: the new planet takes n's orbit, later planets move out by one orbit.
AddPlanetResult insertPlanet(EditSession& session, int n);

// Delete planet n without asking; later planets move in by one orbit.
bool canDeletePlanet(const EditSession& session, int n);
bool deletePlanet(EditSession& session, int n);

// Exchanges two planets (names, switches, sections, pictures); orbits stay with their slots.
// `stepName` names the step when the caller has a better name than "Swap Planets a and b".
bool canSwapPlanets(const EditSession& session, int a, int b);
bool swapPlanets(EditSession& session, int a, int b, const std::string& stepName = {});

// The orbit drag: planet n moves to `position` (already limited by the canvas, see
// OrbitGeometry::dragPosition). All moves of one drag (the same dragId) make one step.
bool movePlanet(EditSession& session, int n, int position, int dragId);

// Class c: an asteroid belt (0) has no size and no moons; a planet of size 0 gets size 2.
bool setPlanetClass(EditSession& session, int n, int planetClass);

// The rule of the planet's properties: without animal life (no life or plants) a planet has no
// attitude and no technology; an extinct one has no attitude.
PlanetAttributes normalisedAttributes(PlanetAttributes attributes);

enum class AttributeGroup { Inhabited, Attitude, Advanced, Energy };
// One option of the properties dialog chosen: stored at once, normalised. The changes of one
// opening of the dialog share a mergeKey and make one step.
bool setPlanetAttribute(EditSession& session, int n, AttributeGroup group, int value,
                        const std::string& mergeKey = {});

// What the properties dialog's OK stores. Unset switches are left as they are.
struct PlanetProperties {
    PlanetAttributes attributes;
    int size = 0;
    int moons = 0;
    std::optional<bool> customPictures;
    std::optional<bool> customMessages;
};
bool setPlanetProperties(EditSession& session, int n, const PlanetProperties& properties,
                         const std::string& mergeKey = {});

// The planet's "PlanetPics" or "Messages" switch.
bool setPlanetFlag(EditSession& session, const std::string& key, int n, bool yes);

// Clear Planets: every planet's section and name removed, the pictures dropped, no planets.
bool clearPlanets(EditSession& session);

}  // namespace orr
