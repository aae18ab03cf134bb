// What stores that are open side by side see of each other.
#include "RegistryContract.h"

TEST_P(RegistryContract, AStoreSeesWhatItHasWritten) {
    const auto store = Writer("Folder\\Lane");
    store->WriteValue("Model", "1");
    EXPECT_EQ(store->ValueCount(), 1);
    store->WriteValue("Port", "2");
    EXPECT_EQ(store->ValueCount(), 2);
    EXPECT_EQ(store->ReadValue(Text, "port"), "2");
    store->KeyPath("Folder");
    EXPECT_EQ(store->SubKeyCount(), 1);
    store->KeyPath("Folder\\Other");
    store->KeyPath("Folder");
    EXPECT_EQ(store->SubKeyName(1), "Other");
}

TEST_P(RegistryContract, NothingIsSeenByOthersBeforeRelease) {
    Write("Lane", "Model", "old");
    const auto store = Writer("Lane");
    store->WriteValue("Model", "new");
    EXPECT_EQ(Read("Lane", "Model"), "old");
    EXPECT_EQ(ReaderOf(registry_->Other(), "Lane")->ReadValue(Text, "Model"), "old");
    store->Release();
    EXPECT_EQ(Read("Lane", "Model"), "new");
    EXPECT_EQ(ReaderOf(registry_->Other(), "Lane")->ReadValue(Text, "Model"), "new");
}

TEST_P(RegistryContract, AStoreDestroyedWithoutReleaseLeavesEverythingAsItWas) {
    Write("Folder\\Lane", "Model", "old");
    {
        const auto store = Writer("Folder");
        store->DeleteKey("Lane");
        store->KeyPath("Folder\\Lane");
        store->WriteValue("Model", "new");
        store->KeyPath("Folder\\Other");
    }
    EXPECT_EQ(SubKeyNames("Folder"), Names{"Lane"});
    EXPECT_EQ(Read("Folder\\Lane", "Model"), "old");
}

TEST_P(RegistryContract, OpenReadersReadOneStateTogether) {
    Write("Folder\\Lane", "Model", "old");
    const auto folder = Writer("Folder");
    EXPECT_EQ(folder->SubKeyCount(), 1);
    const auto other = WriterOf(registry_->Other(), "Folder\\Lane");
    other->WriteValue("Model", "new");
    other->KeyPath("Folder\\Lane 2");
    other->Release();
    EXPECT_EQ(Read("Folder\\Lane", "Model"), "old");
    EXPECT_EQ(folder->SubKeyCount(), 1);
}

TEST_P(RegistryContract, AStoreMadeWhenNoneIsOpenReadsTheNewestState) {
    Write("Lane", "Model", "old");
    EXPECT_EQ(Read("Lane", "Model"), "old");
    const auto other = WriterOf(registry_->Other(), "Lane");
    other->WriteValue("Model", "new");
    other->Release();
    EXPECT_EQ(Read("Lane", "Model"), "new");
}

TEST_P(RegistryContract, AStoreNeverMissesWhatItsOwnProgramHasReleased) {
    Write("Lane", "Model", "old");
    const auto open = Reader("Lane");
    EXPECT_EQ(open->ReadValue(Text, "Model"), "old");
    Write("Lane", "Model", "new");
    EXPECT_EQ(Read("Lane", "Model"), "new");
}

TEST_P(RegistryContract, AFolderThatExistsIsHeldOpenWithoutKeepingOthersFromWriting) {
    Make("Folder\\Lane");
    const auto folder = Writer("Folder");
    EXPECT_EQ(folder->SubKeyCount(), 1);
    const auto other = WriterOf(registry_->Other(), "Folder\\Other");
    other->Release();
    Make("Folder\\Third");
    folder->Release();
    EXPECT_EQ(SubKeyNames("Folder").size(), 3U);
}

TEST_P(RegistryContract, TheFirstWriteGoesOnFromTheNewestState) {
    Write("Folder\\Lane", "Model", "old");
    const auto store = Writer("Folder\\Lane");
    EXPECT_EQ(store->ReadValue(Text, "Model"), "old");
    const auto other = WriterOf(registry_->Other(), "Folder");
    other->DeleteKey("Lane");
    other->KeyPath("Folder\\Lane");
    other->WriteValue("Port", "7");
    other->Release();
    store->WriteValue("Display", "1");
    EXPECT_EQ(store->ReadValue(Text, "Model"), "");
    store->Release();
    EXPECT_EQ(ValueNames("Folder\\Lane"), (Names{"Port", "Display"}));
}

TEST_P(RegistryContract, AKeyThatAnotherProgramDeletedIsMadeAgainByAWriter) {
    Write("Folder\\Lane", "Model", "old");
    const auto store = Writer("Folder\\Lane");
    const auto other = WriterOf(registry_->Other(), "Folder");
    other->DeleteKey("Lane");
    other->Release();
    store->WriteValue("Display", "1");
    store->Release();
    EXPECT_EQ(ValueNames("Folder\\Lane"), Names{"Display"});
}

TEST_P(RegistryContract, BeginWritingKeepsTheSelectedKeyAndReadsTheNewestState) {
    Write("Lane", "Model", "old");
    const auto store = Writer("Lane");
    EXPECT_EQ(store->ReadValue(Text, "Model"), "old");
    const auto other = WriterOf(registry_->Other(), "Lane");
    other->WriteValue("Model", "new");
    other->Release();
    store->BeginWriting();
    EXPECT_EQ(store->ReadValue(Text, "Model"), "new");
    store->WriteValue("Port", "1");
    store->Release();
    EXPECT_EQ(ValueNames("Lane"), (Names{"Model", "Port"}));
}

TEST_P(RegistryContract, TwoWritersOfOneProgramDoNotWaitForEachOther) {
    const auto first = Writer("Lane 1");
    first->WriteValue("Model", "1");
    ExpectError(RegistryErrorNumber::CreateKey, [&] { Writer("Lane 2"); });
    first->Release();
    Make("Lane 2");
    EXPECT_EQ(SubKeyNames(""), (Names{"Lane 1", "Lane 2"}));
}
