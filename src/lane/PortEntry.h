// The entry "COMn" of a port directory that leads to a pseudo terminal, as long as this object lives.
#pragma once

#include <filesystem>
#include <string>

class PortEntry {
public:
    // Makes the directory where it is missing. An entry that a lane left behind is replaced; the entry of a running
    // lane and one that somebody else made stay. Errors: LaneError.
    PortEntry(const std::filesystem::path& directory, int port, const std::string& device);
    ~PortEntry();
    PortEntry(const PortEntry&) = delete;
    PortEntry& operator=(const PortEntry&) = delete;

private:
    // A locked file beside the entry, which tells a running lane from a dead one.
    class Claim {
    public:
        Claim(std::filesystem::path file, const std::string& name);
        ~Claim();
        Claim(const Claim&) = delete;
        Claim& operator=(const Claim&) = delete;

    private:
        std::filesystem::path file_;
        int descriptor_ = -1;
    };

    std::string name_;
    std::filesystem::path entry_;
    Claim claim_;
};
