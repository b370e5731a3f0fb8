#pragma once
// What the planet operations tell the holder of the system's planet pictures, so pictures stay
// with their planets. The editor's picture strip implements it; a front without pictures in
// memory passes nullptr.

namespace orr {

class PictureSlots {
public:
    virtual ~PictureSlots() = default;
    virtual void swapPictures(int a, int b) = 0;  // planets a and b, 1-based
    virtual void addPictureSlot() = 0;            // a slot for a new last planet
    virtual void dropLastPictureSlot() = 0;       // the last planet was removed
    virtual void resetPictures(int count) = 0;    // count empty pictures
};

}  // namespace orr
