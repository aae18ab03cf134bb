#include "views/NewProfileView.h"

#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/ModelCatalogue.h"
#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"
#include "views/DeviceCollection.h"
#include "views/DeviceNameLists.h"
#include "widgets/ModelPicture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QString Created = "Device profile created successfully.";
const QString Updated = "Updated device profile successfully.";
const QString Overwrite = "The specified device name already exists.  Do you wish\r\n"
                          "to overwrite the current settings with the new settings?";
const QString ProgramQuestion =
    "You must reprogram your scanner before it will work\r\nwith the Tavrin OPOS drivers.  Do "
    "you wish to\r\nreprogram your scanner now?\r\n\r\nYou can reprogram your scanner at a "
    "later time by\r\nclicking the Program button in the Modify Profile section.";
const QString ScannerKey = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\";
const QString ScaleKey = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scale\\";

QString SetupNotice(const QString& word) {
    return "If not already configured for use with Ravlin, your " + word +
           " scanner must be configured by the scanning of a bar code or a menu of bar codes.  Please contact a Tavrin "
           "representative if you require assistance with that.";
}

const QString DriverNote =
    "\r\n\r\nNote that your POS USB scanner also requires you to have installed a POS USB driver, separate from the "
    "Ravlin "
    "OPOS driver.  POS USB drivers are available from the downloads section of the Tavrin web site.  Please contact a "
    "Tavrin representative if you require assistance with that.";

// The page as the main window has it after its start, over a real store.
class NewProfile : public ::testing::Test {
protected:
    NewProfile() {
        comPorts_ = FillComPortLists({&page_.ComPortList()});
        page_.UseNameLists(names_);
        page_.InterfaceList().SetListIndex(0);
        page_.SelectFirstOptions();
        page_.SelectFirstDeviceType();
        QObject::connect(&page_, &NewProfileView::ProgramRequested, &page_,
                         [this](const std::shared_ptr<CDevice>& device) { toProgram_.push_back(device); });
        page_.show();
        page_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page_));
    }

    DropDownList& List(const QString& name) { return Control<DropDownList>(page_, name); }
    QPushButton& Button(const QString& name) { return Control<QPushButton>(page_, name); }
    QWidget& Widget(const QString& name) { return Control<QWidget>(page_, name); }
    QLineEdit& Name() { return Control<QLineEdit>(page_, "txtNewDeviceName"); }
    int Picture() { return ShownModelPicture(Control<QLabel>(page_, "imgNewModelPicture")); }
    void TypeName(const QString& name) {
        Name().clear();
        QTest::keyClicks(&Name(), name);
    }
    // Saves a serial scanner or a scale that is new, and declines to program.
    void Save() {
        const bool scanner = List("lstNewDeviceType").ListIndex() == 0;
        const ExpectBox created("Ravlin", Created);
        if (!scanner)
            return Click(Button("cmdNewSave"));
        const ExpectBox question("Program Scanner?", ProgramQuestion, QMessageBox::No);
        Click(Button("cmdNewSave"));
    }
    std::string ScannerValue(const QString& name, const std::string& value) {
        return registry_.Text((ScannerKey + name).toStdString(), value);
    }
    std::string ScaleValue(const QString& name, const std::string& value) {
        return registry_.Text((ScaleKey + name).toStdString(), value);
    }

    TemporaryRegistry registry_;
    DeviceCollection devices_;
    std::array<DropDownList, 8> lists_;
    DeviceNameLists names_{
        {{&lists_[0], &lists_[1]}, {&lists_[2], &lists_[3]}, {&lists_[4], &lists_[5]}, {&lists_[6], &lists_[7]}}};
    QString comPorts_;
    NewProfileView page_{{registry_, devices_, comPorts_}};
    std::vector<std::shared_ptr<CDevice>> toProgram_;
};

} // namespace

TEST_F(NewProfile, OffersTheOptionsInTheirOrder) {
    EXPECT_EQ(Items(List("lstNewDeviceType")), QStringList({"Scanner", "Scale"}));
    EXPECT_EQ(Items(List("lstNewInterface")), QStringList({"RS232", "Full Speed USB", "POS USB"}));
    EXPECT_EQ(Items(List("lstNewScale")), QStringList({"None", "Single-Cable", "Dual-Cable"}));
    EXPECT_EQ(Items(List("lstNewScaleType")), QStringList({"Single-Cable", "Dual-Cable"}));
    for (const char* element : {"_0", "_1"}) {
        EXPECT_EQ(Items(List(QString("lstNewScaleWeightUnit") + element)), QStringList({"English", "Metric"}));
        EXPECT_EQ(Items(List(QString("lstNewScaleDisplay") + element)), QStringList({"No", "Yes"}));
    }
    EXPECT_EQ(List("lstNewModelNumber").ListCount(), 29);
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
    Choose(List("lstNewScaleType"), "Dual-Cable");
    EXPECT_EQ(List("lstNewInterface").ListIndex(), 0);
    EXPECT_FALSE(List("lstNewInterface").isEnabled());
    EXPECT_FALSE(Button("cmdNewProgram").isEnabled());
    EXPECT_TRUE(List("lstNewScaleWeightUnit_1").isEnabled());
    Choose(List("lstNewScaleType"), "Single-Cable");
    EXPECT_TRUE(List("lstNewInterface").isEnabled());
    EXPECT_TRUE(Button("cmdNewProgram").isEnabled());
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
    Choose(List("lstNewComPort"), "COM3");
    TypeName("Lane 1");
    Save();
    Choose(List("lstNewDeviceType"), "Scanner");
    Choose(List("lstNewModelNumber"), "Pelerin/3172");
    Choose(List("lstNewScale"), "Single-Cable");
    TypeName("Lane 1");
    const WhenShown dialog("frmConfigScale", [](QWidget& window) { Click(Control<QPushButton>(window, "cmdCreate")); });
    const ExpectBox overwrite("Overwrite Settings?", Overwrite, QMessageBox::No);
    Save();
    EXPECT_EQ(ScaleValue("Lane 1", "Serial Port"), "3");
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
