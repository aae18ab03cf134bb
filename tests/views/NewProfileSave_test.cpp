#include "NewProfilePage.h"

TEST_F(NewProfile, SavingStoresTheScannerAndListsItEverywhere) {
    Choose(List("lstNewModelNumber"), "Rovane/1462");
    Choose(List("lstNewComPort"), "COM12");
    TypeName("Lane 1");
    Save();
    EXPECT_EQ(ScannerValue("Lane 1", ""), "Tavrin.Opos.Scanner");
    EXPECT_EQ(ScannerValue("Lane 1", "Model"), "Rovane/1462");
    EXPECT_EQ(ScannerValue("Lane 1", "Serial Port"), "12");
    EXPECT_EQ(ScannerValue("Lane 1", "Scanner Version"), "1");
    EXPECT_EQ(devices_.Item(0, "Lane 1")->ClassName(), "CScanner2");
    for (const std::size_t list : {0U, 2U, 4U, 6U})
        EXPECT_EQ(Items(lists_[list]), QStringList("Lane 1"));
    for (const std::size_t list : {1U, 3U, 5U, 7U})
        EXPECT_EQ(lists_[list].ListCount(), 0);
    EXPECT_EQ(Name().text(), "") << "the page is ready for the next profile";
    EXPECT_TRUE(toProgram_.empty());
}

TEST_F(NewProfile, TheInterfaceCodeFollowsFromInterfaceAndModel) {
    const std::vector<std::tuple<QString, int, std::string, std::string>> cases = {
        {"Pelerin/3256", 0, "0", "1"}, {"Pelerin/3172", 0, "0", "1"}, {"7346", 0, "1", "1"},
        {"Pelerin/3256", 1, "2", ""},  {"7346", 1, "2", ""},          {"Pelerin/3172", 2, "3", ""},
    };
    int number = 0;
    for (const auto& [model, interfaceIndex, code, port] : cases) {
        const QString name = QStringLiteral("Lane %1").arg(++number);
        Choose(List("lstNewModelNumber"), model);
        Choose(List("lstNewInterface"), interfaceIndex);
        TypeName(name);
        if (interfaceIndex == 0) {
            Save();
        } else {
            const ExpectBox created("Ravlin", Created);
            const ExpectBox notice("Kalder Information", interfaceIndex == 1 ? SetupNotice("IBM OEM USB")
                                                                             : SetupNotice("POS USB") + DriverNote);
            Click(Button("cmdNewSave"));
        }
        EXPECT_EQ(ScannerValue(name, "Scanner Version"), code) << model.toStdString() << interfaceIndex;
        EXPECT_EQ(ScannerValue(name, "Serial Port"), port);
    }
}

TEST_F(NewProfile, AnyFurtherInterfaceIsCalledPosUsbWithoutTheDriverNote) {
    List("lstNewInterface").AddItem("Fourth");
    Choose(List("lstNewInterface"), 3);
    TypeName("Lane");
    const ExpectBox created("Ravlin", Created);
    const ExpectBox notice("Kalder Information", SetupNotice("POS USB"));
    Click(Button("cmdNewSave"));
    EXPECT_EQ(ScannerValue("Lane", "Scanner Version"), "3");
}

TEST_F(NewProfile, AnsweringYesProgramsTheScannerThatWasSaved) {
    TypeName("Lane 1");
    const ExpectBox created("Ravlin", Created);
    const ExpectBox question("Program Scanner?", ProgramQuestion, QMessageBox::Yes);
    Click(Button("cmdNewSave"));
    ASSERT_EQ(toProgram_.size(), 1U);
    EXPECT_EQ(toProgram_.front(), devices_.Item(0, "Lane 1"));
}

TEST_F(NewProfile, DecliningToOverwriteChangesNothingButStillAsksToProgram) {
    TypeName("Lane 1");
    Save();
    const auto before = devices_.Item(0, "Lane 1");
    Choose(List("lstNewModelNumber"), "758");
    TypeName("LANE 1");
    const ExpectBox overwrite("Overwrite Settings?", Overwrite, QMessageBox::No);
    const ExpectBox question("Program Scanner?", ProgramQuestion, QMessageBox::No);
    Click(Button("cmdNewSave"));
    EXPECT_EQ(ScannerValue("Lane 1", "Model"), "Vanta/2315");
    EXPECT_EQ(devices_.Item(0, "Lane 1"), before);
    EXPECT_EQ(Name().text(), "LANE 1") << "what was typed is kept";
}

