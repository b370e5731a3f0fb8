#pragma once
// Which files of the pictures folder belong to which system. A system "Sol" owns its picture
// strip "Sol.<picture type>", its star picture "SolSun.<picture type>" and its planets'
// animations "Sol1.avi" .. "Sol10.avi". Names are compared ignoring case, as on the game's own
// file system, and a file is never given to two systems: "Sol1.bmp" is the strip of a system
// "Sol1", "Sol1.avi" is planet 1's animation of "Sol" and never part of the strip of "Sol1",
// and "SolSun.bmp" is the strip of a system "SolSun" when there is one, not Sol's star.
//
// Every open, save, Save As, delete and the star picture go through here.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "store/GameFolder.h"

namespace orr {

enum class PictureFileKind { Strip, Star, Animation };

struct PictureFile {
    fs::path path;
    PictureFileKind kind = PictureFileKind::Strip;
    int planet = 0;  // the animation's planet, 1..10
};

struct PictureFileList {
    std::vector<PictureFile> files;  // in folder order
    // Why the pictures folder could not be listed (completely); empty when it could, or when
    // there is no pictures folder at all.
    std::string error;

    std::vector<fs::path> paths() const;
    std::vector<fs::path> paths(PictureFileKind kind) const;
};

// The files of system `name` in the game's pictures folder.
PictureFileList systemPictureFiles(const GameFolder& folder, const std::string& name);

// The strip file the system opens with: the first of its strip files, if any.
std::optional<fs::path> findStripFile(const GameFolder& folder, const std::string& name);
// The star picture the system opens with, if any.
std::optional<fs::path> findStarPicture(const GameFolder& folder, const std::string& name);
// Planet n's animation, if there is one.
std::optional<fs::path> findAnimation(const GameFolder& folder, const std::string& name, int n);

// Where a save writes the strip and the star picture: the existing file of that name in any
// letter case, else a new one.
fs::path stripFileFor(const GameFolder& folder, const std::string& name);
fs::path starPictureFor(const GameFolder& folder, const std::string& name);

// Whether a file of this name would be one of the pictures of system `name` (by its name alone).
bool isPictureFileName(const std::string& name, std::string_view fileName);

// Deletes the files of `kind` of system `name`, except `keep`. Returns the reason of the first
// failure (a file that could not be deleted, or a folder that could not be listed), empty when
// all went.
std::string deletePictureFiles(const GameFolder& folder, const std::string& name,
                               PictureFileKind kind, const fs::path& keep = {});

}  // namespace orr
