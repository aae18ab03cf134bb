#include "profiles/CScanner2.h"

#include "profiles/NumberedError.h"
#include "profiles/ProfileTest.h"

#include <limits>

namespace {

class ScannerProfile : public ProfileTest {
protected:
    ScannerProfile() { scanner_.DeviceName("Lane"); }
    const std::string key_ = std::string(ScannerKey) + "Lane";
    CScanner2 scanner_{registry_};
};

using Values = std::vector<std::string>;

} // namespace

TEST_F(ScannerProfile, WritesItsValuesInTheirOrder) {
    scanner_.Model("Pelerin/3172");
    scanner_.SerialPort(4);
    scanner_.ScannerType(0);
    scanner_.SScaleType(2);
    scanner_.SWeightUnit(1);
    scanner_.SDisplay(1);
    EXPECT_FALSE(scanner_.SaveDevice(false));
    EXPECT_EQ(Written(), (Values{"=Tavrin.Opos.Scanner", "Description=Tavrin Device Instance, created DATE",
                                 "Model=Pelerin/3172", "Service=RavlinSO.dll", "Version=1.0.0.1", "Serial Port=4",
                                 "Scanner Version=0", "ScaleType=2", "WeightUnit=1", "Display=1"}));
}

TEST_F(ScannerProfile, WithoutPortHasNoPortValue) {
    for (const std::int16_t port : {std::int16_t{0}, std::int16_t{-1}}) {
        scanner_.SerialPort(port);
        scanner_.ScannerType(2);
        scanner_.SaveDevice(true);
        EXPECT_EQ(Stored(key_).size(), 9U);
        for (const RegistryValue& value : real_.Values(key_))
            EXPECT_NE(value.name, "Serial Port");
    }
}

TEST_F(ScannerProfile, ReadsItsValuesInTheirOrderAndCreatesNothing) {
    EXPECT_FALSE(scanner_.LoadDevice());
    EXPECT_EQ(registry_.Operations(),
              LoadOf(key_, {"Model", "Scanner Version", "Serial Port", "ScaleType", "WeightUnit", "Display"}));
    EXPECT_FALSE(real_.HasKey("SOFTWARE"));
}

TEST_F(ScannerProfile, OnUsbHasNoPortWhateverIsStored) {
    for (const char* const version : {"2", "3"}) {
        real_.Put(key_, "Scanner Version", version);
        real_.Put(key_, "Serial Port", "5");
        registry_.Clear();
        scanner_.LoadDevice();
        EXPECT_EQ(scanner_.SerialPort(), -1);
        EXPECT_EQ(registry_.Operations(),
                  LoadOf(key_, {"Model", "Scanner Version", "ScaleType", "WeightUnit", "Display"}))
            << "the port is not even read";
    }
}

TEST_F(ScannerProfile, OnASerialLineHasItsPort) {
    for (const char* const version : {"0", "1", "4", ""}) {
        real_.Put(key_, "Scanner Version", version);
        real_.Put(key_, "Serial Port", "5");
        scanner_.LoadDevice();
        EXPECT_EQ(scanner_.SerialPort(), 5) << version;
    }
}

TEST_F(ScannerProfile, LoadsWhatWasSaved) {
    scanner_.Model("Kasse \xC3\xBC");
    scanner_.SerialPort(64);
    scanner_.ScannerType(1);
    scanner_.SScaleType(2);
    scanner_.SWeightUnit(1);
    scanner_.SDisplay(1);
    scanner_.SaveDevice(true);
    CScanner2 loaded(registry_);
    loaded.DeviceName("lane");
    loaded.LoadDevice();
    EXPECT_EQ(loaded.Model(), "Kasse \xC3\xBC") << "the model is stored as it stands";
    EXPECT_EQ(loaded.SerialPort(), 64);
    EXPECT_EQ(loaded.ScannerType(), 1);
    EXPECT_EQ(loaded.SScaleType(), 2);
    EXPECT_EQ(loaded.SWeightUnit(), 1);
    EXPECT_EQ(loaded.SDisplay(), 1);
}

TEST_F(ScannerProfile, MissingValuesReadAsZero) {
    real_.Put(key_, "", "Tavrin.Opos.Scanner");
    scanner_.SDisplay(7);
    scanner_.LoadDevice();
    EXPECT_EQ(scanner_.Model(), "");
    EXPECT_EQ(scanner_.ScannerType(), 0);
    EXPECT_EQ(scanner_.SerialPort(), 0);
    EXPECT_EQ(scanner_.SScaleType(), 0);
    EXPECT_EQ(scanner_.SWeightUnit(), 0);
    EXPECT_EQ(scanner_.SDisplay(), 0);
}

