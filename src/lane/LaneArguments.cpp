#include "lane/LaneArguments.h"

#include "lane/LaneCommands.h"
#include "lane/LaneError.h"
#include "platform/serial/SerialPorts.h"

LaneArguments ParseLaneArguments(const std::vector<std::string>& arguments) {
    LaneArguments parsed;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const auto value = [&]() -> const std::string& {
            const auto option = argument++;
            if (argument == arguments.end() || argument->empty()) {
                throw LaneError(*option + " needs a value");
            }
            return *argument;
        };
        if (*argument == "--headless") {
            parsed.headless = true;
        } else if (*argument == "--verbose") {
            parsed.verbose = true;
        } else if (*argument == "--pace") {
            parsed.options.paced = true;
        } else if (*argument == "--help" || *argument == "-h") {
            parsed.help = true;
        } else if (*argument == "--version") {
            parsed.version = true;
        } else if (*argument == "--ports") {
            parsed.options.directory = value();
        } else if (*argument == "--do") {
            parsed.commands.push_back(value());
        } else {
            throw LaneError("there is no option " + *argument);
        }
    }
    if (parsed.options.directory.empty() && !parsed.help && !parsed.version) {
        const auto own = UserSerialPortDirectory();
        if (!own) {
            throw LaneError("there is no port directory; name one with --ports or in the variable RAVLIN_PORTS");
        }
        parsed.options.directory = *own;
    }
    return parsed;
}

std::string LaneUsage() {
    return "Usage: ravlin-lane [--headless] [--ports DIR] [--pace] [--verbose] [--do COMMAND]...\n"
           "Virtual scanners and scales on virtual serial ports.\n\n"
           "  --headless     no window: commands on standard input, an answer for each on standard output\n"
           "  --ports DIR    where the ports are made (RAVLIN_PORTS, else $XDG_RUNTIME_DIR/ravlin/ports)\n"
           "  --pace         let bytes take their time, as at 9600 baud\n"
           "  --verbose      what happens on the lines, on standard error\n"
           "  --do COMMAND   carry the command out at the start; may be given more than once\n"
           "  -h, --help     print this text\n"
           "  --version      print the version\n\n"
           "Commands (PORT is a number or COM and a number):\n" +
           LaneCommandHelp();
}
