// A registry that fails at a chosen operation, for what a real one does only on a bad day.
#pragma once

#include "profiles/RegistryStore.h"

#include <memory>
#include <string>
#include <utility>

enum class RegistryOperation {
    CreateStore,
    RootKey,
    KeyPath,
    BeginWriting,
    ReadValue,
    WriteValue,
    ValueCount,
    SubKeyCount,
    ValueName,
    SubKeyName,
    DeleteKey,
    Release,
};

// Hands everything on to another registry, but the nth call (from 1) of one operation, counted over all stores, raises
// the error instead. Fails no more after that until told to again.
class FailingRegistry final : public Registry {
public:
    // The other registry outlives this one.
    explicit FailingRegistry(Registry& other) : other_(other) {}

    void FailAt(RegistryOperation operation, int nth, RegistryErrorNumber number,
                std::string description = "The disk is gone.") {
        operation_ = operation;
        callsLeft_ = nth;
        number_ = number;
        description_ = std::move(description);
    }

    std::unique_ptr<RegistryStore> CreateStore() override {
        Count(RegistryOperation::CreateStore);
        return std::make_unique<Store>(*this, other_.CreateStore());
    }

private:
    class Store final : public RegistryStore {
    public:
        Store(FailingRegistry& registry, std::unique_ptr<RegistryStore> other)
            : registry_(registry), other_(std::move(other)) {}

        void CreateMissing(bool create) override { other_->CreateMissing(create); }
        void RootKey(RegistryRoot root) override { Reached(RegistryOperation::RootKey).RootKey(root); }
        void KeyPath(std::string_view path) override { Reached(RegistryOperation::KeyPath).KeyPath(path); }
        void BeginWriting() override { Reached(RegistryOperation::BeginWriting).BeginWriting(); }
        std::string ReadValue(RegistryValueType type, std::string_view name) override {
            return Reached(RegistryOperation::ReadValue).ReadValue(type, name);
        }
        void WriteValue(std::string_view name, std::string_view text) override {
            Reached(RegistryOperation::WriteValue).WriteValue(name, text);
        }
        std::int32_t ValueCount() override { return Reached(RegistryOperation::ValueCount).ValueCount(); }
        std::int32_t SubKeyCount() override { return Reached(RegistryOperation::SubKeyCount).SubKeyCount(); }
        std::string ValueName(std::int32_t index) override {
            return Reached(RegistryOperation::ValueName).ValueName(index);
        }
        std::string SubKeyName(std::int32_t index) override {
            return Reached(RegistryOperation::SubKeyName).SubKeyName(index);
        }
        void DeleteKey(std::string_view subKey) override { Reached(RegistryOperation::DeleteKey).DeleteKey(subKey); }
        void Release() override { Reached(RegistryOperation::Release).Release(); }

    private:
        RegistryStore& Reached(RegistryOperation operation) {
            registry_.Count(operation);
            return *other_;
        }

        FailingRegistry& registry_;
        std::unique_ptr<RegistryStore> other_;
    };

    void Count(RegistryOperation operation) {
        if (operation == operation_ && --callsLeft_ == 0)
            throw RegistryError(number_, description_);
    }

    Registry& other_;
    RegistryOperation operation_ = RegistryOperation::CreateStore;
    int callsLeft_ = 0;
    RegistryErrorNumber number_ = RegistryErrorNumber::Unknown;
    std::string description_;
};
