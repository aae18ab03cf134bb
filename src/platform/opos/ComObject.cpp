#include "platform/opos/ComObject.h"

#include "platform/windows/WideText.h"

#include <algorithm>
#include <utility>

ComValue::ComValue(std::int32_t number) : ComValue() {
    value_.vt = VT_I4;
    value_.lVal = number;
}

ComValue::ComValue(bool flag) : ComValue() {
    value_.vt = VT_BOOL;
    value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

ComValue::ComValue(const std::string& utf8) : ComValue() {
    const std::wstring wide = Wide(utf8);
    value_.vt = VT_BSTR;
    value_.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

ComValue ComValue::Reference(LONG& number) {
    ComValue reference;
    reference.value_.vt = VT_BYREF | VT_I4;
    reference.value_.plVal = &number;
    return reference;
}

ComValue ComValue::Reference(BSTR& text) {
    ComValue reference;
    reference.value_.vt = VT_BYREF | VT_BSTR;
    reference.value_.pbstrVal = &text;
    return reference;
}

ComValue::ComValue(ComValue&& other) noexcept : value_(other.value_) {
    VariantInit(&other.value_);
}

std::int32_t ComValue::Number() const {
    ComValue number;
    return SUCCEEDED(VariantChangeType(number.Get(), &value_, 0, VT_I4)) ? number.value_.lVal : 0;
}

bool ComValue::Flag() const {
    ComValue flag;
    return SUCCEEDED(VariantChangeType(flag.Get(), &value_, 0, VT_BOOL)) && flag.value_.boolVal != VARIANT_FALSE;
}

std::optional<std::wstring> ComValue::Text() const {
    ComValue text;
    if (FAILED(VariantChangeType(text.Get(), &value_, 0, VT_BSTR)))
        return std::nullopt;
    return std::wstring(text.value_.bstrVal, SysStringLen(text.value_.bstrVal));
}

std::optional<DISPID> ComObject::Id(const wchar_t* name) {
    if (const auto known = ids_.find(name); known != ids_.end())
        return known->second;
    std::wstring copy(name);
    LPOLESTR names = copy.data();
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)))
        return std::nullopt;
    ids_.emplace(name, id);
    return id;
}

std::optional<ComValue> ComObject::Invoke(const wchar_t* name, WORD kind, DISPPARAMS& arguments) {
    const auto id = Id(name);
    if (!id)
        return std::nullopt;
    // What is called may let go of this object before it returns.
    const ComReference<IDispatch> object = object_;
    ComValue result;
    VARIANT* const wanted = kind == DISPATCH_PROPERTYPUT ? nullptr : result.Get();
    if (FAILED(object->Invoke(*id, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments, wanted, nullptr, nullptr)))
        return std::nullopt;
    return result;
}

std::optional<ComValue> ComObject::Get(const wchar_t* property) {
    DISPPARAMS none{};
    return Invoke(property, DISPATCH_PROPERTYGET, none);
}

bool ComObject::Put(const wchar_t* property, ComValue value) {
    DISPID written = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{value.Get(), &written, 1, 1};
    return Invoke(property, DISPATCH_PROPERTYPUT, arguments).has_value();
}

std::optional<ComValue> ComObject::Call(const wchar_t* method, std::vector<ComValue> arguments) {
    std::vector<VARIANT> reversed; // as COM wants them; still owned by the arguments
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
        reversed.push_back(*argument->Get());
    DISPPARAMS given{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    return Invoke(method, DISPATCH_METHOD, given);
}
