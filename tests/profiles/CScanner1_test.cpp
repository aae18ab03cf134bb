#include "profiles/CScanner1.h"

#include "profiles/NumberedError.h"
#include "profiles/ProfileTest.h"

namespace {

class OlderScannerProfile : public ProfileTest {
protected:
    OlderScannerProfile() { scanner_.DeviceName("Lane"); }
    const std::string key_ = std::string(ScannerKey) + "Lane";
    CScanner1 scanner_{registry_};
};

using Values = std::vector<std::string>;

} // namespace

TEST_F(OlderScannerProfile, WritesItsValuesInTheirOrder) {
    scanner_.Model("Pelerin/3172");
    scanner_.LoggingLevel(3);
    scanner_.SerialPort(4);
    EXPECT_FALSE(scanner_.SaveDevice(false));
    EXPECT_EQ(Written(), (Values{"=Tavrin.OPOS.Scanner.Serial", "Description=Tavrin Device Instance, created DATE",
                                 "LogVerbosity=3", "SerialPort=COM4", "Service=TVRNScan.dll", "ModelNumber=QX3172"}));
    EXPECT_EQ(Stored(key_).size(), 6U);
}

TEST_F(OlderScannerProfile, ReadsItsValuesInTheirOrderAndCreatesNothing) {
    EXPECT_FALSE(scanner_.LoadDevice());
    EXPECT_EQ(registry_.Operations(), LoadOf(key_, {"ModelNumber", "LogVerbosity", "SerialPort"}));
    EXPECT_FALSE(real_.HasKey("SOFTWARE"));
}

TEST_F(OlderScannerProfile, LoadsWhatWasSaved) {
    scanner_.Model("Trek 3/4/5");
    scanner_.LoggingLevel(2);
    scanner_.SerialPort(12);
    scanner_.SaveDevice(true);
    CScanner1 loaded(registry_);
    loaded.DeviceName("Lane");
    EXPECT_FALSE(loaded.LoadDevice());
    EXPECT_EQ(loaded.Model(), "Trek 3/4/5");
    EXPECT_EQ(loaded.LoggingLevel(), 2);
    EXPECT_EQ(loaded.SerialPort(), 12);
}

TEST_F(OlderScannerProfile, MissingValuesReadAsNothing) {
    real_.Put(key_, "", "Tavrin.OPOS.Scanner.Serial");
    scanner_.LoadDevice();
    EXPECT_EQ(scanner_.Model(), "");
    EXPECT_EQ(scanner_.LoggingLevel(), 0);
    EXPECT_EQ(scanner_.SerialPort(), 0);
}

TEST_F(OlderScannerProfile, APortWithoutANumberIsPortZero) {
    for (const char* const port : {"", "C", "COM"}) {
        real_.Put(key_, "SerialPort", port);
        scanner_.SerialPort(9);
        scanner_.LoadDevice();
        EXPECT_EQ(scanner_.SerialPort(), 0) << port;
    }
    real_.Put(key_, "SerialPort", "LPT7");
    scanner_.LoadDevice();
    EXPECT_EQ(scanner_.SerialPort(), 7) << "the first three characters are not looked at";
}

TEST_F(OlderScannerProfile, APortThatIsNoNumberIsAnError) {
    real_.Put(key_, "SerialPort", "COMx");
    try {
        scanner_.LoadDevice();
        FAIL() << "no error was raised";
    } catch (const NumberedError& error) {
        EXPECT_EQ(error.Number(), 13U);
    }
}

TEST_F(OlderScannerProfile, AnotherToolsSiblingModelIsRewrittenAsItsFamily) {
    real_.Put(key_, "ModelNumber", "QE5438");
    scanner_.LoadDevice();
    EXPECT_EQ(scanner_.Model(), "Handmount(5427/5438)");
    scanner_.SaveDevice(true);
    EXPECT_EQ(real_.Text(key_, "ModelNumber"), "QE5427");
}

TEST_F(OlderScannerProfile, UnknownModelsAreEmptyInBothDirections) {
    scanner_.Model("Vanta/2315");
    scanner_.SaveDevice(true);
    EXPECT_EQ(real_.Text(key_, "ModelNumber"), "");
    real_.Put(key_, "ModelNumber", "QX9999");
    scanner_.LoadDevice();
    EXPECT_EQ(scanner_.Model(), "");
}

TEST_F(OlderScannerProfile, HasOneInterfaceWhateverIsSet) {
    scanner_.ScannerType(2);
    EXPECT_EQ(scanner_.ScannerType(), -1);
}

TEST_F(OlderScannerProfile, IsAScannerOfItsClassAndNotInUse) {
    EXPECT_EQ(scanner_.DeviceType(), 0);
    EXPECT_EQ(scanner_.ClassName(), "CScanner1");
    EXPECT_FALSE(scanner_.InUse());
    scanner_.InUse(true);
    EXPECT_TRUE(scanner_.InUse());
}

TEST_F(OlderScannerProfile, ItsProgrammingClassFollowsTheModel) {
    EXPECT_EQ(scanner_.ConfigurationType(), 0);
    scanner_.Model("Pelerin/3172");
    EXPECT_EQ(scanner_.ConfigurationType(), 3);
    scanner_.Model("Rovane/1448");
    EXPECT_EQ(scanner_.ConfigurationType(), 0) << "the model is saved but not programmed";
}
