#include "profiles/UsbNotice.h"

#include "profiles/OptionLists.h"

namespace {

constexpr const char* AskRepresentative =
    "  Please contact a Tavrin representative if you require assistance with that.";

std::string Notice(int interfaceIndex, const char* means) {
    return "If not already configured for use with Ravlin, your " +
           std::string(OptionLists::UsbInterfaceWord(interfaceIndex)) +
           " scanner must be configured by the scanning of " + means + '.' + AskRepresentative;
}

} // namespace

std::string UsbProgramNotice(int interfaceIndex) {
    return Notice(interfaceIndex, "a bar code menu");
}

std::string UsbSetupNotice(int interfaceIndex) {
    std::string text = Notice(interfaceIndex, "a bar code or a menu of bar codes");
    if (interfaceIndex == 2)
        text +=
            std::string("\r\n\r\nNote that your POS USB scanner also requires you to have installed a POS USB driver, "
                        "separate from the Ravlin OPOS driver.  POS USB drivers are available from the downloads "
                        "section of the Tavrin web site.") +
            AskRepresentative;
    return text;
}
