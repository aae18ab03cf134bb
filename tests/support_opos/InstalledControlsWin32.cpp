#include "support_opos/InstalledControls.h"

#include "platform/opos/ScaleControl.h"
#include "platform/opos/ScannerControl.h"
#include "platform/windows/WideText.h"
#include "support_opos/ComServer.h"

#include <map>
#include <utility>

#include <objbase.h>

namespace {

std::string Utf8Of(BSTR text) {
    return Utf8({text, SysStringLen(text)});
}

void Replace(BSTR& text, const std::string& utf8) {
    const std::wstring wide = Wide(utf8);
    SysReAllocStringLen(&text, wide.data(), static_cast<UINT>(wide.size()));
}

// What a scanner sent: a character for each byte.
std::string Latin1(const std::string& bytes) {
    return Utf8(std::wstring(reinterpret_cast<const unsigned char*>(bytes.data()),
                             reinterpret_cast<const unsigned char*>(bytes.data()) + bytes.size()));
}

// A control object of the program's behind COM: its members by their names.
template<class Control>
class Installed : public ServedControl {
public:
    explicit Installed(std::unique_ptr<Control> control) : control_(std::move(control)) {
        AddMethods();
        AddProperties();
        control_->OnDataEvent([this](std::int32_t status) { Fire(1, L"DataEvent", {Long(status)}); });
        control_->OnErrorEvent(
            [this](std::int32_t code, std::int32_t extended, std::int32_t locus, std::int32_t& response) {
                LONG answer = response;
                Fire(3, L"ErrorEvent", {Long(code), Long(extended), Long(locus), Reference(answer)});
                response = answer;
            });
    }

    [[nodiscard]] bool IsProperty(const std::wstring& name) const override { return readers_.contains(name); }
    [[nodiscard]] bool IsMethod(const std::wstring& name) const override { return methods_.contains(name); }
    [[nodiscard]] ComValue Get(const std::wstring& property) override { return readers_.at(property)(*control_); }
    void Put(const std::wstring& property, bool flag) override { writers_.at(property)(*control_, flag); }
    std::int32_t Call(const std::wstring& method, std::vector<VARIANT*>& arguments) override {
        return methods_.at(method)(*control_, arguments);
    }

protected:
    using Arguments = const std::vector<VARIANT*>&;

    template<class Owner>
    void Flag(const wchar_t* name, bool (Owner::*read)() const, void (Owner::*write)(bool)) {
        readers_[name] = [read](Control& control) { return ComValue((control.*read)()); };
        writers_[name] = [write](Control& control, bool flag) { (control.*write)(flag); };
    }
    template<class Owner, class Value>
    void Property(const wchar_t* name, Value (Owner::*read)() const) {
        readers_[name] = [read](Control& control) { return ComValue((control.*read)()); };
    }
    template<class Owner>
    void Bytes(const wchar_t* name, std::string (Owner::*read)() const) {
        readers_[name] = [read](Control& control) { return ComValue(Latin1((control.*read)())); };
    }
    template<class Work>
    void Method(const wchar_t* name, Work work) {
        methods_[name] = work;
    }

private:
    void AddMethods() {
        Method(L"Open", [](Control& c, Arguments given) { return c.Open(Utf8Of(given.at(0)->bstrVal)); });
        Method(L"Close", [](Control& c, Arguments) { return c.Close(); });
        Method(L"ClaimDevice", [](Control& c, Arguments given) { return c.ClaimDevice(given.at(0)->lVal); });
        Method(L"ReleaseDevice", [](Control& c, Arguments) { return c.ReleaseDevice(); });
        Method(L"ClearInput", [](Control& c, Arguments) { return c.ClearInput(); });
        Method(L"DirectIO", [](Control& c, Arguments given) {
            std::int32_t data = *given.at(1)->plVal;
            std::string text = Utf8Of(*given.at(2)->pbstrVal);
            const std::int32_t result = c.DirectIO(given[0]->lVal, data, text);
            *given[1]->plVal = data;
            Replace(*given[2]->pbstrVal, text);
            return result;
        });
        Method(L"RetrieveStatistics", [](Control& c, Arguments given) {
            std::string buffer = Utf8Of(*given.at(0)->pbstrVal);
            const std::int32_t result = c.RetrieveStatistics(buffer);
            Replace(*given[0]->pbstrVal, buffer);
            return result;
        });
    }

