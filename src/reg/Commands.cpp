#include "reg/Commands.h"

#include <ostream>

namespace {

std::string Described(const std::string& valueName) {
    return valueName.empty() ? "(Default)" : valueName;
}

void RunAdd(const Command& command, RegistryTree& tree, const CommandConsole& console) {
    const auto& key = command.key;
    std::optional<std::string> name = command.valueName;
    if (!name && command.data)
        name = "";
    if (!name) {
        tree.CreateKey(key.root, key.path);
        return;
    }
    if (!command.force && tree.Value(key.root, key.path, *name))
        ExpectConsent(console, "Value " + Described(*name) + " exists, overwrite (Yes/No)? ", "/f");
    tree.SetValue(key.root, key.path, {*name, RegistryType::String, command.data.value_or("")});
}

void RunDelete(const Command& command, RegistryTree& tree, const CommandConsole& console) {
    const auto& key = command.key;
    ExpectKey(key, tree);
    std::string what = "the registry key " + key.FullName();
    if (command.allValues)
        what = "all values under " + what;
    else if (command.valueName)
        what = "the registry value " + Described(*command.valueName);
    if (!command.force)
        ExpectConsent(console, "Permanently delete " + what + " (Yes/No)? ", "/f");
    if (command.allValues) {
        for (const RegistryValue& value : tree.Values(key.root, key.path))
            tree.DeleteValue(key.root, key.path, value.name);
    } else if (command.valueName) {
        if (!tree.DeleteValue(key.root, key.path, *command.valueName))
            throw CommandError("There is no value " + Described(*command.valueName) + " in " + key.FullName() + ".");
    } else {
        tree.DeleteKey(key.root, key.path);
    }
}

void RunChange(const Command& command, RegistryTree& tree, const CommandConsole& console) {
    if (command.verb == Verb::Add)
        RunAdd(command, tree, console);
    else if (command.verb == Verb::Delete)
        RunDelete(command, tree, console);
    else
        RunImport(command, tree);
    tree.Commit();
}

} // namespace

void ExpectKey(const KeyReference& key, RegistryTree& tree) {
    if (!tree.HasKey(key.root, key.path))
        throw CommandError("There is no key " + key.FullName() + ".");
}

void ExpectConsent(const CommandConsole& console, const std::string& question, const std::string& spare) {
    const auto answer = console.ask(question);
    if (!answer)
        throw CommandError("Nobody can be asked \"" + question.substr(0, question.find(" (Yes/No)")) +
                           "?\" without a terminal; use " + spare + " to do it without asking.");
    if (!*answer)
        throw CommandError("Nothing was changed, as you wished.");
}

void RunCommand(const Command& command, RegistryTree& tree, const CommandConsole& console) {
    switch (command.verb) {
    case Verb::Help:
        console.out << Usage();
        return;
    case Verb::Version:
        console.out << "ravlin-reg " RAVLIN_VERSION "\n";
        return;
    case Verb::Query:
        return RunQuery(command, tree, console.out);
    case Verb::Export:
        RunExport(command, tree, console);
        break;
    case Verb::Add:
    case Verb::Delete:
    case Verb::Import:
        RunChange(command, tree, console);
        break;
    }
    console.out << "The operation completed successfully.\n";
}
