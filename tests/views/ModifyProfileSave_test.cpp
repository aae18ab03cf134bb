// What the Modify Profile page stores.
#include "profiles/CScanner2.h"
#include "support/FailingRegistry.h"
#include "views/ModifyProfilePage.h"
#include "views/ModifyProfileView.h"

namespace {

using ModifyProfileSave = ModifyProfilePage;

std::string WithValue(const std::vector<RegistryValue>& values, const std::string& name) {
    for (const RegistryValue& value : values)
        if (value.name == name)
            return value.data;
    return "missing";
}

} // namespace

TEST_F(ModifyProfileSave, SavingChangesTheScannerInPlaceAndRewritesItsKey) {
    StoreScanner("Lane", Stored::Serial);
    StoreScanner("Lane", {{"Foreign", "x"}});
    Start();
    const auto scanner = devices_.Item(DeviceClass::Scanner, "Lane");
    Choose(List("lstExistingModelNumber"), "Pelerin/3256");
    Choose(List("lstExistingComPort"), "COM9");
    Choose(List("lstExistingScale"), "Single-Cable");
    Choose(List("lstExistingScaleWeightUnit_0"), "Metric");
    Choose(List("lstExistingScaleDisplay_0"), "Yes");
    Save();
    EXPECT_EQ(devices_.Item(DeviceClass::Scanner, "Lane"), scanner);
    EXPECT_EQ(scanner->ConfigurationType(), 32 + 1 + 4 + 8);
    EXPECT_EQ(ScannerValue("Lane", "Model"), "Pelerin/3256");
    EXPECT_EQ(ScannerValue("Lane", "Serial Port"), "9");
    EXPECT_EQ(ScannerValue("Lane", "Scanner Version"), "0");
    EXPECT_EQ(ScannerValue("Lane", "ScaleType"), "1");
    EXPECT_EQ(ScannerValue("Lane", "WeightUnit"), "1");
    EXPECT_EQ(ScannerValue("Lane", "Display"), "1");
    EXPECT_EQ(ScannerValue("Lane", "Foreign"), "") << "an update wipes the key";
}

TEST_F(ModifyProfileSave, TheStoredInterfaceFollowsFromInterfaceAndModel) {
    StoreScanner("Lane", Stored::Serial);
    Start();
    const std::vector<std::tuple<const char*, int, std::string, std::string>> cases = {
        {"Pelerin/3256", 0, "0", "1"}, {"758", 0, "1", "1"}, {"Pelerin/3172", 1, "2", ""}, {"758", 2, "3", ""}};
    for (const auto& [model, interfaceIndex, code, port] : cases) {
        Choose(List("lstExistingModelNumber"), model);
        Choose(List("lstExistingInterface"), 1);
        Choose(List("lstExistingInterface"), interfaceIndex);
        Save();
        EXPECT_EQ(ScannerValue("Lane", "Scanner Version"), code);
        EXPECT_EQ(ScannerValue("Lane", "Serial Port"), port);
    }
}

TEST_F(ModifyProfileSave, AScannerWithoutAScaleKeepsItsUnitAndDisplay) {
    StoreScanner("Lane", Stored::WithScale);
    Start();
    Choose(List("lstExistingScale"), "None");
    Save();
    EXPECT_EQ(ScannerValue("Lane", "ScaleType"), "0");
    EXPECT_EQ(ScannerValue("Lane", "WeightUnit"), "1");
    EXPECT_EQ(ScannerValue("Lane", "Display"), "1");
}