    void AddProperties() {
        Flag(L"DeviceEnabled", &OposControl::DeviceEnabled, &OposControl::DeviceEnabled);
        Flag(L"DataEventEnabled", &OposControl::DataEventEnabled, &OposControl::DataEventEnabled);
        Flag(L"AutoDisable", &OposControl::AutoDisable, &OposControl::AutoDisable);
        Flag(L"FreezeEvents", &OposControl::FreezeEvents, &OposControl::FreezeEvents);
        Property(L"Claimed", &OposControl::Claimed);
        Property(L"DataCount", &OposControl::DataCount);
        Property(L"State", &OposControl::State);
        Property(L"ResultCode", &OposControl::ResultCode);
        Property(L"ResultCodeExtended", &OposControl::ResultCodeExtended);
        Property(L"OpenResult", &OposControl::OpenResult);
        Property(L"DeviceName", &OposControl::DeviceName);
        Property(L"DeviceDescription", &OposControl::DeviceDescription);
        Property(L"ServiceObjectVersion", &OposControl::ServiceObjectVersion);
        Property(L"ServiceObjectDescription", &OposControl::ServiceObjectDescription);
        Property(L"ControlObjectVersion", &OposControl::ControlObjectVersion);
        Property(L"ControlObjectDescription", &OposControl::ControlObjectDescription);
    }

    std::map<std::wstring, std::function<ComValue(Control&)>> readers_;
    std::map<std::wstring, std::function<void(Control&, bool)>> writers_;
    std::map<std::wstring, std::function<std::int32_t(Control&, Arguments)>> methods_;
    std::unique_ptr<Control> control_; // first to go: an event of its end finds the rest
};

class InstalledScanner final : public Installed<OPOSScanner> {
public:
    explicit InstalledScanner(std::unique_ptr<OPOSScanner> scanner) : Installed(std::move(scanner)) {
        Flag(L"DecodeData", &OPOSScanner::DecodeData, &OPOSScanner::DecodeData);
        Bytes(L"ScanData", &OPOSScanner::ScanData);
        Bytes(L"ScanDataLabel", &OPOSScanner::ScanDataLabel);
        Property(L"ScanDataType", &OPOSScanner::ScanDataType);
    }
};

class InstalledScale final : public Installed<OPOSScale> {
public:
    explicit InstalledScale(std::unique_ptr<OPOSScale> scale) : Installed(std::move(scale)) {
        Flag(L"AsyncMode", &OPOSScale::AsyncMode, &OPOSScale::AsyncMode);
        Property(L"MaximumWeight", &OPOSScale::MaximumWeight);
        Property(L"WeightUnit", &OPOSScale::WeightUnit);
        Method(L"ZeroScale", [](OPOSScale& c, Arguments) { return c.ZeroScale(); });
        Method(L"ReadWeight", [](OPOSScale& c, Arguments given) {
            std::int32_t weight = *given.at(0)->plVal;
            const std::int32_t result = c.ReadWeight(weight, given.at(1)->lVal);
            *given[0]->plVal = weight;
            return result;
        });
    }
};

// COM on this thread.
class Apartment {
public:
    Apartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~Apartment() {
        if (entered_)
            CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    bool entered_;
};

} // namespace

class InstalledControls::Private {
public:
    Private(Registry& registry, EventDispatcher& dispatcher)
        : scanner_(L"OPOS.Scanner",
                   [this, &registry, &dispatcher] {
                       return std::make_shared<InstalledScanner>(std::make_unique<NativeScanner>(
                           std::make_shared<ScannerControl>(registry, dispatcher, lines_), "Installed scanner"));
                   }),
          scale_(L"OPOS.Scale", [this, &registry, &dispatcher] {
              return std::make_shared<InstalledScale>(std::make_unique<NativeScale>(
                  std::make_shared<ScaleControl>(registry, dispatcher, lines_), "Installed scale"));
          }) {}

private:
    Apartment apartment_;
    Lines lines_;
    ServedClass scanner_;
    ServedClass scale_;
};

InstalledControls::InstalledControls(Registry& registry, EventDispatcher& dispatcher)
    : private_(std::make_unique<Private>(registry, dispatcher)) {}

InstalledControls::~InstalledControls() = default;
