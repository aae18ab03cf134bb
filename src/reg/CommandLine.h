// The arguments of ravlin-reg.
#pragma once

#include "reg/KeyReference.h"

#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

// Something that ravlin-reg cannot do, in one line (UTF-8) for standard error.
class CommandError : public std::runtime_error {
    using runtime_error::runtime_error;
};

enum class Verb { Help, Version, Query, Add, Delete, Export, Import };

struct Command {
    Verb verb = Verb::Help;
    KeyReference key;
    std::string file;                     // export, import
    std::optional<std::string> valueName; // /v NAME; /ve names the default value, ""
    bool allValues = false;               // /va
    std::optional<std::string> data;      // /d TEXT
    bool recursive = false;               // /s
    bool force = false;                   // /f and /y: do not ask
};

// Arguments without the program's name. Errors: CommandError.
[[nodiscard]] Command ParseCommandLine(std::span<const std::string> arguments);

// How the program is used, several lines.
[[nodiscard]] std::string_view Usage();
