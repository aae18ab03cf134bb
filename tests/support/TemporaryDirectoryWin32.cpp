#include "support/TemporaryDirectory.h"

#include <atomic>
#include <string>

#include <windows.h>

TemporaryDirectory::TemporaryDirectory() {
    static std::atomic<int> count = 0;
    const std::string name = "ravlin-test-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count);
    path_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove_all(path_); // of a process of that number that was ended
    std::filesystem::create_directory(path_);
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}
