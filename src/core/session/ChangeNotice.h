#pragma once
// What an edit of the open system changed, as the edit session reports it to every window that
// shows the system: each window refreshes what it shows of the parts named here, from the
// session, and keeps no copy of its own.

namespace orr {

enum Change : unsigned {
    kSystemOpened = 1u << 0,       // another system is open, or none: read everything again
    kPlanetsChanged = 1u << 1,     // the planets' number, order, orbits, classes or properties
    kStarChanged = 1u << 2,        // the star type or the system's display name
    kNamesChanged = 1u << 3,       // planet names or the star's description
    kPlanetKeysChanged = 1u << 4,  // keys of a planet's section: messages, rooms, flags
    kFlagsChanged = 1u << 5,       // the planets' custom-pictures and custom-messages switches
    kPicturesChanged = 1u << 6,    // planet pictures or the star picture
    kSavedChanged = 1u << 7,       // saved, or the history moved: the modified mark may change
};

struct ChangeNotice {
    unsigned changes = 0;
    int planet = 0;  // whose keys changed (kPlanetKeysChanged); 0 for every planet

    bool has(unsigned change) const { return (changes & change) != 0; }
    // Whether the keys of `n` may have changed.
    bool touchesKeysOf(int n) const {
        return has(kSystemOpened) || (has(kPlanetKeysChanged) && (planet == 0 || planet == n));
    }
    ChangeNotice& operator|=(const ChangeNotice& other) {
        if (other.has(kPlanetKeysChanged) && (!has(kPlanetKeysChanged) || planet != other.planet))
            planet = has(kPlanetKeysChanged) ? 0 : other.planet;
        changes |= other.changes;
        return *this;
    }
    ChangeNotice operator|(const ChangeNotice& other) const {
        ChangeNotice both = *this;
        return both |= other;
    }
};

}  // namespace orr
