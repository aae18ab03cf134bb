#include "platform/opos/StatisticsReport.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::string_view Head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                                  "<UPOSStat version=\"1.8.0\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                  "xmlns=\"http://www.nrf-arts.org/IXRetail/namespace/\" "
                                  "xsi:schemaLocation=\"http://www.nrf-arts.org/IXRetail/namespace/ UPOSStat.xsd\">";

std::string Escaped(std::string_view text) {
    std::string result;
    for (const char character : text) {
        if (character == '&')
            result += "&amp;";
        else if (character == '<')
            result += "&lt;";
        else if (character == '>')
            result += "&gt;";
        else if (static_cast<unsigned char>(character) >= ' ') // XML has no way to write the others
            result += character;
    }
    return result;
}

std::string Element(std::string_view name, std::string_view text) {
    const std::string tag(name);
    return '<' + tag + '>' + Escaped(text) + "</" + tag + '>';
}

std::string Entry(std::string_view name, bool makerDefined, std::string_view value) {
    const std::string_view tag = makerDefined ? "ManufacturerSpecific" : "Parameter";
    return '<' + std::string(tag) + '>' + Element("Name", name) + Element("Value", value) + "</" + std::string(tag) +
           '>';
}

std::vector<std::string_view> NamesIn(std::string_view request) {
    std::vector<std::string_view> names;
    while (true) {
        const auto comma = request.find(',');
        std::string_view name = request.substr(0, comma);
        const auto first = name.find_first_not_of(" \t\r\n");
        name = first == std::string_view::npos ? "" : name.substr(first, name.find_last_not_of(" \t\r\n") - first + 1);
        if (!name.empty())
            names.push_back(name);
        if (comma == std::string_view::npos)
            return names;
        request.remove_prefix(comma + 1);
    }
}

std::vector<std::pair<std::string_view, std::string>> EquipmentElements(const Equipment& equipment) {
    return {
        {"UnifiedPOSVersion", "1.8"},
        {"DeviceCategory", equipment.deviceCategory},
        {"ManufacturerName", equipment.manufacturerName},
        {"ModelName", equipment.modelName},
        {"SerialNumber", ""},
        {"ManufactureDate", ""},
        {"MechanicalRevision", ""},
        {"FirmwareRevision", ""},
        {"Interface", equipment.interface},
        {"InstallationDate", equipment.installationDate},
    };
}

} // namespace

std::string StatisticsDocument(const std::vector<Statistic>& statistics, const Equipment& equipment,
                               std::string_view request) {
    const std::vector<std::string_view> names = NamesIn(request);
    const auto asked = [&names](std::string_view name) { return std::ranges::find(names, name) != names.end(); };
    const auto elements = EquipmentElements(equipment);
    std::string document(Head);
    document += "<Event>";
    for (const Statistic& statistic : statistics)
        if (names.empty() || asked(statistic.makerDefined ? "M_" : "U_") || asked(statistic.name))
            document += Entry(statistic.name, statistic.makerDefined, statistic.value);
    for (const std::string_view name : names) {
        const bool known = name == "U_" || name == "M_" ||
                           std::ranges::find(statistics, name, &Statistic::name) != statistics.end() ||
                           std::ranges::any_of(elements, [name](const auto& element) { return element.first == name; });
        if (!known)
            document += Entry(name, false, "");
    }
    document += "</Event><Equipment>";
    for (const auto& [name, value] : elements)
        document +=
            name == "DeviceCategory" ? "<DeviceCategory UPOS=\"" + Escaped(value) + "\"/>" : Element(name, value);
    return document + "</Equipment></UPOSStat>";
}
