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
        setenv(name_.c_str(), value.c_str(), 1);
    }
    ~ScopedVariable() {
        if (former_)
            setenv(name_.c_str(), former_->c_str(), 1);
        else
            unsetenv(name_.c_str());
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    std::string name_;
    std::optional<std::string> former_;
};
