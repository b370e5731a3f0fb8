#include "session/PictureSet.h"

#include <algorithm>

namespace orr {

void PictureSet::reset(int count) {
    planets_.assign(static_cast<std::size_t>(std::max(count, 1)), nullptr);
    star_.reset();
    removedAnimations_ = 0;
}

PictureRef PictureSet::planet(int n) const {
    return inRange(n) ? planets_[static_cast<std::size_t>(n - 1)] : nullptr;
}

bool PictureSet::hasAnyPlanetPicture() const {
    return std::any_of(planets_.begin(), planets_.end(), [](const PictureRef& p) { return p; });
}

void PictureSet::setPlanet(int n, PictureRef picture) {
    if (inRange(n)) planets_[static_cast<std::size_t>(n - 1)] = std::move(picture);
}

void PictureSet::setPlanets(std::vector<PictureRef> pictures) {
    planets_ = std::move(pictures);
    if (planets_.empty()) planets_.resize(1);
}

bool PictureSet::planetsDifferFrom(const PictureSet& saved) const {
    if (!hasAnyPlanetPicture() && !saved.hasAnyPlanetPicture()) return false;
    return planets_ != saved.planets_;
}

void PictureSet::swapPictures(int a, int b) {
    if (!inRange(a) || !inRange(b)) return;
    std::swap(planets_[static_cast<std::size_t>(a - 1)], planets_[static_cast<std::size_t>(b - 1)]);
}

void PictureSet::addPictureSlot() {
    planets_.emplace_back();
}

void PictureSet::dropLastPictureSlot() {
    if (planets_.size() == 1)
        planets_.front().reset();
    else
        planets_.pop_back();
}

void PictureSet::resetPictures(int count) {
    planets_.assign(static_cast<std::size_t>(std::max(count, 1)), nullptr);
}

}  // namespace orr
