// The rules by which one choice of a profile page enables, hides or resets the others; the same on the pages for new
// and for existing profiles.
#pragma once

#include <QString>

#include <cstdint>

class DropDownList;
class QLabel;
class QPushButton;

// The controls of a profile page that the rules work on.
struct ProfileControls {
    DropDownList* interfaceList;
    DropDownList* comPort;
    DropDownList* modelNumber;
    DropDownList* scale; // the scale built into a scanner
    QLabel* scaleWeightUnitLabel;
    DropDownList* scaleWeightUnit;
    QLabel* scaleDisplayLabel;
    DropDownList* scaleDisplay;
    DropDownList* scaleType; // the type of a scale profile
    DropDownList* scaleTypeWeightUnit;
    DropDownList* scaleTypeDisplay;
    QLabel* modelPicture;
    QPushButton* program;
};

class ProfileRules {
public:
    explicit ProfileRules(const ProfileControls& controls) : controls_(controls) {}

    // Only a serial interface has a port; without one there is nothing to program over.
    void InterfaceClicked() const;
    // Only one family of models can carry a scale.
    void ModelClicked() const;
    // Unit and display are asked for only where there is a scale.
    void ScaleClicked() const;
    // A dual-cable scale is connected by a serial cable only, and is not programmed.
    void ScaleTypeClicked() const;
    // The picture of the selected model, of the first one when none is selected.
    void ShowSelectedModel() const;

    // The port chosen; 0 for an interface other than the serial one. Errors: NumberedError for a text that names no
    // port.
    [[nodiscard]] std::int16_t SelectedPort() const;

private:
    ProfileControls controls_;
};

// Fills the lists with "COM1" to "COM64" and selects the first. The result holds the port numbers in list order, two
// digits each.
QString FillComPortLists(std::initializer_list<DropDownList*> lists);
