// The numbers of the OPOS standard for the Scanner and Scale classes, by name.
#pragma once

#include <cstdint>

// What methods return and ResultCode holds.
namespace OposResult {
inline constexpr std::int32_t Success = 0;
inline constexpr std::int32_t Closed = 101;
inline constexpr std::int32_t Claimed = 102; // by another control
inline constexpr std::int32_t NotClaimed = 103;
inline constexpr std::int32_t NoService = 104;
inline constexpr std::int32_t Disabled = 105;
inline constexpr std::int32_t Illegal = 106;
inline constexpr std::int32_t NoHardware = 107;
inline constexpr std::int32_t Offline = 108;
inline constexpr std::int32_t NoExist = 109;
inline constexpr std::int32_t Exists = 110;
inline constexpr std::int32_t Failure = 111;
inline constexpr std::int32_t Timeout = 112;
inline constexpr std::int32_t Busy = 113;
inline constexpr std::int32_t Extended = 114; // ResultCodeExtended tells more
} // namespace OposResult

// ResultCodeExtended of a scale.
namespace OposScaleExtended {
inline constexpr std::int32_t OverWeight = 201;
} // namespace OposScaleExtended

namespace OposOpenResult {
inline constexpr std::int32_t Success = 0;
inline constexpr std::int32_t AlreadyOpen = 301;
inline constexpr std::int32_t RegistryBadName = 302;
inline constexpr std::int32_t BadProgId = 303;
inline constexpr std::int32_t CreateError = 304;
inline constexpr std::int32_t BadInterface = 305;
inline constexpr std::int32_t FailedOpen = 306;
inline constexpr std::int32_t BadVersion = 307;
// From the service object.
inline constexpr std::int32_t NoPort = 401;
inline constexpr std::int32_t NotSupported = 402;
inline constexpr std::int32_t Config = 403;
} // namespace OposOpenResult

namespace OposState {
inline constexpr std::int32_t Closed = 1;
inline constexpr std::int32_t Idle = 2;
inline constexpr std::int32_t Busy = 3; // never seen on scanners and scales
inline constexpr std::int32_t Error = 4;
} // namespace OposState

namespace OposErrorLocus {
inline constexpr std::int32_t Input = 2;
inline constexpr std::int32_t InputData = 3; // while data events are queued
} // namespace OposErrorLocus

namespace OposErrorResponse {
inline constexpr std::int32_t Retry = 11;
inline constexpr std::int32_t Clear = 12;
inline constexpr std::int32_t ContinueInput = 13;
} // namespace OposErrorResponse

namespace OposWeightUnit {
inline constexpr std::int32_t Gram = 1;
inline constexpr std::int32_t Kilogram = 2;
inline constexpr std::int32_t Ounce = 3;
inline constexpr std::int32_t Pound = 4;
} // namespace OposWeightUnit

// ScanDataType.
namespace OposSymbology {
inline constexpr std::int32_t Unknown = 0;
inline constexpr std::int32_t UpcA = 101;
inline constexpr std::int32_t UpcE = 102;
inline constexpr std::int32_t Ean8 = 103;
inline constexpr std::int32_t Ean13 = 104;
inline constexpr std::int32_t Discrete2Of5 = 105;
inline constexpr std::int32_t Interleaved2Of5 = 106;
inline constexpr std::int32_t Codabar = 107;
inline constexpr std::int32_t Code39 = 108;
inline constexpr std::int32_t Code93 = 109;
inline constexpr std::int32_t Code128 = 110;
inline constexpr std::int32_t UpcAWithSupplement = 111;
inline constexpr std::int32_t UpcEWithSupplement = 112;
inline constexpr std::int32_t Ean8WithSupplement = 118;
inline constexpr std::int32_t Ean13WithSupplement = 119;
inline constexpr std::int32_t Gs1Code128 = 120;
inline constexpr std::int32_t OcrA = 121;
inline constexpr std::int32_t OcrB = 122;
inline constexpr std::int32_t Pdf417 = 201;
inline constexpr std::int32_t MaxiCode = 202;
inline constexpr std::int32_t Other = 501;
} // namespace OposSymbology
