#include "NewProfilePage.h"

TEST_F(NewProfile, OffersTheOptionsInTheirOrder) {
    EXPECT_EQ(Items(List("lstNewDeviceType")), QStringList({"Scanner", "Scale"}));
    EXPECT_EQ(Items(List("lstNewInterface")), QStringList({"RS232", "Full Speed USB", "POS USB"}));
    EXPECT_EQ(Items(List("lstNewScale")), QStringList({"None", "Single-Cable", "Dual-Cable"}));
    EXPECT_EQ(Items(List("lstNewScaleType")), QStringList({"Single-Cable", "Dual-Cable"}));
    for (const char* element : {"_0", "_1"}) {
        EXPECT_EQ(Items(List(QString("lstNewScaleWeightUnit") + element)), QStringList({"English", "Metric"}));
        EXPECT_EQ(Items(List(QString("lstNewScaleDisplay") + element)), QStringList({"No", "Yes"}));
    }
    EXPECT_EQ(List("lstNewModelNumber").ListCount(), static_cast<int>(ModelCatalogue.size()));
    EXPECT_EQ(List("lstNewComPort").ListCount(), 64);
    EXPECT_EQ(List("lstNewComPort").itemText(0), "COM1");
    EXPECT_EQ(List("lstNewComPort").itemText(63), "COM64");
    EXPECT_EQ(comPorts_.size(), 128);
    EXPECT_TRUE(comPorts_.startsWith("010203"));
    EXPECT_TRUE(comPorts_.endsWith("6364"));
    EXPECT_EQ(page_.AvailableInterfaces(), "RS232\rFull Speed USB\rPOS USB");
}

TEST_F(NewProfile, LabelsNameTheControlsThatFollowThem) {
    const std::vector<std::array<const char*, 3>> labels = {
        {"lblNewDeviceType", "&Device Class:", "lstNewDeviceType"},
        {"lblNewInterface", "&Interface:", "lstNewInterface"},
        {"lblNewComPort", "&COM Port:", "lstNewComPort"},
        {"lblNewDeviceName", "Profile &Name:", "txtNewDeviceName"},
        {"lblNewModelNumber", "&Model Number:", "lstNewModelNumber"},
        {"lblNewScale", "Sc&ale:", "lstNewScale"},
        {"lblNewScaleWeightUnit_0", "&Unit of Measure:", "lstNewScaleWeightUnit_0"},
        {"lblNewScaleDisplay_0", "Dis&play:", "lstNewScaleDisplay_0"},
        {"lblNewScaleType", "Sc&ale Type:", "lstNewScaleType"},
        {"lblNewScaleWeightUnit_1", "&Unit of Measure:", "lstNewScaleWeightUnit_1"},
        {"lblNewScaleDisplay_1", "Dis&play:", "lstNewScaleDisplay_1"},
    };
    for (const auto& [label, text, buddy] : labels) {
        EXPECT_EQ(Control<QLabel>(page_, label).text(), text);
        EXPECT_EQ(Control<QLabel>(page_, label).buddy(), &Widget(buddy)) << label;
    }
    EXPECT_EQ(Button("cmdNewProgram").text(), "&Program");
    EXPECT_EQ(Button("cmdNewClear").text(), "Clea&r");
    EXPECT_EQ(Button("cmdNewSave").text(), "&Save");
}

TEST_F(NewProfile, TheDeviceClassShowsItsSettings) {
    EXPECT_TRUE(IsShown(Widget("fraNewDeviceType_0")));
    EXPECT_FALSE(IsShown(Widget("fraNewDeviceType_1")));
    EXPECT_TRUE(Button("cmdNewProgram").isEnabled());
    Choose(List("lstNewInterface"), 1);
    Choose(List("lstNewDeviceType"), "Scale");
    EXPECT_FALSE(IsShown(Widget("fraNewDeviceType_0")));
    EXPECT_TRUE(IsShown(Widget("fraNewDeviceType_1")));
    EXPECT_FALSE(Button("cmdNewProgram").isEnabled());
    EXPECT_EQ(Picture(), 1000);
    EXPECT_EQ(List("lstNewInterface").ListIndex(), 0);
    Choose(List("lstNewDeviceType"), "Scanner");
    EXPECT_TRUE(IsShown(Widget("fraNewDeviceType_0")));
    EXPECT_TRUE(Button("cmdNewProgram").isEnabled());
    EXPECT_EQ(Picture(), 1019);
    Choose(List("lstNewDeviceType"), "Scale");
    EXPECT_FALSE(Button("cmdNewProgram").isEnabled());
}

