// A control object that holds and does what a test tells it to.
#pragma once

#include "support_opos/ComServer.h"

#include <map>
#include <string>
#include <vector>

// What is behind every object of the class; tests look into it and change it. A name that is in none of the maps is no
// member of the object.
class SimulatedDevice final : public ServedControl {
public:
    std::map<std::wstring, std::int32_t> numbers;
    std::map<std::wstring, bool> flags;
    std::map<std::wstring, std::string> texts; // UTF-8
    using Method = std::function<std::int32_t(std::vector<VARIANT*>&)>;
    std::map<std::wstring, Method> methods;
    // Called behind the write of a property.
    std::function<void(const std::wstring&)> written;
    std::vector<std::string> log; // calls and writes

    [[nodiscard]] bool IsProperty(const std::wstring& name) const override;
    [[nodiscard]] bool IsMethod(const std::wstring& name) const override { return methods.contains(name); }
    [[nodiscard]] ComValue Get(const std::wstring& property) override;
    void Put(const std::wstring& property, bool flag) override;
    std::int32_t Call(const std::wstring& method, std::vector<VARIANT*>& arguments) override;
};

// Makes the device, which outlives it, known under the ProgID.
class SimulatedControl {
public:
    SimulatedControl(const std::wstring& progId, SimulatedDevice& device)
        : class_(progId, [&device] { return std::shared_ptr<ServedControl>(std::shared_ptr<void>(), &device); }) {}

private:
    ServedClass class_;
};
