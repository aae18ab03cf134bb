// Control objects that answer what a test tells them to, for outcomes that no real device gives on demand.
#pragma once

#include "opos/OposControls.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

// Every member that changes something is recorded ("ClaimDevice 1000", "DeviceEnabled 1") and answers with the result
// set for it (by its name alone), 0 unless set. Properties hold what was written or what the test puts there.
template<typename Control>
class ScriptedControl : public Control {
public:
    std::vector<std::string> calls;
    std::map<std::string, std::int32_t> results;
    // What Open leaves in OpenResult.
    std::int32_t openResult = 0;
    std::int32_t dataCount = 0;
    std::int32_t serviceObjectVersion = 1008001;
    std::int32_t controlObjectVersion = 1008000;
    std::string deviceDescription = "Scripted device";
    std::string reply; // of RetrieveStatistics
    std::string request;
    std::int32_t command = 0;
    std::int32_t commandData = 0;
    std::string commandText;
    std::function<void()> onOpen;  // called in Open
    std::function<void()> onClaim; // called in ClaimDevice

    typename Control::DataHandler dataHandler;
    typename Control::ErrorHandler errorHandler;

    std::int32_t Open(const std::string& deviceName) override {
        if (onOpen)
            onOpen();
        name_ = deviceName;
        const std::int32_t result = Record("Open", deviceName);
        if (result == 0 && openResult == 0)
            state_ = OposState::Idle;
        return result;
    }
    std::int32_t Close() override {
        state_ = OposState::Closed;
        return Record("Close");
    }
    std::int32_t ClaimDevice(std::int32_t timeout) override {
        if (onClaim)
            onClaim();
        return Record("ClaimDevice", std::to_string(timeout));
    }
    std::int32_t ReleaseDevice() override { return Record("ReleaseDevice"); }
    std::int32_t ClearInput() override { return Record("ClearInput"); }
    std::int32_t DirectIO(std::int32_t number, std::int32_t& data, std::string& text) override {
        command = number;
        commandData = std::exchange(data, -1);
        commandText = std::exchange(text, "answer");
        return Record("DirectIO");
    }
    std::int32_t RetrieveStatistics(std::string& statisticsBuffer) override {
        request = statisticsBuffer;
        const std::int32_t result = Record("RetrieveStatistics");
        if (result == 0)
            statisticsBuffer = reply;
        return result;
    }

    bool Claimed() const override { return false; }
    bool DeviceEnabled() const override { return enabled_; }
    void DeviceEnabled(bool on) override { Write("DeviceEnabled", enabled_, on); }
    bool DataEventEnabled() const override { return dataEventEnabled_; }
    void DataEventEnabled(bool on) override { Write("DataEventEnabled", dataEventEnabled_, on); }
    bool AutoDisable() const override { return autoDisable_; }
    void AutoDisable(bool on) override { Write("AutoDisable", autoDisable_, on); }
    bool FreezeEvents() const override { return freeze_; }
    void FreezeEvents(bool on) override { Write("FreezeEvents", freeze_, on); }
    std::int32_t DataCount() const override { return dataCount; }

    std::int32_t State() const override { return state_; }
    std::int32_t ResultCode() const override { return resultCode_; }
    std::int32_t ResultCodeExtended() const override { return 0; }
    std::int32_t OpenResult() const override { return openResult; }
    std::string DeviceName() const override { return name_; }
    std::string DeviceDescription() const override { return deviceDescription; }
    std::int32_t ServiceObjectVersion() const override { return serviceObjectVersion; }
    std::string ServiceObjectDescription() const override { return "Scripted service object"; }
    std::int32_t ControlObjectVersion() const override { return controlObjectVersion; }
    std::string ControlObjectDescription() const override { return "Scripted control object"; }

    void OnDataEvent(typename Control::DataHandler handler) override { dataHandler = std::move(handler); }
    void OnErrorEvent(typename Control::ErrorHandler handler) override { errorHandler = std::move(handler); }
    void OnDirectIOEvent(typename Control::DirectIOHandler) override {}
    void OnStatusUpdateEvent(typename Control::StatusUpdateHandler) override {}

protected:
    std::int32_t Record(const std::string& member, const std::string& argument = {}) {
        calls.push_back(argument.empty() ? member : member + ' ' + argument);
        const auto result = results.find(member);
        return resultCode_ = result == results.end() ? 0 : result->second;
    }
    void Write(const std::string& property, bool& value, bool on) {
        if (Record(property, std::to_string(on)) == 0)
            value = on;
    }
    void FallToNoDataEvents() { dataEventEnabled_ = false; }

private:
    std::string name_;
    std::int32_t state_ = OposState::Closed;
    std::int32_t resultCode_ = 0;
    bool enabled_ = false;
    bool dataEventEnabled_ = false;
    bool autoDisable_ = false;
    bool freeze_ = false;
};

class ScriptedScanner final : public ScriptedControl<OPOSScanner> {
public:
    std::string scanData;
    std::string scanDataLabel;
    std::int32_t scanDataType = 0;

    // Delivers a label as a control object does.
    void Scan(const std::string& data, const std::string& label, std::int32_t type) {
        scanData = data;
        scanDataLabel = label;
        scanDataType = type;
        FallToNoDataEvents();
        dataHandler(0);
    }

    bool DecodeData() const override { return decode_; }
    void DecodeData(bool on) override { Write("DecodeData", decode_, on); }
    std::string ScanData() const override { return scanData; }
    std::string ScanDataLabel() const override { return scanDataLabel; }
    std::int32_t ScanDataType() const override { return scanDataType; }

private:
    bool decode_ = false;
};

class ScriptedScale final : public ScriptedControl<OPOSScale> {
public:
    std::int32_t weightUnit = OposWeightUnit::Kilogram;
    std::int32_t weight = 0;    // what ReadWeight hands out
    std::int32_t weightIn = -1; // what it was handed

    void Weigh(std::int32_t status) {
        FallToNoDataEvents();
        dataHandler(status);
    }

    bool AsyncMode() const override { return async_; }
    void AsyncMode(bool on) override { Write("AsyncMode", async_, on); }
    std::int32_t MaximumWeight() const override { return 30000; }
    std::int32_t WeightUnit() const override { return weightUnit; }
    std::int32_t ReadWeight(std::int32_t& value, std::int32_t timeout) override {
        weightIn = value;
        value = weight;
        return Record("ReadWeight", std::to_string(timeout));
    }
    std::int32_t ZeroScale() override { return Record("ZeroScale"); }

private:
    bool async_ = false;
};

// Hands out scripted controls and keeps their addresses in the order in which they were made.
class ScriptedControls final : public OposControls {
public:
    std::vector<ScriptedScanner*> scanners;
    std::vector<ScriptedScale*> scales;

    std::unique_ptr<OPOSScanner> CreateScanner() override {
        auto scanner = std::make_unique<ScriptedScanner>();
        scanners.push_back(scanner.get());
        return scanner;
    }
    std::unique_ptr<OPOSScale> CreateScale() override {
        auto scale = std::make_unique<ScriptedScale>();
        scales.push_back(scale.get());
        return scale;
    }
};
