// A profile's life in the program: stored, shown after a restart, changed, deleted; for names as users type them.
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"
#include "support_widgets/BoxWatcher.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ProfileLife : public ::testing::TestWithParam<QString> {
protected:
    ProfileLife() {
        WithoutWizard(registry_);
        Start();
    }
    void Start() { window_ = std::make_unique<MainWindow>(registry_); }
    void Restart() {
        window_->Close();
        window_.reset();
        Start();
    }
    DropDownList& List(const QString& name) { return window_->List(name); }
    void Press(const QString& button) { Click(Control<QPushButton>(**window_, button)); }

    void SaveNewScanner(const QString& name) {
        (*window_)->ShowView(0);
        Control<QLineEdit>(**window_, "txtNewDeviceName").setText(name);
        Press("cmdNewSave");
    }
    void CreateScanner(const QString& name) {
        const ExpectBox created("Ravlin", "Device profile created successfully.");
        const ExpectBox question("Program Scanner?", ProgramQuestion, QMessageBox::No);
        SaveNewScanner(name);
    }
    void ChooseScanner(const QString& name) {
        (*window_)->ShowView(1);
        Choose(List("lstExistingDeviceName_0"), name);
    }
    void SaveChosen() {
        const ExpectBox saved("Profile Saved", "Device profile successfully saved.");
        Press("cmdExistingSave");
    }
    void DeleteChosen(const QString& name) {
        const ExpectBox question("Delete Profile?", "Are you sure you wish to delete this profile (" + name + ")?",
                                 QMessageBox::Yes);
        const ExpectBox deleted("Profile Deleted", "Device profile successfully deleted.");
        Press("cmdExistingDelete");
    }
    void ExpectListed(const QStringList& names) {
        for (const char* list :
             {"lstExistingDeviceName_0", "lstSimpleDeviceName_0", "lstDetailedDeviceName_0", "lstInfoDeviceName_0"})
            EXPECT_EQ(Items(List(list)), names) << list;
    }
    std::vector<std::string> StoredNames() { return registry_.SubKeys(RegistryPaths::ScannerFolder); }
    std::string Model(const QString& name) {
        return registry_.Text(RegistryPaths::ScannerFolder + name.toStdString(), "Model");
    }

    const QString ProgramQuestion =
        "You must reprogram your scanner before it will work\r\nwith the Tavrin OPOS drivers.  Do you wish to\r\n"
        "reprogram your scanner now?\r\n\r\nYou can reprogram your scanner at a later time by\r\n"
        "clicking the Program button in the Modify Profile section.";
    TemporaryRegistry registry_;
    std::unique_ptr<MainWindow> window_;
};

INSTANTIATE_TEST_SUITE_P(Names, ProfileLife,
                         ::testing::Values("Lane 1", "  leading and trailing  ",
                                           "Kasse äöüß é 収銀台 Ω ☕ 🛒", QString(255, 'x'),
                                           "say \"hi\", it's 100 % <b>bold</b> & more", "C:/lane;1", "Scanner", "-1"));

} // namespace

TEST_P(ProfileLife, GoesFromTheNewPageThroughARestartToItsEnd) {
    const QString name = GetParam();
    CreateScanner(name);
    ExpectListed({name});
    EXPECT_EQ(StoredNames(), std::vector<std::string>{name.toStdString()});

    Restart();
    ExpectListed({name});
    ChooseScanner(name);
    Choose(List("lstExistingModelNumber"), "758");
    Choose(List("lstExistingComPort"), "COM12");
    SaveChosen();
    EXPECT_EQ(Model(name), "758");

    Restart();
    ChooseScanner(name);
    EXPECT_EQ(List("lstExistingModelNumber").Text(), "758");
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM12");
    DeleteChosen(name);
    ExpectListed({});
    EXPECT_TRUE(StoredNames().empty());

    Restart();
    ExpectListed({});
}

