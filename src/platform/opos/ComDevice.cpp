#include "platform/opos/ComDevice.h"

#include "platform/windows/WideText.h"

#include <algorithm>
#include <array>

namespace {

constexpr const char* Unreadable = "[Error]";
// Without these an object is no control object of the release that the program knows.
constexpr std::array Required = {L"Open",      L"Close", L"ClaimDevice", L"DeviceEnabled", L"DataEventEnabled",
                                 L"ResultCode"};

} // namespace

ComObject* ComDevice::Object() {
    if (!tried_)
        Create();
    return object_.get();
}

void ComDevice::Create() {
    tried_ = true;
    CLSID type{};
    if (FAILED(CLSIDFromProgID(progId_, &type))) {
        openResult_ = OposOpenResult::BadProgId;
        return;
    }
    ComReference<IDispatch> created;
    if (FAILED(CoCreateInstance(type, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, created.Out()))) {
        openResult_ = OposOpenResult::CreateError;
        return;
    }
    const auto object = std::make_shared<ComObject>(created);
    for (const wchar_t* const member : Required) {
        if (!object->HasMember(member)) {
            openResult_ = OposOpenResult::BadInterface;
            return;
        }
    }
    object_ = object;
    events_ = std::make_unique<ComEvents>(created, dispatcher_, [this](ComEvent& event) { Deliver(event); });
    openResult_ = OposOpenResult::Success;
}

void ComDevice::Deliver(ComEvent& event) {
    event.numbers.resize(std::max<std::size_t>(event.numbers.size(), event.id == ComEvent::Error ? 4 : 2));
    auto& numbers = event.numbers;
    // Copies, since a handler may replace or destroy itself.
    if (const auto handler = onData; event.id == ComEvent::Data && handler)
        handler(numbers[0]);
    else if (const auto changing = onDirectIO; event.id == ComEvent::DirectIO && changing)
        changing(numbers[0], numbers[1], event.text);
    else if (const auto failed = onError; event.id == ComEvent::Error && failed)
        failed(numbers[0], numbers[1], numbers[2], numbers[3]);
    else if (const auto status = onStatusUpdate; event.id == ComEvent::StatusUpdate && status)
        status(numbers[0]);
}

std::int32_t ComDevice::Open(const std::string& deviceName) {
    if (!object_)
        tried_ = false; // it may have been installed meanwhile
    if (Object() == nullptr)
        return OposResult::NoService;
    std::vector<ComValue> arguments;
    arguments.emplace_back(deviceName);
    return Call(L"Open", std::move(arguments));
}

std::int32_t ComDevice::Call(const wchar_t* method, std::vector<ComValue> arguments) {
    if (!object_)
        return OposResult::Closed;
    const auto object = object_;
    const auto refused = refused_;
    const auto result = object->Call(method, std::move(arguments));
    *refused = !result;
    return result ? result->Number() : OposResult::Failure;
}

std::int32_t ComDevice::CallWithText(const wchar_t* method, std::vector<ComValue> arguments, std::string& text) {
    const std::wstring wide = Wide(text);
    BSTR changed = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    arguments.push_back(ComValue::Reference(changed));
    const std::int32_t result = Call(method, std::move(arguments));
    if (result == OposResult::Success)
        text = Utf8({changed, SysStringLen(changed)});
    SysFreeString(changed);
    return result;
}

std::int32_t ComDevice::Number(const wchar_t* property, std::int32_t otherwise) {
    ComObject* const object = Object();
    const auto value = object == nullptr ? std::nullopt : object->Get(property);
    return value ? value->Number() : otherwise;
}

bool ComDevice::Flag(const wchar_t* property) {
    ComObject* const object = Object();
    const auto value = object == nullptr ? std::nullopt : object->Get(property);
    return value && value->Flag();
}

std::string ComDevice::Text(const wchar_t* property) {
    ComObject* const object = Object();
    const auto value = object == nullptr ? std::nullopt : object->Get(property);
    const auto text = value ? value->Text() : std::nullopt;
    return text ? Utf8(*text) : Unreadable;
}

std::string ComDevice::Bytes(const wchar_t* property) {
    ComObject* const object = Object();
    const auto value = object == nullptr ? std::nullopt : object->Get(property);
    const auto text = value ? value->Text() : std::nullopt;
    if (!text)
        return Unreadable;
    std::string bytes;
    for (const wchar_t character : *text)
        bytes += character < 0x100 ? static_cast<char>(character) : '?';
    return bytes;
}

void ComDevice::Put(const wchar_t* property, bool flag) {
    if (!object_)
        return;
    const auto object = object_;
    const auto refused = refused_;
    *refused = !object->Put(property, ComValue(flag));
}

std::int32_t ComDevice::ResultCode() {
    return *refused_ ? OposResult::Failure : Number(L"ResultCode", OposResult::Closed);
}

std::int32_t ComDevice::OpenResult() {
    return openResult_ == OposOpenResult::Success ? Number(L"OpenResult") : openResult_;
}
