#include "programming/ProgrammingClasses.h"

#include <algorithm>
#include <array>

namespace {

constexpr BytePatch To(std::uint16_t index, std::uint8_t value) {
    return {index, 0x00, value};
}

constexpr BytePatch Or(std::uint16_t index, std::uint8_t bits) {
    return {index, 0xFF, bits};
}

constexpr BytePatch And(std::uint16_t index, std::uint8_t bits) {
    return {index, bits, 0x00};
}

constexpr std::array ScaleCapableBytes = {
    To(75, 0x82),  To(155, 0x50), To(158, 0x25), To(160, 0x98), To(166, 0x00), To(178, 0xC0),
    To(184, 0x0D), To(198, 0x80), Or(248, 0x08), To(417, 0x01), To(506, 0x02),
};

constexpr std::int32_t ScaleType2 = 2;
constexpr std::int32_t Metric = 4;
constexpr std::int32_t Display = 8;

constexpr FlaggedPatch Always(const BytePatch& patch) {
    return {0, patch, patch};
}

constexpr std::array ScaleBytes = {
    FlaggedPatch{Metric, Or(409, 0x10), And(409, 0xEF)},
    FlaggedPatch{Display, Or(409, 0x04), And(409, 0xFB)},
    Always(And(409, 0xFC)),
    FlaggedPatch{Metric, Or(410, 0x01), And(410, 0xFE)},
    FlaggedPatch{ScaleType2, To(414, 0x15), To(414, 0x95)},
};

// Where no scale is set up at all.
constexpr std::array NoScaleBytes = {
    Always(To(409, 0x00)),
    Always(To(410, 0x00)),
    Always(To(414, 0x95)),
};

constexpr std::array Class4Bytes = {
    To(75, 0x82),  To(155, 0x50), To(158, 0x25), To(160, 0x98), To(166, 0x00),
    To(178, 0xC0), To(184, 0x0D), To(198, 0x80), Or(248, 0x08),
};

constexpr std::array Class3Bytes = {
    To(75, 0xCA),  To(78, 0x02),  To(79, 0x85),  To(155, 0x50), To(158, 0x25),
    To(159, 0x08), To(160, 0x98), To(166, 0x30), To(184, 0x04), To(506, 0x02),
};

constexpr std::array Class2Bytes = {
    To(9, 0xAB), To(10, 0xE4), To(14, 0xCA), To(15, 0x04), To(17, 0x2E), To(18, 0x30), To(19, 0x80),
};

constexpr std::array Class1Bytes = {
    To(9, 0x30),  To(10, 0xD0), To(13, 0x01), To(14, 0xCA), To(16, 0x0C),
    To(17, 0x2E), To(18, 0x30), To(19, 0x82), To(24, 0x22),
};

using enum EntryKind;
using enum WriteKind;
constexpr auto NoLast = ProgrammingClass::NoLast;

// The first row that holds a number counts. 16 and 32 are the scale-capable models without a scale; the numbers behind
// them carry the flags of their scale.
constexpr std::array Classes = {
    ProgrammingClass{1, 1, AtPowerUp, "PM", "", AsCommand, Class1Bytes},
    ProgrammingClass{2, 2, AtPowerUp, "PM", "!@#3,", AsCommand, Class2Bytes},
    ProgrammingClass{3, 3, ByCommand, "PM", "!@#3,", AsCommand, Class3Bytes},
    ProgrammingClass{4, 4, ByCommand, "PM", "", AsCommand, Class4Bytes, NoScaleBytes},
    ProgrammingClass{6, 6, ByCommand, "", "", AfterEcho, Class3Bytes},
    ProgrammingClass{16, 16, ByCommand, "PM", "", AsCommand, ScaleCapableBytes, NoScaleBytes},
    ProgrammingClass{17, 31, ByCommand, "PM", "", AsCommand, ScaleCapableBytes, ScaleBytes},
    ProgrammingClass{32, 32, ByCommand, "PM", "", ByFirmware, ScaleCapableBytes, NoScaleBytes},
    ProgrammingClass{33, NoLast, ByCommand, "PM", "", ByFirmware, ScaleCapableBytes, ScaleBytes},
};

constexpr ProgrammingClass Unpatched = {0, 0, AsSet, "PM", "", AsCommand, {}};

} // namespace

const ProgrammingClass& FindProgrammingClass(std::int32_t configurationType) {
    const auto row = std::ranges::find_if(Classes, [configurationType](const ProgrammingClass& candidate) {
        return candidate.first <= configurationType && configurationType <= candidate.last;
    });
    return row == Classes.end() ? Unpatched : *row;
}
