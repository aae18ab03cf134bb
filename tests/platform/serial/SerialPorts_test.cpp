#include "platform/serial/SerialPorts.h"

#include "support/PseudoTerminal.h"

#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

// Sets an environment variable and gives back what it was.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const char* value) : name_(name) {
        if (const char* former = std::getenv(name)) {
            former_ = former;
        }
        Set(value);
    }
    ~EnvironmentVariable() { Set(former_ ? former_->c_str() : nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void Set(const char* value) const {
        if (value != nullptr) {
            ::setenv(name_, value, 1);
        } else {
            ::unsetenv(name_);
        }
    }
    const char* name_;
    std::optional<std::string> former_;
};

TEST(SerialPorts, AreTheEntriesOfTheChosenDirectory) {
    const TemporaryPorts ports;
    ports.Link(7, "/dev/null");
    EXPECT_EQ(SerialPortDevice(7), ports.Directory() / "COM7");
    EXPECT_EQ(SerialPortDevice(8), std::nullopt);
}

TEST(SerialPorts, AreListedByNumber) {
    const TemporaryPorts ports;
    for (const int port : {10, 2, 1}) {
        ports.Link(port, "/dev/null");
    }
    EXPECT_EQ(SerialPortNumbers(), (std::vector{1, 2, 10}));
}

TEST(SerialPorts, OfOtherNamesDoNotExist) {
    const TemporaryPorts ports;
    for (const char* name : {"com1", "COM", "COM01", "COM1x", "COM-1", "COM0", "COM99999999999", "ttyUSB0"}) {
        fs::create_symlink("/dev/null", ports.Directory() / name);
    }
    EXPECT_TRUE(SerialPortNumbers().empty());
    EXPECT_EQ(SerialPortDevice(1), std::nullopt);
}

TEST(SerialPorts, WhoseDeviceIsUnpluggedStillExist) {
    const TemporaryPorts ports;
    ports.Link(1, ports.Directory() / "nothing");
    EXPECT_TRUE(SerialPortDevice(1).has_value());
    EXPECT_EQ(SerialPortNumbers(), std::vector{1});
}

TEST(SerialPorts, WithoutADirectoryAreNone) {
    const EnvironmentVariable ports("RAVLIN_PORTS", "/nonexistent/ravlin");
    EXPECT_TRUE(SerialPortNumbers().empty());
    EXPECT_EQ(SerialPortDevice(1), std::nullopt);
}

TEST(SerialPorts, AreLookedForInTheRuntimeDirectoryAndThenInEtc) {
    const TemporaryPorts place;
    const EnvironmentVariable ports("RAVLIN_PORTS", nullptr);
    const EnvironmentVariable runtime("XDG_RUNTIME_DIR", place.Directory().c_str());
    const fs::path own = place.Directory() / "ravlin" / "ports";
    EXPECT_EQ(SerialPortDirectories(), (std::vector<fs::path>{own, "/etc/ravlin/ports"}));
    fs::create_directories(own);
    fs::create_symlink("/dev/null", own / "COM31");
    EXPECT_EQ(SerialPortDevice(31), own / "COM31");
}

TEST(SerialPorts, WithoutARuntimeDirectoryAreThoseInEtc) {
    const EnvironmentVariable ports("RAVLIN_PORTS", "");
    const EnvironmentVariable runtime("XDG_RUNTIME_DIR", nullptr);
    EXPECT_EQ(SerialPortDirectories(), std::vector<fs::path>{"/etc/ravlin/ports"});
}

TEST(SerialPorts, AreNotThoseOfTheRuntimeDirectoryWhenAnotherIsChosen) {
    const TemporaryPorts chosen;
    EXPECT_EQ(SerialPortDirectories(), std::vector<fs::path>{chosen.Directory()});
}

} // namespace