TEST_F(ModifyProfileSave, AnotherTypeOfScaleRewritesTheKeyForItsServiceObject) {
    StoreScale("Lane", Stored::SingleCable);
    Start();
    ChooseScales();
    Choose(List("lstExistingScaleType"), "Dual-Cable");
    Save();
    EXPECT_EQ(devices_.Item(DeviceClass::Scale, "Lane")->ClassName(), "CAveryScale");
    const std::string key = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scale\\Lane";
    const auto values = registry_.Values(key);
    EXPECT_EQ(values.size(), 7U) << "nothing of the former service object is left";
    EXPECT_EQ(WithValue(values, ""), "OPOS.A702.SCALE.SO");
    EXPECT_EQ(WithValue(values, "Description"), "Service Object For A702 Scale");
    EXPECT_EQ(WithValue(values, "PORT"), "COM5");
    EXPECT_EQ(WithValue(values, "Display"), "1");
    EXPECT_EQ(WithValue(values, "WeightUnit"), "1");
    EXPECT_EQ(WithValue(values, "Service"), "a702so.dll");
    EXPECT_EQ(WithValue(values, "Version"), "1.5.0");

    Choose(List("lstExistingScaleType"), "Single-Cable");
    Save();
    EXPECT_EQ(devices_.Item(DeviceClass::Scale, "Lane")->ClassName(), "CScale2");
    EXPECT_EQ(ScaleValue("Lane", ""), "Tavrin.Opos.Scale");
    EXPECT_EQ(ScaleValue("Lane", "Serial Port"), "5");
    EXPECT_EQ(ScaleValue("Lane", "PORT"), "");
    EXPECT_EQ(ListedNames(DeviceClass::Scale)[0], QStringList("Lane"));
}

TEST_F(ModifyProfileSave, AScaleThatATestHoldsIsStillHeldAfterItWasSaved) {
    StoreScale("Lane", Stored::SingleCable);
    Start();
    devices_.Item(DeviceClass::Scale, "Lane")->InUse(true);
    ChooseScales();
    Save();
    EXPECT_TRUE(devices_.Item(DeviceClass::Scale, "Lane")->InUse());
}

TEST_F(ModifyProfileSave, AModelThatIsNotOfferedIsShownAndKept) {
    StoreScanner("New",
                 {{"", "Tavrin.Opos.Scanner"}, {"Model", "Pelerin/9999"}, {"Serial Port", "3"}, {"ScaleType", "1"}});
    StoreScanner("Old", {{"", "Tavrin.OPOS.Scanner.Serial"}, {"ModelNumber", "Trek-4"}, {"SerialPort", "COM3"}});
    Start();
    EXPECT_EQ(List("lstExistingModelNumber").ListIndex(), -1);
    EXPECT_EQ(List("lstExistingModelNumber").placeholderText(), "Pelerin/9999");
    EXPECT_TRUE(List("lstExistingScale").isEnabled());
    EXPECT_EQ(List("lstExistingScale").Text(), "Single-Cable");
    Choose(List("lstExistingComPort"), "COM4");
    Save();
    EXPECT_EQ(ScannerValue("New", "Model"), "Pelerin/9999");
    EXPECT_EQ(ScannerValue("New", "Serial Port"), "4");
    EXPECT_EQ(ScannerValue("New", "Scanner Version"), "1");

    Choose(List("lstExistingDeviceName_0"), "Old");
    EXPECT_EQ(List("lstExistingModelNumber").placeholderText(), "Trek 3/4/5");
    Choose(List("lstExistingInterface"), "RS232");
    Choose(List("lstExistingComPort"), "COM5");
    Save();
    EXPECT_EQ(ScannerValue("Old", "ModelNumber"), "Trek-3");
    EXPECT_EQ(ScannerValue("Old", "SerialPort"), "COM5");
}

