#pragma once
// The commands on the open system as a whole and on its names: planet names, the star's
// description and type, the display name the game shows, pictures, and single keys. Each is one
// undoable step of the edit session.

#include <optional>
#include <string>

#include "session/EditSession.h"

namespace orr {

// A name answer as the name question takes it: "default" or "none" (any case) or "" restore the
// default name; anything else is stored. n = 0 is the star's description, where an answer equal
// to the star type's name also restores the default.
bool setPlanetName(EditSession& session, int n, const std::string& answer);
// Why `name` cannot be a planet name or star description; empty when it can.
std::string planetNameProblem(const std::string& name);

// The effective name: stored name or default ("Sol III"); for n = 0 the star's description or
// the star type's name.
std::string planetName(const SystemStore& store, int n);
// "Planet 3" when planet n has no name of its own, else its name; every window names planets so.
std::string planetLabel(const SystemStore& store, int n);

bool setStarType(EditSession& session, int starType);
// Writes nothing when the display name stays the same (cut to 20 characters).
bool setDisplayName(EditSession& session, const std::string& name);
// Why `name` cannot be the display name; empty when it can.
std::string displayNameProblem(const std::string& name);

// Planet n's picture (null removes it), and the star's own picture (null: the star shows its
// type's picture; any other must be 16 x 16, else kStarPictureSizeMessage). They reach the
// picture files when the system is saved.
bool setPlanetPicture(EditSession& session, int n, PictureRef picture);
bool setStarPicture(EditSession& session, PictureRef picture);

// The pictures window's commands, each one step. New: planet n gets the picture, loses its
// animation and uses custom pictures. Remove: the picture goes and the planet stops using custom
// pictures. Remove All: every planet's picture goes (switches and animations stay). An animation
// removed is deleted when the system is saved.
bool assignPlanetPicture(EditSession& session, int n, PictureRef picture);
bool removePlanetPicture(EditSession& session, int n);
bool removeAllPlanetPictures(EditSession& session);
bool removeAnimation(EditSession& session, int n);
// Planet n's animation file, unless it is removed at the next save.
std::optional<fs::path> planetAnimation(const EditSession& session, int n);

// One key of the working copy, as the command-line tool's "set" and "delete-key" change it.
bool writeKey(EditSession& session, const std::string& section, const std::string& key,
              const std::string& value);
bool deleteKey(EditSession& session, const std::string& section, const std::string& key);
// Why section or key cannot be written as given; empty when they can.
std::string keyProblem(const std::string& section, const std::string& key);

}  // namespace orr
