#include "wizard/WizardProfiles.h"

#include "WizardFixture.h"
#include "profiles/CGenericScale.h"
#include "profiles/CGenericScanner.h"
#include "profiles/NumberedError.h"

namespace {

WizardChoices SerialScanner(int scaleType = 0) {
    return {.model = "Pelerin/3172",
            .scaleType = scaleType,
            .interfaceIndex = 0,
            .scannerName = "Lane",
            .scannerPort = "COM12",
            .scaleName = "LaneScale",
            .scalePort = "COM3",
            .weightUnit = 1,
            .display = 1};
}

} // namespace

TEST_F(Wizard, ScannerProfileHoldsTheChoices) {
    const WizardProfiles profiles = BuildProfiles(registry_, SerialScanner(2));
    EXPECT_EQ(profiles.scanner->ClassName(), "CScanner2");
    EXPECT_EQ(profiles.scanner->DeviceName(), "Lane");
    EXPECT_EQ(profiles.scanner->Model(), "Pelerin/3172");
    EXPECT_EQ(profiles.scanner->ScannerType(), 0);
    EXPECT_EQ(profiles.scanner->SerialPort(), 12);
    EXPECT_EQ(profiles.scanner->SScaleType(), 2);
    EXPECT_EQ(profiles.scanner->SWeightUnit(), 1);
    EXPECT_EQ(profiles.scanner->SDisplay(), 1);
}

TEST_F(Wizard, ScannerTypeTellsInterfaceAndModel) {
    for (const auto& [model, interfaceIndex, type] : std::vector<std::tuple<const char*, int, int>>{
             {"Pelerin/3172", 0, 0},
             {"Pelerin/3256", 0, 0},
             {"7346", 0, 1},
             {"Pelerin/3256", 1, 2},
             {"7346", 1, 2},
             {"Pelerin/3172", 2, 3},
             {"7346", 2, 3},
             {"7346", 3, 3},
         }) {
        WizardChoices choices = SerialScanner();
        choices.model = model;
        choices.interfaceIndex = interfaceIndex;
        const WizardProfiles profiles = BuildProfiles(registry_, choices);
        EXPECT_EQ(profiles.scanner->ScannerType(), type) << model << ' ' << interfaceIndex;
        EXPECT_EQ(profiles.scanner->SerialPort(), interfaceIndex == 0 ? 12 : 0);
    }
}

TEST_F(Wizard, WithoutScaleThereIsNoScaleProfile) {
    EXPECT_EQ(BuildProfiles(registry_, SerialScanner(0)).scale, nullptr);
}

TEST_F(Wizard, SingleCableScaleIsOnItsScannersPort) {
    const auto scale = BuildProfiles(registry_, SerialScanner(1)).scale;
    EXPECT_EQ(scale->ClassName(), "CScale2");
    EXPECT_EQ(scale->DeviceName(), "LaneScale");
    EXPECT_EQ(scale->SerialPort(), 12);
    EXPECT_EQ(scale->WeightUnit(), 1);
    EXPECT_EQ(scale->Display(), 1);
}

TEST_F(Wizard, SingleCableScaleOfAUsbScannerHasNoPort) {
    WizardChoices choices = SerialScanner(1);
    choices.interfaceIndex = 2;
    EXPECT_EQ(BuildProfiles(registry_, choices).scale->SerialPort(), 0);
}

TEST_F(Wizard, DualCableScaleHasItsOwnPort) {
    const auto scale = BuildProfiles(registry_, SerialScanner(2)).scale;
    EXPECT_EQ(scale->ClassName(), "CAveryScale");
    EXPECT_EQ(scale->DeviceName(), "LaneScale");
    EXPECT_EQ(scale->SerialPort(), 3);
    EXPECT_EQ(scale->WeightUnit(), 1);
    EXPECT_EQ(scale->Display(), 1);
}

TEST_F(Wizard, PortWithoutNumberIsAnError) {
    WizardChoices choices = SerialScanner();
    choices.scannerPort = "";
    EXPECT_THROW(BuildProfiles(registry_, choices), NumberedError);
}

