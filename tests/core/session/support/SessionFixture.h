#pragma once
// An edit session on a fresh game folder, with a picture codec that needs no picture library:
// a "picture" is a text, and a strip file holds the texts of its cells separated by "|".

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/EditSession.h"
#include "support/GameFixture.h"

namespace orr::test {

class TextPicture : public Picture {
  public:
    explicit TextPicture(std::string text, int size = 16) : text_(std::move(text)), size_(size) {}
    int width() const override { return size_; }
    int height() const override { return size_; }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
    int size_;
};

PictureRef textPicture(const std::string& text);
std::string textOf(const PictureRef& picture);  // "" for none

class TextPictureCodec : public PictureCodec {
  public:
    std::vector<PictureRef> loadStrip(const fs::path& file, int count, std::string* error) override;
    bool saveStrip(const fs::path& file, const std::vector<PictureRef>& pictures,
                   std::string* error) override;
    PictureRef loadPicture(const fs::path& file, std::string* error) override;
    bool savePicture(const fs::path& file, const PictureRef& picture, std::string* error) override;
};

class SessionTest : public ::testing::Test {
  protected:
    SessionTest();
    // Writes the descriptor of a custom system with `planets` planets and opens it.
    void openSystem(const std::string& name, int planets, std::string_view extra = {});
    std::string workingCopy() const;  // the working copy's bytes
    std::string saved() const;        // the saved descriptor's bytes
    bool workingCopyHasSavedTime() const;

    TempGameFolder game;
    TextPictureCodec codec;
    EditSession session;
};

}  // namespace orr::test