TEST_F(NewProfile, OverwritingWipesTheKeyAndLeavesTheListsAlone) {
    TypeName("Lane 1");
    Save();
    registry_.Put((ScannerKey + "Lane 1").toStdString(), "Foreign", "x");
    registry_.Put((ScannerKey + "Lane 1\\Sub").toStdString(), "Foreign", "x");
    Choose(List("lstNewModelNumber"), "758");
    TypeName("Lane 1");
    const ExpectBox overwrite("Overwrite Settings?", Overwrite, QMessageBox::Yes);
    const ExpectBox updated("Ravlin", Updated);
    const ExpectBox question("Program Scanner?", ProgramQuestion, QMessageBox::No);
    Click(Button("cmdNewSave"));
    EXPECT_EQ(ScannerValue("Lane 1", "Model"), "758");
    EXPECT_EQ(ScannerValue("Lane 1", "Foreign"), "");
    EXPECT_FALSE(registry_.HasKey((ScannerKey + "Lane 1\\Sub").toStdString()));
    EXPECT_EQ(std::dynamic_pointer_cast<CScanner2>(devices_.Item(0, "Lane 1"))->Model(), "758");
    for (const std::size_t list : {0U, 2U, 4U, 6U})
        EXPECT_EQ(Items(lists_[list]), QStringList("Lane 1"));
    EXPECT_EQ(Name().text(), "");
}

TEST_F(NewProfile, AnOverwrittenProfileIsStillHeldByTheTestThatHoldsItsDevice) {
    TypeName("Lane 1");
    Save();
    devices_.Item(0, "Lane 1")->InUse(true);
    TypeName("Lane 1");
    const ExpectBox overwrite("Overwrite Settings?", Overwrite, QMessageBox::Yes);
    const ExpectBox updated("Ravlin", Updated);
    const ExpectBox question("Program Scanner?", ProgramQuestion, QMessageBox::No);
    Click(Button("cmdNewSave"));
    EXPECT_TRUE(devices_.Item(0, "Lane 1")->InUse());
}

TEST_F(NewProfile, ANewProfileLeavesForeignValuesOfItsKeyInPlace) {
    registry_.Put((ScannerKey + "Lane 1").toStdString(), "Foreign", "x");
    TypeName("Lane 1");
    Save();
    EXPECT_EQ(ScannerValue("Lane 1", "Foreign"), "x");
}

TEST_F(NewProfile, TheScaleTypeDecidesTheClassOfAScale) {
    Choose(List("lstNewDeviceType"), "Scale");
    Choose(List("lstNewComPort"), "COM3");
    Choose(List("lstNewScaleWeightUnit_1"), "Metric");
    Choose(List("lstNewScaleDisplay_1"), "Yes");
    TypeName("Single");
    Save();
    EXPECT_EQ(ScaleValue("Single", ""), "Tavrin.Opos.Scale");
    EXPECT_EQ(ScaleValue("Single", "Serial Port"), "3");
    EXPECT_EQ(ScaleValue("Single", "WeightUnit"), "1");
    EXPECT_EQ(ScaleValue("Single", "Display"), "1");
    EXPECT_EQ(devices_.Item(1, "Single")->ClassName(), "CScale2");

    Choose(List("lstNewScaleType"), "Dual-Cable");
    Choose(List("lstNewComPort"), "COM4");
    TypeName("Dual");
    Save();
    EXPECT_EQ(ScaleValue("Dual", ""), "OPOS.A702.SCALE.SO");
    EXPECT_EQ(ScaleValue("Dual", "PORT"), "COM4");
    EXPECT_EQ(devices_.Item(1, "Dual")->ClassName(), "CAveryScale");
    EXPECT_EQ(Items(lists_[7]), QStringList({"Single", "Dual"}));
}

TEST_F(NewProfile, AScaleOnUsbIsStoredWithoutAPort) {
    Choose(List("lstNewDeviceType"), "Scale");
    Choose(List("lstNewInterface"), 1);
    TypeName("Usb");
    Save();
    EXPECT_EQ(ScaleValue("Usb", "Scale Version"), "2");
    EXPECT_EQ(ScaleValue("Usb", "Serial Port"), "");
}

TEST_F(NewProfile, AScannerWithAScaleOffersAScaleProfileOfTheSameName) {
    Choose(List("lstNewModelNumber"), "Pelerin/3172");
    Choose(List("lstNewScale"), "Single-Cable");
    Choose(List("lstNewScaleWeightUnit_0"), "Metric");
    Choose(List("lstNewScaleDisplay_0"), "Yes");
    Choose(List("lstNewComPort"), "COM5");
    TypeName("Lane 1");
    {
        const WhenShown dialog("frmConfigScale", [](QWidget& window) {
            EXPECT_EQ(Control<QLineEdit>(window, "txtScaleName").text(), "Lane 1");
            EXPECT_EQ(Control<DropDownList>(window, "lstScaleType").Text(), "Single-Cable");
            EXPECT_EQ(Control<DropDownList>(window, "lstInterface").Text(), "RS232");
            EXPECT_EQ(Control<DropDownList>(window, "lstSerialPort").Text(), "COM5");
            EXPECT_EQ(Control<DropDownList>(window, "lstWeightUnit").Text(), "Metric");
            EXPECT_EQ(Control<DropDownList>(window, "lstDisplay").Text(), "Yes");
            Click(Control<QPushButton>(window, "cmdCreate"));
        });
        Save();
    }
    EXPECT_EQ(ScannerValue("Lane 1", "ScaleType"), "1");
    EXPECT_EQ(ScannerValue("Lane 1", "WeightUnit"), "1");
    EXPECT_EQ(ScannerValue("Lane 1", "Display"), "1");
    EXPECT_EQ(ScaleValue("Lane 1", ""), "Tavrin.Opos.Scale");
    EXPECT_EQ(devices_.Item(0, "Lane 1")->ConfigurationType(), 16 + 1 + 4 + 8);
    EXPECT_EQ(devices_.Item(1, "Lane 1")->ClassName(), "CScale2");
    for (const DropDownList& list : lists_)
        EXPECT_EQ(Items(list), QStringList("Lane 1"));
}

