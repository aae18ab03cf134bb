// What the file-backed registry does when its files are damaged, locked, read-only or out of space.
#include "platform/registry/RegistrySqlite.h"
#include "support/InChild.h"
#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <thread>

namespace {

namespace fs = std::filesystem;
constexpr auto Text = RegistryValueType::String;
constexpr uid_t Nobody = 65534;

struct Raised {
    std::uint32_t number = 0; // 0: nothing was raised
    std::string description;

    [[nodiscard]] bool Says(const std::string& text) const { return description.find(text) != std::string::npos; }
};

Raised RaisedBy(const std::function<void()>& operation) {
    try {
        operation();
        return {};
    } catch (const RegistryError& error) {
        return {error.Number(), error.Description()};
    }
}

std::string Read(Registry& registry, const std::string& path, const std::string& name) {
    const auto store = registry.CreateStore();
    store->CreateMissing(false);
    store->KeyPath(path);
    return store->ReadValue(Text, name);
}

void Write(Registry& registry, const std::string& path, const std::string& name, const std::string& text) {
    const auto store = registry.CreateStore();
    store->KeyPath(path);
    store->WriteValue(name, text);
    store->Release();
}

// Another program with the file open.
class RawConnection {
public:
    explicit RawConnection(const fs::path& file) { sqlite3_open(file.c_str(), &connection_); }
    ~RawConnection() { sqlite3_close(connection_); }
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;
    void Run(const char* sql) {
        ASSERT_EQ(sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(connection_);
    }

private:
    sqlite3* connection_ = nullptr;
};

// The error of the first use of a registry over this file.
Raised RaisedByOpening(const fs::path& file) {
    const auto registry = OpenSqliteRegistry({file, file});
    return RaisedBy([&] { Read(*registry, "Lane", "Model"); });
}

void ExpectOpenError(const fs::path& file, const std::string& text) {
    const Raised raised = RaisedByOpening(file);
    EXPECT_EQ(raised.number, 0x80040201U) << raised.description;
    EXPECT_TRUE(raised.Says(file)) << raised.description;
    EXPECT_TRUE(raised.Says(text)) << raised.description;
}

// As a user who owns nothing here; for a test run by such a user, the modes of the files do it.
void BecomeNobody() {
    if (geteuid() == 0 && (setgid(Nobody) != 0 || setuid(Nobody) != 0))
        throw std::runtime_error("cannot become another user");
}

} // namespace

TEST(RegistryFaults, AFileThatIsNoDatabaseIsNamedAndLeftAlone) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "hive";
    const std::string letter = "Dear lane, this is not a database but it is longer than a header of one.";
    std::ofstream(file) << letter;
    ExpectOpenError(file, "is not a registry file");
    EXPECT_EQ(fs::file_size(file), letter.size());
}

TEST(RegistryFaults, ADirectoryInPlaceOfTheFileIsAnError) {
    const TemporaryDirectory directory;
    ExpectOpenError(directory.Path(), "could not be opened");
}

TEST(RegistryFaults, ADirectoryThatCannotBeMadeIsAnError) {
    const TemporaryDirectory directory;
    std::ofstream(directory.Path() / "file") << "x";
    ExpectOpenError(directory.Path() / "file" / "hive", "directory");
}

TEST(RegistryFaults, AnotherProgramsDatabaseIsLeftAlone) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "hive";
    RawConnection(file).Run("CREATE TABLE Recipes (Name TEXT)");
    ExpectOpenError(file, "another program");
    RawConnection(file).Run("PRAGMA user_version = 1");
    ExpectOpenError(file, "another program");
    RawConnection(file).Run("SELECT Name FROM Recipes");
}

TEST(RegistryFaults, ANewerLayoutIsNotTouched) {
    TemporaryRegistry registry;
    registry.Put("Lane", "Model", "758");
    RawConnection(registry.Files().machine).Run("PRAGMA user_version = 2");
    ExpectOpenError(registry.Files().machine, "newer version");
}

