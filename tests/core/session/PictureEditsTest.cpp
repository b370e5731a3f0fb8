// The pictures window's commands on the session: each is one named step that undo takes back
// whole (picture, switch and animation together); an animation goes from disk only when the
// system is saved; a star picture must be 16 x 16. And the strip's cell arithmetic.

#include <functional>

#include "session/PictureStrip.h"
#include "session/SystemEdits.h"
#include "store/SystemStore.h"
#include "support/SessionFixture.h"

namespace orr::test {
namespace {

using PictureEditsTest = SessionTest;

TEST_F(PictureEditsTest, EachCommandIsOneStepWithItsSwitchAndAnimation) {
    game.write("PICTURES/Sol2.avi", "clip");
    openSystem("Sol", 3);
    const auto state = [this] {
        std::string shown;
        for (int n = 1; n <= 3; ++n)
            shown += textOf(session.pictures().planet(n)) +
                     (session.store().HasCustomPictures(n) ? "+" : "-") +
                     (planetAnimation(session, n) ? "a " : " ");
        return shown;
    };
    const std::tuple<std::function<bool()>, std::string, std::string> steps[] = {
        {[&] { return assignPlanetPicture(session, 1, textPicture("A")); },
         "New Picture for Planet 1", "A+ -a - "},
        {[&] { return removeAnimation(session, 2); }, "Remove Animation of Planet 2", "A+ - - "},
        {[&] { return assignPlanetPicture(session, 3, textPicture("C")); },
         "New Picture for Planet 3", "A+ - C+ "},
        {[&] { return removePlanetPicture(session, 1); }, "Remove Picture of Planet 1", "- - C+ "},
        {[&] { return removeAllPlanetPictures(session); }, "Remove All Pictures", "- - + "},
    };
    std::vector<std::string> before;
    for (const auto& [run, name, after] : steps) {
        before.push_back(state());
        ASSERT_TRUE(run()) << session.lastError();
        EXPECT_EQ(session.undoName(), name);
        EXPECT_EQ(state(), after) << name;
    }
    for (auto it = before.rbegin(); it != before.rend(); ++it) {
        ASSERT_TRUE(session.undo());
        EXPECT_EQ(state(), *it);
    }
    EXPECT_FALSE(session.isModified());
    EXPECT_FALSE(removeAnimation(session, 1));  // it has none

    // The removed animation stays on disk until Save.
    ASSERT_TRUE(removeAnimation(session, 2));
    EXPECT_TRUE(session.picturesDiffer());
    EXPECT_TRUE(game.exists("PICTURES/Sol2.avi"));
    ASSERT_TRUE(session.save()) << session.lastError();
    EXPECT_FALSE(game.exists("PICTURES/Sol2.avi"));
    EXPECT_FALSE(session.isModified());

    EXPECT_FALSE(setStarPicture(session, std::make_shared<TextPicture>("big", 17)));
    EXPECT_EQ(session.lastError(), kStarPictureSizeMessage);
    EXPECT_TRUE(setStarPicture(session, textPicture("star")));
}

TEST(PictureStripTest, CellsAreCutAndPicturesCentred) {
    using Cells = std::vector<PixelRect>;
    EXPECT_EQ(stripCells(480, 120, 3),
              (Cells{{0, 0, 160, 120}, {160, 0, 160, 120}, {320, 0, 160, 120}}));
    EXPECT_EQ(stripCells(101, 40, 2), (Cells{{0, 0, 50, 40}, {50, 0, 50, 40}}));  // the rest unused
    EXPECT_TRUE(stripCells(2, 120, 3).empty());  // narrower than its planet count
    EXPECT_EQ(savedCell(2), (PixelRect{320, 0, kCellWidth, kCellHeight}));
    EXPECT_EQ(centredIn(160, 120, 10, 20), (PixelRect{75, 50, 10, 20}));
    EXPECT_EQ(centredIn(160, 120, 200, 150), (PixelRect{-20, -15, 200, 150}));  // cut both sides
    EXPECT_FALSE(pictureSizeProblem("a.bmp", kMaxPictureSide, 1));
    EXPECT_TRUE(pictureSizeProblem("a.bmp", 20000, 20000));
}

}  // namespace
}  // namespace orr::test
