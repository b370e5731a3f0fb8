#include "GameFolderFixture.h"

namespace orr::test {

StoreTest::StoreTest() : store(game.folder()) {
    store.InitTables();
}

void StoreTest::writeDescriptor(const std::string& name, std::string_view bytes) {
    writeBytes(game.descriptor(name + ".orb"), bytes);
    // Written behind the store's back: the next read looks at the file again.
    store.recheck();
}

std::string StoreTest::readDescriptor(const std::string& fileName) const {
    return readBytes(game.descriptor(fileName));
}

void StoreTest::openNewSystem(const std::string& name, int planets) {
    SystemRecord record;
    record.Name = name;
    record.setDisplayName(name);
    writeDescriptor(name, newDescriptorText(record));
    store.record().Name = name;
    ASSERT_TRUE(store.BeginEdit([] { return false; })) << store.lastError();
    ASSERT_TRUE(store.LoadSystem(name).blockFound);
    for (int i = 0; i < planets; ++i) ASSERT_TRUE(store.AddPlanet()) << store.lastError();
    ASSERT_TRUE(store.SaveSystemBlock()) << store.lastError();
}

SystemRecord StoreTest::saveAndReload() {
    EXPECT_TRUE(store.SaveSystemBlock()) << store.lastError();
    SystemStore other(game.folder());
    other.record().Name = store.record().Name;
    if (store.IsEditing()) {
        // Read the working copy, where the change is: keeping the "backup" switches the other
        // store to it without copying anything.
        EXPECT_TRUE(other.BeginEdit([] { return true; }));
    }
    const LoadResult result = other.LoadSystem(store.record().Name);
    EXPECT_TRUE(result.blockFound);
    EXPECT_EQ(result.warning, "");
    return other.record();
}

}  // namespace orr::test
