// The names, values and keys of every registry: an implementation joins by a line at the end.
#include "RegistryContract.h"

TEST_P(RegistryContract, AWrittenTextIsReadBack) {
    Write("Software\\Lane", "Model", "Pelerin/3172");
    EXPECT_EQ(Read("Software\\Lane", "Model"), "Pelerin/3172");
}

TEST_P(RegistryContract, TheDefaultValueHasTheEmptyName) {
    Write("Software\\Lane", "", "Tavrin.Opos.Scanner");
    EXPECT_EQ(Read("Software\\Lane", ""), "Tavrin.Opos.Scanner");
    EXPECT_EQ(ValueNames("Software\\Lane"), Names{""});
}

TEST_P(RegistryContract, TextsBeyondAsciiAreKept) {
    const std::string text = "Kasse \xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80";
    Write("Software\\" + text, text, text);
    EXPECT_EQ(Read("Software\\" + text, text), text);
    EXPECT_EQ(SubKeyNames("Software"), Names{text});
}

TEST_P(RegistryContract, AMissingValueReadsAsEmptyText) {
    Make("Software\\Lane");
    EXPECT_EQ(Read("Software\\Lane", "Model"), "");
    EXPECT_EQ(Read("Software\\Lane", ""), "");
}

TEST_P(RegistryContract, AMissingKeyReadsAsOneThatHoldsNothing) {
    const auto store = Reader("Software\\Nowhere");
    EXPECT_EQ(store->ReadValue(Text, "Model"), "");
    EXPECT_EQ(store->ValueCount(), 0);
    EXPECT_EQ(store->SubKeyCount(), 0);
    EXPECT_EQ(store->ValueName(0), "");
    ExpectError(RegistryErrorNumber::NoSubKeys, [&] { store->SubKeyName(0); });
    ExpectError(RegistryErrorNumber::KeyMissing, [&] { store->WriteValue("Model", "x"); });
    ExpectError(RegistryErrorNumber::KeyMissing, [&] { store->DeleteKey("Lane"); });
}

TEST_P(RegistryContract, AReaderThatMayNotCreateLeavesNoKeyBehind) {
    Reader("Software\\Lane")->Release();
    EXPECT_EQ(SubKeyNames(""), Names{});
}

TEST_P(RegistryContract, SelectingAMissingKeyCreatesItUnlessToldOtherwise) {
    Make("Software\\OLEForRetail\\Lane");
    EXPECT_EQ(SubKeyNames("Software"), Names{"OLEForRetail"});
    EXPECT_EQ(SubKeyNames("Software\\OLEForRetail"), Names{"Lane"});
}

TEST_P(RegistryContract, WithoutASelectedKeyNothingIsThereAndNothingCanBeWritten) {
    const auto store = registry_->Own().CreateStore();
    EXPECT_EQ(store->ValueCount(), 0);
    EXPECT_EQ(store->ReadValue(Text, ""), "");
    ExpectError(RegistryErrorNumber::KeyMissing, [&] { store->WriteValue("Model", "x"); });
}

TEST_P(RegistryContract, AStoreBeginsInTheMachinesHive) {
    const auto store = registry_->Own().CreateStore();
    store->KeyPath("Software\\Lane");
    store->WriteValue("Model", "758");
    store->Release();
    EXPECT_EQ(Read("Software\\Lane", "Model"), "758");
}

TEST_P(RegistryContract, TheHivesAreSeparate) {
    const auto store = registry_->Own().CreateStore();
    store->RootKey(RegistryRoot::CurrentUser);
    store->KeyPath("Software\\Lane");
    store->WriteValue("Left", "12");
    store->RootKey(RegistryRoot::LocalMachine);
    EXPECT_EQ(store->ValueCount(), 0) << "choosing a root leaves the current key";
    store->KeyPath("Software\\Lane");
    store->WriteValue("Left", "99");
    store->Release();

    const auto reader = registry_->Own().CreateStore();
    reader->RootKey(RegistryRoot::CurrentUser);
    reader->KeyPath("Software\\Lane");
    EXPECT_EQ(reader->ReadValue(Text, "Left"), "12");
    EXPECT_EQ(Read("Software\\Lane", "Left"), "99");
}

