// A lock between the programs of this machine, known by its name.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

// It is held by whoever made the system object of that name, and free again when the object is destroyed or its program
// has gone. Two holders within one program and thread are kept apart like any others.
class NamedLock {
public:
    // Waits at most so long; nothing where somebody held it all the time. The name has no backslashes.
    [[nodiscard]] static std::optional<NamedLock> Take(const std::string& name, std::chrono::milliseconds limit);

private:
    struct Close {
        void operator()(void* object) const;
    };
    explicit NamedLock(void* object) : object_(object) {}
    std::unique_ptr<void, Close> object_;
};
