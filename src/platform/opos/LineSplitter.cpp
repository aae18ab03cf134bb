#include "platform/opos/LineSplitter.h"

#include <utility>

LineSplitter::LineSplitter(std::function<void(const std::string&)> onLine, std::function<void()> onOverlong)
    : onLine_(std::move(onLine)), onOverlong_(std::move(onOverlong)) {}

void LineSplitter::Feed(std::string_view bytes) {
    for (const char byte : bytes) {
        if (byte == '\r')
            EndLine();
        else if (byte != '\n' || !line_.empty())
            Add(byte);
    }
}

void LineSplitter::Reset() {
    line_.clear();
    overlong_ = false;
}

void LineSplitter::Add(char byte) {
    if (overlong_)
        return;
    if (line_.size() < LongestLine) {
        line_ += byte;
        return;
    }
    overlong_ = true;
    line_.clear();
    onOverlong_();
}

void LineSplitter::EndLine() {
    const std::string line = std::exchange(line_, {});
    if (!std::exchange(overlong_, false) && !line.empty())
        onLine_(line);
}