TEST_P(RegistryContract, BackslashesAroundAndDoubledOnesCountAsNone) {
    Write("\\Software\\\\Scale\\\\\\Lane\\", "Model", "758");
    EXPECT_EQ(Read("Software\\Scale\\Lane", "Model"), "758");
    EXPECT_EQ(Read("Software\\Scale\\\\Lane\\\\", "Model"), "758");
    EXPECT_EQ(SubKeyNames("Software\\"), Names{"Scale"});
}

TEST_P(RegistryContract, KeysCompareWithoutCaseAndKeepIt) {
    Write("Software\\Kasse \xC3\xBC", "Model", "758");
    Write("SOFTWARE\\kasse \xC3\x9C", "Port", "1");
    EXPECT_EQ(SubKeyNames("software"), Names{"Kasse \xC3\xBC"});
    EXPECT_EQ(ValueNames("software\\KASSE \xC3\x9C"), (Names{"Model", "Port"}));
}

TEST_P(RegistryContract, ValueNamesCompareWithoutCaseAndKeepIt) {
    Write("Lane",
          "Gr\xC3\xB6\xC3\x9F"
          "e",
          "1");
    Write("Lane",
          "GR\xC3\x96\xC3\x9F"
          "E",
          "2");
    EXPECT_EQ(ValueNames("Lane"), Names{"Gr\xC3\xB6\xC3\x9F"
                                        "e"});
    EXPECT_EQ(Read("LANE", "gr\xC3\x96\xC3\x9F"
                           "e"),
              "2");
}

TEST_P(RegistryContract, ASharpSIsNotTwoLetters) {
    Write("Lane", "Ma\xC3\x9F", "1");
    EXPECT_EQ(Read("Lane", "MASS"), "");
}

TEST_P(RegistryContract, LettersOfOtherScriptsCompareWithoutCase) {
    Write("\xCE\xBB\xCE\xAC\xCE\xBD\xCE\xB5", "\xD0\xBB", "1");
    EXPECT_EQ(Read("\xCE\x9B\xCE\x86\xCE\x9D\xCE\x95", "\xD0\x9B"), "1");
}

TEST_P(RegistryContract, SubKeysStandInTheOrderOfTheirNamesWithoutCase) {
    for (const char* const name : {"lane 2", "Lane 10", "b", "C", "A", "\xC3\xA4", "lane 1"})
        Make(std::string("Folder\\") + name);
    EXPECT_EQ(SubKeyNames("Folder"), (Names{"A", "b", "C", "lane 1", "Lane 10", "lane 2", "\xC3\xA4"}));
}

TEST_P(RegistryContract, ValuesStandInTheOrderInWhichTheyWereMade) {
    for (const char* const name : {"Service", "", "Model", "Description"})
        Write("Lane", name, "1");
    Write("Lane", "", "2");
    EXPECT_EQ(ValueNames("Lane"), (Names{"Service", "", "Model", "Description"}));
}

TEST_P(RegistryContract, TheValueNameJustBehindTheLastIsEmpty) {
    Write("Lane", "Model", "1");
    const auto store = Reader("Lane");
    EXPECT_EQ(store->ValueName(0), "Model");
    EXPECT_EQ(store->ValueName(1), "");
    ExpectError(RegistryErrorNumber::ReadKey, [&] { store->ValueName(2); });
    ExpectError(RegistryErrorNumber::ReadKey, [&] { store->ValueName(-1); });
}

TEST_P(RegistryContract, ASubKeyBeyondTheLastIsAnError) {
    Make("Folder\\Lane");
    const auto store = Reader("Folder");
    EXPECT_EQ(store->SubKeyName(0), "Lane");
    ExpectError(RegistryErrorNumber::ReadKey, [&] { store->SubKeyName(1); });
    ExpectError(RegistryErrorNumber::ReadKey, [&] { store->SubKeyName(-1); });
    store->KeyPath("Folder\\Lane");
    ExpectError(RegistryErrorNumber::NoSubKeys, [&] { store->SubKeyName(0); });
}

