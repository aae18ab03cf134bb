// The Modify Profile page as the main window has it after its start, over a real store.
#pragma once

#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"
#include "views/DeviceCollection.h"
#include "views/DeviceNameLists.h"
#include "views/ModifyProfileView.h"

#include <QPushButton>

#include <gtest/gtest.h>

class ModifyProfilePage : public ::testing::Test {
public:
    // Of a stored profile, by name; the default value has none.
    using Values = std::vector<std::pair<std::string, std::string>>;

protected:
    // Reads the profiles that the test has stored and shows the page.
    void Start();

    DropDownList& List(const QString& name) { return Control<DropDownList>(page_, name); }
    QPushButton& Button(const QString& name) { return Control<QPushButton>(page_, name); }
    QWidget& Widget(const QString& name) { return Control<QWidget>(page_, name); }
    int Picture();
    // Chooses the scale class, the first scale with it.
    void ChooseScales() { Choose(List("lstExistingDeviceType"), "Scale"); }
    void Save();

    // As other programs see the profiles.
    void StoreScanner(const std::string& name, const Values& values);
    void StoreScale(const std::string& name, const Values& values);
    [[nodiscard]] std::string ScannerValue(const std::string& name, const std::string& value) const;
    [[nodiscard]] std::string ScaleValue(const std::string& name, const std::string& value) const;
    [[nodiscard]] std::vector<std::string> StoredScanners() const;
    [[nodiscard]] std::vector<std::string> StoredScales() const;

    // The names in the four lists of the class, this page's first.
    [[nodiscard]] std::array<QStringList, 4> ListedNames(std::int32_t deviceType) const;

    TemporaryRegistry registry_;
    DeviceCollection devices_;
    std::array<DropDownList, 6> lists_; // of the other pages
    ModifyProfileView page_{{registry_, devices_}};
    DeviceNameLists names_{
        {page_.NameLists(), {&lists_[0], &lists_[1]}, {&lists_[2], &lists_[3]}, {&lists_[4], &lists_[5]}}};
    std::vector<std::shared_ptr<CDevice>> toProgram_;
    std::vector<int> levels_;
};

// Profiles as they are stored.
namespace Stored {
inline const ModifyProfilePage::Values Serial = {
    {"", "Tavrin.Opos.Scanner"}, {"Model", "Kavit/7301"}, {"Serial Port", "12"}, {"Scanner Version", "1"}};
inline const ModifyProfilePage::Values Usb = {
    {"", "Tavrin.Opos.Scanner"}, {"Model", "Kavit/7301"}, {"Scanner Version", "2"}};
inline const ModifyProfilePage::Values WithScale = {
    {"", "Tavrin.Opos.Scanner"}, {"Model", "Pelerin/3172"}, {"Serial Port", "3"}, {"Scanner Version", "0"},
    {"ScaleType", "2"},          {"WeightUnit", "1"},       {"Display", "1"}};
inline const ModifyProfilePage::Values SingleCable = {
    {"", "Tavrin.Opos.Scale"}, {"Serial Port", "5"}, {"WeightUnit", "1"}, {"Display", "1"}, {"Scale Version", "0"}};
inline const ModifyProfilePage::Values DualCable = {
    {"", "OPOS.A702.SCALE.SO"}, {"PORT", "COM7"}, {"WeightUnit", "1"}, {"Display", "0"}};
} // namespace Stored
