// A profile is the old one or the new one, whole, whatever happens to the program that saves it.
#include "platform/registry/RegistrySqlite.h"
#include "profiles/CScanner2.h"
#include "support/TemporaryRegistry.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

namespace {

const std::string Folder = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\";

using Values = std::vector<std::string>;

const Values OldValues = {"=Tavrin.Opos.Scanner", "Model=758",     "Service=RavlinSO.dll",
                          "Version=1.0.0.1",      "Serial Port=1", "Scanner Version=1",
                          "ScaleType=0",          "WeightUnit=0",  "Display=0"};
const Values NewValues = {"=Tavrin.Opos.Scanner", "Model=Pelerin/3172", "Service=RavlinSO.dll", "Version=1.0.0.1",
                          "Scanner Version=2",    "ScaleType=2",        "WeightUnit=1",         "Display=1"};

void Save(Registry& registry, const std::string& name, bool renewed) {
    CScanner2 scanner(registry);
    scanner.DeviceName(name);
    scanner.Model(renewed ? "Pelerin/3172" : "758");
    scanner.SerialPort(renewed ? -1 : 1);
    scanner.ScannerType(renewed ? 2 : 1);
    scanner.SScaleType(renewed ? 2 : 0);
    scanner.SWeightUnit(renewed ? 1 : 0);
    scanner.SDisplay(renewed ? 1 : 0);
    scanner.SaveDevice(true);
}

// What is stored, without the date of the save.
Values Stored(const TemporaryRegistry& registry, const std::string& name) {
    Values values;
    for (const RegistryValue& value : registry.Values(Folder + name))
        if (value.name != "Description")
            values.push_back(value.name + '=' + value.data);
    return values;
}

// Stops this process for good at the nth of the calls by which SQLite changes or locks files, and says so on a pipe;
// a write is stopped in its middle. The process is then killed there.
class StopAtCall {
public:
    static void Arm(int nth, int pipe) {
        callsLeft_ = nth;
        pipe_ = pipe;
        sqlite3_vfs* const vfs = sqlite3_vfs_find(nullptr);
        const auto replace = [vfs](const char* name, auto function) {
            vfs->xSetSystemCall(vfs, name, reinterpret_cast<sqlite3_syscall_ptr>(function));
        };
        replace("pwrite", PWrite);
        replace("pwrite64", PWrite);
        replace("ftruncate", Truncate);
        replace("unlink", Unlink);
        replace("fcntl", Lock);
    }

private:
    static bool IsReached() { return --callsLeft_ == 0; }
    [[noreturn]] static void Stop() {
        const ssize_t written = write(pipe_, "!", 1);
        while (written == 1)
            pause();
        _exit(2);
    }
    static ssize_t PWrite(int file, const void* bytes, size_t count, off_t offset) {
        if (!IsReached())
            return pwrite(file, bytes, count, offset);
        const ssize_t half = pwrite(file, bytes, count / 2, offset);
        if (half >= 0)
            Stop();
        return half;
    }
    static int Truncate(int file, off_t size) {
        if (IsReached())
            Stop();
        return ftruncate(file, size);
    }
    static int Unlink(const char* path) {
        if (IsReached())
            Stop();
        return unlink(path);
    }
    static int Lock(int file, int command, ...) {
        if (IsReached())
            Stop();
        va_list arguments;
        va_start(arguments, command);
        void* const argument = va_arg(arguments, void*);
        va_end(arguments);
        return fcntl(file, command, argument);
    }

    inline static int callsLeft_ = 0;
    inline static int pipe_ = -1;
};

// Saves the profile over and over, new and old in turns, in a process that is killed at its nth call.
void SaveAndBeKilled(const HiveFiles& files, int nth) {
    std::array<int, 2> stopped{};
    ASSERT_EQ(pipe(stopped.data()), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        close(stopped[0]);
        StopAtCall::Arm(nth, stopped[1]);
        const auto registry = OpenSqliteRegistry(files);
        for (bool renewed = true;; renewed = !renewed)
            Save(*registry, "Lane", renewed);
    }
    close(stopped[1]);
    char mark = 0;
    EXPECT_EQ(read(stopped[0], &mark, 1), 1) << "the process ended by itself before call " << nth;
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(stopped[0]);
}

} // namespace

// No registry is open in this process while it forks: SQLite must not be carried into another process.
TEST(CrashSafety, AfterAKillAtAnyMomentTheProfileIsWhole) {
    const TemporaryRegistry registry;
    Save(*registry.OtherProgram(), "Other", false);
    Save(*registry.OtherProgram(), "Lane", false);
    int old = 0;
    int renewed = 0;
    for (int nth = 1; nth <= 200; ++nth) {
        SaveAndBeKilled(registry.Files(), nth);
        const Values stored = Stored(registry, "Lane");
        old += stored == OldValues ? 1 : 0;
        renewed += stored == NewValues ? 1 : 0;
        ASSERT_EQ(old + renewed, nth) << testing::PrintToString(stored);
        ASSERT_EQ(Stored(registry, "Other"), OldValues);
    }
    EXPECT_GT(old, 20) << "the moments did not spread over the save";
    EXPECT_GT(renewed, 20) << "the moments did not spread over the save";
    Save(*registry.OtherProgram(), "Lane", true);
    EXPECT_EQ(Stored(registry, "Lane"), NewValues);
}

TEST(CrashSafety, TwoProgramsThatSaveAtOnceLoseNothing) {
    TemporaryRegistry registry;
    constexpr int Saves = 200;
    std::array<int, 2> start{};
    ASSERT_EQ(pipe(start.data()), 0);
    std::vector<pid_t> programs;
    for (const char* const program : {"A", "B"}) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            close(start[1]);
            char end = 0;
            int failures = read(start[0], &end, 1) == 0 ? 0 : 1;
            try {
                const auto own = OpenSqliteRegistry(registry.Files());
                for (int i = 0; i < Saves; ++i) {
                    Save(*own, program + std::to_string(i % 100), i >= 100);
                    Save(*own, "Shared", *program == 'A');
                }
            } catch (const std::exception& error) {
                std::fprintf(stderr, "program %s: %s\n", program, error.what());
                ++failures;
            }
            _exit(failures);
        }
        programs.push_back(child);
    }
    close(start[0]);
    close(start[1]);
    for (const pid_t program : programs) {
        int status = -1;
        EXPECT_EQ(waitpid(program, &status, 0), program);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(registry.SubKeys(Folder).size(), 201U);
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(Stored(registry, "A" + std::to_string(i)), NewValues);
        ASSERT_EQ(Stored(registry, "B" + std::to_string(i)), NewValues);
    }
    const Values shared = Stored(registry, "Shared");
    EXPECT_TRUE(shared == OldValues || shared == NewValues) << testing::PrintToString(shared);
}
