// The dialog that offers to make a scale profile beside a scanner profile. It stores nothing itself.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>

class CGenericScale;
class DropDownList;
class Registry;

namespace Ui {
class frmConfigScale;
}

class frmConfigScale : public QDialog {
    Q_OBJECT

public:
    struct Services {
        Registry& registry;          // for the profile that is made; outlives it
        QString availableComPorts;   // two digits a port
        QString availableInterfaces; // separated by carriage returns
    };
    // Errors: NumberedError TypeMismatch for a port number that is none.
    explicit frmConfigScale(const Services& services, QWidget* parent = nullptr);
    ~frmConfigScale() override;

    // Presets the controls. All but the name are list positions; a dual-cable scale (type 1) ignores the port and the
    // interface. Errors: NumberedError InvalidPropertyValue for a position that its list does not have.
    void ScaleParams(const QString& name, std::int16_t port, std::int16_t scaleType, std::int16_t interfaceIndex,
                     std::int16_t weightUnit, std::int16_t display);

    // The profile that the user chose to create; null when the dialog was cancelled.
    [[nodiscard]] std::shared_ptr<CGenericScale> ScaleProfile() const { return scaleProfile_; }

private:
    void ConnectControls();
    void lstScaleType_Click();
    void lstInterface_Click();
    void txtScaleName_Change();
    void cmdCreate_Click();

    std::unique_ptr<Ui::frmConfigScale> ui_;
    Registry& registry_;
    std::shared_ptr<CGenericScale> scaleProfile_;
};
