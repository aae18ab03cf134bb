#include "dialogs/StatisticsText.h"

#include <algorithm>
#include <array>

namespace {

constexpr int Step = 3;

enum class Unless { Never, BeforeClosingTag, BeforeOtherThanClosingTag };

struct TagRule {
    std::string_view contains;
    std::string_view alsoContains;
    bool breaks;
    int levelChange;
    Unless unless; // where the level stays as it is
};

// The first rule that matches applies; a tag that none matches is not followed by a break.
constexpr std::array TagRules = {
    TagRule{"xml", "UPOSStat", true, Step, Unless::Never},
    TagRule{"xml", "", false, 0, Unless::Never},
    TagRule{"<Event>", "", true, Step, Unless::Never},
    TagRule{"</Event>", "", true, 0, Unless::Never},
    TagRule{"<Parameter>", "", true, Step, Unless::Never},
    TagRule{"</Parameter>", "", true, -Step, Unless::BeforeOtherThanClosingTag},
    TagRule{"<ManufacturerSpecific>", "", true, Step, Unless::BeforeClosingTag},
    TagRule{"</ManufacturerSpecific>", "", true, -Step, Unless::Never},
    TagRule{"<Equipment>", "", true, Step, Unless::Never},
    TagRule{"</Equipment>", "", true, -Step, Unless::Never},
    TagRule{"</Value>", "", true, -Step, Unless::BeforeOtherThanClosingTag},
    TagRule{"</InstallationDate", "", true, -Step, Unless::Never},
    TagRule{"/", ">", true, -Step, Unless::BeforeOtherThanClosingTag},
};

bool Contains(std::string_view tag, std::string_view text) {
    return tag.find(text) != std::string_view::npos;
}

bool LevelStays(Unless unless, bool beforeClosingTag) {
    return unless != Unless::Never && beforeClosingTag == (unless == Unless::BeforeClosingTag);
}

} // namespace

std::string IndentStatistics(std::string_view document) {
    std::string text;
    text.reserve(document.size() + document.size() / 2);
    int level = 0;
    std::size_t tagStart = std::string_view::npos;
    for (std::size_t i = 0; i < document.size(); ++i) {
        text += document[i];
        if (document[i] == '<')
            tagStart = i;
        if (document[i] != '>' || tagStart == std::string_view::npos)
            continue;
        const std::string_view tag = document.substr(tagStart, i + 1 - tagStart);
        tagStart = std::string_view::npos;
        const auto* rule = std::ranges::find_if(TagRules, [tag](const TagRule& candidate) {
            return Contains(tag, candidate.contains) && Contains(tag, candidate.alsoContains);
        });
        if (rule == TagRules.end() || !rule->breaks)
            continue;
        if (!LevelStays(rule->unless, document.substr(i + 1).starts_with("</")))
            level += rule->levelChange;
        level = std::max(level, 0);
        text += '\r';
        text.append(static_cast<std::size_t>(level), ' ');
    }
    return text;
}
