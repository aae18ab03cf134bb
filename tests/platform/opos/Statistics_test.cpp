#include "platform/opos/DeviceCounters.h"
#include "platform/opos/StatisticsReport.h"

#include "support/ScopedVariable.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

const Equipment Scanner{"Scanner", "Maker & Sons", "Pelerin/3172", "RS232", "2026-11-21"};
const std::vector<Statistic> Counts{
    {"HoursPoweredCount", false, "7"}, {"GoodScanCount", false, "12"}, {"DiscardedLabelCount", true, "1"}};

constexpr std::string_view GoodScans = "<Parameter><Name>GoodScanCount</Name><Value>12</Value></Parameter>";
constexpr std::string_view Discarded =
    "<ManufacturerSpecific><Name>DiscardedLabelCount</Name><Value>1</Value></ManufacturerSpecific>";

bool Holds(const std::string& document, std::string_view part) {
    return document.find(part) != std::string::npos;
}

std::string Ask(std::string_view request) {
    return StatisticsDocument(Counts, Scanner, request);
}

} // namespace

TEST(Statistics, AreOneDocumentOfEventAndEquipment) {
    EXPECT_EQ(Ask(""),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?><UPOSStat version=\"1.8.0\" "
              "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
              "xmlns=\"http://www.nrf-arts.org/IXRetail/namespace/\" "
              "xsi:schemaLocation=\"http://www.nrf-arts.org/IXRetail/namespace/ UPOSStat.xsd\">"
              "<Event><Parameter><Name>HoursPoweredCount</Name><Value>7</Value></Parameter>"
              "<Parameter><Name>GoodScanCount</Name><Value>12</Value></Parameter>"
              "<ManufacturerSpecific><Name>DiscardedLabelCount</Name><Value>1</Value></ManufacturerSpecific></Event>"
              "<Equipment><UnifiedPOSVersion>1.8</UnifiedPOSVersion><DeviceCategory UPOS=\"Scanner\"/>"
              "<ManufacturerName>Maker &amp; Sons</ManufacturerName><ModelName>Pelerin/3172</ModelName>"
              "<SerialNumber></SerialNumber><ManufactureDate></ManufactureDate>"
              "<MechanicalRevision></MechanicalRevision><FirmwareRevision></FirmwareRevision>"
              "<Interface>RS232</Interface><InstallationDate>2026-11-21</InstallationDate></Equipment></UPOSStat>");
}

TEST(Statistics, OfTheStandardAloneLeaveOutTheMakers) {
    EXPECT_TRUE(Holds(Ask("U_"), GoodScans));
    EXPECT_FALSE(Holds(Ask("U_"), Discarded));
}

TEST(Statistics, OfTheMakerAloneLeaveOutTheStandard) {
    EXPECT_FALSE(Holds(Ask("M_"), GoodScans));
    EXPECT_TRUE(Holds(Ask("M_"), Discarded));
}

TEST(Statistics, ByNameAreTheNamedOnes) {
    const std::string document = Ask(" GoodScanCount , DiscardedLabelCount,ModelName");
    EXPECT_TRUE(Holds(document, GoodScans));
    EXPECT_TRUE(Holds(document, Discarded));
    EXPECT_FALSE(Holds(document, "HoursPoweredCount"));
    EXPECT_FALSE(Holds(document, "<Value></Value>"));
}

TEST(Statistics, WithAnUnknownNameComeBackWithoutValue) {
    EXPECT_TRUE(Holds(Ask("Coffee<Count>"), "<Parameter><Name>Coffee&lt;Count&gt;</Name><Value></Value></Parameter>"));
}

TEST(DeviceCounters, SurviveARestart) {
    const TemporaryDirectory directory;
    const auto file = directory.Path() / "deep" / "Scanner-Lane";
    DeviceCounters counters(file);
    counters.Count(Counter::GoodScans, 41);
    counters.Count(Counter::GoodScans);
    counters.Count(Counter::PoweredSeconds, 3600);
    EXPECT_TRUE(counters.Save());
    DeviceCounters again(file);
    again.Load();
    EXPECT_EQ(again.Value(Counter::GoodScans), 42U);
    EXPECT_EQ(again.Value(Counter::PoweredSeconds), 3600U);
    EXPECT_EQ(again.Value(Counter::CommunicationErrors), 0U);
}

TEST(DeviceCounters, CountFromZeroWhereTheFileIsDamaged) {
    const TemporaryDirectory directory;
    const auto file = directory.Path() / "counters";
    std::ofstream(file) << "GoodScans twelve\n\nGoodWeightReads 99999999999999999999999\nDiscardedLabels 3\nrubbish";
    DeviceCounters counters(file);
    counters.Load();
    EXPECT_EQ(counters.Value(Counter::GoodScans), 0U);
    EXPECT_EQ(counters.Value(Counter::GoodWeightReads), 0U);
    EXPECT_EQ(counters.Value(Counter::DiscardedLabels), 3U);
}

TEST(DeviceCounters, StandWhenTheyCannotBeSaved) {
    const TemporaryDirectory directory;
    std::ofstream(directory.Path() / "occupied") << "a file";
    DeviceCounters counters(directory.Path() / "occupied" / "counters");
    counters.Count(Counter::GoodScans);
    EXPECT_FALSE(counters.Save());
    EXPECT_EQ(counters.Value(Counter::GoodScans), 1U);
}

TEST(DeviceCounters, LieInTheStateDirectory) {
    {
        const ScopedVariable state("XDG_STATE_HOME", "/state");
        EXPECT_EQ(DeviceCounters::FileOf("Scanner", "Lane 1"), "/state/ravlin/statistics/Scanner-Lane%201");
    }
    const ScopedVariable state("XDG_STATE_HOME", "");
    const ScopedVariable home("HOME", "/home/clerk");
    EXPECT_EQ(DeviceCounters::FileOf("Scale", "A"), "/home/clerk/.local/state/ravlin/statistics/Scale-A");
}
