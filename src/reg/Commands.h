// What each command of ravlin-reg does.
#pragma once

#include "profiles/RegistryTree.h"
#include "reg/CommandLine.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

// Where a command writes and whom it asks.
struct CommandConsole {
    std::ostream& out;
    // The answer to a yes-or-no question (UTF-8); nothing where nobody can be asked.
    std::function<std::optional<bool>(const std::string& question)> ask;
};

// Runs the command, or prints the usage or the version. Errors: CommandError, RegistryError; then nothing in the
// registry was changed.
void RunCommand(const Command& command, RegistryTree& tree, const CommandConsole& console);

// The parts of it. Key and value must be there, or they raise CommandError.
void RunQuery(const Command& command, RegistryTree& tree, std::ostream& out);
void RunExport(const Command& command, RegistryTree& tree, const CommandConsole& console);
void RunImport(const Command& command, RegistryTree& tree);
void ExpectKey(const KeyReference& key, RegistryTree& tree);

// Goes on only with a yes. Errors: CommandError, which names what (a switch) spares the question where nobody is there.
void ExpectConsent(const CommandConsole& console, const std::string& question, const std::string& spare);
