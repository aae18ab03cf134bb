// What every registry promises, whatever it stands on, is tested on each of them: RegistryContract_test.cpp lists them.
#pragma once

#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

// A fresh, empty registry; Other gives a second one over the same data, as another program would have it.
struct RegistryUnderTest {
    virtual ~RegistryUnderTest() = default;
    [[nodiscard]] virtual Registry& Own() = 0;
    [[nodiscard]] virtual Registry& Other() = 0;
};

using MakeRegistry = std::function<std::unique_ptr<RegistryUnderTest>()>;

struct Implementation {
    std::string name;
    MakeRegistry make;
};

template<typename Operation>
void ExpectError(RegistryErrorNumber number, Operation operation) {
    try {
        operation();
        FAIL() << "no error was raised";
    } catch (const RegistryError& error) {
        EXPECT_EQ(error.Number(), static_cast<std::uint32_t>(number)) << error.what();
        EXPECT_FALSE(error.Description().empty());
    }
}

class RegistryContract : public testing::TestWithParam<Implementation> {
protected:
    using Names = std::vector<std::string>;
    static constexpr auto Text = RegistryValueType::String;

    std::unique_ptr<RegistryStore> Reader(const std::string& path) { return ReaderOf(registry_->Own(), path); }
    std::unique_ptr<RegistryStore> ReaderOf(Registry& registry, const std::string& path) {
        auto store = registry.CreateStore();
        store->CreateMissing(false);
        store->RootKey(RegistryRoot::LocalMachine);
        store->KeyPath(path);
        return store;
    }
    std::unique_ptr<RegistryStore> Writer(const std::string& path) { return WriterOf(registry_->Own(), path); }
    std::unique_ptr<RegistryStore> WriterOf(Registry& registry, const std::string& path) {
        auto store = registry.CreateStore();
        store->RootKey(RegistryRoot::LocalMachine);
        store->KeyPath(path);
        return store;
    }
    void Write(const std::string& path, const std::string& name, const std::string& text) {
        const auto store = Writer(path);
        store->WriteValue(name, text);
        store->Release();
    }
    void Make(const std::string& path) { Writer(path)->Release(); }
    std::string Read(const std::string& path, const std::string& name) { return Reader(path)->ReadValue(Text, name); }
    Names ValueNames(const std::string& path) {
        const auto store = Reader(path);
        Names names;
        for (std::int32_t i = 0; i < store->ValueCount(); ++i)
            names.push_back(store->ValueName(i));
        return names;
    }
    Names SubKeyNames(const std::string& path) {
        const auto store = Reader(path);
        Names names;
        for (std::int32_t i = 0; i < store->SubKeyCount(); ++i)
            names.push_back(store->SubKeyName(i));
        return names;
    }

    std::unique_ptr<RegistryUnderTest> registry_ = GetParam().make();
};
