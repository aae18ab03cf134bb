// An object of one's own that COM holds.
#pragma once

#include <unknwn.h>

// COM's interfaces have no virtual destructor; their objects end by Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Counts the references for all its interfaces: it begins with one, and ends with the last. For one thread.
template<typename... Interfaces>
class ComCounted : public Interfaces... {
public:
    ComCounted(const ComCounted&) = delete;
    ComCounted& operator=(const ComCounted&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    ComCounted() = default;
    virtual ~ComCounted() = default;

private:
    ULONG references_ = 1;
};

#pragma GCC diagnostic pop
