// The New Profile page as the main window has it after its start, over a real store.
#pragma once

#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/ModelCatalogue.h"
#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"
#include "views/DeviceCollection.h"
#include "views/DeviceNameLists.h"
#include "views/NewProfileView.h"
#include "widgets/ModelPicture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

inline const QString Created = "Device profile created successfully.";
inline const QString Updated = "Updated device profile successfully.";
inline const QString Overwrite = "The specified device name already exists.  Do you wish\r\n"
                                 "to overwrite the current settings with the new settings?";
inline const QString ProgramQuestion =
    "You must reprogram your scanner before it will work\r\nwith the Tavrin OPOS drivers.  Do "
    "you wish to\r\nreprogram your scanner now?\r\n\r\nYou can reprogram your scanner at a "
    "later time by\r\nclicking the Program button in the Modify Profile section.";
inline const QString ScannerKey = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\";
inline const QString ScaleKey = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scale\\";

inline QString SetupNotice(const QString& word) {
    return "If not already configured for use with Ravlin, your " + word +
           " scanner must be configured by the scanning of a bar code or a menu of bar codes.  Please contact a Tavrin "
           "representative if you require assistance with that.";
}

inline const QString DriverNote =
    "\r\n\r\nNote that your POS USB scanner also requires you to have installed a POS USB driver, separate from the "
    "Ravlin "
    "OPOS driver.  POS USB drivers are available from the downloads section of the Tavrin web site.  Please contact a "
    "Tavrin representative if you require assistance with that.";

class NewProfile : public ::testing::Test {
protected:
    NewProfile() {
        comPorts_ = FillComPortLists({&page_.ComPortList()});
        page_.UseNameLists(names_);
        page_.InterfaceList().SetListIndex(0);
        page_.SelectFirstOptions();
        page_.SelectFirstDeviceType();
        QObject::connect(&page_, &NewProfileView::ProgramRequested, &page_,
                         [this](const std::shared_ptr<CDevice>& device) { toProgram_.push_back(device); });
        page_.show();
        page_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page_));
    }

    DropDownList& List(const QString& name) { return Control<DropDownList>(page_, name); }
    QPushButton& Button(const QString& name) { return Control<QPushButton>(page_, name); }
    QWidget& Widget(const QString& name) { return Control<QWidget>(page_, name); }
    QLineEdit& Name() { return Control<QLineEdit>(page_, "txtNewDeviceName"); }
    int Picture() { return ShownModelPicture(Control<QLabel>(page_, "imgNewModelPicture")); }
    void TypeName(const QString& name) {
        Name().clear();
        QTest::keyClicks(&Name(), name);
    }
    // Saves a serial scanner or a scale that is new, and declines to program.
    void Save() {
        const bool scanner = List("lstNewDeviceType").ListIndex() == 0;
        const ExpectBox created("Ravlin", Created);
        if (!scanner)
            return Click(Button("cmdNewSave"));
        const ExpectBox question("Program Scanner?", ProgramQuestion, QMessageBox::No);
        Click(Button("cmdNewSave"));
    }
    std::string ScannerValue(const QString& name, const std::string& value) {
        return registry_.Text((ScannerKey + name).toStdString(), value);
    }
    std::string ScaleValue(const QString& name, const std::string& value) {
        return registry_.Text((ScaleKey + name).toStdString(), value);
    }

    TemporaryRegistry registry_;
    DeviceCollection devices_;
    std::array<DropDownList, 8> lists_;
    DeviceNameLists names_{
        {{&lists_[0], &lists_[1]}, {&lists_[2], &lists_[3]}, {&lists_[4], &lists_[5]}, {&lists_[6], &lists_[7]}}};
    QString comPorts_;
    NewProfileView page_{{registry_, devices_, comPorts_}};
    std::vector<std::shared_ptr<CDevice>> toProgram_;
};
