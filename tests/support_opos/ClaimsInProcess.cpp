// Claims and statistics of the tests' own control objects, which live and die with this process.
#include "platform/opos/ClaimLock.h"
#include "platform/opos/DeviceCounters.h"

#include <map>

namespace {

std::map<std::string, int>& Claims() {
    static std::map<std::string, int> claims;
    return claims;
}

} // namespace

ClaimLock::~ClaimLock() {
    Release();
}

ClaimLock::Outcome ClaimLock::Take(const std::string& deviceName) {
    static int number = 0;
    Release();
    if (!Claims().emplace(deviceName, number).second)
        return Outcome::HeldByAnother;
    file_ = number++;
    return Outcome::Taken;
}

void ClaimLock::Release() noexcept {
    std::erase_if(Claims(), [this](const auto& claim) { return claim.second == file_; });
    file_ = -1;
}

bool ClaimLock::HeldByAnother(const std::string& deviceName) {
    return Claims().contains(deviceName);
}

void DeviceCounters::Count(Counter counter, std::uint64_t by) {
    const std::lock_guard lock(mutex_);
    values_[static_cast<std::size_t>(counter)] += by;
}

std::uint64_t DeviceCounters::Value(Counter counter) const {
    const std::lock_guard lock(mutex_);
    return values_[static_cast<std::size_t>(counter)];
}

void DeviceCounters::Load() {}

bool DeviceCounters::Save() const {
    return true;
}

std::filesystem::path DeviceCounters::FileOf(std::string_view /*deviceClass*/, std::string_view /*deviceName*/) {
    return {};
}
