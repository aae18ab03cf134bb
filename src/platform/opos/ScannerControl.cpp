#include "platform/opos/ScannerControl.h"

#include "platform/opos/ServiceCatalogue.h"

#include <utility>

ScannerControl::ScannerControl(Registry& registry, EventDispatcher& dispatcher, Lines& lines)
    : ControlObject(dispatcher), registry_(registry), lines_(lines) {}

void ScannerControl::DecodeData(bool decode) {
    if (!IsOpen())
        return;
    decodeData_ = decode;
    Done(OposResult::Success);
}

std::string ScannerControl::ScanData() const {
    return IsOpen() ? label_.data : ClosedText;
}

std::string ScannerControl::ScanDataLabel() const {
    return IsOpen() ? label_.label : ClosedText;
}

ControlObject::OpenOutcome ScannerControl::OpenService(const std::string& deviceName) {
    auto opened = OpenScannerService(registry_, lines_, deviceName);
    return {std::move(opened.service), opened.result, opened.openResult};
}

void ScannerControl::ResetProperties() {
    decodeData_ = false;
    label_ = {};
}

void ScannerControl::TakeData(DataEvent event) {
    label_ = std::move(event.label);
    if (decodeData_)
        return;
    label_.label.clear();
    label_.symbology = OposSymbology::Unknown;
}
