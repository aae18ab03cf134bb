#include "profiles/RegistryStore.h"

#include <gtest/gtest.h>

TEST(NumberedError, HasTheUsualDescriptionAndTheDetailInBrackets) {
    EXPECT_EQ(NumberedError(ErrorNumber::TypeMismatch).Description(), "Type mismatch");
    EXPECT_EQ(NumberedError(ErrorNumber::TypeMismatch, "x").Description(), "Type mismatch (x)");
    EXPECT_EQ(NumberedError(ErrorNumber::InvalidArgument).Description(), "Invalid procedure call or argument");
    EXPECT_EQ(NumberedError(ErrorNumber::Overflow).Description(), "Overflow");
    EXPECT_EQ(NumberedError(ErrorNumber::SubscriptOutOfRange).Description(), "Subscript out of range");
    EXPECT_EQ(NumberedError(ErrorNumber::InvalidPropertyValue).Description(), "Invalid property value");
    EXPECT_EQ(NumberedError(ErrorNumber::KeyAlreadyAssociated).Number(), 457U);
}

TEST(NumberedError, ARegistryErrorsNumberIsShownAsANegativeOne) {
    const RegistryError error(RegistryErrorNumber::OpenKey, "no");
    EXPECT_EQ(error.Number(), 0x80040201U);
    EXPECT_EQ(error.SignedNumber(), -2147220991);
    EXPECT_EQ(RegistryError(RegistryErrorNumber::Unknown, "").Number(), 0x80040209U);
}
