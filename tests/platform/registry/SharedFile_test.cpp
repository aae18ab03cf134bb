// A registry file in a directory that belongs to a group of users.
#include "platform/registry/SharedFile.h"

#include "platform/registry/RegistrySqlite.h"
#include "support/InChild.h"
#include "support/TemporaryDirectory.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <grp.h>

#include <fstream>

namespace {

namespace fs = std::filesystem;

// Members of the group and somebody else; for a test that is not run by root all are its own user.
constexpr uid_t Ann = 65001;
constexpr uid_t Bob = 65002;
constexpr uid_t Stranger = 65003;
constexpr gid_t Group = 65000;

void Become(uid_t user, gid_t group) {
    if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(group) != 0 || setuid(user) != 0))
        throw std::runtime_error("cannot become another user");
}

mode_t Mode(const fs::path& file) {
    struct stat status {};
    return stat(file.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

class SharedFile : public testing::Test {
protected:
    SharedFile() {
        const bool isRoot = geteuid() == 0;
        EXPECT_TRUE(!isRoot || chown(directory_.Path().c_str(), 0, Group) == 0);
        EXPECT_EQ(chmod(directory_.Path().c_str(), 02775), 0);
    }

    // Adds a profile with a registry of its own, as this user with this umask; true when done.
    bool Adds(uid_t user, mode_t mask, const std::string& name) {
        return InChild([&] {
            Become(user, Group);
            umask(mask);
            Add(*Open(), name);
            return true;
        });
    }
    static void Add(Registry& registry, const std::string& name) {
        const auto store = registry.CreateStore();
        store->KeyPath("Lanes");
        store->WriteValue(name, "1");
        store->Release();
    }
    std::unique_ptr<Registry> Open() const { return OpenSqliteRegistry({File(), File()}); }
    static std::string Value(Registry& registry, const std::string& name) {
        const auto store = registry.CreateStore();
        store->CreateMissing(false);
        store->KeyPath("Lanes");
        return store->ReadValue(RegistryValueType::String, name);
    }
    fs::path File(const char* ending = "") const { return directory_.Path() / (std::string("machine.db") + ending); }

    TemporaryDirectory directory_;
};

} // namespace

TEST_F(SharedFile, HasTheRightsOfItsDirectoryWhateverTheUmask) {
    EXPECT_TRUE(InChild([this] {
        Become(Ann, Group);
        umask(077);
        const auto registry = Open();
        Add(*registry, "Ann's");
        return Mode(File()) == 0664 && Mode(File("-wal")) == 0664 && Mode(File("-shm")) == 0664;
    }));
    EXPECT_EQ(std::distance(fs::directory_iterator(directory_.Path()), {}), 1) << "nothing else is left behind";
}

TEST_F(SharedFile, IsClosedToOthersInADirectoryThatIs) {
    chmod(directory_.Path().c_str(), 02770);
    EXPECT_TRUE(Adds(Ann, 022, "Ann's"));
    EXPECT_EQ(Mode(File()), 0660U);
}

TEST_F(SharedFile, IsWrittenByEveryMemberOfTheGroup) {
    EXPECT_TRUE(Adds(Ann, 077, "Ann's"));
    EXPECT_TRUE(Adds(Bob, 077, "Bob's"));
    EXPECT_TRUE(Adds(Ann, 022, "Ann's second"));
    EXPECT_EQ(Value(*Open(), "Ann's") + Value(*Open(), "Bob's") + Value(*Open(), "Ann's second"), "111");
}

TEST_F(SharedFile, IsWrittenByAMemberWhileAnotherProgramHasItOpen) {
    const auto open = Open();
    Add(*open, "Ann's");
    EXPECT_TRUE(Adds(Bob, 077, "Bob's"));
    EXPECT_EQ(Value(*open, "Bob's"), "1");
}

TEST_F(SharedFile, IsReadByOthersAlsoWhileItIsWritten) {
    const auto registry = Open();
    Add(*registry, "Ann's");
    EXPECT_TRUE(InChild([this] {
        Become(Stranger, Stranger);
        return Value(*Open(), "Ann's") == "1";
    }));
}

TEST_F(SharedFile, IsReadByOthersAfterAProgramWasKilled) {
    EXPECT_TRUE(InChild([this]() -> bool {
        Become(Ann, Group);
        const auto registry = Open();
        Add(*registry, "Ann's");
        _exit(0); // leaves the log behind
    }));
    EXPECT_TRUE(fs::exists(File("-wal")));
    EXPECT_TRUE(InChild([this] {
        Become(Stranger, Stranger);
        return Value(*Open(), "Ann's") == "1";
    }));
}

TEST_F(SharedFile, StaysAsItIsWhereItIsThere) {
    std::ofstream(File()) << "";
    chmod(File().c_str(), 0600);
    MakeSharedFile(File());
    EXPECT_EQ(Mode(File()), 0600U);
}

TEST_F(SharedFile, IsOnlyMadeInADirectoryThatHandsItsGroupOn) {
    for (const mode_t mode : {00775, 02755, 00700}) {
        chmod(directory_.Path().c_str(), mode);
        MakeSharedFile(File());
        EXPECT_FALSE(fs::exists(File())) << mode;
    }
}
