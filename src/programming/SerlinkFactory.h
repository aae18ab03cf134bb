// How a window gets the line for a session: whoever builds the program's parts hands in what makes one.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>

class Serlink;

// What a line calls while it works, on the thread that uses it. Neither may use or destroy the line.
struct SerlinkObserver {
    // Again and again while the line waits, so that a window stays alive.
    std::function<void()> idle;
    // How many bytes of a command, reply or signal have gone; expected is 0 where nobody knows how many there will be.
    std::function<void(std::size_t done, std::size_t expected)> bytesMoved;
};

// Makes a line that no session has used yet. The observer's functions stay callable as long as the line lives.
using SerlinkFactory = std::function<std::unique_ptr<Serlink>(const SerlinkObserver&)>;