TEST_F(ScannerProfile, TextInANumbersPlaceIsAnError) {
    const std::vector<std::pair<std::string, std::uint32_t>> texts = {{"x", 13}, {"-1", 13}, {"32768", 6}};
    for (const auto& [text, number] : texts) {
        real_.Put(key_, "Display", text);
        try {
            scanner_.LoadDevice();
            ADD_FAILURE() << text;
        } catch (const NumberedError& error) {
            EXPECT_EQ(error.Number(), number) << text;
        }
    }
}

TEST_F(ScannerProfile, AnUpdateWipesWhatTheKeyHeld) {
    real_.Put(key_, "Foreign", "1");
    real_.Put(key_ + "\\Sub", "Foreign", "1");
    scanner_.SaveDevice(true);
    EXPECT_EQ(real_.Text(key_, "Foreign"), "");
    EXPECT_TRUE(real_.SubKeys(key_).empty());
    EXPECT_EQ(Stored(key_).size(), 9U);
    EXPECT_EQ(registry_.Arguments("DeleteKey"), Values{"Lane"});
    EXPECT_EQ(registry_.Arguments("KeyPath"), (Values{key_, ScannerKey, key_}));
}

TEST_F(ScannerProfile, AnUpdateWipesAKeyThatHoldsOnlySubkeys) {
    real_.Put(key_ + "\\Sub", "Foreign", "1");
    scanner_.SaveDevice(true);
    EXPECT_TRUE(real_.SubKeys(key_).empty());
}

TEST_F(ScannerProfile, AnUpdateOfAnEmptyKeyDeletesNothing) {
    const auto tree = real_.Tree();
    tree->CreateKey(RegistryRoot::LocalMachine, key_);
    tree->Commit();
    scanner_.SaveDevice(true);
    EXPECT_TRUE(registry_.Arguments("DeleteKey").empty());
    EXPECT_EQ(registry_.Arguments("KeyPath"), Values{key_});
}

TEST_F(ScannerProfile, ASaveThatIsNoUpdateLeavesForeignValuesInPlace) {
    real_.Put(key_, "Foreign", "1");
    real_.Put(key_, "Model", "old");
    scanner_.Model("758");
    scanner_.SaveDevice(false);
    EXPECT_EQ(real_.Text(key_, "Foreign"), "1");
    EXPECT_EQ(real_.Text(key_, "Model"), "758");
    EXPECT_TRUE(registry_.Arguments("DeleteKey").empty());
}

TEST_F(ScannerProfile, IsAScannerOfItsClass) {
    EXPECT_EQ(scanner_.DeviceType(), 0);
    EXPECT_EQ(scanner_.ClassName(), "CScanner2");
}

TEST_F(ScannerProfile, KeepsSomeFieldsInMemoryOnly) {
    scanner_.LoggingLevel(3);
    scanner_.VendorEnforcement(1);
    scanner_.RX415Handling(1);
    scanner_.InUse(true);
    EXPECT_EQ(scanner_.LoggingLevel(), 3);
    EXPECT_EQ(scanner_.VendorEnforcement(), 1);
    EXPECT_EQ(scanner_.RX415Handling(), 1);
    EXPECT_TRUE(scanner_.InUse());
    scanner_.SaveDevice(true);
    EXPECT_EQ(Stored(key_).size(), 9U);
}

TEST_F(ScannerProfile, TheAttachedScaleAddsItsFlagsToTheProgrammingClass) {
    const std::vector<std::pair<std::string, int>> bases = {{"Pelerin/3172", 16}, {"Pelerin/3256", 32}};
    for (const auto& [model, base] : bases) {
        scanner_.Model(model);
        for (std::int16_t type = -1; type <= 3; ++type)
            for (std::int16_t unit = -1; unit <= 2; ++unit)
                for (std::int16_t display = -1; display <= 2; ++display) {
                    scanner_.SScaleType(type);
                    scanner_.SWeightUnit(unit);
                    scanner_.SDisplay(display);
                    int wanted = base;
                    if (type > 0)
                        wanted += 1;
                    if (type == 2)
                        wanted += 2;
                    if (unit == 1)
                        wanted += 4;
                    if (display == 1)
                        wanted += 8;
                    EXPECT_EQ(scanner_.ConfigurationType(), wanted);
                }
    }
    scanner_.Model("Pelerin/3172");
    scanner_.SScaleType(2);
    scanner_.SWeightUnit(1);
    scanner_.SDisplay(1);
    EXPECT_EQ(scanner_.ConfigurationType(), 31);
}

TEST_F(ScannerProfile, OtherModelsKnowNoScaleFlags) {
    scanner_.Model("Vanta/2315");
    scanner_.SScaleType(2);
    scanner_.SWeightUnit(1);
    scanner_.SDisplay(1);
    EXPECT_EQ(scanner_.ConfigurationType(), 6);
    scanner_.Model("unknown");
    EXPECT_EQ(scanner_.ConfigurationType(), 0);
}
