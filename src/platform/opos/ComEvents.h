// The events of a control object: a sink at its connection point.
#pragma once

#include "opos/EventDispatcher.h"
#include "platform/opos/ComObject.h"

#include <deque>
#include <functional>
#include <memory>

#include <ocidl.h>

// What an event carries; the last two are for the handler to change.
struct ComEvent {
    // The ids by which the OPOS control objects tell their events apart.
    static constexpr DISPID Data = 1;
    static constexpr DISPID DirectIO = 2;
    static constexpr DISPID Error = 3;
    static constexpr DISPID StatusUpdate = 5;

    DISPID id = 0;
    std::vector<std::int32_t> numbers; // in the order in which they are declared, the one to change last
    std::string text;                  // UTF-8
};

// Connects to an object for as long as it lives. Events never nest: one that comes while another is handled waits, and
// what its handler then changes is lost. An error that a handler raises goes the dispatcher's way.
class ComEvents {
public:
    using Handler = std::function<void(ComEvent&)>;

    ComEvents(const ComReference<IDispatch>& source, EventDispatcher& dispatcher, Handler handler);
    ~ComEvents();
    ComEvents(const ComEvents&) = delete;
    ComEvents& operator=(const ComEvents&) = delete;

    // False where the object has no events.
    [[nodiscard]] bool Connected() const { return static_cast<bool>(point_); }

private:
    class Sink;
    [[nodiscard]] bool Connect(const ComReference<IConnectionPoint>& point);

    ComReference<Sink> sink_;
    ComReference<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};
