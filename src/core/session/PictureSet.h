#pragma once
// The pictures of the open system as the edit session holds them: one picture per planet (the
// cells of the system's picture strip), the star's own picture, and the planets' animation files
// that are removed when the system is saved. The core never looks inside a
// picture: the windows' picture codec makes and reads them, and the session only moves the
// references, so an undo step keeps a picture by sharing it, not by copying it.

#include <memory>
#include <vector>

namespace orr {

// A picture made by the picture codec; the codec knows its real type.
class Picture {
  public:
    virtual ~Picture() = default;
    virtual int width() const = 0;
    virtual int height() const = 0;
};

using PictureRef = std::shared_ptr<const Picture>;

class PictureSet {
  public:
    // `count` empty planet pictures and no star picture. There is always at least one slot,
    // also for a system without planets: its first planet uses it.
    void reset(int count);

    int count() const { return static_cast<int>(planets_.size()); }
    // Planet n's picture (1-based); null when it has none or n is out of range.
    PictureRef planet(int n) const;
    bool hasAnyPlanetPicture() const;
    const std::vector<PictureRef>& planets() const { return planets_; }
    void setPlanet(int n, PictureRef picture);  // out of range: nothing
    void setPlanets(std::vector<PictureRef> pictures);

    const PictureRef& star() const { return star_; }
    void setStar(PictureRef picture) { star_ = std::move(picture); }

    // Whether saving would write other planet pictures than `saved` holds: a different picture
    // in some slot, or another number of slots while any picture exists.
    bool planetsDifferFrom(const PictureSet& saved) const;

    // The animation file of planet n (Name + n + ".avi") goes when the system is saved. Files
    // keep their numbers when planets move, so the mark does too.
    bool animationRemoved(int n) const {
        return n >= 1 && n <= 10 && (removedAnimations_ >> n) & 1u;
    }
    void removeAnimation(int n) {
        if (n >= 1 && n <= 10) removedAnimations_ |= 1u << n;
    }
    bool removesAnimations() const { return removedAnimations_ != 0; }
    void clearAnimationRemovals() { removedAnimations_ = 0; }

    // The planet operations keep pictures with their planets.
    void swapPictures(int a, int b);
    void addPictureSlot();
    void dropLastPictureSlot();  // the single planet's slot is emptied, not dropped
    void resetPictures(int count);

    bool operator==(const PictureSet&) const = default;

  private:
    std::vector<PictureRef> planets_{1};  // planet n in element n - 1
    PictureRef star_;
    unsigned removedAnimations_ = 0;  // bit n: planet n's animation

    bool inRange(int n) const { return n >= 1 && n <= count(); }
};

}  // namespace orr
