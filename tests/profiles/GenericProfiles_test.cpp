#include "profiles/CGenericScale.h"
#include "profiles/CGenericScanner.h"

#include <gtest/gtest.h>

TEST(GenericScanner, HoldsReadsAndWritesNothing) {
    CGenericScanner scanner;
    scanner.DeviceName("Lane");
    scanner.InUse(true);
    scanner.SerialPort(1);
    scanner.ScannerType(1);
    scanner.Model("758");
    scanner.LoggingLevel(1);
    scanner.VendorEnforcement(1);
    scanner.RX415Handling(1);
    scanner.SScaleType(1);
    scanner.SWeightUnit(1);
    scanner.SDisplay(1);
    EXPECT_FALSE(scanner.LoadDevice());
    EXPECT_FALSE(scanner.SaveDevice(true));
    EXPECT_EQ(scanner.DeviceName(), "");
    EXPECT_FALSE(scanner.InUse());
    EXPECT_EQ(scanner.Model(), "");
    for (const int number :
         {scanner.DeviceType(), scanner.ConfigurationType(), int{scanner.SerialPort()}, int{scanner.ScannerType()},
          int{scanner.LoggingLevel()}, int{scanner.VendorEnforcement()}, int{scanner.RX415Handling()},
          int{scanner.SScaleType()}, int{scanner.SWeightUnit()}, int{scanner.SDisplay()}})
        EXPECT_EQ(number, 0);
    EXPECT_EQ(scanner.ClassName(), "CGenericScanner");
}

TEST(GenericScale, HoldsReadsAndWritesNothing) {
    CGenericScale scale;
    scale.DeviceName("Lane");
    scale.InUse(true);
    scale.SerialPort(1);
    scale.LoggingLevel(1);
    scale.VendorEnforcement(1);
    scale.Display(1);
    scale.WeightUnit(1);
    EXPECT_FALSE(scale.LoadDevice());
    EXPECT_FALSE(scale.SaveDevice(true));
    EXPECT_EQ(scale.DeviceName(), "");
    EXPECT_FALSE(scale.InUse());
    for (const int number :
         {scale.DeviceType(), scale.ConfigurationType(), int{scale.SerialPort()}, int{scale.LoggingLevel()},
          int{scale.VendorEnforcement()}, int{scale.ScaleType()}, int{scale.Display()}, int{scale.WeightUnit()}})
        EXPECT_EQ(number, 0);
    EXPECT_EQ(scale.ClassName(), "CGenericScale");
}
