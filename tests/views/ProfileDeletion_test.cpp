#include "views/ProfileDeletion.h"

#include "profiles/RegistryPaths.h"
#include "support/RecordingRegistry.h"
#include "views/ModifyProfilePage.h"

namespace {

class DeletingAProfile : public ModifyProfilePage {
protected:
    void Delete(const QString& name, QMessageBox::StandardButton answer = QMessageBox::Yes) {
        Choose(*page_.NameLists().at(static_cast<std::size_t>(List("lstExistingDeviceType").ListIndex())), name);
        const ExpectBox question("Delete Profile?", "Are you sure you wish to delete this profile (" + name + ")?",
                                 answer);
        if (answer != QMessageBox::Yes)
            return Click(Button("cmdExistingDelete"));
        const ExpectBox deleted("Profile Deleted", "Device profile successfully deleted.");
        Click(Button("cmdExistingDelete"));
    }
    // What the store says about a scanner's key that is not there.
    QString TextOfDeletingScanner(const std::string& name) {
        const auto store = registry_.CreateStore();
        store->KeyPath(RegistryPaths::ScannerFolder);
        try {
            store->DeleteKey(name);
        } catch (const RegistryError& error) {
            return QString::fromStdString(error.Description());
        }
        return {};
    }
    void ExpectListed(std::int32_t deviceType, const QStringList& names) {
        for (const QStringList& listed : ListedNames(deviceType))
            EXPECT_EQ(listed, names);
    }
};

} // namespace

TEST_F(DeletingAProfile, TakesItOutOfTheRegistryTheCollectionAndTheLists) {
    StoreScanner("A", Stored::Serial);
    StoreScanner("B", Stored::Serial);
    registry_.Put("SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\B\\Sub", "x", "y");
    Start();
    Delete("B");
    EXPECT_EQ(StoredScanners(), std::vector<std::string>{"A"});
    EXPECT_FALSE(devices_.Contains(DeviceClass::Scanner, "B"));
    ExpectListed(DeviceClass::Scanner, {"A"});
    EXPECT_EQ(List("lstExistingDeviceName_0").Text(), "A");
    EXPECT_EQ(List("lstExistingComPort").Text(), "COM12") << "the first of the rest is shown";
    for (const std::size_t list : {0U, 2U, 4U})
        EXPECT_EQ(lists_[list].ListIndex(), 0);
}

TEST_F(DeletingAProfile, IsAnnouncedBeforeThePageIsBroughtUpToDate) {
    StoreScanner("A", Stored::Serial);
    StoreScanner("B", Stored::Serial);
    Start();
    Choose(List("lstExistingDeviceName_0"), "A");
    const ExpectBox question("Delete Profile?", "Are you sure you wish to delete this profile (A)?", QMessageBox::Yes);
    const ExpectBox deleted("Profile Deleted", "Device profile successfully deleted.");
    bool seen = false;
    // The first list loses its name once the message has been answered.
    QObject::connect(List("lstExistingDeviceName_0").model(), &QAbstractItemModel::rowsRemoved, &page_,
                     [&] { seen = deleted.Shown() && StoredScanners().size() == 1; });
    Click(Button("cmdExistingDelete"));
    EXPECT_TRUE(seen);
}

TEST_F(DeletingAProfile, DeletesTheKeyByTheFoldersOfItsClass) {
    StoreScanner("A", Stored::Serial);
    StoreScale("A", Stored::SingleCable);
    Start();
    RecordingRegistry recording(registry_);
    for (const std::int32_t type : {DeviceClass::Scanner, DeviceClass::Scale}) {
        const ExpectBox question("Delete Profile?", "Are you sure you wish to delete this profile (A)?",
                                 QMessageBox::Yes);
        const ExpectBox deleted("Profile Deleted", "Device profile successfully deleted.");
        recording.Clear();
        ProfileDeletion{recording, devices_, names_}.Delete(&page_, type, "A");
        EXPECT_EQ(recording.Operations(), std::vector<std::string>({"CreateStore", "CreateMissing no",
                                                                    "KeyPath SOFTWARE\\OLEForRetail\\ServiceOPOS\\" +
                                                                        DeviceClassWord(type) + '\\',
                                                                    "DeleteKey A", "Release"}));
    }
}

TEST_F(DeletingAProfile, AnsweringNoLeavesEverythingUnchanged) {
    StoreScanner("A", Stored::Serial);
    Start();
    Delete("A", QMessageBox::No);
    EXPECT_EQ(StoredScanners(), std::vector<std::string>{"A"});
    EXPECT_TRUE(devices_.Contains(DeviceClass::Scanner, "A"));
    ExpectListed(DeviceClass::Scanner, {"A"});
}

TEST_F(DeletingAProfile, IsRefusedWhileATestHoldsTheDevice) {
    StoreScale("Lane 1", Stored::SingleCable);
    Start();
    ChooseScales();
    devices_.Item(DeviceClass::Scale, "Lane 1")->InUse(true);
    {
        const ExpectBox refused("Delete Error",
                                "The selected device (Lane 1) cannot be deleted because it is currently\r\n"
                                "being used within the Administrator.  Please close the device before\r\n"
                                "attempting to delete the profile.");
        Click(Button("cmdExistingDelete"));
    }
    EXPECT_EQ(StoredScales(), std::vector<std::string>{"Lane 1"});
    EXPECT_TRUE(devices_.Contains(DeviceClass::Scale, "Lane 1"));
    ExpectListed(DeviceClass::Scale, {"Lane 1"});
    devices_.Item(DeviceClass::Scale, "Lane 1")->InUse(false);
    Delete("Lane 1");
    ExpectListed(DeviceClass::Scale, {});
}

