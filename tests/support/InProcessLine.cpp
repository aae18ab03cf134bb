#include "support/InProcessLine.h"

#include <algorithm>
#include <map>

namespace {

constexpr std::chrono::seconds WriteLimit{5};

struct Ports {
    std::mutex mutex;
    std::map<int, std::weak_ptr<InProcessLine>> lines;
};

Ports& AllPorts() {
    static Ports ports;
    return ports;
}

} // namespace

bool InProcessLine::Put(Side from, const std::string& bytes) {
    std::unique_lock lock(mutex_);
    std::string& line = BytesTo(from == Side::Device ? Side::Program : Side::Device);
    for (std::size_t sent = 0; sent < bytes.size();) {
        if (!moved_.wait_for(lock, WriteLimit, [&] { return !plugged_ || line.size() < Capacity; }) || !plugged_)
            return false;
        const std::size_t count = std::min(bytes.size() - sent, Capacity - line.size());
        line.append(bytes, sent, count);
        sent += count;
        moved_.notify_all();
        if (from == Side::Device && changed_)
            changed_();
    }
    return true;
}

std::string InProcessLine::Take(Side to, std::size_t count, std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex_);
    std::string& line = BytesTo(to);
    moved_.wait_for(lock, limit, [&] { return !plugged_ || !line.empty(); });
    std::string taken = line.substr(0, count);
    line.erase(0, taken.size());
    moved_.notify_all();
    return taken;
}

void InProcessLine::DropInput() {
    const std::lock_guard lock(mutex_);
    toProgram_.clear();
    moved_.notify_all();
}

void InProcessLine::Unplug() {
    const std::lock_guard lock(mutex_);
    plugged_ = false;
    moved_.notify_all();
    if (changed_)
        changed_();
}

bool InProcessLine::Open(std::function<void()> changed) {
    const std::lock_guard lock(mutex_);
    if (changed_)
        return false;
    changed_ = std::move(changed);
    return true;
}

void InProcessLine::Close() {
    const std::lock_guard lock(mutex_);
    changed_ = nullptr;
}

bool InProcessLine::Plugged() const {
    const std::lock_guard lock(mutex_);
    return plugged_;
}

std::shared_ptr<InProcessLine> InProcessLine::AtPort(int port) {
    Ports& ports = AllPorts();
    const std::lock_guard lock(ports.mutex);
    const auto line = ports.lines[port].lock();
    return line && line->Plugged() ? line : nullptr;
}

void InProcessLine::PlugIn(int port, const std::shared_ptr<InProcessLine>& line) {
    Ports& ports = AllPorts();
    const std::lock_guard lock(ports.mutex);
    ports.lines[port] = line;
}
