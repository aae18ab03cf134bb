#include "profiles/OptionLists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

template<typename List>
std::vector<std::string> Items(const List& list) {
    return {list.begin(), list.end()};
}

using Texts = std::vector<std::string>;

} // namespace

TEST(OptionLists, HoldTheirItemsInTheOrderThatProfilesStore) {
    EXPECT_EQ(Items(OptionLists::DeviceClasses), (Texts{"Scanner", "Scale"}));
    EXPECT_EQ(Items(OptionLists::Interfaces), (Texts{"RS232", "Full Speed USB", "POS USB"}));
    EXPECT_EQ(Items(OptionLists::AttachedScales), (Texts{"None", "Single-Cable", "Dual-Cable"}));
    EXPECT_EQ(Items(OptionLists::ScaleTypes), (Texts{"Single-Cable", "Dual-Cable"}));
    EXPECT_EQ(Items(OptionLists::WeightUnits), (Texts{"English", "Metric"}));
    EXPECT_EQ(Items(OptionLists::ScaleDisplays), (Texts{"No", "Yes"}));
    EXPECT_EQ(Items(OptionLists::LogLevels),
              (Texts{"None", "Errors", "Warnings", "Information", "Function Trace", "Function Data"}));
}

TEST(OptionLists, PortsGoToSixtyFour) {
    EXPECT_EQ(OptionLists::LastComPort, 64);
    EXPECT_EQ(OptionLists::Interfaces.at(OptionLists::SerialInterface), "RS232");
}

TEST(OptionLists, MessagesHaveTheirOwnWordForTheFirstUsbInterface) {
    EXPECT_EQ(OptionLists::UsbInterfaceWord(1), "IBM OEM USB");
    EXPECT_EQ(OptionLists::UsbInterfaceWord(2), "POS USB");
}
