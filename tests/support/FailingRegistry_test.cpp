#include "support/FailingRegistry.h"

#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

TEST(FailingRegistry, FailsAtTheChosenCallOnlyAndCountsOverAllStores) {
    TemporaryRegistry real;
    real.Put("Lane", "Model", "758");
    FailingRegistry registry(real);
    registry.FailAt(RegistryOperation::KeyPath, 2, RegistryErrorNumber::ReadKey, "on purpose");

    const auto first = registry.CreateStore();
    first->KeyPath("Lane");
    const auto second = registry.CreateStore();
    try {
        second->KeyPath("Lane");
        FAIL() << "no error was raised";
    } catch (const RegistryError& error) {
        EXPECT_EQ(error.Number(), 0x80040204U);
        EXPECT_EQ(error.Description(), "on purpose");
    }
    second->KeyPath("Lane");
    EXPECT_EQ(second->ReadValue(RegistryValueType::String, "Model"), "758");
}
