#include "lane/LaneCommands.h"

#include "lane/LaneError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace {

// The words of a command line, taken one by one.
class Words {
public:
    explicit Words(std::string_view line) : rest_(line) {}

    // The next word, empty when there is none.
    std::string Next() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
        const std::string_view word = rest_.substr(0, rest_.find(' '));
        rest_.remove_prefix(word.size());
        return std::string(word);
    }
    // All behind the next blank, as it stands.
    std::string Rest() {
        rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
        return std::string(std::exchange(rest_, {}));
    }
    std::string Required(const char* what) {
        std::string word = Next();
        if (word.empty()) {
            throw LaneError(std::string(what) + " is missing");
        }
        return word;
    }
    void End() {
        if (const std::string word = Next(); !word.empty()) {
            throw LaneError("\"" + word + "\" is too much");
        }
    }

private:
    std::string_view rest_;
};

int Number(std::string_view text, const char* what) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
        throw LaneError("\"" + std::string(text) + "\" is not a " + what);
    }
    return number;
}

// "1" or "COM1".
int Port(Words& words) {
    constexpr int LastPort = 256;
    const std::string word = words.Required("the port");
    const std::string_view digits = std::string_view(word).substr(word.starts_with("COM") ? 3 : 0);
    const int port = Number(digits, "port");
    if (port < 1 || port > LastPort) {
        throw LaneError("the ports are COM1 to COM256");
    }
    return port;
}

bool OnOrOff(const std::string& word) {
    if (word != "on" && word != "off") {
        throw LaneError("\"" + word + "\" is neither on nor off");
    }
    return word == "on";
}

VirtualScale::Unit Unit(const std::string& word) {
    if (word != "kg" && word != "lb") {
        throw LaneError("\"" + word + "\" is not a unit; the units are kg and lb");
    }
    return word == "kg" ? VirtualScale::Unit::Kilogram : VirtualScale::Unit::Pound;
}

std::string Scanner(Lane& lane, Words& words) {
    const int port = Port(words);
    const int programmingClass = Number(words.Required("the programming class"), "programming class");
    const std::string firmware = words.Next();
    words.End();
    lane.PutScanner(port, programmingClass, firmware);
    return {};
}

std::string Scan(Lane& lane, Words& words) {
    const int port = Port(words);
    lane.Scan(port, words.Rest());
    return {};
}

std::string Weight(Lane& lane, Words& words) {
    const int port = Port(words);
    const std::string text = words.Required("the weight");
    const VirtualScale::Unit unit = Unit(words.Required("the unit, kg or lb,"));
    words.End();
    lane.Weigh(port, text, unit);
    return {};
}

std::string Mute(Lane& lane, Words& words) {
    const int port = Port(words);
    const std::string word = words.Next();
    words.End();
    lane.Mute(port, word.empty() || OnOrOff(word));
    return {};
}

std::string Pace(Lane& lane, Words& words) {
    const bool paced = OnOrOff(words.Required("on or off"));
    words.End();
    lane.Pace(paced);
    return {};
}

std::string Block(Lane& lane, Words& words) {
    const int port = Port(words);
    words.End();
    return lane.Block(port);
}

std::string Quit(Lane&, Words& words) {
    words.End();
    return {};
}

// A command that takes a port and nothing else.
template<void (Lane::*Operation)(int)>
std::string AtPort(Lane& lane, Words& words) {
    const int port = Port(words);
    words.End();
    (lane.*Operation)(port);
    return {};
}

struct Command {
    std::string_view name;
    std::string_view arguments;
    std::string_view purpose;
    // Gives what stands behind "ok".
    std::string (*execute)(Lane&, Words&);
};

constexpr std::array Commands{
    Command{"scanner", "PORT CLASS [FIRMWARE]", "put a scanner of the programming class on the port", Scanner},
    Command{"scale", "PORT", "put a scale on the port; beside a scanner both share the line", AtPort<&Lane::PutScale>},
    Command{"scan", "PORT LABEL", "scan the label, sent as it stands with a carriage return", Scan},
    Command{"weight", "PORT WEIGHT UNIT", "lay a weight on the scale, in kg or lb", Weight},
    Command{"unstable", "PORT", "keep the scale moving until the next weight", AtPort<&Lane::BecomeUnstable>},
    Command{"power", "PORT", "switch the scanner off and on", AtPort<&Lane::Power>},
    Command{"mute", "PORT [on|off]", "let the port keep silent and hear nothing, or end that", Mute},
    Command{"refuse", "PORT", "let the scanner refuse the next configuration", AtPort<&Lane::RefuseNext>},
    Command{"block", "PORT", "print the scanner's stored configuration block", Block},
    Command{"unplug", "PORT", "take the port away", AtPort<&Lane::Unplug>},
    Command{"plug", "PORT", "plug what was unplugged in again", AtPort<&Lane::Plug>},
    Command{"pace", "on|off", "let bytes take their time, as at 9600 baud", Pace},
    Command{"quit", "", "take all ports away and end", Quit},
};

// Answers are lines: what came from the input must not break them.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return byte >= 0 && byte < ' '; }, '?');
    return text;
}

} // namespace

std::string ExecuteLaneCommand(Lane& lane, const std::string& line) {
    Words words(line);
    const std::string name = words.Next();
    try {
        for (const Command& command : Commands) {
            if (name == command.name) {
                const std::string result = command.execute(lane, words);
                return result.empty() ? "ok" : "ok " + result;
            }
        }
        throw LaneError("there is no command \"" + name + "\"");
    } catch (const std::exception& error) {
        return OneLine(std::string("error ") + error.what());
    }
}

bool IsQuit(const std::string& line) {
    Words words(line);
    return words.Next() == "quit" && words.Next().empty();
}

std::string LaneCommandHelp() {
    constexpr std::size_t Column = 32;
    std::string help;
    for (const Command& command : Commands) {
        std::string usage = std::string(command.name) + " " + std::string(command.arguments);
        usage.resize(Column, ' ');
        help += "  " + usage + std::string(command.purpose) + "\n";
    }
    return help;
}
