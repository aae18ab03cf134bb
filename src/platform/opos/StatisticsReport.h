// The statistics document that RetrieveStatistics gives.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Texts are UTF-8; what is not known stays empty.
struct Equipment {
    std::string deviceCategory; // "Scanner" or "Scale"
    std::string manufacturerName;
    std::string modelName;
    std::string interface;        // "RS232" or "USB"
    std::string installationDate; // YYYY-MM-DD
};

struct Statistic {
    std::string_view name;
    bool makerDefined = false;
    std::string value;
};

// The XML document of the statistics that the request asks for: "" all, "U_" the standard ones, "M_" the maker's, or
// names (of statistics or equipment) separated by commas, blanks around them apart. A name that is unknown comes back
// with an empty value. The equipment is always part of it.
[[nodiscard]] std::string StatisticsDocument(const std::vector<Statistic>& statistics, const Equipment& equipment,
                                             std::string_view request);
