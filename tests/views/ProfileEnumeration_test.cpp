#include "views/ProfileEnumeration.h"

#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/FailingRegistry.h"
#include "support/RecordingRegistry.h"
#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"
#include "views/DeviceCollection.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* Folder = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\";

class Enumeration : public ::testing::Test {
protected:
    void PutProfile(const std::string& kind, const std::string& name, const std::string& progId) {
        registry_.Put(Folder + kind + '\\' + name, "", progId);
    }
    void Load(Registry& registry) {
        LoadScannerProfiles(registry, devices_, nullptr);
        LoadScaleProfiles(registry, devices_);
    }
    std::string ClassOf(std::int32_t deviceType, const QString& name) {
        return devices_.Item(deviceType, name)->ClassName();
    }
    QStringList Names() {
        QStringList names;
        for (const DeviceCollection::Entry& entry : devices_.Entries())
            names << entry.name;
        return names;
    }

    TemporaryRegistry registry_;
    DeviceCollection devices_;
};

} // namespace

TEST_F(Enumeration, OfAFreshMachineFindsNothingAndSaysNothing) {
    Load(registry_);
    EXPECT_TRUE(devices_.Entries().empty());
    EXPECT_TRUE(registry_.HasKey(RegistryPaths::ScannerFolder)) << "the folder is made, as by any store";
}

TEST_F(Enumeration, ChoosesTheClassByTheExactDefaultValue) {
    PutProfile("Scanner", "s1", "Tavrin.OPOS.Scanner.Serial");
    PutProfile("Scanner", "s2", "Tavrin.Opos.Scanner");
    PutProfile("Scanner", "s3", "Tavrin.OPOS.Scanner");
    PutProfile("Scanner", "s4", "tavrin.opos.scanner");
    PutProfile("Scanner", "s5", "Tavrin.Opos.Scale");
    PutProfile("Scanner", "s6", "");
    registry_.Put(std::string(Folder) + "Scanner\\s7", "Model", "7339");
    PutProfile("Scale", "w1", "Tavrin.Opos.Scale");
    PutProfile("Scale", "w2", "OPOS.A702.SCALE.SO");
    PutProfile("Scale", "w3", "Opos.A702.Scale.SO");
    Load(registry_);
    EXPECT_EQ(ClassOf(0, "s1"), "CScanner1");
    EXPECT_EQ(ClassOf(0, "s2"), "CScanner2");
    for (const char* name : {"s3", "s4", "s5", "s6", "s7"})
        EXPECT_EQ(ClassOf(0, name), "CGenericScanner") << name;
    EXPECT_EQ(ClassOf(1, "w1"), "CScale2");
    EXPECT_EQ(ClassOf(1, "w2"), "CAveryScale");
    EXPECT_EQ(ClassOf(1, "w3"), "CGenericScale");
}

TEST_F(Enumeration, ReadsScalesByAPathWithOneMoreBackslashAndMakesNoKeysOfProfiles) {
    PutProfile("Scanner", "s", "Other");
    PutProfile("Scale", "w", "Other");
    RecordingRegistry recording(registry_);
    Load(recording);
    using Operations = std::vector<std::string>;
    Operations expected;
    for (const Operations& paths : {Operations{"Scanner\\", "Scanner\\s"}, Operations{"Scale\\", "Scale\\\\w"}})
        expected.insert(expected.end(),
                        {"CreateStore", "Root machine", "CreateStore", "CreateMissing no", "Root machine",
                         "KeyPath " + (Folder + paths[0]), "SubKeyCount", "SubKeyName 0",
                         "KeyPath " + (Folder + paths[1]), "ReadValue ", "Release", "Release"});
    EXPECT_EQ(recording.Operations(), expected);
}

TEST_F(Enumeration, LoadsEveryNameThatTheRegistryHolds) {
    for (const char* name : {"Stra\u00dfe", "Strasse", "\u212Aasse", "Kasse"}) {
        PutProfile("Scanner", name, "Tavrin.Opos.Scanner");
        PutProfile("Scale", name, "Tavrin.Opos.Scale");
    }
    Load(registry_);
    EXPECT_EQ(Names().size(), 8);
}

