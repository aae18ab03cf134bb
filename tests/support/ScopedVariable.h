// An environment variable that has a value as long as a test runs.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

class ScopedVariable {
public:
    ScopedVariable(std::string name, const std::string& value) : name_(std::move(name)) {
        if (const char* former = std::getenv(name_.c_str()))
            former_ = former;
        Set(name_, value);
    }
    ~ScopedVariable() { Set(name_, former_); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    // Without a value the variable goes.
    static void Set(const std::string& name, const std::optional<std::string>& value);

    std::string name_;
    std::optional<std::string> former_;
};