TEST_F(NewProfile, CancellingTheScaleDialogStoresTheScannerAlone) {
    Choose(List("lstNewModelNumber"), "Pelerin/3256");
    Choose(List("lstNewScale"), "Dual-Cable");
    TypeName("Lane 1");
    {
        const WhenShown dialog("frmConfigScale", [](QWidget& window) {
            EXPECT_EQ(Control<DropDownList>(window, "lstScaleType").Text(), "Dual-Cable");
            Click(Control<QPushButton>(window, "cmdCancel"));
        });
        Save();
    }
    EXPECT_TRUE(devices_.Contains(0, "Lane 1"));
    EXPECT_FALSE(devices_.Contains(1, "Lane 1"));
    EXPECT_FALSE(registry_.HasKey((ScaleKey + "Lane 1").toStdString()));
}

TEST_F(NewProfile, AScaleProfileRenamedInTheDialogIsKeptUnderItsOwnName) {
    Choose(List("lstNewModelNumber"), "Pelerin/3256");
    Choose(List("lstNewScale"), "Dual-Cable");
    TypeName("Lane 1");
    {
        const WhenShown dialog("frmConfigScale", [](QWidget& window) {
            Control<QLineEdit>(window, "txtScaleName").setText("Scale of lane 1");
            Click(Control<QPushButton>(window, "cmdCreate"));
        });
        Save();
    }
    EXPECT_EQ(devices_.Item(1, "Scale of lane 1")->ClassName(), "CAveryScale");
    EXPECT_EQ(Items(lists_[1]), QStringList("Scale of lane 1"));
}

TEST_F(NewProfile, AnExistingScaleProfileIsOverwrittenOnlyWhenTheUserSaysSo) {
    Choose(List("lstNewDeviceType"), "Scale");
    for (const char* name : {"Lane 1", "Lane 2"}) {
        TypeName(name);
        Choose(List("lstNewComPort"), "COM3");
        Save();
    }
    Choose(List("lstNewDeviceType"), "Scanner");
    const auto fillPage = [this](const QString& name) {
        Choose(List("lstNewModelNumber"), "Pelerin/3172");
        Choose(List("lstNewScale"), "Single-Cable");
        TypeName(name);
    };
    const auto create = [](QWidget& window) { Click(Control<QPushButton>(window, "cmdCreate")); };
    {
        fillPage("Lane 1");
        const WhenShown dialog("frmConfigScale", create);
        const ExpectBox overwrite("Overwrite Settings?", Overwrite, QMessageBox::No);
        Save();
    }
    EXPECT_EQ(ScaleValue("Lane 1", "Serial Port"), "3");
    fillPage("Lane 2");
    const WhenShown dialog("frmConfigScale", create);
    const ExpectBox overwrite("Overwrite Settings?", Overwrite, QMessageBox::Yes);
    const ExpectBox updated("Ravlin", Updated);
    Save();
    EXPECT_EQ(ScaleValue("Lane 2", "Serial Port"), "");
    EXPECT_EQ(Items(lists_[1]), QStringList({"Lane 1", "Lane 2"}));
    EXPECT_EQ(Name().text(), "");
}

TEST_F(NewProfile, AScaleNeverAsksForACompanion) {
    Choose(List("lstNewModelNumber"), "Pelerin/3172");
    Choose(List("lstNewScale"), "Single-Cable");
    Choose(List("lstNewDeviceType"), "Scale");
    TypeName("Lane 1");
    Save(); // a dialog would not be answered and would fail the test by its time limit
    EXPECT_TRUE(devices_.Contains(1, "Lane 1"));
}

TEST_F(NewProfile, NamesAreStoredAsTyped) {
    for (const QString& name : {QString("  two blanks "), QString::fromUtf8("Kasse \u00e4\u00f6\u00fc \u6536\u9280"),
                                QString(255, 'x'), QString("say \"hi\""), QString("it's 100% <b>")}) {
        TypeName("-");
        Name().setText(name);
        Save();
        EXPECT_EQ(ScannerValue(name, ""), "Tavrin.Opos.Scanner") << name.toStdString();
        EXPECT_EQ(devices_.Item(0, name)->DeviceName(), name.toStdString());
    }
}
