#include "SimulatedControl.h"

#include "platform/windows/WideText.h"

#include <array>
#include <stdexcept>

#include <olectl.h>

// COM's interfaces have no virtual destructor; their objects end by Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace {

// {6F0D2C61-9C1B-4B1E-8C55-2F0B8A1D7E10}, and the interface of its events.
constexpr CLSID ControlClass = {0x6f0d2c61, 0x9c1b, 0x4b1e, {0x8c, 0x55, 0x2f, 0x0b, 0x8a, 0x1d, 0x7e, 0x10}};
constexpr IID EventInterface = {0x6f0d2c62, 0x9c1b, 0x4b1e, {0x8c, 0x55, 0x2f, 0x0b, 0x8a, 0x1d, 0x7e, 0x10}};

// One object with all the interfaces that a listener needs; the connection points list themselves.
class Object final : public IDispatch,
                     public IConnectionPointContainer,
                     public IConnectionPoint,
                     public IEnumConnectionPoints {
public:
    explicit Object(SimulatedDevice& device) : device_(device) { ++device_.alive; }
    virtual ~Object() { --device_.alive; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        if (wanted == IID_IUnknown || wanted == IID_IDispatch)
            *object = static_cast<IDispatch*>(this);
        else if (wanted == IID_IConnectionPointContainer)
            *object = static_cast<IConnectionPointContainer*>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const std::wstring name = names[0];
        if (!device_.numbers.contains(name) && !device_.flags.contains(name) && !device_.texts.contains(name) &&
            !device_.methods.contains(name))
            return DISP_E_UNKNOWNNAME;
        names_.push_back(name);
        ids[0] = static_cast<DISPID>(names_.size());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                                     EXCEPINFO*, UINT*) override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override {
        AddRef();
        *points = this;
        listed_ = false;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID, IConnectionPoint**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Next(ULONG, IConnectionPoint** points, ULONG*) override {
        if (listed_)
            return S_FALSE;
        listed_ = true;
        AddRef();
        points[0] = this;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* events) override {
        *events = EventInterface;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* listener, DWORD* cookie) override {
        if (FAILED(listener->QueryInterface(EventInterface, device_.sink.Out())))
            return CONNECT_E_CANNOTCONNECT;
        *cookie = 1;
        ++device_.connected;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override {
        --device_.connected;
        device_.sink = {};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

private:
    void Get(const std::wstring& name, VARIANT& result) const;

    SimulatedDevice& device_;
    std::vector<std::wstring> names_;
    ULONG references_ = 1;
    bool listed_ = false;
};

void Object::Get(const std::wstring& name, VARIANT& result) const {
    if (const auto number = device_.numbers.find(name); number != device_.numbers.end()) {
        result.vt = VT_I4;
        result.lVal = number->second;
    } else if (const auto flag = device_.flags.find(name); flag != device_.flags.end()) {
        result.vt = VT_BOOL;
        result.boolVal = flag->second ? VARIANT_TRUE : VARIANT_FALSE;
    } else {
        const std::wstring& text = device_.texts.at(name);
        result.vt = VT_BSTR;
        result.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
}

HRESULT STDMETHODCALLTYPE Object::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                                         EXCEPINFO*, UINT*) {
    const std::wstring name = names_.at(static_cast<std::size_t>(id) - 1);
    if (device_.refusal != S_OK)
        return device_.refusal;
    if ((kind & DISPATCH_PROPERTYPUT) != 0) {
        const VARIANT& value = arguments->rgvarg[0];
        if (value.vt != VT_BOOL || arguments->cNamedArgs != 1 || arguments->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)
            return DISP_E_TYPEMISMATCH;
        device_.flags[name] = value.boolVal == VARIANT_TRUE;
        device_.log.push_back(Utf8(name) + (device_.flags[name] ? " = true" : " = false"));
        if (device_.written)
            device_.written(name);
        return S_OK;
    }
    if ((kind & DISPATCH_PROPERTYGET) != 0 && !device_.methods.contains(name)) {
        Get(name, *result);
        return S_OK;
    }
    std::vector<VARIANT*> given;
    for (UINT i = arguments->cArgs; i-- > 0;)
        given.push_back(&arguments->rgvarg[i]);
    device_.log.push_back(Utf8(name));
    const std::int32_t answer = device_.methods.at(name)(given);
    device_.numbers[L"ResultCode"] = answer;
    result->vt = VT_I4;
    result->lVal = answer;
    return S_OK;
}

class Factory final : public IClassFactory {
public:
    explicit Factory(SimulatedDevice& device) : device_(device) {}
    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        if (wanted != IID_IUnknown && wanted != IID_IClassFactory)
            return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** object) override {
        const ComReference<Object> made(new Object(device_));
        return made->QueryInterface(wanted, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    SimulatedDevice& device_;
    ULONG references_ = 1;
};

} // namespace

bool SimulatedDevice::Fire(DISPID id, const wchar_t* name, std::vector<VARIANT> arguments) {
    const ComReference<IDispatch> listener = sink;
    if (!listener)
        return false;
    std::wstring copy(name);
    LPOLESTR names = copy.data();
    DISPID asked = DISPID_UNKNOWN;
    const HRESULT answer = listener->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &asked);
    if (answer != E_NOTIMPL && FAILED(answer))
        return false;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS given{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    return SUCCEEDED(listener->Invoke(answer == E_NOTIMPL ? id : asked, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                      &given, nullptr, nullptr, nullptr));
}

SimulatedControl::SimulatedControl(std::wstring progId, SimulatedDevice& device)
    : key_(L"Software\\Classes\\" + std::move(progId)) {
    std::array<wchar_t, 64> type{};
    StringFromGUID2(ControlClass, type.data(), static_cast<int>(type.size()));
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, (key_ + L"\\CLSID").c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(type.data()),
                   static_cast<DWORD>((wcslen(type.data()) + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    const ComReference<Factory> factory(new Factory(device));
    if (FAILED(CoRegisterClassObject(ControlClass, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_)))
        throw std::runtime_error("the control object could not be registered");
}

SimulatedControl::~SimulatedControl() {
    CoRevokeClassObject(cookie_);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, key_.c_str());
}
