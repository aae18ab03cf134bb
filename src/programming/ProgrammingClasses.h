// What the programming classes of scanners differ in: how programming mode is entered, how the configuration is asked
// for and written back, and which of its bytes are changed. A new class is a new row in the table of the source file.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

// A change to one byte of a configuration block: the bits of keep stay, those of set are set.
struct BytePatch {
    std::uint16_t index;
    std::uint8_t keep;
    std::uint8_t set;
};

// A change for the scale of a scale-capable scanner, whose flags are bits of the class: with any of the flags set the
// one, without them the other.
struct FlaggedPatch {
    std::int32_t flags;
    BytePatch with;
    BytePatch without;
};

// How a scanner enters programming mode.
enum class EntryKind {
    AsSet,     // whatever the line is set to
    ByCommand, // by a command that wakes it
    AtPowerUp, // only when it is switched on
};

// How the patched configuration is sent.
enum class WriteKind {
    AsCommand,  // behind the write command
    ByFirmware, // behind the write command, save for a range of firmware numbers that takes the block alone
    AfterEcho   // the reply is sent back as it came, and after a wait the block alone
};

struct ProgrammingClass {
    std::int32_t first;
    std::int32_t last;
    EntryKind entry;
    std::string_view request; // asks for the configuration; empty where the scanner sends it unasked
    std::string_view prefix;  // in front of what is written
    WriteKind write;
    std::span<const BytePatch> patches;
    std::span<const FlaggedPatch> scalePatches = {}; // applied behind patches

    static constexpr std::int32_t NoLast = std::numeric_limits<std::int32_t>::max();
};

// The class that a profile's ConfigurationType names. Every number has one; those without a row of their own are asked
// and written like the others, but neither woken nor patched.
[[nodiscard]] const ProgrammingClass& FindProgrammingClass(std::int32_t configurationType);
