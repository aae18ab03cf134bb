#include "views/DeviceNameLists.h"

#include "profiles/CGenericScale.h"
#include "profiles/CGenericScanner.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/NumberedError.h"
#include "support/TemporaryRegistry.h"
#include "support_widgets/Controls.h"
#include "views/DeviceCollection.h"

#include <gtest/gtest.h>

namespace {

class NameLists : public ::testing::Test {
protected:
    // Every list of a device class, Modify Profile's first.
    std::array<DropDownList*, 4> Of(std::size_t deviceType) {
        return {&lists_[deviceType], &lists_[2 + deviceType], &lists_[4 + deviceType], &lists_[6 + deviceType]};
    }

    TemporaryRegistry registry_;
    std::array<DropDownList, 8> lists_;
    DeviceNameLists names_{
        {{&lists_[0], &lists_[1]}, {&lists_[2], &lists_[3]}, {&lists_[4], &lists_[5]}, {&lists_[6], &lists_[7]}}};
};

} // namespace

TEST_F(NameLists, AreFilledInTheOrderOfTheCollectionWithoutASelection) {
    DeviceCollection devices;
    devices.Add(DeviceClass::Scanner, "B", std::make_shared<CScanner2>(registry_));
    devices.Add(DeviceClass::Scanner, "A", std::make_shared<CScanner2>(registry_));
    devices.Add(DeviceClass::Scale, "S", std::make_shared<CScale2>(registry_));
    lists_[0].AddItem("left over");
    names_.FillDeviceNameLists(devices);
    for (DropDownList* list : Of(0)) {
        EXPECT_EQ(Items(*list), QStringList({"B", "A"}));
        EXPECT_EQ(list->ListIndex(), -1);
    }
    for (DropDownList* list : Of(1))
        EXPECT_EQ(Items(*list), QStringList({"S"}));
}

TEST_F(NameLists, OfferForeignProfilesForTestsButNotForModification) {
    DeviceCollection devices;
    devices.Add(DeviceClass::Scanner, "Foreign scanner", std::make_shared<CGenericScanner>());
    devices.Add(DeviceClass::Scale, "Foreign scale", std::make_shared<CGenericScale>());
    names_.FillDeviceNameLists(devices);
    for (const std::size_t type : {0U, 1U}) {
        EXPECT_EQ(Of(type)[0]->ListCount(), 0);
        for (const std::size_t family : {1U, 2U, 3U})
            EXPECT_EQ(Items(*Of(type)[family]), QStringList(type == 0 ? "Foreign scanner" : "Foreign scale"));
    }
}

TEST_F(NameLists, SelectANameThatIsTheOnlyOneAndKeepOtherSelections) {
    lists_[0].AddItem("A");
    lists_[0].AddItem("B");
    lists_[0].SetListIndex(1);
    names_.AddDeviceName(DeviceClass::Scanner, "N");
    names_.SelectOnlyItems(DeviceClass::Scanner);
    EXPECT_EQ(lists_[0].Text(), "B");
    for (const std::size_t family : {1U, 2U, 3U})
        EXPECT_EQ(Of(0)[family]->Text(), "N");
    for (DropDownList* list : Of(1))
        EXPECT_EQ(list->ListCount(), 0);
}

TEST_F(NameLists, RemoveTheFirstNameThatBeginsWithTheOneRemoved) {
    for (const char* name : {"First", "Lane2", "lane"})
        names_.AddDeviceName(DeviceClass::Scanner, name);
    names_.RemoveDeviceName(DeviceClass::Scanner, "Lane");
    for (DropDownList* list : Of(0)) {
        EXPECT_EQ(Items(*list), QStringList({"First", "lane"}));
        EXPECT_EQ(list->ListIndex(), 0);
    }
}

TEST_F(NameLists, AnEmptiedListIsLeftWithoutASelection) {
    names_.AddDeviceName(DeviceClass::Scale, "Only");
    names_.SelectOnlyItems(DeviceClass::Scale);
    names_.RemoveDeviceName(DeviceClass::Scale, "Only");
    for (DropDownList* list : Of(1)) {
        EXPECT_EQ(list->ListCount(), 0);
        EXPECT_EQ(list->ListIndex(), -1);
    }
}

TEST_F(NameLists, RaiseAnErrorForANameThatAListDoesNotHold) {
    EXPECT_THROW(names_.RemoveDeviceName(DeviceClass::Scanner, "Nobody"), NumberedError);
}
