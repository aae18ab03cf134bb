#include "lane/LaneRunner.h"

#include "lane/LaneCommands.h"

#include <asio/post.hpp>

#include <csignal>
#include <future>

namespace {

constexpr int EndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

sigset_t EndingSignalSet() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : EndingSignals) {
        sigaddset(&set, signal);
    }
    return set;
}

} // namespace

LaneRunner::LaneRunner(LaneOptions options, std::function<void(const std::string&)> report)
    : signals_(context_), lane_(context_, std::move(options), std::move(report)) {
    for (const int signal : EndingSignals) {
        signals_.add(signal);
    }
    signals_.async_wait([this](const asio::error_code& error, int signal) {
        if (!error) {
            lane_.Clear();
            (void)std::signal(signal, SIG_DFL);
            (void)std::raise(signal);
        }
    });
    const sigset_t ending = EndingSignalSet();
    pthread_sigmask(SIG_BLOCK, &ending, &formerMask_);
    thread_ = std::thread([this] { Run(); });
}

LaneRunner::~LaneRunner() {
    OnLaneThread([this] {
        signals_.cancel();
        lane_.Clear();
    });
    work_.reset();
    context_.stop();
    thread_.join();
    pthread_sigmask(SIG_SETMASK, &formerMask_, nullptr);
}

void LaneRunner::Run() {
    const sigset_t ending = EndingSignalSet();
    pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
    context_.run();
}

std::string LaneRunner::Execute(const std::string& command) {
    std::string answer;
    OnLaneThread([&] { answer = ExecuteLaneCommand(lane_, command); });
    return answer;
}

std::vector<LanePortState> LaneRunner::State() {
    std::vector<LanePortState> state;
    OnLaneThread([&] { state = lane_.State(); });
    return state;
}

void LaneRunner::OnLaneThread(const std::function<void()>& work) {
    std::promise<void> done;
    asio::post(context_, [&] {
        work();
        done.set_value();
    });
    done.get_future().wait();
}