TEST_F(ModifyProfileSave, StoredNumbersThatAreNotOfferedAreKept) {
    StoreScanner("Lane", {{"", "Tavrin.Opos.Scanner"},
                          {"Model", "Pelerin/3172"},
                          {"Serial Port", "70"},
                          {"Scanner Version", "0"},
                          {"ScaleType", "7"},
                          {"WeightUnit", "8"},
                          {"Display", "9"}});
    StoreScale("Lane", {{"", "Tavrin.Opos.Scale"}, {"Serial Port", "70"}, {"WeightUnit", "8"}, {"Display", "9"}});
    Start();
    EXPECT_EQ(List("lstExistingComPort").ListIndex(), -1);
    EXPECT_EQ(List("lstExistingScale").ListIndex(), -1);
    Choose(List("lstExistingModelNumber"), "Pelerin/3256");
    List("lstExistingScale").SetListIndex(-1);
    Save();
    EXPECT_EQ(ScannerValue("Lane", "Model"), "Pelerin/3256");
    EXPECT_EQ(ScannerValue("Lane", "Serial Port"), "70");
    EXPECT_EQ(ScannerValue("Lane", "ScaleType"), "7");
    EXPECT_EQ(ScannerValue("Lane", "WeightUnit"), "8");
    EXPECT_EQ(ScannerValue("Lane", "Display"), "9");
    ChooseScales();
    EXPECT_EQ(List("lstExistingScaleWeightUnit_1").ListIndex(), -1);
    Choose(List("lstExistingScaleDisplay_1"), "Yes");
    Save();
    EXPECT_EQ(ScaleValue("Lane", "Serial Port"), "70");
    EXPECT_EQ(ScaleValue("Lane", "WeightUnit"), "8");
    EXPECT_EQ(ScaleValue("Lane", "Display"), "1");
}

TEST_F(ModifyProfileSave, SavingMakesAKeyAgainThatAnotherProgramDeleted) {
    StoreScanner("Lane", Stored::Serial);
    Start();
    const auto tree = registry_.Tree();
    tree->DeleteKey(RegistryRoot::LocalMachine, "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\Lane");
    tree->Commit();
    Save();
    EXPECT_EQ(ScannerValue("Lane", "Model"), "Kavit/7301");
}

TEST_F(ModifyProfileSave, AProfileThatIsGoneIsNotSavedBehindAMessage) {
    StoreScanner("Lane", Stored::Serial);
    Start();
    devices_.Remove(DeviceClass::Scanner, "Lane");
    const ExpectBox error("Ravlin", "Invalid procedure call or argument (there is no Scanner profile Lane)\r\n\r\n"
                                    "Error Number: 5");
    Click(Button("cmdExistingSave"));
}

namespace {

// The page over a store that fails.
class ModifyProfileOnABadDay : public ::testing::Test {
protected:
    TemporaryRegistry disk_;
    FailingRegistry registry_{disk_};
    DeviceCollection devices_;
    ModifyProfileView page_{{registry_, devices_}};
};

} // namespace

TEST_F(ModifyProfileOnABadDay, AFailingStoreIsReportedOnceAndTheStoredProfileStaysWhole) {
    CScanner2 stored(disk_);
    stored.DeviceName("Lane");
    stored.Model("Kavit/7301");
    stored.SerialPort(12);
    stored.ScannerType(1);
    stored.SaveDevice(false);
    const auto device = std::make_shared<CScanner2>(registry_);
    device->DeviceName("Lane");
    device->LoadDevice();
    devices_.Add(DeviceClass::Scanner, "Lane", device);
    FillComPortLists({&page_.ComPortList()});
    page_.InterfaceList().AddItem("RS232");
    page_.NameLists()[0]->AddItem("Lane");
    page_.SelectFirstDeviceType();
    page_.show();
    const std::string key = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\Lane";
    const auto before = disk_.Values(key);

    Choose(page_.ComPortList(), "COM9");
    registry_.FailAt(RegistryOperation::WriteValue, 4, RegistryErrorNumber::WriteValue);
    {
        const ExpectBox error("Ravlin", "The disk is gone.\r\n\r\nError Number: -2147220985");
        Click(Control<QPushButton>(page_, "cmdExistingSave"));
    }
    EXPECT_EQ(disk_.Values(key), before);
    {
        const ExpectBox saved("Profile Saved", "Device profile successfully saved.");
        Click(Control<QPushButton>(page_, "cmdExistingSave"));
    }
    EXPECT_EQ(disk_.Text(key, "Serial Port"), "9");
}
