// The page that drives every OPOS operation of a device.
#pragma once

#include "views/DeviceNameLists.h"
#include "views/ProfileInUse.h"
#include "views/TestServices.h"

#include <QFrame>
#include <QTimer>

#include <memory>

class OPOSScale;
class OPOSScanner;
class OposControl;
class QCheckBox;

namespace Ui {
class DetailedTestView;
}

// Every call is possible at any time: what came of it stands in lblDetailedResultCode. The buttons work on the device
// of the chosen class; a scanner and a scale may be open together. A profile is in use while it is open here.
class DetailedTestView : public QFrame {
    Q_OBJECT

public:
    // simpleScale is the Simple Test page's scale, which outlives this page.
    DetailedTestView(const TestServices& services, OPOSScale& simpleScale, QWidget* parent = nullptr);
    ~DetailedTestView() override;

    [[nodiscard]] DeviceNameList NameLists() const;
    // Selects the first device class, which shows the names of its profiles.
    void SelectFirstDeviceType();

    [[nodiscard]] OPOSScanner& DetailScan() const { return *detailScan_; }

private:
    void ConnectControls();
    void ConnectCalls();
    void ConnectCheckBoxes();
    void ConnectEvents();

    void lstDetailedDeviceType_Click();
    void lstDetailedDeviceName_Click(std::int32_t deviceType);
    void cmdDetailedOpen_Click();
    void cmdDetailedClaim_Click();
    void cmdDetailedEnable_Click();
    void cmdDetailedDisable_Click();
    void cmdDetailedClose_Click();
    void cmdDetailedScaleWeight_Click();
    void cmdDetailedDirectIO_Click();
    void cmdDetailedRetrieveStatistics_Click();
    void chkDetailedDataEventAlways_Click();
    void tmrDetailedPollScanner_Timer();
    void tmrDetailScale_Timer();
    void DetailScan_DataEvent();
    void DetailScale_ErrorEvent(std::int32_t resultCode);

    [[nodiscard]] bool IsScanner() const;
    [[nodiscard]] OposControl& Device() const;
    [[nodiscard]] ProfileInUse& InUse();
    [[nodiscard]] QString ChosenName() const;
    void ShowResult();
    void ShowResultName(const std::string& name);
    void ShowState();
    void ShowWeight(std::int32_t weight);
    void ShowTimeOut();
    void ClearScanData();
    void ShowControlsOf(int deviceType);
    // Shows the box so without the click that a user's choice raises.
    static void ShowChecked(QCheckBox& box, bool checked);

    std::unique_ptr<Ui::DetailedTestView> ui_;
    Registry& registry_;
    OPOSScale& simpleScale_;
    QTimer tmrDetailedPollScanner_{this};
    QTimer tmrDetailScale_{this};
    ProfileInUse scannerInUse_;
    ProfileInUse scaleInUse_;
    bool readWeightHadFocus_ = false;
    std::unique_ptr<OPOSScanner> detailScan_;
    std::unique_ptr<OPOSScale> detailScale_;
};
