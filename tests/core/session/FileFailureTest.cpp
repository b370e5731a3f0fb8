// A failure at any file operation of a change (writing, putting in place, renaming, deleting):
// every file is left as it was or as the change would leave it, no temporary file stays behind,
// and the session says what happened. The failure is injected at each operation in turn.
#include <functional>
#include <map>

#include "session/PlanetEdits.h"
#include "session/SystemEdits.h"
#include "session/SystemFiles.h"
#include "store/FileIo.h"
#include "support/SessionFixture.h"

namespace orr::test {
namespace {

using Files = std::map<std::string, std::string>;

struct Change {
    const char* name;
    bool opened;  // the editor has the system open before the change (not part of it)
    std::function<bool(EditSession&)> run;
};

// The system "Sol" with two planets, pictures and a saved descriptor, in a folder of its own.
void prepare(TempGameFolder& game) {
    game.writeDescriptor(TempGameFolder::systemRecord("Sol", 2));
    game.write("PICTURES/Sol.bmp", "strip");
    game.write("PICTURES/SolSun.bmp", "star");
    game.write("PICTURES/Sol1.avi", "animation");
}

bool open(EditSession& session) {
    return session.open("Sol", [] { return false; });
}

const Change kChanges[] = {
    // As the command-line tool makes a change: a failure discards the working copy.
    {"a change committed", false,
     [](EditSession& s) {
         const bool ok = open(s) && addPlanet(s) == AddPlanetResult::Added && s.commit();
         if (!ok && s.isOpen()) s.discard();
         return ok;
     }},
    {"an edit saved", true,
     [](EditSession& s) { return setPlanetName(s, 1, "Ember") && s.save(); }},
    {"Save As", true, [](EditSession& s) { return s.saveAs("Vega"); }},
    {"Delete", false, [](EditSession& s) { return deleteSystem(s, "Sol"); }},
    {"New", false,
     [](EditSession& s) {
         std::string error;
         const bool made = createSystem(s.folder(), "Nova", NewSystemAnswer::CustomName, &error);
         if (!made) s.fail(error);
         return made;
     }},
};

TEST(FileFailureTest, EveryFileIsAsItWasOrAsTheChangeLeavesIt) {
    for (const Change& change : kChanges) {
        TempGameFolder done;
        prepare(done);
        Files after;
        {
            EditSession session(done.folder());
            if (change.opened) {
                ASSERT_TRUE(open(session));
            }
            ASSERT_TRUE(change.run(session)) << change.name << ": " << session.lastError();
            session.close();
            after = snapshot(done.root());
        }
        for (int failing = 1;; ++failing) {
            TempGameFolder game;
            prepare(game);
            EditSession session(game.folder());
            if (change.opened) {
                ASSERT_TRUE(open(session));
            }
            const Files before = snapshot(game.root());
            injectFileFailure(failing);
            const bool ok = change.run(session);
            const int operations = fileOperationsSince();
            injectFileFailure(0);
            const std::string what = std::string(change.name) + ", operation " +
                                     std::to_string(failing) + ": " + session.lastError();
            if (session.isOpen()) session.close();
            const Files now = snapshot(game.root());
            Files every = before;
            every.insert(after.begin(), after.end());
            every.insert(now.begin(), now.end());
            const std::string warning = session.lastWarning();
            const auto find = [](const Files& in, const std::string& file) {
                const auto it = in.find(file);
                return it == in.end() ? std::optional<std::string>() : it->second;
            };
            for (const auto& [file, bytes] : every) {
                const auto actual = find(now, file);
                // A save whose working copy could not be deleted afterwards stands; the copy
                // stays as the backup the next opening offers, and the warning says so.
                const bool leftBackup =
                    ok && !warning.empty() && file.ends_with(".edt") &&
                    actual == find(after, file.substr(0, file.size() - 4) + ".orb");
                EXPECT_TRUE(actual == find(before, file) || actual == find(after, file) ||
                            leftBackup)
                    << what << "\n  " << file
                    << " is neither as it was nor as the change leaves it";
                EXPECT_FALSE(file.ends_with(".tmp"))
                    << what << "\n  a temporary file stayed: " << file;
            }
            if (!ok) {
                EXPECT_FALSE(session.lastError().empty()) << what;
            }
            if (operations < failing) {
                EXPECT_TRUE(ok) << what;  // the failure came after the last operation
                break;
            }
            if (ok && warning.empty()) {
                EXPECT_EQ(now, after) << what << " reported success";
            }
        }
    }
}

}  // namespace
}  // namespace orr::test
