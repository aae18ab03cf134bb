// A registry that writes down what is asked of it.
#pragma once

#include "profiles/RegistryStore.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

// Hands everything on to another registry. Each operation is recorded as a word and its arguments: "KeyPath PATH",
// "ReadValue NAME", "WriteValue NAME=TEXT", "CreateMissing no", "Root machine", "DeleteKey NAME", "ValueCount".
class RecordingRegistry final : public Registry {
public:
    // The other registry outlives this one.
    explicit RecordingRegistry(Registry& other) : other_(other) {}

    [[nodiscard]] const std::vector<std::string>& Operations() const { return operations_; }
    // The records that begin with this word, without it.
    [[nodiscard]] std::vector<std::string> Arguments(const std::string& word) const {
        std::vector<std::string> arguments;
        for (const std::string& operation : operations_)
            if (operation.starts_with(word + ' '))
                arguments.push_back(operation.substr(word.size() + 1));
        return arguments;
    }
    void Clear() { operations_.clear(); }

    std::unique_ptr<RegistryStore> CreateStore() override {
        operations_.emplace_back("CreateStore");
        return std::make_unique<Store>(operations_, other_.CreateStore());
    }

private:
    class Store final : public RegistryStore {
    public:
        Store(std::vector<std::string>& operations, std::unique_ptr<RegistryStore> other)
            : operations_(operations), other_(std::move(other)) {}

        void CreateMissing(bool create) override {
            Record("CreateMissing " + std::string(create ? "yes" : "no")).CreateMissing(create);
        }
        void RootKey(RegistryRoot root) override {
            Record(root == RegistryRoot::LocalMachine ? "Root machine" : "Root user").RootKey(root);
        }
        void KeyPath(std::string_view path) override { Record("KeyPath " + std::string(path)).KeyPath(path); }
        void BeginWriting() override { Record("BeginWriting").BeginWriting(); }
        std::string ReadValue(RegistryValueType type, std::string_view name) override {
            return Record("ReadValue " + std::string(name)).ReadValue(type, name);
        }
        void WriteValue(std::string_view name, std::string_view text) override {
            Record("WriteValue " + std::string(name) + '=' + std::string(text)).WriteValue(name, text);
        }
        std::int32_t ValueCount() override { return Record("ValueCount").ValueCount(); }
        std::int32_t SubKeyCount() override { return Record("SubKeyCount").SubKeyCount(); }
        std::string ValueName(std::int32_t index) override {
            return Record("ValueName " + std::to_string(index)).ValueName(index);
        }
        std::string SubKeyName(std::int32_t index) override {
            return Record("SubKeyName " + std::to_string(index)).SubKeyName(index);
        }
        void DeleteKey(std::string_view subKey) override {
            Record("DeleteKey " + std::string(subKey)).DeleteKey(subKey);
        }
        void Release() override { Record("Release").Release(); }

    private:
        RegistryStore& Record(std::string operation) {
            operations_.push_back(std::move(operation));
            return *other_;
        }

        std::vector<std::string>& operations_;
        std::unique_ptr<RegistryStore> other_;
    };

    Registry& other_;
    std::vector<std::string> operations_;
};
