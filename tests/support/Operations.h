// The table of the facade's operations: each has a row, and every row goes through the same checks.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace operations {

/// What `Class` members are asked of: handles of each kind, all empty or all on something.
template <class Handles> struct Query {
    std::string name;
    std::function<bool(const Handles&)> neutral;
    std::function<std::string(const Handles&)> shown;
    bool asksHost = true;
};

template <class Handles> struct Command {
    std::string name;
    std::function<void(Handles&)> run;
};

/// What is empty, null, false or 0.
struct Nothing {
} constexpr nothing;

/// "Layer::title" for &kzo::core::Layer::title.
template <auto operation> std::string nameOf() {
    const std::string_view text = __PRETTY_FUNCTION__;
    const std::size_t start = text.find('&', text.find("operation = ")) + 1;
    const std::string_view whole = text.substr(start, text.find_first_of(";]", start) - start);
    return std::string(whole.substr(whole.rfind("::", whole.rfind("::") - 1) + 2));
}

template <auto neutral, class Answer> bool isNeutral(const Answer& answer) {
    if constexpr (!std::is_same_v<std::remove_cv_t<decltype(neutral)>, Nothing>)
        return answer == neutral;
    else if constexpr (requires { answer.isEmpty(); })
        return answer.isEmpty();
    else if constexpr (requires { answer.empty(); })
        return answer.empty();
    else
        return answer == Answer();
}

/// Of handles only whether they are there, for they are new each time.
template <class Answer> std::string shown(const Answer& answer) {
    if constexpr (std::is_enum_v<Answer>)
        return std::to_string(static_cast<long>(answer));
    else if constexpr (requires { answer.spacing; })
        return testing::PrintToString(answer.spacing);
    else if constexpr (requires { answer.stroke; })
        return testing::PrintToString(answer.stroke.width);
    else if constexpr (requires { answer.opacity; })
        return testing::PrintToString(answer.opacity);
    else if constexpr (requires { answer.font; })
        return testing::PrintToString(answer.font.size);
    else if constexpr (requires { answer.asDegrees(); })
        return testing::PrintToString(answer.asDegrees());
    else if constexpr (requires { answer.right; })
        return testing::PrintToString(std::vector{answer.left, answer.top, answer.right, answer.bottom});
    else if constexpr (requires { answer.x(); })
        return testing::PrintToString(std::vector{answer.x(), answer.y()});
    else if constexpr (requires {
                           *answer == *answer;
                           answer->size();
                       })
        return testing::PrintToString(answer->size());
    else if constexpr (std::is_arithmetic_v<Answer> || std::is_same_v<Answer, std::string>)
        return testing::PrintToString(answer);
    else
        return isNeutral<nothing>(answer) ? "none" : "some";
}

template <auto neutral, auto query, class Handles, class Class, class Answer>
Query<Handles> row(bool asksHost, Answer (Class::*)() const) {
    const auto ask = [](const Handles& handles) { return (handles.template on<Class>().*query)(); };
    return {nameOf<query>(), [ask](const Handles& h) { return isNeutral<neutral>(ask(h)); },
            [ask](const Handles& h) { return shown(ask(h)); }, asksHost};
}

/// Queries that ask the host, and those that need not.
template <auto neutral, auto... queries, class Handles> void asks(std::vector<Query<Handles>>& rows) {
    (rows.push_back(row<neutral, queries, Handles>(true, queries)), ...);
}
template <auto neutral, auto... queries, class Handles> void knows(std::vector<Query<Handles>>& rows) {
    (rows.push_back(row<neutral, queries, Handles>(false, queries)), ...);
}

template <auto command, class Handles, class Class, class Result, class... Parameters, class... Arguments>
void add(std::vector<Command<Handles>>& rows, Result (Class::*)(Parameters...), const Arguments&... arguments) {
    rows.push_back({nameOf<command>(), [arguments...](Handles& h) {
                        static_cast<void>((h.template on<Class>().*command)(arguments...));
                    }});
}
/// A command that takes more than the member's name to say.
template <class Handles, class Run> void changesWith(std::vector<Command<Handles>>& rows, const char* name, Run run) {
    rows.push_back({name, [run](Handles& h) { run(h); }});
}
template <auto command, class Handles, class... Arguments>
void changes(std::vector<Command<Handles>>& rows, const Arguments&... arguments) {
    add<command>(rows, command, arguments...);
}

} // namespace operations