TEST_F(NewProfile, WithoutAModelTheFirstModelsPictureIsShown) {
    List("lstNewModelNumber").SetListIndex(-1);
    Choose(List("lstNewDeviceType"), "Scanner");
    EXPECT_EQ(Picture(), 1019);
}

TEST_F(NewProfile, AUsbInterfaceHasNoPortAndNothingToProgram) {
    Choose(List("lstNewComPort"), "COM7");
    Choose(List("lstNewInterface"), "Full Speed USB");
    EXPECT_EQ(List("lstNewComPort").ListIndex(), -1);
    EXPECT_FALSE(List("lstNewComPort").isEnabled());
    EXPECT_FALSE(Button("cmdNewProgram").isEnabled());
    Choose(List("lstNewInterface"), "RS232");
    EXPECT_EQ(List("lstNewComPort").Text(), "COM1");
    EXPECT_TRUE(List("lstNewComPort").isEnabled());
}

TEST_F(NewProfile, AnEnabledPortListKeepsItsChoice) {
    Choose(List("lstNewComPort"), "COM7");
    Choose(List("lstNewInterface"), "RS232");
    EXPECT_EQ(List("lstNewComPort").Text(), "COM7");
}

TEST_F(NewProfile, EveryModelShowsItsPictureAndOnlyPelerinModelsCarryAScale) {
    for (int i = 0; i < List("lstNewModelNumber").ListCount(); ++i) {
        Choose(List("lstNewModelNumber"), i);
        EXPECT_EQ(List("lstNewModelNumber").Text().toStdString(), ModelCatalogue[static_cast<std::size_t>(i)].label);
        EXPECT_EQ(Picture(), ModelCatalogue[static_cast<std::size_t>(i)].pictureId);
        EXPECT_EQ(List("lstNewScale").isEnabled(), i == 1 || i == 2);
    }
}

TEST_F(NewProfile, AModelCarriesAScaleWhereItsNameHoldsPelerin) {
    for (const auto& [model, carries] : {std::pair{"New Pelerin", true}, {"pelerin/3172", false}}) {
        List("lstNewModelNumber").AddItem(model);
        Choose(List("lstNewModelNumber"), model);
        EXPECT_EQ(List("lstNewScale").isEnabled(), carries) << model;
    }
}

TEST_F(NewProfile, AnotherModelTakesTheScaleAway) {
    Choose(List("lstNewModelNumber"), "Pelerin/3172");
    Choose(List("lstNewScale"), "Dual-Cable");
    Choose(List("lstNewScaleWeightUnit_0"), "Metric");
    Choose(List("lstNewScaleDisplay_0"), "Yes");
    Choose(List("lstNewModelNumber"), "Corvale/4619");
    EXPECT_EQ(List("lstNewScale").Text(), "None");
    EXPECT_FALSE(List("lstNewScale").isEnabled());
    EXPECT_FALSE(IsShown(List("lstNewScaleWeightUnit_0")));
    EXPECT_EQ(List("lstNewScaleWeightUnit_0").ListIndex(), 0);
    EXPECT_EQ(List("lstNewScaleDisplay_0").ListIndex(), 0);
}

TEST_F(NewProfile, UnitAndDisplayAreAskedForOnlyWithAScale) {
    const QStringList controls = {"lblNewScaleWeightUnit_0", "lstNewScaleWeightUnit_0", "lblNewScaleDisplay_0",
                                  "lstNewScaleDisplay_0"};
    Choose(List("lstNewModelNumber"), "Pelerin/3256");
    for (const int scale : {1, 0, 2, 0}) {
        Choose(List("lstNewScale"), scale);
        for (const QString& name : controls)
            EXPECT_EQ(IsShown(Widget(name)), scale != 0) << name.toStdString();
        EXPECT_EQ(List("lstNewScaleWeightUnit_0").isEnabled(), scale != 0);
        EXPECT_EQ(List("lstNewScaleDisplay_0").isEnabled(), scale != 0);
    }
}

TEST_F(NewProfile, ADualCableScaleIsConnectedBySerialCableOnly) {
    Choose(List("lstNewDeviceType"), "Scale");
    Choose(List("lstNewInterface"), "POS USB");
    for (const char* list : {"lstNewScaleWeightUnit_1", "lstNewScaleDisplay_1"})
        List(list).setEnabled(false);
    Choose(List("lstNewScaleType"), "Dual-Cable");
    EXPECT_EQ(List("lstNewInterface").ListIndex(), 0);
    EXPECT_FALSE(List("lstNewInterface").isEnabled());
    EXPECT_FALSE(Button("cmdNewProgram").isEnabled());
    EXPECT_TRUE(List("lstNewScaleWeightUnit_1").isEnabled());
    EXPECT_TRUE(List("lstNewScaleDisplay_1").isEnabled());
    Choose(List("lstNewScaleType"), "Single-Cable");
    EXPECT_TRUE(List("lstNewInterface").isEnabled());
    EXPECT_TRUE(Button("cmdNewProgram").isEnabled());
    List("lstNewScaleType").SetListIndex(-1);
    EXPECT_TRUE(List("lstNewInterface").isEnabled());
    EXPECT_FALSE(Button("cmdNewProgram").isEnabled());
}

