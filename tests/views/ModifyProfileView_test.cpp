#include "views/ModifyProfileView.h"

#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/ModelCatalogue.h"
#include "views/ModifyProfilePage.h"

#include <QLabel>
#include <QTest>

using ModifyProfile = ModifyProfilePage;

TEST_F(ModifyProfile, OffersTheSameOptionsAsANewProfile) {
    Start();
    EXPECT_EQ(Items(List("lstExistingDeviceType")), QStringList({"Scanner", "Scale"}));
    EXPECT_EQ(Items(List("lstExistingScale")), QStringList({"None", "Single-Cable", "Dual-Cable"}));
    EXPECT_EQ(Items(List("lstExistingScaleType")), QStringList({"Single-Cable", "Dual-Cable"}));
    for (const char* element : {"_0", "_1"}) {
        EXPECT_EQ(Items(List(QString("lstExistingScaleWeightUnit") + element)), QStringList({"English", "Metric"}));
        EXPECT_EQ(Items(List(QString("lstExistingScaleDisplay") + element)), QStringList({"No", "Yes"}));
    }
    EXPECT_EQ(List("lstExistingModelNumber").ListCount(), static_cast<int>(ModelCatalogue.size()));
}

TEST_F(ModifyProfile, LabelsNameTheControlsThatFollowThem) {
    const std::vector<std::array<const char*, 3>> labels = {
        {"lblExistingDeviceType", "&Device Class:", "lstExistingDeviceType"},
        {"lblExistingDeviceName_0", "Profile &Name:", "lstExistingDeviceName_0"},
        {"lblExistingDeviceName_1", "Profile &Name:", "lstExistingDeviceName_1"},
        {"lblExistingInterface", "&Interface:", "lstExistingInterface"},
        {"lblExistingComPort", "&COM Port:", "lstExistingComPort"},
        {"lblExistingModelNumber", "&Model Number:", "lstExistingModelNumber"},
        {"lblExistingScale", "Sc&ale:", "lstExistingScale"},
        {"lblExistingScaleWeightUnit_0", "&Unit of Measure:", "lstExistingScaleWeightUnit_0"},
        {"lblExistingScaleDisplay_0", "Dis&play:", "lstExistingScaleDisplay_0"},
        {"lblExistingScaleType", "Sc&ale Type:", "lstExistingScaleType"},
        {"lblExistingScaleWeightUnit_1", "&Unit of Measure:", "lstExistingScaleWeightUnit_1"},
        {"lblExistingScaleDisplay_1", "Dis&play:", "lstExistingScaleDisplay_1"},
    };
    for (const auto& [label, text, buddy] : labels) {
        EXPECT_EQ(Control<QLabel>(page_, label).text(), text);
        EXPECT_EQ(Control<QLabel>(page_, label).buddy(), &Widget(buddy)) << label;
    }
    EXPECT_EQ(Button("cmdExistingProgram").text(), "&Program");
    EXPECT_EQ(Button("cmdExistingDelete").text(), "De&lete");
    EXPECT_EQ(Button("cmdExistingSave").text(), "&Save");
}

