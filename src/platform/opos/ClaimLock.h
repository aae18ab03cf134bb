// The claim on a device, which one control of the whole machine's user can hold at a time.
#pragma once

#include <filesystem>
#include <string>

// A locked file that stands for the device; the system unlocks it even when the program crashes.
class ClaimLock {
public:
    enum class Outcome { Taken, HeldByAnother, Impossible };

    ClaimLock() = default;
    ~ClaimLock();
    ClaimLock(const ClaimLock&) = delete;
    ClaimLock& operator=(const ClaimLock&) = delete;

    // Tries once, without waiting. deviceName: whatever tells the device from others; any characters. Impossible: the
    // directory of the locks cannot be used. Taken again, the lock is given up first.
    Outcome Take(const std::string& deviceName);
    void Release() noexcept;
    [[nodiscard]] bool Held() const noexcept { return file_ >= 0; }
    [[nodiscard]] static bool HeldByAnother(const std::string& deviceName);

    // $XDG_RUNTIME_DIR/ravlin/claims; where that is not set, ravlin-UID/claims in the directory for temporary files.
    [[nodiscard]] static std::filesystem::path Directory();

private:
    int file_ = -1;
};
