#include "platform/opos/LineSplitter.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

class LineSplitting : public ::testing::Test {
protected:
    std::vector<std::string> lines_;
    int overlong_ = 0;
    LineSplitter splitter_{[this](const std::string& line) { lines_.push_back(line); }, [this] { ++overlong_; }};
};

} // namespace

TEST_F(LineSplitting, EndsLinesAtCrWithOrWithoutLf) {
    splitter_.Feed("A\rB\r\nC\r");
    EXPECT_EQ(lines_, (std::vector<std::string>{"A", "B", "C"}));
}

TEST_F(LineSplitting, PutsLinesTogetherFromPieces) {
    for (const char* piece : {"A", "B", "\r", "\n", "C\r", "\n\r", "D"})
        splitter_.Feed(piece);
    EXPECT_EQ(lines_, (std::vector<std::string>{"AB", "C"}));
}

TEST_F(LineSplitting, KeepsAnLfThatDoesNotEndTheLine) {
    splitter_.Feed("A\nB\r");
    EXPECT_EQ(lines_, std::vector<std::string>{"A\nB"});
}

TEST_F(LineSplitting, DropsALineThatDoesNotEndAndGoesOnBehindIt) {
    for (std::size_t count = 0; count < 100; ++count)
        splitter_.Feed(std::string(1000, 'x'));
    EXPECT_EQ(overlong_, 1);
    splitter_.Feed("\rA\r");
    EXPECT_EQ(lines_, std::vector<std::string>{"A"});
}

TEST_F(LineSplitting, TakesTheLongestLineWhole) {
    const std::string longest(LineSplitter::LongestLine, 'x');
    splitter_.Feed(longest + "\r" + longest + "x\r");
    EXPECT_EQ(lines_, std::vector<std::string>{longest});
    EXPECT_EQ(overlong_, 1);
}

TEST_F(LineSplitting, ForgetsTheLineBegunWithAReset) {
    splitter_.Feed("OLD");
    splitter_.Reset();
    splitter_.Feed("NEW\r");
    EXPECT_EQ(lines_, std::vector<std::string>{"NEW"});
}
