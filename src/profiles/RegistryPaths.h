// Where things stand in the registry. A profile's name is appended to its class folder.
#pragma once

namespace RegistryPaths {

// In the machine's hive.
inline constexpr const char* ScannerFolder = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\";
inline constexpr const char* ScaleFolder = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scale\\";
inline constexpr const char* DriverOptions = "SOFTWARE\\OLEForRetail\\ServiceInfo\\Tavrin";

// In the current user's hive.
inline constexpr const char* Settings = "Software\\Tavrin Instruments\\Ravlin 2";

} // namespace RegistryPaths

// The default values by which a profile's class is recognised. Compared exactly: the two spellings of "OPOS" differ.
namespace ProgId {

inline constexpr const char* Scanner1 = "Tavrin.OPOS.Scanner.Serial";
inline constexpr const char* Scanner2 = "Tavrin.Opos.Scanner";
inline constexpr const char* Scale2 = "Tavrin.Opos.Scale";
inline constexpr const char* AveryScale = "OPOS.A702.SCALE.SO";

} // namespace ProgId
