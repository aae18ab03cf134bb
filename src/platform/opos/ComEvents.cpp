#include "platform/opos/ComEvents.h"

#include "platform/opos/ComCounted.h"
#include "platform/windows/WideText.h"

#include <exception>
#include <utility>

// Outlives the control while COM still holds it; without a handler it drops what comes.
class ComEvents::Sink final : public ComCounted<IDispatch> {
public:
    Sink(EventDispatcher& dispatcher, Handler handler) : dispatcher_(dispatcher), handler_(std::move(handler)) {}

    void Listen(const IID& events) { events_ = events; }
    void Disconnect() {
        handler_ = nullptr;
        waiting_.clear();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == events_;
        *object = known ? static_cast<IDispatch*>(this) : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) override {
        return E_NOTIMPL;
    }
    // This answer makes the control objects use the ids of the standard; any other failure drops the event.
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* /*names*/, UINT /*count*/, LCID /*locale*/,
                                            DISPID* /*ids*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID /*reserved*/, LCID /*locale*/, WORD /*kind*/,
                                     DISPPARAMS* arguments, VARIANT* /*result*/, EXCEPINFO* /*exception*/,
                                     UINT* /*wrong*/) override;

private:
    void Handle(ComEvent& event);

    EventDispatcher& dispatcher_;
    Handler handler_;
    IID events_ = IID_IDispatch;
    bool handling_ = false;
    std::deque<ComEvent> waiting_;
};

namespace {

// COM hands arguments over in reverse.
ComEvent EventOf(DISPID id, const DISPPARAMS& arguments) {
    ComEvent event{.id = id, .numbers = {}, .text = {}};
    for (UINT i = arguments.cArgs; i-- > 0;) {
        ComValue value;
        if (FAILED(VariantCopyInd(value.Get(), &arguments.rgvarg[i])))
            continue;
        if (value.Get()->vt == VT_BSTR)
            event.text = Utf8(value.Text().value_or(L""));
        else
            event.numbers.push_back(value.Number());
    }
    return event;
}

void GiveBack(const ComEvent& event, const DISPPARAMS& arguments) {
    for (UINT i = 0; i < arguments.cArgs; ++i) {
        const VARIANT& argument = arguments.rgvarg[i];
        if (argument.vt == (VT_BYREF | VT_I4) && !event.numbers.empty()) {
            *argument.plVal = event.numbers.back();
        } else if (argument.vt == (VT_BYREF | VT_BSTR)) {
            const std::wstring text = Wide(event.text);
            SysReAllocStringLen(argument.pbstrVal, text.data(), static_cast<UINT>(text.size()));
        }
    }
}

} // namespace

void ComEvents::Sink::Handle(ComEvent& event) {
    const Handler handler = handler_; // which may end this connection
    if (!handler)
        return;
    try {
        handler(event);
    } catch (...) {
        dispatcher_.Post([error = std::current_exception()] { std::rethrow_exception(error); });
    }
}

HRESULT STDMETHODCALLTYPE ComEvents::Sink::Invoke(DISPID id, REFIID /*reserved*/, LCID /*locale*/, WORD /*kind*/,
                                                  DISPPARAMS* arguments, VARIANT* /*result*/, EXCEPINFO* /*exception*/,
                                                  UINT* /*wrong*/) {
    ComEvent event = EventOf(id, *arguments);
    if (handling_) {
        waiting_.push_back(std::move(event));
        return S_OK;
    }
    AddRef(); // the handler may let go of everything
    handling_ = true;
    Handle(event);
    GiveBack(event, *arguments);
    while (!waiting_.empty()) {
        ComEvent next = std::move(waiting_.front());
        waiting_.pop_front();
        Handle(next);
    }
    handling_ = false;
    Release();
    return S_OK;
}

ComEvents::ComEvents(const ComReference<IDispatch>& source, EventDispatcher& dispatcher, Handler handler)
    : sink_(new Sink(dispatcher, std::move(handler))) {
    ComReference<IConnectionPointContainer> container;
    ComReference<IEnumConnectionPoints> points;
    if (FAILED(source->QueryInterface(IID_IConnectionPointContainer, container.Out())))
        return;
    IEnumConnectionPoints* listed = nullptr;
    if (FAILED(container->EnumConnectionPoints(&listed)))
        return;
    points = ComReference<IEnumConnectionPoints>(listed);
    for (IConnectionPoint* point = nullptr; !point_ && points->Next(1, &point, nullptr) == S_OK;)
        if (const ComReference<IConnectionPoint> owned(point); Connect(owned))
            point_ = owned;
}

bool ComEvents::Connect(const ComReference<IConnectionPoint>& point) {
    IID events{};
    if (FAILED(point->GetConnectionInterface(&events)))
        return false;
    // Not the point that only tells of changed properties.
    if (events == IID_IPropertyNotifySink)
        return false;
    sink_->Listen(events);
    return SUCCEEDED(point->Advise(sink_.Get(), &cookie_));
}

ComEvents::~ComEvents() {
    sink_->Disconnect();
    if (point_)
        point_->Unadvise(cookie_);
}
