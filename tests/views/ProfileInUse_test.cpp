#include "views/ProfileInUse.h"

#include "profiles/NumberedError.h"
#include "views/TestSite.h"

#include <gtest/gtest.h>

TEST(ProfileInUse, MarksTheHeldProfileUntilItIsReleased) {
    TestSite site;
    const auto lane = site.Add<CScale2>("Lane");
    ProfileInUse inUse(site.devices, DeviceClass::Scale);
    inUse.Hold("Lane");
    EXPECT_TRUE(lane->InUse());
    inUse.Release();
    EXPECT_FALSE(lane->InUse());
}

TEST(ProfileInUse, LeavesMarksOfOthersAlone) {
    TestSite site;
    const auto lane = site.Add<CScanner2>("Lane");
    lane->InUse(true);
    ProfileInUse inUse(site.devices, DeviceClass::Scanner);
    inUse.Release();
    EXPECT_TRUE(lane->InUse());
}

TEST(ProfileInUse, ToleratesThatTheHeldProfileIsGone) {
    TestSite site;
    site.Add<CScanner2>("Lane");
    ProfileInUse inUse(site.devices, DeviceClass::Scanner);
    inUse.Hold("Lane");
    site.devices.Remove(DeviceClass::Scanner, "Lane");
    EXPECT_NO_THROW(inUse.Release());
}

TEST(ProfileInUse, RefusesAProfileThatIsNotThere) {
    TestSite site;
    ProfileInUse inUse(site.devices, DeviceClass::Scanner);
    EXPECT_THROW(inUse.Hold("Lane"), NumberedError);
}
