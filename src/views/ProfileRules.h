// The rules by which one choice of a profile page enables, hides or resets the others, and by which the choices make a
// profile; the same on the pages for new and for existing profiles.
#pragma once

#include <QString>

#include <cstdint>

class CGenericScale;
class CGenericScanner;
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

    // Selects the first item of the model, scale, scale type, unit and display lists.
    void SelectFirstOptions() const;

    // Gives the profile the settings that the controls show. What a list shows no selection for stays as it is: the
    // list does not offer what another program stored there, and the user who changes something else does not mean to
    // lose it.
    void ApplySettings(CGenericScanner& scanner) const;
    void ApplySettings(CGenericScale& scale) const;

private:
    // The port chosen, stored where none is; 0 for an interface other than the serial one.
    [[nodiscard]] std::int16_t SelectedPort(std::int16_t stored) const;

    ProfileControls controls_;
};

// Fills the lists with "COM1" to "COM64" and selects the first. The result holds the port numbers in list order, two
// digits each.
QString FillComPortLists(std::initializer_list<DropDownList*> lists);
