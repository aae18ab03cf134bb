// A real registry over files in a directory of its own, for one test.
#pragma once

#include "platform/registry/RegistrySqlite.h"
#include "support/TemporaryDirectory.h"

#include <memory>
#include <string>
#include <vector>

// Empty at first; gone at the end. Usable wherever a Registry& is wanted: `CScanner2 scanner(registry)`.
class TemporaryRegistry final : public Registry {
public:
    TemporaryRegistry();

    std::unique_ptr<RegistryStore> CreateStore() override { return registry_->CreateStore(); }

    [[nodiscard]] const HiveFiles& Files() const { return files_; }
    // A tree over the same files, as another program would have it.
    [[nodiscard]] std::unique_ptr<RegistryTree> Tree() const { return OpenSqliteTree(files_); }
    // A registry over the same files, as another program would have it.
    [[nodiscard]] std::unique_ptr<Registry> OtherProgram() const { return OpenSqliteRegistry(files_); }
    // "NAME=VALUE" texts that make a child process use this registry.
    [[nodiscard]] std::vector<std::string> Environment() const;

    // What tests do most, each in a sequence of its own. Paths as in RegistryStore.
    void Put(const std::string& path, const std::string& name, const std::string& text,
             RegistryRoot root = RegistryRoot::LocalMachine);
    // "" where the key or the value is missing.
    [[nodiscard]] std::string Text(const std::string& path, const std::string& name,
                                   RegistryRoot root = RegistryRoot::LocalMachine) const;
    // The values in the order in which they were made.
    [[nodiscard]] std::vector<RegistryValue> Values(const std::string& path,
                                                    RegistryRoot root = RegistryRoot::LocalMachine) const;
    [[nodiscard]] std::vector<std::string> SubKeys(const std::string& path,
                                                   RegistryRoot root = RegistryRoot::LocalMachine) const;
    [[nodiscard]] bool HasKey(const std::string& path, RegistryRoot root = RegistryRoot::LocalMachine) const;

private:
    TemporaryDirectory directory_;
    HiveFiles files_;
    std::unique_ptr<Registry> registry_;
};
