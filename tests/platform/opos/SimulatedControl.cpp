#include "SimulatedControl.h"

#include "platform/windows/WideText.h"

bool SimulatedDevice::IsProperty(const std::wstring& name) const {
    return numbers.contains(name) || flags.contains(name) || texts.contains(name);
}

ComValue SimulatedDevice::Get(const std::wstring& property) {
    if (const auto number = numbers.find(property); number != numbers.end())
        return ComValue(number->second);
    if (const auto flag = flags.find(property); flag != flags.end())
        return ComValue(flag->second);
    return ComValue(texts.at(property));
}

void SimulatedDevice::Put(const std::wstring& property, bool flag) {
    flags[property] = flag;
    log.push_back(Utf8(property) + (flag ? " = true" : " = false"));
    if (written)
        written(property);
}

std::int32_t SimulatedDevice::Call(const std::wstring& method, std::vector<VARIANT*>& arguments) {
    log.push_back(Utf8(method));
    const std::int32_t answer = methods.at(method)(arguments);
    numbers[L"ResultCode"] = answer;
    return answer;
}
