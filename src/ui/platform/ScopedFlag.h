#pragma once
// Sets a flag for as long as it lives and then puts back what it was: a window marks that its
// controls are being filled (their signals are not the user's) or that its own command runs.

namespace orr::ui {

class ScopedFlag {
  public:
    explicit ScopedFlag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~ScopedFlag() { flag_ = before_; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

  private:
    bool& flag_;
    bool before_;
};

}  // namespace orr::ui