TEST_F(DeletingAProfile, TheOnlyScannerLeavesFourEmptyLists) {
    StoreScanner("A", Stored::Serial);
    Start();
    Delete("A");
    ExpectListed(DeviceClass::Scanner, {});
    EXPECT_EQ(List("lstExistingDeviceName_0").ListIndex(), -1);
    for (const std::size_t list : {0U, 2U, 4U})
        EXPECT_EQ(lists_[list].ListIndex(), -1);
    EXPECT_EQ(List("lstExistingInterface").ListIndex(), -1);
    EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
    Click(Button("cmdExistingDelete"));
    Click(Button("cmdExistingSave"));
    EXPECT_TRUE(StoredScanners().empty());
}

TEST_F(DeletingAProfile, AScannerNamedLikeAScaleLeavesTheScale) {
    StoreScanner("Lane 1", Stored::Serial);
    StoreScale("Lane 1", Stored::SingleCable);
    Start();
    Delete("Lane 1");
    EXPECT_TRUE(StoredScanners().empty());
    EXPECT_EQ(StoredScales(), std::vector<std::string>{"Lane 1"});
    EXPECT_TRUE(devices_.Contains(DeviceClass::Scale, "Lane 1"));
    ExpectListed(DeviceClass::Scanner, {});
    ExpectListed(DeviceClass::Scale, {"Lane 1"});
}

TEST_F(DeletingAProfile, TheFirstNameThatBeginsWithItLeavesTheLists) {
    StoreScanner("Alpha", Stored::Serial);
    Start();
    for (const char* name : {"Lane2", "Lane"}) {
        StoreScanner(name, Stored::Serial);
        devices_.Add(DeviceClass::Scanner, name, devices_.Item(DeviceClass::Scanner, "Alpha"));
        names_.AddDeviceName(DeviceClass::Scanner, name);
    }
    Delete("Lane");
    EXPECT_EQ(StoredScanners(), std::vector<std::string>({"Alpha", "Lane2"}));
    EXPECT_TRUE(devices_.Contains(DeviceClass::Scanner, "Lane2"));
    EXPECT_FALSE(devices_.Contains(DeviceClass::Scanner, "Lane"));
    ExpectListed(DeviceClass::Scanner, {"Alpha", "Lane"});
}

TEST_F(DeletingAProfile, TheNameOfADeletedProfileThatIsLeftShowsNothing) {
    StoreScanner("Lane2", Stored::Serial);
    Start();
    StoreScanner("lane", Stored::Serial);
    devices_.Add(DeviceClass::Scanner, "lane", devices_.Item(DeviceClass::Scanner, "Lane2"));
    names_.AddDeviceName(DeviceClass::Scanner, "lane");
    Delete("lane");
    ExpectListed(DeviceClass::Scanner, {"lane"});
    EXPECT_EQ(List("lstExistingDeviceName_0").Text(), "lane");
    EXPECT_EQ(List("lstExistingInterface").ListIndex(), -1);
    EXPECT_FALSE(Button("cmdExistingProgram").isEnabled());
    const ExpectBox error("Ravlin", "Invalid procedure call or argument (there is no Scanner profile lane)\r\n\r\n"
                                    "Error Number: 5");
    Click(Button("cmdExistingDelete"));
}

TEST_F(DeletingAProfile, AKeyThatAnotherProgramDeletedIsReportedOnce) {
    StoreScanner("A", Stored::Serial);
    StoreScanner("B", Stored::Serial);
    Start();
    const auto tree = registry_.Tree();
    tree->DeleteKey(RegistryRoot::LocalMachine, "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\A");
    tree->Commit();
    {
        const ExpectBox question("Delete Profile?", "Are you sure you wish to delete this profile (A)?",
                                 QMessageBox::Yes);
        const ExpectBox error("Ravlin", TextOfDeletingScanner("A") + "\r\n\r\nError Number: -2147220987");
        Click(Button("cmdExistingDelete"));
    }
    EXPECT_TRUE(devices_.Contains(DeviceClass::Scanner, "A"));
    ExpectListed(DeviceClass::Scanner, {"A", "B"});
    Delete("B");
    ExpectListed(DeviceClass::Scanner, {"A"});
}

TEST_F(DeletingAProfile, ANameThatAListLacksIsReportedAndTheStepsBeforeStayDone) {
    StoreScanner("A", Stored::Serial);
    StoreScanner("B", Stored::Serial);
    Start();
    lists_[2].Clear();
    const ExpectBox question("Delete Profile?", "Are you sure you wish to delete this profile (A)?", QMessageBox::Yes);
    const ExpectBox deleted("Profile Deleted", "Device profile successfully deleted.");
    const ExpectBox error("Ravlin", "Invalid procedure call or argument ( has no such item)\r\n\r\nError Number: 5");
    Click(Button("cmdExistingDelete"));
    EXPECT_EQ(StoredScanners(), std::vector<std::string>{"B"});
    EXPECT_FALSE(devices_.Contains(DeviceClass::Scanner, "A"));
    EXPECT_EQ(Items(lists_[0]), QStringList("B"));
    EXPECT_EQ(Items(lists_[4]), QStringList({"A", "B"}));
}

TEST_F(DeletingAProfile, ANameWithBackslashesIsAKeyBelowAnother) {
    StoreScanner("Till", Stored::Serial);
    Start();
    StoreScanner("Till\\1", Stored::Serial);
    devices_.Add(DeviceClass::Scanner, "Till\\1", devices_.Item(DeviceClass::Scanner, "Till"));
    names_.AddDeviceName(DeviceClass::Scanner, "Till\\1");
    Delete("Till\\1");
    EXPECT_EQ(StoredScanners(), std::vector<std::string>{"Till"});
    EXPECT_FALSE(registry_.HasKey("SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\Till\\1"));
}
