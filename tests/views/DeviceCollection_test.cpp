#include "views/DeviceCollection.h"

#include "profiles/CGenericScale.h"
#include "profiles/CGenericScanner.h"
#include "profiles/CScanner2.h"
#include "profiles/NumberedError.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

namespace {

std::uint32_t NumberOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const NumberedError& error) {
        return error.Number();
    }
    return 0;
}

} // namespace

TEST(DeviceCollection, HoldsAScannerAndAScaleOfTheSameName) {
    DeviceCollection devices;
    const auto scanner = std::make_shared<CGenericScanner>();
    const auto scale = std::make_shared<CGenericScale>();
    devices.Add(DeviceClass::Scanner, "Lane 1", scanner);
    devices.Add(DeviceClass::Scale, "Lane 1", scale);
    EXPECT_EQ(devices.Item(DeviceClass::Scanner, "Lane 1"), scanner);
    EXPECT_EQ(devices.Item(DeviceClass::Scale, "Lane 1"), scale);
}

TEST(DeviceCollection, ComparesNamesWithoutCase) {
    DeviceCollection devices;
    devices.Add(DeviceClass::Scanner, QString::fromUtf8("Küche"), std::make_shared<CGenericScanner>());
    EXPECT_TRUE(devices.Contains(DeviceClass::Scanner, QString::fromUtf8("KÜCHE")));
    EXPECT_EQ(NumberOf([&] {
                  devices.Add(DeviceClass::Scanner, QString::fromUtf8("kÜche"), std::make_shared<CGenericScanner>());
              }),
              457U);
    EXPECT_EQ(devices.Entries().size(), 1U);
}

TEST(DeviceCollection, KeepsTheOrderInWhichProfilesWereAdded) {
    DeviceCollection devices;
    for (const char* name : {"c", "a", "b"})
        devices.Add(DeviceClass::Scanner, name, std::make_shared<CGenericScanner>());
    devices.Remove(DeviceClass::Scanner, "A");
    devices.Add(DeviceClass::Scanner, "a", std::make_shared<CGenericScanner>());
    QStringList names;
    for (const DeviceCollection::Entry& entry : devices.Entries())
        names << entry.name;
    EXPECT_EQ(names, QStringList({"c", "b", "a"}));
}

TEST(DeviceCollection, AReplacedProfileGoesToTheEndAndIsHeldByItsTestOnly) {
    TemporaryRegistry registry;
    DeviceCollection devices;
    for (const char* name : {"held", "free", "last"})
        devices.Add(DeviceClass::Scanner, name, std::make_shared<CScanner2>(registry));
    devices.Item(DeviceClass::Scanner, "held")->InUse(true);
    for (const char* name : {"HELD", "free"})
        devices.Replace(DeviceClass::Scanner, name, std::make_shared<CScanner2>(registry));
    QStringList names;
    for (const DeviceCollection::Entry& entry : devices.Entries())
        names << entry.name;
    EXPECT_EQ(names, QStringList({"last", "HELD", "free"}));
    EXPECT_TRUE(devices.Item(DeviceClass::Scanner, "held")->InUse());
    EXPECT_FALSE(devices.Item(DeviceClass::Scanner, "free")->InUse());
}

TEST(DeviceCollection, RaisesAnErrorForAProfileThatItDoesNotHold) {
    DeviceCollection devices;
    devices.Add(DeviceClass::Scale, "Lane 1", std::make_shared<CGenericScale>());
    EXPECT_EQ(NumberOf([&] { (void)devices.Item(DeviceClass::Scanner, "Lane 1"); }), 5U);
    EXPECT_EQ(NumberOf([&] { devices.Remove(DeviceClass::Scanner, "Lane 1"); }), 5U);
    EXPECT_EQ(NumberOf([&] { devices.Replace(DeviceClass::Scanner, "Lane 1", std::make_shared<CGenericScanner>()); }),
              5U);
    EXPECT_FALSE(devices.Contains(DeviceClass::Scanner, "Lane 1"));
}
