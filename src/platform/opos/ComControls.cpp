// The OPOS common control objects that are installed on this system.
#include "opos/OposControls.h"
#include "platform/opos/ComControl.h"

#include <objbase.h>

namespace {

class ComScanner final : public ComControl<OPOSScanner> {
public:
    explicit ComScanner(EventDispatcher& dispatcher) : ComControl(L"OPOS.Scanner", dispatcher) {}

    [[nodiscard]] bool DecodeData() const override { return device_.Flag(L"DecodeData"); }
    void DecodeData(bool decode) override { device_.Put(L"DecodeData", decode); }
    [[nodiscard]] std::string ScanData() const override { return device_.Bytes(L"ScanData"); }
    [[nodiscard]] std::string ScanDataLabel() const override { return device_.Bytes(L"ScanDataLabel"); }
    [[nodiscard]] std::int32_t ScanDataType() const override { return device_.Number(L"ScanDataType"); }
};

class ComScale final : public ComControl<OPOSScale> {
public:
    explicit ComScale(EventDispatcher& dispatcher) : ComControl(L"OPOS.Scale", dispatcher) {}

    [[nodiscard]] bool AsyncMode() const override { return device_.Flag(L"AsyncMode"); }
    void AsyncMode(bool async) override { device_.Put(L"AsyncMode", async); }
    [[nodiscard]] std::int32_t MaximumWeight() const override { return device_.Number(L"MaximumWeight"); }
    [[nodiscard]] std::int32_t WeightUnit() const override { return device_.Number(L"WeightUnit"); }
    std::int32_t ReadWeight(std::int32_t& weight, std::int32_t timeout) override {
        LONG read = weight;
        std::vector<ComValue> arguments;
        arguments.push_back(ComValue::Reference(read));
        arguments.emplace_back(timeout);
        const std::int32_t result = device_.Call(L"ReadWeight", std::move(arguments));
        weight = read;
        return result;
    }
    std::int32_t ZeroScale() override { return device_.Call(L"ZeroScale"); }
};

class ComControls final : public OposControls {
public:
    // Where the thread is in another kind of apartment already, COM works all the same.
    explicit ComControls(EventDispatcher& dispatcher)
        : dispatcher_(dispatcher), entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComControls() override {
        if (entered_)
            CoUninitialize();
    }

    std::unique_ptr<OPOSScanner> CreateScanner() override { return std::make_unique<ComScanner>(dispatcher_); }
    std::unique_ptr<OPOSScale> CreateScale() override { return std::make_unique<ComScale>(dispatcher_); }

private:
    EventDispatcher& dispatcher_;
    bool entered_;
};

} // namespace

std::unique_ptr<OposControls> OpenSystemControls(Registry& /*registry*/, EventDispatcher& dispatcher) {
    return std::make_unique<ComControls>(dispatcher);
}
