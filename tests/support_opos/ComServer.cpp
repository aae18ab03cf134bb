#include "support_opos/ComServer.h"

#include "platform/opos/ComCounted.h"

#include <array>
#include <stdexcept>

#include <olectl.h>

namespace {

// The interface of the events: {6F0D2C62-9C1B-4B1E-8C55-2F0B8A1D7E10}.
constexpr IID EventInterface = {0x6f0d2c62, 0x9c1b, 0x4b1e, {0x8c, 0x55, 0x2f, 0x0b, 0x8a, 0x1d, 0x7e, 0x10}};

// One object with all the interfaces that a listener needs; the connection points list themselves.
class Object final : public ComCounted<IDispatch, IConnectionPointContainer, IConnectionPoint, IEnumConnectionPoints> {
public:
    explicit Object(std::shared_ptr<ServedControl> control) : control_(std::move(control)) { ++control_->alive; }
    ~Object() override { --control_->alive; }

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

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const std::wstring name = names[0];
        if (!control_->IsProperty(name) && !control_->IsMethod(name))
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
        if (FAILED(listener->QueryInterface(EventInterface, control_->sink.Out())))
            return CONNECT_E_CANNOTCONNECT;
        *cookie = 1;
        ++control_->connected;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override {
        --control_->connected;
        control_->sink = {};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

private:
    std::shared_ptr<ServedControl> control_;
    std::vector<std::wstring> names_;
    bool listed_ = false;
};

HRESULT STDMETHODCALLTYPE Object::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                                         EXCEPINFO*, UINT*) {
    const std::wstring name = names_.at(static_cast<std::size_t>(id) - 1);
    const auto control = control_; // a handler of an event that comes meanwhile may let go of this object
    if (control->refusal != S_OK)
        return control->refusal;
    if ((kind & DISPATCH_PROPERTYPUT) != 0) {
        const VARIANT& value = arguments->rgvarg[0];
        if (value.vt != VT_BOOL || arguments->cNamedArgs != 1 || arguments->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)
            return DISP_E_TYPEMISMATCH;
        control->Put(name, value.boolVal == VARIANT_TRUE);
        return S_OK;
    }
    if ((kind & DISPATCH_PROPERTYGET) != 0 && !control->IsMethod(name))
        return VariantCopy(result, control->Get(name).Get());
    std::vector<VARIANT*> given;
    for (UINT i = arguments->cArgs; i-- > 0;)
        given.push_back(&arguments->rgvarg[i]);
    result->vt = VT_I4;
    result->lVal = control->Call(name, given);
    return S_OK;
}

class ClassFactory final : public ComCounted<IClassFactory> {
public:
    explicit ClassFactory(ServedClass::Factory make) : make_(std::move(make)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        if (wanted != IID_IUnknown && wanted != IID_IClassFactory)
            return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** object) override {
        const ComReference<Object> made(new Object(make_()));
        return made->QueryInterface(wanted, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    ServedClass::Factory make_;
};

} // namespace

bool ServedControl::Fire(DISPID id, const wchar_t* name, std::vector<VARIANT> arguments) {
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

VARIANT Long(std::int32_t number) {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    return value;
}

VARIANT Reference(LONG& number) {
    VARIANT value{};
    value.vt = VT_BYREF | VT_I4;
    value.plVal = &number;
    return value;
}

VARIANT Reference(BSTR& text) {
    VARIANT value{};
    value.vt = VT_BYREF | VT_BSTR;
    value.pbstrVal = &text;
    return value;
}

ServedClass::ServedClass(const std::wstring& progId, Factory make) : key_(L"Software\\Classes\\" + progId) {
    CLSID type{};
    std::array<wchar_t, 64> text{};
    std::array<wchar_t, 64> former{};
    DWORD size = sizeof former;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, (key_ + L"\\CLSID").c_str(), nullptr, RRF_RT_REG_SZ, nullptr, former.data(),
                     &size) == ERROR_SUCCESS)
        former_ = former.data();
    const ComReference<ClassFactory> factory(new ClassFactory(std::move(make)));
    if (FAILED(CoCreateGuid(&type)) || StringFromGUID2(type, text.data(), static_cast<int>(text.size())) == 0 ||
        FAILED(CoRegisterClassObject(type, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_)))
        throw std::runtime_error("the control object could not be registered");
    Name(text.data());
}

ServedClass::~ServedClass() {
    CoRevokeClassObject(cookie_);
    if (former_)
        Name(*former_);
    else
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, key_.c_str());
}

void ServedClass::Name(const std::wstring& type) const {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, (key_ + L"\\CLSID").c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(type.c_str()),
                   static_cast<DWORD>((type.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
}
