// The program itself, as other programs use it: through pipes.
#include "platform/serial/BlockingSerialLine.h"
#include "support/PseudoTerminal.h"

#include <array>
#include <csignal>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// Every wait is bounded by this; a program that does not answer is ended.
constexpr int LimitInMilliseconds = 10'000;

class LaneProcess {
public:
    explicit LaneProcess(std::vector<std::string> arguments) {
        std::array<int, 2> toChild{};
        std::array<int, 2> fromChild{};
        EXPECT_EQ(::pipe2(toChild.data(), O_CLOEXEC), 0);
        EXPECT_EQ(::pipe2(fromChild.data(), O_CLOEXEC), 0);
        arguments.insert(arguments.begin(), RAVLIN_LANE);
        std::vector<char*> words;
        for (std::string& argument : arguments) {
            words.push_back(argument.data());
        }
        words.push_back(nullptr);
        process_ = ::fork();
        if (process_ == 0) {
            ::dup2(toChild[0], STDIN_FILENO);
            ::dup2(fromChild[1], STDOUT_FILENO);
            ::execv(words[0], words.data());
            ::_exit(127);
        }
        ::close(toChild[0]);
        ::close(fromChild[1]);
        input_ = toChild[1];
        output_ = fromChild[0];
    }
    ~LaneProcess() {
        EndInput();
        ::close(output_);
        if (process_ > 0) {
            ::kill(process_, SIGKILL);
            ::waitpid(process_, nullptr, 0);
        }
    }
    LaneProcess(const LaneProcess&) = delete;
    LaneProcess& operator=(const LaneProcess&) = delete;

    std::string Ask(const std::string& command) {
        const std::string line = command + "\n";
        EXPECT_EQ(::write(input_, line.data(), line.size()), static_cast<ssize_t>(line.size()));
        return ReadLine();
    }
    void EndInput() {
        if (input_ >= 0) {
            ::close(std::exchange(input_, -1));
        }
    }
    void Signal(int signal) const { ::kill(process_, signal); }
    void Kill() {
        ::kill(process_, SIGKILL);
        ::waitpid(std::exchange(process_, -1), nullptr, 0);
    }
    // What waitpid gives, once the program has closed its output.
    int WaitForEnd() {
        EXPECT_EQ(ReadLine(), "") << "the program goes on";
        int status = -1;
        ::waitpid(std::exchange(process_, -1), &status, 0);
        return status;
    }

private:
    std::string ReadLine() const {
        std::string line;
        pollfd entry{output_, POLLIN, 0};
        char byte = 0;
        while (::poll(&entry, 1, LimitInMilliseconds) > 0 && ::read(output_, &byte, 1) == 1 && byte != '\n') {
            line += byte;
        }
        return line;
    }

    pid_t process_ = -1;
    int input_ = -1;
    int output_ = -1;
};

class HeadlessProgram : public testing::Test {
protected:
    TemporaryPorts ports_;

    [[nodiscard]] bool HasPorts() const {
        return std::filesystem::directory_iterator(ports_.Directory()) != std::filesystem::directory_iterator();
    }
};

TEST_F(HeadlessProgram, AnswersCommandsAndServesItsPorts) {
    LaneProcess lane({"--headless", "--do", "scale 2"});
    EXPECT_EQ(lane.Ask("scanner 1 33"), "ok");
    EXPECT_EQ(lane.Ask("scanner 1 5").substr(0, 6), "error ");
    EXPECT_EQ(lane.Ask("weight 2 1 kg"), "ok");
    BlockingSerialLine line;
    line.Open(1);
    EXPECT_EQ(lane.Ask("scan 1 ]E05018374827715"), "ok");
    EXPECT_EQ(line.Read(5s), "]E05018374827715\r");
    EXPECT_EQ(lane.Ask("quit"), "ok");
    EXPECT_EQ(lane.WaitForEnd(), 0);
    EXPECT_FALSE(HasPorts());
}

TEST_F(HeadlessProgram, EndsWithItsInput) {
    LaneProcess lane({"--headless"});
    EXPECT_EQ(lane.Ask("scanner 1 33"), "ok");
    lane.EndInput();
    EXPECT_EQ(lane.WaitForEnd(), 0);
    EXPECT_FALSE(HasPorts());
}

TEST_F(HeadlessProgram, MakesItsPortsWhereItIsTold) {
    LaneProcess lane({"--headless", "--ports", (ports_.Directory() / "here").string()});
    EXPECT_EQ(lane.Ask("scale COM7"), "ok");
    EXPECT_TRUE(std::filesystem::is_symlink(ports_.Directory() / "here" / "COM7"));
}

TEST_F(HeadlessProgram, TakesItsPortsAwayWhenTerminated) {
    LaneProcess lane({"--headless"});
    EXPECT_EQ(lane.Ask("scanner 1 33"), "ok");
    lane.Signal(SIGTERM);
    const int status = lane.WaitForEnd();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
    EXPECT_FALSE(HasPorts());
}

TEST_F(HeadlessProgram, ReplacesWhatAKilledOneLeftBehind) {
    LaneProcess killed({"--headless"});
    EXPECT_EQ(killed.Ask("scanner 1 33"), "ok");
    killed.Kill();
    EXPECT_TRUE(HasPorts());
    LaneProcess lane({"--headless"});
    EXPECT_EQ(lane.Ask("scanner 1 33"), "ok");
    EXPECT_NO_THROW(BlockingSerialLine().Open(1));
}

TEST_F(HeadlessProgram, FailsOnArgumentsThatItDoesNotKnow) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--dance"}, {"--headless", "--do", "dance"}, {"--headless", "--ports"}}) {
        LaneProcess lane(arguments);
        const int status = lane.WaitForEnd();
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1);
    }
}

} // namespace
