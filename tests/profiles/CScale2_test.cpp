#include "profiles/CScale2.h"

#include "profiles/ProfileTest.h"

namespace {

class ScaleProfile : public ProfileTest {
protected:
    ScaleProfile() { scale_.DeviceName("Lane"); }
    const std::string key_ = std::string(ScaleKey) + "Lane";
    CScale2 scale_{registry_};
};

using Values = std::vector<std::string>;

} // namespace

TEST_F(ScaleProfile, WritesItsValuesInTheirOrder) {
    scale_.SerialPort(1);
    scale_.Display(1);
    scale_.WeightUnit(1);
    EXPECT_FALSE(scale_.SaveDevice(false));
    EXPECT_EQ(Written(),
              (Values{"=Tavrin.Opos.Scale", "Description=Tavrin Device Instance, created DATE", "Display=1",
                      "WeightUnit=1", "Service=RavlinSO.dll", "Version=1.0.0.1", "Serial Port=1", "Scale Version=0"}));
}

TEST_F(ScaleProfile, WithoutPortIsStoredAsUsb) {
    for (const std::int16_t port : {std::int16_t{0}, std::int16_t{-1}}) {
        registry_.Clear();
        scale_.SerialPort(port);
        scale_.SaveDevice(true);
        EXPECT_EQ(Written(),
                  (Values{"=Tavrin.Opos.Scale", "Description=Tavrin Device Instance, created DATE", "Display=0",
                          "WeightUnit=0", "Service=RavlinSO.dll", "Version=1.0.0.1", "Scale Version=2"}));
        scale_.LoadDevice();
        EXPECT_EQ(scale_.SerialPort(), 0);
    }
}

TEST_F(ScaleProfile, AnUpdateFromSerialToUsbRemovesThePort) {
    scale_.SerialPort(3);
    scale_.SaveDevice(true);
    scale_.SerialPort(0);
    scale_.SaveDevice(true);
    EXPECT_EQ(real_.Text(key_, "Serial Port"), "");
    EXPECT_EQ(Stored(key_).size(), 7U);
}

TEST_F(ScaleProfile, ReadsItsValuesInTheirOrderAndCreatesNothing) {
    EXPECT_FALSE(scale_.LoadDevice());
    EXPECT_EQ(registry_.Operations(), LoadOf(key_, {"Serial Port", "Display", "WeightUnit"}));
    EXPECT_FALSE(real_.HasKey("SOFTWARE"));
}

TEST_F(ScaleProfile, LoadsWhatWasSavedAndMissingValuesAsZero) {
    scale_.SerialPort(7);
    scale_.Display(1);
    scale_.WeightUnit(1);
    scale_.SaveDevice(true);
    CScale2 loaded(registry_);
    loaded.DeviceName("Lane");
    loaded.LoadDevice();
    EXPECT_EQ(loaded.SerialPort(), 7);
    EXPECT_EQ(loaded.Display(), 1);
    EXPECT_EQ(loaded.WeightUnit(), 1);
    real_.Put(std::string(ScaleKey) + "Bare", "", "Tavrin.Opos.Scale");
    loaded.DeviceName("Bare");
    loaded.LoadDevice();
    EXPECT_EQ(loaded.SerialPort(), 0);
    EXPECT_EQ(loaded.Display(), 0);
    EXPECT_EQ(loaded.WeightUnit(), 0);
}

TEST_F(ScaleProfile, AScannerAndAScaleMayHaveOneName) {
    real_.Put(std::string(ScannerKey) + "Lane", "Model", "758");
    scale_.SaveDevice(true);
    EXPECT_EQ(real_.Text(std::string(ScannerKey) + "Lane", "Model"), "758");
}

TEST_F(ScaleProfile, IsASingleCableScaleOfItsClass) {
    EXPECT_EQ(scale_.DeviceType(), 1);
    EXPECT_EQ(scale_.ConfigurationType(), 5);
    EXPECT_EQ(scale_.ScaleType(), 1);
    EXPECT_EQ(scale_.ClassName(), "CScale2");
}

TEST_F(ScaleProfile, KeepsSomeFieldsInMemoryOnly) {
    scale_.LoggingLevel(3);
    scale_.VendorEnforcement(1);
    scale_.InUse(true);
    EXPECT_EQ(scale_.LoggingLevel(), 3);
    EXPECT_EQ(scale_.VendorEnforcement(), 1);
    EXPECT_TRUE(scale_.InUse());
    scale_.SaveDevice(true);
    EXPECT_EQ(Stored(key_).size(), 7U);
}
