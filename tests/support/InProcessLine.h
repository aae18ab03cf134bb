// A serial line within this process, for tests on a system without pseudo terminals.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

// Any thread may call every member.
class InProcessLine {
public:
    enum class Side { Device, Program };

    // Puts the bytes on the line, waiting up to five seconds while it is full; false where it was unplugged.
    bool Put(Side from, const std::string& bytes);
    // Takes up to count bytes that the other side has sent, once there are some; what there is after the limit.
    [[nodiscard]] std::string Take(Side to, std::size_t count, std::chrono::milliseconds limit);
    // Discards what the device sent.
    void DropInput();
    void Unplug();

    // The program's end: one at a time. changed is called when there is something to take and when the line was
    // unplugged, on any thread; it does not call the line.
    [[nodiscard]] bool Open(std::function<void()> changed);
    void Close();
    [[nodiscard]] bool Plugged() const;

    // The line of the port "COMn"; null where nothing is plugged in.
    [[nodiscard]] static std::shared_ptr<InProcessLine> AtPort(int port);
    static void PlugIn(int port, const std::shared_ptr<InProcessLine>& line);

private:
    static constexpr std::size_t Capacity = 4096; // of each direction, as a pseudo terminal has it

    [[nodiscard]] std::string& BytesTo(Side side) { return side == Side::Program ? toProgram_ : toDevice_; }

    mutable std::mutex mutex_;
    std::condition_variable moved_;
    std::string toProgram_;
    std::string toDevice_;
    std::function<void()> changed_;
    bool plugged_ = true;
};
