// A checkout lane for the contract of the control objects: a scanner and scales of one implementation, and the hands
// that scan and weigh there. An implementation is tested by linking its MakeContractLane.
#pragma once

#include "opos/OposControls.h"

#include <functional>
#include <memory>
#include <string>

class ContractLane {
public:
    virtual ~ContractLane() = default;
    ContractLane(const ContractLane&) = delete;
    ContractLane& operator=(const ContractLane&) = delete;

    virtual OposControls& Controls() = 0;
    virtual EventDispatcher& Dispatcher() = 0;
    // Lets events come until the condition holds; false when it does not within 10 s.
    virtual bool RunUntil(const std::function<bool()>& condition) = 0;

    // Profiles of a scanner, of a scale, of a scale without asynchronous mode and of a service object that is missing.
    static constexpr const char* ScannerName = "Lane Scanner";
    static constexpr const char* ScaleName = "Lane Scale";
    static constexpr const char* SynchronousScaleName = "Lane Synchronous Scale";
    static constexpr const char* ForeignScannerName = "Lane Foreign Scanner";

    // Holds a symbol before the scanner: an AIM symbology identifier and the data.
    virtual void Scan(const std::string& symbol) = 0;
    // Puts so many thousandths of the unit on both scales; below zero the scales never come to rest.
    virtual void Weigh(std::int32_t thousandths) = 0;
    // Puts more on both scales than they carry.
    virtual void Overload() = 0;
    virtual void MuteScales() = 0;

protected:
    ContractLane() = default;
};

[[nodiscard]] std::unique_ptr<ContractLane> MakeContractLane();
