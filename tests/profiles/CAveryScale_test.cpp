#include "profiles/CAveryScale.h"

#include "profiles/CScale2.h"
#include "profiles/NumberedError.h"
#include "profiles/ProfileTest.h"

namespace {

class AveryScaleProfile : public ProfileTest {
protected:
    AveryScaleProfile() { scale_.DeviceName("Lane"); }
    const std::string key_ = std::string(ScaleKey) + "Lane";
    CAveryScale scale_{registry_};
};

using Values = std::vector<std::string>;

} // namespace

TEST_F(AveryScaleProfile, WritesItsValuesInTheirOrder) {
    scale_.SerialPort(3);
    scale_.Display(1);
    scale_.WeightUnit(1);
    EXPECT_FALSE(scale_.SaveDevice(false));
    const Values wanted = {"=OPOS.A702.SCALE.SO", "Description=Service Object For A702 Scale",
                           "PORT=COM3",           "Display=1",
                           "WeightUnit=1",        "Service=a702so.dll",
                           "Version=1.5.0"};
    EXPECT_EQ(registry_.Arguments("WriteValue"), wanted);
    EXPECT_EQ(Stored(key_), wanted);
}

TEST_F(AveryScaleProfile, WritesItsPortEvenWhereThereIsNone) {
    scale_.SaveDevice(true);
    EXPECT_EQ(real_.Text(key_, "PORT"), "COM0");
    scale_.SerialPort(9);
    scale_.LoadDevice();
    EXPECT_EQ(scale_.SerialPort(), 0);
}

TEST_F(AveryScaleProfile, ReadsItsValuesInTheirOrderAndCreatesNothing) {
    EXPECT_FALSE(scale_.LoadDevice());
    EXPECT_EQ(registry_.Operations(), LoadOf(key_, {"PORT", "Display", "WeightUnit"}));
    EXPECT_FALSE(real_.HasKey("SOFTWARE"));
}

TEST_F(AveryScaleProfile, ThePortIsTheNumberBehindThreeCharacters) {
    const std::vector<std::pair<std::string, int>> ports = {{"COM12", 12}, {"COM3", 3}, {"COM", 0}, {"", 0}};
    for (const auto& [text, port] : ports) {
        real_.Put(key_, "PORT", text);
        scale_.LoadDevice();
        EXPECT_EQ(scale_.SerialPort(), port) << text;
    }
    real_.Put(key_, "PORT", "COMx");
    EXPECT_THROW(scale_.LoadDevice(), NumberedError);
}

TEST_F(AveryScaleProfile, MissingNumbersReadAsZero) {
    real_.Put(key_, "PORT", "COM3");
    scale_.Display(1);
    scale_.WeightUnit(1);
    scale_.LoadDevice();
    EXPECT_EQ(scale_.Display(), 0);
    EXPECT_EQ(scale_.WeightUnit(), 0);
}

TEST_F(AveryScaleProfile, AnUpdateRemovesWhatTheOtherKindOfScaleLeft) {
    CScale2 before(registry_);
    before.DeviceName("Lane");
    before.SaveDevice(true);
    EXPECT_EQ(real_.Text(key_, "Scale Version"), "2");
    scale_.SaveDevice(true);
    EXPECT_EQ(Stored(key_).size(), 7U);
    EXPECT_EQ(real_.Text(key_, "Scale Version"), "");
}

TEST_F(AveryScaleProfile, IsADualCableScaleWithoutProgramming) {
    EXPECT_EQ(scale_.DeviceType(), 1);
    EXPECT_EQ(scale_.ConfigurationType(), 0);
    EXPECT_EQ(scale_.ScaleType(), 2);
    EXPECT_EQ(scale_.ClassName(), "CAveryScale");
}
