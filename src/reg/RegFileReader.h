// Reads the text of a registry file, "Windows Registry Editor Version 5.00".
#pragma once

#include "profiles/RegistryTree.h"
#include "reg/KeyReference.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// One thing that a registry file says.
struct RegFileEntry {
    enum class Kind { MakeKey, DeleteKey, SetValue, DeleteValue };

    int line = 0; // from 1
    Kind kind = Kind::MakeKey;
    KeyReference key;
    RegistryValue value; // of DeleteValue only the name
};

// What is wrong in which line (from 1), in a few words.
class RegFileError : public std::runtime_error {
public:
    RegFileError(int line, const std::string& problem) : std::runtime_error(problem), line_(line) {}
    [[nodiscard]] int Line() const noexcept { return line_; }

private:
    int line_;
};

// In the order of the file. The text is UTF-8 with any line ends. Errors: RegFileError.
[[nodiscard]] std::vector<RegFileEntry> ReadRegFile(std::string_view text);
