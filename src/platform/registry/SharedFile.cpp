#include "platform/registry/SharedFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

void MakeSharedFile(const std::string& file) {
    constexpr mode_t HandedOn = S_ISGID | S_IWGRP;
    constexpr mode_t ReadAndWrite = 0666;
    struct stat status {};
    if (stat(std::filesystem::path(file).parent_path().c_str(), &status) != 0 ||
        (status.st_mode & HandedOn) != HandedOn)
        return;
    const mode_t rights = status.st_mode & ReadAndWrite;
    if (access(file.c_str(), F_OK) == 0)
        return;
    // It gets its name with its rights: another program that opened it in between would make a log without them.
    std::string unnamed = file + '.' + std::string(6, 'X'); // as mkstemp wants it
    const int descriptor = mkstemp(unnamed.data());
    if (descriptor < 0)
        return;
    std::error_code thereAlready;
    if (fchmod(descriptor, rights) == 0)
        std::filesystem::create_hard_link(unnamed, file, thereAlready);
    close(descriptor);
    unlink(unnamed.c_str());
}
