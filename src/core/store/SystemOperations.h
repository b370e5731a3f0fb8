#pragma once
// The edits of a system that both the editor and the command-line tool perform. Each works on
// the open system of a SystemStore (in its working copy) and writes the change to disk at once.
// Where an edit can be refused, a canVerbObject partner says so without changing anything.

#include <optional>
#include <string>
#include <vector>

#include "store/PictureSlots.h"
#include "store/SystemStore.h"

namespace orr {

inline constexpr const char* kMaxPlanetsMessage = "This system has the maximum number of planets.";

enum class AddPlanetResult { Added, Full, NoRoom, Failed };

// The planet menu's Add: the orbit pass that makes room outside, then AddPlanet, a picture slot
// and the block save. Full: ten planets already (the caller shows kMaxPlanetsMessage).
// NoRoom: the orbit pass had to move planet 1 too, so nothing was added. Failed: the descriptor
// could not be written, or no such planet (insert); the store's lastError() says why. Only Added
// changes anything.
bool canAddPlanet(const SystemStore& store);
AddPlanetResult addPlanet(SystemStore& store, PictureSlots* pictures = nullptr);

// Insert before planet n (the new planet takes n's orbit; later planets move out by one orbit).
AddPlanetResult insertPlanet(SystemStore& store, int n, PictureSlots* pictures = nullptr);

// Delete planet n without asking; later planets move in by one orbit.
bool canDeletePlanet(const SystemStore& store, int n);
bool deletePlanet(SystemStore& store, int n, PictureSlots* pictures = nullptr);

// Exchange two planets (names, flags, sections, pictures); orbits stay with their slots.
bool canSwapPlanets(const SystemStore& store, int a, int b);
bool swapPlanets(SystemStore& store, int a, int b, PictureSlots* pictures = nullptr);

// Class c for planet n: size and moons follow the class; then the block save.
bool setPlanetClass(SystemStore& store, int n, int planetClass);

// A name answer as the name question takes it: "default" or "none" (any case) or "" restore the
// default name; anything else is stored. n = 0 is the star's description, where an answer equal
// to the star type's name also restores the default.
bool setPlanetName(SystemStore& store, int n, const std::string& answer);
// The effective name: stored name or default ("Sol III"); for n = 0 the star's description or
// the star type's name.
std::string planetName(SystemStore& store, int n);
// "Planet 3" when planet n has no name of its own, else its name.
std::string planetLabel(SystemStore& store, int n);

bool setStarType(SystemStore& store, int starType);
// Writes nothing when the display name stays the same, so the system does not turn modified.
bool setDisplayName(SystemStore& store, const std::string& name);
bool setPlanetFlag(SystemStore& store, const std::string& key, int n, bool yes);

// Clear Planets: every planet's section and name removed, the count set to 0.
bool clearPlanets(SystemStore& store, PictureSlots* pictures = nullptr);

// What the answer of New is. ListedKey: a key of the game's list replaces that system (its
// record is taken from the list), and any other answer is a custom system. CustomName: a name
// the user typed for a custom system, which stays custom even when it equals a listed key.
enum class NewSystemAnswer { ListedKey, CustomName };

// New: writes the descriptor of a new system. Refused (with the reason) when the name is
// unusable or the system already exists.
std::optional<std::string> canCreateSystem(const SystemStore& store, const std::string& answer,
                                           NewSystemAnswer kind = NewSystemAnswer::ListedKey);
bool createSystem(SystemStore& store, const std::string& answer,
                  NewSystemAnswer kind = NewSystemAnswer::ListedKey);

// Files of the system `name` in the pictures folder: the strip (name + "." + ext), the star
// picture (name + "Sun." + ext) and the animations (name + 1..10 + ".avi"); never another
// system's files that merely begin with the same name.
std::vector<fs::path> systemPictureFiles(const GameFolder& folder, const std::string& name);
// Deletes the saved descriptor and this system's pictures only.
bool deleteSystemFiles(SystemStore& store, const std::string& name);

// Save As: the saved pictures of system `from` become those of system `to`. The strip, star
// picture and animations `to` had are deleted and those of `from` are copied under the new
// name; `from` keeps its own. When the names differ only in letter case they name one system
// on Windows, and its files are renamed to the new spelling instead. False, with the reason in
// *error, when a file could not be deleted, copied or renamed (the others are still done).
bool replaceSystemPictures(const GameFolder& folder, const std::string& from, const std::string& to,
                           std::string* error = nullptr);

// The game's start argument for a system key: 21 characters (8-bit codes).
std::string EncodeStarArgument(const std::string& key);

}  // namespace orr
