// A real registry of its own for one test: over files in a directory, on Windows over keys of the registry.
#pragma once

#include "platform/registry/HiveFiles.h"
#include "profiles/RegistryTree.h"

#include <memory>
#include <string>
#include <vector>

// Empty at first; gone at the end. Usable wherever a Registry& is wanted: `CScanner2 scanner(registry)`.
class TemporaryRegistry final : public Registry {
public:
    TemporaryRegistry();
    ~TemporaryRegistry() override;

    std::unique_ptr<RegistryStore> CreateStore() override { return registry_->CreateStore(); }

    // Not on Windows.
    [[nodiscard]] const HiveFiles& Files() const;
    // A tree over the same data, as another program would have it.
    [[nodiscard]] std::unique_ptr<RegistryTree> Tree() const;
    // A registry over the same data, as another program would have it.
    [[nodiscard]] std::unique_ptr<Registry> OtherProgram() const;
    // "NAME=VALUE" texts that make a child process use this registry; not on Windows.
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
    class Place;
    std::unique_ptr<Place> place_;
    std::unique_ptr<Registry> registry_;
};
