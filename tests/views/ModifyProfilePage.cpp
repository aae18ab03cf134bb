#include "views/ModifyProfilePage.h"

#include "profiles/OptionLists.h"
#include "profiles/RegistryPaths.h"
#include "views/ProfileEnumeration.h"
#include "widgets/ModelPicture.h"

#include <QLabel>
#include <QTest>

namespace {

void Store(const TemporaryRegistry& registry, const std::string& key,
           const std::vector<std::pair<std::string, std::string>>& values) {
    const auto tree = registry.Tree();
    for (const auto& [name, text] : values)
        tree->SetValue(RegistryRoot::LocalMachine, key, {name, RegistryType::String, text});
    tree->Commit();
}

} // namespace

void ModifyProfilePage::Start() {
    LoadScannerProfiles(registry_, devices_, nullptr);
    LoadScaleProfiles(registry_, devices_);
    FillComPortLists({&page_.ComPortList()});
    page_.InterfaceList().AddItems(OptionLists::Interfaces);
    page_.UseNameLists(names_);
    QObject::connect(&page_, &ModifyProfileView::ProgramRequested, &page_,
                     [this](const std::shared_ptr<CDevice>& device) { toProgram_.push_back(device); });
    QObject::connect(&page_, &ModifyProfileView::LoggingLevelShown, &page_,
                     [this](int level) { levels_.push_back(level); });
    names_.FillDeviceNameLists(devices_);
    page_.InterfaceList().SetListIndex(0);
    page_.SelectFirstOptions();
    page_.SelectFirstDeviceType();
    page_.show();
    page_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&page_));
}

int ModifyProfilePage::Picture() {
    return ShownModelPicture(Control<QLabel>(page_, "imgExistingModelPicture"));
}

void ModifyProfilePage::Save() {
    const ExpectBox saved("Profile Saved", "Device profile successfully saved.");
    Click(Button("cmdExistingSave"));
}

void ModifyProfilePage::StoreScanner(const std::string& name, const Values& values) {
    Store(registry_, RegistryPaths::ScannerFolder + name, values);
}

void ModifyProfilePage::StoreScale(const std::string& name, const Values& values) {
    Store(registry_, RegistryPaths::ScaleFolder + name, values);
}

std::string ModifyProfilePage::ScannerValue(const std::string& name, const std::string& value) const {
    return registry_.Text(RegistryPaths::ScannerFolder + name, value);
}

std::string ModifyProfilePage::ScaleValue(const std::string& name, const std::string& value) const {
    return registry_.Text(RegistryPaths::ScaleFolder + name, value);
}

std::vector<std::string> ModifyProfilePage::StoredScanners() const {
    return registry_.SubKeys(RegistryPaths::ScannerFolder);
}

std::vector<std::string> ModifyProfilePage::StoredScales() const {
    return registry_.SubKeys(RegistryPaths::ScaleFolder);
}

std::array<QStringList, 4> ModifyProfilePage::ListedNames(std::int32_t deviceType) const {
    const auto type = static_cast<std::size_t>(deviceType);
    return {Items(*page_.NameLists().at(type)), Items(lists_.at(type)), Items(lists_.at(2 + type)),
            Items(lists_.at(4 + type))};
}