TEST(RegistryFaults, DamagedPagesAreReportedNotRead) {
    TemporaryRegistry registry;
    for (int i = 0; i < 200; ++i)
        registry.Put("Lane", "Value " + std::to_string(i), std::string(100, 'x'));
    {
        std::fstream file(registry.Files().machine, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(4096);
        file << std::string(fs::file_size(registry.Files().machine) - 4096, '\xA5');
    }
    const Raised raised = RaisedByOpening(registry.Files().machine);
    EXPECT_TRUE(raised.number == 0x80040201U || raised.number == 0x80040204U) << raised.number;
    EXPECT_TRUE(raised.Says("is damaged")) << raised.description;
    EXPECT_TRUE(raised.Says(registry.Files().machine)) << raised.description;
}

TEST(RegistryFaults, WithoutTheRightToReadNothingIsRead) {
    TemporaryRegistry registry;
    registry.Put("Lane", "Model", "758");
    chmod(registry.Files().machine.c_str(), 0);
    EXPECT_TRUE(InChild([&] {
        BecomeNobody();
        const Raised raised = RaisedByOpening(registry.Files().machine);
        return raised.number == 0x80040201 && raised.Says(registry.Files().machine);
    }));
}

class ReadOnlyRegistry : public testing::Test {
protected:
    ReadOnlyRegistry() {
        registry_.Put("Lane", "Model", "758");
        chmod(registry_.Files().machine.c_str(), 0444);
    }
    ~ReadOnlyRegistry() override { chmod(Directory().c_str(), 0755); }
    fs::path Directory() const { return registry_.Files().machine.parent_path(); }

    // Reads, and is refused to write, as another user.
    bool ReadsButDoesNotWrite() {
        return InChild([this] {
            BecomeNobody();
            const auto registry = registry_.OtherProgram();
            if (Read(*registry, "Lane", "Model") != "758" || Read(*registry, "Nowhere", "Model") != "")
                return false;
            const Raised changing = RaisedBy([&] { Write(*registry, "Lane", "Model", "new"); });
            const Raised creating = RaisedBy([&] { Write(*registry, "Other", "Model", "new"); });
            return changing.number == 0x80040207 && changing.Says("may not be written") &&
                   changing.Says(registry_.Files().machine) && creating.number == 0x80040203 &&
                   Read(*registry, "Lane", "Model") == "758";
        });
    }

    TemporaryRegistry registry_;
};

TEST_F(ReadOnlyRegistry, IsReadInADirectoryThatMayNotBeWritten) {
    chmod(Directory().c_str(), 0555);
    EXPECT_TRUE(ReadsButDoesNotWrite());
}

TEST_F(ReadOnlyRegistry, IsReadInADirectoryThatMayBeWritten) {
    chmod(Directory().c_str(), 0777);
    EXPECT_TRUE(ReadsButDoesNotWrite());
}

TEST_F(ReadOnlyRegistry, IsReadWhileAnotherProgramHasItOpen) {
    chmod(registry_.Files().machine.c_str(), 0644);
    Write(registry_, "Lane", "Model", "758");
    chmod(Directory().c_str(), 0555);
    EXPECT_TRUE(ReadsButDoesNotWrite());
}

TEST_F(ReadOnlyRegistry, SeesWhatWasWrittenSinceItWasOpened) {
    chmod(Directory().c_str(), 0555);
    EXPECT_EQ(Read(registry_, "Lane", "Model"), "758");
    registry_.Put("Lane", "Model", "new");
    EXPECT_EQ(Read(registry_, "Lane", "Model"), "new");
}

TEST(RegistryFaults, AFileThatIsReplacedIsOpenedAnew) {
    TemporaryRegistry registry;
    Write(registry, "Lane", "Model", "old");
    fs::remove(registry.Files().machine);
    fs::remove(registry.Files().machine.string() + "-wal");
    fs::remove(registry.Files().machine.string() + "-shm");
    EXPECT_EQ(Read(registry, "Lane", "Model"), "");
    Write(registry, "Lane", "Model", "new");
    EXPECT_EQ(registry.Text("Lane", "Model"), "new");
}

TEST(RegistryFaults, AWriterWaitsForAnotherProgramOnlySoLong) {
    TemporaryRegistry temporary;
    temporary.Put("Lane", "Model", "old");
    const auto registry = OpenSqliteRegistry(temporary.Files(), std::chrono::milliseconds(20));
    RawConnection other(temporary.Files().machine);
    other.Run("BEGIN IMMEDIATE");
    EXPECT_EQ(Read(*registry, "Lane", "Model"), "old") << "readers do not wait";
    const Raised writing = RaisedBy([&] { Write(*registry, "Lane", "Model", "new"); });
    EXPECT_EQ(writing.number, 0x80040207U);
    EXPECT_TRUE(writing.Says("another program")) << writing.description;
    EXPECT_EQ(RaisedBy([&] { Write(*registry, "Other", "Model", "new"); }).number, 0x80040203U);
    EXPECT_EQ(RaisedBy([&] { registry->CreateStore()->BeginWriting(); }).number, 0x80040201U);
    other.Run("COMMIT");
    Write(*registry, "Lane", "Model", "new");
    EXPECT_EQ(Read(*registry, "Lane", "Model"), "new");
}

TEST(RegistryFaults, WithoutSpaceNothingOfASequenceIsKept) {
    TemporaryRegistry registry;
    registry.Put("Lane", "Model", "old");
    EXPECT_TRUE(InChild([&] {
        // No file may grow beyond this any more, as on a full disk.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{64 * 1024, 64 * 1024};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return false;
        const auto own = registry.OtherProgram();
        const auto store = own->CreateStore();
        store->KeyPath("Lane");
        store->WriteValue("Model", "new");
        const Raised raised = RaisedBy([&] {
            for (int i = 0; i < 1000; ++i)
                store->WriteValue("Long " + std::to_string(i), std::string(100'000, 'x'));
            store->Release();
        });
        // Who goes on in spite of it gets nothing written either.
        const Raised after = RaisedBy([&] {
            store->WriteValue("Late", "1");
            store->Release();
        });
        return raised.Says("Nothing of it was kept") && raised.Says(registry.Files().machine) && after.number != 0;
    }));
    EXPECT_EQ(registry.Values("Lane"), (std::vector<RegistryValue>{{"Model", 1, "old"}}));
    Write(registry, "Lane", "Model", "new");
    EXPECT_EQ(registry.Text("Lane", "Model"), "new");
}

TEST(RegistryFaults, ManyProgramsMayMakeANewFileAtOnce) {
    const TemporaryDirectory directory;
    const HiveFiles files{directory.Path() / "hive", directory.Path() / "user"};
    std::vector<Raised> raised(8);
    {
        std::vector<std::jthread> programs;
        for (std::size_t i = 0; i < raised.size(); ++i)
            programs.emplace_back([&, i] {
                const auto registry = OpenSqliteRegistry(files);
                raised[i] = RaisedBy([&] { Write(*registry, "Folder\\Lane " + std::to_string(i), "Model", "1"); });
            });
    }
    for (const Raised& one : raised)
        EXPECT_EQ(one.number, 0U) << one.description;
    EXPECT_EQ(OpenSqliteTree(files)->SubKeys(RegistryRoot::LocalMachine, "Folder").size(), raised.size());
}