TEST_F(ProfileLife, ANameThatDiffersOnlyInCaseIsTheSameProfile) {
    CreateScanner("Lane äß");
    {
        const ExpectBox overwrite("Overwrite Settings?",
                                  "The specified device name already exists.  Do you wish\r\n"
                                  "to overwrite the current settings with the new settings?",
                                  QMessageBox::Yes);
        const ExpectBox updated("Ravlin", "Updated device profile successfully.");
        const ExpectBox question("Program Scanner?", ProgramQuestion, QMessageBox::No);
        (*window_)->ShowView(0);
        Choose(List("lstNewModelNumber"), "758");
        SaveNewScanner("LANE Äß");
    }
    ExpectListed({"Lane äß"});
    ChooseScanner("Lane äß");
    EXPECT_EQ(List("lstExistingModelNumber").Text(), "758");
    Choose(List("lstExistingComPort"), "COM2");
    SaveChosen();
    EXPECT_EQ(StoredNames().size(), 1U);
    DeleteChosen("Lane äß");
    EXPECT_TRUE(StoredNames().empty());
    Restart();
    ExpectListed({});
}

TEST_F(ProfileLife, NamesThatTheRegistryTellsApartAreTwoProfiles) {
    CreateScanner("Strasse");
    CreateScanner("Straße");
    EXPECT_EQ(StoredNames().size(), 2U);
    Restart();
    EXPECT_EQ(List("lstExistingDeviceName_0").ListCount(), 2);
}

TEST_F(ProfileLife, ANameThatIsTooLongIsRefusedAndTheProgramGoesOn) {
    {
        const ExpectBox error("Ravlin",
                              "The name of a key has 1 to 255 characters, but this one has 256. Choose a shorter "
                              "name.\r\n\r\nError Number: -2147220991");
        SaveNewScanner(QString(256, 'x'));
    }
    ExpectListed({});
    EXPECT_TRUE(StoredNames().empty());
    CreateScanner("Lane");
    ExpectListed({"Lane"});
}

TEST_F(ProfileLife, ANameWithBackslashesCanBeChangedAndDeleted) {
    CreateScanner("Till\\1");
    ChooseScanner("Till\\1");
    Choose(List("lstExistingModelNumber"), "758");
    SaveChosen();
    EXPECT_EQ(Model("Till\\1"), "758");
    DeleteChosen("Till\\1");
    EXPECT_FALSE(registry_.HasKey(RegistryPaths::ScannerFolder + std::string("Till\\1")));
    ExpectListed({});
}

TEST_F(ProfileLife, ShowingAProfileNeverOverwritesTheLoggingLevelOfTheDrivers) {
    registry_.Put(RegistryPaths::DriverOptions, "LogVerbosity", "3");
    const std::string folder = RegistryPaths::ScannerFolder;
    registry_.Put(folder + "Old", "", "Tavrin.OPOS.Scanner.Serial");
    registry_.Put(folder + "Old", "LogVerbosity", "1");
    registry_.Put(folder + "Odd", "", "Tavrin.OPOS.Scanner.Serial");
    registry_.Put(folder + "Odd", "LogVerbosity", "32767");
    Restart();
    EXPECT_EQ(List("lstLogLevel").Text(), "Function Trace") << "after the start the drivers' level";
    ChooseScanner("Old");
    EXPECT_EQ(List("lstLogLevel").Text(), "Warnings");
    ChooseScanner("Odd");
    EXPECT_EQ(List("lstLogLevel").ListIndex(), -1);
    EXPECT_EQ(registry_.Text(RegistryPaths::DriverOptions, "LogVerbosity"), "3");
}

TEST_F(ProfileLife, BothProfilePagesOfferTheSamePortsAndInterfaces) {
    EXPECT_EQ(Items(List("lstExistingInterface")), QStringList({"RS232", "Full Speed USB", "POS USB"}));
    EXPECT_EQ(Items(List("lstExistingComPort")), Items(List("lstNewComPort")));
    EXPECT_EQ(List("lstExistingComPort").ListCount(), 64);
    for (const char* list :
         {"lstExistingModelNumber", "lstExistingScale", "lstExistingScaleType", "lstExistingScaleWeightUnit_0",
          "lstExistingScaleWeightUnit_1", "lstExistingScaleDisplay_0", "lstExistingScaleDisplay_1"})
        EXPECT_EQ(List(list).ListIndex(), 0) << list;
}

TEST_F(ProfileLife, AProfileThatReplacesTheOneOnThePageIsShownAtOnce) {
    CreateScanner("Lane");
    ChooseScanner("Lane");
    const auto scanner = std::make_shared<CScanner2>(registry_);
    scanner->DeviceName("Lane");
    scanner->SerialPort(7);
    (*window_)->AddDevice(scanner);
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM7");
    ExpectListed({"Lane"});
}
