// What the test plug-in "Answering" understands: a question about a number, answered in the record.
#pragma once

#include <cstdint>

#include "hostapi/SPMessages.h"

namespace answering {

constexpr const char* caller = "Test";
constexpr const char* doubleIt = "Double";

struct Question {
    SPMessageData d;
    std::int32_t number;
    std::int32_t answer;
    char by[32]; ///< the name of the plug-in that answered
};

} // namespace answering
