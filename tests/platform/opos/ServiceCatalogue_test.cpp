// Which profiles the native control objects open, and what they say of those they do not.
#include "platform/opos/OposSite.h"
#include "profiles/RegistryPaths.h"
#include "support/FailingRegistry.h"

#include <gtest/gtest.h>

namespace {

class OpeningProfiles : public ::testing::Test {
protected:
    void ExpectScanner(const std::string& name, std::int32_t result, std::int32_t openResult) {
        EXPECT_EQ(scanner_->Open(name), result) << name;
        EXPECT_EQ(scanner_->OpenResult(), openResult) << name;
        scanner_->Close();
    }
    void ExpectScale(const std::string& name, std::int32_t result, std::int32_t openResult) {
        EXPECT_EQ(scale_->Open(name), result) << name;
        EXPECT_EQ(scale_->OpenResult(), openResult) << name;
        scale_->Close();
    }
    void PutScanner(const std::string& name, const std::string& value, const std::string& text) {
        site_.registry.Put(RegistryPaths::ScannerFolder + name, value, text);
    }

    OposSite site_;
    PseudoTerminal device_{site_.ports, 1};
    std::unique_ptr<OPOSScanner> scanner_ = site_.controls->CreateScanner();
    std::unique_ptr<OPOSScale> scale_ = site_.controls->CreateScale();
};

} // namespace

TEST_F(OpeningProfiles, ServesBothGenerationsOfScanners) {
    site_.SaveScanner("New", 1);
    CScanner1 old(site_.registry);
    old.DeviceName("Old");
    old.Model("7339");
    old.SerialPort(1);
    old.SaveDevice(true);
    ExpectScanner("New", 0, 0);
    ExpectScanner("Old", 0, 0);
}

TEST_F(OpeningProfiles, ServesBothKindsOfScales) {
    site_.SaveScale("Maker", 1);
    site_.SaveScaleAs<CAveryScale>("Avery", 1, 0);
    ExpectScale("Maker", 0, 0);
    scale_->Open("Avery");
    EXPECT_EQ(scale_->WeightUnit(), OposWeightUnit::Pound);
}

TEST_F(OpeningProfiles, DescribesTheDevice) {
    site_.SaveScanner("Lane 1", 1);
    scanner_->Open("lane 1");
    EXPECT_EQ(scanner_->DeviceName(), "Lane 1");
    EXPECT_EQ(scanner_->DeviceDescription(), "Pelerin/3172 Scanner on COM1");
    EXPECT_EQ(scanner_->ServiceObjectVersion(), 1008001);
}

TEST_F(OpeningProfiles, FollowsAnAliasInTheClassFolder) {
    site_.SaveScanner("Lane 1", 1);
    site_.registry.Put(RegistryPaths::ScannerFolder, "DefaultScanner", "Lane 1");
    ExpectScanner("DefaultScanner", 0, 0);
    site_.registry.Put(RegistryPaths::ScannerFolder, "Dangling", "Nobody");
    ExpectScanner("Dangling", 109, 302);
}

TEST_F(OpeningProfiles, TakesNamesOf255Characters) {
    std::string name;
    for (int count = 0; count < 255; ++count)
        name += "\xC3\xA9";
    site_.SaveScanner(name, 1);
    ExpectScanner(name, 0, 0);
    ExpectScanner(name + "x", 109, 302);
    site_.registry.Put(RegistryPaths::ScannerFolder, name + "x", name);
    ExpectScanner(name + "x", 109, 302);
}

TEST_F(OpeningProfiles, TakesNoEmptyName) {
    site_.SaveScanner("Lane 1", 1);
    site_.registry.Put(RegistryPaths::ScannerFolder, "", "Lane 1");
    ExpectScanner("", 109, 302);
}

TEST_F(OpeningProfiles, FindsNothingInAnEmptyRegistry) {
    ExpectScanner("Lane 1", 109, 302);
    ExpectScale("Lane 1", 109, 302);
}

TEST_F(OpeningProfiles, RefusesAProfileWithoutServiceObject) {
    PutScanner("NoDefault", "Description", "text");
    PutScanner("Foreign", "", "Kalder.Scanner.SO");
    PutScanner("OtherCase", "", "tavrin.opos.scanner");
    ExpectScanner("NoDefault", 104, 303);
    ExpectScanner("Foreign", 104, 303);
    ExpectScanner("OtherCase", 104, 303);
}

TEST_F(OpeningProfiles, RefusesAServiceObjectOfTheOtherClass) {
    PutScanner("Scale", "", ProgId::Scale2);
    ExpectScanner("Scale", 104, 305);
}

TEST_F(OpeningProfiles, RefusesAPortThatIsNotThere) {
    site_.SaveScanner("Lane 7", 7);
    ExpectScanner("Lane 7", 107, 401);
}

TEST_F(OpeningProfiles, RefusesAnInterfaceItDoesNotKnow) {
    site_.SaveScanner("Strange", 1, 4);
    ExpectScanner("Strange", 104, 402);
}

TEST_F(OpeningProfiles, RefusesAProfileThatCannotBeRead) {
    site_.SaveScanner("NoPort", 0);
    ExpectScanner("NoPort", 104, 403);
    site_.SaveScanner("Letters", 1);
    PutScanner("Letters", "Serial Port", "first");
    ExpectScanner("Letters", 104, 403);
    site_.SaveScaleAs<CAveryScale>("Avery", 0);
    ExpectScale("Avery", 104, 403);
}

TEST_F(OpeningProfiles, RefusesAnythingWhileTheRegistryFails) {
    site_.SaveScanner("Lane 1", 1);
    FailingRegistry failing(site_.registry);
    const auto controls = OpenSystemControls(failing, site_.dispatcher);
    const auto scanner = controls->CreateScanner();
    failing.FailAt(RegistryOperation::ReadValue, 1, RegistryErrorNumber::ReadKey);
    EXPECT_EQ(scanner->Open("Lane 1"), 109);
    EXPECT_EQ(scanner->OpenResult(), 302);
    EXPECT_EQ(scanner->Open("Lane 1"), 0);
}

TEST_F(OpeningProfiles, OpensUsbDevicesButFindsNoHardwareForThem) {
    for (const std::int16_t interface : {std::int16_t{2}, std::int16_t{3}}) {
        site_.SaveScanner("Usb", -1, interface);
        EXPECT_EQ(scanner_->Open("Usb"), 0);
        EXPECT_EQ(scanner_->ClaimDevice(1000), 107);
        scanner_->DeviceEnabled(true);
        EXPECT_EQ(scanner_->ResultCode(), 103);
        scanner_->Close();
    }
    site_.SaveScale("Usb", 0);
    EXPECT_EQ(scale_->Open("Usb"), 0);
    EXPECT_EQ(scale_->ClaimDevice(0), 107);
}

TEST_F(OpeningProfiles, ClaimsTheDeviceNotTheProfile) {
    site_.SaveScanner("Lane 1", 1);
    site_.SaveScanner("Same device", 3);
    site_.ports.Link(3, device_.Device());
    const auto other = site_.controls->CreateScanner();
    scanner_->Open("Lane 1");
    other->Open("Same device");
    EXPECT_EQ(scanner_->ClaimDevice(0), 0);
    EXPECT_EQ(other->ClaimDevice(0), 112);
}
