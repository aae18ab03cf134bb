// The surroundings of a page that tests devices: a real registry, profiles and scripted control objects.
#pragma once

#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/TemporaryRegistry.h"
#include "support_opos/ScriptedControls.h"
#include "support_widgets/Controls.h"
#include "views/DeviceCollection.h"
#include "views/TestServices.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTimer>

struct TestSite {
    TemporaryRegistry registry;
    DeviceCollection devices;
    ScriptedControls controls;
    TestServices services{registry, devices, controls};

    // Stores a profile of that class and enters it in the collection.
    template<typename Profile>
    std::shared_ptr<CDevice> Add(const std::string& name) {
        auto device = std::make_shared<Profile>(registry);
        device->DeviceName(name);
        device->SaveDevice(false);
        devices.Add(device->DeviceType(), QString::fromStdString(name), device);
        return device;
    }

    void RejectZeroWeight(const std::string& value) {
        registry.Put(RegistryPaths::DriverOptions, "ZeroWeightReject", value);
    }
};

// Short names for the controls of a page.
class PageControls {
public:
    explicit PageControls(QWidget& page) : page_(page) {}

    [[nodiscard]] DropDownList& List(const char* name) const { return Control<DropDownList>(page_, name); }
    [[nodiscard]] QLabel& Label(const char* name) const { return Control<QLabel>(page_, name); }
    [[nodiscard]] QString Text(const char* name) const { return Label(name).text(); }
    [[nodiscard]] QAbstractButton& Button(const char* name) const { return Control<QAbstractButton>(page_, name); }
    [[nodiscard]] bool Checked(const char* name) const { return Button(name).isChecked(); }
    void Press(const char* name) const { Click(Button(name)); }
    [[nodiscard]] QTimer& Timer(const char* name) const {
        auto* timer = page_.findChild<QTimer*>(name);
        if (timer == nullptr)
            throw std::runtime_error(std::string("no timer ") + name);
        return *timer;
    }

    // Fails where two visible controls of the page answer to the same key, or one to a key of the menu bar.
    void ExpectUniqueMnemonics() const;

private:
    QWidget& page_;
};