TEST_F(NewProfile, SavingNeedsANameThatIsNotBlank) {
    EXPECT_FALSE(Button("cmdNewSave").isEnabled());
    TypeName("   ");
    EXPECT_FALSE(Button("cmdNewSave").isEnabled());
    TypeName(" a");
    EXPECT_TRUE(Button("cmdNewSave").isEnabled());
    TypeName("\t");
    Name().setText("\t");
    EXPECT_TRUE(Button("cmdNewSave").isEnabled()) << "only blanks do not count";
    Name().clear();
    EXPECT_FALSE(Button("cmdNewSave").isEnabled());
}

TEST_F(NewProfile, ClearResetsAllButTheDeviceClass) {
    Choose(List("lstNewModelNumber"), "Pelerin/3256");
    Choose(List("lstNewScale"), 1);
    Choose(List("lstNewDeviceType"), "Scale");
    Choose(List("lstNewScaleWeightUnit_1"), 1);
    Choose(List("lstNewScaleDisplay_1"), 1);
    Choose(List("lstNewScaleType"), 1);
    Choose(List("lstNewComPort"), "COM9");
    TypeName("Lane");
    Click(Button("cmdNewClear"));
    EXPECT_EQ(List("lstNewDeviceType").Text(), "Scale");
    EXPECT_EQ(Name().text(), "");
    EXPECT_EQ(page_.focusWidget(), &Name());
    for (const char* list :
         {"lstNewComPort", "lstNewInterface", "lstNewModelNumber", "lstNewScale", "lstNewScaleType",
          "lstNewScaleWeightUnit_0", "lstNewScaleWeightUnit_1", "lstNewScaleDisplay_0", "lstNewScaleDisplay_1"})
        EXPECT_EQ(List(list).ListIndex(), 0) << list;
    EXPECT_TRUE(List("lstNewInterface").isEnabled());
}

TEST_F(NewProfile, ChangesNothingWithoutASelection) {
    for (const char* list :
         {"lstNewInterface", "lstNewModelNumber", "lstNewScale", "lstNewScaleType", "lstNewDeviceType"})
        EXPECT_NO_THROW(List(list).SetListIndex(-1)) << list;
}

TEST_F(NewProfile, ProgrammingTakesTheScannerOfThePageWithoutSavingIt) {
    Choose(List("lstNewModelNumber"), "Kavit/7301");
    Choose(List("lstNewComPort"), "COM12");
    Click(Button("cmdNewProgram"));
    ASSERT_EQ(toProgram_.size(), 1U);
    const auto scanner = std::dynamic_pointer_cast<CScanner2>(toProgram_.front());
    ASSERT_TRUE(scanner);
    EXPECT_EQ(scanner->Model(), "Kavit/7301");
    EXPECT_EQ(scanner->SerialPort(), 12);
    EXPECT_TRUE(devices_.Entries().empty());
    EXPECT_TRUE(registry_.SubKeys(ScannerKey.toStdString()).empty());
}

TEST_F(NewProfile, ProgrammingOverUsbOnlyTellsHow) {
    const std::vector<std::pair<int, QString>> words = {{1, "IBM OEM USB"}, {2, "POS USB"}};
    for (const auto& [index, word] : words) {
        Choose(List("lstNewInterface"), index);
        Button("cmdNewProgram").setEnabled(true);
        const ExpectBox box("Kalder Information",
                            "If not already configured for use with Ravlin, your " + word +
                                " scanner must be configured by the scanning of a bar code menu.  Please contact a "
                                "Tavrin representative if you require assistance with that.");
        Click(Button("cmdNewProgram"));
    }
    EXPECT_TRUE(toProgram_.empty());
}

TEST_F(NewProfile, TabMovesThroughThePageInReadingOrder) {
    const QStringList order = {"lstNewDeviceType",  "lstNewInterface", "lstNewComPort", "txtNewDeviceName",
                               "lstNewModelNumber", "cmdNewProgram",   "cmdNewClear",   "cmdNewSave"};
    TypeName("Lane");
    List("lstNewDeviceType").setFocus();
    for (const QString& name : order) {
        EXPECT_EQ(page_.focusWidget()->objectName().toStdString(), name.toStdString());
        QTest::keyClick(page_.focusWidget(), Qt::Key_Tab);
    }
}
