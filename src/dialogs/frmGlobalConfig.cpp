#include "dialogs/frmGlobalConfig.h"

#include "profiles/Numbers.h"
#include "profiles/RegistryPaths.h"
#include "profiles/RegistryStore.h"
#include "ui_frmGlobalConfig.h"

#include <array>
#include <string>

namespace {

constexpr const char* VendorEnforcement = "VendorEnforcement";
constexpr const char* RX415Handling = "RX415Handling";
constexpr const char* ZeroWeightReject = "ZeroWeightReject";

// Whether the current key lists a value of exactly that name, blanks around it apart.
bool Lists(RegistryStore& store, std::string_view valueName) {
    const std::int32_t count = store.ValueCount();
    for (std::int32_t i = 0; i <= count; ++i) // the listing has an empty name at its end
        if (Trimmed(store.ValueName(i)) == valueName)
            return true;
    return false;
}

} // namespace

frmGlobalConfig::frmGlobalConfig(Registry& registry, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmGlobalConfig>()), registry_(registry) {
    ui_->setupUi(this);
    ConnectControls();
}

frmGlobalConfig::~frmGlobalConfig() = default;

void frmGlobalConfig::ConnectControls() {
    connect(ui_->optZeroWeightNo, &QRadioButton::clicked, this, &frmGlobalConfig::optZeroWeightNo_Click);
    connect(ui_->optZeroWeightYes, &QRadioButton::clicked, this, &frmGlobalConfig::optZeroWeightYes_Click);
    connect(ui_->optEnableRX415Handling, &QRadioButton::clicked, this, &frmGlobalConfig::optEnableRX415Handling_Click);
    connect(ui_->optDisableRX415Handling, &QRadioButton::clicked, this,
            &frmGlobalConfig::optDisableRX415Handling_Click);
    connect(ui_->optAllowAll, &QRadioButton::clicked, this, &frmGlobalConfig::optAllowAll_Click);
    connect(ui_->optTavrinOnly, &QRadioButton::clicked, this, &frmGlobalConfig::optTavrinOnly_Click);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

void frmGlobalConfig::Form_Load() {
    const std::array options = {
        Option{VendorEnforcement, 1, ui_->optTavrinOnly, ui_->optAllowAll},
        Option{RX415Handling, 0, ui_->optEnableRX415Handling, ui_->optDisableRX415Handling},
        Option{ZeroWeightReject, 0, ui_->optZeroWeightNo, ui_->optZeroWeightYes},
    };
    for (const Option& option : options) {
        const std::int16_t number = StoredOption(option);
        // Selecting a button stores 0 or 1, as a user's choice does; what was stored may be another number.
        (number == 0 ? option.off : option.on)->click();
        WriteOption(option.valueName, number);
    }
}

std::int16_t frmGlobalConfig::StoredOption(const Option& option) {
    const auto store = registry_.CreateStore();
    store->CreateMissing(false);
    store->RootKey(RegistryRoot::LocalMachine);
    store->KeyPath(RegistryPaths::DriverOptions);
    if (!Lists(*store, option.valueName))
        return option.defaultNumber;
    return StoredNumber(store->ReadValue(RegistryValueType::String, option.valueName));
}

void frmGlobalConfig::WriteOption(const char* valueName, std::int16_t number) {
    const auto store = registry_.CreateStore();
    store->RootKey(RegistryRoot::LocalMachine);
    store->KeyPath(RegistryPaths::DriverOptions);
    store->WriteValue(valueName, std::to_string(number));
    store->Release();
}

void frmGlobalConfig::optZeroWeightNo_Click() {
    WriteOption(ZeroWeightReject, ui_->optZeroWeightNo->isChecked() ? 1 : 0);
}

void frmGlobalConfig::optZeroWeightYes_Click() {
    WriteOption(ZeroWeightReject, ui_->optZeroWeightYes->isChecked() ? 0 : 1);
}

void frmGlobalConfig::optEnableRX415Handling_Click() {
    WriteOption(RX415Handling, ui_->optEnableRX415Handling->isChecked() ? 1 : 0);
}

void frmGlobalConfig::optDisableRX415Handling_Click() {
    WriteOption(RX415Handling, ui_->optDisableRX415Handling->isChecked() ? 0 : 1);
}

void frmGlobalConfig::optAllowAll_Click() {
    WriteOption(VendorEnforcement, ui_->optAllowAll->isChecked() ? 0 : 1);
}

void frmGlobalConfig::optTavrinOnly_Click() {
    WriteOption(VendorEnforcement, ui_->optTavrinOnly->isChecked() ? 1 : 0);
}