TEST_F(ModifyProfile, TabMovesThroughThePageInReadingOrder) {
    StoreScanner("Lane", Stored::WithScale);
    Start();
    List("lstExistingDeviceType").setFocus();
    for (const char* name :
         {"lstExistingDeviceType", "lstExistingDeviceName_0", "lstExistingInterface", "lstExistingComPort",
          "lstExistingModelNumber", "lstExistingScale", "lstExistingScaleWeightUnit_0", "lstExistingScaleDisplay_0",
          "cmdExistingProgram", "cmdExistingDelete", "cmdExistingSave"}) {
        EXPECT_EQ(page_.focusWidget()->objectName(), name);
        QTest::keyClick(page_.focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(ModifyProfile, ShowsTheFirstProfileOfTheChosenClass) {
    StoreScanner("B", Stored::Serial);
    StoreScanner("A", Stored::Usb);
    StoreScale("Z", Stored::SingleCable);
    Start();
    EXPECT_EQ(List("lstExistingDeviceName_0").Text(), "A");
    EXPECT_TRUE(IsShown(Widget("fraExistingDeviceInfo_0")));
    EXPECT_FALSE(IsShown(Widget("fraExistingDeviceInfo_1")));
    EXPECT_FALSE(IsShown(List("lstExistingDeviceName_1")));
    Choose(List("lstExistingDeviceName_0"), "B");
    ChooseScales();
    EXPECT_EQ(List("lstExistingDeviceName_1").Text(), "Z");
    EXPECT_TRUE(IsShown(List("lstExistingDeviceName_1")));
    EXPECT_FALSE(IsShown(List("lstExistingDeviceName_0")));
    EXPECT_FALSE(IsShown(Widget("lblExistingDeviceName_0")));
    EXPECT_TRUE(IsShown(Widget("fraExistingDeviceInfo_1")));
    EXPECT_FALSE(IsShown(Widget("fraExistingDeviceInfo_0")));
    Choose(List("lstExistingDeviceType"), "Scanner");
    EXPECT_EQ(List("lstExistingDeviceName_0").Text(), "A");
}

TEST_F(ModifyProfile, WithoutProfilesThereIsNothingToChooseOrPress) {
    Start();
    for (const int type : {0, 1}) {
        Choose(List("lstExistingDeviceType"), type);
        EXPECT_EQ(List("lstExistingInterface").ListIndex(), -1);
        EXPECT_EQ(List("lstExistingComPort").ListIndex(), -1);
        EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
        Click(Button("cmdExistingSave"));
        Click(Button("cmdExistingDelete"));
    }
    EXPECT_TRUE(StoredScanners().empty());
    EXPECT_TRUE(StoredScales().empty());
}

TEST_F(ModifyProfile, EveryListMayLoseItsSelection) {
    StoreScanner("Lane", Stored::Serial);
    StoreScale("Lane", Stored::SingleCable);
    Start();
    for (const char* list :
         {"lstExistingInterface", "lstExistingModelNumber", "lstExistingScale", "lstExistingScaleType",
          "lstExistingDeviceName_0", "lstExistingDeviceName_1", "lstExistingDeviceType"})
        EXPECT_NO_THROW(List(list).SetListIndex(-1)) << list;
    EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
    Button("cmdExistingProgram").setEnabled(true);
    for (const char* button : {"cmdExistingProgram", "cmdExistingDelete", "cmdExistingSave"})
        Click(Button(button));
    EXPECT_TRUE(toProgram_.empty());
}

TEST_F(ModifyProfile, ShowsASerialScanner) {
    StoreScanner("Lane", Stored::Serial);
    Start();
    EXPECT_EQ(List("lstExistingInterface").Text(), "RS232");
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM12");
    EXPECT_TRUE(List("lstExistingComPort").isEnabled());
    EXPECT_EQ(List("lstExistingModelNumber").Text(), "Kavit/7301");
    EXPECT_EQ(Picture(), 1002);
    EXPECT_FALSE(List("lstExistingScale").isEnabled());
    EXPECT_EQ(List("lstExistingScale").Text(), "None");
    EXPECT_FALSE(IsShown(List("lstExistingScaleWeightUnit_0")));
    EXPECT_FALSE(IsShown(Widget("lblExistingScaleDisplay_0")));
    EXPECT_TRUE(Button("cmdExistingProgram").isEnabled());
}

TEST_F(ModifyProfile, ShowsAScannerWithItsScale) {
    StoreScanner("Lane", Stored::WithScale);
    Start();
    EXPECT_TRUE(List("lstExistingScale").isEnabled());
    EXPECT_EQ(List("lstExistingScale").Text(), "Dual-Cable");
    for (const char* control : {"lblExistingScaleWeightUnit_0", "lstExistingScaleWeightUnit_0",
                                "lblExistingScaleDisplay_0", "lstExistingScaleDisplay_0"})
        EXPECT_TRUE(IsShown(Widget(control))) << control;
    EXPECT_TRUE(List("lstExistingScaleWeightUnit_0").isEnabled());
    EXPECT_EQ(List("lstExistingScaleWeightUnit_0").Text(), "Metric");
    EXPECT_EQ(List("lstExistingScaleDisplay_0").Text(), "Yes");
}

TEST_F(ModifyProfile, ThePortIsTheFirstThatBeginsWithItsName) {
    for (const char* port : {"1", "6", "12", "64"})
        StoreScanner(port, {{"", "Tavrin.Opos.Scanner"}, {"Serial Port", port}, {"Scanner Version", "0"}});
    Start();
    for (const char* port : {"1", "6", "12", "64"}) {
        Choose(List("lstExistingDeviceName_0"), port);
        EXPECT_EQ(List("lstExistingComPort").Text(), QString("COM") + port);
    }
}

TEST_F(ModifyProfile, TheModelIsTheOneOfExactlyThatName) {
    for (const char* model : {"Rovane", "758", "pelerin/3172"})
        StoreScanner(QByteArray(model).replace('/', ' ').toStdString(),
                     {{"", "Tavrin.Opos.Scanner"}, {"Model", model}, {"Serial Port", "6"}});
    Start();
    for (const auto& [name, index] : {std::pair{"Rovane", -1}, {"758", 27}, {"pelerin 3172", -1}}) {
        Choose(List("lstExistingDeviceName_0"), name);
        EXPECT_EQ(List("lstExistingModelNumber").ListIndex(), index) << name;
        EXPECT_FALSE(List("lstExistingScale").isEnabled()) << name;
    }
}

TEST_F(ModifyProfile, APortThatIsNotOfferedIsShownAsTheFirstThatBeginsWithItsName) {
    StoreScanner("Lane", {{"", "Tavrin.Opos.Scanner"}, {"Serial Port", "6"}, {"Scanner Version", "1"}});
    Start();
    List("lstExistingComPort").RemoveItem(5);
    Choose(List("lstExistingDeviceName_0"), "Lane");
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM60");
}

TEST_F(ModifyProfile, TheInterfaceFollowsFromTheStoredCodeAndPort) {
    struct Case {
        const char* name;
        const char* code;
        const char* port;
        int index;
    };
    const std::vector<Case> cases = {{"a", "0", "4", 0}, {"b", "1", "4", 0}, {"c", "1", "0", 2}, {"d", "0", "", 2},
                                     {"e", "2", "4", 1}, {"f", "3", "4", 2}, {"g", "9", "4", 2}};
    for (const Case& stored : cases)
        StoreScanner(stored.name,
                     {{"", "Tavrin.Opos.Scanner"}, {"Scanner Version", stored.code}, {"Serial Port", stored.port}});
    Start();
    for (const Case& stored : cases) {
        Choose(List("lstExistingDeviceName_0"), stored.name);
        EXPECT_EQ(List("lstExistingInterface").ListIndex(), stored.index) << stored.name;
        EXPECT_EQ(List("lstExistingComPort").isEnabled(), stored.index == 0) << stored.name;
        EXPECT_TRUE(Button("cmdExistingProgram").isEnabled()) << stored.name;
    }
}

TEST_F(ModifyProfile, ChoosingTheClassEnablesProgrammingOnlyForASerialScanner) {
    StoreScanner("Lane", Stored::Usb);
    StoreScale("Lane", Stored::SingleCable);
    Start();
    EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
    Choose(List("lstExistingDeviceName_0"), 0);
    EXPECT_TRUE(Button("cmdExistingProgram").isEnabled()) << "the button tells what to do instead";
    ChooseScales();
    EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
    Choose(List("lstExistingDeviceName_1"), 0);
    EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
}

TEST_F(ModifyProfile, ShowsASingleCableScale) {
    StoreScale("Lane", Stored::SingleCable);
    Start();
    ChooseScales();
    EXPECT_EQ(List("lstExistingScaleType").Text(), "Single-Cable");
    EXPECT_EQ(List("lstExistingInterface").Text(), "RS232");
    EXPECT_TRUE(List("lstExistingInterface").isEnabled());
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM5");
    EXPECT_EQ(List("lstExistingScaleWeightUnit_1").Text(), "Metric");
    EXPECT_EQ(List("lstExistingScaleDisplay_1").Text(), "Yes");
    EXPECT_EQ(Picture(), 1000);
}

TEST_F(ModifyProfile, ShowsADualCableScaleAndLocksItsInterface) {
    StoreScanner("Lane", Stored::Usb);
    StoreScale("Lane", Stored::DualCable);
    Start();
    ChooseScales();
    EXPECT_EQ(List("lstExistingScaleType").Text(), "Dual-Cable");
    EXPECT_EQ(List("lstExistingInterface").Text(), "RS232");
    EXPECT_FALSE(List("lstExistingInterface").isEnabled());
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM7");
    Choose(List("lstExistingDeviceType"), "Scanner");
    EXPECT_TRUE(List("lstExistingInterface").isEnabled()) << "a scanner has the choice";
}

TEST_F(ModifyProfile, AScaleWithoutAPortIsOnUsb) {
    StoreScale("Lane", {{"", "Tavrin.Opos.Scale"}, {"Scale Version", "2"}});
    Start();
    ChooseScales();
    EXPECT_EQ(List("lstExistingInterface").ListIndex(), 1);
    EXPECT_EQ(List("lstExistingComPort").ListIndex(), -1);
    EXPECT_FALSE(List("lstExistingComPort").isEnabled());
    Save();
    EXPECT_EQ(ScaleValue("Lane", "Scale Version"), "2");
    EXPECT_EQ(ScaleValue("Lane", "Serial Port"), "");
}

TEST_F(ModifyProfile, TheChoicesFollowTheRulesOfANewProfile) {
    StoreScanner("Lane", Stored::WithScale);
    StoreScale("Lane", Stored::SingleCable);
    Start();
    Choose(List("lstExistingInterface"), "POS USB");
    EXPECT_EQ(List("lstExistingComPort").ListIndex(), -1);
    EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
    Choose(List("lstExistingInterface"), "RS232");
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM1");
    Choose(List("lstExistingScale"), "None");
    EXPECT_FALSE(IsShown(List("lstExistingScaleWeightUnit_0")));
    Choose(List("lstExistingScale"), "Single-Cable");
    EXPECT_TRUE(IsShown(List("lstExistingScaleWeightUnit_0")));
    EXPECT_EQ(List("lstExistingScaleWeightUnit_0").Text(), "English");
    Choose(List("lstExistingModelNumber"), "758");
    EXPECT_EQ(Picture(), 1014);
    EXPECT_FALSE(List("lstExistingScale").isEnabled());
    EXPECT_EQ(List("lstExistingScale").Text(), "None");
    ChooseScales();
    Choose(List("lstExistingScaleType"), "Dual-Cable");
    EXPECT_FALSE(List("lstExistingInterface").isEnabled());
    EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
    Choose(List("lstExistingScaleType"), "Single-Cable");
    EXPECT_TRUE(List("lstExistingInterface").isEnabled());
    EXPECT_TRUE(Button("cmdExistingProgram").isEnabled());
}

TEST_F(ModifyProfile, TellsTheLoggingLevelOfEveryProfileThatItShows) {
    for (const char* level : {"0", "4", "32767"})
        StoreScanner(level, {{"", "Tavrin.OPOS.Scanner.Serial"}, {"LogVerbosity", level}});
    StoreScale("Lane", Stored::SingleCable);
    Start();
    for (const int index : {1, 2})
        Choose(List("lstExistingDeviceName_0"), index);
    ChooseScales();
    EXPECT_EQ(levels_, std::vector<int>({0, 32767, 4, 0}));
}

TEST_F(ModifyProfile, ProgrammingTakesTheProfileAsItWasStored) {
    StoreScanner("Lane", Stored::Serial);
    Start();
    Choose(List("lstExistingComPort"), "COM9");
    Click(Button("cmdExistingProgram"));
    ASSERT_EQ(toProgram_.size(), 1U);
    EXPECT_EQ(toProgram_[0], devices_.Item(DeviceClass::Scanner, "Lane"));
    EXPECT_EQ(std::dynamic_pointer_cast<CScanner2>(toProgram_[0])->SerialPort(), 12) << "not as the page shows it";
}

TEST_F(ModifyProfile, ProgrammingOverUsbOnlyTellsHow) {
    StoreScanner("Lane", Stored::Usb);
    StoreScanner("Pos", {{"", "Tavrin.Opos.Scanner"}, {"Scanner Version", "3"}});
    Start();
    const std::vector<std::pair<QString, QString>> words = {{"Lane", "IBM OEM USB"}, {"Pos", "POS USB"}};
    for (const auto& [name, word] : words) {
        Choose(List("lstExistingDeviceName_0"), name);
        const ExpectBox box("Kalder Information",
                            "If not already configured for use with Ravlin, your " + word +
                                " scanner must be configured by the scanning of a bar code menu.  Please contact a "
                                "Tavrin representative if you require assistance with that.");
        Click(Button("cmdExistingProgram"));
    }
    EXPECT_TRUE(toProgram_.empty());
}

TEST_F(ModifyProfile, ForeignProfilesCannotBeModified) {
    StoreScanner("Foreign", {{"", "Other.Scanner"}});
    StoreScale("Foreign", {{"", "Other.Scale"}});
    Start();
    EXPECT_TRUE(Items(List("lstExistingDeviceName_0")).empty());
    EXPECT_TRUE(Items(List("lstExistingDeviceName_1")).empty());
}

TEST_F(ModifyProfile, AProfileOfTheOtherClassThatSelectsItselfDoesNotTakeThePageOver) {
    StoreScanner("Lane", Stored::Serial);
    Start();
    const auto scale = std::make_shared<CScale2>(registry_);
    scale->DeviceName("Lane");
    devices_.Add(DeviceClass::Scale, "Lane", scale);
    names_.AddDeviceName(DeviceClass::Scale, "Lane");
    names_.SelectOnlyItems(DeviceClass::Scale);
    EXPECT_EQ(List("lstExistingInterface").Text(), "RS232");
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM12");
    EXPECT_TRUE(IsShown(Widget("fraExistingDeviceInfo_0")));
    EXPECT_TRUE(Button("cmdExistingProgram").isEnabled());
}

TEST_F(ModifyProfile, AProfileThatWasReplacedMeanwhileIsShownAfreshWhenThePageComesIntoView) {
    StoreScanner("Lane", Stored::Serial);
    Start();
    page_.hide();
    page_.show();
    Choose(List("lstExistingComPort"), "COM9");
    page_.hide();
    page_.show();
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM9") << "nothing was replaced; what the user chose stays";
    const auto scanner = std::make_shared<CScanner2>(registry_);
    scanner->Model("758");
    scanner->SerialPort(3);
    page_.hide();
    devices_.Remove(DeviceClass::Scanner, "Lane");
    devices_.Add(DeviceClass::Scanner, "LANE", scanner);
    page_.show();
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM3");
    EXPECT_EQ(List("lstExistingModelNumber").Text(), "758");
}
