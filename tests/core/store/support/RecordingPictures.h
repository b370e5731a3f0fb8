#pragma once
// A picture holder that only notes what it is told, in order.

#include <string>
#include <vector>

#include "store/PictureSlots.h"

namespace orr::test {

class RecordingPictures : public PictureSlots {
  public:
    void swapPictures(int a, int b) override {
        calls.push_back("swap " + std::to_string(a) + " " + std::to_string(b));
    }
    void addPictureSlot() override { calls.push_back("add"); }
    void dropLastPictureSlot() override { calls.push_back("drop"); }
    void resetPictures(int count) override { calls.push_back("reset " + std::to_string(count)); }

    std::vector<std::string> calls;
};

}  // namespace orr::test
