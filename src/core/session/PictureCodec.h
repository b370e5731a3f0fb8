#pragma once
// How pictures are read from and written to files. The core decides which files a system's
// pictures live in and when they are written; the windows provide the codec that knows picture
// formats. A session without a codec (the command-line tool) leaves picture files alone.

#include <filesystem>
#include <string>
#include <vector>

#include "session/PictureSet.h"

namespace orr {

class PictureCodec {
  public:
    virtual ~PictureCodec() = default;

    // The strip cut into `count` pictures of equal width, side by side from the left (null for a
    // blank cell). Empty, with the reason in *error, when the file cannot be read as a picture
    // or is narrower than `count` pixels.
    virtual std::vector<PictureRef> loadStrip(const std::filesystem::path& file, int count,
                                              std::string* error) = 0;
    // Composes the pictures into a strip (a blank cell for a missing one) and writes it as a
    // bitmap, atomically.
    virtual bool saveStrip(const std::filesystem::path& file,
                           const std::vector<PictureRef>& pictures, std::string* error) = 0;

    // One picture (the star's); null, with the reason in *error, when it cannot be read.
    virtual PictureRef loadPicture(const std::filesystem::path& file, std::string* error) = 0;
    // Writes one picture as a bitmap, atomically.
    virtual bool savePicture(const std::filesystem::path& file, const PictureRef& picture,
                             std::string* error) = 0;
};

}  // namespace orr
