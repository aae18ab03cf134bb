#include "reg/CommandLine.h"

#include <algorithm>
#include <array>

namespace {

struct Syntax {
    std::string_view word;
    Verb verb;
    bool hasKey;
    bool hasFile;
    std::string_view switches; // each with a blank on either side
};

constexpr std::array Verbs = {
    Syntax{"query", Verb::Query, true, false, " /s /v /ve "},
    Syntax{"add", Verb::Add, true, false, " /v /ve /d /f "},
    Syntax{"delete", Verb::Delete, true, false, " /v /ve /va /f "},
    Syntax{"export", Verb::Export, true, true, " /y "},
    Syntax{"import", Verb::Import, false, true, " "},
};

[[noreturn]] void Refuse(const std::string& problem) {
    throw CommandError(problem + " Type \"ravlin-reg /?\" for usage.");
}

bool AsksForHelp(const std::string& argument) {
    return argument == "/?" || argument == "-?" || argument == "--help";
}

class Arguments {
public:
    Arguments(const Syntax& syntax, std::span<const std::string> rest) : syntax_(syntax), rest_(rest) {}

    Command Parse() {
        command_.verb = syntax_.verb;
        if (syntax_.hasKey)
            command_.key = Key(Take("a key"));
        if (syntax_.hasFile)
            command_.file = Take("a file");
        while (!rest_.empty())
            Switch(Take("a switch"));
        return command_;
    }

private:
    std::string Take(const std::string& what) {
        if (rest_.empty() || rest_.front().empty())
            Refuse("After \"" + last_ + "\" " + what + " is missing.");
        last_ = rest_.front();
        rest_ = rest_.subspan(1);
        return last_;
    }

    // Like Take, but the text may be empty.
    std::string TakeText(const std::string& what) {
        if (!rest_.empty() && rest_.front().empty()) {
            rest_ = rest_.subspan(1);
            return {};
        }
        return Take(what);
    }

    static KeyReference Key(const std::string& text) {
        const auto key = ParseKeyReference(text);
        if (!key)
            Refuse("\"" + text + "\" is no key under HKLM or HKCU.");
        return *key;
    }

    void Switch(const std::string& argument) {
        std::string name = argument;
        std::ranges::transform(name, name.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c; });
        if (syntax_.switches.find(' ' + name + ' ') == std::string_view::npos || name.find(' ') != std::string::npos)
            Refuse("\"" + argument + "\" is no switch of \"" + std::string(syntax_.word) + "\".");
        const bool choosesValues = name == "/v" || name == "/ve" || name == "/va";
        if (choosesValues && (command_.valueName || command_.allValues))
            Refuse("\"" + argument + "\" contradicts a switch before it.");
        if (name == "/v")
            command_.valueName = TakeText("the name of a value");
        else if (name == "/ve")
            command_.valueName = "";
        else if (name == "/va")
            command_.allValues = true;
        else if (name == "/d")
            command_.data = TakeText("a text");
        else if (name == "/s")
            command_.recursive = true;
        else
            command_.force = true;
    }

    const Syntax& syntax_;
    std::span<const std::string> rest_;
    std::string last_{syntax_.word};
    Command command_;
};

} // namespace

Command ParseCommandLine(std::span<const std::string> arguments) {
    if (arguments.empty())
        Refuse("A command is missing.");
    // Only as the first argument or right behind the command: elsewhere it may be a name or a text.
    if (std::ranges::any_of(arguments.first(std::min<std::size_t>(2, arguments.size())), AsksForHelp))
        return {};
    if (arguments.front() == "--version") {
        Command version;
        version.verb = Verb::Version;
        return version;
    }
    for (const Syntax& syntax : Verbs)
        if (SameWord(arguments.front(), syntax.word))
            return Arguments(syntax, arguments.subspan(1)).Parse();
    Refuse("\"" + arguments.front() + "\" is no command.");
}

std::string_view Usage() {
    return R"(ravlin-reg shows and changes the registry store.

  ravlin-reg query KEY [/s] [/v NAME | /ve]            shows a key, with /s all below it
  ravlin-reg add KEY [/v NAME | /ve] [/d TEXT] [/f]    makes a key, or sets a value to a text
  ravlin-reg delete KEY [/v NAME | /ve | /va] [/f]     deletes a key with all below it, or values
  ravlin-reg export KEY FILE [/y]                      writes a key with all below it to a registry file
  ravlin-reg import FILE                               does what a registry file says, all of it or nothing

KEY   HKLM\... or HKCU\..., or with the full names HKEY_LOCAL_MACHINE\... or HKEY_CURRENT_USER\...
/v    the value NAME      /ve   the default value      /va   all values of the key
/f    overwrites or deletes without asking             /y    overwrites FILE without asking

ravlin-reg --help prints this text (so does /?) and ravlin-reg --version the version.
RAVLIN_MACHINE_HIVE and RAVLIN_USER_HIVE name the files of the two hives.
)";
}
