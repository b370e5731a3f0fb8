// The message editor's state: when the groups are looked for again, which group each direction
// shows, adding groups and where "Go to Answer" leads.

#include <gtest/gtest.h>

#include "core/messages/support/MemoryMessageStore.h"
#include "messages/MessageEditorState.h"

namespace orr {
namespace {

using Names = std::vector<std::string>;

TEST(MessageEditorState, GroupsAreLookedForAgainOnlyWhenNeeded) {
    MessageEditorState state;
    struct Step {
        const char* what;
        int planet;
        const char* system;
        bool closed;  // Cancel or Close since the last step: the reload mark is cleared
        bool mark;
        bool skip;
        bool reloads;
    };
    const Step steps[] = {
        {"first opening", 1, "Nova", false, false, false, true},
        {"the reload mark stays set after a reload", 1, "Nova", false, false, false, true},
        {"the same planet and system", 1, "Nova", true, false, false, false},
        {"another planet", 2, "Nova", true, false, false, true},
        {"another display name", 2, "Nova Prime", true, false, false, true},
        {"the reload mark", 2, "Nova Prime", true, true, false, true},
        {"back from a chooser", 3, "Nova Prime", false, false, true, false},
        {"the chooser's skip is used up", 3, "Nova Prime", false, false, false, true},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.what);
        state.setPlanet(step.planet);
        if (step.closed) state.clearReloadMark();
        if (step.mark) state.markForReload();
        if (step.skip) state.setSkipMark();
        EXPECT_EQ(state.activate(step.system), step.reloads);
    }
}

TEST(MessageEditorState, EachDirectionShowsTheWantedGroupOrFallsBack) {
    test::MemoryMessageStore store;
    store.keys = {{"Messages", "1"},      {"Message1", "Hi*RTalk"},
                  {"ResponsesTalk", "1"}, {"ResponseTalk1", "Bye*MTrade"},
                  {"MessagesTrade", "1"}, {"MessageTrade1", "Ok"},
                  {"MessagesLost", "2"}};
    struct Case {
        Direction direction;
        const char* wanted;
        bool create;
        const char* shown;
    };
    const Case cases[] = {
        {Direction::Message, "", false, "INIT"},
        {Direction::Response, "", false, "Hail"},
        {Direction::Response, "Talk", false, "Talk"},
        {Direction::Message, "Talk", false, "INIT"},        // no messages: not a message group
        {Direction::Message, "Lost", false, "Lost"},        // not reached, but it holds lines
        {Direction::Response, "Nowhere", true, "Nowhere"},  // Go to Answer makes it
        {Direction::Message, "Nowhere", false, "INIT"},
        {Direction::Information, "Trade", false, "Info"},
    };
    MessageEditorState state;
    state.setPlanet(1);
    ASSERT_TRUE(state.activate("Nova"));
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.wanted) + " in direction " +
                     std::to_string(static_cast<int>(c.direction)));
        state.show(store, c.direction, c.wanted, c.create);
        EXPECT_EQ(state.group(), c.shown);
    }
    EXPECT_EQ(state.scanCount(), 1);
    EXPECT_TRUE(state.groups().empty());
    // Information remembers the group shown before it.
    EXPECT_EQ(state.groupToKeep(), "INIT");
    state.show(store, Direction::Response, state.groupToKeep());
    EXPECT_EQ(state.group(), "Hail");  // INIT has no responses here
    // A message without a tag offers its own group's responses, so Trade is listed here too.
    EXPECT_EQ(state.groups(), (Names{"Talk", "Trade", "Hail", "Lost", "Nowhere"}));
    EXPECT_EQ(state.answerGroups(),
              (Names{"INIT", "Trade", "Back", "Returned", "Beam", "Phaser", "Lost"}));
    EXPECT_FALSE(state.choose("Back"));  // a message group only
    EXPECT_TRUE(state.choose("Talk"));
    EXPECT_EQ(state.group(), "Talk");

    // Keys changed under the editor: the groups are looked for again.
    store.keys["ResponseTalk1"] = "Bye*MMarket";
    state.reread(store);
    state.show(store, Direction::Message, "Market");
    EXPECT_EQ(state.group(), "Market");
    EXPECT_EQ(state.scanCount(), 2);
}

TEST(MessageEditorState, TypedGroupsAreTakenUpUnderTheNameRule) {
    test::MemoryMessageStore store;
    MessageEditorState state;
    state.setPlanet(1);
    state.activate("Nova");
    state.show(store, Direction::Message, "");
    EXPECT_EQ(state.take(store, " Cave "), "");
    EXPECT_EQ(state.group(), "Cave");
    EXPECT_TRUE(state.lists("Cave"));
    EXPECT_TRUE(store.keys.empty());  // nothing is written for it
    state.reread(store);
    EXPECT_TRUE(state.lists("Cave"));  // the group shown stays
    EXPECT_NE(state.take(store, "Bad*Name"), "");
    EXPECT_NE(state.take(store, ""), "");
    EXPECT_EQ(state.group(), "Cave");
    EXPECT_EQ(state.take(store, "INIT"), "");  // a listed name is chosen
    EXPECT_EQ(state.groups(), (Names{"INIT", "Back", "Returned", "Beam", "Phaser", "Cave"}));
    // Responses do not list a message group until a line leads there.
    state.show(store, Direction::Response, "Cave");
    EXPECT_EQ(state.group(), "Hail");
}

TEST(MessageEditorState, SavedAnswersBecomeGroupsOfTheOtherDirection) {
    test::MemoryMessageStore store;
    MessageEditorState state;
    state.setPlanet(1);
    state.activate("Nova");
    state.show(store, Direction::Response, "");
    state.lineSaved(store, "Treaty");
    state.lineSaved(store, "");  // its own group
    EXPECT_EQ(state.answerGroups(),
              (Names{"INIT", "Back", "Returned", "Beam", "Phaser", "Hail", "Treaty"}));

    const auto target = state.answerTarget("Treaty");
    EXPECT_EQ(target.direction, Direction::Message);
    EXPECT_EQ(target.group, "Treaty");
    EXPECT_EQ(target.problem, "");
    EXPECT_NE(state.answerTarget("a=b").problem, "");
    state.show(store, target.direction, target.group, true);
    EXPECT_EQ(state.group(), "Treaty");
    EXPECT_EQ(state.answerTarget("").direction, Direction::Response);
}

}  // namespace
}  // namespace orr
