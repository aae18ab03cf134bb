#include "platform/opos/ClaimLock.h"

#include "platform/opos/FileNames.h"
#include "support/ScopedVariable.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fstream>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Claims : public ::testing::Test {
protected:
    TemporaryDirectory directory_;
    ScopedVariable runtime_{"XDG_RUNTIME_DIR", directory_.Path().string()};
};

// Another program that claims the device and holds it until it is ended.
class Claimant {
public:
    explicit Claimant(const std::string& device) {
        int ready[2];
        if (::pipe(ready) != 0)
            return;
        process_ = ::fork();
        if (process_ == 0) {
            ClaimLock lock;
            const char outcome = lock.Take(device) == ClaimLock::Outcome::Taken ? 'y' : 'n';
            if (::write(ready[1], &outcome, 1) == 1)
                ::pause();
            ::_exit(0);
        }
        char outcome = 'n';
        holds_ = ::read(ready[0], &outcome, 1) == 1 && outcome == 'y';
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~Claimant() { Crash(); }
    Claimant(const Claimant&) = delete;
    Claimant& operator=(const Claimant&) = delete;

    [[nodiscard]] bool Holds() const { return holds_; }
    void Crash() {
        if (process_ <= 0)
            return;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        process_ = -1;
    }

private:
    pid_t process_ = -1;
    bool holds_ = false;
};

} // namespace

TEST_F(Claims, AreExclusiveWithinTheProgram) {
    ClaimLock first;
    ClaimLock second;
    EXPECT_EQ(first.Take("scanner /dev/pts/1"), ClaimLock::Outcome::Taken);
    EXPECT_EQ(second.Take("scanner /dev/pts/1"), ClaimLock::Outcome::HeldByAnother);
    EXPECT_EQ(second.Take("scale /dev/pts/1"), ClaimLock::Outcome::Taken);
    first.Release();
    EXPECT_EQ(second.Take("scanner /dev/pts/1"), ClaimLock::Outcome::Taken);
    EXPECT_FALSE(ClaimLock::HeldByAnother("scale /dev/pts/1"));
}

TEST_F(Claims, AreExclusiveAcrossPrograms) {
    const Claimant other("device");
    ASSERT_TRUE(other.Holds());
    ClaimLock lock;
    EXPECT_EQ(lock.Take("device"), ClaimLock::Outcome::HeldByAnother);
    EXPECT_TRUE(ClaimLock::HeldByAnother("device"));
}

TEST_F(Claims, EndWithAProgramThatCrashes) {
    Claimant other("device");
    ASSERT_TRUE(other.Holds());
    other.Crash();
    ClaimLock lock;
    EXPECT_EQ(lock.Take("device"), ClaimLock::Outcome::Taken);
}

TEST_F(Claims, AreImpossibleWhereNothingCanBeWritten) {
    std::ofstream(directory_.Path() / "ravlin") << "not a directory";
    ClaimLock lock;
    EXPECT_EQ(lock.Take("device"), ClaimLock::Outcome::Impossible);
}

TEST_F(Claims, LieWithTheTemporaryFilesWhereThereIsNoRuntimeDirectory) {
    const ScopedVariable none("XDG_RUNTIME_DIR", "");
    const ScopedVariable temporary("TMPDIR", directory_.Path().string());
    EXPECT_EQ(ClaimLock::Directory(), directory_.Path() / ("ravlin-" + std::to_string(::geteuid())) / "claims");
    ClaimLock lock;
    EXPECT_EQ(lock.Take("device"), ClaimLock::Outcome::Taken);
}

TEST(FileNames, DifferForDifferentNames) {
    EXPECT_EQ(FileNameFor("Lane-1"), "Lane-1");
    EXPECT_EQ(FileNameFor("a/b"), "a%2fb");
    EXPECT_EQ(FileNameFor("a%2fb"), "a%252fb");
    EXPECT_EQ(FileNameFor(".."), "%2e%2e");
    EXPECT_EQ(FileNameFor("\xC3\xA9"), "%c3%a9");
    EXPECT_LE(FileNameFor(std::string(255, '/')).size(), 200U);
    EXPECT_NE(FileNameFor(std::string(254, '/') + "a"), FileNameFor(std::string(254, '/') + "b"));
}
