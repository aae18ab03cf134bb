#include "lane/HeadlessLane.h"

#include "lane/LaneCommands.h"

#include <istream>
#include <ostream>

namespace {

constexpr std::size_t LongestLine = 64 * 1024;

// False at the end of the input. Of a line that is too long, only the beginning is kept.
bool ReadLine(std::istream& input, std::string& line, bool& tooLong) {
    line.clear();
    tooLong = false;
    std::streambuf& source = *input.rdbuf();
    constexpr int End = std::char_traits<char>::eof();
    int byte = source.sbumpc();
    if (byte == End) {
        return false;
    }
    for (; byte != End && byte != '\n'; byte = source.sbumpc()) {
        tooLong = tooLong || line.size() >= LongestLine;
        if (!tooLong) {
            line += static_cast<char>(byte);
        }
    }
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return true;
}

} // namespace

void RunHeadlessLane(LaneRunner& lane, std::istream& input, std::ostream& output) {
    std::string line;
    bool tooLong = false;
    while (ReadLine(input, line, tooLong)) {
        output << (tooLong ? "error the line is too long" : lane.Execute(line)) << std::endl;
        if (!tooLong && IsQuit(line)) {
            return;
        }
    }
}