TEST_F(Enumeration, LoadsScannersBeforeScalesAndBothOfOneName) {
    PutProfile("Scale", "Lane", "Tavrin.Opos.Scale");
    PutProfile("Scanner", "Lane", "Tavrin.Opos.Scanner");
    registry_.Put(std::string(Folder) + "Scanner\\Lane", "Model", "Pelerin/3172");
    registry_.Put(std::string(Folder) + "Scale\\Lane", "WeightUnit", "1");
    Load(registry_);
    ASSERT_EQ(Names(), QStringList({"Lane", "Lane"}));
    EXPECT_EQ(devices_.Entries().front().deviceType, DeviceClass::Scanner);
    const auto scanner = std::dynamic_pointer_cast<CGenericScanner>(devices_.Item(DeviceClass::Scanner, "Lane"));
    EXPECT_EQ(scanner->Model(), "Pelerin/3172");
    EXPECT_EQ(scanner->DeviceName(), "Lane");
    EXPECT_EQ(devices_.Item(DeviceClass::Scale, "Lane")->ClassName(), "CScale2");
}

TEST_F(Enumeration, StopsAtAFailingScannerKeepsTheFirstAndGoesOnWithTheScales) {
    for (const char* name : {"a", "b", "c", "d"})
        PutProfile("Scanner", name, "Tavrin.Opos.Scanner");
    PutProfile("Scale", "w", "Tavrin.Opos.Scale");
    FailingRegistry failing(registry_);
    // The third default value: the first of six values that are read of each scanner before it.
    failing.FailAt(RegistryOperation::ReadValue, 1 + 2 * 7, RegistryErrorNumber::ReadKey);
    const ExpectBox box("Error loading [c]", "Unable to read from the scanner registry key.\r\n"
                                             "Error Number: -2147220988\r\nError Description: The disk is gone.");
    Load(failing);
    EXPECT_EQ(Names(), QStringList({"a", "b", "w"}));
}

TEST_F(Enumeration, NamesNoProfileWhenTheFolderItselfFails) {
    FailingRegistry failing(registry_);
    failing.FailAt(RegistryOperation::SubKeyCount, 1, RegistryErrorNumber::OpenKey);
    const ExpectBox box("Error loading []", "Unable to open scanner registry key.\r\n"
                                            "Error Number: -2147220991\r\nError Description: The disk is gone.");
    LoadScannerProfiles(failing, devices_, nullptr);
}

TEST_F(Enumeration, ChoosesItsMessageByTheNumberOfTheError) {
    const std::vector<std::pair<RegistryErrorNumber, QString>> messages = {
        {RegistryErrorNumber::OpenKey, "Unable to open scanner registry key.\r\nError Number: -2147220991"},
        {RegistryErrorNumber::CloseKey, "Unable to close scanner registry key.\r\nError Number: -2147220990"},
        {RegistryErrorNumber::CreateKey, "Unable to create scanner registry key.\r\nError Number: -2147220989"},
        {RegistryErrorNumber::ReadKey, "Unable to read from the scanner registry key.\r\nError Number: -2147220988"},
        {RegistryErrorNumber::KeyMissing, "The scanner registry key does not exist.\r\nError Number: -2147220987"},
        {RegistryErrorNumber::NoSubKeys,
         "The scanner registry key does not have any sub keys.\r\nError Number: -2147220986"},
        {RegistryErrorNumber::WriteValue,
         "An error occured while loading OPOS scanner devices.\r\nError Number: -2147220985"},
        {RegistryErrorNumber::DeleteKey,
         "An error occured while loading OPOS scanner devices.\r\nError Number: -2147220984"},
        {RegistryErrorNumber::Unknown,
         "An unknown error occured while loading the scanner registry keys.\r\nError Number: -2147220983"},
    };
    for (const auto& [number, text] : messages) {
        FailingRegistry failing(registry_);
        failing.FailAt(RegistryOperation::KeyPath, 1, number);
        const ExpectBox box("Error loading []", text + "\r\nError Description: The disk is gone.");
        LoadScannerProfiles(failing, devices_, nullptr);
    }
}

TEST_F(Enumeration, ReportsAProfileWhoseNumbersCannotBeRead) {
    PutProfile("Scanner", "a", "Tavrin.Opos.Scanner");
    registry_.Put(std::string(Folder) + "Scanner\\a", "Serial Port", "70000");
    const ExpectBox box("Error loading [a]", "An error occured while loading OPOS scanner devices.\r\n"
                                             "Error Number: 6\r\nError Description: Overflow (070000)");
    Load(registry_);
    EXPECT_TRUE(devices_.Entries().empty());
}

TEST_F(Enumeration, LeavesAFailingScaleFolderToItsCaller) {
    PutProfile("Scale", "w", "Tavrin.Opos.Scale");
    FailingRegistry failing(registry_);
    failing.FailAt(RegistryOperation::SubKeyName, 1, RegistryErrorNumber::ReadKey);
    EXPECT_THROW(LoadScaleProfiles(failing, devices_), RegistryError);
}
