#include "testmode/NumberEntry.h"

#include <algorithm>

#include "testmode/PlayNumbers.h"

namespace orr {

NumberEntry::NumberEntry(const NumberRequest& request)
    : min_(request.min),
      // A range that ends below its start (no room left to fill) offers its start alone.
      max_(std::max(request.max, request.min)),
      scale_(request.scale == 0 ? 1 : request.scale),
      low_(play::toInt16(min_ / scale_)),
      high_(std::max(low_, static_cast<int>(play::toInt16(max_ / scale_)))) {
    const float value = std::clamp(request.value, min_, max_);
    position_ = positionOf(value);
    number_ = value;
}

int NumberEntry::positionOf(float number) const {
    return std::clamp(high_ + low_ - play::toInt16(number / scale_), low_, high_);
}

float NumberEntry::numberAt(int position) const {
    return static_cast<float>(high_ + low_ - position) * scale_;
}

std::string NumberEntry::numberText() const {
    return play::formatNumber(number_);
}

void NumberEntry::scrollTo(int position) {
    position_ = std::clamp(position, low_, high_);
    number_ = numberAt(position_);
}

std::string NumberEntry::typed(const std::string& text) {
    float number = static_cast<float>(play::leadingNumber(text));
    std::string replacement;
    if (number > max_) {
        number = max_;
        replacement = play::formatNumber(max_);
    } else if (number < min_) {
        number = min_;
        replacement = play::formatNumber(min_);
    }
    // The box keeps what was typed ("1." on the way to "1.5"); the number follows the scroll
    // bar, so it is always a whole step of the scale.
    scrollTo(positionOf(number));
    return replacement;
}

float NumberEntry::result(bool ok) const {
    return ok && number_ <= max_ ? number_ : min_ - 1;
}

}  // namespace orr
