// The text of a file of the source tree.
#pragma once

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

// name is relative to the tree's root. Errors: std::runtime_error where there is no such file.
[[nodiscard]] inline std::string SourceFile(const std::string& name) {
    std::ifstream file(RAVLIN_SOURCE_DIR "/" + name, std::ios::binary);
    if (!file)
        throw std::runtime_error("there is no " + name);
    return {std::istreambuf_iterator<char>(file), {}};
}
