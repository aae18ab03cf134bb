// The page that tests a scanner or a scale with one button.
#pragma once

#include "views/DeviceNameLists.h"
#include "views/ProfileInUse.h"
#include "views/TestServices.h"

#include <QFrame>
#include <QTimer>

#include <functional>
#include <memory>

class OPOSScale;
class OPOSScanner;
class OposControl;

namespace Ui {
class SimpleTestView;
}

// The tests of both device classes run independently of each other. While one runs its profile is in use.
class SimpleTestView : public QFrame {
    Q_OBJECT

public:
    explicit SimpleTestView(const TestServices& services, QWidget* parent = nullptr);
    ~SimpleTestView() override;

    [[nodiscard]] DeviceNameList NameLists() const;
    // Selects the first profile of each list that has any.
    void SelectFirstNames();

    // The scanner and the scale under test.
    [[nodiscard]] OPOSScanner& SimpleScan() const { return *simpleScan_; }
    [[nodiscard]] OPOSScale& SimpleScale() const { return *simpleScale_; }

private:
    void ConnectControls();

    void cmdSimpleScannerBegin_Click();
    void cmdSimpleScannerEnd_Click();
    void cmdSimpleScaleBegin_Click();
    void cmdSimpleScaleEnd_Click();
    void tmrSimpleScale_Timer();
    void SimpleScan_DataEvent();
    void SimpleScale_DataEvent(std::int32_t status);

    void BeginScannerTest();
    void BeginScaleTest();
    // The error trap of both Begin buttons: an error ends in a message box, and the device is closed.
    void RunTrapped(OposControl& device, const std::function<void()>& begin);
    void ReadNextWeight();

    std::unique_ptr<Ui::SimpleTestView> ui_;
    Registry& registry_;
    QTimer tmrSimpleScale_{this};
    ProfileInUse scannerInUse_;
    ProfileInUse scaleInUse_;
    std::int32_t lastWeight_ = 0;
    std::unique_ptr<OPOSScanner> simpleScan_;
    std::unique_ptr<OPOSScale> simpleScale_;
};
