#include "dialogs/StatisticsText.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <utility>

namespace {

bool Has(const std::string& tag, const char* text) {
    return tag.find(text) != std::string::npos;
}

// The indenting as it is described: in place, character by character, the length taken anew at each break.
std::string IndentInPlace(std::string buffer) {
    int level = 0;
    std::string token;
    std::size_t length = buffer.size();
    for (std::size_t i = 0; i < length; ++i) {
        if (buffer[i] == '<')
            token.clear();
        if (buffer[i] == '<' || !token.empty())
            token += buffer[i];
        if (token.size() < 2 || token.back() != '>')
            continue;
        const std::string tag = std::exchange(token, {});
        const bool closingFollows = buffer.compare(i + 1, 2, "</") == 0;
        bool breaks = true;
        if (Has(tag, "xml") && Has(tag, "UPOSStat")) {
            level += 3;
        } else if (Has(tag, "xml")) {
            breaks = false;
        } else if (Has(tag, "<Event>")) {
            level += 3;
        } else if (Has(tag, "</Event>")) {
        } else if (Has(tag, "<Parameter>")) {
            level += 3;
        } else if (Has(tag, "</Parameter>")) {
            level -= closingFollows ? 3 : 0;
        } else if (Has(tag, "<ManufacturerSpecific>")) {
            level += closingFollows ? 0 : 3;
        } else if (Has(tag, "</ManufacturerSpecific>")) {
            level -= 3;
        } else if (Has(tag, "<Equipment>")) {
            level += 3;
        } else if (Has(tag, "</Equipment>")) {
            level -= 3;
        } else if (Has(tag, "</Value>")) {
            level -= closingFollows ? 3 : 0;
        } else if (Has(tag, "</InstallationDate")) {
            level -= 3;
        } else if (Has(tag, "/") && Has(tag, ">")) {
            level -= closingFollows ? 3 : 0;
        } else {
            breaks = false;
        }
        if (!breaks)
            continue;
        level = std::max(level, 0);
        buffer.insert(i + 1, "\r" + std::string(static_cast<std::size_t>(level), ' '));
        length = buffer.size();
    }
    return buffer;
}

const std::string Document =
    R"(<?xml version="1.0"?><UPOSStat version="1.8" xmlns="http://www.nrf-arts.org/IXRetail/namespace/"><Event>)"
    "<Parameter><Name>HoursPoweredCount</Name><Value>12</Value></Parameter>"
    "<Parameter><Name>GoodScanCount</Name><Value>7</Value></Parameter>"
    "<ManufacturerSpecific></ManufacturerSpecific></Event>"
    "<Equipment><UnifiedPOSVersion>1.8</UnifiedPOSVersion><DeviceCategory UPOS=\"Scanner\"/>"
    "<InstallationDate>2001-02-03</InstallationDate></Equipment></UPOSStat>";

} // namespace

TEST(IndentStatistics, IndentsADocumentAsDescribed) {
    EXPECT_EQ(IndentStatistics(Document),
              R"(<?xml version="1.0"?><UPOSStat version="1.8" xmlns="http://www.nrf-arts.org/IXRetail/namespace/">)"
              "\r   <Event>"
              "\r      <Parameter>"
              "\r         <Name>HoursPoweredCount</Name>"
              "\r         <Value>12</Value>"
              "\r      </Parameter>"
              "\r      <Parameter>"
              "\r         <Name>GoodScanCount</Name>"
              "\r         <Value>7</Value>"
              "\r      </Parameter>"
              "\r      <ManufacturerSpecific>"
              "\r      </ManufacturerSpecific>"
              "\r   </Event>"
              "\r   <Equipment>"
              "\r      <UnifiedPOSVersion>1.8</UnifiedPOSVersion>"
              "\r      <DeviceCategory UPOS=\"Scanner\"/>"
              "\r      <InstallationDate>2001-02-03</InstallationDate>"
              "\r   </Equipment>"
              "\r</UPOSStat>"
              "\r");
}

TEST(IndentStatistics, LeavesAnEmptyReplyEmpty) {
    EXPECT_EQ(IndentStatistics(""), "");
}

TEST(IndentStatistics, LeavesATextWithoutTagsAsItIs) {
    EXPECT_EQ(IndentStatistics("U_, M_ 1 > 0 >"), "U_, M_ 1 > 0 >");
}

TEST(IndentStatistics, BreaksBehindADeclarationOnlyWhereItNamesTheStatistics) {
    EXPECT_EQ(IndentStatistics("<?xml version=\"1.0\"?><A>"), "<?xml version=\"1.0\"?><A>");
    EXPECT_EQ(IndentStatistics("<?xml UPOSStat?><A>"), "<?xml UPOSStat?>\r   <A>");
}

TEST(IndentStatistics, NeverIndentsBelowZeroAndForgetsWhatWasMissing) {
    EXPECT_EQ(IndentStatistics("</Equipment></Equipment><Event>x"), "</Equipment>\r</Equipment>\r<Event>\r   x");
}

TEST(IndentStatistics, KeepsTheLevelBehindAnEmptyManufacturerSection) {
    EXPECT_EQ(IndentStatistics("<ManufacturerSpecific></A>"), "<ManufacturerSpecific>\r</A>\r");
    EXPECT_EQ(IndentStatistics("<ManufacturerSpecific><A>"), "<ManufacturerSpecific>\r   <A>");
}

TEST(IndentStatistics, TakesTextFromOneOpeningToTheNextClosingBracketAsATag) {
    EXPECT_EQ(IndentStatistics("a<b<Event>>c"), "a<b<Event>\r   >c");
    EXPECT_EQ(IndentStatistics("<>/>"), "<>/>");
    EXPECT_EQ(IndentStatistics("<Event"), "<Event");
}

TEST(IndentStatistics, GivesWhatTheScanInPlaceGivesForAnyText) {
    constexpr std::array<const char*, 24> Pieces = {"<Event>",
                                                    "</Event>",
                                                    "<Parameter>",
                                                    "</Parameter>",
                                                    "<Value>",
                                                    "</Value>",
                                                    "</",
                                                    "<",
                                                    ">",
                                                    "/",
                                                    "<Equipment>",
                                                    "</Equipment>",
                                                    "xml",
                                                    "UPOSStat",
                                                    "<xml>",
                                                    "<xml UPOSStat>",
                                                    "<A/>",
                                                    "</A>",
                                                    "<A>",
                                                    "</InstallationDate >",
                                                    "\r",
                                                    "  7",
                                                    "<ManufacturerSpecific>",
                                                    "</ManufacturerSpecific>"};
    std::mt19937 random(20);
    std::uniform_int_distribution<std::size_t> piece(0, Pieces.size() - 1);
    std::uniform_int_distribution<int> count(0, 60);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (int i = count(random); i > 0; --i)
            text += Pieces.at(piece(random));
        ASSERT_EQ(IndentStatistics(text), IndentInPlace(text)) << text;
    }
}

TEST(IndentStatistics, FollowsTheScanInPlaceThroughAWholeDocument) {
    EXPECT_EQ(IndentStatistics(Document), IndentInPlace(Document));
}
