#include "views/ProfileRules.h"

#include "profiles/CGenericScale.h"
#include "profiles/CGenericScanner.h"
#include "profiles/ModelCatalogue.h"
#include "profiles/Numbers.h"
#include "profiles/OptionLists.h"
#include "widgets/DropDownList.h"
#include "widgets/ModelPicture.h"

#include <QLabel>
#include <QPushButton>

using OptionLists::SerialInterface;

namespace {

std::int16_t SelectedIndex(const DropDownList& list, std::int16_t stored) {
    return list.ListIndex() < 0 ? stored : static_cast<std::int16_t>(list.ListIndex());
}

} // namespace

void ProfileRules::InterfaceClicked() const {
    if (controls_.interfaceList->ListIndex() == SerialInterface) {
        if (!controls_.comPort->isEnabled()) {
            controls_.comPort->SetListIndex(0);
            controls_.comPort->setEnabled(true);
        }
    } else {
        controls_.comPort->SetListIndex(-1);
        controls_.comPort->setEnabled(false);
        controls_.program->setEnabled(false);
    }
}

void ProfileRules::ModelClicked() const {
    controls_.scale->setEnabled(controls_.modelNumber->Text().contains("Pelerin"));
    controls_.scale->SetListIndex(0);
    ShowSelectedModel();
}

void ProfileRules::ScaleClicked() const {
    const bool hasScale = controls_.scale->ListIndex() > 0;
    controls_.scaleWeightUnitLabel->setVisible(hasScale);
    controls_.scaleDisplayLabel->setVisible(hasScale);
    for (DropDownList* list : {controls_.scaleWeightUnit, controls_.scaleDisplay}) {
        list->setEnabled(hasScale);
        list->setVisible(hasScale);
        if (!hasScale)
            list->SetListIndex(0);
    }
}

void ProfileRules::ScaleTypeClicked() const {
    const int type = controls_.scaleType->ListIndex();
    controls_.program->setEnabled(type == 0);
    controls_.scaleTypeWeightUnit->setEnabled(true);
    controls_.scaleTypeDisplay->setEnabled(true);
    if (type == 1)
        controls_.interfaceList->SetListIndex(SerialInterface);
    controls_.interfaceList->setEnabled(type != 1);
}

void ProfileRules::ShowSelectedModel() const {
    ShowModelPicture(*controls_.modelPicture, controls_.modelNumber->ItemData(controls_.modelNumber->ListIndex()));
}

void ProfileRules::SelectFirstOptions() const {
    for (DropDownList* list : {controls_.scale, controls_.scaleType, controls_.modelNumber, controls_.scaleWeightUnit,
                               controls_.scaleTypeWeightUnit, controls_.scaleDisplay, controls_.scaleTypeDisplay})
        list->SetListIndex(0);
}

void ProfileRules::ApplySettings(CGenericScanner& scanner) const {
    if (controls_.modelNumber->ListIndex() >= 0)
        scanner.Model(controls_.modelNumber->Text().toStdString());
    scanner.ScannerType(ScannerTypeOf(controls_.interfaceList->ListIndex(), scanner.Model()));
    scanner.SerialPort(SelectedPort(scanner.SerialPort()));
    scanner.SScaleType(SelectedIndex(*controls_.scale, scanner.SScaleType()));
    if (controls_.scale->ListIndex() > 0) {
        scanner.SWeightUnit(SelectedIndex(*controls_.scaleWeightUnit, scanner.SWeightUnit()));
        scanner.SDisplay(SelectedIndex(*controls_.scaleDisplay, scanner.SDisplay()));
    }
}

void ProfileRules::ApplySettings(CGenericScale& scale) const {
    scale.SerialPort(SelectedPort(scale.SerialPort()));
    scale.WeightUnit(SelectedIndex(*controls_.scaleTypeWeightUnit, scale.WeightUnit()));
    scale.Display(SelectedIndex(*controls_.scaleTypeDisplay, scale.Display()));
}

std::int16_t ProfileRules::SelectedPort(std::int16_t stored) const {
    if (controls_.interfaceList->ListIndex() != SerialInterface)
        return 0;
    if (controls_.comPort->ListIndex() < 0)
        return stored;
    return PortNumber(controls_.comPort->Text().toStdString());
}

QString FillComPortLists(std::initializer_list<DropDownList*> lists) {
    QString portNumbers;
    for (int port = 1; port <= OptionLists::LastComPort; ++port) {
        for (DropDownList* list : lists)
            list->AddItem(QStringLiteral("COM%1").arg(port));
        portNumbers += QStringLiteral("00%1").arg(port).right(2);
    }
    for (DropDownList* list : lists)
        list->SetListIndex(0);
    return portNumbers;
}
