#include "platform/opos/ScaleControl.h"

#include "platform/opos/ServiceCatalogue.h"

#include <utility>

ScaleControl::ScaleControl(Registry& registry, EventDispatcher& dispatcher, Lines& lines)
    : ControlObject(dispatcher), registry_(registry), lines_(lines) {}

void ScaleControl::AsyncMode(bool async) {
    if (!IsOpen())
        return;
    if (async && !scale_->Traits().asynchronous) {
        Done(OposResult::Illegal);
        return;
    }
    asyncMode_ = async;
    Done(OposResult::Success);
}

std::int32_t ScaleControl::ReadWeight(std::int32_t& weight, std::int32_t timeout) {
    if (!IsOpen() || !asyncMode_)
        weight = 0;
    if (const std::int32_t result = CheckEnabled(); result != OposResult::Success)
        return Done(result);
    if (timeout < Forever)
        return Done(OposResult::Illegal);
    if (scale_->Busy())
        return Done(OposResult::Busy);
    if (asyncMode_) {
        ReadInBackground(timeout);
        return Done(OposResult::Success);
    }
    const ScaleOutcome outcome =
        WaitForOutcome([&](ScaleService::Done done) { scale_->ReadWeight(timeout, std::move(done)); },
                       [this](const auto& condition) { return WaitFor(condition); });
    if (outcome.result == OposResult::Closed)
        return Done(Interrupted());
    weight = outcome.weight;
    return Done(outcome.result, outcome.extended);
}

std::int32_t ScaleControl::ZeroScale() {
    if (const std::int32_t result = CheckEnabled(); result != OposResult::Success)
        return Done(result);
    if (scale_->Busy())
        return Done(OposResult::Busy);
    const ScaleOutcome outcome = WaitForOutcome([this](ScaleService::Done done) { scale_->ZeroScale(std::move(done)); },
                                                [this](const auto& condition) { return WaitFor(condition); });
    return Done(outcome.result == OposResult::Closed ? Interrupted() : outcome.result);
}

ControlObject::OpenOutcome ScaleControl::OpenService(const std::string& deviceName) {
    auto opened = OpenScaleService(registry_, lines_, deviceName);
    scale_ = opened.service.get();
    return {std::move(opened.service), opened.result, opened.openResult};
}

void ScaleControl::RetryInput() {
    if (asyncMode_ && CheckEnabled() == OposResult::Success && !scale_->Busy())
        ReadInBackground(backgroundTimeout_);
}

void ScaleControl::ReadInBackground(std::int32_t timeout) {
    backgroundTimeout_ = timeout;
    scale_->ReadWeight(timeout, [queue = Queue()](const ScaleOutcome& outcome) {
        if (outcome.result == OposResult::Success)
            queue->Add({outcome.weight, {}});
        else
            queue->AddError(outcome.result, outcome.extended);
    });
}
