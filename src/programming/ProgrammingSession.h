// One exchange with a scanner: reads its configuration, changes it for the OPOS driver by the profile's programming
// class and writes it back. What the user sees of it is the caller's.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

class CDevice;
class Serlink;
struct ProgrammingClass;

enum class ProgrammingStep {
    EnteringProgrammingMode,
    ReadingConfiguration,
    WaitingForScanner,
    WritingConfiguration,
    AwaitingAcknowledgement,
};

// What a session asks of the one who runs it; every function is set.
struct ProgrammingHooks {
    // Tells the user to switch the scanner off and on; returns when that is confirmed.
    std::function<void()> showRecyclePower;
    // Lets pending events of the windows run.
    std::function<void()> processPendingEvents;
    std::function<void(std::chrono::milliseconds)> wait;
    // A step begins.
    std::function<void(ProgrammingStep)> stepBegins;
};

struct ProgrammingOutcome {
    bool succeeded = false;
    // Why it failed, UTF-8 and for the user to read; empty after a success.
    std::string reason;
};

class ProgrammingSession {
public:
    // The line outlives the session; it is fresh, no session has used it.
    ProgrammingSession(Serlink& serlink, ProgrammingHooks hooks);

    // Runs the whole exchange, once. Errors on the way (the line's, a reply too short for its class, a firmware number
    // that is no number) end as a failed outcome; nothing is thrown.
    [[nodiscard]] ProgrammingOutcome ProgramDevice(const CDevice& device);

private:
    [[nodiscard]] ProgrammingOutcome Exchange(const CDevice& device);
    void EnterProgrammingMode(const CDevice& device, const ProgrammingClass& rules);
    void WriteConfiguration(const ProgrammingClass& rules, const std::string& firmwareNumber, const std::string& block);

    Serlink& serlink_;
    ProgrammingHooks hooks_;
};
