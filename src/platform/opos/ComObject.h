// A COM object as scripts see it: its members are called by name.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <oaidl.h>
#include <windows.h>

// Owns one reference.
template<typename Interface>
class ComReference {
public:
    ComReference() = default;
    // Takes over the reference.
    explicit ComReference(Interface* object) : object_(object) {}
    ComReference(const ComReference& other) : object_(other.object_) {
        if (object_ != nullptr)
            object_->AddRef();
    }
    ComReference& operator=(ComReference other) {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComReference() {
        if (object_ != nullptr)
            object_->Release();
    }
    [[nodiscard]] Interface* Get() const { return object_; }
    [[nodiscard]] Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    // Where a function of COM's puts a reference.
    [[nodiscard]] void** Out() {
        *this = ComReference();
        return reinterpret_cast<void**>(&object_);
    }

private:
    Interface* object_ = nullptr;
};

// An argument or result; owns what is in it.
class ComValue {
public:
    ComValue() { VariantInit(&value_); }
    explicit ComValue(std::int32_t number);
    explicit ComValue(bool flag);
    explicit ComValue(const std::string& utf8);
    // By reference: the object that is called changes it. They outlive the value.
    [[nodiscard]] static ComValue Reference(LONG& number);
    [[nodiscard]] static ComValue Reference(BSTR& text);
    ComValue(ComValue&& other) noexcept;
    ComValue& operator=(ComValue&&) = delete;
    ~ComValue() { VariantClear(&value_); }

    // The value in another type where COM can turn it into that; otherwise 0, false and nothing.
    [[nodiscard]] std::int32_t Number() const;
    [[nodiscard]] bool Flag() const;
    [[nodiscard]] std::optional<std::wstring> Text() const;
    [[nodiscard]] VARIANT* Get() { return &value_; }

private:
    mutable VARIANT value_; // which COM takes without const even where it only reads
};

class ComObject {
public:
    explicit ComObject(ComReference<IDispatch> object) : object_(std::move(object)) {}

    [[nodiscard]] const ComReference<IDispatch>& Object() const { return object_; }
    [[nodiscard]] bool HasMember(const wchar_t* name) { return Id(name).has_value(); }

    // Nothing where the object has no such member or refuses.
    [[nodiscard]] std::optional<ComValue> Get(const wchar_t* property);
    bool Put(const wchar_t* property, ComValue value);
    // Arguments in the order in which they are declared.
    std::optional<ComValue> Call(const wchar_t* method, std::vector<ComValue> arguments);

private:
    [[nodiscard]] std::optional<DISPID> Id(const wchar_t* name);
    std::optional<ComValue> Invoke(const wchar_t* name, WORD kind, DISPPARAMS& arguments);

    ComReference<IDispatch> object_;
    std::map<std::wstring, DISPID> ids_;
};
