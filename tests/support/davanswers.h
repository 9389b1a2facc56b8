#pragma once

// Waiting for the answers of the address book server's client, which come later on the event loop.

#include "platform/carddav/davaccount.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <tuple>

// Starts an operation with a callback and runs the event loop until it has answered; the answer, or
// empty values (and a failure) when none came in time.
template <typename... Args, typename Start>
std::tuple<Args...> answerOf(Start start, int limitMs = 60000)
{
    auto answer = std::make_shared<std::optional<std::tuple<Args...>>>();
    auto calls = std::make_shared<int>(0);
    start([answer, calls](Args... args) {
        ++*calls;
        answer->emplace(std::move(args)...);
    });
    QDeadlineTimer deadline(limitMs);
    while (!*answer && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_TRUE(answer->has_value()) << "no answer within " << limitMs << " ms";
    EXPECT_LE(*calls, 1) << "answered more than once";
    return answer->value_or(std::tuple<Args...>{});
}

// Runs the event loop for a while, to see that nothing more comes.
inline void idle(int ms)
{
    QDeadlineTimer deadline(ms);
    while (!deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

namespace hb::carddav {
inline void PrintTo(const DavError& error, std::ostream* out)
{
    *out << "DavError(" << int(error.kind) << ", " << error.status << ", \"" << error.text.toStdString() << "\")";
}
} // namespace hb::carddav
