// The contract's lane over the control objects of this system.
#include "opos/ContractLane.h"
#include "platform/opos/OposSite.h"
#include "platform/opos/SimulatedScale.h"
#include "profiles/RegistryPaths.h"
#include "profiles/Weight.h"

namespace {

class SystemContractLane final : public ContractLane {
public:
    SystemContractLane() {
        site_.SaveScanner(ScannerName, 1);
        site_.SaveScale(ScaleName, 2);
        site_.SaveScaleAs<CAveryScale>(SynchronousScaleName, 3);
        site_.registry.Put(std::string(RegistryPaths::ScannerFolder) + ForeignScannerName, "", "Kalder.Scanner.SO");
    }

    OposControls& Controls() override { return *site_.controls; }
    EventDispatcher& Dispatcher() override { return site_.dispatcher; }
    bool RunUntil(const std::function<bool()>& condition) override { return site_.dispatcher.RunUntil(condition); }

    void Scan(const std::string& symbol) override { scannerLine_.Send(symbol + "\r"); }
    void Weigh(std::int32_t thousandths) override {
        if (thousandths < 0)
            Answer(SimulatedScale::Status(1));
        else
            Answer(SimulatedScale::Frame((thousandths < 10000 ? "0" : "") + FormatThousandths(thousandths)));
    }
    void Overload() override { Answer(SimulatedScale::Status(2)); }
    void MuteScales() override {
        scale_.AnswerWith([](char) { return std::string(); });
        synchronousScale_.AnswerWith([](char) { return std::string(); });
    }

private:
    void Answer(const std::string& toWeight) {
        const auto answer = [toWeight](char command) { return command == 'W' ? toWeight : SimulatedScale::Status(16); };
        scale_.AnswerWith(answer);
        synchronousScale_.AnswerWith(answer);
    }

    OposSite site_;
    PseudoTerminal scannerLine_{site_.ports, 1};
    PseudoTerminal scaleLine_{site_.ports, 2};
    PseudoTerminal synchronousScaleLine_{site_.ports, 3};
    SimulatedScale scale_{scaleLine_, [](char) { return SimulatedScale::Status(16); }};
    SimulatedScale synchronousScale_{synchronousScaleLine_, [](char) { return SimulatedScale::Status(16); }};
};

} // namespace

std::unique_ptr<ContractLane> MakeContractLane() {
    return std::make_unique<SystemContractLane>();
}