TEST_P(RegistryContract, DeletingAKeyDeletesAllBelowIt) {
    Write("Folder\\Lane\\Sub\\Deep", "Model", "1");
    Write("Folder\\Lane", "Model", "1");
    Write("Folder\\Lane 2", "Model", "2");
    const auto store = Writer("Folder");
    store->DeleteKey("LANE");
    EXPECT_EQ(store->SubKeyCount(), 1);
    store->Release();
    EXPECT_EQ(SubKeyNames("Folder"), Names{"Lane 2"});
    Make("Folder\\Lane\\Sub\\Deep");
    EXPECT_EQ(ValueNames("Folder\\Lane"), Names{});
    EXPECT_EQ(ValueNames("Folder\\Lane\\Sub\\Deep"), Names{});
    EXPECT_EQ(Read("Folder\\Lane 2", "Model"), "2");
}

TEST_P(RegistryContract, DeletingAMissingSubKeyIsAnError) {
    Make("Folder");
    const auto store = Writer("Folder");
    ExpectError(RegistryErrorNumber::KeyMissing, [&] { store->DeleteKey("Lane"); });
}

TEST_P(RegistryContract, DeletingTakesAPathBelowTheKey) {
    Make("Folder\\Lane\\Sub\\Deep");
    const auto store = Writer("Folder");
    store->DeleteKey("Lane\\Sub");
    ExpectError(RegistryErrorNumber::KeyMissing, [&] { store->DeleteKey("Lane\\Sub"); });
    ExpectError(RegistryErrorNumber::KeyMissing, [&] { store->DeleteKey("None\\Sub"); });
    ExpectError(RegistryErrorNumber::DeleteKey, [&] { store->DeleteKey("\\"); });
    store->Release();
    EXPECT_EQ(SubKeyNames("Folder"), Names{"Lane"});
    EXPECT_EQ(SubKeyNames("Folder\\Lane"), Names{});
}

TEST_P(RegistryContract, NamesHaveTheLengthsThatWindowsAllows) {
    Write(std::string(255, 'k'), std::string(16383, 'v'), "1");
    EXPECT_EQ(Read(std::string(255, 'K'), std::string(16383, 'V')), "1");
    ExpectError(RegistryErrorNumber::OpenKey, [&] { Writer(std::string(256, 'k')); });
    const auto store = Writer("Lane");
    ExpectError(RegistryErrorNumber::WriteValue, [&] { store->WriteValue(std::string(16384, 'v'), "1"); });
    ExpectError(RegistryErrorNumber::DeleteKey, [&] { store->DeleteKey(""); });
}

TEST_P(RegistryContract, LengthsCountUtf16Units) {
    std::string name;
    for (int i = 0; i < 127; ++i)
        name += "\xF0\x9F\x98\x80";
    Make(name + "k");
    EXPECT_EQ(SubKeyNames(""), Names{name + "k"});
    ExpectError(RegistryErrorNumber::OpenKey, [&] { Writer(name + "kk"); });
}

TEST_P(RegistryContract, IllFormedUtf8IsRefusedEverywhere) {
    for (const std::string bad : {"\xFF", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "a\x80"}) {
        ExpectError(RegistryErrorNumber::OpenKey, [&] { Writer("Folder\\" + bad); });
        const auto store = Writer("Folder");
        ExpectError(RegistryErrorNumber::WriteValue, [&] { store->WriteValue(bad, "1"); });
        ExpectError(RegistryErrorNumber::WriteValue, [&] { store->WriteValue("Model", bad); });
        ExpectError(RegistryErrorNumber::ReadKey, [&] { store->ReadValue(Text, bad); });
        ExpectError(RegistryErrorNumber::DeleteKey, [&] { store->DeleteKey(bad); });
    }
    EXPECT_EQ(SubKeyNames(""), Names{});
}

TEST_P(RegistryContract, EmptyAndLongTextsAreKept) {
    Write("Lane", "Empty", "");
    Write("Lane", "Long", std::string(1'000'000, 'x'));
    EXPECT_EQ(ValueNames("Lane"), (Names{"Empty", "Long"}));
    EXPECT_EQ(Read("Lane", "Empty"), "");
    EXPECT_EQ(Read("Lane", "Long").size(), 1'000'000U);
}

namespace {

struct SystemUnderTest final : RegistryUnderTest {
    Registry& Own() override { return registry_; }
    Registry& Other() override { return *other_; }

private:
    TemporaryRegistry registry_;
    std::unique_ptr<Registry> other_ = registry_.OtherProgram();
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Registries, RegistryContract,
                         testing::Values(Implementation{"System", [] { return std::make_unique<SystemUnderTest>(); }}),
                         [](const auto& parameter) { return parameter.param.name; });
