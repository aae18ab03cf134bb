#include "ExpectedConfiguration.h"

#include <map>

namespace {

using Bytes = std::map<std::size_t, std::uint8_t>;

const Bytes Class1 = {{9, 48}, {10, 208}, {13, 1}, {14, 202}, {16, 12}, {17, 46}, {18, 48}, {19, 130}, {24, 34}};
const Bytes Class2 = {{9, 171}, {10, 228}, {14, 202}, {15, 4}, {17, 46}, {18, 48}, {19, 128}};
const Bytes Class3And6 = {{75, 202}, {78, 2},    {79, 133}, {155, 80}, {158, 37},
                          {159, 8},  {160, 152}, {166, 48}, {184, 4},  {506, 2}};
const Bytes Class4 = {{75, 130}, {155, 80},  {158, 37}, {160, 152}, {166, 0},  {178, 192},
                      {184, 13}, {198, 128}, {409, 0},  {410, 0},   {414, 149}};
const Bytes Class16 = {{75, 130},  {155, 80}, {158, 37},  {160, 152}, {166, 0},
                       {178, 192}, {184, 13}, {198, 128}, {417, 1},   {506, 2}};

void Assign(const Bytes& bytes, std::vector<std::uint8_t>& block) {
    for (const auto& [index, value] : bytes)
        block.at(index) = value;
}

void SetBits(std::uint8_t& byte, std::uint8_t bits, bool on) {
    byte = static_cast<std::uint8_t>(on ? byte | bits : byte & ~bits);
}

void AssignScale(std::int32_t type, std::vector<std::uint8_t>& block) {
    if (type == 16 || type == 32) {
        Assign({{409, 0}, {410, 0}, {414, 149}}, block);
        return;
    }
    const bool secondScaleType = type / 2 % 2 == 1;
    const bool firstWeightUnit = type / 4 % 2 == 1;
    const bool firstDisplay = type / 8 % 2 == 1;
    SetBits(block.at(409), 16, firstWeightUnit);
    SetBits(block.at(409), 4, firstDisplay);
    SetBits(block.at(409), 3, false);
    SetBits(block.at(410), 1, firstWeightUnit);
    block.at(414) = secondScaleType ? 21 : 149;
}

} // namespace

std::vector<std::int32_t> InterestingClasses() {
    std::vector<std::int32_t> classes = {-2147483647 - 1, -1, 64, 95, 1000, 2147483647};
    for (std::int32_t type = 0; type <= 48; ++type)
        classes.push_back(type);
    return classes;
}

std::vector<std::int32_t> ClassesWithoutPatches() {
    return {-2147483647 - 1, -1, 0, 5, 7, 8, 9, 10, 11, 12, 13, 14, 15};
}

ExpectedExchange ExpectedExchangeOf(std::int32_t configurationType) {
    switch (configurationType) {
    case 1:
        return {.wokenByPower = true, .request = "PM", .writtenBehind = "APM"};
    case 2:
        return {.wokenByPower = true, .request = "PM", .writtenBehind = "!@#3,APM"};
    case 3:
        return {.wokenBySset = true, .request = "PM", .writtenBehind = "!@#3,APM"};
    case 6:
        return {.wokenBySset = true, .request = "", .writtenBehind = ""};
    default:
        return {
            .wokenBySset = configurationType == 4 || configurationType >= 16, .request = "PM", .writtenBehind = "APM"};
    }
}

std::vector<std::uint8_t> ExpectedConfiguration(std::int32_t configurationType, std::vector<std::uint8_t> block) {
    if (configurationType == 1)
        Assign(Class1, block);
    if (configurationType == 2)
        Assign(Class2, block);
    if (configurationType == 3 || configurationType == 6)
        Assign(Class3And6, block);
    if (configurationType == 4)
        Assign(Class4, block);
    if (configurationType >= 16) {
        Assign(Class16, block);
        AssignScale(configurationType, block);
    }
    if (configurationType == 4 || configurationType >= 16)
        SetBits(block.at(248), 8, true);
    return block;
}
