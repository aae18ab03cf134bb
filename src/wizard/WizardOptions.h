// One of the three option frames of the wizard: the fields that a scale type asks for.
#pragma once

#include "wizard/WizardProfiles.h"

#include <QFrame>

#include <memory>

namespace Ui {
class WizardOptions;
}

// Its controls are one element of each control array, named with the index of the scale type: "txtScannerName_0". The
// fields that the scale type does not ask for are hidden.
class WizardOptions : public QFrame {
    Q_OBJECT

public:
    // The lists of ports and interfaces are as AvailableLists takes them.
    WizardOptions(int scaleType, const QString& availableComPorts, const QString& availableInterfaces);
    ~WizardOptions() override;

    // Empties the names and selects the first item of every list.
    void Reset();
    // Whether every name that is asked for holds a character other than a blank.
    [[nodiscard]] bool NamesComplete() const;
    // What was chosen here, without the model.
    [[nodiscard]] WizardChoices Choices() const;

signals:
    void NameChanged();

private:
    void NameControls();
    void ShowFields();
    void lstInterface_Click();

    std::unique_ptr<Ui::WizardOptions> ui_;
    int scaleType_;
};