TEST_F(Wizard, LeavingTheOptionsForwardStoresTheProfiles) {
    auto& window = Open();
    window.GoToOptions("Pelerin/3172", 1);
    window.TypeNames("Lane 1", "Lane 1 Scale");
    Choose(window.List("lstScannerComPort_1"), "COM12");
    Choose(window.List("lstWeightUnit_1"), "Metric");
    Choose(window.List("lstScaleDisplay_1"), "Yes");
    EXPECT_TRUE(registry_.SubKeys(ScannerFolder).empty());
    window.Next();

    EXPECT_EQ(ScannerValue("Lane 1", ""), "Tavrin.Opos.Scanner");
    EXPECT_EQ(ScannerValue("Lane 1", "Model"), "Pelerin/3172");
    EXPECT_EQ(ScannerValue("Lane 1", "Serial Port"), "12");
    EXPECT_EQ(ScannerValue("Lane 1", "Scanner Version"), "0");
    EXPECT_EQ(ScannerValue("Lane 1", "ScaleType"), "1");
    EXPECT_EQ(ScannerValue("Lane 1", "WeightUnit"), "1");
    EXPECT_EQ(ScannerValue("Lane 1", "Display"), "1");
    EXPECT_EQ(ScaleValue("Lane 1 Scale", ""), "Tavrin.Opos.Scale");
    EXPECT_EQ(ScaleValue("Lane 1 Scale", "Serial Port"), "12");
    EXPECT_EQ(ScaleValue("Lane 1 Scale", "WeightUnit"), "1");
    EXPECT_EQ(ScaleValue("Lane 1 Scale", "Display"), "1");
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
}

TEST_F(Wizard, StoredProfilesAreHandedOnScannerFirst) {
    OpenAtScannerTest(2);
    ASSERT_EQ(added_.size(), 2U);
    EXPECT_EQ(added_[0]->ClassName(), "CScanner2");
    EXPECT_EQ(added_[0]->DeviceName(), "Lane");
    EXPECT_EQ(added_[1]->ClassName(), "CAveryScale");
    EXPECT_EQ(added_[1]->DeviceName(), "LaneScale");
    EXPECT_EQ(ScaleValue("LaneScale", "PORT"), "COM1");
}

TEST_F(Wizard, WithoutScaleOnlyTheScannerIsStored) {
    OpenAtScannerTest(0);
    ASSERT_EQ(added_.size(), 1U);
    EXPECT_TRUE(registry_.SubKeys(ScaleFolder).empty());
}

TEST_F(Wizard, ReplacesAProfileOfTheSameNameWithoutAsking) {
    registry_.Put(std::string(ScannerFolder) + "Lane", "Foreign", "value");
    OpenAtScannerTest(0);
    EXPECT_EQ(ScannerValue("Lane", "Foreign"), "");
    EXPECT_EQ(ScannerValue("Lane", "Model"), "Pelerin/3172");
}

TEST_F(Wizard, GoingForwardAgainStoresAgain) {
    auto& window = OpenAtScannerTest(0);
    window.Back();
    Choose(window.List("lstScannerComPort_0"), "COM3");
    window.Next();
    EXPECT_EQ(added_.size(), 2U);
    EXPECT_NE(added_[0], added_[1]);
    EXPECT_EQ(ScannerValue("Lane", "Serial Port"), "3");
    EXPECT_EQ(sessions_, 2);
}

TEST_F(Wizard, StaysOnTheOptionsWhereTheProfileCannotBeStored) {
    auto& window = Open();
    window.GoToOptions("7346");
    window.TypeNames("Lane");
    failingRegistry_.FailAt(RegistryOperation::Release, 1, RegistryErrorNumber::WriteValue);
    const ExpectBox error("Ravlin", "The disk is gone.\r\n\r\nError Number: -2147220985");
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::Options);
    EXPECT_TRUE(added_.empty());
    EXPECT_EQ(sessions_, 0);
}

TEST_F(Wizard, ScannerThatIsStoredBeforeItsScaleFailsIsHandedOn) {
    auto& window = Open();
    window.GoToOptions("Pelerin/3172", 1);
    window.TypeNames("Lane", "LaneScale");
    failingRegistry_.FailAt(RegistryOperation::Release, 2, RegistryErrorNumber::WriteValue);
    const ExpectBox error("Ravlin", "The disk is gone.\r\n\r\nError Number: -2147220985");
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::Options);
    ASSERT_EQ(added_.size(), 1U);
    EXPECT_EQ(added_[0]->DeviceName(), "Lane");
    EXPECT_TRUE(registry_.SubKeys(ScaleFolder).empty());
}
