// Cuts what a serial line delivers into lines.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

// A line ends with CR; an LF at the beginning of a line belongs to the end before it. Lines that hold nothing are
// passed over.
class LineSplitter {
public:
    // Longer than the largest symbol a scanner reads; a line that grows beyond it is dropped whole, up to its CR.
    static constexpr std::size_t LongestLine = 4096;

    // onLine gets each line without its end; onOverlong is called once for each line that was dropped.
    LineSplitter(std::function<void(const std::string& line)> onLine, std::function<void()> onOverlong);

    void Feed(std::string_view bytes);
    // Forgets the line begun.
    void Reset();

private:
    void Add(char byte);
    void EndLine();

    std::function<void(const std::string&)> onLine_;
    std::function<void()> onOverlong_;
    std::string line_;
    bool overlong_ = false;
};
