// The options that all service objects of the maker share. Choosing one stores it at once; closing stores nothing.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>

class QRadioButton;
class Registry;

namespace Ui {
class frmGlobalConfig;
}

class frmGlobalConfig : public QDialog {
    Q_OBJECT

public:
    // The registry outlives the dialog.
    explicit frmGlobalConfig(Registry& registry, QWidget* parent = nullptr);
    ~frmGlobalConfig() override;

    // Shows the stored options and stores them again as plain numbers, the missing ones with their defaults. To be
    // called once, before the dialog is shown. Errors: RegistryError; NumberedError TypeMismatch or Overflow for a
    // stored text that is no number.
    void Form_Load();

private:
    // An option of the registry and its two buttons.
    struct Option {
        const char* valueName;
        std::int16_t defaultNumber;
        QRadioButton* on;  // chosen for every number but 0
        QRadioButton* off; // chosen for 0
    };
    void ConnectControls();
    [[nodiscard]] std::int16_t StoredOption(const Option& option);
    void WriteOption(const char* valueName, std::int16_t number);

    void optZeroWeightNo_Click();
    void optZeroWeightYes_Click();
    void optEnableRX415Handling_Click();
    void optDisableRX415Handling_Click();
    void optAllowAll_Click();
    void optTavrinOnly_Click();

    std::unique_ptr<Ui::frmGlobalConfig> ui_;
    Registry& registry_;
};
