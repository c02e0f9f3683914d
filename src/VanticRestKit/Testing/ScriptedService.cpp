#include <VanticRestKit/Testing/detail/Script.h>
#include <VanticRestKit/Testing/ScriptedService.h>

#include <algorithm>

namespace VanticRestKit::Testing {

ScriptRule& ScriptRule::answer(Answer answer) {
    script_->addAnswer(index_, std::move(answer));
    return *this;
}

ScriptRule& ScriptRule::answerBy(std::function<Answer(const AskedRequest&)> function) {
    script_->addAnswer(index_, std::move(function));
    return *this;
}

ScriptRule& ScriptRule::times(std::size_t count) {
    script_->setExpected(index_, {.min = count, .max = count});
    return *this;
}

ScriptRule& ScriptRule::atLeastOnce() {
    script_->setExpected(index_, {.min = 1});
    return *this;
}

ScriptedService::ScriptedService() : ScriptedService(DispatchQueue::withOwnThread("scripted service")) {}

ScriptedService::ScriptedService(const ManualExecutor& executor) : ScriptedService(executor.queue()) {}

ScriptedService::ScriptedService(DispatchQueue queue) {
    // Closes the script with the last handle: an open request keeps its session alive, so the script would keep itself
    // alive.
    struct Handle {
        std::shared_ptr<detail::Script> script;
        explicit Handle(std::shared_ptr<detail::Script> made) : script(std::move(made)) {}
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        ~Handle() { script->close(); }
    };
    const auto handle = std::make_shared<Handle>(std::make_shared<detail::Script>(std::move(queue)));
    script_ = std::shared_ptr<detail::Script>(handle, handle->script.get());
}

ScriptRule ScriptedService::on(RequestPattern pattern) const {
    return {script_, script_->addRule(std::move(pattern), {})};
}

ScriptRule ScriptedService::expect(RequestPattern pattern) const {
    return {script_, script_->addRule(std::move(pattern), {.min = 1, .max = 1})};
}

void ScriptedService::answerNext(Answer answer) const { script_->addNext(std::move(answer)); }

std::vector<AskedRequest> ScriptedService::asked() const { return script_->asked(); }

std::size_t ScriptedService::countOf(const RequestPattern& pattern) const {
    const std::vector<AskedRequest> all = asked();
    return static_cast<std::size_t>(
        std::count_if(all.begin(), all.end(), [&](const AskedRequest& each) { return pattern.fits(each); }));
}

std::size_t ScriptedService::openRequests() const { return script_->openRequests(); }

void ScriptedService::holdAll() const { script_->holdAll(); }

bool ScriptedService::answerNow() const { return script_->answerNow(nullptr, {}); }

bool ScriptedService::answerNow(const RequestPattern& pattern) const {
    return script_->answerNow(&pattern, {});
}

bool ScriptedService::answerNow(const RequestPattern& pattern, Answer answer) const {
    return script_->answerNow(&pattern, std::move(answer));
}

std::string ScriptedService::problems() const { return script_->problems(); }

std::shared_ptr<NetworkSession> ScriptedService::session() const { return script_->shared_from_this(); }

}  // namespace VanticRestKit::Testing
